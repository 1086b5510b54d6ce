#include "shell/messages.h"

#include "platform/message_box.h"
#include "platform/system_messages.h"
#include "runtime/conversions.h"
#include "runtime/errors.h"
#include "shell/log.h"
#include "shell/program_state.h"

namespace kestrelmoor {

namespace {

constexpr std::size_t kErrorTextLength = 256;
constexpr std::uint32_t kFirstNetworkCode = 2100;
constexpr std::uint32_t kLastNetworkCode = 2999;

String TextOf(std::int16_t nNumber) {
    try {
        if (gLocalizer == nullptr)
            RaiseError(error_number::kObjectNotSet);
        return gLocalizer->GetText(nNumber);
    } catch (const RuntimeError& error) {
        platform::MessageBoxW(error.description(), platform::kBoxExclamation, error.source());
        return {};
    }
}

/// The argument that a placeholder's digit names, null for none.
const String* ArgumentOf(char16_t digit, const StringList& aArgs) {
    if (digit < u'1' || digit > u'9')
        return nullptr;
    const auto index = static_cast<std::size_t>(digit - u'1');
    return index < aArgs.size() ? &aArgs[index] : nullptr;
}

} // namespace

String LoadMessage(std::int16_t nNumber, const StringList& aArgs) {
    return FillPlaceholders(TextOf(nNumber), aArgs);
}

String FillPlaceholders(String sText, const StringList& aArgs) {
    std::size_t at = sText.find(u'%');
    while (at != String::npos) {
        const bool at_end = at + 1 == sText.size();
        const String* argument = at_end ? nullptr : ArgumentOf(sText[at + 1], aArgs);
        if (argument != nullptr) {
            sText.replace(at, 2, *argument);
            at += argument->size();
        } else {
            if (!at_end && sText[at + 1] == u'%')
                sText.erase(at, 1);
            ++at;
        }
        at = sText.find(u'%', at);
    }
    return sText;
}

String GetSystemErrorText(std::uint32_t nCode) {
    std::uint32_t flags = platform::kFormatFromSystem | platform::kFormatIgnoreInserts;
    platform::OwnedModule module;
    if (nCode >= kFirstNetworkCode && nCode <= kLastNetworkCode) {
        module.Reset(platform::LoadLibraryExW(u"netmsg.dll", platform::kLoadAsDataFile).value);
        if (module)
            flags |= platform::kFormatFromModule;
    }
    String buffer;
    const auto formatted = platform::FormatMessageW(flags, module.Get(), nCode, kErrorTextLength, buffer);
    if (formatted.value == 0 && gLogging)
        LogError(LoadMessage(11, {DecimalText(formatted.last_error)}));
    module.Reset();
    String text = TrimAtNul(buffer);
    if (text.ends_with(u"\r\n"))
        text.resize(text.size() - 2);
    return text;
}

String FormatApiError(std::uint32_t nCode, const String& sApiName) {
    const String code = DecimalText(static_cast<std::int32_t>(nCode));
    if (gLogging)
        return LoadMessage(12, {code, sApiName, GetSystemErrorText(nCode)});
    return LoadMessage(15, {code, GetSystemErrorText(nCode)});
}

} // namespace kestrelmoor

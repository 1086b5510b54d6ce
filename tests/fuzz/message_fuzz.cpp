#include "runtime/conversions.h"
#include "shell/messages.h"
#include "tests/fuzz/support.h"
#include "tests/native/support/test_language.h"

namespace kestrelmoor::fuzz {

namespace {

constexpr std::int16_t kKnown = 7;
constexpr std::int16_t kUnknown = 8;
constexpr std::size_t kErrorTextLength = 256;
constexpr std::uint32_t kSystemCode = 53;
constexpr std::uint32_t kNetworkCode = 2245;

/// The text with its arguments, written from the front to the back in one go.
String Filled(StringView text, const StringList& arguments) {
    String out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t next = text[i] == u'%' && i + 1 < text.size() ? text[i + 1] : u'\0';
        const std::size_t number = next >= u'1' && next <= u'9' ? static_cast<std::size_t>(next - u'0') : 0;
        if (number != 0 && number <= arguments.size()) {
            out += arguments[number - 1];
            ++i;
        } else {
            out.push_back(text[i]);
            i += next == u'%' ? 1 : 0;
        }
    }
    return out;
}

void CheckMessage(const String& text, const StringList& arguments, const String& filled) {
    Run run;
    tests::SpeakTestLanguage({{kKnown, text}});
    Require(LoadMessage(kKnown, arguments) == filled);
    Require(run.world.boxes.All().empty());
    Require(LoadMessage(kUnknown, arguments).empty());
    Require(run.world.boxes.All().size() == 1);
}

/// A text of the system as its buffer leaves it: no more than 256 characters, none behind a NUL, and without
/// the line end.
void CheckSystemText(const String& text) {
    Run run;
    tests::SpeakTestLanguage();
    run.world.machine.system_messages = {{kSystemCode, text}};
    run.world.machine.network_messages = {{kNetworkCode, text}};
    String told = TrimAtNul((text + u"\r\n").substr(0, kErrorTextLength));
    if (told.size() >= 2 && told.compare(told.size() - 2, 2, u"\r\n") == 0)
        told.erase(told.size() - 2);
    for (const std::uint32_t code : {kSystemCode, kNetworkCode}) {
        Require(GetSystemErrorText(code) == told);
        Require(FormatApiError(code, u"Call") == u"message 15: " + DecimalText(code) + u", " + told);
    }
    Require(run.world.boxes.All().empty());
}

} // namespace

} // namespace kestrelmoor::fuzz

/// The bytes are a message and its arguments; the message is a text of the system as well.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kestrelmoor;
    StringList arguments = fuzz::TextsFor({data, size});
    const String text = arguments.front();
    arguments.erase(arguments.begin());
    const String filled = fuzz::Filled(text, arguments);
    fuzz::Require(FillPlaceholders(text, arguments) == filled);
    fuzz::CheckMessage(text, arguments, filled);
    fuzz::CheckSystemText(text);
    return 0;
}

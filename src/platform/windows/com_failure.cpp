#include "platform/windows/com_failure.h"

#include "platform/automation.h"
#include "platform/system_messages.h"
#include "platform/windows/bound_library.h"
#include "platform/windows/owned_interface.h"
#include "runtime/errors.h"

#include <utility>

#include <windows.h>

#include <oleauto.h>

namespace kestrelmoor::platform {
namespace {

constexpr std::size_t kLongestWords = 256;

/// The system knows failed results, but not the small numbers that an exception may have.
String SystemWords(std::int32_t result) {
    String words;
    if (result < 0)
        FormatMessageW(kFormatFromSystem | kFormatIgnoreInserts, 0, static_cast<std::uint32_t>(result),
                       kLongestWords, words);
    words = TrimAtNul(words);
    while (!words.empty() && words.back() <= u' ')
        words.pop_back();
    return words;
}

String WordsLeft() {
    static BoundEntry<decltype(::GetErrorInfo)> entry{OleAut32(), "GetErrorInfo"};
    OwnedInterface<IErrorInfo> left;
    BSTR words = nullptr;
    if (entry.Get()(0, left.Receive()) != S_OK || FAILED(left.Get()->GetDescription(&words)))
        return {};
    return TakeText(reinterpret_cast<char16_t*>(words));
}

} // namespace

void RaiseComFailure(std::int32_t result, String source, String description) {
    const std::int32_t number = ErrorNumberOfComResult(result);
    if (description.empty())
        description = SystemWords(result);
    if (description.empty())
        description = ErrorDescription(number);
    throw RuntimeError(number, std::move(source), std::move(description));
}

void ForgetFailureWords() {
    static BoundEntry<decltype(::SetErrorInfo)> entry{OleAut32(), "SetErrorInfo"};
    entry.Get()(0, nullptr);
}

void RaiseIfServiceFailed(std::int32_t result) {
    if (result < 0)
        RaiseComFailure(result, u"Kestrelmoor", WordsLeft());
}

} // namespace kestrelmoor::platform

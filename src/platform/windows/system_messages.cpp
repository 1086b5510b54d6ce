#include "platform/system_messages.h"

#include "platform/windows/observed_call.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

static_assert(kFormatFromSystem == FORMAT_MESSAGE_FROM_SYSTEM);
static_assert(kFormatIgnoreInserts == FORMAT_MESSAGE_IGNORE_INSERTS);
static_assert(kFormatFromModule == FORMAT_MESSAGE_FROM_HMODULE);

/// The most that the call takes: 64 KB.
constexpr std::size_t kLongestMessage = 0x7FFF;

CallResult<std::uint32_t> Format(std::uint32_t nFlags, ModuleHandle hModule, std::uint32_t nCode,
                                 String& buffer) {
    const auto* const module = reinterpret_cast<const void*>(hModule);
    const auto size = static_cast<DWORD>(buffer.size());
    return Observed([&]() -> std::uint32_t {
        return ::FormatMessageW(nFlags, module, nCode, 0, WideBuffer(buffer), size, nullptr);
    });
}

} // namespace

CallResult<std::uint32_t> FormatMessageW(std::uint32_t nFlags, ModuleHandle hModule, std::uint32_t nCode,
                                         std::size_t nCharacters, String& sBuffer) {
    sBuffer.assign(nCharacters, u'\0');
    const CallResult<std::uint32_t> result = Format(nFlags, hModule, nCode, sBuffer);
    if (result.value == 0 && result.last_error == ERROR_INSUFFICIENT_BUFFER) {
        // What is left of a text that doesn't fit differs between systems; here it is always its beginning.
        sBuffer.assign(kLongestMessage, u'\0');
        Format(nFlags, hModule, nCode, sBuffer);
        sBuffer.resize(nCharacters);
    }
    return result;
}

} // namespace kestrelmoor::platform

#include "platform/system_messages.h"

#include "platform/practice/world/world.h"

#include <algorithm>

namespace kestrelmoor::platform {

namespace {

using practice::TheWorld;

constexpr std::uint32_t kInsufficientBuffer = 122;
constexpr std::uint32_t kMessageNotFound = 317;

using Table = std::map<std::uint32_t, String>;

const String* In(const Table& table, std::uint32_t code) {
    const auto found = table.find(code);
    return found == table.end() ? nullptr : &found->second;
}

/// The module comes first, then the system's own table.
const String* Words(std::uint32_t flags, ModuleHandle module, std::uint32_t code) {
    const practice::Machine& machine = TheWorld().machine;
    const String* words = nullptr;
    if ((flags & kFormatFromModule) != 0 && module != 0)
        words = In(machine.network_messages, code);
    if (!words && (flags & kFormatFromSystem) != 0)
        words = In(machine.system_messages, code);
    return words;
}

} // namespace

CallResult<std::uint32_t> FormatMessageW(std::uint32_t nFlags, ModuleHandle hModule, std::uint32_t nCode,
                                         std::size_t nCharacters, String& sBuffer) {
    sBuffer.assign(nCharacters, 0);
    if (const auto fault = TheWorld().calls.Enter("FormatMessageW", {nFlags, hModule, nCode}))
        return {0, *fault};
    const String* const words = Words(nFlags, hModule, nCode);
    if (!words)
        return {0, kMessageNotFound};
    const String text = *words + u"\r\n";
    std::copy_n(text.begin(), std::min(text.size(), nCharacters), sBuffer.begin());
    // A text that does not fit fails and leaves its head in the buffer.
    if (text.size() >= nCharacters)
        return {0, kInsufficientBuffer};
    return {static_cast<std::uint32_t>(text.size()), 0};
}

} // namespace kestrelmoor::platform

#include "shell/command_line.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

using kestrelmoor::String;

namespace {

void Require(bool holds) {
    if (!holds)
        __builtin_trap();
}

} // namespace

/// The bytes are the argument text in UTF-16.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    String line(size / sizeof(char16_t), u'\0');
    if (!line.empty())
        std::memcpy(line.data(), data, line.size() * sizeof(char16_t));

    std::size_t held = 0;
    for (const String& token : kestrelmoor::SplitCommandLine(line)) {
        Require(line.find(token) != String::npos);
        Require(kestrelmoor::StripQuotes(token).size() <= token.size());
        held += token.size();
    }
    Require(held <= line.size());
    return 0;
}

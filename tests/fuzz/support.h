#pragma once

#include "platform/practice/world/world.h"
#include "runtime/text.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kestrelmoor::fuzz {

/// What the fuzzers share. A fuzzer checks each input for what has to hold whatever it is, and leaves nothing
/// behind for the next one.

using InputBytes = std::span<const std::uint8_t>;

/// Ends the process as a finding, with the place, when something that has to hold does not.
void Require(bool holds, const char* file = __builtin_FILE(), int line = __builtin_LINE());

/// The input from its front on; what lies beyond its end is 0, or nothing.
class Input {
  public:
    explicit Input(InputBytes bytes) : mRest(bytes) {}

    bool AtEnd() const { return mRest.empty(); }
    std::uint8_t Byte();
    std::uint16_t Number16();
    std::uint32_t Number32();
    InputBytes Take(std::size_t size); ///< fewer where there are no more
    InputBytes Rest() { return Take(mRest.size()); }

  private:
    InputBytes mRest;
};

/// A text for bytes: below 128 each byte is a character, from there on the two bytes behind it are a UTF-16
/// unit, whatever it is. So there are bytes for every text, and what is seldom strange is easily found.
String TextFor(InputBytes bytes);

/// The same for several texts with "|" between them.
StringList TextsFor(InputBytes bytes);

/// Text in the bytes that it has in memory; a last byte without a partner is left out.
String Utf16(InputBytes bytes);
std::vector<std::uint8_t> Utf16Bytes(StringView text);

/// A run of the program: its state as at its start, an empty registry, and no call or box so far. What else
/// a fuzzer reads of the world it puts there itself, each time. At the end everything that the platform
/// handed out has to be back.
class Run {
  public:
    Run();
    ~Run();
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    practice::World& world;
};

} // namespace kestrelmoor::fuzz

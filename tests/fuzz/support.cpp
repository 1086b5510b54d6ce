#include "tests/fuzz/support.h"

#include "tests/native/support/fresh_start.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace kestrelmoor::fuzz {

namespace {

constexpr std::uint8_t kUnitFollows = 128;

} // namespace

void Require(bool holds, const char* file, int line) {
    if (holds)
        return;
    std::fprintf(stderr, "%s:%d: what has to hold does not\n", file, line);
    std::abort();
}

std::uint8_t Input::Byte() {
    const InputBytes one = Take(1);
    return one.empty() ? std::uint8_t{0} : one[0];
}

std::uint16_t Input::Number16() {
    const std::uint8_t low = Byte();
    return static_cast<std::uint16_t>(low | Byte() << 8);
}

std::uint32_t Input::Number32() {
    const std::uint32_t low = Number16();
    return low | static_cast<std::uint32_t>(Number16()) << 16;
}

InputBytes Input::Take(std::size_t size) {
    const InputBytes taken = mRest.first(std::min(size, mRest.size()));
    mRest = mRest.subspan(taken.size());
    return taken;
}

String TextFor(InputBytes bytes) {
    String text;
    text.reserve(bytes.size());
    Input input(bytes);
    while (!input.AtEnd()) {
        const std::uint8_t byte = input.Byte();
        text.push_back(byte < kUnitFollows ? byte : static_cast<char16_t>(input.Number16()));
    }
    return text;
}

StringList TextsFor(InputBytes bytes) {
    return Split(TextFor(bytes), u'|');
}

String Utf16(InputBytes bytes) {
    String text(bytes.size() / sizeof(char16_t), u'\0');
    std::copy_n(bytes.begin(), text.size() * sizeof(char16_t), reinterpret_cast<std::uint8_t*>(text.data()));
    return text;
}

std::vector<std::uint8_t> Utf16Bytes(StringView text) {
    const auto* const first = reinterpret_cast<const std::uint8_t*>(text.data());
    return {first, first + text.size() * sizeof(char16_t)};
}

Run::Run() : world(practice::TheWorld()) {
    tests::ResetProgramState();
    world.registry = {};
    world.calls = {};
    world.boxes = {};
}

Run::~Run() {
    tests::ResetProgramState();
    Require(world.OutstandingHandles() == 0);
    Require(world.handles.WrongReleases() == 0);
}

} // namespace kestrelmoor::fuzz

#include "tests/mutants/tiny/tiny.h"

#include <array>
#include <cstring>
#include <optional>
#include <string>

#define TWICE(x) ((x) + (x) + 0)

namespace tiny {

namespace {

constexpr int kLimit = 10;
static_assert(kLimit == 10);

constexpr bool IsRound(int number) {
    return number % 10 == 0;
}

std::optional<int> Half(int number) {
    if (number % 2 == 0)
        return number / 2;
    return std::nullopt;
}

} // namespace

int Counter::Add(int amount) {
    if (amount < 0 || mClosed)
        return -1;
    mTotal += amount;
    mCalls++;
    return mTotal;
}

void Counter::Close() {
    mClosed = true;
}

Mood MoodOf(int number) {
    switch (number) {
    case 3:
        return Mood::Angry;
    default:
        return number > kLimit ? Mood::Angry : Mood::Calm;
    }
}

int Steps(int number) {
    int steps = 0;
    while (number > 0) {
        number -= 1;
        ++steps;
    }
    return steps;
}

int Fixed() {
    std::array<int, 3> numbers{};
    return static_cast<int>(numbers.size()) + TWICE(4);
}

bool Read(int from, int& number) {
    if (from >= 0)
        number = from;
    return from >= 0;
}

int FilledIn(int from) {
    int asked = 0;
    if (!Read(from, asked))
        return -1;
    int copied = 0;
    std::memcpy(&copied, &asked, sizeof copied);
    int discarded = 0;
    Read(from, discarded);
    std::u16string buffer(3, u'\0');
    return asked + copied + static_cast<int>(buffer.size());
}

int PerhapsFilledIn(int from) {
    int unasked = 0;
    Read(from, unasked);
    int skipped = 0;
    if (from > 10 && !Read(from, skipped))
        return -1;
    int kept = 0;
    if (Read(from, kept))
        return kept;
    int gone_on = 0;
    if (!Read(from, gone_on))
        skipped = -1;
    int passed = 0;
    MoodOf(passed);
    std::u16string text(3, u'x');
    return unasked + skipped + kept + gone_on + static_cast<int>(text.size());
}

bool HasHalf(int number) {
    if (const auto half = Half(number))
        return true;
    return !IsRound(kLimit);
}

} // namespace tiny

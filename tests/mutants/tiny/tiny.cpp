#include "tests/mutants/tiny/tiny.h"

#include <array>
#include <optional>

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

bool HasHalf(int number) {
    if (const auto half = Half(number))
        return true;
    return !IsRound(kLimit);
}

} // namespace tiny

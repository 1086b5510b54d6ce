#pragma once

#include "runtime/dates.h"
#include "runtime/text.h"

#include <cstdint>
#include <optional>

namespace kestrelmoor::practice {

/// A point in the world's time: milliseconds since 30 December 1899 00:00.
using Moment = std::int64_t;

inline constexpr Moment kSecond = 1000;
inline constexpr Moment kDay = 86400 * kSecond;

/// The world's own time. It stands still but for `Advance`, which each pump of events calls.
class Clock {
  public:
    Moment Now() const { return mNow; }
    void Set(Moment now) { mNow = now; }
    void Advance(Moment milliseconds) { mNow += milliseconds; }

  private:
    Moment mNow = 46083 * kDay;
};

Date DateOfMoment(Moment moment);

/// "2026-03-02T09:00:00", with ".250" behind it where there are milliseconds.
String TextOfMoment(Moment moment);

/// The moment of such a text, from the year 1900 on; no value for any other text.
std::optional<Moment> MomentOfText(StringView text);

} // namespace kestrelmoor::practice

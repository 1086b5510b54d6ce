#include "platform/practice/world/clock.h"

#include <array>
#include <cstdio>

namespace kestrelmoor::practice {

Date DateOfMoment(Moment moment) {
    return static_cast<double>(moment) / static_cast<double>(kDay);
}

String TextOfMoment(Moment moment) {
    const Moment days = moment / kDay;
    const DateParts day = PartsOf(static_cast<double>(days));
    const auto time = static_cast<int>(moment % kDay);
    const int seconds = time / 1000;
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d", day.year, day.month, day.day,
                  seconds / 3600, seconds / 60 % 60, seconds % 60);
    String result = FromUtf8(text.data());
    if (time % 1000 != 0) {
        std::snprintf(text.data(), text.size(), ".%03d", time % 1000);
        result += FromUtf8(text.data());
    }
    return result;
}

std::optional<Moment> MomentOfText(StringView text) {
    DateParts parts;
    int milliseconds = 0;
    const std::string bytes = ToUtf8(text);
    // NOLINTNEXTLINE(cert-err34-c): no number can overflow, each has a width
    if (std::sscanf(bytes.c_str(), "%4d-%2d-%2dT%2d:%2d:%2d.%3d", &parts.year, &parts.month, &parts.day,
                    &parts.hour, &parts.minute, &parts.second, &milliseconds) < 6 ||
        parts.year < 1900 || parts.month < 1 || parts.month > 12 || parts.day < 1 || parts.day > 31)
        return std::nullopt;
    const DateParts day{parts.year, parts.month, parts.day};
    const Moment seconds = (parts.hour * 60 + parts.minute) * 60 + parts.second;
    const Moment moment = static_cast<Moment>(DateOf(day)) * kDay + seconds * kSecond + milliseconds;
    // A text that is no moment of the calendar does not come back as it was.
    return TextOfMoment(moment) == text ? std::optional(moment) : std::nullopt;
}

} // namespace kestrelmoor::practice

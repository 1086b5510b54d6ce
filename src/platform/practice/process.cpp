#include "platform/process.h"

#include "platform/practice/world/world.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace kestrelmoor::platform {

namespace {

using practice::TheWorld;

constexpr std::uint32_t kBoxStop = 16;

} // namespace

OsVersion GetVersionExA() {
    if (TheWorld().calls.Enter("GetVersionExA"))
        return {};
    const practice::SystemVersion& version = TheWorld().machine.version;
    return {version.platform_id, version.major, version.minor, version.build};
}

void CreateMutexA(const char* sName) {
    if (!TheWorld().calls.Enter("CreateMutexA", {sName}))
        TheWorld().mutexes.emplace_back(sName);
}

String CommandLineArguments() {
    return TheWorld().machine.command_line;
}

Date Now() {
    return practice::DateOfMoment(TheWorld().clock.Now());
}

double Timer() {
    return static_cast<double>(TheWorld().clock.Now() % practice::kDay) / practice::kSecond;
}

String DateText(Date date) {
    const DateParts parts = PartsOf(date);
    const int hour = parts.hour % 12 == 0 ? 12 : parts.hour % 12;
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%d/%d/%d %d:%02d:%02d %s", parts.month, parts.day, parts.year,
                  hour, parts.minute, parts.second, parts.hour < 12 ? "AM" : "PM");
    return FromUtf8(text.data());
}

void ExitWindowsEx(std::uint32_t nFlags, std::uint32_t nReason) {
    if (!TheWorld().calls.Enter("ExitWindowsEx", {nFlags, nReason}))
        TheWorld().session_ends.push_back(nFlags);
}

void EndByError(const RuntimeError& error) noexcept {
    practice::Box box;
    box.text = u"Run-time error " + FromUtf8(std::to_string(error.number())) + u":\n\n" + error.description();
    box.style = kBoxStop;
    box.title = kProgramTitle;
    if (TheWorld().ended_by_error)
        TheWorld().ended_by_error(box);
    std::fprintf(stderr, "%s\n", ToUtf8(box.text).c_str());
    std::fflush(nullptr);
    std::_Exit(1);
}

} // namespace kestrelmoor::platform

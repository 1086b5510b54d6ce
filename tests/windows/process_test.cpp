#include "platform/process.h"

#include "platform/input_hooks.h"
#include "platform/user_language.h"
#include "platform/windows/command_line.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

TEST(CommandLine, theNameEndsAtTheFirstBlankOutsideOfQuotes) {
    EXPECT_EQ(ArgumentsBehindName(u"Moorlink.exe /f"), u"/f");
    EXPECT_EQ(ArgumentsBehindName(u"\"C:\\Program Files\\Moorlink.exe\" /d \"a b\""), u"/d \"a b\"");
    EXPECT_EQ(ArgumentsBehindName(u"C:\\\"Program Files\"\\Moorlink.exe \t /l 1031 "), u"/l 1031 ");
}

TEST(CommandLine, aNameAloneHasNoArguments) {
    EXPECT_EQ(ArgumentsBehindName(u""), u"");
    EXPECT_EQ(ArgumentsBehindName(u"Moorlink.exe"), u"");
    EXPECT_EQ(ArgumentsBehindName(u"\"Moorlink.exe\"  \t"), u"");
    EXPECT_EQ(ArgumentsBehindName(u"\"Moorlink.exe /f"), u"");
}

TEST(CommandLine, isThatOfThisProcess) {
    const String arguments = CommandLineArguments();
    if (__argc < 2) {
        EXPECT_EQ(arguments, u"");
        return;
    }
    EXPECT_EQ(ToUtf8(arguments).rfind(__argv[1], 0), 0U);
}

TEST(Process, tellsTheSystemsVersion) {
    const OsVersion version = GetVersionExA();
    EXPECT_EQ(version.platform_id, 2U);
    EXPECT_GE(version.major_version, 4U);
    EXPECT_NE(version.build_number, 0U);
}

TEST(Process, namesAMutexThatOthersFind) {
    const char* const name = "{2F0B7C1E-6A51-4D3B-9C44-5E2D7F10A9B8}";
    CreateMutexA(name);
    CreateMutexA(name);
    const HANDLE mutex = ::OpenMutexA(SYNCHRONIZE, FALSE, name);
    ASSERT_NE(mutex, nullptr);
    EXPECT_EQ(::WaitForSingleObject(mutex, 0), WAIT_OBJECT_0) << "nobody owns it";
    ::ReleaseMutex(mutex);
    ::CloseHandle(mutex);
}

TEST(Process, dateAsTextBearsDayAndTime) {
    const String text = DateText(DateOf({2003, 11, 22, 4, 5, 6}));
    for (const StringView part : {u"22", u"11", u"03", u"05", u"06"})
        EXPECT_NE(text.find(part), String::npos) << ToUtf8(text);
}

TEST(Process, nowIsTheLocalTimeInWholeSeconds) {
    SYSTEMTIME before;
    SYSTEMTIME after;
    DateParts now;
    do {
        ::GetLocalTime(&before);
        now = PartsOf(Now());
        ::GetLocalTime(&after);
    } while (before.wSecond != after.wSecond);
    EXPECT_EQ(now.year, before.wYear);
    EXPECT_EQ(now.month, before.wMonth);
    EXPECT_EQ(now.day, before.wDay);
    EXPECT_EQ(now.hour, before.wHour);
    EXPECT_EQ(now.minute, before.wMinute);
    EXPECT_EQ(now.second, before.wSecond);
}

TEST(Process, theTimerCountsSecondsOfTheDayWithTheirFraction) {
    const double start = Timer();
    ::Sleep(150);
    const double passed = Timer() - start;
    EXPECT_LT(start, 86400.0);
    if (passed >= 0) {
        EXPECT_GE(passed, 0.14);
        EXPECT_LT(passed, 5.0);
    }
}

TEST(UserLanguage, agreesWithTheSystem) {
    EXPECT_EQ(GetUserDefaultUILanguage(), ::GetUserDefaultUILanguage());
    EXPECT_EQ(GetThreadLocale(), ::GetThreadLocale());
}

TEST(InputHooks, cuesAreShownAsTheUserHasChosen) {
    ::SystemParametersInfoW(SPI_SETKEYBOARDCUES, 0, reinterpret_cast<void*>(TRUE), 0);
    EXPECT_TRUE(GetKeyboardCues());
    ::SystemParametersInfoW(SPI_SETKEYBOARDCUES, 0, nullptr, 0);
    EXPECT_FALSE(GetKeyboardCues());
}

} // namespace
} // namespace kestrelmoor::platform

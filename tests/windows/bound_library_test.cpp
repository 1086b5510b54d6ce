#include "platform/windows/bound_library.h"

#include "runtime/errors.h"

#include <gtest/gtest.h>

#include <cwchar>

namespace kestrelmoor::platform {
namespace {

template <class Action>
std::int32_t ErrorOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(BoundLibrary, aMissingLibraryRaises53) {
    BoundLibrary library{L"kestrelmoor_has_no_such.dll"};
    EXPECT_EQ(ErrorOf([&] { library.Entry("Anything"); }), 53);
    EXPECT_EQ(library.FindEntry("Anything"), nullptr);
}

TEST(BoundLibrary, aMissingEntryRaises453) {
    BoundLibrary library{L"version.dll"};
    EXPECT_EQ(ErrorOf([&] { library.Entry("KestrelmoorHasNoSuchEntry"); }), 453);
    EXPECT_EQ(library.FindEntry("KestrelmoorHasNoSuchEntry"), nullptr);
}

TEST(BoundLibrary, comesFromTheSystemFolderAndOnlyWhenAskedFor) {
    ASSERT_EQ(::GetModuleHandleW(L"winmm.dll"), nullptr);
    BoundLibrary library{L"winmm.dll"};
    ASSERT_EQ(::GetModuleHandleW(L"winmm.dll"), nullptr);
    ASSERT_NE(library.Entry("timeGetTime"), nullptr);

    wchar_t path[MAX_PATH] = {};
    wchar_t folder[MAX_PATH] = {};
    ::GetModuleFileNameW(::GetModuleHandleW(L"winmm.dll"), path, MAX_PATH);
    const UINT length = ::GetSystemDirectoryW(folder, MAX_PATH);
    EXPECT_EQ(_wcsnicmp(path, folder, length), 0);
}

TEST(BoundLibrary, aFileBesideTheProgramIsNotTaken) {
    wchar_t path[MAX_PATH] = {};
    const DWORD length = ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    ASSERT_LT(length, MAX_PATH - 20U);
    std::wcscpy(std::wcsrchr(path, L'\\') + 1, L"planted.dll");
    wchar_t real[MAX_PATH] = {};
    ::GetSystemDirectoryW(real, MAX_PATH);
    std::wcscat(real, L"\\version.dll");
    if (!::CopyFileW(real, path, FALSE))
        GTEST_SKIP() << "the program's folder can't be written to";

    BoundLibrary library{L"planted.dll"};
    EXPECT_EQ(library.FindEntry("VerQueryValueW"), nullptr);
    EXPECT_EQ(::GetModuleHandleW(L"planted.dll"), nullptr);
    ::DeleteFileW(path);
}

TEST(BoundLibrary, lookingForWhatIsAbsentLeavesTheLastErrorAlone) {
    BoundLibrary library{L"kestrelmoor_has_no_such.dll"};
    ::SetLastError(1300);
    library.FindEntry("Anything");
    EXPECT_EQ(::GetLastError(), 1300U);
}

TEST(BoundEntry, callsWhatItFound) {
    BoundLibrary library{L"kernel32.dll"};
    BoundEntry<DWORD WINAPI()> entry{library, "GetCurrentProcessId"};
    EXPECT_EQ(entry.Get()(), ::GetCurrentProcessId());
    EXPECT_EQ(entry.Find(), entry.Get());
}

} // namespace
} // namespace kestrelmoor::platform

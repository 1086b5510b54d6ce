#include "platform/modules.h"

#include "platform/files.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

TEST(LoadLibraryExW, aMissingFileFailsWithItsReason) {
    const auto result = LoadLibraryExW(ProgramFolder() + u"\\no_such.loc", 0);
    EXPECT_EQ(result.value, 0U);
    EXPECT_EQ(result.last_error, 126U);
}

TEST(LoadLibraryExW, aFileThatIsNoLibraryFailsWithItsReason) {
    wchar_t folder[MAX_PATH] = {};
    ASSERT_NE(::GetTempPathW(MAX_PATH, folder), 0U);
    const String path = String(reinterpret_cast<const char16_t*>(folder)) + u"no_library.loc";
    Append(OpenForAppending(path), "this is a text and not a library, whatever its name says");
    const auto result = LoadLibraryExW(path, 0);
    EXPECT_EQ(result.value, 0U);
    EXPECT_EQ(result.last_error, 193U);
    ::DeleteFileW(reinterpret_cast<const wchar_t*>(path.c_str()));
}

TEST(LoadLibraryExW, aLoadedLibraryAnswersByNameAndGoesWithItsOwner) {
    ASSERT_EQ(::GetModuleHandleW(L"lz32.dll"), nullptr);
    {
        const auto loaded = LoadLibraryExW(u"lz32.dll", 0);
        const OwnedModule module(loaded.value);
        ASSERT_TRUE(module);
        EXPECT_EQ(loaded.last_error, 0U);
        EXPECT_NE(GetProcAddress(module.Get(), "LZOpenFileW").value, nullptr);
        const auto missing = GetProcAddress(module.Get(), "DllGetClassObject");
        EXPECT_EQ(missing.value, nullptr);
        EXPECT_EQ(missing.last_error, 127U);
    }
    EXPECT_EQ(::GetModuleHandleW(L"lz32.dll"), nullptr);
}

} // namespace
} // namespace kestrelmoor::platform

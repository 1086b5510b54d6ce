#include "platform/system_messages.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

constexpr std::uint32_t kFlags = kFormatFromSystem | kFormatIgnoreInserts;

TEST(FormatMessageW, fillsABufferThatStaysWhole) {
    String buffer;
    const auto result = FormatMessageW(kFlags, 0, 5, 256, buffer);
    ASSERT_EQ(buffer.size(), 256U);
    ASSERT_GT(result.value, 2U);
    EXPECT_EQ(result.last_error, 0U);
    EXPECT_EQ(buffer.find(u'\0'), result.value);
    EXPECT_EQ(buffer.substr(result.value - 2, 2), u"\r\n");
}

TEST(FormatMessageW, aCodeWithoutWordsGivesNothingAndTheReason) {
    String buffer;
    const auto result = FormatMessageW(kFlags, 0, 0x2FFFFFFF, 256, buffer);
    EXPECT_EQ(result.value, 0U);
    EXPECT_NE(result.last_error, 0U);
    EXPECT_EQ(buffer, String(256, u'\0'));
}

TEST(FormatMessageW, aTextLongerThanTheBufferIsCutToIt) {
    String whole;
    FormatMessageW(kFlags, 0, 5, 256, whole);
    String buffer;
    const auto result = FormatMessageW(kFlags, 0, 5, 8, buffer);
    EXPECT_EQ(result.value, 0U);
    EXPECT_EQ(result.last_error, 122U);
    EXPECT_EQ(buffer, whole.substr(0, 8));
}

TEST(FormatMessageW, takesTheWordsOfAModule) {
    const auto module = reinterpret_cast<ModuleHandle>(::GetModuleHandleW(L"kernelbase.dll"));
    String of_module;
    String of_system;
    const auto result = FormatMessageW(kFormatFromModule | kFormatIgnoreInserts, module, 5, 256, of_module);
    FormatMessageW(kFlags, 0, 5, 256, of_system);
    EXPECT_NE(result.value, 0U);
    EXPECT_EQ(of_module, of_system);
}

} // namespace
} // namespace kestrelmoor::platform

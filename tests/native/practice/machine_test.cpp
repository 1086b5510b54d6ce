#include "platform/form_peer.h"
#include "platform/message_box.h"
#include "platform/modules.h"
#include "platform/practice/world/world.h"
#include "platform/process.h"
#include "platform/security.h"
#include "platform/shell_folders.h"
#include "platform/system_messages.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

using platform::kFormatFromModule;
using platform::kFormatFromSystem;

TEST(PracticeMessages, SystemWordsEndInALineBreakAndTheRestOfTheBufferIsEmpty) {
    practice::ScopedWorld world;
    world.machine.system_messages[5] = u"Denied.";
    String buffer;
    const auto length = platform::FormatMessageW(kFormatFromSystem, 0, 5, 20, buffer);
    EXPECT_EQ(length.value, 9U);
    EXPECT_EQ(buffer, String(u"Denied.\r\n").append(11, 0));
}

TEST(PracticeMessages, NetworkWordsComeFromTheirModuleAlone) {
    practice::ScopedWorld world;
    String buffer;
    const platform::OwnedModule module(
        platform::LoadLibraryExW(u"netmsg.dll", platform::kLoadAsDataFile).value);
    ASSERT_TRUE(module);
    EXPECT_GT(platform::FormatMessageW(kFormatFromModule | kFormatFromSystem, module.Get(), 2245, 256, buffer)
                  .value,
              0U);
    const auto without = platform::FormatMessageW(kFormatFromSystem, 0, 2245, 256, buffer);
    EXPECT_EQ(without.value, 0U);
    EXPECT_EQ(without.last_error, 317U);
    EXPECT_EQ(buffer, String(256, 0));
}

TEST(PracticeMessages, TextThatDoesNotFitFailsAndLeavesItsHead) {
    practice::ScopedWorld world;
    world.machine.system_messages[5] = u"0123456789";
    String buffer;
    const auto length = platform::FormatMessageW(kFormatFromSystem, 0, 5, 8, buffer);
    EXPECT_EQ(length.value, 0U);
    EXPECT_EQ(length.last_error, 122U);
    EXPECT_EQ(buffer, u"01234567");
}

TEST(PracticeFolders, FolderHasItsPathAndOneWithoutAPathHasNone) {
    practice::ScopedWorld world;
    world.machine.special_folders[17] = u"";
    platform::OwnedItemList list;
    String path;
    EXPECT_EQ(platform::SHGetSpecialFolderLocation(5, list), 0);
    EXPECT_TRUE(platform::SHGetPathFromIDListW(list, path));
    EXPECT_EQ(TrimAtNul(path), u"C:\\Users\\user\\Documents");
    EXPECT_EQ(path.size(), 260U);
    EXPECT_EQ(platform::SHGetSpecialFolderLocation(17, list), 0);
    EXPECT_FALSE(platform::SHGetPathFromIDListW(list, path));
    EXPECT_LT(platform::SHGetSpecialFolderLocation(99, list), 0);
}

TEST(PracticeSecurity, UsersIdentifierIsThatOfTheWorld) {
    practice::ScopedWorld world;
    world.network.user.sid = u"S-1-5-21-7-8-9-1104";
    platform::OwnedToken token;
    ASSERT_TRUE(platform::OpenProcessToken(platform::GetCurrentProcess(), 0x20008, token).value);
    std::vector<std::uint8_t> buffer;
    std::uint32_t needed = 0;
    const auto size = platform::GetTokenInformation(token, 1, buffer, needed);
    EXPECT_FALSE(size.value);
    EXPECT_EQ(size.last_error, 122U);
    buffer.resize(needed);
    ASSERT_TRUE(platform::GetTokenInformation(token, 1, buffer, needed).value);
    const platform::SidAddress sid = platform::UserSidInBuffer(buffer);
    EXPECT_EQ(*platform::GetSidSubAuthorityCount(sid).value, 5);
    EXPECT_EQ(*platform::GetSidSubAuthority(sid, 4).value, 1104U);
    EXPECT_EQ(static_cast<const std::uint8_t*>(platform::GetSidIdentifierAuthority(sid).value)[5], 5);
}

TEST(PracticeSecurity, PrimaryDomainIsThereOnlyOnAJoinedComputer) {
    practice::ScopedWorld world;
    platform::OwnedPolicy policy;
    platform::OwnedPolicyRecord record;
    ASSERT_EQ(platform::LsaOpenPolicy(1, policy), 0);
    ASSERT_EQ(platform::LsaQueryInformationPolicy(policy, 3, record), 0);
    EXPECT_EQ(platform::PrimaryDomainSid(record), nullptr);

    world.network.joined = true;
    world.network.Local().group = u"PRACTICE";
    ASSERT_EQ(platform::LsaQueryInformationPolicy(policy, 3, record), 0);
    const std::uint8_t authority[] = {0, 0, 0, 0, 0, 5};
    platform::OwnedSid built;
    ASSERT_TRUE(
        platform::AllocateAndInitializeSid(authority, 4, {21, 4004, 5005, 6006, 0, 0, 0, 0}, built).value);
    EXPECT_TRUE(platform::EqualSid(platform::PrimaryDomainSid(record), built.Get()));
    ASSERT_TRUE(
        platform::AllocateAndInitializeSid(authority, 4, {21, 4004, 5005, 6007, 0, 0, 0, 0}, built).value);
    EXPECT_FALSE(platform::EqualSid(platform::PrimaryDomainSid(record), built.Get()));
}

TEST(PracticeSecurity, PrivilegeThatIsNotHeldIsASuccessWithALastError) {
    practice::ScopedWorld world;
    world.machine.privileges_assigned = false;
    platform::OwnedToken token;
    platform::OpenProcessToken(platform::GetCurrentProcess(), 40, token);
    platform::Luid luid = 0;
    EXPECT_TRUE(platform::LookupPrivilegeValueW(u"SeChangeNotifyPrivilege", luid).value);
    EXPECT_FALSE(platform::LookupPrivilegeValueW(u"SeNothing", luid).value);
    const auto adjusted = platform::AdjustTokenPrivileges(token, luid, 2);
    EXPECT_TRUE(adjusted.value);
    EXPECT_EQ(adjusted.last_error, 1300U);
}

TEST(PracticeBoxes, AreRecordedAndAnsweredInTurnAndElseByTheirDefaultButton) {
    practice::ScopedWorld world;
    constexpr std::uint32_t kYesNo = 4;
    constexpr std::uint32_t kSecondIsDefault = 0x100;
    world.boxes.Answer(platform::kBoxNo);
    EXPECT_EQ(platform::MessageBoxW(u"Sure?", kYesNo, u"Title"), platform::kBoxNo);
    EXPECT_EQ(platform::MessageBoxW(u"Sure?", kYesNo, u"Title"), platform::kBoxYes);
    EXPECT_EQ(platform::MessageBoxW(u"Sure?", kYesNo | kSecondIsDefault, u"Title"), platform::kBoxNo);
    EXPECT_EQ(platform::MessageBoxW(u"Done.", platform::kBoxInformation, u"Title"), platform::kBoxOk);
    ASSERT_EQ(world.boxes.All().size(), 4U);
    EXPECT_EQ(world.boxes.All()[3].text, u"Done.");
    EXPECT_EQ(world.boxes.All()[0].answer, platform::kBoxNo);
}

TEST(PracticeDesktop, EachPumpMovesTheClockAndRunsWhatIsDue) {
    practice::ScopedWorld world;
    Desktop& desktop = platform::TheDesktop();
    const practice::Moment start = world.clock.Now();
    std::string order;
    world.actions.Queue([&] { order += "later"; }, 2);
    world.actions.Queue([&] { order += "first "; });
    desktop.PumpEvents();
    EXPECT_EQ(order, "first ");
    desktop.PumpEvents();
    EXPECT_EQ(order, "first later");
    EXPECT_EQ(world.clock.Now() - start, 2 * world.pump_milliseconds);
}

TEST(PracticeDesktop, WaitingTakesTheNextActionAndEndsWhenThereIsNone) {
    practice::ScopedWorld world;
    int runs = 0;
    world.actions.Queue([&] { ++runs; }, 5);
    EXPECT_TRUE(platform::TheDesktop().WaitForEvent());
    EXPECT_EQ(runs, 1);
    EXPECT_FALSE(platform::TheDesktop().WaitForEvent());
}

TEST(PracticeProcess, DateIsWordedAsInAmericanEnglish) {
    EXPECT_EQ(platform::DateText(DateOf({2026, 3, 2, 0, 5, 9})), u"3/2/2026 12:05:09 AM");
    EXPECT_EQ(platform::DateText(DateOf({2026, 11, 12, 13, 0, 0})), u"11/12/2026 1:00:00 PM");
}

TEST(PracticeProcess, TimeIsTheWorldsClock) {
    practice::ScopedWorld world;
    world.clock.Set(practice::MomentOfText(u"2026-03-02T09:00:00.250").value());
    EXPECT_DOUBLE_EQ(platform::Timer(), 9 * 3600 + 0.25);
    EXPECT_EQ(PartsOf(platform::Now()).hour, 9);
}

TEST(PracticeProcessDeathTest, EndByAnErrorShowsItsTextAndEndsTheProcess) {
    EXPECT_EXIT(platform::EndByError(RuntimeError(9, u"Kestrelmoor", u"Subscript out of range.")),
                testing::ExitedWithCode(1), "Run-time error 9:\n\nSubscript out of range.");
}

} // namespace
} // namespace kestrelmoor

#include "platform/network_management.h"
#include "platform/practice/world/world.h"
#include "platform/process.h"
#include "platform/registry.h"
#include "platform/security.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

using Names = std::vector<std::string>;

TEST(PracticeCalls, StandInTheRecordInTheirOrderWithTheirArguments) {
    practice::ScopedWorld world;
    String name;
    platform::NetGetDCName(u"PRACTICE", name);
    platform::ExitWindowsEx(4, 0);
    EXPECT_EQ(world.calls.Names(), (Names{"NetGetDCName", "ExitWindowsEx"}));
    EXPECT_EQ(practice::TextOf(world.calls.All()[0]), "NetGetDCName(\"PRACTICE\")");
    EXPECT_EQ(practice::TextOf(world.calls.All()[1]), "ExitWindowsEx(\"4\", \"0\")");
    EXPECT_EQ(world.session_ends, (std::vector<std::uint32_t>{4}));
}

TEST(PracticeCalls, PasswordsStandAsMarksThatTellEqualFromDifferent) {
    practice::ScopedWorld world;
    platform::NetUserChangePassword(u"\\\\DC1", u"one", u"two");
    platform::NetUserChangePassword(u"\\\\DC1", u"two", u"two");
    const StringList first = world.calls.All()[0].arguments;
    const StringList second = world.calls.All()[1].arguments;
    EXPECT_EQ(first, (StringList{u"\\\\DC1", u"<secret 1>", u"<secret 2>"}));
    EXPECT_EQ(second, (StringList{u"\\\\DC1", u"<secret 2>", u"<secret 2>"}));
    EXPECT_EQ(world.calls.MarkOf(u"one"), u"<secret 1>");
    EXPECT_EQ(world.calls.MarkOf(u"three"), u"");
}

TEST(PracticeCalls, FaultMeetsTheNthCallAloneAndChangesNothing) {
    practice::ScopedWorld world;
    world.Fail("NetUserChangePassword", 64, 2);
    const auto change = [](const String& from, const String& to) {
        return platform::NetUserChangePassword(u"\\\\ARCHIVE", from, to);
    };
    EXPECT_EQ(change(u"Old-Password-1", u"Second-2"), 0U);
    EXPECT_EQ(change(u"Second-2", u"Third-3"), 64U);
    EXPECT_EQ(change(u"Second-2", u"Third-3"), 0U);
}

TEST(PracticeCalls, FaultWithoutANumberMeetsEveryCall) {
    practice::ScopedWorld world;
    world.Fail("NetWkstaGetInfo", 5, 0);
    platform::WkstaInfo100 info;
    EXPECT_EQ(platform::NetWkstaGetInfo(info), 5U);
    EXPECT_EQ(platform::NetWkstaGetInfo(info), 5U);
}

TEST(PracticeCalls, FaultOfACallWithLastErrorIsThatLastError) {
    practice::ScopedWorld world;
    world.Fail("OpenProcessToken", 5);
    platform::OwnedToken token;
    const auto opened = platform::OpenProcessToken(platform::GetCurrentProcess(), 8, token);
    EXPECT_FALSE(opened.value);
    EXPECT_EQ(opened.last_error, 5U);
    EXPECT_FALSE(token);
}

TEST(PracticeCalls, ActionRunsOnceAheadOfItsCall) {
    practice::ScopedWorld world;
    int count_before = -1;
    world.calls.Before(
        "ExitWindowsEx", [&] { count_before = static_cast<int>(world.session_ends.size()); }, 2);
    platform::ExitWindowsEx(0, 0);
    EXPECT_EQ(count_before, -1);
    platform::ExitWindowsEx(0, 0);
    EXPECT_EQ(count_before, 1);
}

TEST(PracticeHandles, OpenOnesAreCountedUntilTheirOwnerGoes) {
    practice::ScopedWorld world;
    {
        platform::OwnedKey key;
        platform::OwnedPolicy policy;
        EXPECT_EQ(platform::RegOpenKeyExW(platform::kLocalMachine, u"Software", platform::kKeyRead, key), 0U);
        EXPECT_EQ(platform::LsaOpenPolicy(1, policy), 0);
        EXPECT_EQ(world.OutstandingHandles(), 2U);
        EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Policy), 1U);
    }
    EXPECT_EQ(world.OutstandingHandles(), 0U);
    EXPECT_EQ(world.calls.Count("RegCloseKey"), 1U);
    EXPECT_EQ(world.calls.Count("LsaClose"), 1U);
}

TEST(PracticeHandles, SecondReleaseCountsAsWrong) {
    practice::ScopedWorld world;
    platform::OwnedPolicy policy;
    platform::LsaOpenPolicy(1, policy);
    platform::PolicyTraits::Release(policy.Get());
    EXPECT_EQ(world.handles.WrongReleases(), 0U);
    policy.Reset();
    EXPECT_EQ(world.handles.WrongReleases(), 1U);
}

TEST(PracticeWorlds, EachTestHasItsOwn) {
    practice::World& outside = practice::TheWorld();
    {
        practice::ScopedWorld world;
        EXPECT_EQ(&practice::TheWorld(), &world);
        {
            practice::ScopedWorld inner;
            inner.network.Local().store.accounts[0].password = u"changed";
            EXPECT_EQ(&practice::TheWorld(), &inner);
        }
        EXPECT_EQ(&practice::TheWorld(), &world);
        EXPECT_EQ(world.network.Local().store.accounts[0].password, u"Old-Password-1");
    }
    EXPECT_EQ(&practice::TheWorld(), &outside);
}

} // namespace
} // namespace kestrelmoor

#include "platform/network_management.h"
#include "platform/practice/world/log_on.h"
#include "platform/practice/world/world.h"
#include "runtime/errors.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

using practice::Account;
using practice::AccountStore;
using practice::kDay;

constexpr practice::Moment kNow = 46000 * kDay;

AccountStore StoreWithUser() {
    AccountStore store;
    Account user;
    user.name = u"user";
    user.password = u"First-Word-1";
    user.password_set = kNow - 10 * kDay;
    store.accounts.push_back(user);
    return store;
}

std::uint32_t Change(AccountStore& store, StringView old_password, StringView new_password) {
    return store.ChangePassword(u"USER", old_password, new_password, kNow);
}

TEST(PracticeAccounts, RightOldPasswordChangesItAndStartsItsAgeAnew) {
    AccountStore store = StoreWithUser();
    EXPECT_EQ(Change(store, u"First-Word-1", u"Second"), 0U);
    EXPECT_EQ(store.accounts[0].password, u"Second");
    EXPECT_EQ(AccountStore::PasswordAge(store.accounts[0], kNow + 5 * practice::kSecond), 5U);
}

TEST(PracticeAccounts, WrongOldPasswordIsRefusedAndNothingChanges) {
    AccountStore store = StoreWithUser();
    const AccountStore before = store;
    EXPECT_EQ(Change(store, u"first-word-1", u"Second"), 86U);
    EXPECT_EQ(store, before);
}

TEST(PracticeAccounts, UnknownUserIsToldBeforeThePassword) {
    AccountStore store = StoreWithUser();
    EXPECT_EQ(store.ChangePassword(u"nobody", u"x", u"y", kNow), 2221U);
}

TEST(PracticeAccounts, LockedAndDisabledAccountsAreRefusedEvenWithTheRightPassword) {
    AccountStore store = StoreWithUser();
    store.accounts[0].locked = true;
    EXPECT_EQ(Change(store, u"First-Word-1", u"Second"), 1909U);
    store.accounts[0].locked = false;
    store.accounts[0].disabled = true;
    EXPECT_EQ(Change(store, u"First-Word-1", u"Second"), 1331U);
}

TEST(PracticeAccounts, AccountThatMayNotChangeItsPasswordIsDenied) {
    AccountStore store = StoreWithUser();
    store.accounts[0].cannot_change_password = true;
    EXPECT_EQ(Change(store, u"First-Word-1", u"Second"), 5U);
}

TEST(PracticeAccounts, PasswordOfExactlyTheLeastLengthIsTakenAndOneShorterIsNot) {
    AccountStore store = StoreWithUser();
    store.policy.min_length = 6;
    EXPECT_EQ(Change(store, u"First-Word-1", u"12345"), 2245U);
    EXPECT_EQ(Change(store, u"First-Word-1", u"123456"), 0U);
}

TEST(PracticeAccounts, HistoryCountsThePresentPassword) {
    AccountStore store = StoreWithUser();
    store.policy.history_length = 2;
    EXPECT_EQ(Change(store, u"First-Word-1", u"First-Word-1"), 2245U);
    EXPECT_EQ(Change(store, u"First-Word-1", u"Second"), 0U);
    EXPECT_EQ(Change(store, u"Second", u"First-Word-1"), 2245U);
    EXPECT_EQ(Change(store, u"Second", u"Third"), 0U);
    EXPECT_EQ(Change(store, u"Third", u"First-Word-1"), 0U);
}

TEST(PracticeAccounts, WithoutHistoryTheSamePasswordIsTakenAgain) {
    AccountStore store = StoreWithUser();
    EXPECT_EQ(Change(store, u"First-Word-1", u"First-Word-1"), 0U);
}

TEST(PracticeAccounts, ComplexityAsksForThreeKindsAndRefusesTheAccountsName) {
    AccountStore store = StoreWithUser();
    store.policy.complexity = true;
    EXPECT_EQ(Change(store, u"First-Word-1", u"smallletters"), 2245U);
    EXPECT_EQ(Change(store, u"First-Word-1", u"Small-1-User"), 2245U);
    EXPECT_EQ(Change(store, u"First-Word-1", u"Small-1"), 0U);
}

TEST(PracticeAccounts, LeastAgeHoldsUnlessThePasswordMustBeChanged) {
    AccountStore store = StoreWithUser();
    store.policy.min_age = 11 * 86400;
    EXPECT_EQ(Change(store, u"First-Word-1", u"Second"), 2245U);
    store.accounts[0].password_expired = true;
    EXPECT_EQ(Change(store, u"First-Word-1", u"Second"), 0U);
    EXPECT_FALSE(store.accounts[0].password_expired);
}

TEST(PracticeAccounts, PasswordExpiresByAgeUnlessItNeverDoes) {
    AccountStore store = StoreWithUser();
    store.policy.max_age = 10 * 86400;
    EXPECT_FALSE(store.Expired(store.accounts[0], kNow));
    EXPECT_TRUE(store.Expired(store.accounts[0], kNow + practice::kSecond));
    store.accounts[0].password_never_expires = true;
    EXPECT_FALSE(store.Expired(store.accounts[0], kNow + practice::kSecond));
}

TEST(PracticeAccounts, LogOnTakesThePresentPasswordAloneAsItIsSpelt) {
    AccountStore store = StoreWithUser();
    EXPECT_EQ(LogOn(store, u"USER", u"First-Word-1", kNow), 0U);
    EXPECT_EQ(LogOn(store, u"user", u"first-word-1", kNow), 1326U);
    EXPECT_EQ(LogOn(store, u"nobody", u"First-Word-1", kNow), 1326U);
    Change(store, u"First-Word-1", u"Second");
    EXPECT_EQ(LogOn(store, u"user", u"Second", kNow), 0U);
    EXPECT_EQ(LogOn(store, u"user", u"First-Word-1", kNow), 1326U);
}

TEST(PracticeAccounts, LogOnTellsOfAnAccountThatIsClosedOnlyToTheRightPassword) {
    AccountStore store = StoreWithUser();
    store.policy.max_age = 5 * 86400;
    EXPECT_EQ(LogOn(store, u"user", u"First-Word-1", kNow), 1330U);
    store.accounts[0].password_expired = true;
    EXPECT_EQ(LogOn(store, u"user", u"First-Word-1", kNow), 1907U);
    store.accounts[0].disabled = true;
    EXPECT_EQ(LogOn(store, u"user", u"First-Word-1", kNow), 1331U);
    EXPECT_EQ(LogOn(store, u"user", u"wrong", kNow), 1326U);
    store.accounts[0].locked = true;
    EXPECT_EQ(LogOn(store, u"user", u"wrong", kNow), 1909U);
}

TEST(PracticeAccounts, FlagsAreThoseOfTheNetwork) {
    Account account;
    EXPECT_EQ(account.Flags(), 0x201U);
    account.disabled = account.locked = account.cannot_change_password = account.password_never_expires =
        true;
    EXPECT_EQ(account.Flags(), 0x10253U);
}

TEST(PracticeNetwork, AnswersUnderComputerControllerAndDottedNames) {
    practice::ScopedWorld world;
    platform::UserModalsInfo0 info;
    EXPECT_EQ(platform::NetUserModalsGet(u"", info), 0U);
    EXPECT_EQ(info.min_passwd_len, 4U);
    EXPECT_EQ(platform::NetUserModalsGet(u"\\\\archive", info), 0U);
    EXPECT_EQ(info.min_passwd_len, 6U);
    EXPECT_EQ(info.max_passwd_age, 0xFFFFFFFFU);
    EXPECT_EQ(platform::NetUserModalsGet(u"\\\\DC1.practice.test", info), 0U);
    EXPECT_EQ(info.min_passwd_len, 8U);
    EXPECT_EQ(platform::NetUserModalsGet(u"PRACTICE", info), 53U);
}

TEST(PracticeNetwork, ServerThatIsDownAnswersLikeOneThatIsNotThere) {
    practice::ScopedWorld world;
    world.network.FindComputer(u"ARCHIVE")->reachable = false;
    EXPECT_EQ(platform::NetUserChangePassword(u"\\\\ARCHIVE", u"Old-Password-1", u"New-Password-2"), 53U);
    EXPECT_EQ(platform::NetUserChangePassword(u"\\\\NOWHERE", u"Old-Password-1", u"New-Password-2"), 53U);
}

TEST(PracticeNetwork, OlderLookupKnowsShortNamesAndTheNewerBoth) {
    practice::ScopedWorld world;
    String name;
    EXPECT_EQ(platform::NetGetDCName(u"practice", name), 0U);
    EXPECT_EQ(name, u"\\\\DC1");
    EXPECT_EQ(platform::NetGetDCName(u"practice.test", name), 2453U);
    EXPECT_EQ(platform::DsGetDcNameW(u"practice.test", 0, name), 0U);
    EXPECT_EQ(name, u"\\\\dc1.practice.test");
    EXPECT_EQ(platform::DsGetDcNameW(u"other.test", 0, name), 1355U);
}

TEST(PracticeNetwork, ControllerThatIsDownIsNotFound) {
    practice::ScopedWorld world;
    world.network.domains[0].controllers[0].reachable = false;
    String name;
    EXPECT_EQ(platform::NetGetDCName(u"PRACTICE", name), 2453U);
    EXPECT_EQ(name, u"");
}

TEST(PracticeNetwork, MissingLibraryAndEntriesRaiseButForTheOneGuardedCall) {
    practice::ScopedWorld world;
    String name;
    world.network.missing_entries = {"NetGetDCName", "DsGetDcNameW"};
    EXPECT_THROW(platform::NetGetDCName(u"PRACTICE", name), RuntimeError);
    EXPECT_EQ(platform::DsGetDcNameW(u"PRACTICE", 0, name), std::nullopt);
    EXPECT_EQ(world.calls.Count("DsGetDcNameW"), 0U);
}

TEST(PracticeNetwork, AgeFollowsTheWorldsClock) {
    practice::ScopedWorld world;
    practice::Account& account = *world.network.Local().store.Find(u"user");
    world.SetPasswordAge(account, 100);
    world.clock.Advance(50 * practice::kSecond);
    platform::UserInfo3 info;
    EXPECT_EQ(platform::NetUserGetInfo(u"", u"user", info), 0U);
    EXPECT_EQ(info.password_age, 150U);
    EXPECT_EQ(info.flags, 0x201U);
    EXPECT_EQ(info.password_expired, 0U);
}

} // namespace
} // namespace kestrelmoor

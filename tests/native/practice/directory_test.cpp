#include "platform/practice/world/directory.h"

#include "platform/directory_service.h"
#include "platform/practice/world/world.h"
#include "tests/native/support/raised.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

/// The number of the error that an action raises, as COM results are written.
template <class Action>
std::uint32_t ResultOf(Action action) {
    return static_cast<std::uint32_t>(tests::RaisedNumber(action));
}

/// The stock world's user on a network whose directory is there.
class PracticeDirectory : public testing::Test {
  protected:
    PracticeDirectory() { world.network.directory.present = true; }

    static platform::OwnedDirectoryObject Bind(const String& name) {
        return platform::BindObject(u"WinNT://" + name + u"/user,user");
    }
    static Variant Property(const String& name, const String& member) {
        return platform::GetProperty(Bind(name), member);
    }
    practice::Account& Account(const String& server) { return world.network.StoreAt(server)->accounts.at(0); }

    practice::ScopedWorld world;
};

TEST_F(PracticeDirectory, WithoutAProviderNoPathCanBeRead) {
    world.network.directory.present = false;
    const auto error = tests::Raised([] { Bind(u"WORKBENCH"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(static_cast<std::uint32_t>(error->number()), 0x800401E4U);
    EXPECT_EQ(error->description(), u"Invalid syntax");
    EXPECT_EQ(world.OutstandingHandles(), 0U);
}

TEST_F(PracticeDirectory, BindsAUserOnAComputerAControllerAndInADomainByEitherName) {
    for (const char16_t* const name : {u"WORKBENCH", u"archive", u"DC1", u"PRACTICE", u"practice.test"})
        EXPECT_TRUE(Bind(name)) << ToUtf8(name);
    EXPECT_EQ(world.OutstandingHandles(), 0U);
}

TEST_F(PracticeDirectory, BindsAnAccountThatIsDisabledOrLocked) {
    Account(u"").disabled = Account(u"").locked = true;
    EXPECT_TRUE(Bind(u"WORKBENCH"));
}

TEST_F(PracticeDirectory, TellsAPathApartFromAPlaceAndAUserThatAreNotThere) {
    const auto number = [](const char16_t* path) { return ResultOf([=] { platform::BindObject(path); }); };
    EXPECT_EQ(number(u"LDAP://WORKBENCH/user,user"), 0x800401E4U);
    EXPECT_EQ(number(u"WinNT://WORKBENCH/user"), 0x800401E4U);
    EXPECT_EQ(number(u"WinNT://WORKBENCH,user"), 0x800401E4U);
    EXPECT_EQ(number(u"WinNT://NOWHERE/user,user"), 0x80070035U);
    EXPECT_EQ(number(u"WinNT:///user,user"), 0x80070035U);
    EXPECT_EQ(number(u"WinNT://WORKBENCH/nobody,user"), 0x800708ADU);
    world.network.FindComputer(u"ARCHIVE")->reachable = false;
    EXPECT_EQ(number(u"WinNT://ARCHIVE/user,user"), 0x80070035U);
    world.network.domains[0].controllers[0].reachable = false;
    EXPECT_EQ(number(u"WinNT://PRACTICE/user,user"), 0x80070035U);
}

TEST_F(PracticeDirectory, AnswersFromTheAccountAndItsPolicy) {
    EXPECT_EQ(platform::GetAttribute(Bind(u"WORKBENCH"), u"UserFlags"), Variant(0x201));
    EXPECT_EQ(platform::GetAttribute(Bind(u"WORKBENCH"), u"PasswordExpired"), Variant(0));
    EXPECT_EQ(Property(u"PRACTICE", u"PasswordMinimumLength"), Variant(8));
    // Set on 26 January at 9, for 42 days: to 9 March.
    EXPECT_EQ(Property(u"WORKBENCH", u"PasswordExpirationDate"), Variant(DateValue{46090.375}));
    Account(u"").password_expired = true;
    EXPECT_EQ(platform::GetAttribute(Bind(u"WORKBENCH"), u"UserFlags"), Variant(0x800201));
    EXPECT_EQ(platform::GetAttribute(Bind(u"WORKBENCH"), u"PasswordExpired"), Variant(1));
}

TEST_F(PracticeDirectory, PasswordWithoutAGreatestAgeHasNoDate) {
    EXPECT_EQ(ResultOf([] { Property(u"ARCHIVE", u"PasswordExpirationDate"); }), 0x8000500DU);
}

TEST_F(PracticeDirectory, ChangesThePasswordAsTheServerJudgesIt) {
    platform::ChangePassword(Bind(u"ARCHIVE"), u"Old-Password-1", u"New-Password-2");
    EXPECT_EQ(Account(u"\\\\ARCHIVE").password, u"New-Password-2");
    const auto wrong = tests::Raised(
        [] { platform::ChangePassword(Bind(u"ARCHIVE"), u"Old-Password-1", u"Third-Password-3"); });
    ASSERT_TRUE(wrong);
    EXPECT_EQ(static_cast<std::uint32_t>(wrong->number()), 0x80070056U);
    EXPECT_EQ(wrong->description(), u"The old password is not right.");
    Account(u"\\\\ARCHIVE").cannot_change_password = true;
    EXPECT_EQ(
        ResultOf([] { platform::ChangePassword(Bind(u"ARCHIVE"), u"New-Password-2", u"Third-Password-3"); }),
        70U);
    EXPECT_EQ(Account(u"\\\\ARCHIVE").password, u"New-Password-2");
}

TEST_F(PracticeDirectory, AnswersThatWereToldComeAheadOfTheTruth) {
    world.network.directory.answers = {
        {u"archive", "GetObject", 0x80070775, u"Locked out."},
        {u"PRACTICE", "PasswordMinimumLength", 0, u"", NullValue{}},
        {u"NOWHERE", "GetObject"},
        {u"NOWHERE", "UserFlags", 0, u"", std::int32_t{2}},
    };
    const auto error = tests::Raised([] { Bind(u"ARCHIVE"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(static_cast<std::uint32_t>(error->number()), 0x80070775U);
    EXPECT_EQ(error->description(), u"Locked out.");
    EXPECT_EQ(Property(u"PRACTICE", u"PasswordMinimumLength"), Variant(NullValue{}));
    EXPECT_EQ(platform::GetAttribute(Bind(u"NOWHERE"), u"UserFlags"), Variant(2));
}

TEST_F(PracticeDirectory, AChangeThatWasToldBeforehandSucceedsAndChangesNothing) {
    world.network.directory.answers = {{u"ARCHIVE", "ChangePassword"}};
    EXPECT_FALSE(tests::Raised(
        [] { platform::ChangePassword(Bind(u"ARCHIVE"), u"Not-The-Old-One", u"New-Password-2"); }));
    EXPECT_EQ(Account(u"\\\\ARCHIVE").password, u"Old-Password-1");
}

TEST_F(PracticeDirectory, RecordsEachCallAndHidesThePasswords) {
    {
        const auto user = Bind(u"ARCHIVE");
        platform::GetAttribute(user, u"UserFlags");
        platform::GetProperty(user, u"PasswordMinimumLength");
        platform::ChangePassword(user, u"Old-Password-1", u"New-Password-2");
    }
    std::vector<std::string> calls;
    for (const practice::Call& call : world.calls.All())
        calls.push_back(practice::TextOf(call));
    EXPECT_EQ(calls,
              (std::vector<std::string>{"GetObject(\"WinNT://ARCHIVE/user,user\")",
                                        "IADsUser.Get(\"UserFlags\")", "IADsUser.PasswordMinimumLength()",
                                        "IADsUser.ChangePassword(\"<secret 1>\", \"<secret 2>\")"}));
}

TEST_F(PracticeDirectory, FaultIsRaisedAsItsNumberAndTheObjectIsGivenBack) {
    world.Fail("IADsUser.PasswordMinimumLength", 0x80070005);
    EXPECT_EQ(ResultOf([] { Property(u"ARCHIVE", u"PasswordMinimumLength"); }), 70U);
    world.Fail("GetObject", 0x8007052E);
    EXPECT_EQ(ResultOf([] { Bind(u"ARCHIVE"); }), 0x8007052EU);
    EXPECT_EQ(world.OutstandingHandles(), 0U);
}

} // namespace
} // namespace kestrelmoor

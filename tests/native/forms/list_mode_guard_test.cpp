#include "tests/native/forms/password_rows.h"

namespace kestrelmoor::tests {

namespace {

constexpr int kDelete = 46;

class ListModeGuard : public PasswordRows {
  protected:
    ListModeGuard() { OpenRows(); }

    void DeleteAll() {
        InPlace().SetSelStart(0);
        InPlace().SetSelLength(static_cast<int>(InPlace().Text().size()));
        user.Press(kDelete);
    }
};

} // namespace

TEST_F(ListModeGuard, NothingTypedDisablesOk) {
    EXPECT_FALSE(OkEnabled());
    Edit(0);
    EXPECT_FALSE(OkEnabled());
}

TEST_F(ListModeGuard, AnOldPasswordInTheOpenBoxEnablesOkAtTheFirstCharacter) {
    TypeOld(1, u"x");
    EXPECT_TRUE(OkEnabled());
}

TEST_F(ListModeGuard, AStoredPasswordKeepsOkEnabledWhenTheBoxIsLeft) {
    TypeOld(1, u"x");
    Leave();
    EXPECT_TRUE(OkEnabled());
    Same().SetValue(1);
    EXPECT_FALSE(OkEnabled());
    user.ClickOn(Same());
    EXPECT_TRUE(OkEnabled()) << "with the box hidden the stored passwords are counted";
}

TEST_F(ListModeGuard, TheBoxOpenOnAnEmptyRowCountsAnotherRowsPassword) {
    TypeOld(1, u"abc");
    Edit(0);
    EXPECT_TRUE(OkEnabled());
    user.Type(u"z");
    DeleteAll();
    EXPECT_TRUE(OkEnabled());
}

TEST_F(ListModeGuard, DeletingTheOnlyPasswordDisablesOkBeforeTheEditIsCommitted) {
    TypeOld(1, u"abc");
    Leave();
    Edit(1);
    ASSERT_TRUE(OkEnabled());
    DeleteAll();
    EXPECT_FALSE(OkEnabled());
    EXPECT_EQ(Rows().at(1), Masked("\\\\ARCHIVE", 3)) << "not committed yet";
}

TEST_F(ListModeGuard, TheStoredPasswordOfTheRowInEditIsNotCountedTwice) {
    TypeOld(0, u"abc");
    TypeOld(1, u"de");
    Edit(0);
    DeleteAll();
    EXPECT_TRUE(OkEnabled()) << "the other row has one";
    Edit(1);
    DeleteAll();
    EXPECT_FALSE(OkEnabled());
}

TEST_F(ListModeGuard, TheNewPasswordAloneEnablesOkAndItsEndAsksTheRows) {
    TypeInto(u"txtNewPass", u"n");
    EXPECT_TRUE(OkEnabled());
    user.Press(key::kBack);
    EXPECT_FALSE(OkEnabled());
    TypeOld(2, u"old");
    TypeInto(u"txtNewPass", u"n");
    user.Press(key::kBack);
    EXPECT_TRUE(OkEnabled());
}

TEST_F(ListModeGuard, TheNewPasswordCountsWhateverTheBoxHolds) {
    TypeInto(u"txtNewPass", u"n");
    Edit(0);
    user.Type(u"x");
    DeleteAll();
    EXPECT_TRUE(OkEnabled());
}

TEST_F(ListModeGuard, TypingInTheConfirmationLeavesOkAsItWas) {
    TypeInto(u"txtConfirm", u"x");
    EXPECT_FALSE(OkEnabled());
    TypeOld(1, u"abc");
    TypeInto(u"txtConfirm", u"y");
    EXPECT_TRUE(OkEnabled());
}

TEST_F(ListModeGuard, AMismatchWithStoredOldPasswordsLeavesOkEnabled) {
    TypeOld(1, u"abc");
    TypeInto(u"txtNewPass", u"one");
    TypeInto(u"txtConfirm", u"two");
    ClickOk();
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_TRUE(OkEnabled());
    EXPECT_EQ(form->ActiveControl(), &At(u"txtNewPass"));
    Edit(1);
    EXPECT_EQ(InPlace().Text(), u"abc");
}

TEST_F(ListModeGuard, AMismatchOverAnOpenBoxCommitsItsEdit) {
    TypeInto(u"txtNewPass", u"one");
    TypeOld(1, u"abc");
    user.Press(key::kReturn);
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_EQ(Rows().at(1), Masked("\\\\ARCHIVE", 3));
    EXPECT_FALSE(InPlace().Visible());
    EXPECT_TRUE(OkEnabled());
}

TEST_F(ListModeGuard, InAListOfTenThousandThePasswordsOf300RowsAreCountedDownToTheLast) {
    Visit([](Form&) { Configure(ManyServers(10000), false); });
    Edit(0);
    for (int row = 0; row < 300; ++row) {
        user.Type(u"ab");
        user.Press(key::kDown);
    }
    EXPECT_TRUE(OkEnabled());
    for (int row = 300; row-- > 0;) {
        user.Press(key::kUp);
        DeleteAll();
        EXPECT_EQ(OkEnabled(), row > 0) << row;
    }
}

} // namespace kestrelmoor::tests

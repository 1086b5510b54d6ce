#include "tests/native/forms/password_rows.h"

namespace kestrelmoor::tests {

namespace {

class OldPasswordList : public PasswordRows {
  protected:
    std::vector<std::int32_t> Numbers() {
        std::vector<std::int32_t> numbers;
        for (int row = 0; row < List().ListCount(); ++row)
            numbers.push_back(List().ItemData(row));
        return numbers;
    }

    /// Lets `action` come while an edit over row 0 waits to be ended, and says how many milliseconds the
    /// removal of row 1 took.
    practice::Moment RemoveUnderAnEdit(std::function<void()> action, int pumps) {
        world.actions.Queue(std::move(action), pumps);
        const practice::Moment start = world.clock.Now();
        form->RemoveTarget(u"\\\\ARCHIVE");
        return world.clock.Now() - start;
    }
};

} // namespace

TEST_F(OldPasswordList, AtTheStartEveryRowShowsEightMaskCharacters) {
    OpenRows();
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer"), Masked("\\\\ARCHIVE"), Masked("PRACTICE")}));
    EXPECT_EQ(Numbers(), (std::vector<std::int32_t>{8, 8, 8}));
}

TEST_F(OldPasswordList, AMaskIsAsLongAsThePasswordOfItsRow) {
    OpenRows();
    TypeOld(1, u"twelve-chars");
    Leave();
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer"), Masked("\\\\ARCHIVE", 12), Masked("PRACTICE")}));
    EXPECT_EQ(Numbers(), (std::vector<std::int32_t>{8, 12, 8}));
}

TEST_F(OldPasswordList, APasswordOfOneCharacterHasAMaskOfOne) {
    OpenRows();
    TypeOld(2, u"x");
    Leave();
    EXPECT_EQ(Rows().at(2), Masked("PRACTICE", 1));
}

TEST_F(OldPasswordList, NoPasswordEverStandsInARow) {
    OpenRows();
    TypeOld(0, u"secret-old");
    Leave();
    for (const std::string& row : Rows())
        EXPECT_EQ(row.find("secret"), std::string::npos);
}

TEST_F(OldPasswordList, AnotherMaskCharacterReachesEveryRowAtItsLength) {
    OpenRows();
    TypeOld(1, u"abc");
    Leave();
    gPasswordChar.assign(1, u'#');
    form->UpdateUI();
    EXPECT_EQ(Rows(), (Lines{" This computer\t########", "\\\\ARCHIVE\t###", "PRACTICE\t########"}));
    for (const char16_t* name : {u"txtOldPass", u"txtNewPass", u"txtConfirm"})
        EXPECT_EQ(Box(name).PasswordChar(), u"#");
}

TEST_F(OldPasswordList, TheRowsKeepTheirOrderWhateverTheirMasks) {
    Configure({u"B", u"A", u"AB"}, false);
    OpenRows();
    TypeOld(0, u"a-long-password-for-the-first-row");
    Leave();
    EXPECT_EQ(Rows(), (Lines{Masked("A", 33), Masked("AB"), Masked("B")}));
}

TEST_F(OldPasswordList, ARowIsSortedInWhateverTheMasksOfOthers) {
    static const StringList servers{u"", u"ALPHA", u"ALPHA BETA"};
    Configure(servers, true);
    OpenRows();
    EXPECT_EQ(Rows(), (Lines{Masked(""), Masked(" This computer"), Masked("ALPHA"), Masked("ALPHA BETA")}));
    TypeOld(0, u"abc");
    TypeOld(2, u"abcde");
    Visit([](Form&) { Configure(servers, true); });
    EXPECT_EQ(Rows(), (Lines{Masked("", 3), " This computer", Masked("ALPHA", 5), "ALPHA BETA"}));
}

TEST_F(OldPasswordList, RowsAddedAfterTheSettingsHaveNoMask) {
    OpenRows();
    Visit([](Form&) { Configure({u"\\\\ARCHIVE", u"\\\\SPARE"}, true); });
    EXPECT_EQ(Rows(), (Lines{" This computer", "\\\\ARCHIVE", "\\\\SPARE"}));
    EXPECT_EQ(Numbers(), (std::vector<std::int32_t>{0, 0, 0}));
}

TEST_F(OldPasswordList, AfterTheSettingsOnlyRowsWithAStoredPasswordHaveAMask) {
    OpenRows();
    TypeOld(1, u"abcde");
    Visit([](Form&) {});
    EXPECT_EQ(Rows(), (Lines{" This computer", Masked("\\\\ARCHIVE", 5), "PRACTICE"}));
}

TEST_F(OldPasswordList, TheNextRefreshBringsTheMissingMasks) {
    OpenRows();
    Visit([](Form&) {});
    form->UpdateUI();
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer"), Masked("\\\\ARCHIVE"), Masked("PRACTICE")}));
}

TEST_F(OldPasswordList, AStoredPasswordComesBackWithItsTarget) {
    OpenRows();
    TypeOld(1, u"abcde");
    Visit([](Form&) { Configure({u"PRACTICE"}, true); });
    EXPECT_EQ(Rows(), (Lines{" This computer", "PRACTICE"}));
    Visit([](Form&) { Configure({u"PRACTICE", u"\\\\archive"}, true); });
    EXPECT_EQ(Rows(), (Lines{" This computer", Masked("\\\\archive", 5), "PRACTICE"}));
    Edit(1);
    EXPECT_EQ(InPlace().Text(), u"abcde");
}

TEST_F(OldPasswordList, AStoredPasswordOfATargetThatIsGoneStillCounts) {
    OpenRows();
    TypeOld(1, u"abcde");
    Visit([](Form&) { Configure({u"PRACTICE", u"\\\\SPARE"}, false); });
    Same().SetValue(1);
    ASSERT_FALSE(OkEnabled());
    user.ClickOn(Same());
    EXPECT_TRUE(OkEnabled());
}

TEST_F(OldPasswordList, WhatWasTypedEndsWithTheWindow) {
    OpenRows();
    TypeOld(1, u"abcde");
    user.CloseWindow(*form);
    OpenRows();
    Edit(1);
    EXPECT_EQ(InPlace().Text(), u"");
}

TEST_F(OldPasswordList, TargetsThatDifferOnlyInCaseAreInTheListOnce) {
    Configure({u"\\\\Archive", u"\\\\ARCHIVE", u"practice", u"PRACTICE"}, false);
    OpenRows();
    EXPECT_EQ(Rows(), (Lines{Masked("\\\\Archive"), Masked("practice")}));
}

TEST_F(OldPasswordList, ATargetWhoseNameIsTheFirstPartOfARowIsThere) {
    Configure({u"A\tB", u"a", u"C"}, false);
    OpenRows();
    EXPECT_EQ(Rows(), (Lines{Masked("A"), Masked("C")}));
}

TEST_F(OldPasswordList, ANameWithATabIsNeverThatOfARow) {
    Configure({u"A", u"A\tB", u"A\tB"}, false);
    OpenRows();
    EXPECT_EQ(Rows(), (Lines{Masked("A"), Masked("A"), Masked("A")}));
    form->RemoveTarget(u"A\tB");
    EXPECT_EQ(List().ListCount(), 3);
    form->RemoveTarget(u"a");
    form->RemoveTarget(u"a");
    EXPECT_EQ(Rows(), Lines{Masked("A")});
    Visit([](Form&) { Configure({u"A\tB", u"A"}, false); });
    EXPECT_EQ(Rows(), Lines{"A\tB"});
}

TEST_F(OldPasswordList, TheSecondLoadFindsTheSameTargetsOnceMore) {
    OpenRows();
    for (int visit = 0; visit < 3; ++visit)
        Visit([](Form&) {});
    EXPECT_EQ(List().ListCount(), 3);
}

TEST_F(OldPasswordList, WithTwoTargetsLeftAfterTheSettingsTheListModeStays) {
    OpenRows();
    Visit([](Form&) { Configure({u"PRACTICE"}, true); });
    EXPECT_TRUE(Same().Enabled());
    EXPECT_EQ(Same().Value(), 0);
}

TEST_F(OldPasswordList, ARemovedTargetIsGoneInWhateverCaseItIsNamed) {
    OpenRows();
    form->RemoveTarget(u"\\\\archive");
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer"), Masked("PRACTICE")}));
    EXPECT_TRUE(Same().Enabled());
    EXPECT_EQ(Same().Value(), 0);
}

TEST_F(OldPasswordList, RemovingATargetThatIsNotThereRemovesNothing) {
    OpenRows();
    form->RemoveTarget(u"\\\\NOWHERE");
    form->RemoveTarget(u"\\\\ARCH");
    EXPECT_EQ(List().ListCount(), 3);
    EXPECT_EQ(Same().Value(), 0);
}

TEST_F(OldPasswordList, WithOneTargetLeftTheSingleModeIsOnAndFixed) {
    OpenRows();
    form->RemoveTarget(u"PRACTICE");
    form->RemoveTarget(u"\\\\ARCHIVE");
    EXPECT_EQ(Same().Value(), 1);
    EXPECT_FALSE(Same().Enabled());
    EXPECT_TRUE(InPlace().Visible());
    EXPECT_FALSE(List().Visible());
}

TEST_F(OldPasswordList, ARemovedTargetCanComeBack) {
    OpenRows();
    form->RemoveTarget(u"PRACTICE");
    Visit([](Form&) {});
    EXPECT_EQ(Rows().at(2), "PRACTICE");
}

TEST_F(OldPasswordList, NothingIsPumpedForARowWithoutAnOpenEdit) {
    OpenRows();
    world.calls.Clear();
    form->RemoveTarget(u"PRACTICE");
    Visit([](Form&) {});
    EXPECT_EQ(world.calls.Count("PumpEvents"), 0U);
}

TEST_F(OldPasswordList, ARowIsNotRemovedUnderAnOpenEditThatTheUserEndsInTime) {
    OpenRows();
    TypeOld(0, u"abc");
    int count = 0;
    const auto waited = RemoveUnderAnEdit(
        [&] {
            count = List().ListCount();
            Leave();
        },
        5);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(waited, 50);
    EXPECT_EQ(form->ActiveControl(), &At(u"txtNewPass"));
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer", 3), Masked("PRACTICE")}));
}

TEST_F(OldPasswordList, AfterMoreThanASecondTheEditIsEndedAndTheListTakesTheFocus) {
    OpenRows();
    TypeOld(0, u"abc");
    bool open_at_one_second = false;
    bool open_before = false;
    world.actions.Queue([&] { open_before = EditIsOpen(); }, 99);
    const auto waited = RemoveUnderAnEdit([&] { open_at_one_second = EditIsOpen(); }, 100);
    EXPECT_TRUE(open_before);
    EXPECT_TRUE(open_at_one_second) << "one second is not more than one second";
    EXPECT_GT(waited, 1000);
    EXPECT_LE(waited, 1020);
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer", 3), Masked("PRACTICE")}));
    EXPECT_EQ(form->ActiveControl(), &InPlace()) << "the list has the focus, and opens its box anew";
    EXPECT_EQ(InPlace().Text(), u"abc");
}

TEST_F(OldPasswordList, AnEditThatEndsByItselfInASecondLongWaitMovesTheFocusAllTheSame) {
    OpenRows();
    TypeOld(0, u"abc");
    RemoveUnderAnEdit(
        [this] {
            Leave();
            world.clock.Advance(2 * practice::kSecond);
        },
        1);
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer", 3), Masked("PRACTICE")}));
    EXPECT_EQ(form->ActiveControl(), &InPlace()) << "the list takes the focus behind the button";
}

TEST_F(OldPasswordList, MidnightDoesNotHoldUpAnEditForADay) {
    OpenRows();
    world.clock.Set(world.clock.Now() / practice::kDay * practice::kDay + practice::kDay - 50);
    TypeOld(0, u"abc");
    const practice::Moment start = world.clock.Now();
    form->RemoveTarget(u"PRACTICE");
    EXPECT_LE(world.clock.Now() - start, 1020);
    EXPECT_EQ(List().ListCount(), 2);
}

TEST_F(OldPasswordList, ARowIsAddedOnlyWhenTheOpenEditHasEnded) {
    OpenRows();
    world.calls.Clear();
    Visit([](Form& owner) { owner.Find(u"lstOldPass").SetFocus(); });
    EXPECT_EQ(world.calls.Count("PumpEvents"), 303U)
        << "each added row gives the focus back to the list, whose box holds up the next one";
    EXPECT_EQ(Targets(), (Lines{" This computer", "\\\\ARCHIVE", "PRACTICE"}));
}

TEST_F(OldPasswordList, AWindowClosedDuringTheWaitIsLeftAlone) {
    OpenRows();
    TypeOld(0, u"abc");
    RemoveUnderAnEdit([this] { user.CloseWindow(*form); }, 3);
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(List().ListCount(), 3);
}

TEST_F(OldPasswordList, AWindowClosedWhileARowWaitsToBeAddedGetsNoRow) {
    OpenRows();
    world.actions.Queue([this] { user.CloseWindow(*form); }, 2);
    Visit([](Form& owner) { owner.Find(u"lstOldPass").SetFocus(); });
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(List().ListCount(), 0);
}

TEST_F(OldPasswordList, AnEditIsNotWaitedForWhereTheCancelButtonCannotTakeTheFocus) {
    OpenRows();
    TypeOld(0, u"abc");
    At(u"cmdCancel").SetEnabled(false);
    world.calls.Clear();
    form->RemoveTarget(u"PRACTICE");
    EXPECT_EQ(world.calls.Count("PumpEvents"), 1U);
    EXPECT_EQ(List().ListCount(), 2);
}

TEST_F(OldPasswordList, NothingIsPumpedForARowInTheSingleMode) {
    Open();
    world.calls.Clear();
    form->RemoveTarget(u"PRACTICE");
    EXPECT_EQ(world.calls.Count("PumpEvents"), 0U);
    EXPECT_EQ(List().ListCount(), 2);
}

TEST_F(OldPasswordList, ASelectionThatChangesUnderAnOpenEditCommitsToItsOwnRow) {
    OpenRows();
    TypeOld(0, u"abc");
    List().SetListIndex(1);
    EXPECT_TRUE(EditIsOpen());
    EXPECT_EQ(InPlace().Text(), u"");
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer", 3), Masked("\\\\ARCHIVE"), Masked("PRACTICE")}));
}

TEST_F(OldPasswordList, AnUpKeyInTheFirstRowCommitsAndBeginsAnew) {
    OpenRows();
    TypeOld(0, u"abc");
    user.Press(key::kUp);
    EXPECT_TRUE(EditIsOpen());
    EXPECT_EQ(Rows().at(0), Masked(" This computer", 3));
}

TEST_F(OldPasswordList, TenThousandTargetsAreListedEditedAndLoadedAnew) {
    Configure(ManyServers(10000), false);
    OpenRows();
    ASSERT_EQ(List().ListCount(), 10000);
    EXPECT_EQ(Rows().front(), Masked("\\\\S00000"));
    EXPECT_EQ(Rows().back(), Masked("\\\\S09999"));
    TypeOld(9999, u"last");
    EXPECT_EQ(List().ListIndex(), 9999);
    Visit([](Form&) {});
    EXPECT_EQ(List().ListCount(), 10000);
    EXPECT_EQ(Rows().back(), Masked("\\\\S09999", 4));
}

} // namespace kestrelmoor::tests

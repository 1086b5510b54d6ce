#include "tests/native/forms/password_rows.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

constexpr int kDelete = 46;

/// The list stands at 120, 1320 twips and is 4935 by 840: with a border of two pixels it shows four rows of
/// 13 pixels, the first at 1350, from 150 to 5025, or to 4770 where it has a bar.
class RowEdit : public PasswordRows {
  protected:
    void ExpectBoxAt(Twips top, Twips width) {
        EXPECT_TRUE(InPlace().Visible());
        EXPECT_EQ(InPlace().Left(), 2160);
        EXPECT_EQ(InPlace().Top(), top);
        EXPECT_EQ(InPlace().Width(), width);
        EXPECT_EQ(InPlace().Height(), 195);
    }

    void OpenRowsOf(int servers) {
        Configure(ManyServers(servers), false);
        OpenRows();
    }

    void SelectAllAndDelete() {
        InPlace().SetSelStart(0);
        InPlace().SetSelLength(static_cast<int>(InPlace().Text().size()));
        user.Press(kDelete);
    }

    /// The rows and the texts of the box in the order in which the keys lead to them.
    std::vector<int> RowsUnderKeys(std::initializer_list<int> keys) {
        std::vector<int> rows;
        for (const int key : keys) {
            user.Press(key);
            EXPECT_TRUE(EditIsOpen()) << key;
            rows.push_back(List().ListIndex());
        }
        return rows;
    }
};

} // namespace

TEST_F(RowEdit, NoBoxIsOpenUntilARowIsChosen) {
    OpenRows();
    EXPECT_FALSE(InPlace().Visible());
    EXPECT_EQ(List().ListIndex(), -1);
    EXPECT_TRUE(List().TabStop());
}

TEST_F(RowEdit, AClickOnARowOpensTheBoxOverItsMask) {
    OpenRows();
    Edit(1);
    ExpectBoxAt(1545, 2865);
    EXPECT_EQ(List().ListIndex(), 1);
    EXPECT_EQ(InPlace().BorderStyle(), 0);
    EXPECT_EQ(InPlace().Text(), u"");
}

TEST_F(RowEdit, TheBoxReachesToTheBarOfALongList) {
    OpenRowsOf(5);
    Edit(3);
    ExpectBoxAt(1935, 2610);
}

TEST_F(RowEdit, TheBoxFollowsTheRowOfAScrolledList) {
    OpenRowsOf(9);
    Edit(6);
    user.ScrollTo(List(), 5);
    ExpectBoxAt(1545, 2610);
}

TEST_F(RowEdit, TheKeyboardReachesTheFirstRowWhereNoneIsCurrent) {
    OpenRows();
    user.Press(key::kTab);
    EXPECT_TRUE(EditIsOpen());
    EXPECT_EQ(List().ListIndex(), 0);
    ExpectBoxAt(1350, 2865);
}

TEST_F(RowEdit, TheKeyboardReachesTheRowThatWasCurrent) {
    OpenRows();
    Edit(2);
    Leave();
    Same().SetFocus();
    user.Press(key::kTab);
    EXPECT_TRUE(EditIsOpen());
    EXPECT_EQ(List().ListIndex(), 2);
}

TEST_F(RowEdit, TheButtonCountsTheOtherRowsWhereWhatTheSingleModeHeldIsEmptied) {
    Open();
    TypeInto(u"txtOldPass", u"single");
    ASSERT_TRUE(user.ClickOn(Same()));
    Edit(1);
    user.Type(u"one");
    ASSERT_TRUE(user.ClickOn(Same()));
    ASSERT_TRUE(user.ClickOn(Same()));
    EXPECT_TRUE(OkEnabled());
    Edit(0);
    EXPECT_EQ(InPlace().Text(), u"");
    EXPECT_TRUE(OkEnabled());
}

TEST_F(RowEdit, TheModeSwitchedByCodeGoesStraightToTheFirstRow) {
    Open();
    Same().SetValue(0);
    EXPECT_TRUE(EditIsOpen());
    EXPECT_EQ(List().ListIndex(), 0);
    EXPECT_FALSE(OkEnabled());
}

TEST_F(RowEdit, WhatTheSingleModeHeldIsNotShownInARow) {
    Open();
    TypeInto(u"txtOldPass", u"single");
    ASSERT_TRUE(user.ClickOn(Same()));
    EXPECT_EQ(InPlace().Text(), u"single") << "the text stays in the hidden box for now";
    Edit(0);
    EXPECT_EQ(InPlace().Text(), u"");
    EXPECT_FALSE(OkEnabled());
    ASSERT_TRUE(user.ClickOn(Same()));
    ASSERT_EQ(Same().Value(), 1);
    EXPECT_EQ(InPlace().Text(), u"single");
}

TEST_F(RowEdit, TheModeSwitchEndsTheEditAndTheRowsPasswordIsNotTheSingleModes) {
    OpenRows();
    TypeOld(1, u"row-password");
    ASSERT_TRUE(user.ClickOn(Same()));
    EXPECT_EQ(InPlace().Text(), u"");
    EXPECT_EQ(InPlace().BorderStyle(), 1);
    EXPECT_EQ(InPlace().Top(), 960);
    EXPECT_EQ(InPlace().Width(), 2895);
    EXPECT_EQ(InPlace().Height(), 285);
    EXPECT_EQ(Rows().at(1), Masked("\\\\ARCHIVE", 12));
    ASSERT_TRUE(user.ClickOn(Same()));
    Edit(1);
    EXPECT_EQ(InPlace().Text(), u"row-password");
}

TEST_F(RowEdit, AModeSwitchedTwiceWithAnEditBetweenKeepsThePlaceOfTheBox) {
    OpenRows();
    for (int turn = 0; turn < 2; ++turn) {
        Edit(2);
        user.ClickOn(Same());
        EXPECT_EQ(InPlace().Top(), 960) << turn;
        EXPECT_EQ(InPlace().Width(), 2895) << turn;
        EXPECT_EQ(InPlace().Height(), 285) << turn;
        user.ClickOn(Same());
    }
}

TEST_F(RowEdit, AnEditOpensWithTheWholeStoredPasswordSelected) {
    OpenRows();
    TypeOld(1, u"abcdef");
    EXPECT_EQ(InPlace().SelLength(), 0);
    Edit(0);
    Edit(1);
    EXPECT_EQ(InPlace().Text(), u"abcdef");
    user.Press(key::kUp);
    user.Press(key::kDown);
    EXPECT_EQ(InPlace().SelStart(), 0);
    EXPECT_EQ(InPlace().SelLength(), 6);
    user.Type(u"z");
    EXPECT_EQ(InPlace().Text(), u"z");
}

TEST_F(RowEdit, AnEditOpensWithTheWholeTextSelectedWhereTheSingleModeHeldTheSame) {
    OpenRows();
    TypeOld(1, u"abcdef");
    Leave();
    ASSERT_TRUE(user.ClickOn(Same()));
    TypeInto(u"txtOldPass", u"abcdef");
    ASSERT_TRUE(user.ClickOn(Same()));
    ASSERT_EQ(InPlace().Text(), u"abcdef");
    Edit(1);
    EXPECT_EQ(InPlace().Text(), u"abcdef");
    EXPECT_EQ(InPlace().SelStart(), 0);
    EXPECT_EQ(InPlace().SelLength(), 6);
}

TEST_F(RowEdit, LeavingTheBoxHidesItAndKeepsWhatWasTyped) {
    OpenRows();
    TypeOld(1, u"abc");
    EXPECT_EQ(Rows().at(1), Masked("\\\\ARCHIVE")) << "nothing is written before the box is left";
    Leave();
    EXPECT_FALSE(InPlace().Visible());
    EXPECT_EQ(InPlace().Text(), u"");
    EXPECT_EQ(Rows().at(1), Masked("\\\\ARCHIVE", 3));
}

TEST_F(RowEdit, TheRowThatWasEditedIsWrittenAndNotTheOneThatIsCurrentNow) {
    OpenRows();
    TypeOld(1, u"abc");
    Edit(2);
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer"), Masked("\\\\ARCHIVE", 3), Masked("PRACTICE")}));
    EXPECT_EQ(InPlace().Text(), u"");
    user.Type(u"xy");
    Edit(0);
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer"), Masked("\\\\ARCHIVE", 3), Masked("PRACTICE", 2)}));
}

TEST_F(RowEdit, EmptyingTheBoxRemovesTheStoredPasswordAndShowsEightMaskCharacters) {
    OpenRows();
    TypeOld(1, u"abcdefghijkl");
    Leave();
    Edit(1);
    SelectAllAndDelete();
    Leave();
    EXPECT_EQ(Rows().at(1), Masked("\\\\ARCHIVE", 8));
    EXPECT_FALSE(OkEnabled());
    Edit(1);
    EXPECT_EQ(InPlace().Text(), u"");
}

TEST_F(RowEdit, AnotherPasswordTakesThePlaceOfTheStoredOne) {
    OpenRows();
    TypeOld(1, u"first");
    Leave();
    Edit(1);
    SelectAllAndDelete();
    user.Type(u"second!");
    Leave();
    Edit(1);
    EXPECT_EQ(InPlace().Text(), u"second!");
    SelectAllAndDelete();
    EXPECT_FALSE(OkEnabled()) << "the first one is not counted any more";
}

TEST_F(RowEdit, TheListIsNoTabStopWhileItsBoxIsOpen) {
    OpenRows();
    Edit(1);
    EXPECT_FALSE(List().TabStop());
    user.Press(key::kTab, key::kShiftMask);
    EXPECT_EQ(form->ActiveControl(), &Same());
    EXPECT_TRUE(List().TabStop());
    EXPECT_FALSE(InPlace().Visible());
}

TEST_F(RowEdit, TabLeadsFromTheBoxToTheNewPassword) {
    OpenRows();
    Edit(1);
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &At(u"txtNewPass"));
    user.Press(key::kTab, key::kShiftMask);
    EXPECT_TRUE(EditIsOpen());
    EXPECT_EQ(List().ListIndex(), 1);
}

TEST_F(RowEdit, UpAndDownMoveTheSelectionAndTheBoxFollows) {
    OpenRows();
    Edit(0);
    EXPECT_EQ(RowsUnderKeys({key::kDown, key::kDown, key::kUp}), (std::vector<int>{1, 2, 1}));
    ExpectBoxAt(1545, 2865);
}

TEST_F(RowEdit, UpAndDownStopAtTheEndsWithTheBoxStillOpen) {
    OpenRows();
    Edit(0);
    EXPECT_EQ(RowsUnderKeys({key::kUp, key::kDown, key::kDown, key::kDown}), (std::vector<int>{0, 1, 2, 2}));
}

TEST_F(RowEdit, PageKeysGoThroughALongListAndScrollIt) {
    OpenRowsOf(20);
    Edit(0);
    const std::vector<int> rows = RowsUnderKeys({key::kPageDown, key::kPageDown, key::kPageUp});
    EXPECT_GT(rows.at(0), 1);
    EXPECT_GT(rows.at(1), rows.at(0));
    EXPECT_EQ(rows.at(2), rows.at(0));
    EXPECT_GT(List().TopIndex(), 0);
}

TEST_F(RowEdit, KeysThatMoveTheSelectionCommitWhatWasTyped) {
    OpenRows();
    TypeOld(0, u"abc");
    user.Press(key::kDown);
    user.Type(u"de");
    user.Press(key::kPageUp);
    EXPECT_EQ(Rows(), (Lines{Masked(" This computer", 3), Masked("\\\\ARCHIVE", 2), Masked("PRACTICE")}));
    EXPECT_EQ(InPlace().Text(), u"abc");
}

TEST_F(RowEdit, TheFourKeysAreSentToTheListAsKeysThatGoDown) {
    OpenRows();
    for (const int code : {key::kUp, key::kDown, key::kPageUp, key::kPageDown}) {
        Edit(1);
        world.calls.Clear();
        user.Press(code);
        const std::string list = std::to_string(List().Peer()->Window());
        EXPECT_EQ(CallsOf({"SendMessageW"}),
                  Lines{"SendMessageW(\"" + list + "\", \"256\", \"" + std::to_string(code) + "\", \"1\")"});
    }
}

TEST_F(RowEdit, TheFourKeysGoNoFartherThanTheForm) {
    OpenRows();
    Edit(1);
    for (const int code : {key::kUp, key::kDown, key::kPageUp, key::kPageDown}) {
        int passed_on = code;
        InPlace().KeyDown(passed_on, 0);
        EXPECT_EQ(passed_on, 0) << code;
    }
}

TEST_F(RowEdit, AllOtherKeysStayInTheBox) {
    OpenRows();
    TypeOld(1, u"abc");
    world.calls.Clear();
    for (const int code : {key::kLeft, key::kRight, key::kHome, key::kEnd, kDelete, 37, 39, 32, 41}) {
        int passed_on = code;
        InPlace().KeyDown(passed_on, 0);
        EXPECT_EQ(passed_on, code);
    }
    user.Press(key::kHome);
    user.Type(u"x");
    EXPECT_EQ(InPlace().Text(), u"xabc");
    EXPECT_EQ(world.calls.Count("SendMessageW"), 0U);
    EXPECT_EQ(List().ListIndex(), 1);
}

TEST_F(RowEdit, InTheSingleModeTheFourKeysStayInTheBox) {
    Open();
    for (const int code : {key::kUp, key::kDown, key::kPageUp, key::kPageDown}) {
        int passed_on = code;
        InPlace().KeyDown(passed_on, 0);
        EXPECT_EQ(passed_on, code);
    }
    EXPECT_EQ(world.calls.Count("SendMessageW"), 0U);
    EXPECT_EQ(List().ListIndex(), -1);
}

TEST_F(RowEdit, InTheSingleModeTheListStaysATabStopAndIsNotWrittenTo) {
    Open();
    TypeInto(u"txtOldPass", u"abc");
    EXPECT_TRUE(List().TabStop());
    Leave();
    EXPECT_EQ(Rows().at(0), Masked(" This computer"));
    EXPECT_TRUE(InPlace().Visible());
    EXPECT_EQ(InPlace().Text(), u"abc");
}

TEST_F(RowEdit, ARowThatIsHalfScrolledOutGetsNoBox) {
    OpenRowsOf(6);
    List().SetHeight(735); // 45 pixels inside: three rows and six pixels of the fourth
    ASSERT_TRUE(user.ChooseRow(List(), 3));
    EXPECT_EQ(List().ListIndex(), 3);
    EXPECT_EQ(form->ActiveControl(), &List());
    EXPECT_FALSE(InPlace().Visible());
    ASSERT_TRUE(user.ChooseRow(List(), 2));
    EXPECT_TRUE(EditIsOpen());
}

TEST_F(RowEdit, ARowThatFillsTheListToItsLastPixelGetsItsBox) {
    OpenRowsOf(6);
    List().SetHeight(645); // 39 pixels inside
    Edit(2);
    List().SetHeight(630);
    Leave();
    ASSERT_TRUE(user.ChooseRow(List(), 2));
    EXPECT_FALSE(InPlace().Visible());
}

TEST_F(RowEdit, ScrollingWithTheBoxOpenCommitsAndOpensItAtTheRowsNewPlace) {
    OpenRowsOf(9);
    TypeOld(2, u"abc");
    user.ScrollTo(List(), 1);
    EXPECT_EQ(Rows().at(2), Masked("\\\\S00002", 3));
    EXPECT_TRUE(EditIsOpen());
    ExpectBoxAt(1545, 2610);
    EXPECT_EQ(InPlace().Text(), u"abc");
    EXPECT_EQ(InPlace().SelLength(), 3);
}

TEST_F(RowEdit, ScrollingTheRowOutOfViewCommitsAndLeavesTheFocusInTheList) {
    OpenRowsOf(9);
    TypeOld(0, u"abc");
    user.ScrollTo(List(), 1);
    EXPECT_EQ(Rows().at(0), Masked("\\\\S00000", 3));
    EXPECT_FALSE(InPlace().Visible());
    EXPECT_EQ(form->ActiveControl(), &List());
    EXPECT_EQ(List().ListIndex(), 0);
}

TEST_F(RowEdit, ScrollingTheRowBackIntoViewOpensItsBoxAgain) {
    OpenRowsOf(9);
    TypeOld(0, u"abc");
    user.ScrollTo(List(), 3);
    ASSERT_EQ(form->ActiveControl(), &List());
    user.ScrollTo(List(), 0);
    EXPECT_TRUE(EditIsOpen());
    EXPECT_EQ(InPlace().Text(), u"abc");
    ExpectBoxAt(1350, 2610);
}

TEST_F(RowEdit, ScrollingBringsTheFocusToTheListFromElsewhere) {
    OpenRowsOf(9);
    Leave();
    user.ScrollTo(List(), 2);
    EXPECT_EQ(List().ListIndex(), 0);
    EXPECT_TRUE(EditIsOpen()) << "the first row becomes the current one, which brings it into view";
}

TEST_F(RowEdit, WithAnEmptyListFocusAndClickDoNothing) {
    Configure({}, false);
    Open();
    ASSERT_TRUE(user.ClickOn(Same()));
    ASSERT_EQ(Same().Value(), 0);
    user.ClickOn(List());
    EXPECT_EQ(form->ActiveControl(), &List());
    EXPECT_FALSE(InPlace().Visible());
    EXPECT_EQ(List().ListIndex(), -1);
    List().Click();
    EXPECT_FALSE(InPlace().Visible());
    user.Press(key::kDown);
    EXPECT_EQ(form->ActiveControl(), &List());
}

TEST_F(RowEdit, WithAnEmptyListTheModeSwitchedByCodeDoesNothingToTheList) {
    Configure({}, false);
    Open();
    ASSERT_EQ(form->ActiveControl(), &InPlace());
    Same().SetValue(0);
    EXPECT_EQ(Rows(), Lines{});
    EXPECT_FALSE(InPlace().Visible());
}

TEST_F(RowEdit, InTheSingleModeTheListOpensNoBox) {
    Open();
    const Twips top = InPlace().Top();
    List().Click();
    List().GotFocus();
    EXPECT_EQ(InPlace().Top(), top);
    EXPECT_EQ(List().ListIndex(), -1);
}

TEST_F(RowEdit, ADisabledBoxIsNotOpened) {
    OpenRows();
    InPlace().SetEnabled(false);
    ASSERT_TRUE(user.ChooseRow(List(), 1));
    EXPECT_EQ(form->ActiveControl(), &List());
    EXPECT_FALSE(InPlace().Visible());
}

TEST_F(RowEdit, EscapeBelongsToCancelAndClosesTheWindow) {
    OpenRows();
    TypeOld(1, u"abc");
    user.Press(key::kEscape);
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(RowEdit, TheBoxOverARowHasTheTintAndLosesItWhenLeft) {
    OpenRows();
    Edit(1);
    EXPECT_EQ(InPlace().BackColor(), 0xBFFFFFU);
    Leave();
    EXPECT_EQ(InPlace().BackColor(), 0x80000005U);
}

TEST_F(RowEdit, ARowWhosePasswordIsStoredUnderAnotherCaseIsTheSame) {
    OpenRows();
    TypeOld(1, u"abc");
    Visit([](Form&) { Configure({u"\\\\Archive", u"PRACTICE"}, true); });
    Edit(1);
    EXPECT_EQ(InPlace().Text(), u"abc");
    SelectAllAndDelete();
    Leave();
    EXPECT_FALSE(OkEnabled());
}

} // namespace kestrelmoor::tests

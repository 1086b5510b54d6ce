#include "tests/native/forms/settings_window.h"

namespace kestrelmoor::tests {

namespace {

class SettingsServers : public SettingsWindow {
  protected:
    bool EntryIsOpen() { return Entry().Visible() && form->ActiveControl() == &Entry(); }

    void OpenWith(const StringList& servers, const std::vector<bool>& active = {}) {
        Configure(servers, active);
        Open();
    }

    void ExpectEntryAt(Twips left, Twips top, Twips width, Twips height) {
        EXPECT_EQ(Entry().Left(), left);
        EXPECT_EQ(Entry().Top(), top);
        EXPECT_EQ(Entry().Width(), width);
        EXPECT_EQ(Entry().Height(), height);
    }
};

} // namespace

TEST_F(SettingsServers, AddOpensTheEntryOverANewCheckedRow) {
    Open();
    Click(u"cmdAddServer");
    EXPECT_EQ(Rows(), Lines{"* ..."});
    EXPECT_EQ(CurrentRow(), "...");
    EXPECT_TRUE(EntryIsOpen());
    EXPECT_EQ(ToUtf8(Entry().Computer()), "");
}

TEST_F(SettingsServers, TheEntryLeavesTheCheckMarkOfItsRowUncovered) {
    // The list stands at 240, 240 in the frame with a border of two pixels, and shows 197 pixels of a row.
    Open();
    Click(u"cmdAddServer");
    ExpectEntryAt(495, 270, 2730, 195);
}

TEST_F(SettingsServers, TheEntryStandsOverItsRowWhereverThatIs) {
    OpenWith({u"!1", u"!2"});
    Click(u"cmdAddServer");
    ASSERT_EQ(List().ListIndex(), 2);
    ExpectEntryAt(495, 660, 2730, 195);
}

TEST_F(SettingsServers, WhereTheListHasABarTheEntryEndsAheadOfIt) {
    OpenWith({u"!1", u"!2", u"!3", u"!4"});
    Click(u"cmdAddServer");
    EXPECT_TRUE(EntryIsOpen());
    ExpectEntryAt(495, 855, 2475, 195);
}

TEST_F(SettingsServers, TheAutomaticCheckOfTheNewRowIsNoChange) {
    Open();
    Click(u"cmdAddServer");
    EXPECT_FALSE(OkEnabled());
}

TEST_F(SettingsServers, AnEntryLeftEmptyVanishesAndIsNoChange) {
    OpenWith({u"ARCHIVE"});
    Click(u"cmdAddServer");
    Leave();
    EXPECT_EQ(Rows(), Lines{"ARCHIVE"});
    EXPECT_EQ(CurrentRow(), "none");
    EXPECT_FALSE(Entry().Visible());
    EXPECT_FALSE(OkEnabled());
}

TEST_F(SettingsServers, ATypedNameBecomesACheckedRowThatIsCurrent) {
    OpenWith({u"ARCHIVE", u"ZEBRA"});
    AddName(u"PRACTICE");
    Leave();
    EXPECT_EQ(Rows(), (Lines{"ARCHIVE", "* PRACTICE", "ZEBRA"}));
    EXPECT_EQ(CurrentRow(), "PRACTICE");
    EXPECT_FALSE(Entry().Visible());
    EXPECT_EQ(ToUtf8(Entry().Computer()), "");
    EXPECT_TRUE(OkEnabled());
}

TEST_F(SettingsServers, TypingIsAChange) {
    Open();
    AddName(u"P");
    EXPECT_TRUE(OkEnabled());
}

TEST_F(SettingsServers, ANewRowIsAChangeEvenWhereNobodyTyped) {
    Open();
    Click(u"cmdAddServer");
    EntryBox().Change = nullptr;
    Entry().SetComputer(u"PRACTICE");
    ASSERT_FALSE(OkEnabled());
    Leave();
    EXPECT_EQ(Rows(), Lines{"* PRACTICE"});
    EXPECT_TRUE(OkEnabled());
}

TEST_F(SettingsServers, ANameThatIsListedInAnotherCaseIsShownAndNotAdded) {
    OpenWith({u"ARCHIVE", u"server"});
    AddName(u"SERVER");
    Leave();
    EXPECT_EQ(Rows(), (Lines{"ARCHIVE", "server"}));
    EXPECT_EQ(CurrentRow(), "server");
    EXPECT_TRUE(OkEnabled()) << "the typing was a change";
}

TEST_F(SettingsServers, ANameThatIsListedIsNoChangeByItself) {
    OpenWith({u"server"});
    Click(u"cmdAddServer");
    EntryBox().Change = nullptr;
    Entry().SetComputer(u"Server");
    Leave();
    EXPECT_EQ(Rows(), Lines{"server"});
    EXPECT_EQ(CurrentRow(), "server");
    EXPECT_FALSE(OkEnabled());
}

TEST_F(SettingsServers, ClearingTheEntryAsItClosesIsNoChange) {
    OpenWith({u"server"});
    Entry().SetComputer(u"SERVER"); // while it is hidden
    Click(u"cmdAddServer");
    Leave();
    EXPECT_EQ(Rows(), Lines{"server"});
    EXPECT_EQ(ToUtf8(Entry().Computer()), "");
    EXPECT_FALSE(OkEnabled());
}

TEST_F(SettingsServers, NamesBeyondEnglishAreComparedWithoutCaseToo) {
    OpenWith({u"\u00E4rger", u"\u0441\u0435\u0440\u0432\u0435\u0440"});
    AddName(u"\u00C4RGER");
    Leave();
    AddName(u"\u0421\u0415\u0420\u0412\u0415\u0420");
    Leave();
    EXPECT_EQ(List().ListCount(), 2);
    EXPECT_EQ(CurrentRow(), "\u0441\u0435\u0440\u0432\u0435\u0440");
}

TEST_F(SettingsServers, AListedNameBehindThePlaceholderIsFoundToo) {
    OpenWith({u"\\\\ARCHIVE", u"zebra"});
    AddName(u"ZEBRA");
    Leave();
    EXPECT_EQ(Rows(), (Lines{"\\\\ARCHIVE", "zebra"}));
    EXPECT_EQ(CurrentRow(), "zebra");
    AddName(u"\\\\archive");
    Leave();
    EXPECT_EQ(CurrentRow(), "\\\\ARCHIVE");
}

TEST_F(SettingsServers, AListedNameAheadOfThePlaceholderIsFoundToo) {
    OpenWith({u"!one", u"\\\\ARCHIVE"});
    AddName(u"!ONE");
    Leave();
    EXPECT_EQ(Rows(), (Lines{"!one", "\\\\ARCHIVE"}));
    EXPECT_EQ(CurrentRow(), "!one");
}

TEST_F(SettingsServers, AServerAndADomainOfTheSameNameAreTwo) {
    OpenWith({u"ARCHIVE"});
    AddName(u"\\\\ARCHIVE");
    Leave();
    EXPECT_EQ(List().ListCount(), 2);
}

TEST_F(SettingsServers, ThreeDotsAreARowOfTheirOwn) {
    Open();
    Click(u"cmdAddServer");
    EntryBox().Change = nullptr;
    Entry().SetComputer(u"...");
    Leave();
    EXPECT_EQ(Rows(), Lines{"* ..."});
    EXPECT_FALSE(Entry().Visible());
    EXPECT_TRUE(OkEnabled()) << "by the row itself: its check is no change";
}

TEST_F(SettingsServers, AClickOnAddClosesTheOpenEntryAndOpensAnother) {
    Open();
    AddName(u"PRACTICE");
    Click(u"cmdAddServer");
    EXPECT_EQ(Rows(), (Lines{"* ...", "* PRACTICE"}));
    EXPECT_EQ(CurrentRow(), "...");
    EXPECT_TRUE(EntryIsOpen());
    EXPECT_EQ(ToUtf8(Entry().Computer()), "");
    Type(u"ARCHIVE");
    Leave();
    EXPECT_EQ(Rows(), (Lines{"* ARCHIVE", "* PRACTICE"}));
}

TEST_F(SettingsServers, TwoEntriesLeftEmptyLeaveNothingBehind) {
    Open();
    Click(u"cmdAddServer");
    Click(u"cmdAddServer");
    EXPECT_EQ(Rows(), Lines{"* ..."});
    Leave();
    EXPECT_EQ(Rows(), Lines{});
}

TEST_F(SettingsServers, TabAndTheKeyboardCloseTheEntryToo) {
    Open();
    AddName(u"PRACTICE");
    user.Press(key::kTab); // to the entry's own button
    EXPECT_TRUE(EntryIsOpen());
    user.Press(key::kTab);
    EXPECT_EQ(form->ActiveControl(), &At(u"cmdAddServer"));
    EXPECT_EQ(Rows(), Lines{"* PRACTICE"});
}

TEST_F(SettingsServers, ALostFocusWithoutAPlaceholderChangesNothing) {
    OpenWith({u"ARCHIVE"});
    Click(u"cmdAddServer");
    Type(u"PRACTICE");
    List().RemoveItem(List().ListIndex());
    Leave();
    EXPECT_EQ(Rows(), Lines{"ARCHIVE"});
    EXPECT_FALSE(Entry().Visible());
    EXPECT_EQ(ToUtf8(Entry().Computer()), "");
}

TEST_F(SettingsServers, WhereTheNewRowCantBeSeenWholeAddDoesNothing) {
    OpenWith({u"ARCHIVE"});
    List().SetHeight(150);
    Click(u"cmdAddServer");
    EXPECT_EQ(Rows(), Lines{"ARCHIVE"});
    EXPECT_FALSE(Entry().Visible());
    EXPECT_FALSE(OkEnabled());
    EXPECT_EQ(form->ActiveControl(), &At(u"cmdAddServer"));
}

TEST_F(SettingsServers, WhereTheNewRowHasNoPlaceAddDoesNothing) {
    OpenWith({u"ARCHIVE"});
    world.Fail("GetListItemRectangle", 1, 0);
    Click(u"cmdAddServer");
    EXPECT_EQ(Rows(), Lines{"ARCHIVE"});
    EXPECT_FALSE(Entry().Visible());
}

TEST_F(SettingsServers, ThePlaceOfTheNewRowIsAskedForInTheFrame) {
    Open();
    world.calls.Clear();
    Click(u"cmdAddServer");
    const std::string list = std::to_string(List().Peer()->Window());
    const std::string frame = std::to_string(At(u"fraNetPwd").Peer()->Window());
    EXPECT_EQ(CallsOf({"GetListItemRectangle", "GetClientRect", "MapWindowPoints"}),
              (Lines{"GetListItemRectangle(\"" + list + "\", \"0\")", "GetClientRect(\"" + list + "\")",
                     "MapWindowPoints(\"" + list + "\", \"" + frame + "\")"}));
}

TEST_F(SettingsServers, EscapeInTheEntryCancelsTheWindow) {
    Open();
    AddName(u"PRACTICE");
    user.Press(key::kEscape);
    EXPECT_TRUE(form->IsUnloaded());
    EXPECT_EQ(gServerCount, 0);
}

TEST_F(SettingsServers, RemoveTakesTheCurrentRowOutAndIsAChange) {
    OpenWith({u"ARCHIVE", u"PRACTICE"}, {true, true});
    user.ChooseRow(List(), 0);
    EXPECT_TRUE(At(u"cmdRemServer").Enabled());
    Click(u"cmdRemServer");
    EXPECT_EQ(Rows(), Lines{"* PRACTICE"});
    EXPECT_EQ(CurrentRow(), "none");
    EXPECT_TRUE(OkEnabled());
    EXPECT_FALSE(At(u"cmdRemServer").Enabled());
}

TEST_F(SettingsServers, RemoveWithNoCurrentRowTakesNothingOutAndIsDisabledFromThen) {
    OpenWith({u"ARCHIVE"});
    ASSERT_EQ(CurrentRow(), "none");
    Click(u"cmdRemServer");
    EXPECT_EQ(Rows(), Lines{"ARCHIVE"});
    EXPECT_FALSE(OkEnabled());
    EXPECT_FALSE(At(u"cmdRemServer").Enabled());
    user.ChooseRow(List(), 0);
    EXPECT_TRUE(At(u"cmdRemServer").Enabled());
}

TEST_F(SettingsServers, RemoveWithTheKeyboardMovesTheFocusOnToWhatCanTakeIt) {
    OpenWith({u"ARCHIVE"});
    user.ChooseRow(List(), 0);
    user.Press(key::kTab);
    user.Press(key::kTab);
    ASSERT_EQ(form->ActiveControl(), &At(u"cmdRemServer"));
    user.Press(key::kSpace);
    EXPECT_EQ(Rows(), Lines{});
    EXPECT_EQ(form->ActiveControl(), &At(u"chkRemind"));
}

TEST_F(SettingsServers, TheListGettingTheFocusMakesItsFirstRowCurrent) {
    OpenWith({u"ARCHIVE", u"PRACTICE"});
    List().SetFocus();
    EXPECT_EQ(CurrentRow(), "ARCHIVE");
    EXPECT_TRUE(At(u"cmdRemServer").Enabled());
}

TEST_F(SettingsServers, TheListGettingTheFocusKeepsTheRowThatIsCurrent) {
    OpenWith({u"ARCHIVE", u"PRACTICE"});
    user.ChooseRow(List(), 1);
    Click(u"txtRemind");
    List().SetFocus();
    EXPECT_EQ(CurrentRow(), "PRACTICE");
}

TEST_F(SettingsServers, AnEmptyListThatGetsTheFocusStaysWithoutACurrentRow) {
    Open();
    List().SetFocus();
    EXPECT_EQ(form->ActiveControl(), &List());
    EXPECT_EQ(List().ListIndex(), -1);
    EXPECT_FALSE(form->IsUnloaded());
}

TEST_F(SettingsServers, CheckingAndUncheckingARowIsAChange) {
    for (const bool active : {false, true}) {
        OpenWith({u"ARCHIVE"}, {active});
        user.ToggleRow(List(), 0);
        EXPECT_EQ(Rows(), Lines{active ? "ARCHIVE" : "* ARCHIVE"});
        EXPECT_TRUE(OkEnabled());
        form->Unload();
    }
}

TEST_F(SettingsServers, SpaceTurnsTheCheckOfTheCurrentRow) {
    OpenWith({u"ARCHIVE", u"PRACTICE"});
    user.ChooseRow(List(), 1);
    ASSERT_FALSE(OkEnabled());
    Type(u" ");
    EXPECT_EQ(Rows(), (Lines{"ARCHIVE", "* PRACTICE"}));
    EXPECT_TRUE(OkEnabled());
}

TEST_F(SettingsServers, AnotherRowIsMetByTheMouseThoughThePlaceholderGoesMeanwhile) {
    OpenWith({u"ARCHIVE", u"ZEBRA"}, {true, false});
    Click(u"cmdAddServer");
    ASSERT_EQ(Rows(), (Lines{"* ...", "* ARCHIVE", "ZEBRA"}));
    user.ToggleRow(List(), 2);
    EXPECT_EQ(Rows(), (Lines{"* ARCHIVE", "* ZEBRA"}));
    EXPECT_EQ(CurrentRow(), "ZEBRA");
}

TEST_F(SettingsServers, AStoredServerOfThreeDotsIsTakenForThePlaceholder) {
    OpenWith({u"..."}, {true});
    user.ToggleRow(List(), 0);
    EXPECT_EQ(Rows(), Lines{"..."});
    EXPECT_FALSE(OkEnabled());
}

TEST_F(SettingsServers, ChoosingARowIsNoChange) {
    OpenWith({u"ARCHIVE"});
    user.ChooseRow(List(), 0);
    EXPECT_FALSE(OkEnabled());
}

} // namespace kestrelmoor::tests

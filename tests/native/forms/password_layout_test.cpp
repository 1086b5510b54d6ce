#include "tests/native/forms/password_window.h"
#include "tests/native/support/recording_desktop.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

class PasswordLayout : public PasswordWindow {
  protected:
    PasswordLayout() {
        ConfigureAll();
        Open();
    }

    void ExpectTops(const std::vector<std::pair<const char16_t*, Twips>>& tops) {
        for (const auto& [name, top] : tops)
            EXPECT_EQ(At(name).Top(), top) << ToUtf8(name);
    }

    void ExpectSingleMode() {
        ExpectTops({{u"lblUser", 165},
                    {u"txtUser", 120},
                    {u"txtStatus", 600},
                    {u"chkSame", 600},
                    {u"txtOldPass", 960},
                    {u"lblOldPass", 1005},
                    {u"txtNewPass", 1440},
                    {u"lblNewPass", 1485},
                    {u"txtConfirm", 1800},
                    {u"lblConfirm", 1845},
                    {u"cmdSettings", 2280},
                    {u"cmdOK", 2280},
                    {u"cmdCancel", 2280},
                    {u"lblWait", 2400}});
        EXPECT_EQ(form->ClientHeight(), 2775);
        EXPECT_EQ(Box(u"txtOldPass").BorderStyle(), 1);
        EXPECT_EQ(VisibleControls(),
                  (Lines{"lblUser", "txtUser", "chkSame", "lblOldPass", "txtOldPass", "lblNewPass",
                         "txtNewPass", "lblConfirm", "txtConfirm", "cmdSettings", "cmdOK", "cmdCancel"}));
    }

    void ExpectListMode() {
        ExpectTops({{u"lblUser", 165},
                    {u"txtUser", 120},
                    {u"txtStatus", 600},
                    {u"chkSame", 600},
                    {u"lblOldPass", 1005},
                    {u"lstOldPass", 1320},
                    {u"txtNewPass", 2280},
                    {u"lblNewPass", 2325},
                    {u"txtConfirm", 2640},
                    {u"lblConfirm", 2685},
                    {u"cmdSettings", 3120},
                    {u"cmdOK", 3120},
                    {u"cmdCancel", 3120},
                    {u"lblWait", 3240}});
        EXPECT_EQ(form->ClientHeight(), 3615);
        EXPECT_EQ(Box(u"txtOldPass").BorderStyle(), 0);
        EXPECT_EQ(VisibleControls(),
                  (Lines{"lblUser", "txtUser", "chkSame", "lblOldPass", "lstOldPass", "lblNewPass",
                         "txtNewPass", "lblConfirm", "txtConfirm", "cmdSettings", "cmdOK", "cmdCancel"}));
    }
};

} // namespace

TEST_F(PasswordLayout, OpensInTheSingleModeWithTheGapsClosed) {
    ExpectSingleMode();
}

TEST_F(PasswordLayout, OpeningLeavesLeftsWidthsAndHeightsAsDesigned) {
    EXPECT_EQ(At(u"txtOldPass").Left(), 2160);
    EXPECT_EQ(At(u"txtOldPass").Width(), 2895);
    EXPECT_EQ(At(u"txtOldPass").Height(), 285);
    EXPECT_EQ(At(u"lstOldPass").Height(), 840);
    EXPECT_EQ(At(u"cmdOK").Left(), 2160);
    EXPECT_EQ(At(u"cmdCancel").Left(), 3660);
    EXPECT_EQ(form->ClientWidth(), 5175);
}

TEST_F(PasswordLayout, ClearingTheCheckBoxShowsTheListAndMovesTheRestDown) {
    ASSERT_TRUE(user.ClickOn(Same()));
    ExpectListMode();
}

TEST_F(PasswordLayout, SwitchingBackAndForthEndsInTheSamePlaces) {
    for (int turn = 0; turn < 3; ++turn) {
        user.ClickOn(Same());
        ExpectListMode();
        user.ClickOn(Same());
        ExpectSingleMode();
    }
}

TEST_F(PasswordLayout, TheOldPasswordOfTheSingleModeComesBack) {
    TypeInto(u"txtOldPass", u"mine");
    Same().SetValue(0);
    EXPECT_EQ(Box(u"txtOldPass").Text(), u"mine");
    Box(u"txtOldPass").SetText(u"");
    Same().SetValue(1);
    EXPECT_EQ(Box(u"txtOldPass").Text(), u"mine");
}

TEST_F(PasswordLayout, TheOldPasswordBoxComesBackToThePlaceThatItHadWhenTheListCame) {
    Same().SetValue(0);
    Box(u"txtOldPass").Move(2160, 1335, 2700, 195);
    Same().SetValue(1);
    ExpectSingleMode();
    EXPECT_EQ(At(u"txtOldPass").Left(), 2160);
    EXPECT_EQ(At(u"txtOldPass").Width(), 2895);
    EXPECT_EQ(At(u"txtOldPass").Height(), 285);
}

TEST_F(PasswordLayout, TheLabelNamesTheOldPasswordsOfTheMode) {
    EXPECT_EQ(LabelAt(u"lblOldPass").Tag(), u"&Old password:");
    EXPECT_EQ(CaptionOf(u"lblOldPass"), "Old password:");
    Same().SetValue(0);
    EXPECT_EQ(LabelAt(u"lblOldPass").Tag(), u"&Old passwords (select a row, then type):");
    EXPECT_EQ(CaptionOf(u"lblOldPass"), "Old passwords (select a row, then type):");
    form->ICue_Cue();
    Same().SetValue(1);
    EXPECT_EQ(CaptionOf(u"lblOldPass"), "&Old password:");
    Same().SetValue(0);
    EXPECT_EQ(CaptionOf(u"lblOldPass"), "&Old passwords (select a row, then type):");
}

TEST_F(PasswordLayout, TheListIsThereBeforeTheBoxGoesSoThatTheFocusStaysWithTheOldPasswords) {
    ASSERT_EQ(form->ActiveControl(), &At(u"txtOldPass"));
    Same().SetValue(0);
    EXPECT_EQ(form->ActiveControl(), &At(u"txtOldPass")) << "over the first row now";
    EXPECT_EQ(List().ListIndex(), 0);
    EXPECT_EQ(At(u"txtOldPass").Top(), 1350);
}

TEST_F(PasswordLayout, TheListIsShownOrHiddenAheadOfTheBox) {
    form->Unload();
    RecordingDesktop desktop;
    Open();
    for (const int mode : {0, 1}) {
        desktop.Take();
        Same().SetValue(mode);
        const Lines record = desktop.Take();
        const auto list = std::find(record.begin(), record.end(), "lstOldPass Visible");
        const auto box = std::find(record.begin(), record.end(), "txtOldPass Visible");
        EXPECT_NE(box, record.end()) << mode;
        EXPECT_LT(list, box) << mode;
    }
}

TEST_F(PasswordLayout, TheOuterHeightHasTheFrameOnTop) {
    EXPECT_EQ(form->Height() - form->ClientHeight(), form->Peer()->FrameHeight());
    EXPECT_GT(form->Peer()->FrameHeight(), 0);
}

TEST_F(PasswordLayout, AMaskColumnBeginsAt89DialogUnits) {
    EXPECT_EQ(List().TabStops(), std::vector<int>{89});
}

} // namespace kestrelmoor::tests

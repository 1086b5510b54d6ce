#include "tests/native/support/probe_form.h"
#include "tests/native/support/recording_desktop.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

using Record = RecordingDesktop::Record;

class FormPeers : public testing::Test {
  protected:
    void TearDown() override { Application::Current().UnloadAll(); }

    void ShowForm() {
        form->Show();
        desktop.Take();
    }

    RecordingDesktop desktop;
    std::shared_ptr<ProbeForm> form = MakeProbe();
};

TEST_F(FormPeers, LoadingMakesThemInTheOrderOfTheDesignAndHidden) {
    form->load = [this] { desktop.Note("Load"); };
    form->Load();
    EXPECT_EQ(desktop.Take(),
              (Record{"frmProbe made", "lblText made", "txtText made", "fraGroup made", "chkMark made",
                      "lstRows made", "lstMarks made", "cboRows made", "cmdOK made", "tmrTick made",
                      "picIcon made", "linRule made", "shpBand made", "Load"}));
    EXPECT_FALSE(form->Visible());
    EXPECT_EQ(form->Window(), 42U);
}

TEST_F(FormPeers, WhatAWindowReportsWhenItLosesTheKeyboardMayMoveTheFocusOn) {
    ShowForm();
    form->txtText.LostFocus = [this] { desktop.Note("txtText LostFocus"); };
    form->chkMark.GotFocus = [this] { desktop.Note("chkMark GotFocus"); };
    form->cmdOK.GotFocus = [this] { desktop.Note("cmdOK GotFocus"); };
    form->cmdOK.LostFocus = [this] { desktop.Note("cmdOK LostFocus"); };
    desktop.when_focus_is_taken = [this] { form->cmdOK.SetFocus(); };
    form->chkMark.SetFocus();
    EXPECT_EQ(form->ActiveControl(), &form->cmdOK);
    const Record expected{"chkMark takes focus", "cmdOK takes focus", "txtText LostFocus", "cmdOK GotFocus"};
    Record events = desktop.Take();
    std::erase(events, "cmdOK Default");
    EXPECT_EQ(events, expected);
}

TEST_F(FormPeers, LoadingASecondTimeDoesNothing) {
    form->Load();
    desktop.Take();
    form->Load();
    EXPECT_EQ(desktop.Take(), Record{});
}

TEST_F(FormPeers, ShowingFollowsLoadingAndTakesTheFocus) {
    form->Load();
    desktop.Take();
    form->txtText.GotFocus = [this] { desktop.Note("GotFocus"); };
    form->Show();
    EXPECT_EQ(desktop.Take(), (Record{"frmProbe shown", "txtText takes focus", "GotFocus"}));
}

TEST_F(FormPeers, AnUnloadedFormIsHiddenAndEndsThemFromTheLastToTheFirst) {
    ShowForm();
    form->unload = [this] { desktop.Note(form->IsLoaded() ? "Unload, loaded" : "Unload, not loaded"); };
    form->Unload();
    EXPECT_EQ(desktop.Take(), (Record{"Unload, loaded", "frmProbe hidden", "shpBand ended", "linRule ended",
                                      "picIcon ended", "tmrTick ended", "cmdOK ended", "cboRows ended",
                                      "lstMarks ended", "lstRows ended", "chkMark ended", "fraGroup ended",
                                      "txtText ended", "lblText ended", "frmProbe ended"}));
    EXPECT_EQ(form->Window(), 0U);
}

TEST_F(FormPeers, SettersOnAnUnloadedFormReachNobody) {
    ShowForm();
    form->Unload();
    desktop.Take();
    form->txtText.SetText(u"x");
    form->lstRows.AddItem(u"x");
    form->lstRows.SetListIndex(0);
    form->cmdOK.SetEnabled(false);
    form->txtText.SetFocus();
    form->SetCaption(u"x");
    form->Show();
    EXPECT_EQ(desktop.Take(), Record{});
}

TEST_F(FormPeers, EachPropertyOfAControlIsShown) {
    ShowForm();
    form->lblText.SetCaption(u"x");
    form->lblText.SetTop(30);
    form->lblText.SetForeColor(0xFF);
    form->lblText.SetBackColor(0xFF);
    form->lblText.SetToolTipText(u"x");
    form->lblText.Font().SetBold(true);
    form->lblText.SetVisible(false);
    form->txtText.SetText(u"xyz");
    form->txtText.SetSelStart(1);
    form->txtText.SetPasswordChar(u"");
    form->txtText.SetBorderStyle(0);
    form->chkMark.SetValue(0);
    form->lstRows.SetTabStops({89});
    form->tmrTick.SetInterval(50);
    form->tmrTick.SetEnabled(true);
    EXPECT_EQ(desktop.Take(),
              (Record{"lblText Caption", "lblText Place", "lblText Colours", "lblText Colours",
                      "lblText ToolTip", "lblText Font", "lblText Visible", "txtText Text",
                      "txtText Selection", "txtText PasswordChar", "txtText BorderStyle", "chkMark Value",
                      "lstRows TabStops", "tmrTick Interval", "tmrTick Enabled"}));
}

TEST_F(FormPeers, EachPropertyOfAFormIsShown) {
    ShowForm();
    form->SetCaption(u"x");
    form->SetMousePointer(mouse_pointer::kHourglass);
    form->SetBackColor(0xFF);
    form->SetForeColor(0xFF);
    form->Font().SetSize(12);
    form->SetHeight(3000);
    EXPECT_EQ(desktop.Take(), (Record{"frmProbe Caption", "frmProbe MousePointer", "frmProbe Colours",
                                      "frmProbe Colours", "frmProbe Font", "frmProbe Place"}));
}

TEST_F(FormPeers, AValueThatStaysIsNotShownAnew) {
    ShowForm();
    form->txtText.SetText(u"abc");
    form->txtText.SetBorderStyle(1);
    form->chkMark.SetValue(1);
    form->cmdOK.SetEnabled(true);
    form->lblText.SetVisible(true);
    form->lblText.Font().SetBold(false);
    EXPECT_EQ(desktop.Take(), Record{});
}

TEST_F(FormPeers, TheWindowIsShownAheadOfTheEvent) {
    ShowForm();
    form->txtText.Change = [this] { desktop.Note("Change"); };
    form->chkMark.Click = [this] { desktop.Note("Click"); };
    form->txtText.SetText(u"x");
    form->chkMark.SetValue(0);
    EXPECT_EQ(desktop.Take(), (Record{"txtText Text", "Change", "chkMark Value", "Click"}));
}

TEST_F(FormPeers, TheUsersInputIsNotEchoed) {
    ShowForm();
    form->lstRows.AddItem(u"x");
    desktop.Take();
    form->txtText.Edited(u"abcd");
    form->lstRows.RowChosen(0);
    form->FocusMoved(&form->lstRows);
    EXPECT_EQ(desktop.Take(), Record{});
    EXPECT_EQ(form->ActiveControl(), &form->lstRows);
}

TEST_F(FormPeers, RowsAreToldAtTheirPlace) {
    ShowForm();
    form->lstRows.AddItem(u"b");
    form->lstRows.AddItem(u"a");
    form->lstRows.SetList(1, u"c");
    form->lstRows.RemoveItem(0);
    form->lstRows.Clear();
    EXPECT_EQ(desktop.Take(),
              (Record{"lstRows row inserted 0", "lstRows row inserted 0", "lstRows row replaced 1",
                      "lstRows row removed 0", "lstRows rows cleared"}));
}

TEST_F(FormPeers, ACurrentRowIsShown) {
    ShowForm();
    form->lstRows.AddItem(u"a");
    desktop.Take();
    form->lstRows.SetListIndex(0);
    EXPECT_EQ(desktop.Take(), Record{"lstRows ListIndex"});
}

TEST_F(FormPeers, TheFocusGoesBackWhereTheWindowWentAstray) {
    ShowForm();
    form->cmdOK.SetEnabled(false);
    desktop.Take();
    form->FocusMoved(&form->cmdOK);
    EXPECT_EQ(desktop.Take(), (Record{"txtText takes focus"}));
    EXPECT_EQ(form->ActiveControl(), &form->txtText);
}

TEST_F(FormPeers, WithNoControlLeftTheFormTakesTheFocus) {
    ShowForm();
    for (const auto& control : form->Controls())
        if (control->HasEnabled() && control.get() != &form->txtText)
            control->SetEnabled(false);
    desktop.Take();
    form->txtText.SetEnabled(false);
    EXPECT_EQ(desktop.Take(), (Record{"txtText Enabled", "frmProbe takes focus"}));
}

TEST_F(FormPeers, TheLookOfTheDefaultButtonFollowsTheFocus) {
    ShowForm();
    form->cmdOK.SetFocus();
    EXPECT_EQ(desktop.Take(), (Record{"cmdOK takes focus", "cmdOK Default"}));
    EXPECT_TRUE(form->cmdOK.LooksDefault());
}

TEST_F(FormPeers, TheSelectionIsTheWindowsOwn) {
    ShowForm();
    desktop.selections[u"txtText"] = {1, 2};
    EXPECT_EQ(form->txtText.SelStart(), 1);
    EXPECT_EQ(form->txtText.SelLength(), 2);
    form->txtText.SetSelText(u"xy");
    EXPECT_EQ(form->txtText.Text(), u"axy");
    EXPECT_EQ(desktop.Take(), (Record{"txtText selection replaced by 'xy'"}));
}

TEST_F(FormPeers, EachUseOfTheSelectionAsksTheWindowFirst) {
    ShowForm();
    desktop.selections[u"txtText"] = {1, 2};
    EXPECT_EQ(form->txtText.SelLength(), 2);
    desktop.selections[u"txtText"] = {1, 0};
    EXPECT_EQ(form->txtText.SelLength(), 0);
    desktop.selections[u"txtText"] = {2, 0};
    form->txtText.SetSelLength(40);
    desktop.selections.clear();
    EXPECT_EQ(form->txtText.SelStart(), 2);
    EXPECT_EQ(form->txtText.SelLength(), 1);
    EXPECT_EQ(desktop.Take(), Record{"txtText Selection"});
    desktop.selections[u"txtText"] = {0, 1};
    form->txtText.SetSelText(u"xy");
    EXPECT_EQ(form->txtText.Text(), u"xybc");
}

TEST_F(FormPeers, ASelectionBeyondTheTextIsHeldWithinIt) {
    ShowForm();
    desktop.selections[u"txtText"] = {2, 40};
    EXPECT_EQ(form->txtText.SelStart(), 2);
    EXPECT_EQ(form->txtText.SelLength(), 1);
}

TEST_F(FormPeers, TheOuterHeightAddsTheFrameOfToday) {
    EXPECT_EQ(form->Height(), 5775);
    form->Load();
    EXPECT_EQ(form->Height(), 6210);
    EXPECT_EQ(form->Width(), 5265);
    desktop.frame_height = 500;
    EXPECT_EQ(form->Height(), 6275);
    form->SetHeight(form->Height() - 2160);
    EXPECT_EQ(form->ClientHeight(), 3615);
}

TEST_F(FormPeers, AHeightBelowTheFrameLeavesNoClientArea) {
    form->Load();
    form->SetHeight(100);
    EXPECT_EQ(form->ClientHeight(), 0);
    EXPECT_EQ(form->Height(), 435);
}

TEST_F(FormPeers, PlacesAreOfSinglePrecision) {
    form->lblText.SetTop(16777217.0F);
    EXPECT_EQ(form->lblText.Top(), 16777216.0F);
    form->lblText.Move(0.1F, 0.2F, 0.3F, 0.4F);
    EXPECT_EQ(form->lblText.Left() + form->lblText.Top(), 0.1F + 0.2F);
}

TEST_F(FormPeers, OthersAreOnAgainBeforeAModalWindowGoes) {
    ShowForm();
    const auto modal = MakeProbe(u"frmModal");
    modal->Load();
    desktop.Take();
    desktop.Add([&modal] { modal->CloseRequested(); });
    modal->Show(true, form.get());
    Record seen = desktop.Take();
    seen.resize(5);
    EXPECT_EQ(seen, (Record{"frmProbe disabled", "frmModal shown", "txtText takes focus", "frmProbe enabled",
                            "frmModal hidden"}));
}

} // namespace

} // namespace kestrelmoor::tests

#include "runtime/forms/accelerator.h"
#include "tests/native/support/probe_form.h"
#include "tests/native/support/raised.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

class Controls : public testing::Test {
  protected:
    void TearDown() override { Application::Current().UnloadAll(); }

    std::shared_ptr<ProbeForm> form = MakeProbe();
};

TEST_F(Controls, TheDesignGivesTheFirstValues) {
    EXPECT_EQ(form->Name(), u"frmProbe");
    EXPECT_EQ(form->Tag(), u"303");
    EXPECT_EQ(form->Caption(), u"");
    EXPECT_EQ(form->ClientWidth(), 5175);
    EXPECT_EQ(form->lblText.Caption(), u"&Text");
    EXPECT_EQ(form->lblText.Tag(), u"304");
    EXPECT_EQ(form->lblText.LinkTimeout(), 17);
    EXPECT_EQ(form->txtText.Text(), u"abc");
    EXPECT_EQ(form->txtText.Caption(), u"");
    EXPECT_EQ(form->txtText.PasswordChar(), u"*");
    EXPECT_EQ(form->txtText.BorderStyle(), 1);
    EXPECT_EQ(form->chkMark.Value(), 1);
    EXPECT_EQ(form->chkMark.Container(), &form->fraGroup);
    EXPECT_TRUE(form->cmdOK.Default());
    EXPECT_FALSE(form->cmdOK.Cancel());
    EXPECT_FALSE(form->tmrTick.Running());
    EXPECT_EQ(form->tmrTick.TabIndex(), -1);
}

TEST_F(Controls, AreFoundByNameAndKind) {
    EXPECT_EQ(&form->Get<CommandButton>(u"cmdOK"), &form->cmdOK);
    EXPECT_EQ(form->Controls().front().get(), &form->lblText);
    EXPECT_EQ(form->Controls().back().get(), &form->shpBand);
    EXPECT_EQ(RaisedNumber([this] { form->Find(u"cmdNone"); }), 5);
    EXPECT_THROW(form->Get<Label>(u"cmdOK"), std::bad_cast);
}

TEST_F(Controls, WhatAKindLacksRaises438) {
    EXPECT_EQ(RaisedNumber([this] { form->txtText.SetCaption(u"x"); }), 438);
    EXPECT_EQ(RaisedNumber([this] { form->lstRows.SetCaption(u"x"); }), 438);
    EXPECT_EQ(RaisedNumber([this] { form->linRule.SetEnabled(false); }), 438);
    EXPECT_EQ(RaisedNumber([this] { form->shpBand.SetEnabled(false); }), 438);
    EXPECT_EQ(RaisedNumber([this] { form->fraGroup.SetCaption(u"x"); }), 0);
    EXPECT_FALSE(form->tmrTick.HasFont());
    EXPECT_TRUE(form->picIcon.HasFont());
}

TEST_F(Controls, ValuesOutsideTheirRangeRaise380) {
    EXPECT_EQ(RaisedNumber([this] { form->chkMark.SetValue(2); }), 380);
    EXPECT_EQ(RaisedNumber([this] { form->chkMark.SetValue(-1); }), 380);
    EXPECT_EQ(RaisedNumber([this] { form->tmrTick.SetInterval(-1); }), 380);
    EXPECT_EQ(form->chkMark.Value(), 1);
}

TEST_F(Controls, TheFocusIsRefusedWith5WhereItCantBe) {
    EXPECT_EQ(RaisedNumber([this] { form->txtText.SetFocus(); }), 5);
    form->Show();
    EXPECT_EQ(RaisedNumber([this] { form->cmdOK.SetFocus(); }), 0);
    EXPECT_EQ(RaisedNumber([this] { form->lblText.SetFocus(); }), 5);
    EXPECT_EQ(RaisedNumber([this] { form->picIcon.SetFocus(); }), 5);
    form->txtText.SetVisible(false);
    EXPECT_EQ(RaisedNumber([this] { form->txtText.SetFocus(); }), 5);
    form->fraGroup.SetEnabled(false);
    EXPECT_EQ(RaisedNumber([this] { form->chkMark.SetFocus(); }), 5);
    EXPECT_TRUE(form->chkMark.Enabled());
    EXPECT_EQ(form->ActiveControl(), &form->cmdOK);
}

TEST_F(Controls, APressReachesOnlyWhatIsUsable) {
    int clicks = 0;
    form->cmdOK.Click = [&clicks] { ++clicks; };
    form->cmdOK.Pressed();
    form->cmdOK.SetEnabled(false);
    form->cmdOK.Pressed();
    form->cmdOK.SetEnabled(true);
    form->cmdOK.SetVisible(false);
    form->cmdOK.Pressed();
    EXPECT_EQ(clicks, 1);
    form->fraGroup.SetVisible(false);
    form->chkMark.Pressed();
    EXPECT_EQ(form->chkMark.Value(), 1);
}

TEST_F(Controls, AtMostOneButtonIsTheDefaultOne) {
    EXPECT_EQ(form->DefaultButton(), &form->cmdOK);
    EXPECT_EQ(form->CancelButton(), nullptr);
    form->cmdOK.SetDefault(false);
    EXPECT_EQ(form->DefaultButton(), nullptr);
    form->Show();
    EXPECT_FALSE(form->KeyDown(key::kReturn, 0));
    EXPECT_FALSE(form->KeyDown(key::kEscape, 0));
}

TEST_F(Controls, KeysWithCtrlOrAltAreNotRouted) {
    form->Show();
    form->cmdOK.SetFocus();
    for (const int routed : {key::kTab, key::kReturn, key::kLeft, key::kDown})
        for (const int shift : {key::kCtrlMask, key::kAltMask})
            EXPECT_FALSE(form->KeyDown(routed, shift));
    EXPECT_EQ(form->ActiveControl(), &form->cmdOK);
}

TEST_F(Controls, StrayCharactersEndInTheForm) {
    form->Show();
    for (char16_t stray : {u'\t', u'\r', u'\x1B'})
        EXPECT_TRUE(form->KeyPress(stray));
    char16_t letter = u'a';
    EXPECT_FALSE(form->KeyPress(letter));
    for (const auto& control : form->Controls())
        if (control->HasEnabled())
            control->SetEnabled(false);
    EXPECT_TRUE(form->KeyPress(letter));
}

TEST_F(Controls, AKeyThatIsRoutedIsUsedUp) {
    int keys = 0;
    form->txtText.KeyDown = form->cmdOK.KeyDown = [&keys](int&, int) { ++keys; };
    form->Show();
    EXPECT_TRUE(form->KeyDown(key::kTab, 0));
    EXPECT_TRUE(form->KeyDown(key::kReturn, 0));
    form->cmdOK.SetFocus();
    EXPECT_TRUE(form->KeyDown(key::kLeft, 0));
    EXPECT_EQ(form->ActiveControl(), &form->chkMark);
    EXPECT_EQ(keys, 0);
    form->cmdOK.SetFocus();
    EXPECT_FALSE(form->KeyDown(u'A', 0));
    EXPECT_EQ(keys, 1);
}

TEST_F(Controls, ACharacterThatIsDroppedIsUsedUp) {
    form->Show();
    form->txtText.KeyPress = [](int& character) { character = 0; };
    char16_t letter = u'a';
    EXPECT_TRUE(form->KeyPress(letter));
    EXPECT_EQ(letter, u'\0');
}

TEST_F(Controls, AnAcceleratorMayBeThatOfTheControlWithTheFocus) {
    int clicks = 0;
    form->cmdOK.SetCaption(u"&Go");
    form->cmdOK.Click = [&clicks] { ++clicks; };
    form->Show();
    form->cmdOK.SetFocus();
    EXPECT_TRUE(form->Accelerator(u'g'));
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(form->Accelerator(u'x'));
    EXPECT_EQ(form->ActiveControl(), &form->cmdOK);
}

TEST_F(Controls, MouseEventsReachWhatIsUsable) {
    std::vector<float> seen;
    form->lblText.MouseMove = [&seen](int, int, float x, float y) { seen.insert(seen.end(), {x, y}); };
    form->lblText.MouseDown = [&seen](int button, int, float, float) {
        seen.push_back(static_cast<float>(button));
    };
    form->lblText.MouseMoved(0, 0, 15, 30);
    form->lblText.MousePressed(2, 0, 15, 30);
    form->lblText.SetVisible(false);
    form->lblText.MouseMoved(0, 0, 1, 1);
    form->lblText.MousePressed(1, 0, 1, 1);
    EXPECT_EQ(seen, (std::vector<float>{15, 30, 2}));
}

TEST_F(Controls, ATimerTicksOnlyWhileItRuns) {
    int ticks = 0;
    form->tmrTick.Tick = [&ticks] { ++ticks; };
    form->tmrTick.Elapsed();
    form->tmrTick.SetEnabled(true);
    form->tmrTick.Elapsed();
    form->tmrTick.SetInterval(0);
    form->tmrTick.Elapsed();
    EXPECT_EQ(ticks, 1);
}

TEST_F(Controls, APicturePaintsOnEachRequest) {
    int paints = 0;
    form->picIcon.Paint = [&paints] { ++paints; };
    form->picIcon.PaintRequested();
    form->picIcon.PaintRequested();
    EXPECT_EQ(paints, 2);
}

TEST_F(Controls, EachControlHasAFontOfItsOwn) {
    form->lblText.Font().SetName(u"Serif");
    form->Font().SetCharset(238);
    EXPECT_EQ(form->lblText.Font().Name(), u"Serif");
    EXPECT_EQ(form->txtText.Font().Name(), u"MS Shell Dlg");
    EXPECT_EQ(form->txtText.Font().Charset(), 1);
    EXPECT_EQ(form->txtText.Font().Size(), 8.25F);
}

TEST_F(Controls, AFontTellsEachChangeOnce) {
    Font font;
    int changes = 0;
    font.FontChanged = [&changes] { ++changes; };
    font.SetItalic(true);
    font.SetItalic(true);
    font.SetUnderline(true);
    font.SetSize(18);
    EXPECT_EQ(changes, 3);
}

TEST_F(Controls, TheFirstSingleAmpersandMarksTheAccelerator) {
    EXPECT_TRUE(HasAccelerator(u"&Open", u'o'));
    EXPECT_TRUE(HasAccelerator(u"O&K", u'k'));
    EXPECT_TRUE(HasAccelerator(u"a &Be &C", u'B'));
    EXPECT_FALSE(HasAccelerator(u"a &Be &C", u'c'));
    EXPECT_TRUE(HasAccelerator(u"R&&D &More", u'm'));
    EXPECT_FALSE(HasAccelerator(u"R&&D", u'D'));
    EXPECT_FALSE(HasAccelerator(u"R&&D", u'&'));
    EXPECT_FALSE(HasAccelerator(u"end&", u'\0'));
    EXPECT_FALSE(HasAccelerator(u"", u'a'));
}

} // namespace

} // namespace kestrelmoor::tests

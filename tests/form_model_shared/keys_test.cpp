#include "tests/form_model_shared/shown_form.h"

namespace kestrelmoor::tests {

namespace {

class FormKeys : public ShownForm {};

TEST_F(FormKeys, EnterClicksTheDefaultButtonWithoutMovingTheFocus) {
    hand->Press(key::kReturn);
    EXPECT_EQ(Seen(), (Events{"cmdOK Click"}));
    EXPECT_EQ(form->ActiveControl(), &form->txtFirst);
}

TEST_F(FormKeys, EnterClicksTheFocusedButtonInPlaceOfTheDefaultOne) {
    StartFrom(form->cmdMore);
    hand->Press(key::kReturn);
    EXPECT_EQ(Seen(), (Events{"cmdMore Click"}));
}

TEST_F(FormKeys, ADisabledDefaultButtonSwallowsEnter) {
    form->cmdOK.SetEnabled(false);
    form->txtFirst.KeyDown = [this](int& key_code, int) {
        form->Note("KeyDown " + std::to_string(key_code));
    };
    hand->Press(key::kReturn);
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(FormKeys, AnotherButtonCanBecomeTheDefaultOne) {
    form->cmdMore.SetDefault(true);
    EXPECT_FALSE(form->cmdOK.Default());
    hand->Press(key::kReturn);
    EXPECT_EQ(Seen(), (Events{"cmdMore Click"}));
}

TEST_F(FormKeys, EscapeClicksTheCancelButtonWithoutMovingTheFocus) {
    hand->Press(key::kEscape);
    EXPECT_EQ(Seen(), (Events{"cmdCancel Click"}));
    EXPECT_EQ(form->ActiveControl(), &form->txtFirst);
}

TEST_F(FormKeys, ALabelsAcceleratorLeadsToTheNextControlThatCanTakeTheFocus) {
    hand->Press(u'S', key::kAltMask);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to txtSecond", "txtSecond GotFocus"}));
    form->txtFirst.SetVisible(false);
    StartFrom(form->cmdMore);
    hand->Press(u'F', key::kAltMask);
    EXPECT_EQ(Seen(), (Events{"cmdMore LostFocus to txtSecond", "txtSecond GotFocus"}));
}

TEST_F(FormKeys, AcceleratorsAreSoughtFromBehindTheFocusAndRoundTheEnd) {
    hand->Press(u'M', key::kAltMask);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to chkMark", "chkMark GotFocus", "chkMark Click"}));
    hand->Press(u'M', key::kAltMask);
    EXPECT_EQ(Seen(), (Events{"chkMark LostFocus to cmdMore", "cmdMore GotFocus", "cmdMore Click"}));
    hand->Press(u'M', key::kAltMask);
    EXPECT_EQ(Seen(), (Events{"cmdMore LostFocus to chkMark", "chkMark GotFocus", "chkMark Click"}));
    EXPECT_EQ(form->chkMark.Value(), 0);
}

TEST_F(FormKeys, ADoubledAmpersandMarksNothing) {
    hand->Press(u'D', key::kAltMask);
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(FormKeys, AcceleratorsOfHiddenAndDisabledControlsAreNotSought) {
    form->chkMark.SetEnabled(false);
    form->cmdMore.SetVisible(false);
    form->Find(u"lblSecond").SetVisible(false);
    hand->Press(u'M', key::kAltMask);
    hand->Press(u'S', key::kAltMask);
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(FormKeys, AnAcceleratorFollowsTheCaptionOfToday) {
    form->cmdMore.SetCaption(u"&Less");
    hand->Press(u'L', key::kAltMask);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to cmdMore", "cmdMore GotFocus", "cmdMore Click"}));
}

TEST_F(FormKeys, ArrowsGoThroughButtonsAndCheckBoxes) {
    StartFrom(form->cmdMore);
    hand->Press(key::kRight);
    EXPECT_EQ(Seen(), (Events{"cmdMore LostFocus to chkMark", "chkMark GotFocus"}));
    hand->Press(key::kDown);
    EXPECT_EQ(Seen(), (Events{"chkMark LostFocus to cmdOK", "cmdOK GotFocus"}));
    hand->Press(key::kUp);
    hand->Press(key::kLeft);
    EXPECT_EQ(Seen(), (Events{"cmdOK LostFocus to chkMark", "chkMark GotFocus",
                              "chkMark LostFocus to cmdMore", "cmdMore GotFocus"}));
    EXPECT_EQ(form->chkMark.Value(), 0);
}

TEST_F(FormKeys, TheFormSeesAKeyAheadOfItsControlAndMaySwallowIt) {
    form->txtFirst.KeyDown = [this](int& key_code, int) {
        if (key_code == key::kF1)
            form->Note("txtFirst " + std::to_string(key_code));
    };
    hand->Press(key::kF1, key::kShiftMask);
    EXPECT_EQ(Seen(), (Events{"KeyDown F1, shift 1"}));
    form->swallows_f1 = false;
    hand->Press(key::kF1);
    EXPECT_EQ(Seen(), (Events{"KeyDown F1, shift 0", "txtFirst 112"}));
}

TEST_F(FormKeys, AControlThatSwallowsAKeyKeepsItFromItsWindow) {
    form->lstRows.AddItem(u"one");
    form->lstRows.AddItem(u"two");
    form->lstRows.SetListIndex(0);
    StartFrom(form->lstRows);
    form->lstRows.KeyDown = [](int& key_code, int) { key_code = key_code == key::kDown ? 0 : key_code; };
    hand->Press(key::kDown);
    EXPECT_EQ(Seen(), Events{});
    hand->Press(key::kEnd);
    EXPECT_EQ(Seen(), (Events{"lstRows Click 1"}));
}

} // namespace

} // namespace kestrelmoor::tests

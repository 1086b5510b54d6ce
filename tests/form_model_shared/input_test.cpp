#include "tests/form_model_shared/shown_form.h"

namespace kestrelmoor::tests {

namespace {

class FormInput : public ShownForm {
  protected:
    void AddThreeRows() {
        for (const char16_t* const text : {u"pear", u"apple", u"quince"})
            form->lstRows.AddItem(text);
        Seen();
    }
};

TEST_F(FormInput, EachCharacterTypedRaisesChange) {
    hand->Type(u"aB1");
    EXPECT_EQ(Seen(), (Events{"txtFirst Change 'a'", "txtFirst Change 'aB'", "txtFirst Change 'aB1'"}));
    EXPECT_EQ(form->txtFirst.SelStart(), 3);
}

TEST_F(FormInput, CharactersBeyondAsciiComeThrough) {
    hand->Type(u"\u00E9\u4E2D(");
    EXPECT_EQ(form->txtFirst.Text(), u"\u00E9\u4E2D(");
}

TEST_F(FormInput, BackspaceTakesTheCharacterAheadOfTheCaret) {
    form->txtFirst.SetText(u"abc");
    form->txtFirst.SetSelStart(2);
    Seen();
    hand->Press(key::kBack);
    EXPECT_EQ(Seen(), (Events{"txtFirst Change 'ac'"}));
    EXPECT_EQ(form->txtFirst.SelStart(), 1);
}

TEST_F(FormInput, BackspaceAtTheStartRaisesNothing) {
    form->txtFirst.SetText(u"abc");
    Seen();
    hand->Press(key::kBack);
    EXPECT_EQ(Seen(), Events{});
}

TEST_F(FormInput, TypingReplacesTheSelection) {
    form->txtFirst.SetText(u"abcd");
    form->txtFirst.SetSelStart(1);
    form->txtFirst.SetSelLength(2);
    Seen();
    hand->Type(u"x");
    EXPECT_EQ(form->txtFirst.Text(), u"axd");
    EXPECT_EQ(form->txtFirst.SelStart(), 2);
    EXPECT_EQ(form->txtFirst.SelLength(), 0);
}

TEST_F(FormInput, ATextSetByTheProgramRaisesChangeOnceAndOnlyWhereItDiffers) {
    form->txtFirst.SetText(u"abc");
    form->txtFirst.SetText(u"abc");
    EXPECT_EQ(Seen(), (Events{"txtFirst Change 'abc'"}));
}

TEST_F(FormInput, KeyPressMayDropACharacter) {
    form->txtFirst.KeyPress = [](int& character) {
        if (character != key::kBack && (character < '0' || character > '9'))
            character = 0;
    };
    hand->Type(u"4x2");
    hand->Press(key::kBack);
    EXPECT_EQ(Seen(), (Events{"txtFirst Change '4'", "txtFirst Change '42'", "txtFirst Change '4'"}));
}

TEST_F(FormInput, KeyPressMayChangeACharacter) {
    form->txtFirst.KeyPress = [](int& character) { character = '*'; };
    hand->Type(u"ab");
    EXPECT_EQ(form->txtFirst.Text(), u"**");
}

TEST_F(FormInput, ADisabledBoxTakesNoCharacter) {
    form->txtFirst.SetEnabled(false);
    Seen();
    hand->ClickOn(form->txtFirst);
    hand->Type(u"a");
    EXPECT_EQ(form->txtFirst.Text(), u"");
    EXPECT_EQ(form->txtSecond.Text(), u"a");
}

TEST_F(FormInput, SpaceAndMouseTurnACheckBox) {
    StartFrom(form->chkMark);
    hand->Press(key::kSpace);
    EXPECT_EQ(form->chkMark.Value(), 1);
    hand->ClickOn(form->chkMark);
    EXPECT_EQ(form->chkMark.Value(), 0);
    EXPECT_EQ(Seen(), (Events{"chkMark Click", "chkMark Click"}));
}

TEST_F(FormInput, AValueSetByTheProgramRaisesClickOnceAndOnlyWhereItDiffers) {
    form->chkMark.SetValue(1);
    form->chkMark.SetValue(1);
    EXPECT_EQ(Seen(), (Events{"chkMark Click"}));
}

TEST_F(FormInput, SpacePressesTheFocusedButton) {
    StartFrom(form->cmdMore);
    hand->Press(key::kSpace);
    EXPECT_EQ(Seen(), (Events{"cmdMore Click"}));
}

TEST_F(FormInput, ArrowsChooseRowsOfTheSortedList) {
    AddThreeRows();
    StartFrom(form->lstRows);
    hand->Press(key::kDown);
    hand->Press(key::kDown);
    hand->Press(key::kUp);
    hand->Press(key::kEnd);
    hand->Press(key::kHome);
    EXPECT_EQ(Seen(), (Events{"lstRows Click 0", "lstRows Click 1", "lstRows Click 0", "lstRows Click 2",
                              "lstRows Click 0"}));
    EXPECT_EQ(form->lstRows.List(0), u"apple");
}

TEST_F(FormInput, ALetterGoesToTheRowThatItBegins) {
    AddThreeRows();
    StartFrom(form->lstRows);
    hand->Type(u"q");
    EXPECT_EQ(Seen(), (Events{"lstRows Click 2"}));
}

TEST_F(FormInput, AClickOnARowMakesItCurrentAheadOfTheFocusEvents) {
    AddThreeRows();
    form->On("lstRows GotFocus", [this] { form->Note(std::to_string(form->lstRows.ListIndex())); });
    hand->ChooseRow(form->lstRows, 1);
    EXPECT_EQ(Seen(), (Events{"txtFirst LostFocus to lstRows", "lstRows GotFocus", "1", "lstRows Click 1"}));
}

TEST_F(FormInput, AnIndexSetByTheProgramRaisesClickOnceAndOnlyWhereItDiffers) {
    AddThreeRows();
    form->lstRows.SetListIndex(2);
    form->lstRows.SetListIndex(2);
    EXPECT_EQ(Seen(), (Events{"lstRows Click 2"}));
}

TEST_F(FormInput, ARowReplacedStaysCurrentInSilence) {
    AddThreeRows();
    form->lstRows.SetListIndex(1);
    Seen();
    form->lstRows.SetList(1, u"zebra");
    EXPECT_EQ(Seen(), Events{});
    StartFrom(form->lstRows);
    hand->Press(key::kUp);
    EXPECT_EQ(Seen(), (Events{"lstRows Click 0"}));
}

} // namespace

} // namespace kestrelmoor::tests

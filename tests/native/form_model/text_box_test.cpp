#include "platform/practice/user.h"
#include "tests/native/support/probe_form.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

constexpr int kDelete = 46;

class TextBoxes : public testing::Test {
  protected:
    void SetUp() override {
        form->Show();
        box.Change = [this] { changes.push_back(box.Text()); };
    }
    void TearDown() override { Application::Current().UnloadAll(); }

    std::shared_ptr<ProbeForm> form = MakeProbe();
    TextBox& box = form->txtText;
    practice::User user;
    StringList changes;
};

TEST_F(TextBoxes, ANewTextPutsTheSelectionToTheStart) {
    box.SetSelStart(2);
    box.SetText(u"defg");
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_EQ(box.SelLength(), 0);
    EXPECT_EQ(changes, (StringList{u"defg"}));
}

TEST_F(TextBoxes, ANewTextHasNothingSelected) {
    box.SetSelStart(0);
    box.SetSelLength(2);
    box.SetText(u"defg");
    EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(TextBoxes, AnEditMayLeaveTheCaretAtTheStart) {
    box.SetSelStart(2);
    box.Edited(u"bc", 0);
    EXPECT_EQ(box.SelStart(), 0);
}

TEST_F(TextBoxes, APlaceForTheSelectionIsHeldWithinTheText) {
    box.SetSelStart(40);
    EXPECT_EQ(box.SelStart(), 3);
    box.SetSelStart(-1);
    EXPECT_EQ(box.SelStart(), 0);
    box.SetSelStart(1);
    box.SetSelLength(40);
    EXPECT_EQ(box.SelLength(), 2);
    box.SetSelLength(-1);
    EXPECT_EQ(box.SelLength(), 0);
    box.SetSelLength(1);
    box.SetSelStart(1);
    EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(TextBoxes, SelTextGoesInAtTheSelectionAndTheCaretBehindIt) {
    box.SetSelStart(1);
    box.SetSelLength(1);
    box.SetSelText(u"XYZ");
    EXPECT_EQ(box.Text(), u"aXYZc");
    EXPECT_EQ(box.SelStart(), 4);
    EXPECT_EQ(box.SelLength(), 0);
    EXPECT_EQ(changes, (StringList{u"aXYZc"}));
}

TEST_F(TextBoxes, SelTextThatChangesNothingRaisesNothing) {
    box.SetSelStart(1);
    box.SetSelLength(1);
    box.SetSelText(u"b");
    EXPECT_EQ(changes, StringList{});
    EXPECT_EQ(box.SelStart(), 2);
}

TEST_F(TextBoxes, AnEditThatLeavesTheTextRaisesNothing) {
    box.Edited(u"abc");
    EXPECT_EQ(changes, StringList{});
}

TEST_F(TextBoxes, AnEditHoldsTheSelectionWithinTheText) {
    box.SetSelStart(2);
    box.SetSelLength(1);
    box.Edited(u"x");
    EXPECT_EQ(box.SelStart(), 1);
    EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(TextBoxes, TheCaretStandsBehindTheCharacterWhenChangeIsRaised) {
    int caret = -1;
    box.Change = [&] { caret = box.SelStart(); };
    box.SetSelStart(3);
    user.Type(u"d");
    EXPECT_EQ(caret, 4);
}

TEST_F(TextBoxes, ALargeTextIsTakenWhole) {
    const String large(100'000, u'x');
    box.SetText(large);
    box.SetSelStart(static_cast<int>(large.size()));
    box.SetSelText(u"end");
    EXPECT_EQ(box.Text().size(), 100'003U);
    EXPECT_EQ(box.SelStart(), 100'003);
}

TEST_F(TextBoxes, BackspaceAndDeleteTakeAPairOfSurrogatesAtOnce) {
    box.SetText(u"a\U0001F511b");
    box.SetSelStart(3);
    user.Press(key::kBack);
    EXPECT_EQ(box.Text(), u"ab");
    box.SetText(u"a\U0001F511b");
    box.SetSelStart(1);
    user.Press(kDelete);
    EXPECT_EQ(box.Text(), u"ab");
}

TEST_F(TextBoxes, ArrowsHomeAndEndMoveTheCaret) {
    box.SetSelStart(1);
    box.SetSelLength(1);
    user.Press(key::kRight);
    EXPECT_EQ(box.SelStart(), 2);
    user.Press(key::kLeft);
    user.Press(key::kLeft);
    user.Press(key::kLeft);
    EXPECT_EQ(box.SelStart(), 0);
    user.Press(key::kEnd);
    EXPECT_EQ(box.SelStart(), 3);
    user.Press(key::kRight);
    EXPECT_EQ(box.SelStart(), 3);
    user.Press(key::kHome);
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_EQ(form->ActiveControl(), &box);
}

TEST_F(TextBoxes, AControlKeyBringsNoCharacter) {
    user.Press(u'V', key::kCtrlMask);
    EXPECT_EQ(box.Text(), u"abc");
}

TEST_F(TextBoxes, ShiftMakesACapital) {
    user.Press(u'V');
    user.Press(u'V', key::kShiftMask);
    EXPECT_EQ(box.Text(), u"vVabc");
}

class StatusForm : public Form {
  public:
    StatusForm() : Form(kDesign) {}

    TextBox& txtLocked = Get<TextBox>(u"txtLocked");
    TextBox& txtLines = Get<TextBox>(u"txtLines");

  private:
    static constexpr ControlDesign kControls[] = {
        {.name = u"txtLocked",
         .kind = ControlKind::TextBox,
         .tab_index = 0,
         .text = u"fixed",
         .locked = true},
        {.name = u"txtLines", .kind = ControlKind::TextBox, .tab_index = 1, .multi_line = true},
    };
    static constexpr FormDesign kDesign = {.name = u"frmStatus",
                                           .tag = u"",
                                           .client_width = 900,
                                           .client_height = 900,
                                           .key_preview = false,
                                           .shown_in_task_bar = true,
                                           .centred_on_owner = false,
                                           .controls = kControls};
};

TEST(LockedTextBox, TakesTheFocusAndTheProgramsTextButNoTyping) {
    const auto form = Application::Current().Make<StatusForm>();
    practice::User user;
    form->Show();
    EXPECT_EQ(form->ActiveControl(), &form->txtLocked);
    user.Type(u"x");
    user.Press(key::kBack);
    EXPECT_EQ(form->txtLocked.Text(), u"fixed");
    form->txtLocked.SetSelText(u"now ");
    EXPECT_EQ(form->txtLocked.Text(), u"now fixed");
    form->Unload();
}

TEST(MultiLineTextBox, EnterBreaksTheLineWhereNoButtonWantsIt) {
    const auto form = Application::Current().Make<StatusForm>();
    practice::User user;
    form->Show();
    form->txtLines.SetFocus();
    user.Type(u"a\nb");
    EXPECT_EQ(form->txtLines.Text(), u"a\r\nb");
    user.Type(u"\t");
    EXPECT_EQ(form->ActiveControl(), &form->txtLocked);
    form->Unload();
}

} // namespace

} // namespace kestrelmoor::tests

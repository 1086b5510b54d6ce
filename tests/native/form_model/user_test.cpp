#include "platform/practice/user.h"
#include "tests/native/support/probe_form.h"
#include "tests/native/support/recording_desktop.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

class Users : public testing::Test {
  protected:
    void SetUp() override {
        form->Show();
        for (int row = 0; row < 20; ++row) {
            const String text(1, static_cast<char16_t>(u'a' + row));
            form->lstRows.AddItem(text);
            form->lstMarks.AddItem(text);
        }
        form->lstRows.SetHeight(195 * 5);
    }

    RecordingDesktop desktop;
    std::shared_ptr<ProbeForm> form = MakeProbe();
    practice::User user;
};

TEST_F(Users, CanDoNothingWithoutAFormInFront) {
    form->Unload();
    EXPECT_FALSE(user.Press(key::kTab));
    EXPECT_FALSE(user.Type(u"a"));
    EXPECT_FALSE(user.ClickOn(form->cmdOK));
    EXPECT_FALSE(user.ChooseRow(form->lstRows, 0));
    EXPECT_FALSE(user.CloseWindow(*form));
}

TEST_F(Users, CantReachAFormBehindAModalOne) {
    const auto modal = MakeProbe(u"frmModal");
    desktop.Add([&] {
        EXPECT_FALSE(user.ClickOn(form->cmdOK));
        EXPECT_FALSE(user.CloseWindow(*form));
        EXPECT_TRUE(user.CloseWindow(*modal));
    });
    modal->Show(true, form.get());
    EXPECT_TRUE(modal->IsUnloaded());
}

TEST_F(Users, CantClickWhatIsHiddenOrDisabled) {
    form->cmdOK.SetEnabled(false);
    form->fraGroup.SetVisible(false);
    EXPECT_FALSE(user.ClickOn(form->cmdOK));
    EXPECT_FALSE(user.ClickOn(form->chkMark));
    EXPECT_FALSE(user.ChooseRow(form->lstRows, 20));
    EXPECT_FALSE(user.ChooseRow(form->lstRows, -1));
}

TEST_F(Users, BringAFormToFrontByAClick) {
    const auto other = MakeProbe(u"frmOther");
    other->Show();
    EXPECT_TRUE(user.ClickOn(form->lstRows));
    EXPECT_EQ(Application::Current().ActiveForm(), form.get());
}

TEST_F(Users, TurnPagesOfAList) {
    user.ChooseRow(form->lstRows, 0);
    user.Press(key::kPageDown);
    EXPECT_EQ(form->lstRows.ListIndex(), 4);
    user.Press(key::kPageUp);
    user.Press(key::kPageUp);
    EXPECT_EQ(form->lstRows.ListIndex(), 0);
}

TEST_F(Users, TurnMarksByMouseAndBySpace) {
    EXPECT_TRUE(user.ToggleRow(form->lstMarks, 3));
    EXPECT_TRUE(form->lstMarks.Selected(3));
    EXPECT_EQ(form->lstMarks.ListIndex(), 3);
    user.Press(key::kSpace);
    EXPECT_FALSE(form->lstMarks.Selected(3));
}

TEST_F(Users, ChooseFromADropDownList) {
    form->cboRows.AddItem(u"Deutsch");
    form->cboRows.AddItem(u"English");
    EXPECT_TRUE(user.ChooseRow(form->cboRows, 1));
    EXPECT_EQ(form->cboRows.ListIndex(), 1);
    user.Press(key::kUp);
    EXPECT_EQ(form->cboRows.ListIndex(), 0);
}

TEST_F(Users, ClickOnALabelPressesTheMouseThere) {
    std::vector<float> seen;
    form->lblText.Move(0, 0, 300, 200);
    form->lblText.MouseDown = [&seen](int button, int, float x, float y) {
        seen = {static_cast<float>(button), x, y};
    };
    EXPECT_TRUE(user.ClickOn(form->lblText));
    EXPECT_EQ(seen, (std::vector<float>{1, 150, 100}));
}

} // namespace

} // namespace kestrelmoor::tests

#include "tests/native/forms/password_window.h"

namespace kestrelmoor::tests {

namespace {

class PasswordDesign : public PasswordWindow {
  protected:
    PasswordDesign() { form = Application::Current().Make<frmPass>(); }
};

struct Expected {
    const char16_t* name;
    ControlKind kind;
    int tab_index;
    Twips left, top, width, height;
};

constexpr Expected kPlaces[] = {
    {u"lblUser", ControlKind::Label, 0, 120, 165, 2055, 255},
    {u"txtUser", ControlKind::TextBox, 1, 2160, 120, 2895, 285},
    {u"txtStatus", ControlKind::TextBox, 2, 120, 600, 4935, 2055},
    {u"chkSame", ControlKind::CheckBox, 3, 120, 2760, 4935, 255},
    {u"lblOldPass", ControlKind::Label, 4, 120, 3165, 4935, 255},
    {u"txtOldPass", ControlKind::TextBox, 5, 2160, 3120, 2895, 285},
    {u"lstOldPass", ControlKind::ListBox, 6, 120, 3480, 4935, 840},
    {u"lblNewPass", ControlKind::Label, 7, 120, 4485, 2055, 255},
    {u"txtNewPass", ControlKind::TextBox, 8, 2160, 4440, 2895, 285},
    {u"lblConfirm", ControlKind::Label, 9, 120, 4845, 2055, 255},
    {u"txtConfirm", ControlKind::TextBox, 10, 2160, 4800, 2895, 285},
    {u"lblWait", ControlKind::Label, 11, 120, 5400, 3495, 255},
    {u"cmdSettings", ControlKind::CommandButton, 12, 120, 5280, 1395, 375},
    {u"cmdOK", ControlKind::CommandButton, 13, 2160, 5280, 1395, 375},
    {u"cmdCancel", ControlKind::CommandButton, 14, 3660, 5280, 1395, 375},
};

} // namespace

TEST_F(PasswordDesign, EveryControlStandsInItsDesignedPlace) {
    ASSERT_EQ(form->Controls().size(), std::size(kPlaces));
    for (const Expected& expected : kPlaces) {
        SCOPED_TRACE(ToUtf8(expected.name));
        const Control& control = At(expected.name);
        EXPECT_EQ(control.Kind(), expected.kind);
        EXPECT_EQ(control.TabIndex(), expected.tab_index);
        EXPECT_EQ(control.Left(), expected.left);
        EXPECT_EQ(control.Top(), expected.top);
        EXPECT_EQ(control.Width(), expected.width);
        EXPECT_EQ(control.Height(), expected.height);
        EXPECT_EQ(control.Container(), nullptr);
    }
}

TEST_F(PasswordDesign, TheFormIsADialogOf5175By5775Twips) {
    EXPECT_EQ(form->Name(), u"frmPass");
    EXPECT_EQ(form->Tag(), u"303");
    EXPECT_EQ(form->ClientWidth(), 5175);
    EXPECT_EQ(form->ClientHeight(), 5775);
    EXPECT_TRUE(form->ShownInTaskBar());
    EXPECT_FALSE(form->CentredOnOwner());
}

TEST_F(PasswordDesign, LabelsHaveTheirTextNumberInLinkTimeoutAndNoTag) {
    const std::pair<const char16_t*, int> numbers[] = {
        {u"lblUser", 304}, {u"lblOldPass", 301}, {u"lblNewPass", 314}, {u"lblConfirm", 315}, {u"lblWait", 0}};
    for (const auto& [name, number] : numbers) {
        EXPECT_EQ(LabelAt(name).LinkTimeout(), number) << ToUtf8(name);
        EXPECT_EQ(At(name).Tag(), u"") << ToUtf8(name);
    }
}

TEST_F(PasswordDesign, OtherControlsWithACaptionHaveTheirTextNumberInTag) {
    EXPECT_EQ(At(u"chkSame").Tag(), u"313");
    EXPECT_EQ(At(u"cmdSettings").Tag(), u"305");
    EXPECT_EQ(At(u"cmdOK").Tag(), u"1001");
    EXPECT_EQ(At(u"cmdCancel").Tag(), u"1002");
    for (const char16_t* name :
         {u"txtUser", u"txtStatus", u"txtOldPass", u"lstOldPass", u"txtNewPass", u"txtConfirm"})
        EXPECT_EQ(At(name).Tag(), u"") << ToUtf8(name);
}

TEST_F(PasswordDesign, NothingButTheUserBoxAndTheOkButtonIsDisabled) {
    for (const auto& control : form->Controls())
        EXPECT_EQ(control->Enabled(), control->Name() != u"txtUser" && control->Name() != u"cmdOK")
            << ToUtf8(control->Name());
}

TEST_F(PasswordDesign, NothingButTheStatusBoxAndTheWaitLabelIsHidden) {
    for (const auto& control : form->Controls())
        EXPECT_EQ(control->Visible(), control->Name() != u"txtStatus" && control->Name() != u"lblWait")
            << ToUtf8(control->Name());
}

TEST_F(PasswordDesign, PasswordBoxesAreMaskedAndKeepTheInputMethodOff) {
    for (const char16_t* name : {u"txtOldPass", u"txtNewPass", u"txtConfirm"}) {
        EXPECT_EQ(Box(name).PasswordChar(), u"*") << ToUtf8(name);
        EXPECT_TRUE(Box(name).ImeOff()) << ToUtf8(name);
        EXPECT_FALSE(Box(name).MultiLine()) << ToUtf8(name);
        EXPECT_FALSE(Box(name).Locked()) << ToUtf8(name);
    }
    EXPECT_EQ(Box(u"txtUser").PasswordChar(), u"");
    EXPECT_EQ(Box(u"txtStatus").PasswordChar(), u"");
}

TEST_F(PasswordDesign, TheStatusBoxIsLockedAndHasLinesAndAScrollBar) {
    const TextBox& status = Box(u"txtStatus");
    EXPECT_TRUE(status.Locked());
    EXPECT_TRUE(status.MultiLine());
    EXPECT_EQ(status.ScrollBars(), ScrollBars::Vertical);
}

TEST_F(PasswordDesign, TheListIsSortedAndTheCheckBoxChecked) {
    EXPECT_TRUE(List().Sorted());
    EXPECT_EQ(List().Style(), ListStyle::Plain);
    EXPECT_EQ(Same().Value(), 1);
}

TEST_F(PasswordDesign, EnterMeansOkAndEscapeMeansCancel) {
    EXPECT_EQ(form->DefaultButton(), &At(u"cmdOK"));
    EXPECT_EQ(form->CancelButton(), &At(u"cmdCancel"));
}

} // namespace kestrelmoor::tests

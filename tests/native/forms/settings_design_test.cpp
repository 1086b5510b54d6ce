#include "tests/native/forms/settings_window.h"

namespace kestrelmoor::tests {

namespace {

class SettingsDesign : public SettingsWindow {
  protected:
    SettingsDesign() { form = Application::Current().Make<frmSettings>(); }
};

struct Expected {
    const char16_t* name;
    ControlKind kind;
    const char16_t* tag;
    int tab_index;
    const char16_t* container;
};

// In the order in which the window stores them.
constexpr Expected kControls[] = {
    {u"cmdHelp", ControlKind::CommandButton, u"1003", 13, nullptr},
    {u"cbLang", ControlKind::ComboBox, u"", 10, nullptr},
    {u"cmdOK", ControlKind::CommandButton, u"1001", 14, nullptr},
    {u"cmdCancel", ControlKind::CommandButton, u"1002", 15, nullptr},
    {u"cmdAbout", ControlKind::CommandButton, u"413", 12, nullptr},
    {u"chkLocalPass", ControlKind::CheckBox, u"406", 0, nullptr},
    {u"cmdAddServer", ControlKind::CommandButton, u"408", 4, nullptr},
    {u"cmdRemServer", ControlKind::CommandButton, u"409", 5, nullptr},
    {u"chkRemind", ControlKind::CheckBox, u"410", 6, nullptr},
    {u"txtRemind", ControlKind::TextBox, u"", 7, nullptr},
    {u"chkPermanent", ControlKind::CheckBox, u"402", 11, nullptr},
    {u"fraNetPwd", ControlKind::Frame, u"407", 1, nullptr},
    {u"lstServers", ControlKind::ListBox, u"", 2, u"fraNetPwd"},
    {u"ucAddComp", ControlKind::UserControl, u"", 3, u"fraNetPwd"},
    {u"lblRemind", ControlKind::Label, u"411", 8, nullptr},
    {u"lblLang", ControlKind::Label, u"401", 9, nullptr},
};

bool Overlap(const Control& a, const Control& b) {
    return a.Left() < b.Left() + b.Width() && b.Left() < a.Left() + a.Width() &&
           a.Top() < b.Top() + b.Height() && b.Top() < a.Top() + a.Height();
}

} // namespace

TEST_F(SettingsDesign, TheFormIsADialogOf5175By3855Twips) {
    EXPECT_EQ(form->Name(), u"frmSettings");
    EXPECT_EQ(form->Tag(), u"421");
    EXPECT_EQ(form->ClientWidth(), 5175);
    EXPECT_EQ(form->ClientHeight(), 3855);
    EXPECT_FALSE(form->ShownInTaskBar());
    EXPECT_TRUE(form->CentredOnOwner());
}

TEST_F(SettingsDesign, EveryControlIsThereInOrderWithItsTextAndItsTabIndex) {
    ASSERT_EQ(form->Controls().size(), std::size(kControls));
    for (std::size_t i = 0; i < std::size(kControls); ++i) {
        const Expected& expected = kControls[i];
        SCOPED_TRACE(ToUtf8(expected.name));
        const Control& control = *form->Controls()[i];
        EXPECT_EQ(control.Name(), expected.name);
        EXPECT_EQ(control.Kind(), expected.kind);
        EXPECT_EQ(control.Tag(), expected.tag);
        EXPECT_EQ(control.TabIndex(), expected.tab_index);
        EXPECT_EQ(control.Container(), expected.container ? &At(expected.container) : nullptr);
    }
}

TEST_F(SettingsDesign, ControlsThatMoveStandInTheirPlaces) {
    const std::pair<const char16_t*, Place> places[] = {{u"chkRemind", {120, 1920, 1275, 255}},
                                                        {u"txtRemind", {1440, 1905, 375, 285}},
                                                        {u"lblRemind", {1920, 1950, 3135, 255}},
                                                        {u"lstServers", {240, 240, 3015, 960}}};
    EXPECT_EQ(At(u"ucAddComp").Width(), 2655); // 4683 and 423 hundredths of a millimetre
    EXPECT_EQ(At(u"ucAddComp").Height(), 240);
    for (const auto& [name, place] : places) {
        SCOPED_TRACE(ToUtf8(name));
        EXPECT_EQ(At(name).Left(), place.left);
        EXPECT_EQ(At(name).Top(), place.top);
        EXPECT_EQ(At(name).Width(), place.width);
        EXPECT_EQ(At(name).Height(), place.height);
    }
}

TEST_F(SettingsDesign, NothingStandsOutsideOfWhatHoldsIt) {
    for (const auto& control : form->Controls()) {
        SCOPED_TRACE(ToUtf8(control->Name()));
        const Control* const container = control->Container();
        EXPECT_GE(control->Left(), 0);
        EXPECT_GE(control->Top(), 0);
        EXPECT_GT(control->Width(), 0);
        EXPECT_GT(control->Height(), 0);
        EXPECT_LE(control->Left() + control->Width(), container ? container->Width() : 5175);
        EXPECT_LE(control->Top() + control->Height(), container ? container->Height() : 3855);
    }
}

TEST_F(SettingsDesign, NoTwoControlsThatCanBeSeenLieOverEachOther) {
    for (const auto& a : form->Controls())
        for (const auto& b : form->Controls())
            if (a != b && a->Visible() && b->Visible() && a->Container() == b->Container()) {
                EXPECT_FALSE(Overlap(*a, *b)) << ToUtf8(a->Name()) << ToUtf8(b->Name());
            }
}

TEST_F(SettingsDesign, NothingButTheOkButtonIsDisabledAndNothingButTheEntryHidden) {
    for (const auto& control : form->Controls()) {
        EXPECT_EQ(control->Enabled(), control->Name() != u"cmdOK") << ToUtf8(control->Name());
        EXPECT_EQ(control->Visible(), control->Name() != u"ucAddComp") << ToUtf8(control->Name());
    }
}

TEST_F(SettingsDesign, EnterMeansOkAndEscapeMeansCancel) {
    EXPECT_EQ(form->DefaultButton(), &At(u"cmdOK"));
    EXPECT_EQ(form->CancelButton(), &At(u"cmdCancel"));
}

TEST_F(SettingsDesign, TheLocalPasswordAndTheReminderAreCheckedAndThePermanenceIsNot) {
    EXPECT_EQ(Check(u"chkLocalPass").Value(), 1);
    EXPECT_EQ(Check(u"chkRemind").Value(), 1);
    EXPECT_EQ(Check(u"chkPermanent").Value(), 0);
    EXPECT_EQ(Days().Text(), u"14");
}

TEST_F(SettingsDesign, BothListsAreSortedAndTheServersHaveCheckBoxes) {
    EXPECT_TRUE(Languages().Sorted());
    EXPECT_TRUE(List().Sorted());
    EXPECT_EQ(List().Style(), ListStyle::CheckBoxes);
    EXPECT_EQ(List().ListCount(), 0);
    EXPECT_EQ(Languages().ListCount(), 0);
}

TEST_F(SettingsDesign, TheDaysAreASingleBorderedLine) {
    EXPECT_EQ(Days().BorderStyle(), 1);
    EXPECT_EQ(Days().PasswordChar(), u"");
    EXPECT_FALSE(Days().MultiLine());
    EXPECT_FALSE(Days().Locked());
}

} // namespace kestrelmoor::tests

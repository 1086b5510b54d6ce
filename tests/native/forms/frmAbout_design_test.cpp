#include "forms/about/frmAbout_design.h"
#include "tests/native/forms/about_window.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

class AboutDesign : public AboutWindow {
  protected:
    AboutDesign() { Make(); }
};

struct Expected {
    const char16_t* name;
    ControlKind kind;
    const char16_t* tag;
    int tab_index;
};

constexpr int kNoTab = -1;

// In the order in which the window stores them.
constexpr Expected kControls[] = {
    {u"tmrLocWeb", ControlKind::Timer, u"", kNoTab},
    {u"picIcon", ControlKind::PictureBox, u"", 10},
    {u"cmdHelp", ControlKind::CommandButton, u"1003", 6},
    {u"tmrWeb", ControlKind::Timer, u"", kNoTab},
    {u"cmdOK", ControlKind::CommandButton, u"1001", 5},
    {u"lblLoc", ControlKind::Label, u"", 2},
    {u"lblLocDisclaimer", ControlKind::Label, u"", 3},
    {u"lblLocWeb", ControlKind::Label, u"", 4},
    {u"lblDescription", ControlKind::Label, u"203", 9},
    {u"lblTitle", ControlKind::Label, u"", 8},
    {u"lblVersion", ControlKind::Label, u"", 7},
    {u"Line1(0)", ControlKind::Line, u"", kNoTab},
    {u"lblWeb", ControlKind::Label, u"", 1},
    {u"Line1(1)", ControlKind::Line, u"", kNoTab},
    {u"lblDisclaimer", ControlKind::Label, u"", 0},
    {u"shAbout", ControlKind::Shape, u"", kNoTab},
};

} // namespace

TEST_F(AboutDesign, TheFormIsADialogOf5865By3360Twips) {
    EXPECT_EQ(form->Name(), u"frmAbout");
    EXPECT_EQ(form->Tag(), u"202");
    EXPECT_EQ(form->ClientWidth(), 5865);
    EXPECT_EQ(form->ClientHeight(), 3360);
    EXPECT_FALSE(form->ShownInTaskBar());
    EXPECT_TRUE(form->CentredOnOwner());
}

TEST_F(AboutDesign, EveryControlIsThereInOrderWithItsTextAndItsTabIndex) {
    ASSERT_EQ(form->Controls().size(), std::size(kControls));
    for (std::size_t i = 0; i < std::size(kControls); ++i) {
        const Expected& expected = kControls[i];
        SCOPED_TRACE(ToUtf8(expected.name));
        const Control& control = *form->Controls()[i];
        EXPECT_EQ(control.Name(), expected.name);
        EXPECT_EQ(control.Kind(), expected.kind);
        EXPECT_EQ(control.Tag(), expected.tag);
        EXPECT_EQ(control.TabIndex(), expected.tab_index);
        EXPECT_EQ(control.Container(), nullptr);
        EXPECT_TRUE(control.Visible());
    }
}

TEST_F(AboutDesign, WhatHasASizeOfItsOwnStandsInItsPlace) {
    const std::pair<const char16_t*, Place> places[] = {
        {u"picIcon", {240, 240, 720, 720}},    {u"cmdHelp", {4320, 2880, 1395, 375}},
        {u"cmdOK", {4320, 2400, 1395, 375}},   {u"lblDescription", {1560, 1080, 4095, 690}},
        {u"lblTitle", {1560, 120, 4095, 480}}, {u"lblVersion", {1560, 720, 4095, 225}},
        {u"shAbout", {0, 0, 5895, 2040}}};
    for (const auto& [name, place] : places) {
        SCOPED_TRACE(ToUtf8(name));
        EXPECT_EQ(At(name).Left(), place.left);
        EXPECT_EQ(At(name).Top(), place.top);
        EXPECT_EQ(At(name).Width(), place.width);
        EXPECT_EQ(At(name).Height(), place.height);
    }
}

TEST_F(AboutDesign, WhatIsAsLargeAsItsTextHasItsCorner) {
    struct Corner {
        const char16_t* name;
        Twips left, top;
    };
    constexpr Corner kCorners[] = {{u"lblLoc", 120, 2640},
                                   {u"lblLocDisclaimer", 405, 2880},
                                   {u"lblLocWeb", 405, 3120},
                                   {u"lblWeb", 405, 2400},
                                   {u"lblDisclaimer", 405, 2160}};
    for (const Corner& corner : kCorners) {
        SCOPED_TRACE(ToUtf8(corner.name));
        EXPECT_EQ(At(corner.name).Left(), corner.left);
        EXPECT_EQ(At(corner.name).Top(), corner.top);
        EXPECT_TRUE(LabelAt(corner.name).AutoSize());
    }
    for (const char16_t* const name : {u"lblDescription", u"lblTitle", u"lblVersion"})
        EXPECT_FALSE(LabelAt(name).AutoSize()) << ToUtf8(name);
}

TEST_F(AboutDesign, TheBandShowsThroughEveryLabel) {
    for (const auto& control : form->Controls())
        if (const auto* const label = dynamic_cast<const Label*>(control.get())) {
            EXPECT_TRUE(label->Transparent()) << ToUtf8(label->Name());
        }
}

TEST_F(AboutDesign, TwoLinesFormARuleUnderTheBand) {
    const std::pair<const char16_t*, Twips> lines[] = {{u"Line1(0)", 2055}, {u"Line1(1)", 2040}};
    for (const auto& [name, height] : lines) {
        SCOPED_TRACE(ToUtf8(name));
        EXPECT_EQ(At(name).Left(), 0);
        EXPECT_EQ(At(name).Top(), height);
        EXPECT_EQ(At(name).Left() + At(name).Width(), 5865);
        EXPECT_EQ(At(name).Top() + At(name).Height(), height);
    }
}

TEST_F(AboutDesign, IconAndBandAreLightSteelBlue) {
    EXPECT_EQ(At(u"picIcon").BackColor(), 0xDEC4B0U);
    EXPECT_EQ(At(u"shAbout").BackColor(), 0xDEC4B0U);
}

TEST_F(AboutDesign, TheIconHasNoBorder) {
    const auto icon =
        std::ranges::find(kfrmAboutDesign.controls, ControlKind::PictureBox, &ControlDesign::kind);
    ASSERT_NE(icon, kfrmAboutDesign.controls.end());
    EXPECT_FALSE(icon->border);
}

TEST_F(AboutDesign, TheRuleIsLightBelowAndDarkAbove) {
    EXPECT_EQ(At(u"Line1(0)").ForeColor(), 0x80000014U);
    EXPECT_EQ(At(u"Line1(1)").ForeColor(), 0x80000010U);
}

TEST_F(AboutDesign, TheTitleIsLargeBoldSlantedAndBlue) {
    EXPECT_EQ(At(u"lblTitle").ForeColor(), 0x804000U);
    EXPECT_EQ(At(u"lblTitle").Font().Size(), 18);
    EXPECT_TRUE(At(u"lblTitle").Font().Bold());
    EXPECT_TRUE(At(u"lblTitle").Font().Italic());
    EXPECT_FALSE(At(u"lblTitle").Font().Underline());
}

TEST_F(AboutDesign, VersionAndDescriptionAreBlack) {
    EXPECT_EQ(At(u"lblVersion").ForeColor(), 0U);
    EXPECT_EQ(At(u"lblDescription").ForeColor(), 0U);
}

TEST_F(AboutDesign, BothLinksHaveAPointerOfTheirOwnAndNothingElseHasOne) {
    for (const auto& control : form->Controls()) {
        SCOPED_TRACE(ToUtf8(control->Name()));
        const bool is_link = control->Name() == u"lblWeb" || control->Name() == u"lblLocWeb";
        EXPECT_EQ(control->MousePointer(), is_link ? 99 : 0);
        EXPECT_EQ(control->DesignMouseIcon() != 0, is_link);
        EXPECT_EQ(control->MouseIcon(), nullptr);
    }
}

TEST_F(AboutDesign, BothTimersWouldTickTenTimesASecondAndRest) {
    for (const char16_t* const name : {u"tmrWeb", u"tmrLocWeb"}) {
        EXPECT_EQ(form->Get<Timer>(name).Interval(), 100) << ToUtf8(name);
        EXPECT_FALSE(form->Get<Timer>(name).Running()) << ToUtf8(name);
    }
}

TEST_F(AboutDesign, EnterAndEscapeBothMeanOk) {
    EXPECT_EQ(form->DefaultButton(), &At(u"cmdOK"));
    EXPECT_EQ(form->CancelButton(), &At(u"cmdOK"));
}

TEST_F(AboutDesign, BothLinksHaveTheirToolTipAndNothingElseHasOne) {
    for (const auto& control : form->Controls()) {
        const bool is_link = control->Name() == u"lblWeb" || control->Name() == u"lblLocWeb";
        EXPECT_EQ(control->ToolTipText(), is_link ? u"Click to open the Author's Home Page in Internet" : u"")
            << ToUtf8(control->Name());
    }
}

} // namespace kestrelmoor::tests

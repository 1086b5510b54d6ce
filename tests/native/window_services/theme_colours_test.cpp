#include "window_services/theme_colours.h"

#include "platform/form_peer.h"
#include "platform/practice/windows.h"
#include "shell/program_state.h"
#include "tests/native/support/probe_form.h"
#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

constexpr Colour kFaceReference = 0x8000000F;
constexpr Colour kTextReference = 0x80000012;
constexpr Colour kBackReference = 0x80000005;
constexpr Colour kFieldTextReference = 0x80000008;

class ThemeColours : public ProgramTest {
  protected:
    ThemeColours() {
        Application::Current().SetDesktop(&platform::TheDesktop());
        gWinVersion = kWindowsXP;
        look.theme_colours = {{15, 0x0F0F0F}, {18, 0x121212}, {5, 0x050505}, {8, 0x080808}};
        form->Show();
        world.calls.Clear();
    }
    ~ThemeColours() override {
        Application::Current().UnloadAll();
        form.reset();
        Application::Current().SetDesktop(nullptr);
    }

    void PutStyleOn() {
        look.app_themed = look.theme_active = true;
        UpdateThemeState();
        world.calls.Clear();
    }

    void ExpectState(bool themed, bool api_present, const String& mask) {
        EXPECT_EQ(gThemed, themed);
        EXPECT_EQ(gThemeApiPresent, api_present);
        EXPECT_EQ(gPasswordChar, mask);
    }

    Colour Ask(Colour colour, bool close, bool use_system) {
        return GetThemedColor(colour, form->Window(), theme, false, u"WINDOW", close, use_system);
    }

    std::string Loaded(const char* width, const char* height) {
        return std::string("LoadImageW(\"1\", \"") + width + "\", \"" + height + "\")";
    }

    practice::Appearance& look = world.machine.appearance;
    std::shared_ptr<ProbeForm> form = MakeProbe();
    platform::OwnedTheme theme;
};

} // namespace

TEST_F(ThemeColours, BeforeWindowsXPNothingIsAskedAndTheMaskIsAnAsterisk) {
    look.app_themed = look.theme_active = true;
    gWinVersion = kWindowsXP - 1;
    UpdateThemeState();
    ExpectState(false, false, u"*");
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(ThemeColours, WithoutTheThemeLibraryThereIsNeitherThemeNorApi) {
    look.app_themed = look.theme_active = true;
    look.library_present = false;
    UpdateThemeState();
    ExpectState(false, false, u"*");
}

TEST_F(ThemeColours, AnEarlierStateIsNotKeptWhereNothingCanBeAsked) {
    PutStyleOn();
    look.library_present = false;
    UpdateThemeState();
    ExpectState(false, false, u"*");
    gThemed = gThemeApiPresent = true;
    gWinVersion = kWindowsXP - 1;
    UpdateThemeState();
    ExpectState(false, false, u"*");
}

TEST_F(ThemeColours, ALibraryWithoutItsFirstEntryIsNone) {
    look.missing_entries = {"IsAppThemed"};
    UpdateThemeState();
    ExpectState(false, false, u"*");
}

TEST_F(ThemeColours, AProgramThatIsNotThemedAsksNoFurther) {
    look.theme_active = true;
    UpdateThemeState();
    ExpectState(false, true, u"*");
    EXPECT_EQ(Names(), Lines{"IsAppThemed"});
}

TEST_F(ThemeColours, TheClassicStyleIsNoTheme) {
    look.app_themed = true;
    UpdateThemeState();
    ExpectState(false, true, u"*");
    EXPECT_EQ(Names(), (Lines{"IsAppThemed", "IsThemeActive"}));
}

TEST_F(ThemeColours, WithoutTheBitForFramesTheProgramIsNotThemed) {
    look.app_themed = look.theme_active = true;
    look.app_properties = 6;
    UpdateThemeState();
    ExpectState(false, true, u"*");
}

TEST_F(ThemeColours, WithTheBitForFramesAloneItIsAndTheMaskIsABullet) {
    look.app_themed = look.theme_active = true;
    look.app_properties = 1;
    UpdateThemeState();
    ExpectState(true, true, u"\u2022");
    EXPECT_EQ(Names(), (Lines{"IsAppThemed", "IsThemeActive", "GetThemeAppProperties"}));
}

TEST_F(ThemeColours, OnlyTheFirstCallIsGuarded) {
    look.app_themed = look.theme_active = true;
    look.missing_entries = {"IsThemeActive"};
    EXPECT_EQ(RaisedNumber([] { UpdateThemeState(); }), 453);
}

TEST_F(ThemeColours, WithoutTheApiNoThemeIsOpenedOrClosed) {
    PutStyleOn();
    EnsureThemeData(theme, form->Window(), false, u"WINDOW");
    gThemeApiPresent = false;
    EnsureThemeData(theme, form->Window(), true, u"WINDOW");
    EXPECT_TRUE(theme);
    EXPECT_EQ(Names(), Lines{"OpenThemeData"});
}

TEST_F(ThemeColours, AnOpenThemeIsKept) {
    PutStyleOn();
    EnsureThemeData(theme, form->Window(), false, u"WINDOW");
    EnsureThemeData(theme, form->Window(), false, u"WINDOW");
    EXPECT_EQ(Names(), Lines{"OpenThemeData"});
    EXPECT_EQ(world.calls.Of("OpenThemeData").at(0).arguments.at(1), u"WINDOW");
}

TEST_F(ThemeColours, ForceOpensTheThemeAnew) {
    PutStyleOn();
    EnsureThemeData(theme, form->Window(), false, u"WINDOW");
    EnsureThemeData(theme, form->Window(), true, u"WINDOW");
    EXPECT_EQ(Names(), (Lines{"OpenThemeData", "CloseThemeData", "OpenThemeData"}));
}

TEST_F(ThemeColours, AnOpenThemeIsClosedOnceTheProgramIsNoLongerThemed) {
    PutStyleOn();
    EnsureThemeData(theme, form->Window(), false, u"WINDOW");
    gThemed = false;
    EnsureThemeData(theme, form->Window(), false, u"WINDOW");
    EXPECT_FALSE(theme);
    EXPECT_EQ(Names(), (Lines{"OpenThemeData", "CloseThemeData"}));
}

TEST_F(ThemeColours, APlainColourComesBackWithNothingOpened) {
    PutStyleOn();
    EXPECT_EQ(Ask(0x7F123456, true, true), 0x7F123456U);
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(ThemeColours, AReferenceIsTheStylesColourAndTheThemeStaysOpen) {
    PutStyleOn();
    EXPECT_EQ(Ask(kFaceReference, false, false), 0x0F0F0FU);
    EXPECT_TRUE(theme);
    EXPECT_EQ(Names(), (Lines{"OpenThemeData", "GetThemeSysColor"}));
}

TEST_F(ThemeColours, TheCloseFlagClosesTheThemeThatHasAnswered) {
    PutStyleOn();
    EXPECT_EQ(Ask(kFaceReference, true, false), 0x0F0F0FU);
    EXPECT_FALSE(theme);
    EXPECT_EQ(Names(), (Lines{"OpenThemeData", "GetThemeSysColor", "CloseThemeData"}));
}

TEST_F(ThemeColours, AThemeIsAskedForTheLow24BitsOfAReference) {
    PutStyleOn();
    Ask(0xFF012345, true, false);
    EXPECT_EQ(world.calls.Of("GetThemeSysColor").at(0).arguments.at(1), u"74565");
}

TEST_F(ThemeColours, WithoutAThemeAReferenceStaysOne) {
    EXPECT_EQ(Ask(kBackReference, true, false), kBackReference);
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(ThemeColours, WithoutAThemeTheSystemsColourIsGivenWhereItIsAskedFor) {
    look.system_colours[0x12345] = 0xABCDEF;
    EXPECT_EQ(Ask(0x80012345, true, true), 0xABCDEFU) << "24 bits of the index, not 11";
}

TEST_F(ThemeColours, AThemeThatCantBeOpenedCountsAsNone) {
    PutStyleOn();
    world.Fail("OpenThemeData", 1);
    EXPECT_EQ(Ask(kBackReference, false, false), kBackReference);
}

TEST_F(ThemeColours, MixingIsTheMeanOfEachChannelRoundedDown) {
    EXPECT_EQ(MixColors(0xFFFFFF, 0x80FFFF), 0xBFFFFFU);
    EXPECT_EQ(MixColors(0x000000, 0xFFFFFF), 0x7F7F7FU);
    EXPECT_EQ(MixColors(0x010203, 0x020304), 0x010203U);
    EXPECT_EQ(MixColors(0x0000FF, 0x00FF00), 0x007F7FU);
    EXPECT_EQ(MixColors(0x040608, 0x040404), 0x040506U);
}

TEST_F(ThemeColours, MixingAReferenceTakesItsPresentValue) {
    EXPECT_EQ(MixColors(kBackReference, 0x80FFFF), 0xBFFFFFU);
    look.system_colours[5] = 0x000000;
    EXPECT_EQ(MixColors(kBackReference, 0x80FFFF), 0x407F7FU);
    EXPECT_EQ(MixColors(0x80FFFF, kBackReference), 0x407F7FU);
}

TEST_F(ThemeColours, AReferenceIsResolvedByItsLow11Bits) {
    look.system_colours[0x7FF] = 0x445566;
    EXPECT_EQ(ResolveColor(0x80FFFFFF), 0x445566U);
    EXPECT_EQ(ResolveColor(0x80000805), 0xFFFFFFU);
    EXPECT_EQ(ResolveColor(0x7FFFFFFF), 0x7FFFFFFFU);
    EXPECT_EQ(world.calls.Count("GetSysColor"), 2U);
}

TEST_F(ThemeColours, AWalkColoursEachControlByItsKind) {
    constexpr Colour kUntouched = 0x123456;
    for (const auto& control : form->Controls()) {
        control->SetBackColor(kUntouched);
        control->SetForeColor(kUntouched);
    }
    form->cmdOK.SetFocus();
    PutStyleOn();
    ApplyThemedColors(*form);
    EXPECT_EQ(form->BackColor(), 0x0F0F0FU);
    EXPECT_EQ(form->ForeColor(), 0x121212U);
    const auto expect = [](const Control& control, Colour back, Colour fore) {
        EXPECT_EQ(control.BackColor(), back) << ToUtf8(control.Name());
        EXPECT_EQ(control.ForeColor(), fore) << ToUtf8(control.Name());
    };
    expect(form->fraGroup, 0x0F0F0F, 0x121212);
    expect(form->chkMark, 0x0F0F0F, 0x121212);
    expect(form->lblText, kUntouched, 0x121212);
    expect(form->cmdOK, 0x0F0F0F, kUntouched);
    expect(form->lstRows, 0x050505, 0x080808);
    expect(form->lstMarks, 0x050505, 0x080808);
    expect(form->cboRows, 0x050505, 0x080808);
    expect(form->txtText, 0x050505, 0x080808);
    expect(form->tmrTick, kUntouched, kUntouched);
    expect(form->picIcon, kUntouched, kUntouched);
    expect(form->linRule, kUntouched, kUntouched);
    expect(form->shpBand, kUntouched, kUntouched);
}

TEST_F(ThemeColours, WithoutAStyleAWalkHandsOutReferences) {
    form->cmdOK.SetFocus();
    UpdateThemeState();
    ApplyThemedColors(*form);
    EXPECT_EQ(form->BackColor(), kFaceReference);
    EXPECT_EQ(form->ForeColor(), kTextReference);
    EXPECT_EQ(form->lstRows.BackColor(), kBackReference);
    EXPECT_EQ(form->txtText.BackColor(), kBackReference);
    EXPECT_EQ(form->txtText.ForeColor(), kFieldTextReference);
    EXPECT_EQ(world.calls.Count("OpenThemeData"), 0U);
}

TEST_F(ThemeColours, AWalkAsksOneThemeForFourColoursAndTheFourthClosesIt) {
    PutStyleOn();
    ApplyThemedColors(*form);
    const Lines names = Names();
    ASSERT_GE(names.size(), 6U);
    EXPECT_EQ(Lines(names.begin(), names.begin() + 6),
              (Lines{"OpenThemeData", "GetThemeSysColor", "GetThemeSysColor", "GetThemeSysColor",
                     "GetThemeSysColor", "CloseThemeData"}));
    const auto asked = world.calls.Of("GetThemeSysColor");
    const StringList order{asked[0].arguments[1], asked[1].arguments[1], asked[2].arguments[1],
                           asked[3].arguments[1]};
    EXPECT_EQ(order, (StringList{u"15", u"18", u"5", u"8"}));
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Theme), 0U);
}

TEST_F(ThemeColours, ATextBoxAsksOneThemeOfItsOwnForTwo) {
    PutStyleOn();
    ApplyTextBoxColors(form->txtText, *form);
    EXPECT_EQ(Names(), (Lines{"OpenThemeData", "GetThemeSysColor", "GetThemeSysColor", "CloseThemeData"}));
}

TEST_F(ThemeColours, ATextBoxIsTintedWhileItHasTheFocusAndWhiteAgainAfterwards) {
    form->txtText.GotFocus = form->txtText.LostFocus = [this] { ApplyTextBoxColors(form->txtText, *form); };
    form->cmdOK.SetFocus();
    look.theme_colours[5] = 0xFFFFFF;
    PutStyleOn();
    form->txtText.SetFocus();
    EXPECT_EQ(form->txtText.BackColor(), 0xBFFFFFU);
    EXPECT_EQ(form->txtText.ForeColor(), 0x080808U);
    form->cmdOK.SetFocus();
    EXPECT_EQ(form->txtText.BackColor(), 0xFFFFFFU);
}

TEST_F(ThemeColours, AListIsNotTintedWhileItHasTheFocus) {
    PutStyleOn();
    form->lstRows.SetFocus();
    ApplyThemedColors(*form);
    EXPECT_EQ(form->lstRows.BackColor(), 0x050505U);
}

TEST_F(ThemeColours, APlainColourIsPlainWhateverItsLastBit) {
    PutStyleOn();
    EXPECT_EQ(Ask(0x00000F, false, true), 0x00000FU);
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(ThemeColours, BothIconsAreLoadedInTheSizesThatTheSystemAsksFor) {
    look.metrics = {{49, 20}, {50, 21}, {11, 40}, {12, 42}};
    RefreshWindowIcons(form->Window());
    EXPECT_EQ(CallsOf({"LoadImageW"}), (Lines{Loaded("20", "21"), Loaded("40", "42")}));
    const auto& windows = practice::Windows::Current();
    EXPECT_EQ(windows.Icon(form->Window(), 0), (practice::IconImage{1, 20, 21}));
    EXPECT_EQ(windows.Icon(form->Window(), 1), (practice::IconImage{1, 40, 42}));
    EXPECT_EQ(world.calls.Count("DestroyIcon"), 0U);
}

TEST_F(ThemeColours, NewIconsFreeTheOldOnes) {
    RefreshWindowIcons(form->Window());
    look.metrics[49] = look.metrics[50] = 24;
    look.metrics[11] = look.metrics[12] = 48;
    world.calls.Clear();
    RefreshWindowIcons(form->Window());
    EXPECT_EQ(world.calls.Count("DestroyIcon"), 2U);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Icon), 2U);
    EXPECT_EQ(practice::Windows::Current().Icon(form->Window(), 1), (practice::IconImage{1, 48, 48}));
}

TEST_F(ThemeColours, AnIconThatCantBeLoadedLeavesTheOldOneAndTheOtherSizeComesAllTheSame) {
    RefreshWindowIcons(form->Window());
    look.metrics[49] = look.metrics[50] = 24;
    look.metrics[11] = look.metrics[12] = 48;
    world.Fail("LoadImageW", 1);
    RefreshWindowIcons(form->Window());
    EXPECT_EQ(practice::Windows::Current().Icon(form->Window(), 0), (practice::IconImage{1, 16, 16}));
    EXPECT_EQ(practice::Windows::Current().Icon(form->Window(), 1), (practice::IconImage{1, 48, 48}));
}

} // namespace kestrelmoor::tests

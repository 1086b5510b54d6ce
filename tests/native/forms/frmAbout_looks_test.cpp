#include "platform/practice/surfaces.h"
#include "tests/native/forms/about_window.h"

namespace kestrelmoor::tests {

namespace {

constexpr const char16_t* kSmallPrint[] = {u"lblDisclaimer", u"lblWeb", u"lblLocDisclaimer", u"lblLocWeb",
                                           u"lblLoc"};

class AboutLooks : public AboutWindow {
  protected:
    void ExpectColours(Colour print, Colour face, Colour highlight, Colour shadow) {
        for (const char16_t* const name : kSmallPrint)
            EXPECT_EQ(At(name).ForeColor(), print) << ToUtf8(name);
        EXPECT_EQ(form->BackColor(), face);
        EXPECT_EQ(At(u"cmdHelp").BackColor(), face);
        EXPECT_EQ(At(u"cmdOK").BackColor(), face);
        EXPECT_EQ(At(u"Line1(0)").ForeColor(), highlight);
        EXPECT_EQ(At(u"Line1(1)").ForeColor(), shadow);
    }

    void ExpectColoursOfTheDesign() {
        EXPECT_EQ(At(u"lblTitle").ForeColor(), 0x804000U);
        EXPECT_EQ(At(u"lblVersion").ForeColor(), 0U);
        EXPECT_EQ(At(u"lblDescription").ForeColor(), 0U);
        EXPECT_EQ(At(u"picIcon").BackColor(), 0xDEC4B0U);
        EXPECT_EQ(At(u"shAbout").BackColor(), 0xDEC4B0U);
    }

    PictureBox& Icon() { return form->Get<PictureBox>(u"picIcon"); }
    std::vector<practice::DrawnIcon> Drawn() { return practice::Surfaces::Current().On(Icon()); }

    /// The colour that a link has while the mouse is over it.
    Colour HotColour() {
        At(u"lblLocWeb").MouseMoved(0, 0, 15, 15);
        return At(u"lblLocWeb").ForeColor();
    }
};

} // namespace

TEST_F(AboutLooks, WithoutAStyleEveryColourFollowsTheSystem) {
    Open();
    ExpectColours(0x80000011, 0x8000000F, 0x80000014, 0x80000010);
    EXPECT_EQ(HotColour(), 0x8000001AU);
    EXPECT_EQ(world.calls.Count("OpenThemeData"), 0U);
}

TEST_F(AboutLooks, WithAStyleTheyAreTheStylesPlainOnes) {
    PutTheme();
    Open();
    ExpectColours(0x111111, 0x0F0F0F, 0x141414, 0x101010);
    EXPECT_EQ(HotColour(), 0x1A1A1AU);
}

TEST_F(AboutLooks, BeforeWindows2000AHotLinkHasTheColourOfASelection) {
    for (const auto& [version, colour] :
         {std::pair{0x24000565, 0x8000000DU}, {0x24FFFFFF, 0x8000000DU}, {0x25000000, 0x8000001AU}}) {
        gWinVersion = version;
        Open();
        EXPECT_EQ(HotColour(), colour) << version;
        form->Unload();
    }
}

TEST_F(AboutLooks, TheTitleItsNeighboursAndTheBandKeepTheirColoursInEveryStyle) {
    Load();
    ExpectColoursOfTheDesign();
    PutTheme();
    form->UpdateUI();
    ExpectColoursOfTheDesign();
}

TEST_F(AboutLooks, ButtonsKeepTheirTextsColourAndLabelsTheirBackground) {
    Make();
    const Colour of_buttons = At(u"cmdOK").ForeColor();
    const Colour of_labels = At(u"lblWeb").BackColor();
    const Colour of_form = form->ForeColor();
    PutTheme();
    Load();
    EXPECT_EQ(At(u"cmdOK").ForeColor(), of_buttons);
    EXPECT_EQ(At(u"cmdHelp").ForeColor(), of_buttons);
    EXPECT_EQ(form->ForeColor(), of_form);
    for (const char16_t* const name : kSmallPrint)
        EXPECT_EQ(At(name).BackColor(), of_labels) << ToUtf8(name);
}

TEST_F(AboutLooks, OneThemeAnswersForFiveColoursInTheirOrderAndStaysOpen) {
    PutTheme();
    Load();
    const std::string theme = world.calls.Of("GetThemeSysColor").empty()
                                  ? "none"
                                  : ToUtf8(world.calls.Of("GetThemeSysColor").front().arguments.at(0));
    const auto asked = [&](const char* index) {
        return "GetThemeSysColor(\"" + theme + "\", \"" + index + "\")";
    };
    EXPECT_EQ(CallsOf({"OpenThemeData", "GetThemeSysColor", "CloseThemeData"}),
              (Lines{"OpenThemeData(\"" + std::to_string(form->Window()) + "\", \"WINDOW\")", asked("17"),
                     asked("26"), asked("15"), asked("20"), asked("16")}));
}

TEST_F(AboutLooks, BeforeWindows2000TheSecondColourIsThatOfASelection) {
    PutTheme();
    gWinVersion = 0x24000565;
    Load();
    StringList indices;
    for (const practice::Call& call : world.calls.Of("GetThemeSysColor"))
        indices.push_back(call.arguments.at(1));
    EXPECT_EQ(indices, (StringList{u"17", u"13", u"15", u"20", u"16"}));
}

TEST_F(AboutLooks, EveryUpdateAsksAnewAndLeavesItsThemeOpen) {
    PutTheme(2);
    Load();
    world.machine.appearance.theme_colours = {{17, 0x212121}, {15, 0x1F1F1F}, {20, 0x242424}, {16, 0x202020}};
    form->UpdateUI();
    ExpectColours(0x212121, 0x1F1F1F, 0x242424, 0x202020);
    EXPECT_EQ(world.calls.Count("OpenThemeData"), 2U);
    form->Unload();
    EXPECT_EQ(world.calls.Count("CloseThemeData"), 0U);
}

TEST_F(AboutLooks, AThemeThatCantBeOpenedLeavesTheSystemsColours) {
    PutTheme(0);
    world.Fail("OpenThemeData", 1, 0);
    Open();
    ExpectColours(0x80000011, 0x8000000F, 0x80000014, 0x80000010);
}

TEST_F(AboutLooks, TheIconIsLoadedBehindTheColours) {
    PutTheme();
    Load();
    const Lines calls = CallsOf({"GetThemeSysColor", "DestroyIcon", "LoadImageW"});
    ASSERT_EQ(calls.size(), 6U);
    EXPECT_EQ(calls.back(), kLargeIcon);
}

TEST_F(AboutLooks, TheProgramsIconIsLoadedAt48Pixels) {
    Load();
    EXPECT_EQ(CallsOf({"LoadImageW", "DestroyIcon"}), Lines{kLargeIcon});
}

TEST_F(AboutLooks, AnUpdateFreesTheIconAheadOfLoadingItAnew) {
    Load();
    world.calls.Clear();
    form->UpdateUI();
    const Lines calls = CallsOf({"LoadImageW", "DestroyIcon"});
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].substr(0, 11), "DestroyIcon");
    EXPECT_EQ(calls[1], kLargeIcon);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Icon), 1U);
}

TEST_F(AboutLooks, ClosingFreesTheIcon) {
    Load();
    form->UpdateUI();
    form->Unload();
    EXPECT_EQ(world.calls.Count("LoadImageW"), 2U);
    EXPECT_EQ(world.calls.Count("DestroyIcon"), 2U);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Icon), 0U);
}

TEST_F(AboutLooks, TheIconIsDrawnInItsOwnSizeAtEveryPaintRequest) {
    Open();
    world.calls.Clear();
    std::uintptr_t context = 0;
    world.calls.Before("DrawIconEx", [&] { context = Icon().DeviceContext(); });
    Icon().PaintRequested();
    const Lines drawn = CallsOf({"DrawIconEx"});
    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_NE(context, 0U);
    const String icon = world.calls.Of("DrawIconEx").front().arguments.at(3);
    EXPECT_EQ(drawn.front(), "DrawIconEx(\"" + std::to_string(context) + "\", \"0\", \"0\", \"" +
                                 ToUtf8(icon) + "\", \"0\", \"0\", \"3\")");
    EXPECT_EQ(Drawn(), (std::vector<practice::DrawnIcon>{{{1, 48, 48}, 0, 0}}));
    Icon().PaintRequested();
    EXPECT_EQ(world.calls.Count("DrawIconEx"), 2U);
}

TEST_F(AboutLooks, TheBoxIsClearedAheadOfEachDrawing) {
    Open();
    Icon().PaintRequested();
    Icon().PaintRequested();
    EXPECT_EQ(Drawn().size(), 1U);
}

TEST_F(AboutLooks, AfterAnUpdateTheNewIconIsDrawn) {
    Open();
    form->UpdateUI();
    world.calls.Clear();
    Icon().PaintRequested();
    EXPECT_EQ(Drawn().size(), 1U);
    EXPECT_EQ(world.calls.Count("DrawIconEx"), 1U);
}

TEST_F(AboutLooks, ADrawingThatFailsIsNoMatter) {
    Open();
    world.Fail("DrawIconEx", 6);
    Icon().PaintRequested();
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(AboutLooks, WithoutAnIconNothingIsDrawnAndNothingIsFreed) {
    world.Fail("LoadImageW", 1814, 0);
    Open();
    Icon().PaintRequested();
    EXPECT_EQ(world.calls.Count("DrawIconEx"), 0U);
    form->UpdateUI();
    form->Unload();
    EXPECT_EQ(world.calls.Count("DestroyIcon"), 0U);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(AboutLooks, AnIconThatCantBeLoadedAnewIsDrawnNoMore) {
    Open();
    world.Fail("LoadImageW", 1814);
    form->UpdateUI();
    world.calls.Clear();
    Icon().PaintRequested();
    EXPECT_EQ(world.calls.Count("DrawIconEx"), 0U);
    form->UpdateUI();
    Icon().PaintRequested();
    EXPECT_EQ(world.calls.Count("DrawIconEx"), 1U);
}

} // namespace kestrelmoor::tests

#include "tests/native/forms/about_window.h"

namespace kestrelmoor::tests {

namespace {

constexpr Colour kResting = 0x80000011;
constexpr Colour kHot = 0x8000001A;

/// A window with both links, the mouse away from them.
class AboutLinks : public AboutWindow {
  protected:
    AboutLinks() {
        Install();
        Open();
        world.calls.Clear();
    }

    Timer& TimerOf(StringView link) { return form->Get<Timer>(link == u"lblWeb" ? u"tmrWeb" : u"tmrLocWeb"); }

    void ExpectHot(StringView link) { ExpectState(link, true, kHot, true); }
    void ExpectResting(StringView link) { ExpectState(link, false, kResting, false); }

    void ExpectState(StringView link, bool running, Colour colour, bool underlined) {
        SCOPED_TRACE(ToUtf8(link));
        EXPECT_EQ(TimerOf(link).Running(), running);
        EXPECT_EQ(At(link).ForeColor(), colour);
        EXPECT_EQ(At(link).Font().Underline(), underlined);
    }

    void MoveOnto(StringView name) { ASSERT_TRUE(user.MoveOnto(At(name))) << ToUtf8(name); }
    void MoveAway() { ASSERT_TRUE(user.MoveMouse(1, 1)); }

    /// Lets that many milliseconds go by.
    void Pass(practice::Moment milliseconds) {
        world.pump_milliseconds = milliseconds;
        Application::Current().DoEvents();
    }
};

constexpr const char16_t* kLinks[] = {u"lblWeb", u"lblLocWeb"};

} // namespace

TEST_F(AboutLinks, ALinkUnderTheMouseIsHotAndUnderlined) {
    for (const char16_t* const link : kLinks) {
        ExpectResting(link);
        MoveOnto(link);
        ExpectHot(link);
    }
}

TEST_F(AboutLinks, ALinkStaysHotWhileTheMouseIsOverIt) {
    for (const char16_t* const link : kLinks) {
        MoveOnto(link);
        for (int tick = 0; tick < 3; ++tick) {
            Pass(100);
            ExpectHot(link);
        }
        EXPECT_GE(world.calls.Count("GetCursorPos"), 3U) << "every tick asks";
        world.calls.Clear();
    }
}

TEST_F(AboutLinks, ALinkReturnsToRestAtTheFirstTickThatFindsTheMouseAway) {
    for (const char16_t* const link : kLinks) {
        MoveOnto(link);
        Pass(100);
        MoveAway();
        Pass(99);
        ExpectHot(link);
        Pass(1);
        ExpectResting(link);
    }
}

TEST_F(AboutLinks, OnAndOffAgainWithinATickTurnsALinkHotUntilTheNextTick) {
    for (const char16_t* const link : kLinks) {
        MoveOnto(link);
        Pass(20);
        MoveAway();
        ExpectHot(link);
        Pass(79);
        ExpectHot(link);
        Pass(1);
        ExpectResting(link);
    }
}

TEST_F(AboutLinks, ALinkAtRestAsksNothing) {
    MoveOnto(u"lblWeb");
    MoveAway();
    Pass(100);
    world.calls.Clear();
    Pass(1000);
    EXPECT_EQ(Names(), Lines{"PumpEvents"});
}

TEST_F(AboutLinks, FurtherMovesOverAHotLinkDoNothing) {
    for (const char16_t* const link : kLinks) {
        MoveOnto(link);
        At(link).SetForeColor(0x123456);
        At(link).Font().SetUnderline(false);
        At(link).MouseMoved(0, 0, 15, 15);
        ExpectState(link, true, 0x123456, false);
    }
}

TEST_F(AboutLinks, FurtherMovesDoNotPutOffTheTick) {
    MoveOnto(u"lblWeb");
    MoveAway();
    for (int move = 0; move < 9; ++move) {
        Pass(10);
        At(u"lblWeb").MouseMoved(0, 0, 15, 15);
    }
    ExpectHot(u"lblWeb");
    Pass(10);
    ExpectResting(u"lblWeb");
}

TEST_F(AboutLinks, ALinkGetsHotAgain) {
    for (int time = 0; time < 2; ++time) {
        MoveOnto(u"lblWeb");
        ExpectHot(u"lblWeb");
        MoveAway();
        Pass(100);
        ExpectResting(u"lblWeb");
    }
}

TEST_F(AboutLinks, OfTwoHotLinksEachIsEndedByItsOwnTimer) {
    MoveOnto(u"lblWeb");
    Pass(50);
    MoveOnto(u"lblLocWeb");
    ExpectHot(u"lblWeb");
    ExpectHot(u"lblLocWeb");
    Pass(50);
    ExpectResting(u"lblWeb");
    ExpectHot(u"lblLocWeb");
    MoveAway();
    Pass(49);
    ExpectHot(u"lblLocWeb");
    Pass(1);
    ExpectResting(u"lblLocWeb");
    ExpectResting(u"lblWeb");
}

TEST_F(AboutLinks, NothingElseGetsHot) {
    for (const char16_t* const name :
         {u"lblTitle", u"lblVersion", u"lblDescription", u"lblDisclaimer", u"lblLoc", u"lblLocDisclaimer"}) {
        const Colour before = At(name).ForeColor();
        user.MoveOnto(At(name));
        EXPECT_EQ(At(name).ForeColor(), before) << ToUtf8(name);
        EXPECT_FALSE(At(name).Font().Underline()) << ToUtf8(name);
    }
    ExpectResting(u"lblWeb");
    ExpectResting(u"lblLocWeb");
}

TEST_F(AboutLinks, ALeftPressOpensTheAddressOfTheLink) {
    At(u"lblWeb").MousePressed(1, 0, 15, 15);
    At(u"lblLocWeb").MousePressed(1, 0, 15, 15);
    EXPECT_EQ(Opened(), (Lines{Opening(u"https://www.example.org/"), Opening(u"https://www.example.net/")}));
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(AboutLinks, AClickOpensItsAddressOnce) {
    for (const char16_t* const link : kLinks)
        EXPECT_TRUE(user.ClickOn(At(link)));
    EXPECT_EQ(Opened().size(), 2U);
    EXPECT_EQ(form->ActiveControl(), &At(u"cmdOK"));
}

TEST_F(AboutLinks, AnotherButtonOpensNothing) {
    for (const char16_t* const link : kLinks)
        for (const int button : {0, 2, 3, 4})
            At(link).MousePressed(button, 0, 15, 15);
    EXPECT_EQ(Opened(), Lines{});
}

TEST_F(AboutLinks, ARightClickOpensNothing) {
    for (const char16_t* const link : kLinks)
        user.PressOn(At(link), 2);
    EXPECT_EQ(Opened(), Lines{});
}

TEST_F(AboutLinks, ALinkWithoutAnAddressOpensNothing) {
    for (const char16_t* const link : kLinks) {
        At(link).SetCaption(u"");
        At(link).MousePressed(1, 0, 0, 0);
    }
    EXPECT_EQ(Opened(), Lines{});
}

TEST_F(AboutLinks, OnlyLinksOpenAnything) {
    for (const auto& control : form->Controls())
        if (control->Kind() != ControlKind::CommandButton && control->Name() != u"lblWeb" &&
            control->Name() != u"lblLocWeb")
            control->MousePressed(1, 0, 15, 15);
    EXPECT_EQ(Opened(), Lines{});
}

TEST_F(AboutLinks, AnAddressThatCantBeOpenedIsNoMatter) {
    world.Fail("ShellExecuteW", 31, 0);
    for (const char16_t* const link : kLinks)
        At(link).MousePressed(1, 0, 15, 15);
    EXPECT_EQ(Opened().size(), 2U);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(AboutLinks, TheTranslatorsAddressIsOpenedAsItStands) {
    form->Unload();
    Say(205, u"not an address at all");
    Open();
    At(u"lblLocWeb").MousePressed(1, 0, 15, 15);
    EXPECT_EQ(Opened(), Lines{Opening(u"not an address at all")});
}

TEST_F(AboutLinks, WhereTheMouseCantBeFoundALinkReturnsToRest) {
    for (const char16_t* const link : kLinks) {
        MoveOnto(link);
        At(link).Move(-6000, -6000, 15000, 15000); // whatever place is left in the point, it is under it
        world.Fail("GetCursorPos", 5);
        Pass(100);
        ExpectResting(link);
    }
}

TEST_F(AboutLinks, WhereItsPlaceCantBeToldALinkReturnsToRest) {
    for (const char16_t* const link : kLinks)
        for (const int corner : {1, 2}) {
            MoveOnto(link);
            ExpectHot(link);
            world.Fail("ClientToScreen", 1400, corner);
            Pass(100);
            ExpectResting(link);
            MoveAway();
        }
}

TEST_F(AboutLinks, AnUpdatePutsAHotLinkBackToItsColourAndLeavesItsLineUntilTheTick) {
    for (const char16_t* const link : kLinks) {
        MoveOnto(link);
        form->UpdateUI();
        ExpectState(link, true, kResting, true);
        Pass(100);
        ExpectState(link, true, kResting, true);
        MoveAway();
        Pass(100);
        ExpectResting(link);
    }
}

TEST_F(AboutLinks, ALinkTakesTheColoursOfTheLastUpdate) {
    PutTheme();
    form->UpdateUI();
    for (const char16_t* const link : kLinks) {
        MoveOnto(link);
        ExpectState(link, true, 0x1A1A1A, true);
        MoveAway();
        Pass(100);
        ExpectState(link, false, 0x111111, false);
    }
}

TEST_F(AboutLinks, AWindowThatIsClosedWithAHotLinkTicksNoMore) {
    MoveOnto(u"lblWeb");
    form->Unload();
    world.calls.Clear();
    Pass(500);
    EXPECT_EQ(Names(), Lines{"PumpEvents"});
}

TEST_F(AboutLinks, OpensWithBothLinksAtRest) {
    MoveOnto(u"lblWeb");
    MoveOnto(u"lblLocWeb");
    form->Unload();
    Open();
    ExpectResting(u"lblWeb");
    ExpectResting(u"lblLocWeb");
}

TEST_F(AboutLinks, AHiddenLinkIsNeitherHotNorOpensAnything) {
    form->Unload();
    world.registry.Find(kUninstallKey)->Delete(u"UrlInfoAbout");
    Say(205, u"");
    Open();
    for (const char16_t* const link : kLinks) {
        EXPECT_FALSE(user.ClickOn(At(link)));
        At(link).MouseMoved(0, 0, 0, 0);
        At(link).MousePressed(1, 0, 0, 0);
        ExpectResting(link);
    }
    EXPECT_EQ(Opened(), Lines{});
}

} // namespace kestrelmoor::tests

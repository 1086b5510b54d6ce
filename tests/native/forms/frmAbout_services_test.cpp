#include "forms/about/icon_picture.h"
#include "forms/about/mouse_over.h"
#include "tests/native/forms/about_window.h"
#include "tests/native/support/recording_desktop.h"

namespace kestrelmoor::tests {

namespace {

/// The form's client area has its corner at 300, 200 on the screen, and a pixel is 15 twips.
class AboutServices : public AboutWindow {
  protected:
    AboutServices() {
        Install();
        Open();
        world.calls.Clear();
    }

    /// The screen rectangle of a control: left, top, right, bottom; empty: it has none.
    std::vector<int> ScreenOf(StringView name) {
        platform::PixelRectangle place;
        if (!GetControlScreenRect(At(name), place, *form))
            return {};
        return {place.left, place.top, place.right, place.bottom};
    }

    std::vector<int> ScreenAt(Twips left, Twips top, Twips width, Twips height) {
        At(u"lblTitle").Move(left, top, width, height);
        return ScreenOf(u"lblTitle");
    }

    bool MouseOver(int x, int y) {
        world.mouse = {x, y};
        return IsMouseOver(At(u"cmdOK"), *form);
    }

    Lines PicturesMade() const { return CallsOf({"OleCreatePictureIndirect"}); }
};

using Rectangle = std::vector<int>;

/// A screen whose pixels are not square.
class OblongDesktop : public RecordingDesktop {
  public:
    Twips TwipsPerPixelX() const override { return 12; }
    Twips TwipsPerPixelY() const override { return 20; }
};

} // namespace

TEST_F(AboutServices, AControlOfAnyKindHasItsPlaceOnTheScreen) {
    EXPECT_EQ(ScreenOf(u"cmdOK"), (Rectangle{588, 360, 681, 385}));
    EXPECT_EQ(ScreenOf(u"picIcon"), (Rectangle{316, 216, 364, 264}));
    EXPECT_EQ(ScreenOf(u"lblTitle"), (Rectangle{404, 208, 677, 240}));
    EXPECT_EQ(ScreenOf(u"shAbout"), (Rectangle{300, 200, 693, 336}));
}

// 24 characters of six pixels, a line of 13.
TEST_F(AboutServices, ALinkIsAsLargeAsItsAddress) {
    EXPECT_EQ(ScreenOf(u"lblWeb"), (Rectangle{327, 360, 471, 373}));
    EXPECT_EQ(ScreenOf(u"lblLocWeb"), (Rectangle{327, 408, 471, 421}));
}

TEST_F(AboutServices, AHiddenControlHasAPlaceToo) {
    At(u"cmdOK").SetVisible(false);
    EXPECT_EQ(ScreenOf(u"cmdOK"), (Rectangle{588, 360, 681, 385}));
}

TEST_F(AboutServices, BothCornersAreRoundedAndTheSizeIsAddedAheadOfThat) {
    EXPECT_EQ(ScreenAt(99, 36, 99, 36), (Rectangle{307, 202, 314, 204})); // 6.6 and 2.4
    EXPECT_EQ(ScreenAt(36, 99, 36, 99), (Rectangle{302, 207, 304, 214}));
    EXPECT_EQ(ScreenAt(96, 99, 96, 36), (Rectangle{306, 207, 312, 209})); // 6.4
    EXPECT_EQ(ScreenAt(0, 0, 22, 23), (Rectangle{300, 200, 301, 202}));   // 1.47 and 1.53
}

TEST_F(AboutServices, HalfAPixelIsRoundedToTheEvenOne) {
    EXPECT_EQ(ScreenAt(22.5F, 37.5F, 37.5F, 22.5F), (Rectangle{302, 202, 304, 204})); // 1.5 and 2.5
    EXPECT_EQ(ScreenAt(37.5F, 22.5F, 22.5F, 37.5F), (Rectangle{302, 202, 304, 204}));
}

TEST_F(AboutServices, APlaceAheadOfTheFormsCornerIsRoundedLikewise) {
    EXPECT_EQ(ScreenAt(-99, -36, 15, 15), (Rectangle{293, 198, 294, 199}));
}

TEST_F(AboutServices, TheTwoCornersAreConvertedForTheFormsWindow) {
    ScreenOf(u"cmdOK");
    const std::string window = "\"" + std::to_string(form->Window()) + "\"";
    EXPECT_EQ(Names(), (Lines{"ClientToScreen", "ClientToScreen"}));
    EXPECT_EQ(CallsOf({"ClientToScreen"}), (Lines{"ClientToScreen(" + window + R"(, "288", "160"))",
                                                  "ClientToScreen(" + window + R"(, "381", "185"))"}));
}

TEST_F(AboutServices, AcrossAndDownHaveScalesOfTheirOwn) {
    CloseAndDrop();
    OblongDesktop desktop;
    Load();
    ScreenOf(u"cmdOK");
    EXPECT_EQ(CallsOf({"ClientToScreen"}), Lines{R"(ClientToScreen("42", "360", "120"))"});
}

TEST_F(AboutServices, WhatHasNoPlaceIsNowhere) {
    for (const char16_t* const name : {u"tmrWeb", u"Line1(0)"}) {
        EXPECT_EQ(ScreenOf(name), Rectangle{}) << ToUtf8(name);
        EXPECT_FALSE(IsMouseOver(At(name), *form)) << ToUtf8(name);
    }
}

TEST_F(AboutServices, ACornerThatCantBeConvertedMakesAPlaceUnknown) {
    for (const int corner : {1, 2}) {
        world.Fail("ClientToScreen", 1400, corner);
        EXPECT_EQ(ScreenOf(u"cmdOK"), Rectangle{}) << corner;
    }
    EXPECT_EQ(ScreenOf(u"cmdOK").size(), 4U);
}

TEST_F(AboutServices, AFormWithoutAWindowHasNoPlaceOnTheScreen) {
    form->Unload();
    EXPECT_EQ(ScreenOf(u"cmdOK"), Rectangle{});
}

TEST_F(AboutServices, TheMouseIsOverAControlFromItsCornerUpToItsFarEdges) {
    EXPECT_TRUE(MouseOver(588, 360));
    EXPECT_TRUE(MouseOver(680, 384));
    EXPECT_FALSE(MouseOver(587, 360));
    EXPECT_FALSE(MouseOver(588, 359));
    EXPECT_FALSE(MouseOver(681, 384));
    EXPECT_FALSE(MouseOver(680, 385));
}

TEST_F(AboutServices, AMouseThatCantBeFoundIsOverNothing) {
    At(u"cmdOK").Move(-6000, -6000, 15000, 15000); // whatever place is left in the point, it is under it
    ASSERT_TRUE(MouseOver(0, 0));
    world.Fail("GetCursorPos", 5);
    EXPECT_FALSE(MouseOver(0, 0));
    EXPECT_TRUE(MouseOver(0, 0));
}

TEST_F(AboutServices, TheMouseIsAskedForOnlyWhereThePlaceIsKnown) {
    world.Fail("ClientToScreen", 1400);
    EXPECT_FALSE(MouseOver(600, 370));
    EXPECT_EQ(world.calls.Count("GetCursorPos"), 0U);
    EXPECT_TRUE(MouseOver(600, 370));
    EXPECT_EQ(Names(), (Lines{"ClientToScreen", "ClientToScreen", "ClientToScreen", "GetCursorPos"}));
}

TEST_F(AboutServices, NoHandleMakesNoPicture) {
    EXPECT_EQ(IconToPicture(0, 3), nullptr);
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(AboutServices, AHandleMakesAPictureThatOwnsItInARecordOf20Bytes) {
    const SharedPicture picture = IconToPicture(0x1234, 3);
    ASSERT_NE(picture, nullptr);
    EXPECT_EQ(picture->Handle(), 0x1234U);
    EXPECT_EQ(PicturesMade(), Lines{R"(OleCreatePictureIndirect("20", "3", "4660", "1"))"});
}

TEST_F(AboutServices, ThePicturesTypeIsTheCallers) {
    IconToPicture(0x1234, 1);
    EXPECT_EQ(PicturesMade(), Lines{R"(OleCreatePictureIndirect("20", "1", "4660", "1"))"});
}

TEST_F(AboutServices, APictureThatCantBeMadeIsNone) {
    world.Fail("OleCreatePictureIndirect", 0x80004005);
    EXPECT_EQ(IconToPicture(0x1234, 3), nullptr);
}

TEST_F(AboutServices, APictureGoesWithItsLastHolder) {
    const std::size_t before = world.handles.Outstanding(practice::HandleKind::Picture);
    SharedPicture picture = IconToPicture(0x1234, 3);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Picture), before + 1);
    picture.reset();
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Picture), before);
}

} // namespace kestrelmoor::tests

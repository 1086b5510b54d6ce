#include "platform/mouse_pointer.h"

#include "platform/form_peer.h"
#include "platform/pictures.h"
#include "platform/practice/surfaces.h"
#include "platform/practice/user.h"
#include "platform/practice/window_places.h"
#include "platform/practice/world/world.h"
#include "platform/shell_execution.h"
#include "platform/version_record.h"
#include "tests/form_model_shared/recorded_form.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

using practice::TheWorld;
using tests::RecordedForm;

class PracticeMouse : public testing::Test {
  protected:
    PracticeMouse() {
        Application::Current().SetDesktop(&platform::TheDesktop());
        form = Application::Current().Make<RecordedForm>();
        form->Show();
        for (const char16_t* const name : {u"lblFirst", u"txtInside", u"fraGroup"}) {
            Control& control = form->Find(name);
            control.MouseMove = [this, name](int, int, float x, float y) {
                moves.push_back(ToUtf8(name) + " " + std::to_string(static_cast<int>(x)) + " " +
                                std::to_string(static_cast<int>(y)));
            };
        }
    }
    ~PracticeMouse() override {
        Application::Current().UnloadAll();
        form.reset();
        Application::Current().SetDesktop(nullptr);
        EXPECT_EQ(world.OutstandingHandles(), 0U);
    }

    practice::ScopedWorld world;
    practice::User user;
    std::shared_ptr<RecordedForm> form;
    std::vector<std::string> moves;
};

using Moves = std::vector<std::string>;

// lblFirst stands at 120, 120 twips and is 1200 by 255 large; the form's corner is at 300, 200 pixels.
TEST_F(PracticeMouse, TheControlUnderThePointerIsToldOfItsMovement) {
    EXPECT_TRUE(user.MoveMouse(308, 208));
    EXPECT_TRUE(user.MoveMouse(310, 209));
    EXPECT_TRUE(user.MoveMouse(307, 208));
    EXPECT_EQ(moves, (Moves{"lblFirst 0 0", "lblFirst 30 15"}));
    EXPECT_EQ(world.mouse.x, 307);
    EXPECT_EQ(world.mouse.y, 208);
}

TEST_F(PracticeMouse, WhatStandsInAFrameLiesOnIt) {
    user.MoveOnto(form->Find(u"txtInside"));
    const auto corner = practice::Corner(form->Find(u"fraGroup"));
    user.MoveMouse(corner.x + 1, corner.y + 1);
    ASSERT_EQ(moves.size(), 2U);
    EXPECT_TRUE(moves[0].starts_with("txtInside"));
    EXPECT_EQ(moves[1], "fraGroup 15 15");
}

TEST_F(PracticeMouse, AHiddenControlIsNotTold) {
    form->Find(u"lblFirst").SetVisible(false);
    user.MoveMouse(310, 209);
    EXPECT_EQ(moves, Moves{});
}

TEST_F(PracticeMouse, AButtonIsToldByItsNumberAndTheLeftOneMovesTheFocus) {
    std::vector<int> buttons;
    form->txtSecond.MouseDown = [&buttons](int button, int, float, float) { buttons.push_back(button); };
    EXPECT_TRUE(user.PressOn(form->txtSecond, 2));
    EXPECT_EQ(form->ActiveControl(), &form->txtFirst);
    EXPECT_TRUE(user.PressOn(form->txtSecond, 4));
    EXPECT_TRUE(user.PressOn(form->txtSecond, 1));
    EXPECT_EQ(form->ActiveControl(), &form->txtSecond);
    EXPECT_EQ(buttons, (std::vector<int>{2, 4, 1}));
}

TEST_F(PracticeMouse, ThePointersPlaceIsToldAndCanBeWithheld) {
    user.MoveMouse(12, 34);
    platform::ScreenPoint point;
    EXPECT_TRUE(platform::GetCursorPos(point));
    EXPECT_EQ(point.x, 12);
    EXPECT_EQ(point.y, 34);
    world.Fail("GetCursorPos", 5);
    EXPECT_FALSE(platform::GetCursorPos(point));
}

TEST_F(PracticeMouse, APlaceOnAFormIsOneOnTheScreen) {
    platform::ScreenPoint point{3, 4};
    EXPECT_TRUE(platform::ClientToScreen(form->Window(), point));
    EXPECT_EQ(point.x, 303);
    EXPECT_EQ(point.y, 204);
    EXPECT_FALSE(platform::ClientToScreen(1, point));
}

TEST_F(PracticeMouse, ARectangleEndsAheadOfItsRightAndLowerEdge) {
    const platform::PixelRectangle place{2, 3, 6, 7};
    EXPECT_TRUE(platform::PtInRect(place, {2, 3}));
    EXPECT_TRUE(platform::PtInRect(place, {5, 6}));
    EXPECT_FALSE(platform::PtInRect(place, {6, 6}));
    EXPECT_FALSE(platform::PtInRect(place, {5, 7}));
    EXPECT_FALSE(platform::PtInRect(place, {1, 3}));
}

TEST_F(PracticeMouse, APictureOfAPointerIsGivenBackWithItsLastHolder) {
    SharedPicture picture;
    const std::uintptr_t hand = platform::LoadCursorW(platform::kHandPointer);
    ASSERT_EQ(platform::OleCreatePictureIndirect({20, 3, hand}, true, picture), 0);
    EXPECT_EQ(picture->Handle(), hand);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Picture), 1U);
    picture.reset();
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::Picture), 0U);
    world.Fail("OleCreatePictureIndirect", 0x80004005);
    EXPECT_LT(platform::OleCreatePictureIndirect({20, 3, hand}, true, picture), 0);
    EXPECT_EQ(picture, nullptr);
}

TEST_F(PracticeMouse, WhatTheShellOpenedIsKeptAndWhatItRefusedIsNot) {
    EXPECT_GT(platform::ShellExecuteW(7, u"open", u"C:\\help.html", 1), 32U);
    world.Fail("ShellExecuteW", 2);
    EXPECT_EQ(platform::ShellExecuteW(7, u"open", u"C:\\none.html", 1), 2U);
    ASSERT_EQ(world.shell_executions.size(), 1U);
    EXPECT_EQ(world.shell_executions[0].window, 7U);
    EXPECT_EQ(world.shell_executions[0].file, u"C:\\help.html");
}

TEST_F(PracticeMouse, TheVersionRecordIsTheBuiltOneUntilAWorldSaysOtherwise) {
    EXPECT_EQ(platform::ReadVersionRecord().title, u"Kestrelmoor");
    EXPECT_EQ(platform::ReadVersionRecord().major, 1);
    EXPECT_EQ(platform::ReadVersionRecord().revision, 84);
    world.machine.own_version.revision = 7;
    EXPECT_EQ(platform::ReadVersionRecord().revision, 7);
    world.Fail("ReadVersionRecord", 1);
    EXPECT_EQ(platform::ReadVersionRecord(), platform::VersionRecord());
}

} // namespace
} // namespace kestrelmoor

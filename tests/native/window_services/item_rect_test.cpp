#include "window_services/item_rect.h"

#include "platform/form_peer.h"
#include "platform/practice/list_views.h"
#include "tests/native/support/probe_form.h"
#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

/// A list of 200 by 49 pixels with a border of two and a bar of 17; its rows are 13 pixels or 195 twips high.
/// Three of them and six pixels of the fourth are to be seen.
class ItemRect : public ProgramTest {
  protected:
    ItemRect() {
        Application::Current().SetDesktop(&platform::TheDesktop());
        form->Show();
        for (const char16_t* const name : {u"A", u"B", u"C", u"D", u"E", u"F", u"G", u"H"})
            form->lstRows.AddItem(name);
        form->lstRows.Move(1200, 1500, 3000, 735);
        form->fraGroup.Move(300, 450, 600, 600);
    }
    ~ItemRect() override {
        Application::Current().UnloadAll();
        form.reset();
        Application::Current().SetDesktop(nullptr);
    }

    bool Ask(int row, WindowHandle container = 0) {
        return GetItemRect(form->lstRows, *form, row, left, top, width, height, container);
    }

    void ScrollTo(int row) { practice::ListViews::Current().ScrollTo(form->lstRows, row); }

    void ExpectPlace(Twips expected_left, Twips expected_top) {
        EXPECT_EQ(left, expected_left);
        EXPECT_EQ(top, expected_top);
        EXPECT_EQ(width, 2685);
        EXPECT_EQ(height, 195);
    }

    std::shared_ptr<ProbeForm> form = MakeProbe();
    Twips left = -1;
    Twips top = -1;
    Twips width = -1;
    Twips height = -1;
};

} // namespace

TEST_F(ItemRect, IsTheRowsPlaceOnTheForm) {
    ASSERT_TRUE(Ask(1));
    ExpectPlace(1230, 1725);
}

TEST_F(ItemRect, FollowsTheScrolledList) {
    ScrollTo(2);
    ASSERT_TRUE(Ask(2));
    ExpectPlace(1230, 1530);
}

TEST_F(ItemRect, OfAContainerCountsFromTheCornerOfItsClientArea) {
    ASSERT_TRUE(Ask(1, form->lstRows.Peer()->Window()));
    ExpectPlace(0, 195);
    ASSERT_TRUE(Ask(1, form->fraGroup.Peer()->Window()));
    ExpectPlace(930, 1275);
}

TEST_F(ItemRect, MapsFromTheListToTheContainerOrToTheForm) {
    const std::string list = std::to_string(form->lstRows.Peer()->Window());
    const WindowHandle frame = form->fraGroup.Peer()->Window();
    world.calls.Clear();
    Ask(0);
    Ask(0, frame);
    EXPECT_EQ(CallsOf({"MapWindowPoints"}),
              (Lines{"MapWindowPoints(\"" + list + "\", \"" + std::to_string(form->Window()) + "\")",
                     "MapWindowPoints(\"" + list + "\", \"" + std::to_string(frame) + "\")"}));
}

TEST_F(ItemRect, IsNotGivenForARowAboveTheTop) {
    ScrollTo(1);
    EXPECT_FALSE(Ask(0));
    EXPECT_TRUE(Ask(1));
}

TEST_F(ItemRect, IsNotGivenForARowThatIsPartlyBelowTheBottom) {
    EXPECT_TRUE(Ask(2));
    EXPECT_FALSE(Ask(3));
}

TEST_F(ItemRect, IsNotGivenForARowThatIsNotThereAndNothingIsSet) {
    EXPECT_FALSE(Ask(8));
    EXPECT_FALSE(Ask(-1));
    EXPECT_EQ(left, -1);
    EXPECT_EQ(top, -1);
    EXPECT_EQ(width, -1);
    EXPECT_EQ(height, -1);
    EXPECT_EQ(world.calls.Count("GetClientRect"), 0U);
}

} // namespace kestrelmoor::tests

#include "platform/practice/windows.h"

#include "platform/form_peer.h"
#include "platform/practice/user.h"
#include "platform/practice/window_places.h"
#include "platform/practice/world/world.h"
#include "tests/form_model_shared/recorded_form.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

using platform::PreviousProcedure;
using tests::Events;
using tests::RecordedForm;

/// A form on the practice desktop with 20 rows in a list that shows six.
class PracticeWindows : public testing::Test {
  protected:
    PracticeWindows() {
        Application::Current().SetDesktop(&platform::TheDesktop());
        form = Application::Current().Make<RecordedForm>();
        form->Show();
        list = form->lstRows.Peer()->Window();
        for (char16_t row = u'a'; row < u'a' + 20; ++row)
            form->lstRows.AddItem(String(1, row));
        form->lstRows.Scroll = [this] { form->Note("Scroll " + std::to_string(form->lstRows.TopIndex())); };
        form->Take();
    }
    ~PracticeWindows() override {
        Application::Current().UnloadAll();
        form.reset();
        Application::Current().SetDesktop(nullptr);
        EXPECT_EQ(world.OutstandingHandles(), 0U);
        EXPECT_EQ(world.handles.WrongReleases(), 0U);
    }

    int TopOf(int row) const { return platform::GetListItemRectangle(list, row).value().top; }

    practice::ScopedWorld world;
    practice::User user;
    std::shared_ptr<RecordedForm> form;
    WindowHandle list = 0;
};

// 3720 by 1260 twips: 248 by 84 pixels, less two borders of two and the bar.
TEST_F(PracticeWindows, AListsClientAreaLeavesOutBorderAndBar) {
    const platform::PixelRectangle client = platform::GetClientRect(list);
    EXPECT_EQ(client.right, 227);
    EXPECT_EQ(client.bottom, 80);
    form->lstRows.Clear();
    EXPECT_EQ(platform::GetClientRect(list).right, 244);
}

// The list stands at 120, 2040 twips.
TEST_F(PracticeWindows, ARowIsPlacedOnTheFormAndOnTheScreen) {
    const auto row = platform::GetListItemRectangle(list, 2).value();
    EXPECT_EQ(row.top, 26);
    EXPECT_EQ(row.bottom, 39);
    EXPECT_EQ(row.right, 227);
    const auto on_form = platform::MapWindowPoints(list, form->Window(), row);
    EXPECT_EQ(on_form.left, 10);
    EXPECT_EQ(on_form.top, 164);
    EXPECT_EQ(on_form.right, 237);
    EXPECT_EQ(on_form.bottom, 177);
    EXPECT_EQ(platform::MapWindowPoints(list, 0, row).left, 310);
}

TEST_F(PracticeWindows, ARowThatIsNotThereHasNoPlace) {
    EXPECT_FALSE(platform::GetListItemRectangle(list, 20));
    EXPECT_FALSE(platform::GetListItemRectangle(list, -1));
    EXPECT_FALSE(platform::GetListItemRectangle(form->Window(), 0));
}

TEST_F(PracticeWindows, AKeyThatLeavesTheRowsInViewScrollsByOneAndTellsItLast) {
    form->lstRows.SetListIndex(5);
    form->Take();
    platform::SendMessageW(list, platform::window_message::kKeyDown, key::kDown, 1);
    EXPECT_EQ(form->Take(), (Events{"lstRows Click 6", "Scroll 1"}));
    EXPECT_EQ(TopOf(0), -13);
    EXPECT_EQ(TopOf(6), 65);
}

TEST_F(PracticeWindows, ARowThatTheProgramChoosesComesIntoViewAndThatIsToldWithTheNextPump) {
    form->lstRows.SetListIndex(19);
    EXPECT_EQ(TopOf(19), 65);
    EXPECT_EQ(form->lstRows.TopIndex(), 0);
    form->Take();
    Application::Current().DoEvents();
    EXPECT_EQ(form->Take(), (Events{"Scroll 14"}));
    EXPECT_EQ(TopOf(19), 65);
}

TEST_F(PracticeWindows, TheUserScrollsNoFartherThanTheRowsReach) {
    EXPECT_TRUE(user.ScrollTo(form->lstRows, 3));
    EXPECT_EQ(TopOf(3), 0);
    user.ScrollTo(form->lstRows, 99);
    EXPECT_EQ(form->Take(), (Events{"Scroll 3", "Scroll 14"}));
    form->lstRows.Scrolled(2);
    EXPECT_EQ(TopOf(2), 0);
}

TEST_F(PracticeWindows, TheUserScrollsToARowThatIsToBeChosen) {
    form->lstRows.SetFocus();
    form->Take();
    EXPECT_TRUE(user.ChooseRow(form->lstRows, 10));
    EXPECT_EQ(form->Take(), (Events{"Scroll 5", "lstRows Click 10"}));
    user.ChooseRow(form->lstRows, 7);
    EXPECT_EQ(form->Take(), (Events{"lstRows Click 7"}));
}

PreviousProcedure previous = 0;
std::vector<std::uint32_t> told;

std::intptr_t InFront(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam, std::intptr_t lParam) {
    told.push_back(uMsg);
    platform::CallWindowProcW(previous, hWnd, uMsg, wParam, lParam);
    return 7;
}

TEST_F(PracticeWindows, AProcedureInFrontIsGivenWhatIsDeliveredUntilItIsTakenAway) {
    told.clear();
    practice::DeliverMessage(form->Window(), 26);
    previous = platform::SetWindowProcedure(form->Window(), &InFront);
    EXPECT_NE(previous, 0U);
    EXPECT_EQ(practice::DeliverMessage(form->Window(), 794, 1, 2), 7);
    EXPECT_EQ(told, (std::vector<std::uint32_t>{794}));
    EXPECT_EQ(world.calls.Count("CallWindowProcW"), 3U);
    platform::RestoreWindowProcedure(form->Window(), previous);
    EXPECT_EQ(practice::DeliverMessage(form->Window(), 794), 0);
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(PracticeWindows, AWindowThatIsGoneAnswersNothing) {
    const WindowHandle window = form->Window();
    platform::SetWindowProcedure(window, &InFront);
    form->Unload();
    EXPECT_EQ(practice::DeliverMessage(window, 26), 0);
}

TEST_F(PracticeWindows, AnIconIsTheWindowsUntilAnotherComesOrTheWindowGoes) {
    const auto give = [this](int width) {
        platform::SetWindowIcon(form->Window(), 1, platform::LoadIconImage(1, width, width));
    };
    give(32);
    EXPECT_EQ(practice::Windows::Current().Icon(form->Window(), 1), (practice::IconImage{1, 32, 32}));
    EXPECT_FALSE(practice::Windows::Current().Icon(form->Window(), 0));
    EXPECT_EQ(world.calls.Count("DestroyIcon"), 0U);
    give(48);
    EXPECT_EQ(world.calls.Count("DestroyIcon"), 1U);
    EXPECT_EQ(world.OutstandingHandles(), 1U);
    form->Unload();
    EXPECT_EQ(world.OutstandingHandles(), 0U);
    EXPECT_EQ(world.calls.Count("DestroyIcon"), 1U);
    EXPECT_FALSE(platform::LoadIconImage(2, 16, 16));
    platform::SetWindowIcon(0, 1, platform::LoadIconImage(1, 16, 16));
    EXPECT_EQ(world.OutstandingHandles(), 0U);
}

} // namespace
} // namespace kestrelmoor

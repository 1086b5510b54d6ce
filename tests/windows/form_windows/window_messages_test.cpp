#include "platform/window_messages.h"

#include "tests/windows/form_windows/windows_of_form.h"

#include <algorithm>
#include <vector>

namespace kestrelmoor::tests {

namespace {

using namespace platform;

PreviousProcedure previous = 0;
std::vector<std::uint32_t> told;
std::function<void()> at_setting_change;

std::intptr_t InFront(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam, std::intptr_t lParam) {
    told.push_back(uMsg);
    if (uMsg == window_message::kSettingChange && at_setting_change)
        at_setting_change();
    return CallWindowProcW(previous, hWnd, uMsg, wParam, lParam);
}

class FormProcedures : public ShownForm {
  protected:
    void SetUp() override {
        ShownForm::SetUp();
        previous = SetWindowProcedure(form->Window(), &InFront);
        told.clear();
    }
    void TearDown() override {
        at_setting_change = {};
        ShownForm::TearDown();
    }
    static bool Told(std::uint32_t message) {
        return std::find(told.begin(), told.end(), message) != told.end();
    }
};

TEST_F(FormProcedures, InFrontSeeEveryMessageAndTheFormGoesOn) {
    SendMessageW(form->Window(), window_message::kThemeChanged, 0, 0);
    EXPECT_TRUE(Told(window_message::kThemeChanged));
    hand->Type(u"ab");
    hand->ClickOn(form->chkMark);
    EXPECT_EQ(form->txtFirst.Text(), u"ab");
    EXPECT_EQ(form->chkMark.Value(), 1);
    hand->CloseWindow(*form);
    EXPECT_TRUE(form->IsUnloaded());
}

TEST_F(FormProcedures, PutBackSeeNothingMore) {
    RestoreWindowProcedure(form->Window(), previous);
    SendMessageW(form->Window(), window_message::kSettingChange, 0, 0);
    EXPECT_TRUE(told.empty());
}

TEST_F(FormProcedures, MayUnloadTheFormAndHaveItsWindowToTheirEnd) {
    const WindowHandle window = form->Window();
    bool there = false;
    at_setting_change = [&] {
        RestoreWindowProcedure(window, previous);
        form->Unload();
        there = ::IsWindow(reinterpret_cast<HWND>(window));
    };
    SendMessageW(window, window_message::kSettingChange, 0, 0);
    EXPECT_TRUE(there);
    EXPECT_FALSE(::IsWindow(reinterpret_cast<HWND>(window)));
}

TEST_F(FormProcedures, LeftInPlaceHearNothingOfTheEnd) {
    form->Unload();
    EXPECT_FALSE(Told(WM_DESTROY));
    EXPECT_FALSE(Told(WM_NCDESTROY));
}

WNDPROC former = nullptr;
std::vector<UINT> told_child;

LRESULT CALLBACK InFrontOfChild(HWND window, UINT message, WPARAM wide, LPARAM parameter) {
    told_child.push_back(message);
    return ::CallWindowProcW(former, window, message, wide, parameter);
}

class FormMessages : public ShownForm {};

TEST_F(FormMessages, OfTheSystemsLookReachWhatStandsInAFrame) {
    former = reinterpret_cast<WNDPROC>(
        ::SetWindowLongW(WindowOf(form->txtInside), GWL_WNDPROC, reinterpret_cast<LONG>(&InFrontOfChild)));
    told_child.clear();
    SendMessageW(form->Window(), window_message::kThemeChanged, 0, 0);
    SendMessageW(form->Window(), window_message::kSysColorChange, 0, 0);
    SendMessageW(form->Window(), window_message::kSettingChange, 0, 0);
    EXPECT_EQ(std::count(told_child.begin(), told_child.end(), UINT{WM_THEMECHANGED}), 1);
    EXPECT_EQ(std::count(told_child.begin(), told_child.end(), UINT{WM_SYSCOLORCHANGE}), 1);
    EXPECT_EQ(std::count(told_child.begin(), told_child.end(), UINT{WM_SETTINGCHANGE}), 0);
    ::SetWindowLongW(WindowOf(form->txtInside), GWL_WNDPROC, reinterpret_cast<LONG>(former));
}

TEST_F(FormMessages, ThatPressAKeyMoveTheChoiceOfAList) {
    for (const char16_t* const row : {u"a", u"b", u"c"})
        form->lstRows.AddItem(row);
    form->lstRows.SetListIndex(0);
    Seen();
    SendMessageW(form->lstRows.Peer()->Window(), window_message::kKeyDown, key::kDown, 1);
    EXPECT_EQ(form->lstRows.ListIndex(), 1);
    EXPECT_EQ(Seen(), (Events{"lstRows Click 1"}));
}

class FormRows : public ShownForm {
  protected:
    void SetUp() override {
        ShownForm::SetUp();
        for (int row = 0; row < 20; ++row)
            list.AddItem(u"row");
        Seen();
    }
    std::optional<PixelRectangle> Row(int row) const {
        return GetListItemRectangle(list.Peer()->Window(), row);
    }
    ListBox& list = form->lstRows;
};

TEST_F(FormRows, StandOneUnderTheOtherFromTheTopOfTheClientArea) {
    const int height = Row(0)->bottom;
    EXPECT_GT(height, 8);
    EXPECT_EQ(Row(0)->top, 0);
    EXPECT_EQ(Row(3)->top, 3 * height);
    EXPECT_EQ(Row(3)->left, 0);
    EXPECT_EQ(Row(3)->right, GetClientRect(list.Peer()->Window()).right);
}

TEST_F(FormRows, ThatAreScrolledOutStandAboveTheClientArea) {
    const int height = Row(0)->bottom;
    Send(list, LB_SETTOPINDEX, 2);
    EXPECT_EQ(Row(0)->top, -2 * height);
    EXPECT_EQ(Row(2)->top, 0);
}

TEST_F(FormRows, ThatAreNotThereStandNowhere) {
    EXPECT_TRUE(Row(19));
    EXPECT_FALSE(Row(20));
    EXPECT_FALSE(Row(-1));
}

TEST_F(FormRows, ArePlacedOnTheFormBehindTheListsBorder) {
    const PixelRectangle on_form = MapWindowPoints(list.Peer()->Window(), form->Window(), *Row(1));
    const RECT place = PlaceOnForm(list);
    EXPECT_EQ(on_form.left, place.left + ::GetSystemMetrics(SM_CXEDGE));
    EXPECT_EQ(on_form.top, place.top + ::GetSystemMetrics(SM_CYEDGE) + Row(1)->top);
    EXPECT_EQ(on_form.bottom - on_form.top, Row(0)->bottom);
}

} // namespace

} // namespace kestrelmoor::tests

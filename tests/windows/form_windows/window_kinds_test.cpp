#include "tests/windows/form_windows/windows_of_form.h"

namespace kestrelmoor::tests {

namespace {

class FormWindows : public ShownForm {};

String ClassOf(HWND window) {
    wchar_t name[64]{};
    ::GetClassNameW(window, name, 64);
    return reinterpret_cast<const char16_t*>(name);
}

DWORD Style(HWND window) {
    return static_cast<DWORD>(::GetWindowLongW(window, GWL_STYLE));
}

DWORD ExtendedStyle(HWND window) {
    return static_cast<DWORD>(::GetWindowLongW(window, GWL_EXSTYLE));
}

TEST_F(FormWindows, AreRealWindowsOfTheSystemsClasses) {
    EXPECT_EQ(ClassOf(WindowOf(*form)), u"frmRecorded");
    EXPECT_EQ(ClassOf(WindowOf(form->Find(u"lblFirst"))), u"Static");
    EXPECT_EQ(ClassOf(WindowOf(form->txtFirst)), u"Edit");
    EXPECT_EQ(ClassOf(WindowOf(form->chkMark)), u"Button");
    EXPECT_EQ(ClassOf(WindowOf(form->fraGroup)), u"Button");
    EXPECT_EQ(ClassOf(WindowOf(form->lstRows)), u"ListBox");
    EXPECT_EQ(ClassOf(WindowOf(form->cmdOK)), u"Button");
}

WNDPROC former_procedure = nullptr;
int double_clicks = 0;

LRESULT CALLBACK CountDoubleClicks(HWND window, UINT message, WPARAM wide, LPARAM parameter) {
    if (message == WM_COMMAND && HIWORD(wide) == STN_DBLCLK)
        ++double_clicks;
    return ::CallWindowProcW(former_procedure, window, message, wide, parameter);
}

// Where the class of a label hears of a double click, newer systems let it overwrite the clipboard.
TEST_F(FormWindows, OfLabelsKeepADoubleClickFromTheirClass) {
    const HWND window = WindowOf(*form);
    double_clicks = 0;
    former_procedure = reinterpret_cast<WNDPROC>(
        ::SetWindowLongW(window, GWL_WNDPROC, reinterpret_cast<LONG>(&CountDoubleClicks)));
    ::SendMessageW(window, WM_COMMAND, MAKEWPARAM(100, STN_DBLCLK), 0);
    EXPECT_EQ(double_clicks, 1) << "they are counted";
    ::SendMessageW(WindowOf(form->Find(u"lblFirst")), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_EQ(double_clicks, 1);
    ::SetWindowLongW(window, GWL_WNDPROC, reinterpret_cast<LONG>(former_procedure));
}

TEST_F(FormWindows, HaveIdentifiersThatFollowTheTabOrder) {
    EXPECT_EQ(::GetDlgCtrlID(WindowOf(form->Find(u"lblFirst"))), 100);
    EXPECT_EQ(::GetDlgCtrlID(WindowOf(form->txtInside)), 106);
    EXPECT_EQ(::GetDlgCtrlID(WindowOf(form->cmdMore)), 110);
}

TEST_F(FormWindows, OfLabelsStandDirectlyAheadOfTheirBoxes) {
    EXPECT_EQ(::GetWindow(WindowOf(form->Find(u"lblFirst")), GW_HWNDNEXT), WindowOf(form->txtFirst));
    EXPECT_EQ(::GetWindow(WindowOf(form->Find(u"lblSecond")), GW_HWNDNEXT), WindowOf(form->txtSecond));
    EXPECT_EQ(::GetWindow(WindowOf(form->txtSecond), GW_HWNDNEXT), WindowOf(form->chkMark));
}

TEST_F(FormWindows, OfAFrameHoldsWhatStandsInIt) {
    EXPECT_EQ(::GetParent(WindowOf(form->txtInside)), WindowOf(form->fraGroup));
    const RECT frame = PlaceOnForm(form->fraGroup);
    const RECT inside = PlaceOnForm(form->txtInside);
    EXPECT_GT(inside.left, frame.left);
    EXPECT_LT(inside.bottom, frame.bottom);
}

TEST_F(FormWindows, OfAFormIsAFixedDialogInTheTaskBar) {
    const HWND window = WindowOf(*form);
    EXPECT_EQ(Style(window) & (WS_CAPTION | WS_SYSMENU), DWORD{WS_CAPTION | WS_SYSMENU});
    EXPECT_EQ(Style(window) & (WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX), 0U);
    EXPECT_NE(ExtendedStyle(window) & WS_EX_APPWINDOW, 0U);
}

TEST_F(FormWindows, OfAListSortsNothingAndCutsNoRow) {
    EXPECT_EQ(Style(WindowOf(form->lstRows)) & LBS_SORT, 0U);
    EXPECT_NE(Style(WindowOf(form->lstRows)) & LBS_NOINTEGRALHEIGHT, 0U);
    EXPECT_NE(Style(WindowOf(form->lstRows)) & LBS_USETABSTOPS, 0U);
}

TEST_F(FormWindows, OfTheButtonThatEnterClicksLooksSo) {
    const auto looks_default = [](const Control& button) {
        return (Style(WindowOf(button)) & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
    };
    EXPECT_TRUE(looks_default(form->cmdOK));
    form->cmdMore.SetFocus();
    EXPECT_TRUE(looks_default(form->cmdMore));
    EXPECT_FALSE(looks_default(form->cmdOK));
    form->txtFirst.SetFocus();
    form->cmdCancel.SetDefault(true);
    EXPECT_TRUE(looks_default(form->cmdCancel));
    EXPECT_FALSE(looks_default(form->cmdMore));
    EXPECT_FALSE(looks_default(form->cmdOK));
}

TEST_F(FormWindows, OfABoxLosesAndGainsItsBorder) {
    form->txtFirst.SetBorderStyle(0);
    EXPECT_EQ(ExtendedStyle(WindowOf(form->txtFirst)) & WS_EX_CLIENTEDGE, 0U);
    form->txtFirst.SetBorderStyle(1);
    EXPECT_NE(ExtendedStyle(WindowOf(form->txtFirst)) & WS_EX_CLIENTEDGE, 0U);
}

TEST_F(FormWindows, ShowTheHourglassOverTheFormAndItsControls) {
    const auto answers = [this] {
        return ::SendMessageW(WindowOf(form->txtFirst), WM_SETCURSOR,
                              reinterpret_cast<WPARAM>(WindowOf(form->txtFirst)),
                              MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    };
    form->SetMousePointer(mouse_pointer::kHourglass);
    answers();
    EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, IDC_WAIT));
    form->SetMousePointer(mouse_pointer::kDefault);
    answers();
    EXPECT_EQ(::GetCursor(), ::LoadCursorW(nullptr, IDC_IBEAM));
}

TEST_F(FormWindows, OfAFormUnloadedOutsideItsEventsIsGoneAtOnce) {
    const HWND window = WindowOf(*form);
    form->Unload();
    EXPECT_FALSE(::IsWindow(window));
}

TEST_F(FormWindows, OfAFormUnloadedInAnEventGoesWithTheEventAndIsHiddenAtOnce) {
    const HWND window = WindowOf(*form);
    bool hidden = false;
    form->txtFirst.Change = [&] {
        form->Unload();
        hidden = ::IsWindow(window) && !::IsWindowVisible(window);
    };
    hand->Type(u"a");
    EXPECT_TRUE(hidden);
    EXPECT_FALSE(::IsWindow(window));
}

} // namespace

} // namespace kestrelmoor::tests

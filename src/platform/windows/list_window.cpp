#include "platform/windows/row_windows.h"

namespace kestrelmoor::platform {

namespace {

/// Posted to a list that a call of the model may have scrolled.
constexpr UINT kScrollingPossible = WM_APP;

constexpr RowMessages kListMessages{LB_INSERTSTRING, LB_DELETESTRING, LB_RESETCONTENT,
                                    LB_SETCURSEL,    LB_GETCURSEL,    LBN_SELCHANGE};

constexpr DWORD kListStyle =
    WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS | LBS_HASSTRINGS;

bool IsPress(UINT message) {
    return message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK;
}

bool MayScroll(UINT message) {
    switch (message) {
    case WM_VSCROLL:
    case WM_MOUSEWHEEL:
    case WM_KEYDOWN:
    case WM_CHAR:
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_MOUSEMOVE:
    case WM_TIMER:
    case WM_SIZE:
    case WM_SETFONT:
    case LB_SETTOPINDEX:
    case LB_SETCURSEL:
    case LB_INSERTSTRING:
    case LB_DELETESTRING:
    case LB_RESETCONTENT:
    case kScrollingPossible:
        return true;
    default:
        return false;
    }
}

} // namespace

ListWindow::ListWindow(FormWindow& form, ListBox& list)
    : RowWindow(form, list, {L"LISTBOX", kListStyle, WS_EX_CLIENTEDGE}, kListMessages) {
    ShowTabStops();
    ShowRows();
}

void ListWindow::Show(Property what) {
    if (what == Property::TabStops)
        ShowTabStops();
    else
        RowWindow::Show(what);
}

// Without the rest of the rows the window shows other ones for a moment; what stood on top is put back.
void ListWindow::RowReplaced(int row) {
    const Quiet quiet(*this);
    const int top = TopRow();
    Send(WM_SETREDRAW, FALSE);
    RowWindow::RowReplaced(row);
    Send(LB_SETTOPINDEX, static_cast<WPARAM>(top));
    Send(WM_SETREDRAW, TRUE);
    Repaint();
}

// The window measures its stops by the font that it has when they come.
void ListWindow::ShowFont() {
    RowWindow::ShowFont();
    ShowTabStops();
}

void ListWindow::ShowTabStops() const {
    Send(LB_SETTABSTOPS, List().TabStops().size(), reinterpret_cast<LPARAM>(List().TabStops().data()));
    Repaint();
}

LRESULT ListWindow::Process(UINT message, WPARAM wide, LPARAM parameter) {
    const HWND window = Handle();
    const LRESULT result = RowWindow::Process(message, wide, parameter);
    if (IsPress(message) && ControlWindow::Of(window) == this)
        List().RowPressed(static_cast<int>(Send(LB_GETCURSEL)));
    if (!MayScroll(message) || ControlWindow::Of(window) != this || TopRow() == List().TopIndex())
        return result;
    if (IsQuiet())
        ::PostMessageW(window, kScrollingPossible, 0, 0);
    else
        List().Scrolled(TopRow());
    return result;
}

} // namespace kestrelmoor::platform

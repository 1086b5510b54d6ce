#include "platform/windows/dialog_units.h"
#include "platform/windows/row_windows.h"

#include <utility>

namespace kestrelmoor::platform {

namespace {

/// Posted to a list that a call of the model has changed or scrolled.
constexpr UINT kModelDone = WM_APP;

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
    case kModelDone:
        return true;
    default:
        return false;
    }
}

} // namespace

ListWindow::ListWindow(FormWindow& form, ListBox& list, DWORD style)
    : RowWindow(form, list, {L"LISTBOX", kListStyle | style, WS_EX_CLIENTEDGE}, kListMessages) {
    ShowTabStops();
    ShowRows();
}

void ListWindow::Show(Property what) {
    if (what == Property::TabStops)
        ShowTabStops();
    else
        RowWindow::Show(what);
}

void ListWindow::RowInserted(int row) {
    HoldDrawing();
    RowWindow::RowInserted(row);
}

void ListWindow::RowRemoved(int row) {
    HoldDrawing();
    RowWindow::RowRemoved(row);
}

// While its row is out the window may show other rows; what stood on top is put back.
void ListWindow::RowReplaced(int row) {
    const Quiet quiet(*this);
    HoldDrawing();
    const int top = TopRow();
    RowWindow::RowReplaced(row);
    Send(LB_SETTOPINDEX, static_cast<WPARAM>(top));
}

void ListWindow::RowsCleared() {
    HoldDrawing();
    RowWindow::RowsCleared();
}

// Drawing anew at each of many rows takes far longer than the rows; nothing is seen before the next message.
void ListWindow::HoldDrawing() {
    if (std::exchange(mDrawingHeld, true))
        return;
    Send(WM_SETREDRAW, FALSE);
    PostDone();
}

void ListWindow::PostDone() {
    if (!std::exchange(mDonePosted, true))
        ::PostMessageW(Handle(), kModelDone, 0, 0);
}

void ListWindow::DrawAgain() {
    if (!std::exchange(mDrawingHeld, false))
        return;
    Send(WM_SETREDRAW, TRUE);
    Repaint();
}

// The window measures its stops by the font that it has when they come.
void ListWindow::ShowFont() {
    RowWindow::ShowFont();
    ShowTabStops();
}

void ListWindow::ShowTabStops() const {
    const std::vector<int> stops = StopsForFont(Handle(), List().TabStops());
    Send(LB_SETTABSTOPS, stops.size(), reinterpret_cast<LPARAM>(stops.data()));
    Repaint();
}

LRESULT ListWindow::Process(UINT message, WPARAM wide, LPARAM parameter) {
    const HWND window = Handle();
    if (message == kModelDone)
        mDonePosted = false;
    // A list that doesn't draw neither shows nor hides its scroll bar, so its rows' widths are not yet true.
    if (message == kModelDone || message == LB_GETITEMRECT)
        DrawAgain();
    const LRESULT result = RowWindow::Process(message, wide, parameter);
    if (IsPress(message) && ControlWindow::Of(window) == this)
        List().RowPressed(static_cast<int>(Send(LB_GETCURSEL)));
    if (!MayScroll(message) || ControlWindow::Of(window) != this || TopRow() == List().TopIndex())
        return result;
    if (IsQuiet())
        PostDone();
    else
        List().Scrolled(TopRow());
    return result;
}

} // namespace kestrelmoor::platform

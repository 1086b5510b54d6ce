#include "platform/windows/check_list_window.h"

#include "platform/windows/check_list_accessible.h"
#include "platform/windows/check_mark.h"
#include "platform/windows/colours.h"
#include "platform/windows/fonts.h"
#include "platform/windows/pixels.h"
#include "platform/windows/wide_text.h"

#include <algorithm>
#include <utility>

namespace kestrelmoor::platform {

namespace {

/// A code of WM_COMMAND that no list of the system has: a mark is to be turned.
constexpr int kMarkTurned = 0x7000;

/// A square at the start of each row, and the box in its middle.
constexpr Twips kMarkColumn = 225;
constexpr Twips kMarkSide = 195;

constexpr int kTextGap = 1;
constexpr UINT kTextFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX;

RECT MarkPlace(const RECT& row) {
    const int width = PixelX(kMarkSide);
    const int height = PixelY(kMarkSide);
    const LONG left = row.left + (PixelX(kMarkColumn) - width) / 2;
    const LONG top = row.top + (row.bottom - row.top - height) / 2;
    return {left, top, left + width, top + height};
}

bool IsInMarkColumn(LPARAM place) {
    const int x = static_cast<short>(LOWORD(place));
    return x >= 0 && x < PixelX(kMarkColumn);
}

/// The focus rectangle is a cue like the underlines. Systems that know no hiding answer 0.
bool ShowsFocus(const DRAWITEMSTRUCT& item) {
    return (item.itemState & ODS_FOCUS) != 0 &&
           (::SendMessageW(item.hwndItem, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS) == 0;
}

struct RowColours {
    COLORREF text;
    HBRUSH back;
};

RowColours ColoursOf(const ListBox& list, const DRAWITEMSTRUCT& item, bool enabled) {
    if ((item.itemState & ODS_SELECTED) != 0)
        return {::GetSysColor(COLOR_HIGHLIGHTTEXT), ::GetSysColorBrush(COLOR_HIGHLIGHT)};
    return {enabled ? PlainColour(list.ForeColor()) : ::GetSysColor(COLOR_GRAYTEXT),
            BrushOf(list.BackColor())};
}

} // namespace

CheckListWindow::CheckListWindow(FormWindow& form, ListBox& list)
    : ListWindow(form, list, LBS_OWNERDRAWFIXED) {
    ShowRowHeight();
}

void CheckListWindow::ShowFont() {
    ListWindow::ShowFont();
    ShowRowHeight();
}

void CheckListWindow::ShowRowHeight() const {
    const LONG text = TextExtent(SystemFont(std::as_const(List()).Font()), u"X").cy;
    Send(LB_SETITEMHEIGHT, 0, std::max<LONG>(text, PixelY(kMarkColumn)));
}

void CheckListWindow::RowMarked(int row) {
    if (!IsDrawingHeld()) {
        const RECT place = RowPlace(row);
        ::InvalidateRect(Handle(), &place, FALSE);
    }
    TellMarkChanged(Handle(), row);
}

void CheckListWindow::Draw(const DRAWITEMSTRUCT& item) const {
    const int row = static_cast<int>(item.itemID);
    ::FillRect(item.hDC, &item.rcItem, BrushOf(List().BackColor()));
    if (IsRow(row))
        DrawRow(item, row);
    else if (ShowsFocus(item))
        ::DrawFocusRect(item.hDC, &item.rcItem);
}

void CheckListWindow::DrawRow(const DRAWITEMSTRUCT& item, int row) const {
    const bool enabled = List().IsUsable();
    DrawCheckMark(Handle(), item.hDC, MarkPlace(item.rcItem), {List().Selected(row), enabled});
    RECT place = item.rcItem;
    place.left += PixelX(kMarkColumn);
    const RowColours colours = ColoursOf(List(), item, enabled);
    ::FillRect(item.hDC, &place, colours.back);
    ::SetTextColor(item.hDC, colours.text);
    ::SetBkMode(item.hDC, TRANSPARENT);
    RECT text = place;
    text.left += kTextGap;
    ::DrawTextW(item.hDC, Wide(List().List(row)), static_cast<int>(List().List(row).size()), &text,
                kTextFormat);
    // The rectangle is drawn in the colours of the text.
    ::SetTextColor(item.hDC, 0);
    ::SetBkColor(item.hDC, RGB(255, 255, 255));
    if (ShowsFocus(item))
        ::DrawFocusRect(item.hDC, &place);
}

int CheckListWindow::RowAt(LPARAM place) const {
    const LONG y = static_cast<short>(HIWORD(place));
    const int first = static_cast<int>(Send(LB_GETTOPINDEX));
    for (int row = first; IsRow(row); ++row) {
        const RECT place_of_row = RowPlace(row);
        if (y < place_of_row.bottom)
            return y >= place_of_row.top ? row : -1;
    }
    return -1;
}

RECT CheckListWindow::RowPlace(int row) const {
    RECT place{};
    Send(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&place));
    return place;
}

bool CheckListWindow::IsWhollyInView(int row) const {
    RECT client{};
    ::GetClientRect(Handle(), &client);
    const RECT place = RowPlace(row);
    return place.top >= client.top && place.bottom <= client.bottom;
}

void CheckListWindow::RowInserted(int row) {
    ListWindow::RowInserted(row);
    if (mPressedRow < 0)
        return;
    mPressedRow += row <= mPressedRow ? 1 : 0;
    mPressedMoved = true;
}

void CheckListWindow::RowRemoved(int row) {
    ListWindow::RowRemoved(row);
    if (mPressedRow < 0)
        return;
    if (row == mPressedRow)
        mPressedRow = -1;
    else
        mPressedRow -= row < mPressedRow ? 1 : 0;
    mPressedMoved = true;
}

void CheckListWindow::NotePress(LPARAM place) {
    mPressedRow = RowAt(place);
    mMarkPressed = mPressedRow >= 0 && IsInMarkColumn(place);
    mPressedMoved = false;
    mPressedTop = mPressedRow >= 0 ? RowPlace(mPressedRow).top : 0;
    mPressedShift = 0;
}

/// The place as far from the pressed row as it was before rows came or went; that row is chosen once more.
LPARAM CheckListWindow::WithPressedRow(LPARAM place) {
    if (!IsRow(mPressedRow))
        return place;
    if (std::exchange(mPressedMoved, false)) {
        Send(LB_SETCURSEL, static_cast<WPARAM>(mPressedRow));
        List().RowPressed(mPressedRow);
        mPressedShift = RowPlace(mPressedRow).top - mPressedTop;
    }
    const LONG y = static_cast<short>(HIWORD(place)) + mPressedShift;
    return MAKELPARAM(LOWORD(place), static_cast<WORD>(y));
}

LRESULT CheckListWindow::Process(UINT message, WPARAM wide, LPARAM parameter) {
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        NotePress(parameter);
        break;
    case WM_MOUSEMOVE:
        if ((wide & MK_LBUTTON) == 0)
            mPressedRow = -1; // it was let go elsewhere
        parameter = WithPressedRow(parameter);
        break;
    case WM_LBUTTONUP:
        return ButtonUp(wide, parameter);
    case WM_CHAR:
        if (wide != VK_SPACE)
            break;
        ReportTurn(List().ListIndex());
        return 0;
    case WM_KEYDOWN:
        if (wide == VK_SPACE)
            return 0;
        break;
    case WM_UPDATEUISTATE:
    case WM_THEMECHANGED:
        Repaint();
        break;
    case kPressMark:
        PressMark(static_cast<int>(wide));
        return 0;
    case WM_GETOBJECT:
        if (const LRESULT answer = AccessibleAnswer(Handle(), wide, parameter))
            return answer;
        break;
    default:
        break;
    }
    return ListWindow::Process(message, wide, parameter);
}

// The press may have scrolled its row, so the height at which it is let go says nothing.
LRESULT CheckListWindow::ButtonUp(WPARAM keys, LPARAM place) {
    const HWND window = Handle();
    const LPARAM moved = WithPressedRow(place);
    const int row = std::exchange(mPressedRow, -1);
    const LRESULT result = ListWindow::Process(WM_LBUTTONUP, keys, moved);
    if (Of(window) == this && mMarkPressed && row >= 0 && row == List().ListIndex() && IsInMarkColumn(place))
        ReportTurn(row);
    return result;
}

// By messages of their own, between which the form acts on a change of focus, as with a press of the mouse.
void CheckListWindow::PressMark(int row) {
    const HWND window = Handle();
    if (!IsRow(row) || !List().IsUsable() || !::IsWindowEnabled(FormWindow::Holding(window)->Handle()))
        return;
    if (!IsWhollyInView(row))
        Send(LB_SETTOPINDEX, static_cast<WPARAM>(row));
    const RECT mark = MarkPlace(RowPlace(row));
    const LPARAM place = MAKELPARAM((mark.left + mark.right) / 2, (mark.top + mark.bottom) / 2);
    ::PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, place);
    ::PostMessageW(window, WM_LBUTTONUP, 0, place);
}

void CheckListWindow::ReportTurn(int row) {
    mTurnedRow = row;
    ::SendMessageW(::GetParent(Handle()), WM_COMMAND, MAKEWPARAM(0, kMarkTurned),
                   reinterpret_cast<LPARAM>(Handle()));
}

bool CheckListWindow::Reports(int code) const {
    return code == kMarkTurned || ListWindow::Reports(code);
}

void CheckListWindow::Notified(int code) {
    if (code == kMarkTurned)
        List().RowToggled(mTurnedRow);
    else
        ListWindow::Notified(code);
}

} // namespace kestrelmoor::platform

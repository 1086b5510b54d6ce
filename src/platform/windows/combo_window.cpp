#include "platform/windows/pixels.h"
#include "platform/windows/row_windows.h"

namespace kestrelmoor::platform {

namespace {

constexpr RowMessages kComboMessages{CB_INSERTSTRING, CB_DELETESTRING, CB_RESETCONTENT,
                                     CB_SETCURSEL,    CB_GETCURSEL,    CBN_SELCHANGE};

constexpr DWORD kComboStyle = WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST | CBS_HASSTRINGS;

constexpr int kRowsDropped = 8;
constexpr int kListBorder = 2;

/// Stands for the part that shows the choice, where a row's number is asked for.
constexpr WPARAM kChoice = static_cast<WPARAM>(-1);

int HeightOf(HWND window) {
    RECT place{};
    ::GetWindowRect(window, &place);
    return static_cast<int>(place.bottom - place.top);
}

} // namespace

ComboWindow::ComboWindow(FormWindow& form, ComboBox& list)
    : RowWindow(form, list, {L"COMBOBOX", kComboStyle, 0}, kComboMessages) {
    FitHeight();
    ShowRows();
}

// Open, it takes Enter and Escape itself, to close its list.
bool ComboWindow::KeepsKey(WPARAM key_code) const {
    return (key_code == VK_RETURN || key_code == VK_ESCAPE) && Send(CB_GETDROPPEDSTATE) != 0;
}

void ComboWindow::ShowPlace() {
    RowWindow::ShowPlace();
    FitHeight();
}

void ComboWindow::ShowFont() {
    RowWindow::ShowFont();
    FitHeight();
}

// The opened list is no child of the form; it asks the box.
LRESULT ComboWindow::Process(UINT message, WPARAM wide, LPARAM parameter) {
    if (message == WM_CTLCOLORLISTBOX)
        return reinterpret_cast<LRESULT>(Colours(reinterpret_cast<HDC>(wide), message));
    return RowWindow::Process(message, wide, parameter);
}

// The height that such a window is given is that of the open list; closed it takes its height from its font.
// What its frame adds to the part with the choice differs with the system's style, so it is measured.
void ComboWindow::FitHeight() const {
    const RECT place = PixelPlace(Model());
    const int wanted = static_cast<int>(place.bottom - place.top);
    const int dropped = wanted + kRowsDropped * static_cast<int>(Send(CB_GETITEMHEIGHT)) + kListBorder;
    ::SetWindowPos(Handle(), nullptr, 0, 0, place.right - place.left, dropped,
                   SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    Send(CB_SETITEMHEIGHT, kChoice, wanted);
    const int surplus = HeightOf(Handle()) - wanted;
    Send(CB_SETITEMHEIGHT, kChoice, wanted - surplus);
}

} // namespace kestrelmoor::platform

// bare_window.exe LANGUAGE-LIBRARY: the system's calls that lead to the password window of Moorlink.exe with
// two servers, and a window with its fifteen controls, with the words and the font of the language library,
// at the places that they have when it opens, in the colours of the visual style. It can be looked at and
// closed.

#include "tests/bench/bare/language.h"
#include "tests/bench/bare/start_calls.h"
#include "tests/bench/bare/visual_calls.h"

#include <imm.h>

#include <initializer_list>

namespace {

using kestrelmoor::bench::Language;
using kestrelmoor::bench::Look;

struct Piece {
    const wchar_t* window_class;
    int text; ///< message number; 0: none
    DWORD style;
    DWORD extended_style;
    int left, top, width, height; ///< pixels at 96 dots per inch
};

constexpr DWORD kShown = WS_CHILD | WS_CLIPSIBLINGS | WS_VISIBLE;
constexpr DWORD kHidden = WS_CHILD | WS_CLIPSIBLINGS;
constexpr DWORD kPassword = kShown | WS_TABSTOP | ES_AUTOHSCROLL | ES_PASSWORD;
constexpr DWORD kStatus = kHidden | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_READONLY;
constexpr DWORD kList =
    kHidden | WS_TABSTOP | WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | LBS_USETABSTOPS | LBS_HASSTRINGS;

constexpr Piece kPieces[] = {
    {L"STATIC", 304, kShown, 0, 8, 11, 137, 17},
    {L"EDIT", 0, kShown | WS_DISABLED | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, 144, 8, 193, 19},
    {L"EDIT", 0, kStatus, WS_EX_CLIENTEDGE, 8, 40, 329, 137},
    {L"BUTTON", 313, kShown | WS_TABSTOP | BS_CHECKBOX, 0, 8, 40, 329, 17},
    {L"STATIC", 301, kShown, 0, 8, 67, 137, 17},
    {L"EDIT", 0, kPassword, WS_EX_CLIENTEDGE, 144, 64, 193, 19},
    {L"LISTBOX", 0, kList, WS_EX_CLIENTEDGE, 8, 88, 329, 56},
    {L"STATIC", 314, kShown, 0, 8, 99, 137, 17},
    {L"EDIT", 0, kPassword, WS_EX_CLIENTEDGE, 144, 96, 193, 19},
    {L"STATIC", 315, kShown, 0, 8, 123, 137, 17},
    {L"EDIT", 0, kPassword, WS_EX_CLIENTEDGE, 144, 120, 193, 19},
    {L"STATIC", 0, kHidden, 0, 8, 160, 233, 17},
    {L"BUTTON", 305, kShown | WS_TABSTOP, 0, 8, 152, 93, 25},
    {L"BUTTON", 1001, kShown | WS_TABSTOP | WS_DISABLED | BS_DEFPUSHBUTTON, 0, 144, 152, 93, 25},
    {L"BUTTON", 1002, kShown | WS_TABSTOP, 0, 244, 152, 93, 25},
};
static_assert(sizeof kPieces == 15 * sizeof(Piece));

constexpr DWORD kFrame = WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr int kTitle = 303;
constexpr LONG kWidth = 345;
constexpr LONG kHeight = 185;
constexpr int kFontHeight = -11;
constexpr int kTabStop = 89;

Look gLook;

LRESULT Coloured(HDC context, COLORREF back, COLORREF text) {
    ::SetBkColor(context, back);
    ::SetTextColor(context, text);
    ::SetDCBrushColor(context, back);
    return reinterpret_cast<LRESULT>(::GetStockObject(DC_BRUSH));
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM parameter) {
    if (message == WM_DESTROY)
        ::PostQuitMessage(0);
    if (message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX)
        return Coloured(reinterpret_cast<HDC>(wide), gLook.back, gLook.back_text);
    if (message == WM_CTLCOLORSTATIC || message == WM_CTLCOLORBTN)
        return Coloured(reinterpret_cast<HDC>(wide), gLook.face, gLook.face_text);
    return ::DefWindowProcW(window, message, wide, parameter);
}

HWND MakeWindow(Language& language) {
    WNDCLASSEXW form_class{};
    form_class.cbSize = sizeof form_class;
    form_class.lpfnWndProc = Procedure;
    form_class.hInstance = ::GetModuleHandleW(nullptr);
    form_class.hIcon = ::LoadIconW(form_class.hInstance, MAKEINTRESOURCEW(1));
    form_class.hCursor = ::LoadCursorW(nullptr, IDC_ARROW);
    form_class.hbrBackground = ::GetSysColorBrush(COLOR_BTNFACE);
    form_class.lpszClassName = L"bareWindow";
    ::RegisterClassExW(&form_class);
    RECT place{0, 0, kWidth, kHeight};
    ::AdjustWindowRectEx(&place, kFrame, FALSE, WS_EX_DLGMODALFRAME);
    return ::CreateWindowExW(WS_EX_DLGMODALFRAME | WS_EX_APPWINDOW, form_class.lpszClassName,
                             language.Text(kTitle), kFrame, 200, 200, place.right - place.left,
                             place.bottom - place.top, nullptr, nullptr, form_class.hInstance, nullptr);
}

void FillEdit(HWND box) {
    ::SendMessageW(box, EM_LIMITTEXT, 0, 0);
    if ((::GetWindowLongW(box, GWL_STYLE) & ES_PASSWORD) == 0)
        return;
    ::SendMessageW(box, EM_SETPASSWORDCHAR, gLook.mask, 0);
    const auto associate = reinterpret_cast<decltype(&::ImmAssociateContext)>(
        reinterpret_cast<void*>(::GetProcAddress(::LoadLibraryW(L"imm32.dll"), "ImmAssociateContext")));
    if (associate)
        associate(box, nullptr);
}

void FillList(HWND list) {
    ::SendMessageW(list, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&kTabStop));
    const wchar_t mask[] = {L'\t',      gLook.mask, gLook.mask, gLook.mask, gLook.mask,
                            gLook.mask, gLook.mask, gLook.mask, gLook.mask, L'\0'};
    for (const wchar_t* const name : {L" This computer", L"\\\\ARCHIVE", L"PRACTICE"}) {
        wchar_t row[64];
        ::lstrcatW(::lstrcpyW(row, name), mask);
        ::SendMessageW(list, LB_INSERTSTRING, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(row));
    }
}

void MakePieces(HWND window, Language& language) {
    const HFONT font = ::CreateFontW(kFontHeight, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0,
                                     language.FontName());
    for (const Piece& piece : kPieces) {
        const wchar_t* const text =
            piece.text != 0 ? language.Text(static_cast<std::int16_t>(piece.text)) : L"";
        const HWND control = ::CreateWindowExW(piece.extended_style, piece.window_class, text, piece.style,
                                               piece.left, piece.top, piece.width, piece.height, window,
                                               nullptr, ::GetModuleHandleW(nullptr), nullptr);
        ::SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        if (::lstrcmpiW(piece.window_class, L"EDIT") == 0)
            FillEdit(control);
        if (::lstrcmpiW(piece.window_class, L"LISTBOX") == 0)
            FillList(control);
    }
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    const wchar_t* const library = kestrelmoor::bench::Arguments();
    kestrelmoor::bench::CallsAheadOfTheLanguage(library);
    Language language(library);
    kestrelmoor::bench::Accounts accounts;
    kestrelmoor::bench::CallsBehindTheLanguage(accounts);
    kestrelmoor::bench::CallsAheadOfTheWindow();
    const HWND window = MakeWindow(language);
    gLook = kestrelmoor::bench::AskForLook(window);
    MakePieces(window, language);
    kestrelmoor::bench::CallsBehindTheControls(window);
    ::ShowWindow(window, SW_SHOW);
    MSG message{};
    while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
        ::TranslateMessage(&message);
        ::DispatchMessageW(&message);
    }
    return 0;
}

// A small program that the desktop tools are tried on: it has one control of each kind that they read, shows
// message boxes, with /bad as its command line has faults of layout, and with /slow takes its time before it
// looks at its messages.
#include <windows.h>

#include <string>

namespace {

constexpr int kName = 100, kPassword = 101, kGreet = 102, kAsk = 103, kRows = 104, kColour = 105,
              kLabel = 106;
constexpr int kPens = 107;
HINSTANCE gInstance = nullptr;
HFONT gFont = nullptr;

HWND Add(HWND parent, const wchar_t* kind, const wchar_t* text, DWORD style, RECT place, int identifier) {
    const DWORD extended = lstrcmpiW(kind, L"Edit") == 0 ? WS_EX_CLIENTEDGE : 0;
    HWND control = CreateWindowExW(
        extended, kind, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top, place.right, place.bottom,
        parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)), gInstance, nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(gFont), TRUE);
    return control;
}

void AddControls(HWND window) {
    Add(window, L"Static", L"&Name:", SS_LEFT, {10, 12, 90, 16}, kLabel);
    Add(window, L"Edit", L"", WS_TABSTOP | ES_AUTOHSCROLL, {110, 10, 160, 20}, kName);
    HWND password =
        Add(window, L"Edit", L"", WS_TABSTOP | ES_PASSWORD | ES_AUTOHSCROLL, {110, 40, 160, 20}, kPassword);
    SendMessageW(password, EM_SETPASSWORDCHAR, 0x2022, 0);
    Add(window, L"Button", L"&Greet", WS_TABSTOP | BS_DEFPUSHBUTTON, {10, 70, 80, 25}, kGreet);
    Add(window, L"Button", L"&Ask", WS_TABSTOP | BS_PUSHBUTTON, {100, 70, 80, 25}, kAsk);
    Add(window, L"Button", L"&Pens", WS_TABSTOP | BS_PUSHBUTTON, {190, 70, 80, 25}, kPens);
    HWND rows = Add(window, L"ListBox", L"", WS_TABSTOP | WS_BORDER | LBS_NOTIFY, {10, 105, 120, 60}, kRows);
    HWND colour = Add(window, L"ComboBox", L"", WS_TABSTOP | CBS_DROPDOWNLIST, {140, 105, 130, 100}, kColour);
    for (const wchar_t* text : {L"first", L"second", L"third"})
        SendMessageW(rows, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    for (const wchar_t* text : {L"red", L"green"})
        SendMessageW(colour, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    SendMessageW(rows, LB_SETCURSEL, 1, 0);
    SendMessageW(colour, CB_SETCURSEL, 0, 0);
}

void AddFaults(HWND window) {
    Add(window, L"Button", L"A caption that is far too long", BS_PUSHBUTTON, {10, 175, 60, 25}, 110);
    Add(window, L"Static", L"Two lines of text in the height of a single one", SS_LEFT, {80, 175, 120, 15},
        111);
    Add(window, L"Static", L"below", SS_LEFT, {210, 175, 50, 15}, 112);
    Add(window, L"Static", L"above", SS_LEFT, {230, 180, 45, 15}, 113);
    Add(window, L"Static", L"beyond", SS_LEFT, {10, 230, 60, 30}, 114);
}

std::wstring ReadControl(HWND window, int identifier) {
    wchar_t text[256] = L"";
    const UINT length = GetDlgItemTextW(window, identifier, text, 256);
    return std::wstring(text, length);
}

void Act(HWND window, int identifier) {
    const std::wstring name = ReadControl(window, kName);
    if (identifier == kGreet)
        MessageBoxW(window, (L"Hello " + name + L"\r\n" + ReadControl(window, kPassword)).c_str(),
                    L"Greeting", MB_OK | MB_ICONINFORMATION);
    if (identifier == kAsk &&
        MessageBoxW(window, L"Is it so?", L"Question", MB_YESNO | MB_DEFBUTTON2 | MB_ICONQUESTION) == IDYES)
        SetDlgItemTextW(window, kName, L"It is so.");
    if (identifier == kPens)
        for (int i = 0; i < 25; ++i)
            CreatePen(PS_SOLID, i, 0);
    if (identifier == IDCANCEL)
        DestroyWindow(window);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
    case WM_COMMAND:
        if (HIWORD(wparam) == BN_CLICKED)
            Act(window, LOWORD(wparam));
        return 0;
    case WM_DESTROY:
        PostQuitMessage(7);
        return 0;
    default:
        return DefWindowProcW(window, message, wparam, lparam);
    }
}

} // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, wchar_t* command_line, int show) {
    gInstance = instance;
    if (std::wstring(command_line).starts_with(L"/load "))
        return LoadLibraryW(command_line + 6) != nullptr ? 0 : 1;
    if (lstrcmpW(command_line, L"/end") == 0) {
        ExitWindowsEx(EWX_LOGOFF, 0);
        return 3;
    }
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    gFont = CreateFontIndirectW(&metrics.lfMessageFont);
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = WindowProcedure;
    window_class.hInstance = instance;
    window_class.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    window_class.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    window_class.lpszClassName = L"frmTest";
    RegisterClassW(&window_class);
    wchar_t title[64] = L"Test window";
    GetEnvironmentVariableW(L"TEST_WINDOW_TITLE", title, 64);
    RECT outer{0, 0, 280, 240};
    AdjustWindowRect(&outer, WS_OVERLAPPEDWINDOW, FALSE);
    HWND window =
        CreateWindowExW(0, L"frmTest", title, WS_OVERLAPPEDWINDOW, 200, 150, outer.right - outer.left,
                        outer.bottom - outer.top, nullptr, nullptr, instance, nullptr);
    AddControls(window);
    if (lstrcmpW(command_line, L"/bad") == 0)
        AddFaults(window);
    ShowWindow(window, show);
    if (lstrcmpW(command_line, L"/slow") == 0)
        Sleep(300);
    SetFocus(GetDlgItem(window, kName));
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!IsDialogMessageW(window, &message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}

#include "commands.h"

#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

void AddRectangle(Record& record, const RECT& rectangle) {
    record.Add(rectangle.left).Add(rectangle.top).Add(rectangle.right).Add(rectangle.bottom);
}

void AddStyles(Record& record, HWND window) {
    record.Add(static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)));
    record.Add(static_cast<DWORD>(GetWindowLongW(window, GWL_EXSTYLE)));
}

// A window may go while it is looked at; one that does not answer is listed without its text.
std::wstring TextOrNothing(HWND window) {
    try {
        return TextOf(window);
    } catch (const std::runtime_error&) {
        return {};
    }
}

Record DescribeWindow(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    RECT place{};
    GetWindowRect(window, &place);
    // GetWindowText reads what the window manager holds and never waits for another program.
    wchar_t title[512] = L"";
    GetWindowTextW(window, title, 512);

    Record record;
    record.Add(Number(window)).Add(process).Add(ClassOf(window)).Add(std::wstring(title));
    AddRectangle(record, place);
    record.Add(IsWindowVisible(window) != 0).Add(IsWindowEnabled(window) != 0);
    record.Add(Number(GetWindow(window, GW_OWNER)));
    AddStyles(record, window);
    return record;
}

long long PasswordCharacter(HWND control) {
    return lstrcmpiW(ClassOf(control).c_str(), L"Edit") == 0 ? Ask(control, EM_GETPASSWORDCHAR, 0, 0) : 0;
}

Record DescribeChild(HWND control) {
    HWND parent = GetAncestor(control, GA_PARENT);
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);

    Record record;
    record.Add(Number(control)).Add(Number(parent)).Add(ClassOf(control)).Add(GetDlgCtrlID(control));
    record.Add(TextOrNothing(control));
    AddRectangle(record, place);
    AddStyles(record, control);
    record.Add(IsWindowVisible(control) != 0).Add(IsWindowEnabled(control) != 0);
    record.Add(PasswordCharacter(control));
    return record;
}

BOOL CALLBACK CollectHandle(HWND window, LPARAM handles) {
    reinterpret_cast<std::vector<HWND>*>(handles)->push_back(window);
    return TRUE;
}

} // namespace

Answer ListWindows(const Arguments&) {
    std::vector<HWND> handles;
    EnumWindows(CollectHandle, reinterpret_cast<LPARAM>(&handles));
    Answer answer;
    for (HWND window : handles)
        answer.push_back(DescribeWindow(window));
    return answer;
}

Answer ListChildren(const Arguments& arguments) {
    std::vector<HWND> handles;
    EnumChildWindows(WindowArgument(arguments, 0), CollectHandle, reinterpret_cast<LPARAM>(&handles));
    Answer answer;
    for (HWND control : handles)
        answer.push_back(DescribeChild(control));
    return answer;
}

Answer ClientArea(const Arguments& arguments) {
    HWND window = WindowArgument(arguments, 0);
    RECT area{};
    GetClientRect(window, &area);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    Record record;
    AddRectangle(record, area);
    return {record};
}

Answer InputState(const Arguments& arguments) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    if (!GetGUIThreadInfo(GetWindowThreadProcessId(WindowArgument(arguments, 0), nullptr), &info))
        FailWithLastError("GetGUIThreadInfo");
    return {Record()
                .Add(Number(GetForegroundWindow()))
                .Add(Number(info.hwndActive))
                .Add(Number(info.hwndFocus))
                .Add(Number(info.hwndCapture))};
}

Answer ScreenState(const Arguments&) {
    HDC screen = GetDC(nullptr);
    const int density = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return {Record().Add(GetSystemMetrics(SM_CXSCREEN)).Add(GetSystemMetrics(SM_CYSCREEN)).Add(density)};
}

} // namespace kestrelmoor::driver

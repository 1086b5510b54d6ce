#include "commands.h"

#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

constexpr BYTE kShift = 1, kControl = 2, kAlt = 4;
constexpr UINT kPatienceMs = 2000;

// A window that hears of its focus has Wine take over which keys the screen's own keyboard holds, which are
// none: a chord that is under way by then loses its Alt or Shift. So no key is sent before the window in
// front has heard of all that the screen told it: it answers (what it did to the screen is on its way), the
// screen answers, and twice the window again, for it looks at the screen before it waits anew. One that does
// not answer is left be.
void AwaitFocusHeard() {
    HWND window = GetForegroundWindow();
    const auto answers = [window] {
        DWORD_PTR ignored = 0;
        return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMs, &ignored) != 0;
    };
    POINT place;
    if (window != nullptr && answers() && GetCursorPos(&place) && answers())
        answers();
}

void Send(std::vector<INPUT>& events) {
    if (SendInput(static_cast<UINT>(events.size()), events.data(), sizeof(INPUT)) != events.size())
        FailWithLastError("SendInput");
}

bool IsExtended(WORD key) {
    switch (key) {
    case VK_LEFT:
    case VK_UP:
    case VK_RIGHT:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
    case VK_INSERT:
    case VK_DELETE:
    case VK_APPS:
    case VK_LWIN:
    case VK_RWIN:
        return true;
    default:
        return false;
    }
}

INPUT KeyEvent(WORD key, bool down) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wVk = key;
    event.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    event.ki.dwFlags = (down ? 0 : KEYEVENTF_KEYUP) | (IsExtended(key) ? KEYEVENTF_EXTENDEDKEY : 0);
    return event;
}

INPUT UnicodeEvent(wchar_t unit, bool down) {
    INPUT event{};
    event.type = INPUT_KEYBOARD;
    event.ki.wScan = static_cast<WORD>(unit);
    event.ki.dwFlags = KEYEVENTF_UNICODE | (down ? 0 : KEYEVENTF_KEYUP);
    return event;
}

void AddChord(std::vector<INPUT>& events, const std::vector<WORD>& keys) {
    for (const WORD key : keys)
        events.push_back(KeyEvent(key, true));
    for (auto key = keys.rbegin(); key != keys.rend(); ++key)
        events.push_back(KeyEvent(*key, false));
}

void AddCharacter(std::vector<INPUT>& events, wchar_t unit) {
    const SHORT found = VkKeyScanW(unit);
    const BYTE key = LOBYTE(found), shifts = HIBYTE(found);
    if (found == -1 || (shifts & ~(kShift | kControl | kAlt)) != 0) {
        events.push_back(UnicodeEvent(unit, true));
        events.push_back(UnicodeEvent(unit, false));
        return;
    }
    std::vector<WORD> keys;
    if (shifts & kControl)
        keys.push_back(VK_CONTROL);
    if (shifts & kAlt)
        keys.push_back(VK_MENU);
    if (shifts & kShift)
        keys.push_back(VK_SHIFT);
    keys.push_back(key);
    AddChord(events, keys);
}

} // namespace

Answer PressKeys(const Arguments& arguments) {
    std::vector<WORD> keys;
    for (std::size_t i = 0; i < arguments.Count(); ++i)
        keys.push_back(static_cast<WORD>(arguments.Number(i)));
    std::vector<INPUT> events;
    AddChord(events, keys);
    AwaitFocusHeard();
    Send(events);
    return {};
}

Answer TypeText(const Arguments& arguments) {
    std::vector<INPUT> events;
    for (const wchar_t unit : arguments.Text(0))
        AddCharacter(events, unit);
    AwaitFocusHeard();
    Send(events);
    return {};
}

Answer BringToFront(const Arguments& arguments) {
    if (!SetForegroundWindow(WindowArgument(arguments, 0)))
        throw std::runtime_error("the window does not come to the front");
    return {};
}

} // namespace kestrelmoor::driver

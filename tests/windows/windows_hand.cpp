#include "tests/form_model_shared/hand.h"

#include "platform/form_peer.h"
#include "runtime/forms/application.h"

#include <windows.h>

#include <deque>

namespace kestrelmoor::tests {

namespace {

// How long nothing must come before all that an input led to counts as done.
constexpr DWORD kQuietMilliseconds = 15;

// Timers run on for ever, the caret's and the ones that watch the pointer.
constexpr DWORD kMessages = QS_ALLINPUT & ~DWORD{QS_TIMER};

HWND WindowOf(const Control& control) {
    return control.Peer() ? reinterpret_cast<HWND>(control.Peer()->Window()) : nullptr;
}

/// The real desktop, on which a test can also act from within the program's own loops.
class ActingDesktop : public Desktop {
  public:
    void Add(std::function<void()> action) { mActions.push_back(std::move(action)); }

    std::unique_ptr<FormPeer> MakeFormPeer(Form& form) override { return Real().MakeFormPeer(form); }
    void PumpEvents() override {
        while (Act()) {
        }
        Real().PumpEvents();
    }
    bool WaitForEvent() override { return Act() || Real().WaitForEvent(); }
    int CompareRows(StringView a, StringView b) const override { return Real().CompareRows(a, b); }
    Twips TwipsPerPixelX() const override { return Real().TwipsPerPixelX(); }
    Twips TwipsPerPixelY() const override { return Real().TwipsPerPixelY(); }

  private:
    static Desktop& Real() { return platform::TheDesktop(); }

    bool Act() {
        if (mActions.empty())
            return false;
        const std::function<void()> action = std::move(mActions.front());
        mActions.pop_front();
        action();
        return true;
    }

    std::deque<std::function<void()>> mActions;
};

INPUT KeyInput(int key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key);
    input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC));
    const bool extended = key >= key::kPageUp && key <= key::kDown;
    input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0U) | (extended ? KEYEVENTF_EXTENDEDKEY : 0U);
    return input;
}

INPUT CharacterInput(char16_t character, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wScan = character;
    input.ki.dwFlags = KEYEVENTF_UNICODE | (up ? KEYEVENTF_KEYUP : 0U);
    return input;
}

void Send(std::vector<INPUT> inputs) {
    ::SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

void PumpUntilQuiet() {
    do
        platform::TheDesktop().PumpEvents();
    while (::MsgWaitForMultipleObjects(0, nullptr, FALSE, kQuietMilliseconds, kMessages) == WAIT_OBJECT_0);
}

bool HasKey(char16_t character) {
    return (character >= u'a' && character <= u'z') || (character >= u'0' && character <= u'9') ||
           character == key::kSpace;
}

int KeyOf(char16_t character) {
    return character >= u'a' && character <= u'z' ? character - u'a' + u'A' : character;
}

// Each part of a click says its place: where the pointer stands may be told late.
INPUT MouseInput(DWORD flags, POINT place) {
    constexpr LONG kWholeScreen = 65536;
    const LONG width = ::GetSystemMetrics(SM_CXSCREEN);
    const LONG height = ::GetSystemMetrics(SM_CYSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = (place.x * kWholeScreen + width / 2) / width;
    input.mi.dy = (place.y * kWholeScreen + height / 2) / height;
    input.mi.dwFlags = flags | MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    return input;
}

void ClickAt(POINT place) {
    for (const DWORD part : {0UL, DWORD{MOUSEEVENTF_LEFTDOWN}, DWORD{MOUSEEVENTF_LEFTUP}}) {
        Send({MouseInput(part, place)});
        PumpUntilQuiet();
    }
}

POINT MiddleOf(const RECT& place) {
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

RECT RowPlace(const ListBox& list, int row) {
    RECT place{};
    ::SendMessageW(WindowOf(list), LB_GETITEMRECT, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&place));
    return place;
}

POINT OnScreen(const ListBox& list, POINT point) {
    ::ClientToScreen(WindowOf(list), &point);
    return point;
}

class WindowsHand : public Hand {
  public:
    WindowsHand() { Application::Current().SetDesktop(&mDesktop); }
    ~WindowsHand() override {
        Application::Current().UnloadAll();
        PumpUntilQuiet();
        Application::Current().SetDesktop(mBefore);
    }

    void Press(int key, int shift) override {
        std::vector<int> keys;
        for (const auto& [mask, held] :
             {std::pair(key::kShiftMask, VK_SHIFT), std::pair(key::kCtrlMask, VK_CONTROL),
              std::pair(key::kAltMask, VK_MENU)})
            if ((shift & mask) != 0)
                keys.push_back(held);
        keys.push_back(key);
        std::vector<INPUT> inputs;
        for (const int down : keys)
            inputs.push_back(KeyInput(down, false));
        for (auto up = keys.rbegin(); up != keys.rend(); ++up)
            inputs.push_back(KeyInput(*up, true));
        Send(inputs);
        PumpUntilQuiet();
    }

    void Type(StringView text) override {
        for (const char16_t character : text) {
            if (HasKey(character))
                Press(KeyOf(character), 0);
            else
                Send({CharacterInput(character, false), CharacterInput(character, true)});
            PumpUntilQuiet();
        }
    }

    void ClickOn(Control& control) override {
        RECT place{};
        if (::IsWindowVisible(WindowOf(control)) && ::GetWindowRect(WindowOf(control), &place))
            ClickAt(MiddleOf(place));
    }

    void ChooseRow(ListBox& list, int row) override {
        ClickAt(OnScreen(list, MiddleOf(RowPlace(list, row))));
    }

    void ToggleRow(ListBox& list, int row) override {
        const RECT place = RowPlace(list, row);
        const LONG half = (place.bottom - place.top) / 2;
        ClickAt(OnScreen(list, {place.left + half, place.top + half}));
    }

    void CloseWindow(Form& form) override {
        const auto window = reinterpret_cast<HWND>(form.Window());
        if (::IsWindowEnabled(window))
            ::PostMessageW(window, WM_SYSCOMMAND, SC_CLOSE, 0);
        PumpUntilQuiet();
    }

    void Settle() override {
        Application::Current().DoEvents();
        PumpUntilQuiet();
    }

    void Later(std::function<void()> action) override { mDesktop.Add(std::move(action)); }

  private:
    Desktop* mBefore = Application::Current().CurrentDesktop();
    ActingDesktop mDesktop;
};

} // namespace

std::unique_ptr<Hand> MakeHand() {
    return std::make_unique<WindowsHand>();
}

} // namespace kestrelmoor::tests

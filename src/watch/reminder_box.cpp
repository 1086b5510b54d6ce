#include "watch/reminder_box.h"

#include "platform/input_hooks.h"
#include "platform/message_box.h"
#include "shell/program_state.h"
#include "window_services/theme_colours.h"

namespace kestrelmoor {

int ReminderBox(const String& sPrompt, std::uint32_t nStyle, const String& sTitle) {
    gMsgBoxHook = platform::SetWindowsHookExW(platform::kCbtHook, ReminderHookProc);
    const int button = platform::MessageBoxW(sPrompt, nStyle, sTitle);
    if (gMsgBoxHook != 0)
        platform::UnhookWindowsHookEx(gMsgBoxHook);
    return button;
}

std::intptr_t ReminderHookProc(int nCode, std::uintptr_t wParam, std::intptr_t /*lParam*/) {
    if (nCode == platform::kHookActivate) {
        platform::UnhookWindowsHookEx(gMsgBoxHook);
        gMsgBoxHook = 0;
        RefreshWindowIcons(wParam);
    }
    return 0;
}

} // namespace kestrelmoor

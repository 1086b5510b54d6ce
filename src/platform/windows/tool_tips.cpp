#include "platform/windows/tool_tips.h"

#include "platform/visual_style.h"
#include "platform/windows/wide_text.h"

#include <commctrl.h>

namespace kestrelmoor::platform {

namespace {

TOOLINFOW ToolOf(HWND owner, HWND control) {
    TOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE; // the oldest system knows no longer one
    tool.uFlags = TTF_IDISHWND;
    tool.hwnd = owner;
    tool.uId = reinterpret_cast<UINT_PTR>(control);
    return tool;
}

LRESULT Tell(HWND window, UINT message, TOOLINFOW& tool) {
    return ::SendMessageW(window, message, 0, reinterpret_cast<LPARAM>(&tool));
}

} // namespace

bool ToolTips::Make() {
    if (mWindow)
        return true;
    InitCommonControls();
    mWindow = ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_NOPREFIX,
                                CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, mOwner, nullptr,
                                ::GetModuleHandleW(nullptr), nullptr);
    return mWindow != nullptr;
}

void ToolTips::Set(HWND control, const String& text) {
    if (text.empty() && !mWindow)
        return;
    TOOLINFOW tool = ToolOf(mOwner, control);
    if (!Make())
        return;
    Tell(mWindow, TTM_DELTOOLW, tool);
    String own = text;
    tool.lpszText = WideBuffer(own);
    if (!text.empty())
        Tell(mWindow, TTM_ADDTOOLW, tool);
}

void ToolTips::Hear(HWND control, UINT message, WPARAM wide, LPARAM parameter) const {
    if (!mWindow || message < WM_MOUSEFIRST || message > WM_MBUTTONUP)
        return;
    MSG heard{};
    heard.hwnd = control;
    heard.message = message;
    heard.wParam = wide;
    heard.lParam = parameter;
    ::GetCursorPos(&heard.pt);
    ::SendMessageW(mWindow, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&heard));
}

} // namespace kestrelmoor::platform

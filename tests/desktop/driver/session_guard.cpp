#include "commands.h"

#include <atomic>
#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

std::atomic<long> gEndings = 0;

LRESULT CALLBACK RefuseToEnd(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_QUERYENDSESSION) {
        ++gEndings;
        return FALSE;
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

DWORD WINAPI KeepGuard(void* ready) {
    WNDCLASSW window_class{};
    window_class.lpfnWndProc = RefuseToEnd;
    window_class.lpszClassName = L"SessionGuard";
    RegisterClassW(&window_class);
    // Only a top-level window is asked, and it need not be seen.
    CreateWindowExW(0, L"SessionGuard", L"", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
    SetEvent(ready);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    return 0;
}

} // namespace

Answer GuardSession(const Arguments&) {
    static bool guarded = false;
    if (guarded)
        return {};
    // The highest level a program may have: asked ahead of all others, so that none of them is ended.
    SetProcessShutdownParameters(0x4FF, 0);
    HANDLE ready = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    HANDLE thread = CreateThread(nullptr, 0, KeepGuard, ready, 0, nullptr);
    if (thread == nullptr)
        FailWithLastError("CreateThread");
    WaitForSingleObject(ready, 5000);
    CloseHandle(thread);
    CloseHandle(ready);
    guarded = true;
    return {};
}

Answer SessionEndings(const Arguments&) {
    return {Record().Add(gEndings.load())};
}

} // namespace kestrelmoor::driver

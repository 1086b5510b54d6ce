// A library to be planted: where its code is run, it leaves a file beside itself, named with ".ran" added.
#include <windows.h>

namespace {

constexpr DWORD kLongest = MAX_PATH;

void LeaveMark(HINSTANCE library) {
    wchar_t path[kLongest + 5];
    const DWORD length = GetModuleFileNameW(library, path, kLongest);
    if (length == 0 || length >= kLongest)
        return;
    lstrcatW(path, L".ran");
    const HANDLE mark =
        CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (mark != INVALID_HANDLE_VALUE)
        CloseHandle(mark);
}

} // namespace

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH)
        LeaveMark(library);
    return TRUE;
}

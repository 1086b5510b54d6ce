#include "platform/windows/bound_library.h"

#include "platform/windows/last_error_kept.h"
#include "runtime/errors.h"

#include <cwchar>

namespace kestrelmoor::platform {

bool BoundLibrary::Load() noexcept {
    if (mModule)
        return true;
    wchar_t path[MAX_PATH];
    const UINT folder_length = ::GetSystemDirectoryW(path, MAX_PATH);
    if (folder_length == 0 || folder_length + 1 + std::wcslen(mFileName) >= MAX_PATH)
        return false;
    path[folder_length] = L'\\';
    std::wcscpy(path + folder_length + 1, mFileName);
    mModule = ::LoadLibraryW(path);
    return mModule != nullptr;
}

FARPROC BoundLibrary::FindEntry(const char* name) noexcept {
    const LastErrorKept kept;
    return Load() ? ::GetProcAddress(mModule, name) : nullptr;
}

FARPROC BoundLibrary::Entry(const char* name) {
    if (const FARPROC entry = FindEntry(name))
        return entry;
    RaiseError(mModule ? error_number::kEntryNotFound : error_number::kFileNotFound);
}

BoundLibrary& Kernel32() {
    static BoundLibrary library{L"kernel32.dll"};
    return library;
}

BoundLibrary& OleAut32() {
    static BoundLibrary library{L"oleaut32.dll"};
    return library;
}

} // namespace kestrelmoor::platform

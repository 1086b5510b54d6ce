#include "platform/windows/bound_library.h"

#include "platform/windows/last_error_kept.h"
#include "platform/windows/system_folder.h"
#include "platform/windows/wide_text.h"
#include "runtime/errors.h"

namespace kestrelmoor::platform {

bool BoundLibrary::Load() noexcept {
    if (mModule)
        return true;
    // The search for what the library itself needs begins in its own folder, not in the program's.
    const String path = InSystemFolder(FromWide(mFileName));
    mModule = ::LoadLibraryExW(Wide(path), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
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

BoundLibrary& User32() {
    static BoundLibrary library{L"user32.dll"};
    return library;
}

BoundLibrary& Ole32() {
    static BoundLibrary library{L"ole32.dll"};
    return library;
}

BoundLibrary& OleAut32() {
    static BoundLibrary library{L"oleaut32.dll"};
    return library;
}

BoundLibrary& UxTheme() {
    static BoundLibrary library{L"uxtheme.dll"};
    return library;
}

BoundLibrary& Shell32() {
    static BoundLibrary library{L"shell32.dll"};
    return library;
}

} // namespace kestrelmoor::platform

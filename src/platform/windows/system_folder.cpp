#include "platform/windows/system_folder.h"

#include "platform/windows/wide_text.h"

#include <windows.h>

namespace kestrelmoor::platform {

String InSystemFolder(StringView file_name) {
    wchar_t folder[MAX_PATH];
    const UINT length = ::GetSystemDirectoryW(folder, MAX_PATH);
    if (length == 0 || length >= MAX_PATH)
        return {};
    String path = AddBackslash(FromWide(folder));
    path += file_name;
    return path;
}

} // namespace kestrelmoor::platform

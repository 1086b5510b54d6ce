#include "platform/windows/program_path.h"

#include "platform/windows/wide_text.h"

#include <windows.h>

namespace kestrelmoor::platform {

String ProgramPath() {
    String path(MAX_PATH, u'\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameW(nullptr, WideBuffer(path), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

} // namespace kestrelmoor::platform

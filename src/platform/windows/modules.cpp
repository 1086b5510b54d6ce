#include "platform/modules.h"

#include "platform/windows/last_error_kept.h"
#include "platform/windows/observed_call.h"
#include "platform/windows/system_folder.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

HMODULE Module(ModuleHandle handle) {
    return reinterpret_cast<HMODULE>(handle);
}

/// The very file that is meant: the loader would look for a relative path in other folders ahead of the
/// current one, and would put ".dll" behind a name that has no dot.
String FileMeant(const String& sPath) {
    if (sPath.find(u'\\') == String::npos)
        return InSystemFolder(sPath);
    wchar_t whole[MAX_PATH];
    const DWORD length = ::GetFullPathNameW(Wide(sPath), MAX_PATH, whole, nullptr);
    String path = length == 0 || length >= MAX_PATH ? sPath : FromWide(whole);
    if (path.find(u'.', path.rfind(u'\\')) == String::npos)
        path.push_back(u'.');
    return path;
}

} // namespace

CallResult<ModuleHandle> LoadLibraryExW(const String& sPath, std::uint32_t nFlags) {
    const String path = FileMeant(sPath);
    return Observed(
        [&] { return reinterpret_cast<ModuleHandle>(::LoadLibraryExW(Wide(path), nullptr, nFlags)); });
}

CallResult<void*> GetProcAddress(ModuleHandle hModule, const char* sName) {
    return Observed([&] { return reinterpret_cast<void*>(::GetProcAddress(Module(hModule), sName)); });
}

void FreeLibrary(ModuleHandle hModule) noexcept {
    const LastErrorKept kept;
    ::FreeLibrary(Module(hModule));
}

} // namespace kestrelmoor::platform

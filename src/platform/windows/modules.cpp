#include "platform/modules.h"

#include "platform/windows/last_error_kept.h"
#include "platform/windows/observed_call.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

HMODULE Module(ModuleHandle handle) {
    return reinterpret_cast<HMODULE>(handle);
}

} // namespace

CallResult<ModuleHandle> LoadLibraryExW(const String& sPath, std::uint32_t nFlags) {
    return Observed(
        [&] { return reinterpret_cast<ModuleHandle>(::LoadLibraryExW(Wide(sPath), nullptr, nFlags)); });
}

CallResult<void*> GetProcAddress(ModuleHandle hModule, const char* sName) {
    return Observed([&] { return reinterpret_cast<void*>(::GetProcAddress(Module(hModule), sName)); });
}

void FreeLibrary(ModuleHandle hModule) noexcept {
    const LastErrorKept kept;
    ::FreeLibrary(Module(hModule));
}

} // namespace kestrelmoor::platform

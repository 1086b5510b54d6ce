#pragma once

#include "platform/call_result.h"
#include "runtime/owned.h"
#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// Loading libraries.

/// A loaded library; 0 for none.
using ModuleHandle = std::uintptr_t;

/// Loads as an image only, for its messages and resources.
inline constexpr std::uint32_t kLoadAsDataFile = 2;

/// 0 with the reason in the last error when the file can't be loaded. A file that is loaded already is
/// counted once more. A name without a folder is looked for in the system's own folder and nowhere else.
CallResult<ModuleHandle> LoadLibraryExW(const String& sPath, std::uint32_t nFlags);

/// Address of an exported function, null with the reason in the last error.
CallResult<void*> GetProcAddress(ModuleHandle hModule, const char* sName);

void FreeLibrary(ModuleHandle hModule) noexcept;

struct ModuleTraits {
    using Value = ModuleHandle;
    static constexpr Value kNone = 0;
    static void Release(Value module) noexcept { FreeLibrary(module); }
};

/// For a library of passing use. The language library behind `gLocalizer` is kept by number, since it asks
/// to be consulted before it goes.
using OwnedModule = Owned<ModuleTraits>;

} // namespace kestrelmoor::platform

#include "platform/modules.h"

#include "platform/practice/host_library.h"
#include "platform/practice/scripted_library.h"
#include "platform/practice/world/names.h"
#include "platform/practice/world/world.h"

#include <memory>
#include <utility>

namespace kestrelmoor::platform {

namespace {

using practice::HandleKind;
using practice::Library;
using practice::LibraryKind;
using practice::TheWorld;

constexpr std::uint32_t kInvalidHandle = 6;
constexpr std::uint32_t kModuleNotFound = 126;
constexpr std::uint32_t kEntryNotFound = 127;
constexpr std::uint32_t kBadImage = 193;

/// A loaded library. One of this computer stays in memory for the whole process: an object of it may outlive
/// the world that it was loaded in.
struct LoadedModule {
    Library library;
    void* host = nullptr;
    std::shared_ptr<practice::ScriptedLibrary> script;
};

String PathOf(const String& path) {
    return path.find(u'\\') == String::npos ? path : TheWorld().files.FullPath(path);
}

CallResult<ModuleHandle> Load(const Library& library) {
    LoadedModule module;
    module.library = library;
    if (library.kind == LibraryKind::Broken)
        return {0, kBadImage};
    if (library.kind == LibraryKind::HostFile &&
        !(module.host = practice::LoadHostLibrary(library.host_file)))
        return {0, kBadImage};
    if (library.kind == LibraryKind::Scripted)
        module.script = std::make_shared<practice::ScriptedLibrary>(library.script);
    return {TheWorld().handles.Open(HandleKind::Module, std::move(module)), 0};
}

} // namespace

CallResult<ModuleHandle> LoadLibraryExW(const String& sPath, std::uint32_t nFlags) {
    practice::World& world = TheWorld();
    if (const auto fault = world.calls.Enter("LoadLibraryExW", {sPath, nFlags}))
        return {0, *fault};
    const String path = PathOf(sPath);
    const Library* const library = world.libraries.Find(path);
    if (!library)
        return {0, world.files.Find(path) ? kBadImage : kModuleNotFound};
    const ModuleHandle loaded =
        world.handles.Seek<LoadedModule>(HandleKind::Module, [&](const LoadedModule& module) {
            return practice::SameName(module.library.path, path);
        });
    if (loaded != 0) {
        world.handles.Share(loaded);
        return {loaded, 0};
    }
    return Load(*library);
}

CallResult<void*> GetProcAddress(ModuleHandle hModule, const char* sName) {
    practice::World& world = TheWorld();
    if (const auto fault = world.calls.Enter("GetProcAddress", {sName}))
        return {nullptr, *fault};
    LoadedModule* const module = world.handles.Find<LoadedModule>(HandleKind::Module, hModule);
    if (!module)
        return {nullptr, kInvalidHandle};
    if (module->library.lacks.contains(sName))
        return {nullptr, kEntryNotFound};
    void* address = nullptr;
    if (module->host)
        address = practice::HostEntry(module->host, sName);
    else if (module->script)
        address = module->script->Entry(sName);
    return {address, address ? 0 : kEntryNotFound};
}

void FreeLibrary(ModuleHandle hModule) noexcept {
    TheWorld().calls.Enter("FreeLibrary");
    TheWorld().handles.Close(HandleKind::Module, hModule);
}

} // namespace kestrelmoor::platform

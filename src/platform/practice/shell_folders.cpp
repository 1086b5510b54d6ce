#include "platform/shell_folders.h"

#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

namespace {

using practice::HandleKind;
using practice::TheWorld;

constexpr std::int32_t kFailed = static_cast<std::int32_t>(0x80004005);
constexpr std::size_t kPathCharacters = 260;

} // namespace

void ItemListTraits::Release(Value list) noexcept {
    TheWorld().calls.Enter("SHGetMalloc");
    TheWorld().calls.Enter("IMalloc::Free");
    TheWorld().handles.Close(HandleKind::ItemList, reinterpret_cast<std::uintptr_t>(list));
}

std::int32_t SHGetSpecialFolderLocation(std::int32_t nFolder, OwnedItemList& list) {
    practice::World& world = TheWorld();
    if (const auto fault = world.calls.Enter("SHGetSpecialFolderLocation", {nFolder}))
        return static_cast<std::int32_t>(*fault);
    const auto folder = world.machine.special_folders.find(nFolder);
    if (folder == world.machine.special_folders.end())
        return kFailed;
    list.Reset(practice::AsPointer(world.handles.Open(HandleKind::ItemList, folder->second)));
    return 0;
}

bool SHGetPathFromIDListW(const OwnedItemList& list, String& sBuffer) {
    practice::World& world = TheWorld();
    sBuffer.assign(kPathCharacters, 0);
    if (world.calls.Enter("SHGetPathFromIDListW"))
        return false;
    const auto* const path =
        world.handles.Find<String>(HandleKind::ItemList, reinterpret_cast<std::uintptr_t>(list.Get()));
    if (!path || path->empty())
        return false;
    sBuffer = *path;
    sBuffer.resize(kPathCharacters, 0);
    return true;
}

} // namespace kestrelmoor::platform

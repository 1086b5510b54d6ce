#include "platform/shell_folders.h"

#include "platform/practice/shell_memory.h"
#include "platform/practice/world/world.h"

#include <optional>

namespace kestrelmoor::platform {

namespace {

using practice::TheWorld;

constexpr std::int32_t kFailed = static_cast<std::int32_t>(0x80004005);
constexpr std::int32_t kNetworkFolder = 18;
constexpr std::size_t kPathCharacters = 260;

// The list of a folder with a path is one item: the size, the path in UTF-8, and NUL.
constexpr std::size_t kSizeBytes = 2;

practice::ItemBytes ListOfPath(const String& path) {
    const std::string text = ToUtf8(path);
    const std::size_t size = kSizeBytes + text.size() + 1;
    practice::ItemBytes list{static_cast<std::uint8_t>(size & 0xFF), static_cast<std::uint8_t>(size >> 8)};
    list.insert(list.end(), text.begin(), text.end());
    list.resize(size + kSizeBytes);
    return list;
}

String PathOfList(const void* list) {
    return FromUtf8(static_cast<const char*>(list) + kSizeBytes);
}

bool IsOfNetwork(const OwnedItemList& list) {
    return TheWorld().shell.PathOf(static_cast<const std::uint8_t*>(list.Get())).has_value();
}

std::int32_t Locate(std::int32_t nFolder, OwnedItemList& list) {
    const practice::World& world = TheWorld();
    if (nFolder == kNetworkFolder) {
        if (world.shell.network_present)
            list.Reset(practice::NewShellMemory(world.shell.ListOf({})));
        return 0;
    }
    const auto folder = world.machine.special_folders.find(nFolder);
    if (folder == world.machine.special_folders.end())
        return kFailed;
    list.Reset(practice::NewShellMemory(ListOfPath(folder->second)));
    return 0;
}

} // namespace

void ItemListTraits::Release(Value list) noexcept {
    TheWorld().calls.Enter("SHGetMalloc");
    TheWorld().calls.Enter("IMalloc::Free");
    practice::FreeShellMemory(list);
}

std::int32_t SHGetSpecialFolderLocation(std::int32_t nFolder, OwnedItemList& list) {
    if (const auto fault = TheWorld().calls.Enter("SHGetSpecialFolderLocation", {nFolder}))
        return static_cast<std::int32_t>(*fault);
    return Locate(nFolder, list);
}

std::int32_t SHGetSpecialFolderLocation(WindowHandle hWndOwner, std::int32_t nFolder, OwnedItemList& list) {
    if (const auto fault = TheWorld().calls.Enter("SHGetSpecialFolderLocation", {hWndOwner, nFolder}))
        return static_cast<std::int32_t>(*fault);
    return Locate(nFolder, list);
}

bool SHGetPathFromIDListW(const OwnedItemList& list, String& sBuffer) {
    sBuffer.assign(kPathCharacters, 0);
    if (TheWorld().calls.Enter("SHGetPathFromIDListW") || !list || IsOfNetwork(list))
        return false;
    const String path = PathOfList(list.Get());
    if (path.empty())
        return false;
    sBuffer = path;
    sBuffer.resize(kPathCharacters, 0);
    return true;
}

} // namespace kestrelmoor::platform

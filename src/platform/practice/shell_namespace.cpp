#include "platform/shell_namespace.h"

#include "platform/practice/shell_memory.h"
#include "platform/practice/world/world.h"

#include <algorithm>
#include <cstring>
#include <span>

namespace kestrelmoor::platform {

namespace {

using practice::HandleKind;
using practice::ItemPath;
using practice::NameForm;
using practice::ShellItem;
using practice::TheWorld;

constexpr std::int32_t kNothingThere = static_cast<std::int32_t>(0x80070002);
constexpr std::int32_t kNoObject = static_cast<std::int32_t>(0x80004003);
constexpr std::int32_t kWrongArgument = static_cast<std::int32_t>(0x80070057);
constexpr std::int32_t kBufferTooSmall = static_cast<std::int32_t>(0x80020013);
constexpr std::int32_t kDifferent = 1;
constexpr std::size_t kKindOffset = 8; // of dwDisplayType in the record

/// An open folder: the desktop, or one of the network.
struct Folder {
    bool is_desktop = false;
    ItemPath path;
};

const Folder* FolderOf(const OwnedShellFolder& folder) {
    return TheWorld().handles.Find<Folder>(HandleKind::ShellFolder,
                                           reinterpret_cast<std::uintptr_t>(folder.Get()));
}

void Open(OwnedShellFolder& place, Folder folder) {
    place.Reset(practice::AsPointer(TheWorld().handles.Open(HandleKind::ShellFolder, std::move(folder))));
}

/// Where the item is that a list names within a folder; none: nowhere.
std::optional<ItemPath> PathOf(const Folder& folder, ItemList list) {
    const practice::ShellTree& tree = TheWorld().shell;
    if (folder.is_desktop)
        return tree.PathOf(list);
    const ShellItem* const item = tree.Find(folder.path);
    const auto number = item ? practice::NumberIn(*item, list) : std::nullopt;
    if (!number)
        return std::nullopt;
    ItemPath path = folder.path;
    path.push_back(*number);
    return path;
}

const ShellItem* ItemIn(const Folder& folder, ItemList list) {
    const std::optional<ItemPath> path = PathOf(folder, list);
    return path ? TheWorld().shell.Find(*path) : nullptr;
}

char16_t* WideCopy(const String& text) {
    const std::span<const char16_t> characters(text.c_str(), text.size() + 1);
    return reinterpret_cast<char16_t*>(practice::NewShellMemory(
        {reinterpret_cast<const std::uint8_t*>(characters.data()), characters.size_bytes()}));
}

void GiveName(const ShellItem& item, StrRet& text) {
    text.uType = static_cast<std::uint32_t>(item.name_form);
    if (item.name_form == NameForm::Wide)
        text.pOleStr = WideCopy(item.name);
    else if (item.name_form == NameForm::Offset)
        text.uOffset = practice::kNameOffset;
    else {
        const std::string bytes = ToUtf8(item.name);
        std::copy_n(bytes.begin(), std::min(bytes.size(), text.cStr.size() - 1), text.cStr.begin());
    }
}

StringView WithoutPrefix(StringView name) {
    return name.starts_with(u"\\\\") ? name.substr(2) : name;
}

} // namespace

void ShellMallocTraits::Release(Value allocator) noexcept {
    TheWorld().calls.Enter("IMalloc::Release");
    TheWorld().handles.Close(HandleKind::ShellMalloc, reinterpret_cast<std::uintptr_t>(allocator));
}

void ShellFolderTraits::Release(Value folder) noexcept {
    TheWorld().calls.Enter("IShellFolder::Release");
    TheWorld().handles.Close(HandleKind::ShellFolder, reinterpret_cast<std::uintptr_t>(folder));
}

std::int32_t SHGetMalloc(OwnedShellMalloc& allocator) {
    if (const auto fault = TheWorld().calls.Enter("SHGetMalloc"))
        return static_cast<std::int32_t>(*fault);
    allocator.Reset(practice::AsPointer(TheWorld().handles.Open(HandleKind::ShellMalloc, 0)));
    return 0;
}

void* Alloc(const OwnedShellMalloc& allocator, std::size_t nBytes) {
    const bool refused = TheWorld().calls.Enter("IMalloc::Alloc", {nBytes}).has_value();
    return refused || !allocator ? nullptr : practice::NewShellMemory(nBytes);
}

void Free(const OwnedShellMalloc& /*allocator*/, void* memory) noexcept {
    TheWorld().calls.Enter("IMalloc::Free");
    practice::FreeShellMemory(memory);
}

std::int32_t SHGetDesktopFolder(OwnedShellFolder& folder) {
    if (const auto fault = TheWorld().calls.Enter("SHGetDesktopFolder"))
        return static_cast<std::int32_t>(*fault);
    Open(folder, {true, {}});
    return 0;
}

std::int32_t BindToObject(const OwnedShellFolder& folder, ItemList list, OwnedShellFolder& bound) {
    if (const auto fault = TheWorld().calls.Enter("IShellFolder::BindToObject"))
        return static_cast<std::int32_t>(*fault);
    const Folder* const open = FolderOf(folder);
    if (!open)
        return kNoObject;
    const std::optional<ItemPath> path = PathOf(*open, list);
    if (!path)
        return kNothingThere;
    Open(bound, {false, *path});
    return 0;
}

std::int32_t CompareIDs(const OwnedShellFolder& folder, std::int32_t nColumn, ItemList a, ItemList b) {
    if (const auto fault = TheWorld().calls.Enter("IShellFolder::CompareIDs", {nColumn}))
        return static_cast<std::int32_t>(*fault);
    if (!FolderOf(folder))
        return kNoObject;
    if (!a || !b)
        return kWrongArgument;
    const auto left = practice::BytesOfList(a);
    const auto right = practice::BytesOfList(b);
    return std::equal(left.begin(), left.end(), right.begin(), right.end()) ? 0 : kDifferent;
}

std::int32_t GetDisplayNameOf(const OwnedShellFolder& folder, ItemList item, std::uint32_t nFlags,
                              StrRet& text) {
    if (const auto fault = TheWorld().calls.Enter("IShellFolder::GetDisplayNameOf", {nFlags}))
        return static_cast<std::int32_t>(*fault);
    const Folder* const open = FolderOf(folder);
    if (!open)
        return kNoObject;
    const ShellItem* const found = ItemIn(*open, item);
    if (!found)
        return kWrongArgument;
    GiveName(*found, text);
    return 0;
}

std::int32_t ParseDisplayName(const OwnedShellFolder& folder, WindowHandle hWndOwner, const String& sName,
                              std::uint8_t** list) {
    if (const auto fault = TheWorld().calls.Enter("IShellFolder::ParseDisplayName", {hWndOwner, sName}))
        return static_cast<std::int32_t>(*fault);
    const Folder* const open = FolderOf(folder);
    if (!open)
        return kNoObject;
    const ShellItem* const item = open->is_desktop ? nullptr : TheWorld().shell.Find(open->path);
    const auto number = item ? practice::NumberOfName(*item, WithoutPrefix(sName)) : std::nullopt;
    if (!number)
        return kNothingThere;
    *list = practice::NewShellMemory(practice::RelativeList(*item, *number));
    return 0;
}

std::int32_t SHGetDataFromIDListW(const OwnedShellFolder& folder, ItemList item, std::int32_t nFormat,
                                  std::vector<std::uint8_t>& buffer) {
    if (const auto fault = TheWorld().calls.Enter("SHGetDataFromIDListW", {nFormat, buffer.size()}))
        return static_cast<std::int32_t>(*fault);
    const Folder* const open = FolderOf(folder);
    const ShellItem* const found = open ? ItemIn(*open, item) : nullptr;
    if (!found || found->undescribed)
        return kWrongArgument;
    if (buffer.size() < found->record_bytes)
        return kBufferTooSmall;
    const auto kind = static_cast<std::uint32_t>(found->kind);
    std::memcpy(buffer.data() + kKindOffset, &kind, sizeof kind);
    return 0;
}

} // namespace kestrelmoor::platform

#include "platform/shell_namespace.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/component_library.h"
#include "platform/windows/last_error_kept.h"
#include "platform/windows/wide_text.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include <windows.h>

#include <objidl.h>
#include <shlobj.h>

namespace kestrelmoor::platform {
namespace {

static_assert(text_kind::kWide == STRRET_WSTR && text_kind::kOffset == STRRET_OFFSET &&
              text_kind::kBytes == STRRET_CSTR);
static_assert(sizeof(NETRESOURCEW) == 32 && offsetof(NETRESOURCEW, dwDisplayType) == 8);

constexpr GUID kFolderInterface = {0x000214E6, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

IMalloc* AllocatorOf(const OwnedShellMalloc& allocator) {
    return static_cast<IMalloc*>(allocator.Get());
}

IShellFolder* FolderOf(const OwnedShellFolder& folder) {
    return static_cast<IShellFolder*>(folder.Get());
}

/// A list as the shell declares it. It is only read.
template <class List>
List* Listed(ItemList list) {
    return reinterpret_cast<List*>(const_cast<std::uint8_t*>(list));
}

} // namespace

void ShellMallocTraits::Release(Value allocator) noexcept {
    const LastErrorKept kept;
    static_cast<IMalloc*>(allocator)->Release();
}

void ShellFolderTraits::Release(Value folder) noexcept {
    const LastErrorKept kept;
    static_cast<IShellFolder*>(folder)->Release();
}

std::int32_t SHGetMalloc(OwnedShellMalloc& allocator) {
    static BoundEntry<decltype(::SHGetMalloc)> entry{Shell32(), "SHGetMalloc"};
    IMalloc* found = nullptr;
    const HRESULT result = entry.Get()(&found);
    allocator.Reset(found);
    return result;
}

void* Alloc(const OwnedShellMalloc& allocator, std::size_t nBytes) {
    return allocator ? AllocatorOf(allocator)->Alloc(nBytes) : nullptr;
}

void Free(const OwnedShellMalloc& allocator, void* memory) noexcept {
    const LastErrorKept kept;
    if (allocator)
        AllocatorOf(allocator)->Free(memory);
}

std::int32_t SHGetDesktopFolder(OwnedShellFolder& folder) {
    static BoundEntry<decltype(::SHGetDesktopFolder)> entry{Shell32(), "SHGetDesktopFolder"};
    const auto call = entry.Get();
    NeedComponents();
    IShellFolder* found = nullptr;
    const HRESULT result = call(&found);
    folder.Reset(found);
    return result;
}

std::int32_t BindToObject(const OwnedShellFolder& folder, ItemList list, OwnedShellFolder& bound) {
    if (!folder)
        return E_POINTER;
    void* found = nullptr;
    const HRESULT result =
        FolderOf(folder)->BindToObject(Listed<const ITEMIDLIST>(list), nullptr, kFolderInterface, &found);
    bound.Reset(SUCCEEDED(result) ? found : nullptr);
    return result;
}

std::int32_t CompareIDs(const OwnedShellFolder& folder, std::int32_t nColumn, ItemList a, ItemList b) {
    if (!folder)
        return E_POINTER;
    return FolderOf(folder)->CompareIDs(nColumn, Listed<const ITEMIDLIST>(a), Listed<const ITEMIDLIST>(b));
}

std::int32_t GetDisplayNameOf(const OwnedShellFolder& folder, ItemList item, std::uint32_t nFlags,
                              StrRet& text) {
    if (!folder)
        return E_POINTER;
    STRRET record{};
    const HRESULT result =
        FolderOf(folder)->GetDisplayNameOf(Listed<const ITEMID_CHILD>(item), nFlags, &record);
    if (FAILED(result))
        return result;
    text.uType = record.uType;
    if (record.uType == STRRET_WSTR)
        text.pOleStr = reinterpret_cast<char16_t*>(record.pOleStr);
    else if (record.uType == STRRET_OFFSET)
        text.uOffset = record.uOffset;
    else if (record.uType == STRRET_CSTR)
        std::memcpy(text.cStr.data(), record.cStr, text.cStr.size());
    return result;
}

std::int32_t ParseDisplayName(const OwnedShellFolder& folder, WindowHandle hWndOwner, const String& sName,
                              std::uint8_t** list) {
    if (!folder)
        return E_POINTER;
    String name = sName;
    PIDLIST_RELATIVE found = nullptr;
    const HRESULT result = FolderOf(folder)->ParseDisplayName(reinterpret_cast<HWND>(hWndOwner), nullptr,
                                                              WideBuffer(name), nullptr, &found, nullptr);
    *list = SUCCEEDED(result) ? reinterpret_cast<std::uint8_t*>(found) : nullptr;
    return result;
}

std::int32_t SHGetDataFromIDListW(const OwnedShellFolder& folder, ItemList item, std::int32_t nFormat,
                                  std::vector<std::uint8_t>& buffer) {
    static BoundEntry<decltype(::SHGetDataFromIDListW)> entry{Shell32(), "SHGetDataFromIDListW"};
    const auto call = entry.Get();
    if (!folder)
        return E_INVALIDARG;
    return call(FolderOf(folder), Listed<const ITEMID_CHILD>(item), nFormat, buffer.data(),
                static_cast<int>(buffer.size()));
}

} // namespace kestrelmoor::platform

#include "platform/shell_folders.h"

#include "platform/windows/bound_library.h"
#include "platform/windows/last_error_kept.h"
#include "platform/windows/wide_text.h"

#include <windows.h>

#include <objidl.h>
#include <shlobj.h>

namespace kestrelmoor::platform {

void ItemListTraits::Release(Value list) noexcept {
    static BoundEntry<decltype(::SHGetMalloc)> entry{Shell32(), "SHGetMalloc"};
    const LastErrorKept kept;
    IMalloc* allocator = nullptr;
    const auto get_allocator = entry.Find();
    if (!get_allocator || FAILED(get_allocator(&allocator)) || !allocator)
        return;
    allocator->Free(list);
    allocator->Release();
}

std::int32_t SHGetSpecialFolderLocation(std::int32_t nFolder, OwnedItemList& list) {
    return SHGetSpecialFolderLocation(0, nFolder, list);
}

std::int32_t SHGetSpecialFolderLocation(WindowHandle hWndOwner, std::int32_t nFolder, OwnedItemList& list) {
    static BoundEntry<decltype(::SHGetSpecialFolderLocation)> entry{Shell32(), "SHGetSpecialFolderLocation"};
    const auto call = entry.Get();
    PIDLIST_ABSOLUTE found = nullptr;
    const HRESULT result = call(reinterpret_cast<HWND>(hWndOwner), nFolder, &found);
    list.Reset(found);
    return result;
}

bool SHGetPathFromIDListW(const OwnedItemList& list, String& sBuffer) {
    static BoundEntry<decltype(::SHGetPathFromIDListW)> entry{Shell32(), "SHGetPathFromIDListW"};
    sBuffer.assign(MAX_PATH, u'\0');
    return entry.Get()(static_cast<PCIDLIST_ABSOLUTE>(list.Get()), WideBuffer(sBuffer)) != FALSE;
}

} // namespace kestrelmoor::platform

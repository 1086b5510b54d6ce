#pragma once

#include "runtime/forms/peer.h"
#include "runtime/owned.h"
#include "runtime/text.h"

#include <cstddef>
#include <cstdint>

namespace kestrelmoor::platform {

/// An item list of the shell, given back through the shell's allocator.
struct ItemListTraits {
    using Value = void*;
    static constexpr Value kNone = nullptr;
    static void Release(Value list) noexcept; ///< SHGetMalloc, IMalloc::Free
};
using OwnedItemList = Owned<ItemListTraits>;

/// A special folder by its CSIDL number, with no owner window. A COM result: below 0 failed; a success may
/// still give no list.
std::int32_t SHGetSpecialFolderLocation(std::int32_t nFolder, OwnedItemList& list);

/// The same with an owner window for what the shell may have to ask.
std::int32_t SHGetSpecialFolderLocation(WindowHandle hWndOwner, std::int32_t nFolder, OwnedItemList& list);

/// The path of a list in a buffer of 260 characters, padded with NUL. False: the item has no path.
bool SHGetPathFromIDListW(const OwnedItemList& list, String& sBuffer);

} // namespace kestrelmoor::platform

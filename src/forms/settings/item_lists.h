#pragma once

#include "platform/shell_namespace.h"
#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// Item lists of the shell as bytes in memory (their shape: platform/shell_namespace.h). Sizes are taken as
/// they stand; the texts of records never reach beyond the item or the record that they stand in.

/// The shell's allocator, held while a browse is running. It owns all lists named here.
extern platform::OwnedShellMalloc gShellMalloc;

/// Memory of `gShellMalloc`: an item list, or any other bytes that the shell handed out.
struct ShellMemoryTraits {
    using Value = std::uint8_t*;
    static constexpr Value kNone = nullptr;
    static void Release(Value memory) noexcept;
};
using OwnedIDList = Owned<ShellMemoryTraits>;

/// The size of all items in bytes, without the terminator; 0 for a null pointer.
std::uint32_t GetIDListSize(platform::ItemList list);

/// The last item of a list, which stays within it, with a copy of all the others in `parent`. A null pointer
/// gives null and no copy; a list with no items gives null and a copy that is the terminator alone. Without
/// memory there is no copy.
platform::ItemList SplitIDList(platform::ItemList list, OwnedIDList& parent);

/// A new list of the items of both. Nothing when `first` is none (a null pointer), and `first` itself, moved
/// to the result, when `second` is null. Without memory the result is nothing.
OwnedIDList JoinIDLists(OwnedIDList& first, platform::ItemList second);

/// The text of a record about `item`; a wide text's memory goes back to the allocator. Bytes are not
/// converted: two make one character, the first of them its low half, and a last one without a partner is a
/// character by itself. Empty for any other kind of record.
String StrRetToString(const platform::StrRet& record, platform::ItemList item);

} // namespace kestrelmoor

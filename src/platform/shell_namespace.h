#pragma once

#include "platform/shell_folders.h"
#include "runtime/forms/peer.h"
#include "runtime/owned.h"
#include "runtime/text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kestrelmoor::platform {

/// The shell's namespace: folders, the lists of item identifiers that name what is in them, and the dialog to
/// choose from them. Results are COM results: below 0 failed. A failed call gives nothing out.
///
/// An item list is a run of items, each beginning with a 16-bit size that counts those two bytes too, ended
/// by a size of 0. A list that a call gives out belongs to the caller, who gives it back by Free.

using ItemList = const std::uint8_t*; ///< where a list begins; null: none

// The allocator.

struct ShellMallocTraits {
    using Value = void*;
    static constexpr Value kNone = nullptr;
    static void Release(Value allocator) noexcept; ///< IMalloc::Release
};
using OwnedShellMalloc = Owned<ShellMallocTraits>;

std::int32_t SHGetMalloc(OwnedShellMalloc& allocator);

/// IMalloc::Alloc: null when there is no memory to be had.
void* Alloc(const OwnedShellMalloc& allocator, std::size_t nBytes);

/// IMalloc::Free
void Free(const OwnedShellMalloc& allocator, void* memory) noexcept;

// Folders.

struct ShellFolderTraits {
    using Value = void*;
    static constexpr Value kNone = nullptr;
    static void Release(Value folder) noexcept; ///< IShellFolder::Release
};
/// A folder. Where none stands every method answers 0x80004003, SHGetDataFromIDListW 0x80070057.
using OwnedShellFolder = Owned<ShellFolderTraits>;

std::int32_t SHGetDesktopFolder(OwnedShellFolder& folder);

/// IShellFolder::BindToObject for the interface {000214E6-0000-0000-C000-000000000046}, a folder's own.
std::int32_t BindToObject(const OwnedShellFolder& folder, ItemList list, OwnedShellFolder& bound);

/// IShellFolder::CompareIDs: 0 when the two are the same. Otherwise the order in the low 16 bits, or the
/// code of a failure.
std::int32_t CompareIDs(const OwnedShellFolder& folder, std::int32_t nColumn, ItemList a, ItemList b);

namespace text_kind {
inline constexpr std::uint32_t kWide = 0;   ///< a text in memory of the allocator's
inline constexpr std::uint32_t kOffset = 1; ///< bytes within the item that was asked about
inline constexpr std::uint32_t kBytes = 2;  ///< bytes in the record itself
} // namespace text_kind

/// How a folder gives a text (STRRET). What stands for another kind than that of `uType` is left at nothing.
struct StrRet {
    std::uint32_t uType = text_kind::kWide;
    char16_t* pOleStr = nullptr; ///< ends in NUL, given back by Free
    std::uint32_t uOffset = 0;   ///< counted from the item's beginning; the bytes there end in NUL
    std::array<std::uint8_t, 260> cStr{};
};

/// IShellFolder::GetDisplayNameOf
std::int32_t GetDisplayNameOf(const OwnedShellFolder& folder, ItemList item, std::uint32_t nFlags,
                              StrRet& text);

/// IShellFolder::ParseDisplayName: the list, relative to the folder, of what has this name.
std::int32_t ParseDisplayName(const OwnedShellFolder& folder, WindowHandle hWndOwner, const String& sName,
                              std::uint8_t** list);

/// Data of an item into the whole of `buffer`. 0x80020013: the buffer is too small.
std::int32_t SHGetDataFromIDListW(const OwnedShellFolder& folder, ItemList item, std::int32_t nFormat,
                                  std::vector<std::uint8_t>& buffer);

// The dialog.

namespace browse_message {
inline constexpr std::uint32_t kInitialized = 1;      ///< to the callback: the dialog is made
inline constexpr std::uint32_t kSelectionChanged = 2; ///< to the callback: lParam is the item list
inline constexpr std::uint32_t kEnableOk = 1125;      ///< to the dialog: lParam not 0 enables OK
inline constexpr std::uint32_t kSetSelectionW = 1127; ///< to the dialog: wParam 1, lParam is a path
} // namespace browse_message

/// Called by the dialog while SHBrowseForFolderW runs, on the same thread.
using BrowseCallbackProcedure = std::int32_t (*)(WindowHandle hWnd, std::uint32_t uMsg, std::intptr_t lParam,
                                                 std::intptr_t lpData);

/// BROWSEINFOW
struct BrowseInfo {
    WindowHandle hwndOwner = 0;
    ItemList pidlRoot = nullptr;
    String* pszDisplayName = nullptr; ///< a buffer of 260 characters
    const char16_t* lpszTitle = nullptr;
    std::uint32_t ulFlags = 0;
    BrowseCallbackProcedure lpfn = nullptr;
    std::intptr_t lParam = 0; ///< the callback's `lpData`
    std::int32_t iImage = 0;
};

/// Shows the dialog and returns when it has been closed: the list of what was chosen, counted from the
/// desktop, which the caller gives back by Free; null: cancelled. One dialog at a time.
std::uint8_t* SHBrowseForFolderW(BrowseInfo& info);

} // namespace kestrelmoor::platform

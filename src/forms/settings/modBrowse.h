#pragma once

#include "forms/settings/item_lists.h"
#include "platform/shell_namespace.h"
#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// The user picks a computer or a domain in the system's dialog to choose a folder, rooted at the network. OK
/// can be pressed for those two alone, and the prompt shows the pick as the selection moves. One browse at a
/// time; the state below and the allocator of item_lists.h are valid only while it runs.

extern String gBrowseTitle;        ///< the prompt as the dialog was given it
extern WindowHandle gBrowsePrompt; ///< the control that shows the prompt, 0 until it is found
extern OwnedIDList gNetworkRoot;   ///< the shell's network folder, the root of the browse

/// What an item is, as the network's own records have it; every other number, and 0, can't be picked.
namespace network_item {
inline constexpr std::uint32_t kDomain = 1;
inline constexpr std::uint32_t kServer = 2;
} // namespace network_item

/// The pick as a target: two backslashes and the name for a computer, the plain name for a domain; empty when
/// cancelled. Raises the shell's code when it gives no network folder, no allocator or no desktop folder, and
/// 0x8004041A "Network not installed." when there is no network folder to be had.
String BrowseForComputer(WindowHandle hWndOwner, const String& sPrompt);

/// The same with the dialog's flags, the path that it starts with (empty: none), and any root. The allocator
/// has to be there.
String BrowseForFolder(WindowHandle hWndOwner, const String& sPrompt, std::uint32_t nFlags,
                       const String& sStartPath, platform::ItemList root);

/// The dialog's callback: finds the prompt, shows the selection in it and says whether it can be accepted.
std::int32_t BrowseCallback(WindowHandle hWnd, std::uint32_t uMsg, std::intptr_t lParam,
                            std::intptr_t lpData);

/// Keeps the child that shows exactly `gBrowseTitle` in `gBrowsePrompt`. 0: found, 1: go on.
std::int32_t FindPromptControl(WindowHandle hWndChild, std::intptr_t lParam);

/// The kind of an item, counted from the desktop. One that the shell will not describe, directly below
/// `gNetworkRoot`, is parsed by its name and takes the kind of what that gives.
std::uint32_t GetNetworkItemType(WindowHandle hWndOwner, platform::ItemList list);

/// The name of an item within its folder, empty when the folder will not tell.
String GetItemDisplayName(platform::ItemList list);

/// The folder that an item stands in, none when it can't be had; `item` becomes the last item, within `list`.
platform::OwnedShellFolder GetParentFolder(platform::ItemList list, platform::ItemList& item);

} // namespace kestrelmoor

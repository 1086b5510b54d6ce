#include "forms/settings/modBrowse.h"

#include "platform/child_windows.h"
#include "platform/window_messages.h"
#include "runtime/errors.h"

#include <cstring>
#include <utility>

namespace kestrelmoor {

String gBrowseTitle;
WindowHandle gBrowsePrompt = 0;
OwnedIDList gNetworkRoot;

namespace {

using platform::ItemList;
using platform::OwnedShellFolder;

constexpr std::int32_t kNetworkFolder = 18;
constexpr std::uint32_t kBrowseForComputer = 4096;
constexpr std::size_t kNameCharacters = 260;
constexpr std::size_t kShortestCutPath = 4; ///< a drive's root is shorter and keeps its backslash
constexpr std::size_t kClassNameCharacters = 7;
constexpr std::int32_t kStop = 0;
constexpr std::int32_t kGoOn = 1;

constexpr std::int32_t kNetworkNotInstalled = static_cast<std::int32_t>(0x8004041A);
constexpr std::int32_t kBufferTooSmall = static_cast<std::int32_t>(0x80020013);
constexpr std::int32_t kInvalidArgument = static_cast<std::int32_t>(0x80070057);

constexpr std::uint32_t kInFolder = 1;
constexpr std::int32_t kNetworkResource = 2; ///< the format of data that is an array of records
constexpr std::size_t kRecordBytes = 32;
constexpr std::size_t kRecordStep = 10;
constexpr std::size_t kDisplayTypeOffset = 8;

/// What a browse holds from its beginning to its end.
class Browsing {
  public:
    explicit Browsing(platform::OwnedItemList root) {
        RaiseIfFailed(platform::SHGetMalloc(gShellMalloc));
        gNetworkRoot.Reset(static_cast<std::uint8_t*>(root.Detach()));
    }
    ~Browsing() {
        gNetworkRoot.Reset();
        gShellMalloc.Reset();
    }
    Browsing(const Browsing&) = delete;
    Browsing& operator=(const Browsing&) = delete;
};

OwnedShellFolder DesktopFolder() {
    OwnedShellFolder desktop;
    RaiseIfFailed(platform::SHGetDesktopFolder(desktop));
    return desktop;
}

/// The start path as the dialog takes it: a folder's without its backslash.
String StartPath(const String& sPath) {
    const bool cut = sPath.size() >= kShortestCutPath && sPath.back() == u'\\';
    return cut ? sPath.substr(0, sPath.size() - 1) : sPath;
}

/// The form of a name that the account services take as a target; empty for what can't be picked.
String TargetOf(std::uint32_t kind, ItemList list) {
    if (kind == network_item::kDomain)
        return GetItemDisplayName(list);
    return kind == network_item::kServer ? u"\\\\" + GetItemDisplayName(list) : String();
}

void ShowSelection(WindowHandle hWnd, ItemList list) {
    std::uint32_t kind = list ? GetNetworkItemType(hWnd, list) : 0;
    if (kind != network_item::kDomain && kind != network_item::kServer)
        kind = 0;
    const String name = TargetOf(kind, list);
    if (kind != 0 && gBrowsePrompt != 0) {
        const String text = gBrowseTitle + u"   " + name;
        platform::SendMessageW(gBrowsePrompt, platform::window_message::kSetText, 0,
                               reinterpret_cast<std::intptr_t>(text.c_str()));
    }
    platform::SendMessageW(hWnd, platform::browse_message::kEnableOk, 0, static_cast<std::intptr_t>(kind));
}

String ClassNameOf(WindowHandle hWnd) {
    String name(kClassNameCharacters, u'\0');
    const std::int32_t copied = platform::GetClassNameW(hWnd, name);
    return name.substr(0, static_cast<std::size_t>(copied));
}

String TextOfWindow(WindowHandle hWnd, std::size_t length) {
    String text(length + 1, u'\0');
    const std::intptr_t copied = platform::SendMessageW(hWnd, platform::window_message::kGetText, text.size(),
                                                        reinterpret_cast<std::intptr_t>(text.data()));
    return text.substr(0, static_cast<std::size_t>(copied));
}

std::uint32_t DisplayType(const std::vector<std::uint8_t>& records) {
    std::uint32_t type = 0;
    std::memcpy(&type, records.data() + kDisplayTypeOffset, sizeof type);
    return type;
}

/// The kind that the folder itself tells of an item. False: it finds the question wrong.
bool ReadItemType(const OwnedShellFolder& folder, ItemList item, std::uint32_t& nType) {
    std::vector<std::uint8_t> records;
    std::int32_t result = kBufferTooSmall;
    for (std::size_t size = 0; result == kBufferTooSmall;) {
        size += kRecordStep * kRecordBytes;
        records.assign(size, 0);
        result = platform::SHGetDataFromIDListW(folder, item, kNetworkResource, records);
    }
    if (result == kInvalidArgument)
        return false;
    nType = DisplayType(records);
    return true;
}

String NameInFolder(const OwnedShellFolder& folder, ItemList item) {
    platform::StrRet record;
    platform::GetDisplayNameOf(folder, item, kInFolder, record);
    return StrRetToString(record, item);
}

/// The kind of what an item's name stands for in its folder, 0 when that is the item itself.
std::uint32_t TypeByName(WindowHandle hWndOwner, ItemList list, const OwnedShellFolder& desktop,
                         OwnedIDList& parent, const OwnedShellFolder& folder, ItemList item) {
    const String name = u"\\\\" + NameInFolder(folder, item);
    OwnedIDList named;
    platform::ParseDisplayName(folder, hWndOwner, name, named.Receive());
    if (!named)
        return 0;
    const OwnedIDList whole = JoinIDLists(parent, named.Get());
    const bool differs = whole && platform::CompareIDs(desktop, 0, whole.Get(), list) != 0;
    return differs ? GetNetworkItemType(hWndOwner, whole.Get()) : 0;
}

/// The second way to an item's kind, for items directly below the root of the browse.
std::uint32_t TypeBelowRoot(WindowHandle hWndOwner, ItemList list, const OwnedShellFolder& folder,
                            ItemList item) {
    const OwnedShellFolder desktop = DesktopFolder();
    OwnedIDList parent;
    SplitIDList(list, parent);
    if (!parent || platform::CompareIDs(desktop, 0, parent.Get(), gNetworkRoot.Get()) != 0)
        return 0;
    try {
        return TypeByName(hWndOwner, list, desktop, parent, folder, item);
    } catch (const RuntimeError&) {
        return 0;
    }
}

} // namespace

String BrowseForComputer(WindowHandle hWndOwner, const String& sPrompt) {
    platform::OwnedItemList root;
    RaiseIfFailed(platform::SHGetSpecialFolderLocation(hWndOwner, kNetworkFolder, root));
    if (!root)
        throw RuntimeError(kNetworkNotInstalled, u"Kestrelmoor", u"Network not installed.");
    const Browsing browsing(std::move(root));
    return BrowseForFolder(hWndOwner, sPrompt, kBrowseForComputer, {}, gNetworkRoot.Get());
}

String BrowseForFolder(WindowHandle hWndOwner, const String& sPrompt, std::uint32_t nFlags,
                       const String& sStartPath, ItemList root) {
    gBrowseTitle = sPrompt;
    gBrowsePrompt = 0;
    String name(kNameCharacters, u'\0');
    const String path = StartPath(sStartPath);
    platform::BrowseInfo info;
    info.hwndOwner = hWndOwner;
    info.pidlRoot = root;
    info.pszDisplayName = &name;
    info.lpszTitle = gBrowseTitle.c_str();
    info.ulFlags = nFlags;
    info.lpfn = BrowseCallback;
    info.lParam = path.empty() ? 0 : reinterpret_cast<std::intptr_t>(path.c_str());
    const OwnedIDList picked(platform::SHBrowseForFolderW(info));
    return picked ? TargetOf(GetNetworkItemType(hWndOwner, picked.Get()), picked.Get()) : String();
}

std::int32_t BrowseCallback(WindowHandle hWnd, std::uint32_t uMsg, std::intptr_t lParam,
                            std::intptr_t lpData) {
    if (uMsg == platform::browse_message::kInitialized) {
        if (lpData != 0)
            platform::SendMessageW(hWnd, platform::browse_message::kSetSelectionW, 1, lpData);
        gBrowsePrompt = 0;
        platform::EnumChildWindows(hWnd, FindPromptControl, 0);
    } else if (uMsg == platform::browse_message::kSelectionChanged) {
        ShowSelection(hWnd, reinterpret_cast<ItemList>(lParam));
    }
    return 0;
}

std::int32_t FindPromptControl(WindowHandle hWndChild, std::intptr_t /*lParam*/) {
    if (ClassNameOf(hWndChild) != u"Static")
        return kGoOn;
    const std::intptr_t length =
        platform::SendMessageW(hWndChild, platform::window_message::kGetTextLength, 0, 0);
    if (length == 0 || TextOfWindow(hWndChild, static_cast<std::size_t>(length)) != gBrowseTitle)
        return kGoOn;
    gBrowsePrompt = hWndChild;
    return kStop;
}

std::uint32_t GetNetworkItemType(WindowHandle hWndOwner, ItemList list) {
    ItemList item = nullptr;
    const OwnedShellFolder folder = GetParentFolder(list, item);
    std::uint32_t type = 0;
    return ReadItemType(folder, item, type) ? type : TypeBelowRoot(hWndOwner, list, folder, item);
}

String GetItemDisplayName(ItemList list) {
    ItemList item = nullptr;
    const OwnedShellFolder folder = GetParentFolder(list, item);
    return NameInFolder(folder, item);
}

OwnedShellFolder GetParentFolder(ItemList list, ItemList& item) {
    OwnedIDList parent;
    item = SplitIDList(list, parent);
    if (!parent)
        return {};
    OwnedShellFolder desktop = DesktopFolder();
    if (GetIDListSize(parent.Get()) == 0)
        return desktop;
    OwnedShellFolder bound;
    platform::BindToObject(desktop, parent.Get(), bound);
    return bound;
}

} // namespace kestrelmoor

#include "forms/settings/modBrowse.h"
#include "platform/windows/wide_text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>
#include <functional>

#include <windows.h>

#include <commctrl.h>

namespace kestrelmoor {
namespace {

constexpr char16_t kPrompt[] = u"Choose a computer or a domain:";

/// The real shell, with the allocator that a browse holds.
class Shell : public testing::Test {
  protected:
    Shell() {
        EXPECT_GE(platform::SHGetMalloc(gShellMalloc), 0);
        EXPECT_GE(platform::SHGetDesktopFolder(desktop), 0);
        String name(MAX_PATH, u'\0');
        name.resize(::GetWindowsDirectoryW(platform::WideBuffer(name), MAX_PATH));
        EXPECT_GE(platform::ParseDisplayName(desktop, 0, name, folder.Receive()), 0);
    }
    ~Shell() override {
        folder.Reset();
        gShellMalloc.Reset();
    }

    std::string NameOf(const platform::OwnedShellFolder& parent, platform::ItemList item) {
        platform::StrRet record;
        EXPECT_GE(platform::GetDisplayNameOf(parent, item, 1, record), 0);
        return ToUtf8(StrRetToString(record, item));
    }

    platform::OwnedShellFolder desktop;
    OwnedIDList folder; ///< the system's own: several items, the last one named "windows"
};

TEST_F(Shell, aRealListSplitsIntoItsParentAndItsLastItemAndJoinsAgain) {
    ASSERT_TRUE(folder);
    OwnedIDList parent;
    const platform::ItemList last = SplitIDList(folder.Get(), parent);
    ASSERT_TRUE(parent);
    EXPECT_GT(GetIDListSize(parent.Get()), 0U);
    EXPECT_EQ(last, folder.Get() + GetIDListSize(parent.Get()));
    const OwnedIDList joined = JoinIDLists(parent, last);
    EXPECT_EQ(GetIDListSize(joined.Get()), GetIDListSize(folder.Get()));
    EXPECT_EQ(platform::CompareIDs(desktop, 0, joined.Get(), folder.Get()), 0);
    EXPECT_NE(platform::CompareIDs(desktop, 0, parent.Get(), folder.Get()), 0);
}

TEST_F(Shell, theParentFolderTellsTheNameOfTheLastItem) {
    platform::ItemList item = nullptr;
    const platform::OwnedShellFolder parent = GetParentFolder(folder.Get(), item);
    ASSERT_TRUE(parent);
    EXPECT_EQ(_stricmp(NameOf(parent, item).c_str(), "windows"), 0);
    EXPECT_EQ(_stricmp(ToUtf8(GetItemDisplayName(folder.Get())).c_str(), "windows"), 0);
}

TEST_F(Shell, aFolderOfTheFileSystemIsNoComputer) {
    EXPECT_EQ(GetNetworkItemType(0, folder.Get()), 0U);
}

TEST_F(Shell, theNetworkFolderStandsOnTheDesktop) {
    platform::OwnedItemList network;
    ASSERT_GE(platform::SHGetSpecialFolderLocation(0, 18, network), 0);
    ASSERT_TRUE(network);
    OwnedIDList parent;
    const auto* const list = static_cast<const std::uint8_t*>(network.Get());
    EXPECT_EQ(SplitIDList(list, parent), list);
    EXPECT_EQ(GetIDListSize(parent.Get()), 0U);
}

TEST_F(Shell, whatCannotBeDoneFailsAndGivesNothing) {
    const platform::OwnedShellFolder none;
    platform::OwnedShellFolder bound;
    platform::StrRet text;
    std::vector<std::uint8_t> buffer(320);
    std::uint8_t* list = nullptr;
    EXPECT_LT(platform::BindToObject(none, folder.Get(), bound), 0);
    EXPECT_LT(platform::GetDisplayNameOf(none, folder.Get(), 1, text), 0);
    EXPECT_LT(platform::SHGetDataFromIDListW(none, folder.Get(), 2, buffer), 0);
    EXPECT_LT(platform::ParseDisplayName(none, 0, u"\\\\x", &list), 0);
    EXPECT_LT(platform::ParseDisplayName(desktop, 0, u"C:\\no such folder\\at all", &list), 0);
    EXPECT_EQ(list, nullptr);
    EXPECT_FALSE(bound);
    EXPECT_EQ(StrRetToString(text, nullptr), u"");
}

/// The system's dialog, and what is done when it has come up.
class Dialog : public Shell {
  protected:
    ~Dialog() override { ::KillTimer(nullptr, mTimer); }

    void WhenOpen(std::function<void(HWND)> action) {
        mAction = std::move(action);
        mTimer = ::SetTimer(nullptr, 0, 50, Tick);
    }

    static bool OkEnabled(HWND dialog) { return ::IsWindowEnabled(::GetDlgItem(dialog, IDOK)) != FALSE; }

    /// Some systems begin with nothing selected.
    static void SelectRoot(HWND dialog) {
        HWND tree = nullptr;
        ::EnumChildWindows(dialog, LookForTree, reinterpret_cast<LPARAM>(&tree));
        const LRESULT root = ::SendMessageW(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0);
        ::SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, root);
    }

  private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR timer, DWORD) noexcept {
        HWND dialog = nullptr;
        ::EnumThreadWindows(::GetCurrentThreadId(), Look, reinterpret_cast<LPARAM>(&dialog));
        if (!dialog || !::IsWindowVisible(dialog))
            return;
        ::KillTimer(nullptr, timer);
        mAction(dialog);
    }
    static BOOL Keep(HWND window, const wchar_t* class_name, LPARAM found) noexcept {
        wchar_t name[16] = {};
        ::GetClassNameW(window, name, 16);
        if (std::wcscmp(name, class_name) != 0)
            return TRUE;
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    static BOOL CALLBACK Look(HWND window, LPARAM found) noexcept { return Keep(window, L"#32770", found); }
    static BOOL CALLBACK LookForTree(HWND window, LPARAM found) noexcept {
        return Keep(window, WC_TREEVIEWW, found);
    }

    static inline std::function<void(HWND)> mAction;
    UINT_PTR mTimer = 0;
};

TEST_F(Dialog, theNetworkIsShownItsRootCantBePickedAndCancellingGivesNothing) {
    folder.Reset(); // the browse takes an allocator of its own
    std::string prompt;
    bool enabled = true;
    WhenOpen([&](HWND dialog) {
        wchar_t text[100] = {};
        ::GetWindowTextW(reinterpret_cast<HWND>(gBrowsePrompt), text, 100);
        prompt = ToUtf8(platform::FromWide(text));
        SelectRoot(dialog);
        enabled = OkEnabled(dialog);
        ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    EXPECT_EQ(BrowseForComputer(0, kPrompt), u"");
    EXPECT_EQ(prompt, ToUtf8(kPrompt));
    EXPECT_FALSE(enabled);
    EXPECT_FALSE(gShellMalloc);
    EXPECT_FALSE(gNetworkRoot);
}

TEST_F(Dialog, aStartPathBecomesTheSelectionAndWhatIsAcceptedComesBack) {
    String path(MAX_PATH, u'\0');
    path.resize(::GetWindowsDirectoryW(platform::WideBuffer(path), MAX_PATH));
    String name(MAX_PATH, u'\0');
    platform::BrowseInfo info;
    info.pszDisplayName = &name;
    info.lpszTitle = kPrompt;
    info.lParam = reinterpret_cast<std::intptr_t>(path.c_str());
    info.lpfn = [](WindowHandle window, std::uint32_t message, std::intptr_t, std::intptr_t data) {
        if (message == platform::browse_message::kInitialized)
            ::SendMessageW(reinterpret_cast<HWND>(window), platform::browse_message::kSetSelectionW, 1, data);
        return 0;
    };
    WhenOpen([&](HWND dialog) { ::PostMessageW(dialog, WM_COMMAND, IDOK, 0); });
    const OwnedIDList picked(platform::SHBrowseForFolderW(info));
    ASSERT_TRUE(picked);
    EXPECT_EQ(platform::CompareIDs(desktop, 0, picked.Get(), folder.Get()), 0);
    // Some systems give the name alone, some with its path.
    const std::string shown = ToUtf8(TrimAtNul(name));
    EXPECT_EQ(_stricmp(shown.substr(shown.rfind('\\') + 1).c_str(), "windows"), 0) << shown;
}

} // namespace
} // namespace kestrelmoor

#include "platform/child_windows.h"
#include "platform/practice/system_windows.h"
#include "platform/practice/world/world_file.h"
#include "platform/shell_namespace.h"
#include "platform/window_messages.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kestrelmoor {
namespace {

using practice::BrowseDialog;
using practice::ItemBytes;
using practice::ItemPath;
using practice::ShellItem;
using practice::ShellItemKind;
using practice::ShellTree;
using practice::SystemWindow;
using practice::SystemWindows;

constexpr std::int32_t kWrongArgument = static_cast<std::int32_t>(0x80070057);
constexpr std::int32_t kTooSmall = static_cast<std::int32_t>(0x80020013);
constexpr std::int32_t kNoObject = static_cast<std::int32_t>(0x80004003);

ShellItem Folder(const char16_t* name, std::vector<ShellItem> items) {
    ShellItem item;
    item.name = name;
    item.items = std::move(items);
    return item;
}

/// The stock network: 0 Entire Network (0 PRACTICE, 1 WORKGROUP), 1 ARCHIVE (0 Shelf), 2 WORKBENCH, which is
/// not described, 3 the hidden one of that name.
class PracticeShell : public testing::Test {
  protected:
    PracticeShell() {
        EXPECT_EQ(platform::SHGetDesktopFolder(desktop), 0);
        EXPECT_EQ(platform::BindToObject(desktop, world.shell.ListOf({}).data(), network), 0);
    }
    ~PracticeShell() override {
        desktop.Reset();
        network.Reset();
        EXPECT_EQ(world.OutstandingHandles(), 0U);
        EXPECT_EQ(world.handles.WrongReleases(), 0U);
    }

    ItemBytes InNetwork(std::uint16_t number) { return practice::RelativeList(world.shell.network, number); }

    practice::ScopedWorld world;
    platform::OwnedShellFolder desktop;
    platform::OwnedShellFolder network;
};

TEST(PracticeShellTree, AListIsItsItemsBehindEachOtherAndNamesThemAgain) {
    ShellTree tree;
    tree.network = Folder(u"Net", {Folder(u"A", {}), Folder(u"B", {Folder(u"C", {})})});
    const ItemBytes expected{8, 0,   0xFF, 0xFF, 'N', 'e', 't', 0,   6, 0, 1,
                             0, 'B', 0,    6,    0,   0,   0,   'C', 0, 0, 0};
    EXPECT_EQ(tree.ListOf({1, 0}), expected);
    EXPECT_EQ(tree.PathOf(expected.data()), (ItemPath{1, 0}));
    EXPECT_EQ(tree.PathOf(tree.ListOf({}).data()), ItemPath());
}

TEST(PracticeShellTree, AListOfAnotherTreeNamesNothing) {
    ShellTree tree;
    tree.network = Folder(u"Net", {Folder(u"A", {})});
    ShellTree other = tree;
    other.network.items[0].name = u"X";
    EXPECT_EQ(tree.PathOf(other.ListOf({0}).data()), std::nullopt);
    other.network.name = u"Other";
    EXPECT_EQ(tree.PathOf(other.ListOf({}).data()), std::nullopt);
    EXPECT_EQ(tree.PathOf(nullptr), std::nullopt);
}

TEST(PracticeShellTree, TheShellsBranchComesThroughAFile) {
    practice::World world;
    practice::LoadStockWorld(world);
    ShellItem odd = Folder(u"ODD", {});
    odd.kind = ShellItemKind::Domain;
    odd.name_form = practice::NameForm::Bytes;
    odd.undescribed = odd.hidden = true;
    odd.record_bytes = 700;
    world.shell.network.items.push_back(odd);
    world.shell.network_present = false;
    practice::World again;
    practice::ReadWorld(again, practice::WriteWorld(world), "again");
    EXPECT_EQ(again.shell, world.shell);
    EXPECT_EQ(again.shell.network.items.at(4), odd);
}

TEST_F(PracticeShell, TheNetworkFolderIsOneItemOnTheDesktop) {
    platform::OwnedItemList list;
    EXPECT_EQ(platform::SHGetSpecialFolderLocation(7, 18, list), 0);
    const auto bytes = practice::BytesOfList(static_cast<const std::uint8_t*>(list.Get()));
    EXPECT_EQ(ItemBytes(bytes.begin(), bytes.end()), world.shell.ListOf({}));
    String buffer;
    EXPECT_FALSE(platform::SHGetPathFromIDListW(list, buffer));
    world.shell.network_present = false;
    EXPECT_EQ(platform::SHGetSpecialFolderLocation(7, 18, list), 0);
}

TEST_F(PracticeShell, AnItemIsDescribedInABufferThatIsLargeEnough) {
    world.shell.network.items[1].record_bytes = 100;
    std::vector<std::uint8_t> buffer(99);
    EXPECT_EQ(platform::SHGetDataFromIDListW(network, InNetwork(1).data(), 2, buffer), kTooSmall);
    buffer.resize(100);
    EXPECT_EQ(platform::SHGetDataFromIDListW(network, InNetwork(1).data(), 2, buffer), 0);
    EXPECT_EQ(buffer[8], 2);
    EXPECT_EQ(std::count(buffer.begin(), buffer.end(), 0), 99);
    EXPECT_EQ(platform::SHGetDataFromIDListW(network, InNetwork(2).data(), 2, buffer), kWrongArgument);
}

TEST_F(PracticeShell, ANameIsParsedToTheHiddenItemAheadOfTheListedOne) {
    std::uint8_t* list = nullptr;
    ASSERT_EQ(platform::ParseDisplayName(network, 0, u"\\\\workbench", &list), 0);
    EXPECT_EQ(platform::CompareIDs(desktop, 0, list, InNetwork(3).data()), 0);
    EXPECT_NE(platform::CompareIDs(desktop, 0, list, InNetwork(2).data()), 0);
    platform::OwnedShellMalloc allocator;
    ASSERT_EQ(platform::SHGetMalloc(allocator), 0);
    platform::Free(allocator, list);
    EXPECT_LT(platform::ParseDisplayName(network, 0, u"\\\\", &list), 0);
}

TEST_F(PracticeShell, WithoutAFolderNothingIsAnswered) {
    const platform::OwnedShellFolder none;
    platform::OwnedShellFolder bound;
    platform::StrRet text;
    std::uint8_t* list = nullptr;
    std::vector<std::uint8_t> buffer(32);
    const ItemBytes item = InNetwork(1);
    EXPECT_EQ(platform::BindToObject(none, item.data(), bound), kNoObject);
    EXPECT_EQ(platform::CompareIDs(none, 0, item.data(), item.data()), kNoObject);
    EXPECT_EQ(platform::GetDisplayNameOf(none, item.data(), 1, text), kNoObject);
    EXPECT_EQ(platform::ParseDisplayName(none, 0, u"\\\\ARCHIVE", &list), kNoObject);
    EXPECT_EQ(platform::SHGetDataFromIDListW(none, item.data(), 2, buffer), kWrongArgument);
}

TEST_F(PracticeShell, WhatIsNotGivenBackIsSeen) {
    platform::OwnedShellMalloc allocator;
    ASSERT_EQ(platform::SHGetMalloc(allocator), 0);
    const std::size_t before = world.OutstandingHandles();
    void* const memory = platform::Alloc(allocator, 10);
    EXPECT_EQ(world.OutstandingHandles(), before + 1);
    platform::Free(allocator, memory);
    EXPECT_EQ(world.OutstandingHandles(), before);
    platform::Free(allocator, nullptr);
    EXPECT_EQ(world.handles.WrongReleases(), 0U);
}

/// What the callback of a dialog has been told: messages and the dialog's title when they came.
std::vector<std::uint32_t> told;

std::int32_t Tell(WindowHandle hWnd, std::uint32_t uMsg, std::intptr_t /*lParam*/, std::intptr_t lpData) {
    told.push_back(uMsg);
    EXPECT_EQ(lpData, 99);
    platform::SendMessageW(hWnd, platform::browse_message::kEnableOk, 0, 1);
    return 0;
}

TEST_F(PracticeShell, ADialogTellsItsCallbackAndGivesTheListThatWasAccepted) {
    told.clear();
    String name(260, u'\0');
    const practice::ItemBytes root = world.shell.ListOf({});
    platform::BrowseInfo info;
    info.pidlRoot = root.data();
    info.pszDisplayName = &name;
    info.lpszTitle = u"Title";
    info.lpfn = Tell;
    info.lParam = 99;
    world.browser.Next([](BrowseDialog& dialog) {
        EXPECT_EQ(dialog.Prompt(), u"Title");
        EXPECT_FALSE(dialog.Select(StringList{u"NOBODY"}));
        EXPECT_TRUE(dialog.Select(StringList{u"Entire Network", u"PRACTICE"}));
        EXPECT_TRUE(dialog.PressOk());
    });
    std::uint8_t* const list = platform::SHBrowseForFolderW(info);
    EXPECT_EQ(told, (std::vector<std::uint32_t>{1, 2, 2}));
    EXPECT_EQ(world.shell.PathOf(list), (ItemPath{0, 0}));
    EXPECT_EQ(TrimAtNul(name), u"PRACTICE");
    EXPECT_EQ(name.size(), 260U);
    platform::OwnedShellMalloc allocator;
    ASSERT_EQ(platform::SHGetMalloc(allocator), 0);
    platform::Free(allocator, list);
}

TEST_F(PracticeShell, ADialogShowsItsRootAndWhatStandsBelowIt) {
    const practice::ItemBytes root = world.shell.ListOf({0, 0});
    platform::BrowseInfo info;
    info.pidlRoot = root.data();
    world.browser.Next([](BrowseDialog& dialog) {
        EXPECT_EQ(dialog.Selection(), (ItemPath{0, 0}));
        EXPECT_EQ(dialog.Rows(), (std::vector<ItemPath>{{0, 0}, {0, 0, 0}}));
        EXPECT_TRUE(dialog.Select(StringList{u"DC1"}));
        EXPECT_FALSE(dialog.Select(ItemPath{0}));
        EXPECT_FALSE(dialog.Select(ItemPath{1}));
        EXPECT_EQ(dialog.Selection(), (ItemPath{0, 0, 0}));
    });
    EXPECT_EQ(platform::SHBrowseForFolderW(info), nullptr);
}

TEST_F(PracticeShell, ADialogWithoutARootBeginsWithTheDesktop) {
    told.clear();
    platform::BrowseInfo info;
    info.lpfn = Tell;
    info.lParam = 99;
    world.browser.Next([](BrowseDialog& dialog) {
        EXPECT_EQ(told, (std::vector<std::uint32_t>{1, 2}));
        EXPECT_FALSE(dialog.Select(StringList{}));
        EXPECT_FALSE(dialog.Select(StringList{u"Entire Network"}));
        EXPECT_TRUE(dialog.Select(StringList{u"Network", u"Entire Network"}));
    });
    EXPECT_EQ(platform::SHBrowseForFolderW(info), nullptr);
}

TEST_F(PracticeShell, ADialogIsAnsweredByTheActionsThatCome) {
    platform::BrowseInfo info;
    world.actions.Queue([&] { world.browser.Current()->Cancel(); });
    EXPECT_EQ(platform::SHBrowseForFolderW(info), nullptr);
    EXPECT_EQ(world.browser.Current(), nullptr);
    EXPECT_TRUE(world.actions.Empty());
    EXPECT_EQ(platform::SHBrowseForFolderW(info), nullptr) << "nobody is there any more";
}

TEST(PracticeSystemWindows, ChildrenComeInTheirOrderUntilTheCallbackStops) {
    practice::ScopedWorld world;
    SystemWindows& windows = SystemWindows::Current();
    const WindowHandle dialog = windows.Add({0, u"#32770", u"", {}});
    const WindowHandle group = windows.Add({dialog, u"Group", u"one", {}});
    windows.Add({dialog, u"Static", u"three", {}});
    windows.Add({group, u"Static", u"two", {}});
    static std::string seen;
    seen.clear();
    platform::EnumChildWindows(
        dialog,
        [](WindowHandle child, std::intptr_t stop) -> std::int32_t {
            seen += ToUtf8(SystemWindows::Current().Find(child)->text) + " ";
            return static_cast<std::int32_t>(stop);
        },
        1);
    EXPECT_EQ(seen, "one two three ");
    seen.clear();
    platform::EnumChildWindows(
        dialog,
        [](WindowHandle, std::intptr_t) -> std::int32_t {
            seen += "x";
            return 0;
        },
        0);
    EXPECT_EQ(seen, "x");
    windows.Remove(dialog);
    EXPECT_EQ(windows.Find(group), nullptr);
}

TEST(PracticeSystemWindows, AClassNameAndATextAreCutToTheirBuffers) {
    practice::ScopedWorld world;
    const WindowHandle window = SystemWindows::Current().Add({0, u"Static", u"Prompt", {}});
    String buffer(4, u'x');
    EXPECT_EQ(platform::GetClassNameW(window, buffer), 3);
    EXPECT_EQ(buffer, (String{u'S', u't', u'a', u'\0'}));
    buffer.assign(4, u'x');
    const auto place = reinterpret_cast<std::intptr_t>(buffer.data());
    EXPECT_EQ(platform::SendMessageW(window, platform::window_message::kGetText, 3, place), 2);
    EXPECT_EQ(buffer, (String{u'P', u'r', u'\0', u'x'}));
    EXPECT_EQ(platform::SendMessageW(window, platform::window_message::kGetTextLength, 0, 0), 6);
    SystemWindows::Current().Remove(window);
    EXPECT_EQ(platform::GetClassNameW(window, buffer), 0);
}

} // namespace
} // namespace kestrelmoor

#include "platform/network_management.h"
#include "platform/shell_folders.h"
#include "platform/windows/wide_text.h"

#include <gtest/gtest.h>

#include <cwchar>

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

TEST(NetworkManagement, namesTheLocalComputer) {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = {};
    DWORD length = MAX_COMPUTERNAME_LENGTH + 1;
    ASSERT_TRUE(::GetComputerNameW(name, &length));
    WkstaInfo100 info;
    ASSERT_EQ(NetWkstaGetInfo(info), 0U);
    EXPECT_EQ(_wcsicmp(Wide(info.computername), name), 0);
    EXPECT_NE(info.langroup, u"");
}

TEST(NetworkManagement, namesTheUser) {
    wchar_t name[200] = {};
    DWORD length = 200;
    ASSERT_TRUE(::GetUserNameW(name, &length));
    WkstaUserInfo0 info;
    ASSERT_EQ(NetWkstaUserGetInfo(info), 0U);
    EXPECT_EQ(_wcsicmp(Wide(info.username), name), 0);
}

TEST(ShellFolders, theDocumentsFolderHasAPathInAFullBuffer) {
    OwnedItemList list;
    ASSERT_GE(SHGetSpecialFolderLocation(5, list), 0);
    ASSERT_TRUE(list);
    String buffer;
    ASSERT_TRUE(SHGetPathFromIDListW(list, buffer));
    EXPECT_EQ(buffer.size(), 260U);
    EXPECT_EQ(buffer.substr(1, 2), u":\\");
}

TEST(ShellFolders, aFolderOutsideOfTheFileSystemHasNoPath) {
    for (int folder : {3, 10, 17}) {
        OwnedItemList list;
        ASSERT_GE(SHGetSpecialFolderLocation(folder, list), 0);
        String buffer;
        EXPECT_FALSE(list && SHGetPathFromIDListW(list, buffer)) << folder;
    }
}

TEST(ShellFolders, aNumberOfNoFolderFailsAndGivesNoList) {
    OwnedItemList list;
    EXPECT_LT(SHGetSpecialFolderLocation(0x7FFF, list), 0);
    EXPECT_FALSE(list);
}

} // namespace
} // namespace kestrelmoor::platform

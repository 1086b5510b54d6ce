#include "platform/files.h"

#include "platform/windows/wide_text.h"
#include "runtime/errors.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

template <class Action>
std::int32_t ErrorOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

class FilesTest : public testing::Test {
  protected:
    void SetUp() override {
        wchar_t folder[MAX_PATH] = {};
        ASSERT_NE(::GetTempPathW(MAX_PATH, folder), 0U);
        mPath = FromWide(folder) + u"kestrelmoor-test.log";
        Remove();
    }
    void TearDown() override { Remove(); }
    void Remove() { ::DeleteFileW(Wide(mPath)); }
    std::string Content() const {
        const HANDLE file = ::CreateFileW(Wide(mPath), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          nullptr, OPEN_EXISTING, 0, nullptr);
        char bytes[200];
        DWORD length = 0;
        ::ReadFile(file, bytes, sizeof bytes, &length, nullptr);
        ::CloseHandle(file);
        return std::string(bytes, length);
    }

    String mPath;
};

TEST_F(FilesTest, twoWhoAppendLoseNoLine) {
    const OwnedAppendFile first = OpenForAppending(mPath);
    const OwnedAppendFile second = OpenForAppending(mPath);
    Append(first, "one\r\n");
    Append(second, "two\r\n");
    Append(first, "three\r\n");
    Append(second, "");
    EXPECT_EQ(Content(), "one\r\ntwo\r\nthree\r\n");
}

TEST_F(FilesTest, opensBehindWhatIsThere) {
    Append(OpenForAppending(mPath), "old;");
    Append(OpenForAppending(mPath), "new;");
    EXPECT_EQ(Content(), "old;new;");
}

TEST_F(FilesTest, whatMayNotBeWrittenRaises70) {
    EXPECT_EQ(ErrorOf([&] { OpenForAppending(ProgramFolder()); }), 70) << "a folder";
    const HANDLE alone = ::CreateFileW(Wide(mPath), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    EXPECT_EQ(ErrorOf([&] { OpenForAppending(mPath); }), 70) << "a file that another keeps for itself";
    ::CloseHandle(alone);
    EXPECT_EQ(ErrorOf([&] { OpenForAppending(mPath); }), 0);
}

TEST_F(FilesTest, aFolderThatIsNotThereRaises76) {
    EXPECT_EQ(ErrorOf([&] { OpenForAppending(mPath + u".folder\\file.log"); }), 76);
    EXPECT_EQ(ErrorOf([&] { GetFileAttributesW(mPath + u".folder\\file.log"); }), 76);
}

TEST_F(FilesTest, aFileThatIsNotThereRaises53) {
    EXPECT_EQ(ErrorOf([&] { GetFileAttributesW(mPath); }), 53);
}

TEST_F(FilesTest, tellsAFolderFromAFile) {
    Append(OpenForAppending(mPath), "x");
    EXPECT_EQ(GetFileAttributesW(mPath) & kDirectoryAttribute, 0U);
    EXPECT_EQ(GetFileAttributesW(ProgramFolder()) & kDirectoryAttribute, kDirectoryAttribute);
}

TEST_F(FilesTest, aSearchFindsEachMatchOnceAndEnds) {
    for (const char16_t* const ending : {u".1.search", u".2.search", u".other"})
        Append(OpenForAppending(mPath + ending), "x");
    FoundFile found;
    const OwnedFileSearch search = FindFirstFileW(mPath + u".*.search", found);
    ASSERT_TRUE(search);
    const String first = found.name;
    EXPECT_EQ(found.attributes & kDirectoryAttribute, 0U);
    EXPECT_TRUE(FindNextFileW(search, found));
    EXPECT_NE(found.name, first);
    EXPECT_FALSE(FindNextFileW(search, found));
    for (const char16_t* const ending : {u".1.search", u".2.search", u".other"})
        ::DeleteFileW(Wide(mPath + ending));
}

TEST_F(FilesTest, aSearchWithoutAMatchIsNone) {
    FoundFile found;
    EXPECT_FALSE(FindFirstFileW(mPath + u".*.search", found));
    EXPECT_FALSE(FindFirstFileW(mPath + u".folder\\*", found));
}

TEST(Program, knowsItsFolderAndName) {
    EXPECT_EQ(ProgramBaseName(), u"windows_tests");
    EXPECT_NE(ProgramFolder().back(), u'\\');
    EXPECT_EQ(GetFileAttributesW(ProgramFolder() + u"\\windows_tests.exe") & kDirectoryAttribute, 0U);
}

} // namespace
} // namespace kestrelmoor::platform

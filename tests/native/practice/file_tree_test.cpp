#include "platform/files.h"
#include "platform/practice/world/world.h"
#include "runtime/errors.h"

#include <gtest/gtest.h>

namespace kestrelmoor {
namespace {

template <class Deed>
int ErrorOf(const Deed& deed) {
    try {
        deed();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

int AttributesError(const String& path) {
    return ErrorOf([&] { platform::GetFileAttributesW(path); });
}

int OpeningError(const String& path) {
    return ErrorOf([&] { platform::OpenForAppending(path); });
}

TEST(PracticeFiles, PathsAreWorkedOutFromTheCurrentDirectoryAndTheDrive) {
    practice::FileTree files;
    files.current_directory = u"C:\\Work";
    EXPECT_EQ(files.FullPath(u"a.txt"), u"C:\\Work\\a.txt");
    EXPECT_EQ(files.FullPath(u"..\\b\\.\\a.txt"), u"C:\\b\\a.txt");
    EXPECT_EQ(files.FullPath(u"\\a.txt"), u"C:\\a.txt");
    EXPECT_EQ(files.FullPath(u"D:/x/a.txt"), u"D:\\x\\a.txt");
    EXPECT_EQ(files.FullPath(u"C:\\..\\.."), u"C:\\");
}

TEST(PracticeFiles, MissingFileAndMissingFolderAreDifferentErrors) {
    practice::ScopedWorld world;
    EXPECT_EQ(AttributesError(u"C:\\Users\\user\\Documents\\none.txt"), 53);
    EXPECT_EQ(AttributesError(u"C:\\Nowhere\\none.txt"), 76);
}

TEST(PracticeFiles, FolderAndFileAreToldApart) {
    practice::ScopedWorld world;
    EXPECT_EQ(platform::GetFileAttributesW(u"c:\\users\\USER\\documents"), 16U);
    EXPECT_EQ(platform::GetFileAttributesW(u"C:\\Program Files\\Kestrelmoor\\Moorlink.exe"), 32U);
}

TEST(PracticeFiles, LibraryThatCanBeLoadedIsAFileToo) {
    practice::ScopedWorld world;
    EXPECT_EQ(platform::GetFileAttributesW(u"C:\\Program Files\\Kestrelmoor\\default.loc"), 32U);
}

TEST(PracticeFiles, FileThatRefusesReadingIsDenied) {
    practice::ScopedWorld world;
    world.files.CreateFile(u"C:\\secret.txt").refuses_reading = true;
    EXPECT_EQ(AttributesError(u"C:\\secret.txt"), 70);
}

TEST(PracticeFiles, TwoWritersLoseNoLine) {
    practice::ScopedWorld world;
    const platform::OwnedAppendFile one = platform::OpenForAppending(u"C:\\a.log");
    const platform::OwnedAppendFile two = platform::OpenForAppending(u"C:\\A.LOG");
    platform::Append(one, "first\n");
    platform::Append(two, "second\n");
    platform::Append(one, "third\n");
    EXPECT_EQ(world.files.Find(u"C:\\a.log")->content, "first\nsecond\nthird\n");
}

TEST(PracticeFiles, OpeningFailsForFoldersReadOnlyFilesAndMissingOrClosedFolders) {
    practice::ScopedWorld world;
    world.files.CreateFile(u"C:\\fixed.log").attributes = 1;
    world.files.CreateFolder(u"C:\\Closed").refuses_writing = true;
    EXPECT_EQ(OpeningError(u"C:\\Windows"), 70);
    EXPECT_EQ(OpeningError(u"C:\\fixed.log"), 70);
    EXPECT_EQ(OpeningError(u"C:\\Closed\\a.log"), 70);
    EXPECT_EQ(OpeningError(u"C:\\Nowhere\\a.log"), 76);
    EXPECT_EQ(world.OutstandingHandles(), 0U);
}

TEST(PracticeFiles, FileThatBecomesReadOnlyTakesNoMore) {
    practice::ScopedWorld world;
    const platform::OwnedAppendFile log = platform::OpenForAppending(u"C:\\a.log");
    world.files.Find(u"C:\\a.log")->refuses_writing = true;
    EXPECT_EQ(ErrorOf([&] { platform::Append(log, "x"); }), 70);
}

} // namespace
} // namespace kestrelmoor

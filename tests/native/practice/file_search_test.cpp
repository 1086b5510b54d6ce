#include "platform/files.h"
#include "platform/practice/world/world.h"
#include "platform/user_language.h"
#include "runtime/text.h"

#include <gtest/gtest.h>

namespace kestrelmoor {

namespace {

class PracticeFileSearch : public testing::Test {
  protected:
    PracticeFileSearch() {
        world.files.CreateFile(u"C:\\Work\\b.loc");
        world.files.CreateFile(u"C:\\Work\\A.LOC");
        world.files.CreateFile(u"C:\\Work\\a.log");
        world.files.CreateFile(u"C:\\Work\\deeper\\d.loc");
        world.files.CreateFile(u"C:\\e.loc");
        world.files.CreateFolder(u"C:\\Work\\c.loc");
        practice::Library library;
        library.path = u"C:\\Work\\aa.loc";
        world.libraries.Put(library);
    }

    static StringList NamesFoundBy(const String& pattern) {
        StringList names;
        platform::FoundFile found;
        const platform::OwnedFileSearch search = platform::FindFirstFileW(pattern, found);
        for (bool more = static_cast<bool>(search); more; more = platform::FindNextFileW(search, found))
            names.push_back(found.name);
        return names;
    }

    practice::ScopedWorld world;
};

TEST_F(PracticeFileSearch, FindsFilesFoldersAndLibrariesOfTheCurrentDirectoryByName) {
    world.files.current_directory = u"C:\\Work";
    EXPECT_EQ(NamesFoundBy(u"*.loc"), (StringList{u"A.LOC", u"aa.loc", u"b.loc", u"c.loc"}));
    EXPECT_EQ(world.OutstandingHandles(), 0U);
    EXPECT_EQ(world.handles.WrongReleases(), 0U);
}

TEST_F(PracticeFileSearch, TakesAnotherFolderFromThePattern) {
    EXPECT_EQ(NamesFoundBy(u"C:\\Work\\deeper\\*.loc"), StringList{u"d.loc"});
    EXPECT_EQ(NamesFoundBy(u"C:\\*.loc"), StringList{u"e.loc"});
    EXPECT_EQ(NamesFoundBy(u"C:\\Work\\a*o*"), (StringList{u"A.LOC", u"a.log", u"aa.loc"}));
}

TEST_F(PracticeFileSearch, WithoutAMatchThereIsNoSearch) {
    platform::FoundFile found;
    EXPECT_FALSE(platform::FindFirstFileW(u"C:\\Work\\*.txt", found));
    EXPECT_FALSE(platform::FindFirstFileW(u"C:\\Nowhere\\*.loc", found));
}

TEST_F(PracticeFileSearch, TellsAFolderFromAFile) {
    platform::FoundFile found;
    EXPECT_TRUE(platform::FindFirstFileW(u"C:\\Work\\c.loc", found));
    EXPECT_EQ(found.attributes, 16U);
    EXPECT_TRUE(platform::FindFirstFileW(u"C:\\Work\\b.loc", found));
    EXPECT_EQ(found.attributes, 32U);
}

TEST(PracticeLocales, ALanguagesNameIsGivenWithItsNulToABufferThatHoldsIt) {
    const practice::ScopedWorld world;
    EXPECT_EQ(platform::GetLocaleInfoW(1031, platform::kLanguageName, {}), 17);
    String name(17, u'?');
    EXPECT_EQ(platform::GetLocaleInfoW(1031, platform::kLanguageName, name), 17);
    EXPECT_EQ(name, String(u"German (Germany)") + u'\0');
    String small(16, u'?');
    EXPECT_EQ(platform::GetLocaleInfoW(1031, platform::kLanguageName, small), 0);
}

TEST(PracticeLocales, ALanguageThatTheSystemHasNoNameForGivesNothing) {
    const practice::ScopedWorld world;
    EXPECT_EQ(platform::GetLocaleInfoW(1049, platform::kLanguageName, {}), 0);
    EXPECT_EQ(platform::GetLocaleInfoW(1031, 1, {}), 0) << "another kind of text";
}

} // namespace

} // namespace kestrelmoor

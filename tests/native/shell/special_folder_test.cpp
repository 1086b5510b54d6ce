#include "shell/special_folder.h"

#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

class SpecialFolder : public ProgramTest {};

TEST_F(SpecialFolder, ThePathOfAFolderIsReadAndItsListGivenBack) {
    EXPECT_EQ(GetSpecialFolder(5), u"C:\\Users\\user\\Documents");
    EXPECT_EQ(Names(),
              (Lines{"SHGetSpecialFolderLocation", "SHGetPathFromIDListW", "SHGetMalloc", "IMalloc::Free"}));
    EXPECT_EQ(CallsOf({"SHGetSpecialFolderLocation"}), Lines{R"(SHGetSpecialFolderLocation("5"))"});
}

TEST_F(SpecialFolder, AFolderWithoutAPathIsEmptyAndItsListGivenBack) {
    world.machine.special_folders[5] = u"";
    EXPECT_EQ(GetSpecialFolder(5), u"");
    EXPECT_EQ(world.calls.Count("IMalloc::Free"), 1U);
}

TEST_F(SpecialFolder, APathThatCannotBeReadIsEmptyAndItsListGivenBack) {
    world.Fail("SHGetPathFromIDListW", 1);
    EXPECT_EQ(GetSpecialFolder(5), u"");
    EXPECT_EQ(world.calls.Count("IMalloc::Free"), 1U);
}

TEST_F(SpecialFolder, AFailureOfTheShellIsRaised) {
    world.Fail("SHGetSpecialFolderLocation", 0x80004005);
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedNumber([] { GetSpecialFolder(5); })), 0x80004005U);
    world.Fail("SHGetSpecialFolderLocation", 0x80070005);
    EXPECT_EQ(RaisedNumber([] { GetSpecialFolder(5); }), 70);
    EXPECT_EQ(world.calls.Count("IMalloc::Free"), 0U);
}

TEST_F(SpecialFolder, ASuccessWithoutAListIsEmpty) {
    world.Fail("SHGetSpecialFolderLocation", 1);
    EXPECT_EQ(GetSpecialFolder(5), u"");
    EXPECT_EQ(Names(), Lines{"SHGetSpecialFolderLocation"});
}

} // namespace

} // namespace kestrelmoor::tests

#include "tests/native/forms/browse_network.h"

namespace kestrelmoor::tests {

namespace {

using practice::ItemPath;
using practice::NameForm;
using practice::ShellItemKind;

constexpr std::uint32_t kWrongArgument = 0x80070057;

class BrowseItems : public BrowseNetwork {
  protected:
    BrowseItems() { Begin(); }

    std::uint32_t TypeOf(const ItemPath& path) {
        return GetNetworkItemType(kBrowseOwner, world.shell.ListOf(path).data());
    }
    std::string NameOf(const ItemPath& path) {
        return ToUtf8(GetItemDisplayName(world.shell.ListOf(path).data()));
    }
};

} // namespace

TEST_F(BrowseItems, TheKindIsWhatTheRecordSays) {
    EXPECT_EQ(TypeOf({kGroup}), 1U);
    EXPECT_EQ(TypeOf({kArchive}), 2U);
    EXPECT_EQ(TypeOf({kArchive, 0}), 3U);
    EXPECT_EQ(TypeOf({kWhole}), 6U);
    EXPECT_EQ(TypeOf({kPrinter}), 0U);
}

TEST_F(BrowseItems, OneRecordMoreThanTheBufferHoldsMakesItTenLarger) {
    const std::pair<std::uint32_t, Lines> buffers[] = {
        {320, {"320"}}, {321, {"320", "640"}}, {640, {"320", "640"}}, {961, {"320", "640", "960", "1280"}}};
    for (const auto& [bytes, sizes] : buffers) {
        At(kGroup).record_bytes = bytes;
        world.calls.Clear();
        EXPECT_EQ(TypeOf({kGroup}), 1U);
        Lines asked;
        for (const practice::Call& call : world.calls.Of("SHGetDataFromIDListW")) {
            EXPECT_EQ(call.arguments.at(0), u"2");
            asked.push_back(ToUtf8(call.arguments.at(1)));
        }
        EXPECT_EQ(asked, sizes) << bytes;
    }
}

TEST_F(BrowseItems, TheBufferHasNoUpperLimit) {
    At(kGroup).record_bytes = 100'000;
    EXPECT_EQ(TypeOf({kGroup}), 1U);
    EXPECT_EQ(world.calls.Count("SHGetDataFromIDListW"), 313U);
}

TEST_F(BrowseItems, AnyOtherFailureGivesWhatStandsInTheZeroedBuffer) {
    for (const std::uint32_t code : {kUnspecified, 0x80070005U, 1U}) {
        world.calls.Clear();
        world.Fail("SHGetDataFromIDListW", code);
        EXPECT_EQ(TypeOf({kArchive}), 0U);
        EXPECT_EQ(world.calls.Count("SHGetDataFromIDListW"), 1U);
        EXPECT_EQ(world.calls.Count("IShellFolder::ParseDisplayName"), 0U);
    }
}

TEST_F(BrowseItems, AnItemThatIsNotDescribedTakesTheKindOfWhatItsNameGives) {
    EXPECT_EQ(TypeOf({kSpare}), 2U);
    EXPECT_EQ(CallsOf({"IShellFolder::ParseDisplayName"}),
              Lines{R"(IShellFolder::ParseDisplayName("77", "\\SPARE"))"});
    EXPECT_EQ(CallsOf({"IShellFolder::CompareIDs"}), Lines(2, "IShellFolder::CompareIDs(\"0\")"))
        << "by their first column, the parents and the items themselves";
    At(kHiddenSpare).kind = ShellItemKind::Domain;
    EXPECT_EQ(TypeOf({kSpare}), 1U);
    At(kHiddenSpare).kind = ShellItemKind::Other;
    EXPECT_EQ(TypeOf({kSpare}), 0U);
}

TEST_F(BrowseItems, AnItemWhoseNameGivesItselfAgainCantBePicked) {
    EXPECT_EQ(TypeOf({kLonely}), 0U);
    EXPECT_EQ(world.calls.Count("IShellFolder::ParseDisplayName"), 1U);
    EXPECT_EQ(world.calls.Count("SHGetDataFromIDListW"), 1U);
}

TEST_F(BrowseItems, AnItemWhoseNameGivesAnotherThatIsNotDescribedEitherCantBePicked) {
    At(kHiddenSpare).undescribed = true;
    EXPECT_EQ(TypeOf({kSpare}), 0U);
    EXPECT_EQ(world.calls.Count("IShellFolder::ParseDisplayName"), 2U);
}

TEST_F(BrowseItems, AnItemDeeperThanTheRootIsNotParsedAgain) {
    EXPECT_EQ(TypeOf({kWhole, 1}), 0U);
    EXPECT_EQ(CallsOf({"IShellFolder::CompareIDs"}), Lines{"IShellFolder::CompareIDs(\"0\")"});
    EXPECT_EQ(world.calls.Count("IShellFolder::ParseDisplayName"), 0U);
}

TEST_F(BrowseItems, TheRootItselfIsNotParsedAgain) {
    world.Fail("SHGetDataFromIDListW", kWrongArgument);
    EXPECT_EQ(TypeOf({}), 0U);
    EXPECT_EQ(world.calls.Count("IShellFolder::ParseDisplayName"), 0U);
}

TEST_F(BrowseItems, AnItemWhoseNameCantBeParsedCantBePicked) {
    world.Fail("IShellFolder::ParseDisplayName", kUnspecified);
    EXPECT_EQ(TypeOf({kSpare}), 0U);
}

TEST_F(BrowseItems, AnItemWithoutANameIsParsedAsTwoBackslashes) {
    world.Fail("IShellFolder::GetDisplayNameOf", kUnspecified);
    EXPECT_EQ(TypeOf({kSpare}), 0U);
    EXPECT_EQ(CallsOf({"IShellFolder::ParseDisplayName"}),
              Lines{R"(IShellFolder::ParseDisplayName("77", "\\"))"});
}

TEST_F(BrowseItems, ListsThatCantBeComparedAreDifferent) {
    world.Fail("IShellFolder::CompareIDs", kUnspecified);
    EXPECT_EQ(TypeOf({kSpare}), 0U);
    EXPECT_EQ(world.calls.Count("IShellFolder::ParseDisplayName"), 0U);
}

TEST_F(BrowseItems, WithoutMemoryForTheParsedListTheItemCantBePicked) {
    // The parents of the item twice, then the joined list.
    world.Fail("IMalloc::Alloc", 1, 3);
    EXPECT_EQ(TypeOf({kSpare}), 0U);
    EXPECT_EQ(world.calls.Count("IShellFolder::ParseDisplayName"), 1U);
}

TEST_F(BrowseItems, ADesktopFolderThatFailsInsideTheSecondTryIsIgnored) {
    // For the folder, for the second try, and for the folder of what the name gave.
    world.Fail("SHGetDesktopFolder", kUnspecified, 3);
    EXPECT_EQ(RaisedNumber([&] { EXPECT_EQ(TypeOf({kSpare}), 0U); }), 0);
    world.Fail("SHGetDesktopFolder", kUnspecified, 2);
    EXPECT_EQ(static_cast<std::uint32_t>(RaisedNumber([&] { TypeOf({kSpare}); })), kUnspecified);
}

TEST_F(BrowseItems, EverySecondTryFreesWhatItMade) {
    const std::size_t before = world.OutstandingHandles();
    for (const char* call : {"", "IShellFolder::ParseDisplayName", "IShellFolder::GetDisplayNameOf",
                             "IShellFolder::CompareIDs", "IShellFolder::BindToObject", "SHGetDesktopFolder"})
        for (int nth = 1; nth <= 3; ++nth) {
            if (*call)
                world.Fail(call, kUnspecified, nth);
            RaisedNumber([&] { TypeOf({kSpare}); });
            RaisedNumber([&] { TypeOf({kSpare}); });
            EXPECT_EQ(world.OutstandingHandles(), before) << call << " " << nth;
        }
}

TEST_F(BrowseItems, ANameIsTheOneWithinItsFolder) {
    EXPECT_EQ(NameOf({kArchive}), "ARCHIVE");
    EXPECT_EQ(NameOf({kArchive, 0}), "Shelf");
    EXPECT_EQ(CallsOf({"IShellFolder::GetDisplayNameOf"}), Lines(2, "IShellFolder::GetDisplayNameOf(\"1\")"));
}

TEST_F(BrowseItems, ANameThatCantBeHadIsEmpty) {
    world.Fail("IShellFolder::GetDisplayNameOf", kUnspecified);
    EXPECT_EQ(NameOf({kArchive}), "");
}

TEST_F(BrowseItems, NamesInBytesAreTakenOverTwoToACharacter) {
    for (const NameForm form : {NameForm::Offset, NameForm::Bytes}) {
        At(kArchive).name_form = form;
        EXPECT_EQ(GetItemDisplayName(world.shell.ListOf({kArchive}).data()), u"\u5241\u4843\u5649\u0045");
    }
}

TEST_F(BrowseItems, TheParentOfWhatStandsOnTheDesktopIsTheDesktop) {
    platform::ItemList item = nullptr;
    const practice::ItemBytes list = world.shell.ListOf({});
    const platform::OwnedShellFolder folder = GetParentFolder(list.data(), item);
    EXPECT_TRUE(folder);
    EXPECT_EQ(item, list.data());
    EXPECT_EQ(world.calls.Count("IShellFolder::BindToObject"), 0U);
}

TEST_F(BrowseItems, TheParentOfADeeperItemIsBoundFromTheDesktop) {
    platform::ItemList item = nullptr;
    const practice::ItemBytes list = world.shell.ListOf({kArchive, 0});
    const platform::OwnedShellFolder folder = GetParentFolder(list.data(), item);
    EXPECT_TRUE(folder);
    EXPECT_EQ(item, list.data() + GetIDListSize(world.shell.ListOf({kArchive}).data()));
    EXPECT_EQ(CallsOf({"SHGetDesktopFolder", "IShellFolder::BindToObject", "IMalloc::Free"}),
              (Lines{"SHGetDesktopFolder()", "IShellFolder::BindToObject()", "IMalloc::Free()"}));
}

TEST_F(BrowseItems, WithoutAListThereIsNoParent) {
    const practice::ItemBytes list = world.shell.ListOf({});
    platform::ItemList item = list.data();
    EXPECT_FALSE(GetParentFolder(nullptr, item));
    EXPECT_EQ(item, nullptr);
    EXPECT_EQ(world.calls.Count("SHGetDesktopFolder"), 0U);
}

TEST_F(BrowseItems, WithoutMemoryThereIsNoParent) {
    platform::ItemList item = nullptr;
    world.Fail("IMalloc::Alloc", 1);
    EXPECT_FALSE(GetParentFolder(world.shell.ListOf({kArchive}).data(), item));
}

TEST_F(BrowseItems, AParentThatCantBeBoundIsNone) {
    platform::ItemList item = nullptr;
    const practice::ItemBytes list = world.shell.ListOf({kArchive});
    world.Fail("IShellFolder::BindToObject", kUnspecified);
    EXPECT_FALSE(GetParentFolder(list.data(), item));
}

} // namespace kestrelmoor::tests

#include "forms/settings/item_lists.h"

#include "platform/practice/shell_memory.h"
#include "tests/native/support/program_test.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

using List = std::vector<std::uint8_t>;

const List kNone = {0, 0};
const List kOne = {3, 0, 'a', 0, 0};
const List kTwo = {3, 0, 'a', 5, 0, 'b', 'c', 'd', 0, 0};
const List kThree = {3, 0, 'a', 5, 0, 'b', 'c', 'd', 2, 0, 0, 0};

class ItemLists : public ProgramTest {
  protected:
    ItemLists() {
        EXPECT_EQ(platform::SHGetMalloc(gShellMalloc), 0);
        world.calls.Clear();
    }
    ~ItemLists() override { gShellMalloc.Reset(); }

    static OwnedIDList Owned(const List& list) { return OwnedIDList(practice::NewShellMemory(list)); }

    /// As many bytes of a list as are expected there.
    static List Bytes(const OwnedIDList& list, std::size_t count) {
        return list ? List(list.Get(), list.Get() + count) : List{};
    }

    static String Text(std::uint32_t type, const List& bytes, std::uint32_t offset = 0) {
        platform::StrRet record;
        record.uType = type;
        record.uOffset = offset;
        std::copy(bytes.begin(), bytes.end(), record.cStr.begin());
        return StrRetToString(record, bytes.data());
    }
};

} // namespace

TEST_F(ItemLists, TheSizeIsThatOfAllItemsWithoutTheTerminator) {
    EXPECT_EQ(GetIDListSize(nullptr), 0U);
    EXPECT_EQ(GetIDListSize(kNone.data()), 0U);
    EXPECT_EQ(GetIDListSize(kOne.data()), 3U);
    EXPECT_EQ(GetIDListSize(kTwo.data()), 8U);
    EXPECT_EQ(GetIDListSize(kThree.data()), 10U);
}

TEST_F(ItemLists, ASizeHas16BitsWithoutASign) {
    List list(0xFEDC + 2, 0);
    list[0] = 0xDC;
    list[1] = 0xFE;
    EXPECT_EQ(GetIDListSize(list.data()), 0xFEDCU);
}

TEST_F(ItemLists, NoListIsSplitIntoNothing) {
    OwnedIDList parent;
    EXPECT_EQ(SplitIDList(nullptr, parent), nullptr);
    EXPECT_FALSE(parent);
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(ItemLists, AListWithoutItemsHasNoLastOneAndTheTerminatorAsItsParent) {
    OwnedIDList parent;
    EXPECT_EQ(SplitIDList(kNone.data(), parent), nullptr);
    EXPECT_EQ(Bytes(parent, 2), kNone);
    EXPECT_EQ(CallsOf({"IMalloc::Alloc"}), Lines{"IMalloc::Alloc(\"2\")"});
}

TEST_F(ItemLists, TheParentIsACopyOfAllItemsButTheLast) {
    OwnedIDList parent;
    EXPECT_EQ(SplitIDList(kOne.data(), parent), kOne.data());
    EXPECT_EQ(Bytes(parent, 2), kNone);
    EXPECT_EQ(SplitIDList(kTwo.data(), parent), kTwo.data() + 3);
    EXPECT_EQ(Bytes(parent, 5), kOne);
    EXPECT_EQ(SplitIDList(kThree.data(), parent), kThree.data() + 8);
    EXPECT_EQ(Bytes(parent, 10), kTwo);
    EXPECT_EQ(CallsOf({"IMalloc::Alloc"}),
              (Lines{"IMalloc::Alloc(\"2\")", "IMalloc::Alloc(\"5\")", "IMalloc::Alloc(\"10\")"}));
}

TEST_F(ItemLists, WhatStoodInTheParentBeforeIsFreed) {
    OwnedIDList parent = Owned(kTwo);
    SplitIDList(kOne.data(), parent);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::ShellMemory), 1U);
    SplitIDList(nullptr, parent);
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::ShellMemory), 0U);
}

TEST_F(ItemLists, TwoListsAreJoinedIntoANewOne) {
    OwnedIDList first = Owned(kOne);
    const List second = {5, 0, 'b', 'c', 'd', 0, 0};
    const OwnedIDList joined = JoinIDLists(first, second.data());
    EXPECT_EQ(Bytes(joined, 10), kTwo);
    EXPECT_EQ(Bytes(first, 5), kOne);
    EXPECT_EQ(CallsOf({"IMalloc::Alloc"}), Lines{"IMalloc::Alloc(\"10\")"});
}

TEST_F(ItemLists, ListsWithoutItemsAreJoinedLikeAnyOther) {
    OwnedIDList first = Owned(kNone);
    EXPECT_EQ(Bytes(JoinIDLists(first, kTwo.data()), 10), kTwo);
    OwnedIDList two = Owned(kTwo);
    EXPECT_EQ(Bytes(JoinIDLists(two, kNone.data()), 10), kTwo);
    EXPECT_EQ(Bytes(JoinIDLists(first, kNone.data()), 2), kNone);
}

TEST_F(ItemLists, WithoutAFirstListThereIsNothing) {
    OwnedIDList first;
    EXPECT_FALSE(JoinIDLists(first, kTwo.data()));
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(ItemLists, WithoutASecondListItIsTheFirstItself) {
    OwnedIDList first = Owned(kTwo);
    const std::uint8_t* const memory = first.Get();
    const OwnedIDList joined = JoinIDLists(first, nullptr);
    EXPECT_EQ(joined.Get(), memory);
    EXPECT_FALSE(first);
    EXPECT_EQ(Names(), Lines{});
}

TEST_F(ItemLists, WithoutMemoryNothingIsCopied) {
    OwnedIDList parent;
    world.Fail("IMalloc::Alloc", 1);
    EXPECT_EQ(SplitIDList(kTwo.data(), parent), kTwo.data() + 3);
    EXPECT_FALSE(parent);
    OwnedIDList first = Owned(kOne);
    world.Fail("IMalloc::Alloc", 1);
    EXPECT_FALSE(JoinIDLists(first, kTwo.data()));
}

TEST_F(ItemLists, SplittingAndJoiningGivesTheListAgain) {
    for (const List& list : {kOne, kTwo, kThree}) {
        OwnedIDList parent;
        const platform::ItemList last = SplitIDList(list.data(), parent);
        EXPECT_EQ(Bytes(JoinIDLists(parent, last), list.size()), list);
    }
}

TEST_F(ItemLists, AWideTextIsCopiedAndItsMemoryFreed) {
    const char16_t text[] = u"ARCHIVE";
    platform::StrRet record;
    record.uType = 0;
    record.pOleStr = reinterpret_cast<char16_t*>(
        practice::NewShellMemory({reinterpret_cast<const std::uint8_t*>(text), sizeof text}));
    EXPECT_EQ(StrRetToString(record, nullptr), u"ARCHIVE");
    EXPECT_EQ(Names(), Lines{"IMalloc::Free"});
    EXPECT_EQ(world.handles.Outstanding(practice::HandleKind::ShellMemory), 0U);
}

TEST_F(ItemLists, BytesInTheRecordAreTakenOverTwoToACharacter) {
    EXPECT_EQ(Text(2, {'A', 'B', 'C', 'D', 0, 'x'}), u"\u4241\u4443");
    EXPECT_EQ(Text(2, {'A', 'B', 'C', 0, 'x'}), u"\u4241\u0043");
    EXPECT_EQ(Text(2, {'A', 0}), u"A");
    EXPECT_EQ(Text(2, {0, 'A'}), u"");
    EXPECT_EQ(Text(2, {0xE4, 0xFF, 0}), u"\uFFE4");
}

TEST_F(ItemLists, BytesWithinTheItemBeginAtTheirOffset) {
    const List item = {9, 0, 'x', 'x', 'A', 'B', 'C', 'D', 0, 0, 0};
    EXPECT_EQ(Text(1, item, 4), u"\u4241\u4443");
    EXPECT_EQ(Text(1, item, 5), u"\u4342\u0044");
    EXPECT_EQ(Text(1, item, 8), u"");
}

TEST_F(ItemLists, TextsInBytesEndWithTheItemOrTheRecordThatHoldsThem) {
    const List item = {6, 0, 'A', 'B', 'C', 'D', 'E', 'F', 0, 0};
    EXPECT_EQ(Text(1, item, 2), u"\u4241\u4443");
    EXPECT_EQ(Text(1, item, 6), u"");
    EXPECT_EQ(Text(1, item, 7), u"");
    EXPECT_EQ(Text(1, item, 0x7FFFFFFF), u"");
    EXPECT_EQ(Text(2, List(260, 'A')), String(130, u'\u4141'));
}

TEST_F(ItemLists, WithoutAnItemThereAreNoBytesInIt) {
    platform::StrRet record;
    record.uType = 1;
    for (const std::uint32_t offset : {0U, 4U}) {
        record.uOffset = offset;
        EXPECT_EQ(StrRetToString(record, nullptr), u"") << offset;
    }
}

TEST_F(ItemLists, ARecordOfAnyOtherKindIsEmpty) {
    for (const std::uint32_t type : {3U, 4U, 0x80000000U, 0xFFFFFFFFU})
        EXPECT_EQ(Text(type, {'A', 'B', 0}), u"") << type;
    EXPECT_EQ(Names(), Lines{});
}

} // namespace kestrelmoor::tests

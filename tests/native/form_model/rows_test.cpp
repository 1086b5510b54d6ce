#include "tests/native/support/probe_form.h"
#include "tests/native/support/raised.h"
#include "tests/native/support/recording_desktop.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

class Rows : public testing::Test {
  protected:
    static StringList All(const RowControl& list) {
        StringList rows;
        for (int row = 0; row < list.ListCount(); ++row)
            rows.push_back(list.List(row));
        return rows;
    }

    void CountClicks(RowControl& list) {
        list.Click = [this] { ++clicks; };
    }

    RecordingDesktop desktop;
    std::shared_ptr<ProbeForm> form = MakeProbe();
    ListBox& sorted = form->lstRows;
    ListBox& marks = form->lstMarks;
    int clicks = 0;
};

TEST_F(Rows, AnUnsortedListKeepsTheOrderOfComing) {
    for (const char16_t* const text : {u"b", u"c", u"a"})
        marks.AddItem(text);
    EXPECT_EQ(All(marks), (StringList{u"b", u"c", u"a"}));
}

TEST_F(Rows, ASortedListStandsInTheOrderOfTheDesktop) {
    desktop.order = [](StringView a, StringView b) { return b.compare(a); };
    for (const char16_t* const text : {u"b", u"c", u"a", u"d"})
        sorted.AddItem(text);
    EXPECT_EQ(All(sorted), (StringList{u"d", u"c", u"b", u"a"}));
}

TEST_F(Rows, EqualRowsStandInTheOrderOfComing) {
    desktop.order = [](StringView a, StringView b) { return LowerAscii(a).compare(LowerAscii(b)); };
    for (const char16_t* const text : {u"ab", u"b", u"Ab", u"a", u"aB"})
        sorted.AddItem(text);
    EXPECT_EQ(All(sorted), (StringList{u"a", u"ab", u"Ab", u"aB", u"b"}));
}

TEST_F(Rows, WithoutADesktopCaseIsIgnored) {
    Application::Current().SetDesktop(nullptr);
    for (const char16_t* const text : {u"b", u"C", u" z", u"A"})
        sorted.AddItem(text);
    EXPECT_EQ(All(sorted), (StringList{u" z", u"A", u"b", u"C"}));
}

TEST_F(Rows, AGivenPlaceGoesAheadOfTheOrder) {
    sorted.AddItem(u"a");
    sorted.AddItem(u"z", 0);
    EXPECT_EQ(All(sorted), (StringList{u"z", u"a"}));
    EXPECT_EQ(RaisedNumber([this] { sorted.AddItem(u"x", 3); }), 5);
    EXPECT_EQ(RaisedNumber([this] { sorted.AddItem(u"x", -2); }), 5);
    EXPECT_EQ(sorted.ListCount(), 2);
}

TEST_F(Rows, WithTabStopsASortedListGoesByWhatStandsAheadOfTheFirstTab) {
    desktop.order = [](StringView a, StringView b) { return a.compare(b); };
    sorted.AddItem(u"b\t2");
    sorted.AddItem(u"b\t1");
    EXPECT_EQ(All(sorted), (StringList{u"b\t1", u"b\t2"}));
    sorted.SetTabStops({89});
    sorted.AddItem(u"b\t0\t3");
    sorted.AddItem(u"b\x01");
    sorted.AddItem(u"a");
    EXPECT_EQ(All(sorted), (StringList{u"a", u"b\t1", u"b\t2", u"b\t0\t3", u"b\x01"}));
}

TEST_F(Rows, ATextReplacedStaysInItsPlaceEvenInASortedList) {
    sorted.AddItem(u"a");
    sorted.AddItem(u"b");
    sorted.SetItemData(0, 8);
    sorted.SetList(0, u"z");
    EXPECT_EQ(All(sorted), (StringList{u"z", u"b"}));
    EXPECT_EQ(sorted.ItemData(0), 8);
}

TEST_F(Rows, NewIndexIsThePlaceOfTheLastRow) {
    EXPECT_EQ(sorted.NewIndex(), -1);
    sorted.AddItem(u"b");
    sorted.AddItem(u"a");
    EXPECT_EQ(sorted.NewIndex(), 0);
    sorted.AddItem(u"c");
    EXPECT_EQ(sorted.NewIndex(), 2);
    sorted.RemoveItem(0);
    EXPECT_EQ(sorted.NewIndex(), -1);
}

TEST_F(Rows, TheCurrentRowStaysCurrentWhenRowsComeAndGoAboveIt) {
    sorted.AddItem(u"m");
    sorted.SetListIndex(0);
    CountClicks(sorted);
    sorted.AddItem(u"a");
    EXPECT_EQ(sorted.ListIndex(), 1);
    sorted.AddItem(u"z");
    EXPECT_EQ(sorted.ListIndex(), 1);
    sorted.RemoveItem(2);
    EXPECT_EQ(sorted.ListIndex(), 1);
    sorted.RemoveItem(0);
    EXPECT_EQ(sorted.ListIndex(), 0);
    EXPECT_EQ(clicks, 0);
}

TEST_F(Rows, RemovingTheCurrentRowLeavesNoneWithoutAClick) {
    sorted.AddItem(u"a");
    sorted.AddItem(u"b");
    sorted.SetListIndex(0);
    CountClicks(sorted);
    sorted.RemoveItem(0);
    EXPECT_EQ(sorted.ListIndex(), -1);
    EXPECT_EQ(clicks, 0);
}

TEST_F(Rows, ARowThatComesAfterARemovalIsANewOne) {
    for (const char16_t* const text : {u"a", u"b", u"c"})
        marks.AddItem(text);
    marks.SetItemData(1, 7);
    marks.SetSelected(1, true);
    marks.RemoveItem(1);
    marks.AddItem(u"d");
    marks.AddItem(u"e", 0);
    EXPECT_EQ(All(marks), (StringList{u"e", u"a", u"c", u"d"}));
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(marks.ItemData(row), 0) << row;
        EXPECT_FALSE(marks.Selected(row)) << row;
    }
}

TEST_F(Rows, ClearingLeavesNothing) {
    sorted.AddItem(u"a");
    sorted.SetListIndex(0);
    CountClicks(sorted);
    sorted.Clear();
    EXPECT_EQ(sorted.ListCount(), 0);
    EXPECT_EQ(sorted.ListIndex(), -1);
    EXPECT_EQ(sorted.NewIndex(), -1);
    EXPECT_EQ(clicks, 0);
}

TEST_F(Rows, AClearedListTakesRowsAsANewOneDoes) {
    for (const char16_t* const text : {u"a", u"b", u"c"})
        marks.AddItem(text);
    marks.RemoveItem(1);
    marks.Scrolled(1);
    marks.Clear();
    EXPECT_EQ(marks.TopIndex(), 0);
    for (const char16_t* const text : {u"d", u"e", u"f"})
        marks.AddItem(text);
    EXPECT_EQ(All(marks), (StringList{u"d", u"e", u"f"}));
}

TEST_F(Rows, ThePlaceBehindTheLastRowIsOne) {
    sorted.AddItem(u"b");
    sorted.AddItem(u"a", 1);
    EXPECT_EQ(All(sorted), (StringList{u"b", u"a"}));
}

TEST_F(Rows, NumberAndMarkTravelWithTheirRow) {
    marks.AddItem(u"a");
    marks.SetItemData(0, 1033);
    marks.SetSelected(0, true);
    marks.AddItem(u"b", 0);
    EXPECT_EQ(marks.ItemData(0), 0);
    EXPECT_FALSE(marks.Selected(0));
    EXPECT_EQ(marks.ItemData(1), 1033);
    EXPECT_TRUE(marks.Selected(1));
}

TEST_F(Rows, AMarkThatChangesRaisesItemCheck) {
    marks.AddItem(u"a");
    marks.AddItem(u"b");
    std::vector<int> checked;
    marks.ItemCheck = [&checked](int row) { checked.push_back(row); };
    marks.SetSelected(1, true);
    marks.SetSelected(1, true);
    marks.RowToggled(0);
    marks.RowToggled(1);
    marks.RowToggled(2);
    marks.RowToggled(-1);
    EXPECT_EQ(checked, (std::vector<int>{1, 0, 1}));
    EXPECT_TRUE(marks.Selected(0));
    EXPECT_FALSE(marks.Selected(1));
}

TEST_F(Rows, RowsThatAreNotThereRaise) {
    sorted.AddItem(u"a");
    for (const int row : {-1, 1}) {
        EXPECT_EQ(RaisedNumber([&] { sorted.List(row); }), 381);
        EXPECT_EQ(RaisedNumber([&] { sorted.SetList(row, u"x"); }), 381);
        EXPECT_EQ(RaisedNumber([&] { sorted.ItemData(row); }), 381);
        EXPECT_EQ(RaisedNumber([&] { sorted.SetItemData(row, 1); }), 381);
        EXPECT_EQ(RaisedNumber([&] { sorted.SetSelected(row, true); }), 381);
        EXPECT_EQ(RaisedNumber([&] { sorted.RemoveItem(row); }), 5);
    }
    EXPECT_EQ(RaisedNumber([&] { sorted.SetListIndex(1); }), 380);
    EXPECT_EQ(RaisedNumber([&] { sorted.SetListIndex(-2); }), 380);
    EXPECT_EQ(sorted.ListIndex(), -1);
}

TEST_F(Rows, AnEmptyListHasNoRowToMakeCurrent) {
    sorted.SetListIndex(0);
    EXPECT_EQ(sorted.ListIndex(), -1);
    EXPECT_EQ(RaisedNumber([&] { sorted.SetListIndex(-2); }), 380);
}

TEST_F(Rows, AnIndexThatChangesRaisesClickAlsoToNone) {
    sorted.AddItem(u"a");
    CountClicks(sorted);
    sorted.SetListIndex(-1);
    EXPECT_EQ(clicks, 0);
    sorted.SetListIndex(0);
    sorted.SetListIndex(0);
    EXPECT_EQ(clicks, 1);
    sorted.SetListIndex(-1);
    EXPECT_EQ(clicks, 2);
}

TEST_F(Rows, TheUsersChoiceRaisesClickEachTime) {
    sorted.AddItem(u"a");
    CountClicks(sorted);
    sorted.RowChosen(0);
    sorted.RowChosen(0);
    EXPECT_EQ(clicks, 2);
    sorted.RowChosen(1);
    sorted.SetEnabled(false);
    sorted.RowChosen(0);
    EXPECT_EQ(clicks, 2);
}

TEST_F(Rows, APressMakesARowCurrentWithoutAClick) {
    sorted.AddItem(u"a");
    CountClicks(sorted);
    sorted.RowPressed(0);
    sorted.RowPressed(1);
    EXPECT_EQ(sorted.ListIndex(), 0);
    EXPECT_EQ(clicks, 0);
}

TEST_F(Rows, ScrollIsRaisedWhenTheTopRowIsAnother) {
    std::vector<int> tops;
    sorted.Scroll = [&] { tops.push_back(sorted.TopIndex()); };
    sorted.Scrolled(0);
    sorted.Scrolled(3);
    sorted.Scrolled(3);
    sorted.Scrolled(0);
    EXPECT_EQ(tops, (std::vector<int>{3, 0}));
}

TEST_F(Rows, TwoThousandRowsNeedTwelveComparisonsEachAtMost) {
    constexpr int kRows = 2'000;
    for (int count = 0; count < kRows; ++count) {
        const int shuffled = count * 7'919 % kRows;
        sorted.AddItem(String(1, static_cast<char16_t>(0x4E00 + shuffled)));
    }
    EXPECT_EQ(sorted.List(0), u"\u4E00");
    EXPECT_EQ(sorted.List(kRows - 1), String(1, static_cast<char16_t>(0x4E00 + kRows - 1)));
    EXPECT_LT(desktop.comparisons, kRows * 12);
}

TEST_F(Rows, ADropDownListHoldsRowsTheSameWay) {
    form->cboRows.AddItem(u"English");
    form->cboRows.SetItemData(form->cboRows.NewIndex(), 1033);
    CountClicks(form->cboRows);
    form->cboRows.SetListIndex(0);
    EXPECT_EQ(form->cboRows.ItemData(form->cboRows.ListIndex()), 1033);
    EXPECT_EQ(clicks, 1);
}

} // namespace

} // namespace kestrelmoor::tests

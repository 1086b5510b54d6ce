#include "platform/collation.h"

#include "platform/windows/wide_text.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <windows.h>

namespace kestrelmoor::platform {
namespace {

const StringList kOrdered = {u" This", u"\\A",   u"_u",  u"9",  u"\u00E4z",
                             u"coop",  u"co-op", u"Cop", u"'q", u"-x"};

TEST(Collation, rowsStandInTheOrderOfTheSamples) {
    StringList rows(kOrdered.rbegin(), kOrdered.rend());
    std::sort(rows.begin(), rows.end(),
              [](const String& a, const String& b) { return CompareRows(a, b) < 0; });
    EXPECT_EQ(rows, kOrdered);
}

TEST(Collation, theSystemsOwnSortedListGivesTheSameOrder) {
    const HWND list = ::CreateWindowExW(0, L"LISTBOX", L"", WS_POPUP | LBS_SORT | LBS_HASSTRINGS, 0, 0, 100,
                                        100, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(list, nullptr);
    for (auto row = kOrdered.rbegin(); row != kOrdered.rend(); ++row)
        ::SendMessageW(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(*row)));
    StringList rows;
    for (WPARAM i = 0; i < kOrdered.size(); ++i) {
        wchar_t text[40] = {};
        ::SendMessageW(list, LB_GETTEXT, i, reinterpret_cast<LPARAM>(text));
        rows.push_back(FromWide(text));
    }
    ::DestroyWindow(list);
    EXPECT_EQ(rows, kOrdered);
}

TEST(Collation, caseDoesNotCount) {
    EXPECT_EQ(CompareText(u"\\\\Archive", u"\\\\ARCHIVE"), 0);
    EXPECT_EQ(CompareText(u"\u00C4", u"\u00E4"), 0);
    EXPECT_EQ(CompareRows(u"practice", u"PRACTICE"), 0);
}

TEST(Collation, ordersBothWays) {
    EXPECT_LT(CompareText(u"a", u"b"), 0);
    EXPECT_GT(CompareText(u"b", u"A"), 0);
    EXPECT_NE(CompareText(u"coop", u"co-op"), 0);
}

TEST(Collation, anEmptyTextIsTheSameAsAnotherAndComesFirst) {
    EXPECT_EQ(CompareText({}, u""), 0);
    EXPECT_LT(CompareText({}, u"a"), 0);
    EXPECT_GT(CompareText(u"a", {}), 0);
}

TEST(Collation, comparesNoFurtherThanTheTextGoes) {
    EXPECT_EQ(CompareText(StringView(u"abcdef").substr(0, 3), u"abc"), 0);
    EXPECT_EQ(CompareRows(StringView(u"abcdef").substr(0, 3), u"abc"), 0);
}

} // namespace
} // namespace kestrelmoor::platform

#include "platform/collation.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace kestrelmoor {
namespace {

using platform::CompareRows;

/// As the platform's own sorted list shows them.
const StringList kSeen = {u" This", u"\\A", u"_u", u"9", u"coop", u"co-op", u"'q", u"-x"};

TEST(PracticeRowOrder, SampleRowsStandAsTheyWereSeen) {
    StringList rows(kSeen.rbegin(), kSeen.rend());
    std::sort(rows.begin(), rows.end(),
              [](const String& a, const String& b) { return CompareRows(a, b) < 0; });
    EXPECT_EQ(rows, kSeen);
}

TEST(PracticeRowOrder, CaseDoesNotCount) {
    EXPECT_EQ(platform::CompareText(u"Practice", u"PRACTICE"), 0);
    EXPECT_EQ(platform::CompareText(u"\u00C4pfel", u"\u00E4PFEL"), 0);
}

TEST(PracticeRowOrder, HyphenAndApostropheDecideOnlyBetweenTextsThatAreElseTheSame) {
    EXPECT_LT(CompareRows(u"coop", u"co-op"), 0);
    EXPECT_LT(CompareRows(u"co-op", u"coox"), 0);
    EXPECT_GT(CompareRows(u"co-op", u"coon"), 0);
    EXPECT_LT(CompareRows(u"it's", u"it-s"), 0);
    EXPECT_LT(CompareRows(u"coo-p", u"co-op"), 0);
    EXPECT_LT(CompareRows(u"co-", u"-co"), 0);
    EXPECT_NE(platform::CompareText(u"its", u"it's"), 0);
}

TEST(PracticeRowOrder, PunctuationGoesAheadOfSymbolsDigitsAndLetters) {
    EXPECT_LT(CompareRows(u"#", u"$"), 0);
    EXPECT_LT(CompareRows(u"$", u"%"), 0);
    EXPECT_LT(CompareRows(u"~", u"+"), 0);
    EXPECT_LT(CompareRows(u"+", u"0"), 0);
    EXPECT_LT(CompareRows(u"9", u"a"), 0);
}

TEST(PracticeRowOrder, AccentGoesBehindThePlainLetterButAheadOfTheNextOne) {
    EXPECT_LT(CompareRows(u"a", u"\u00E4"), 0);
    EXPECT_LT(CompareRows(u"\u00E4", u"b"), 0);
    EXPECT_LT(CompareRows(u"\u00E4a", u"ab"), 0);
    EXPECT_LT(CompareRows(u"\u00E1", u"\u00E0"), 0);
}

TEST(PracticeRowOrder, LetterOfTwoIsTheSameAsTheTwo) {
    EXPECT_EQ(platform::CompareText(u"stra\u00DFe", u"STRASSE"), 0);
    EXPECT_EQ(platform::CompareText(u"\u00C6", u"ae"), 0);
}

TEST(PracticeRowOrder, ShorterTextGoesFirst) {
    EXPECT_LT(CompareRows(u"", u" "), 0);
    EXPECT_LT(CompareRows(u"SERVER", u"server2"), 0);
}

} // namespace
} // namespace kestrelmoor

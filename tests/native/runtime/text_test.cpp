#include "runtime/text.h"

#include <gtest/gtest.h>

namespace kestrelmoor::tests {

namespace {

using namespace std::string_literals;

TEST(Text, GoesToUtf8AndBackInOneToFourBytes) {
    EXPECT_EQ(ToUtf8(u"A\u00E4\u20AC\U0001F511"), "A\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\x91");
    EXPECT_EQ(FromUtf8("A\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\x91"), u"A\u00E4\u20AC\U0001F511");
    EXPECT_EQ(ToUtf8(u"a\0b"s), "a\0b"s);
    EXPECT_EQ(FromUtf8("a\0b"s), u"a\0b"s);
}

TEST(Text, TheLastNumbersOfEachLengthGoToUtf8) {
    EXPECT_EQ(ToUtf8(u"\x7F"), "\x7F");
    EXPECT_EQ(ToUtf8(u"\u0080"), "\xC2\x80");
    EXPECT_EQ(ToUtf8(u"\u07FF"), "\xDF\xBF");
    EXPECT_EQ(ToUtf8(u"\u0800"), "\xE0\xA0\x80");
    EXPECT_EQ(ToUtf8(u"\uFFFF"), "\xEF\xBF\xBF");
    EXPECT_EQ(ToUtf8(u"\U00010000"), "\xF0\x90\x80\x80");
    EXPECT_EQ(ToUtf8(u"\U0010FFFF"), "\xF4\x8F\xBF\xBF");
}

TEST(Text, AnUnpairedSurrogateIsReplacedInUtf8) {
    const String high(1, char16_t{0xD83D});
    const String low(1, char16_t{0xDD11});
    EXPECT_EQ(ToUtf8(high), "\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(low), "\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(high + u"a"), "\xEF\xBF\xBD"
                                   "a");
    EXPECT_EQ(ToUtf8(low + high), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Text, EachByteThatBeginsNoWellFormedSequenceIsReplaced) {
    EXPECT_EQ(FromUtf8("a\xFF"
                       "b"),
              u"a\uFFFDb");
    EXPECT_EQ(FromUtf8("\x80"), u"\uFFFD");
    EXPECT_EQ(FromUtf8("\xC0\x80"), u"\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xE0\x80\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xE2\x82"), u"\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xE2\x82"
                       "a"),
              u"\uFFFD\uFFFDa");
}

TEST(Text, TrimmingTakesBlanksAndNoOtherSpace) {
    EXPECT_EQ(TrimBlanks(u"  a b  "), u"a b");
    EXPECT_EQ(TrimBlanks(u" \ta\n "), u"\ta\n");
    EXPECT_EQ(TrimBlanks(u"   "), u"");
    EXPECT_EQ(TrimBlanks(u""), u"");
}

TEST(Text, MakingSmallChangesAToZAlone) {
    EXPECT_EQ(LowerAscii(u"/LAZ@[\u00C4"), u"/laz@[\u00C4");
}

TEST(Text, TheTextUpToTheFirstNul) {
    EXPECT_EQ(TrimAtNul(u"ab\0cd\0"s), u"ab");
    EXPECT_EQ(TrimAtNul(u"\0ab"s), u"");
    EXPECT_EQ(TrimAtNul(u"ab"), u"ab");
}

TEST(Text, ABackslashIsAddedUnlessThereIsOne) {
    EXPECT_EQ(AddBackslash(u"C:\\folder"), u"C:\\folder\\");
    EXPECT_EQ(AddBackslash(u"C:\\"), u"C:\\");
    EXPECT_EQ(AddBackslash(u""), u"\\");
    EXPECT_EQ(AddBackslash(u"C:/"), u"C:/\\");
}

TEST(Text, SplittingGivesOnePieceMoreThanSeparators) {
    EXPECT_EQ(Split(u"a,b", u','), (StringList{u"a", u"b"}));
    EXPECT_EQ(Split(u",a,", u','), (StringList{u"", u"a", u""}));
    EXPECT_EQ(Split(u"", u','), (StringList{u""}));
    EXPECT_EQ(Split(u"a\0b"s, u'\0'), (StringList{u"a", u"b"}));
}

TEST(Text, JoiningPutsTheSeparatorBetween) {
    EXPECT_EQ(Join({u"a", u"", u"b"}, u'\0'), u"a\0\0b"s);
    EXPECT_EQ(Join({u"a"}, u','), u"a");
    EXPECT_EQ(Join({}, u','), u"");
}

TEST(Text, QuotingLeavesTheTextAsItStands) {
    EXPECT_EQ(Quoted(u"a\"b"), u"\"a\"b\"");
    EXPECT_EQ(Quoted(u""), u"\"\"");
}

} // namespace

} // namespace kestrelmoor::tests

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

TEST(Text, TheFirstAndLastNumbersOfEachLengthComeFromUtf8) {
    EXPECT_EQ(FromUtf8("\x7F"), u"\x7F");
    EXPECT_EQ(FromUtf8("\xC2\x80"), u"\u0080");
    EXPECT_EQ(FromUtf8("\xDF\xBF"), u"\u07FF");
    EXPECT_EQ(FromUtf8("\xE0\xA0\x80"), u"\u0800");
    EXPECT_EQ(FromUtf8("\xED\x9F\xBF"), u"\uD7FF");
    EXPECT_EQ(FromUtf8("\xEE\x80\x80"), u"\uE000");
    EXPECT_EQ(FromUtf8("\xEF\xBF\xBF"), u"\uFFFF");
    EXPECT_EQ(FromUtf8("\xF0\x90\x80\x80"), u"\U00010000");
    EXPECT_EQ(FromUtf8("\xF4\x8F\xBF\xBF"), u"\U0010FFFF");
}

TEST(Text, WhatStandsNextToTheSurrogatesIsNoneOfThem) {
    EXPECT_EQ(ToUtf8(u"\uD7FF\uE000"), "\xED\x9F\xBF\xEE\x80\x80");
    EXPECT_EQ(ToUtf8(u"\U000103FF"), "\xF0\x90\x8F\xBF");
    EXPECT_EQ(ToUtf8(u"\U0010FC00"), "\xF4\x8F\xB0\x80");
    for (const unsigned alone : {0xD800U, 0xDBFFU, 0xDC00U, 0xDFFFU})
        EXPECT_EQ(ToUtf8(String(1, static_cast<char16_t>(alone)) + u"a"), "\xEF\xBF\xBD"
                                                                          "a")
            << alone;
    EXPECT_EQ(ToUtf8(String{char16_t{0xD800}, char16_t{0xE000}}), "\xEF\xBF\xBD\xEE\x80\x80");
}

TEST(Text, AnUnpairedSurrogateIsReplacedInUtf8) {
    const String high(1, char16_t{0xD83D});
    const String low(1, char16_t{0xDD11});
    EXPECT_EQ(ToUtf8(high), "\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(low), "\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(high + u"a"), "\xEF\xBF\xBD"
                                   "a");
    EXPECT_EQ(ToUtf8(low + high), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(String(2, char16_t{0xDC00})), "\xEF\xBF\xBD\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(u"a" + low), "a\xEF\xBF\xBD");
    EXPECT_EQ(ToUtf8(StringView(u"\U0001F511").substr(0, 1)), "\xEF\xBF\xBD");
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
    EXPECT_EQ(FromUtf8("\xC1\xBF"), u"\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xE0\x9F\xBF"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xF0\x8F\xBF\xBF"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xED\xBF\xBF"), u"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\x82\x80"), u"\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xF9\x88\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
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

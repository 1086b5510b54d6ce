#include "shell/command_line.h"

#include "shell/program_state.h"
#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

namespace {

TEST(CommandLineSplit, AnEmptyLineHasNoTokens) {
    EXPECT_EQ(SplitCommandLine(u""), StringList{});
}

TEST(CommandLineSplit, BlanksPartTokens) {
    EXPECT_EQ(SplitCommandLine(u"/f"), (StringList{u"/f"}));
    EXPECT_EQ(SplitCommandLine(u"/d a.log /f"), (StringList{u"/d", u"a.log", u"/f"}));
}

TEST(CommandLineSplit, ATabIsAnOrdinaryCharacter) {
    EXPECT_EQ(SplitCommandLine(u"/f\t/d"), (StringList{u"/f\t/d"}));
}

TEST(CommandLineSplit, QuotesProtectBlanksAndStayInTheToken) {
    EXPECT_EQ(SplitCommandLine(u"/d \"C:\\My Logs\\a.log\" /f"),
              (StringList{u"/d", u"\"C:\\My Logs\\a.log\"", u"/f"}));
    EXPECT_EQ(SplitCommandLine(u"a\"b c\"d"), (StringList{u"a\"b c\"d"}));
    EXPECT_EQ(SplitCommandLine(u"\"\" /f"), (StringList{u"\"\"", u"/f"}));
    EXPECT_EQ(SplitCommandLine(u"\"a b\" c \"d  e\""), (StringList{u"\"a b\"", u"c", u"\"d  e\""}));
    EXPECT_EQ(SplitCommandLine(u"\"a b\"\"c d\" e"), (StringList{u"\"a b\"\"c d\"", u"e"}));
}

TEST(CommandLineSplit, AnUnterminatedQuoteMakesTheRestOneToken) {
    EXPECT_EQ(SplitCommandLine(u"/d \"C:\\a b"), (StringList{u"/d", u"\"C:\\a b"}));
    EXPECT_EQ(SplitCommandLine(u"\"a b c"), (StringList{u"\"a b c"}));
    EXPECT_EQ(SplitCommandLine(u"a \"b\" \"c d e"), (StringList{u"a", u"\"b\"", u"\"c d e"}));
}

TEST(CommandLineSplit, FurtherBlanksOfARunStandAtTheHeadOfTheNextToken) {
    EXPECT_EQ(SplitCommandLine(u"/l  1031"), (StringList{u"/l", u" 1031"}));
    EXPECT_EQ(SplitCommandLine(u"a   b  c"), (StringList{u"a", u"  b", u" c"}));
    EXPECT_EQ(SplitCommandLine(u"a  \"b c\""), (StringList{u"a", u" \"b c\""}));
}

TEST(CommandLineSplit, TrailingBlankMakesNoEmptyToken) {
    EXPECT_EQ(SplitCommandLine(u"/f "), (StringList{u"/f"}));
    EXPECT_EQ(SplitCommandLine(u" "), (StringList{u""}));
}

TEST(CommandLineSplit, FurtherTrailingBlanksMakeALastTokenOfBlanks) {
    EXPECT_EQ(SplitCommandLine(u"/f  "), (StringList{u"/f", u" "}));
    EXPECT_EQ(SplitCommandLine(u"/f   "), (StringList{u"/f", u"  "}));
    EXPECT_EQ(SplitCommandLine(u"   "), (StringList{u"", u"  "}));
}

TEST(CommandLineSplit, ALeadingBlankMakesAnEmptyFirstToken) {
    EXPECT_EQ(SplitCommandLine(u" /f"), (StringList{u"", u"/f"}));
}

TEST(CommandLineQuotes, AreTakenAwayFromATokenThatBeginsWithOne) {
    EXPECT_EQ(StripQuotes(u"\"C:\\My Logs\\a.log\""), u"C:\\My Logs\\a.log");
    EXPECT_EQ(StripQuotes(u"\"\""), u"");
    EXPECT_EQ(StripQuotes(u"\""), u"");
    EXPECT_EQ(StripQuotes(u"\"open"), u"open");
}

TEST(CommandLineQuotes, WhatStandsBehindTheClosingOneIsLost) {
    EXPECT_EQ(StripQuotes(u"\"a\"b\"c\""), u"a");
}

TEST(CommandLineQuotes, StayInATokenThatDoesNotBeginWithOne) {
    EXPECT_EQ(StripQuotes(u"a\"b\""), u"a\"b\"");
    EXPECT_EQ(StripQuotes(u""), u"");
}

class CommandLine : public ProgramTest {
  protected:
    /// The stored language is 1049.
    bool Parse(const char16_t* sLine) {
        world.machine.command_line = sLine;
        return ParseCommandLine(language);
    }

    /// The line is read to its end without a word.
    void Accept(const char16_t* sLine) {
        EXPECT_FALSE(Parse(sLine)) << ToUtf8(sLine);
        EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
    }

    /// The line is left at this token.
    void Refuse(const char16_t* sLine, const std::string& token) {
        EXPECT_TRUE(Parse(sLine)) << ToUtf8(sLine);
        EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("message 10: " + token)});
    }

    std::int16_t language = 1049;
};

TEST_F(CommandLine, AnEmptyLineSetsNothing) {
    Accept(u"");
    EXPECT_FALSE(gShowUsage || gForceWindow || gLogging);
    EXPECT_EQ(language, 1049);
}

TEST_F(CommandLine, EachSwitchSetsItsOwn) {
    Accept(u"/?");
    EXPECT_TRUE(gShowUsage && !gForceWindow && !gLogging);
    Accept(u"/f");
    EXPECT_TRUE(gForceWindow && !gLogging);
    Accept(u"/d");
    EXPECT_TRUE(gLogging);
    EXPECT_EQ(gLogFileName, u"");
    EXPECT_EQ(language, 1049);
}

TEST_F(CommandLine, ADashIsAsGoodAsASlash) {
    Accept(u"-? -f -d a.log -l 1031");
    EXPECT_TRUE(gShowUsage && gForceWindow && gLogging);
    EXPECT_EQ(gLogFileName, u"a.log");
    EXPECT_EQ(language, 1031);
}

TEST_F(CommandLine, SwitchesAreReadInAnyCase) {
    Accept(u"/F -D Name.LOG /L 1031");
    EXPECT_TRUE(gForceWindow && gLogging);
    EXPECT_EQ(gLogFileName, u"Name.LOG");
    EXPECT_EQ(language, 1031);
}

TEST_F(CommandLine, AQuotedFileNameLosesItsQuotes) {
    Accept(u"/d \"C:\\My Logs\\a.log\" /f");
    EXPECT_EQ(gLogFileName, u"C:\\My Logs\\a.log");
    EXPECT_TRUE(gForceWindow);
}

TEST_F(CommandLine, AFileNameWithoutItsClosingQuoteIsTheRestOfTheLine) {
    Accept(u"/d \"C:\\a b");
    EXPECT_EQ(gLogFileName, u"C:\\a b");
}

TEST_F(CommandLine, AFileNameMayLookLikeASwitchThatThereIsNot) {
    Accept(u"/d /x");
    EXPECT_EQ(gLogFileName, u"/x");
}

TEST_F(CommandLine, ASwitchInThePlaceOfAValueStaysASwitch) {
    Accept(u"/d /f");
    EXPECT_TRUE(gLogging && gForceWindow);
    EXPECT_EQ(gLogFileName, u"");
}

TEST_F(CommandLine, OfTwoFileNamesTheLastOneWins) {
    Accept(u"/d a.log /d b.log");
    EXPECT_EQ(gLogFileName, u"b.log");
}

TEST_F(CommandLine, ASecondFileNameBehindOneSwitchIsBad) {
    Refuse(u"/d a.log b.log", "b.log");
    EXPECT_EQ(gLogFileName, u"a.log");
}

TEST_F(CommandLine, BlanksAheadOfALanguageAreTrimmed) {
    Accept(u"/l  1031");
    EXPECT_EQ(language, 1031);
}

TEST_F(CommandLine, ALanguageMayBeHexadecimal) {
    Accept(u"/l &H409");
    EXPECT_EQ(language, 1033);
}

TEST_F(CommandLine, AFractionOfALanguageIsRoundedToTheEvenNumber) {
    Accept(u"/l 1031.5");
    EXPECT_EQ(language, 1032);
    Accept(u"/l 1032.5");
    EXPECT_EQ(language, 1032);
}

TEST_F(CommandLine, ANegativeNumberIsALanguage) {
    Accept(u"/l -5");
    EXPECT_EQ(language, -5);
}

TEST_F(CommandLine, OfTwoLanguagesTheLastOneWins) {
    Accept(u"/l 1031 /l 1036");
    EXPECT_EQ(language, 1036);
}

TEST_F(CommandLine, LanguageZeroIsTheAutomaticOne) {
    Accept(u"/L 0");
    EXPECT_EQ(language, 0);
}

TEST_F(CommandLine, ALanguageSwitchWithoutANumberIsTheAutomaticOne) {
    Accept(u"/l");
    EXPECT_EQ(language, 0);
    language = 1049;
    Accept(u"/l /f");
    EXPECT_EQ(language, 0);
    EXPECT_TRUE(gForceWindow);
}

TEST_F(CommandLine, ALanguageSwitchAheadOfBlanksIsTheAutomaticOne) {
    Accept(u"/l   ");
    EXPECT_EQ(language, 0);
}

TEST_F(CommandLine, ALastSwitchWithoutANumberOverrulesNoEarlierNumber) {
    Accept(u"/l 1031 /f");
    EXPECT_EQ(language, 1031);
    Accept(u"/l 1031 /l");
    EXPECT_EQ(language, 0);
}

TEST_F(CommandLine, ALanguageThatIsNoNumberIsBad) {
    Refuse(u"/l abc", "abc");
    EXPECT_EQ(language, 1049);
}

TEST_F(CommandLine, ALanguageBeyondSixteenBitsIsBad) {
    Refuse(u"/l 70000", "70000");
    EXPECT_EQ(language, 1049);
}

TEST_F(CommandLine, ABadTokenLeavesTheLanguageAloneThatWasStillExpected) {
    Refuse(u"/l /f /x", "/x");
    EXPECT_EQ(language, 1049);
}

TEST_F(CommandLine, ALanguageBehindAnotherSwitchIsBad) {
    Refuse(u"/l /f 1031", "1031");
}

TEST_F(CommandLine, TrailingBlanksAreSkipped) {
    Accept(u"/f   ");
    EXPECT_TRUE(gForceWindow);
}

TEST_F(CommandLine, LeadingBlanksAreSkipped) {
    Accept(u"   /f");
    EXPECT_TRUE(gForceWindow);
}

TEST_F(CommandLine, TrailingBlanksUseUpThePlaceOfAFileName) {
    Accept(u"/d   ");
    EXPECT_TRUE(gLogging);
    EXPECT_EQ(gLogFileName, u"");
}

TEST_F(CommandLine, ASwitchGluedToItsValueIsBad) {
    Refuse(u"/d:file", "/d:file");
    EXPECT_FALSE(gLogging);
}

TEST_F(CommandLine, ALetterOfASwitchBehindAnotherCharacterIsBad) {
    Refuse(u"\\f", "\\f");
    EXPECT_FALSE(gForceWindow);
}

TEST_F(CommandLine, ABadTokenIsShownInItsOriginalCaseWithItsQuotesAndWithoutBlanks) {
    Refuse(u"/f   A\"b C\"d", "A\"b C\"d");
}

TEST_F(CommandLine, WhatStandsBehindABadTokenIsNotReadAndWhatStandsAheadHasHadItsEffect) {
    Refuse(u"/f /x /? /d", "/x");
    EXPECT_TRUE(gForceWindow);
    EXPECT_FALSE(gShowUsage || gLogging);
}

TEST_F(CommandLine, UsageAheadOfABadTokenIsSet) {
    Refuse(u"/? /x", "/x");
    EXPECT_TRUE(gShowUsage);
}

} // namespace

} // namespace kestrelmoor::tests

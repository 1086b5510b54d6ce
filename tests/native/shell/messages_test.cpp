#include "shell/messages.h"

#include "shell/program_state.h"
#include "tests/native/support/program_test.h"
#include "tests/native/support/test_language.h"

namespace kestrelmoor::tests {

namespace {

TEST(Placeholders, AreReplacedByTheArgumentsOfTheirNumbers) {
    EXPECT_EQ(FillPlaceholders(u"%2 and %1", {u"a", u"b"}), u"b and a");
    EXPECT_EQ(FillPlaceholders(u"%1%1", {u"a"}), u"aa");
    EXPECT_EQ(FillPlaceholders(u"%1", {u""}), u"");
    EXPECT_EQ(FillPlaceholders(u"%9", {u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"nine"}), u"nine");
}

TEST(Placeholders, HaveOneDigit) {
    EXPECT_EQ(FillPlaceholders(u"%12", {u"a", u"b"}), u"a2");
}

TEST(Placeholders, APercentSignAtTheEndStays) {
    EXPECT_EQ(FillPlaceholders(u"100%", {}), u"100%");
    EXPECT_EQ(FillPlaceholders(u"%1%", {u"a"}), u"a%");
    EXPECT_EQ(FillPlaceholders(u"%", {}), u"%");
}

TEST(Placeholders, ADoubledPercentSignIsOneThatIsNotLookedAtAgain) {
    EXPECT_EQ(FillPlaceholders(u"%%1", {u"x"}), u"%1");
    EXPECT_EQ(FillPlaceholders(u"%%%1", {u"x"}), u"%x");
    EXPECT_EQ(FillPlaceholders(u"%%%%", {}), u"%%");
    EXPECT_EQ(FillPlaceholders(u"a%%", {}), u"a%");
}

TEST(Placeholders, AnArgumentIsNotLookedAtAgain) {
    EXPECT_EQ(FillPlaceholders(u"%1 %2", {u"%2", u"b"}), u"%2 b");
    EXPECT_EQ(FillPlaceholders(u"%1%1", {u"%1"}), u"%1%1");
    EXPECT_EQ(FillPlaceholders(u"%12", {u"%", u"b"}), u"%2");
}

TEST(Placeholders, APercentSignAheadOfNoDigitStays) {
    EXPECT_EQ(FillPlaceholders(u"%x %1", {u"a"}), u"%x a");
    EXPECT_EQ(FillPlaceholders(u"% 1", {u"a"}), u"% 1");
    EXPECT_EQ(FillPlaceholders(u"%x%%1", {u"a"}), u"%x%1");
}

TEST(Placeholders, TheCharactersAroundTheDigitsAreNone) {
    const StringList ten{u"1", u"2", u"3", u"4", u"5", u"6", u"7", u"8", u"9", u"ten"};
    EXPECT_EQ(FillPlaceholders(u"%: %/ %0", ten), u"%: %/ %0");
}

TEST(Placeholders, ANumberWithoutAnArgumentStays) {
    EXPECT_EQ(FillPlaceholders(u"%0 %3 %1", {u"a", u"b"}), u"%0 %3 a");
}

class Messages : public ProgramTest {};

TEST_F(Messages, TheTextOfANumberIsFilledWithItsArguments) {
    EXPECT_EQ(LoadMessage(12, {u"a", u"b", u"c"}), u"message 12: a, b, c");
    EXPECT_EQ(LoadMessage(101, {}), u"message 101");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(Messages, ANumberThatTheLibraryDoesNotKnowCostsABoxAndGivesAnEmptyText) {
    EXPECT_EQ(LoadMessage(999, {u"a"}), u"");
    ASSERT_EQ(Boxes().size(), 1U);
    EXPECT_EQ(Boxes()[0].style, 48U);
    EXPECT_EQ(Boxes()[0].title, "Kestrelmoor");
    EXPECT_NE(Boxes()[0].text, "");
}

TEST_F(Messages, WithoutALibraryTheBoxSaysThatTheObjectIsMissing) {
    gLocalizer.reset();
    EXPECT_EQ(LoadMessage(10, {}), u"");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{Exclamation("Object variable not set")});
}

class SystemErrorText : public ProgramTest {};

TEST_F(SystemErrorText, ACodeOfTheSystemIsLookedUpInTheSystemAlone) {
    EXPECT_EQ(GetSystemErrorText(5), u"system 5");
    EXPECT_EQ(CallsOf({"LoadLibraryExW", "FormatMessageW", "FreeLibrary"}),
              Lines{R"(FormatMessageW("4608", "0", "5"))"});
}

TEST_F(SystemErrorText, ACodeOfTheNetworkIsLookedUpInItsLibrary) {
    EXPECT_EQ(GetSystemErrorText(2245), u"network 2245");
    EXPECT_EQ(Names(), (Lines{"LoadLibraryExW", "FormatMessageW", "FreeLibrary"}));
    EXPECT_EQ(CallsOf({"LoadLibraryExW"}), Lines{R"(LoadLibraryExW("netmsg.dll", "2"))"});
    EXPECT_EQ(world.calls.Of("FormatMessageW").at(0).arguments.at(0), u"6656");
}

TEST_F(SystemErrorText, TheNetworkHasTheCodesFrom2100To2999) {
    for (const std::uint32_t code : {2099U, 2100U, 2999U, 3000U})
        GetSystemErrorText(code);
    Lines flags;
    for (const practice::Call& call : world.calls.Of("FormatMessageW"))
        flags.push_back(ToUtf8(call.arguments.at(0)));
    EXPECT_EQ(flags, (Lines{"4608", "6656", "6656", "4608"}));
}

TEST_F(SystemErrorText, WithoutTheNetworksLibraryTheSystemIsAsked) {
    world.libraries.Remove(u"netmsg.dll");
    world.machine.system_messages[2245] = u"from the system";
    EXPECT_EQ(GetSystemErrorText(2245), u"from the system");
    EXPECT_EQ(GetSystemErrorText(2221), u"");
    EXPECT_EQ(CallsOf({"FormatMessageW", "FreeLibrary"}),
              (Lines{R"(FormatMessageW("4608", "0", "2245"))", R"(FormatMessageW("4608", "0", "2221"))"}));
}

TEST_F(SystemErrorText, OneLineEndIsTakenAway) {
    world.machine.system_messages[7] = u"first\r\nsecond\r\n";
    EXPECT_EQ(GetSystemErrorText(7), u"first\r\nsecond\r\n");
    world.machine.system_messages[8] = u"";
    EXPECT_EQ(GetSystemErrorText(8), u"");
}

TEST_F(SystemErrorText, ALongTextIsCutToTheBuffer) {
    world.machine.system_messages[7] = String(300, u'x');
    EXPECT_EQ(GetSystemErrorText(7), String(256, u'x'));
}

TEST_F(SystemErrorText, AFailedLookUpIsEmptyWithoutALineOrABoxWhileNotDiagnosing) {
    OpenLog();
    EXPECT_EQ(GetSystemErrorText(4), u"");
    EXPECT_EQ(Log(), Lines{});
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(SystemErrorText, AFailedLookUpIsAnErrorLineWithItsCodeWhileDiagnosing) {
    StartDiagnosing();
    world.Fail("FormatMessageW", 1815);
    EXPECT_EQ(GetSystemErrorText(2245), u"");
    EXPECT_EQ(Log(), Lines{"Error: message 11: 1815"});
    EXPECT_EQ(Names(), (Lines{"LoadLibraryExW", "FormatMessageW", "Append", "FreeLibrary"}));
}

TEST_F(SystemErrorText, AFailedCallIsToldByCodeAndWords) {
    EXPECT_EQ(FormatApiError(5, u"RegSetValueExW"), u"message 15: 5, system 5");
}

TEST_F(SystemErrorText, AFailedCallIsToldByItsNameTooWhileDiagnosing) {
    gLogging = true;
    EXPECT_EQ(FormatApiError(5, u"RegSetValueExW"), u"message 12: 5, RegSetValueExW, system 5");
}

TEST_F(SystemErrorText, AFailedCallWithoutWordsIsToldByItsCode) {
    EXPECT_EQ(FormatApiError(4, u"RegSetValueExW"), u"message 15: 4, ");
}

} // namespace

} // namespace kestrelmoor::tests

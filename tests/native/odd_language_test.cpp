// A language library whose texts no translator would write. What it says may look odd on the screen; what
// becomes of the passwords stays the same.
#include "tests/native/secrets/secrets.h"

#include "forms/about/frmAbout.h"
#include "localization/language_resolution.h"
#include "platform/practice/world/log_on.h"
#include "tests/native/support/accounts_of.h"
#include "watch/expiry_watch.h"

#include <algorithm>
#include <ostream>

namespace kestrelmoor::tests {

namespace {

struct OddText {
    const char* name;
    String says;
    String shown; ///< where it has no arguments
};

void PrintTo(const OddText& text, std::ostream* stream) {
    *stream << text.name;
}

const String kLongest(0x10000, u'x');
const String kNul(u"front\0behind", 12);
const String kTurned = u'\x202E' + String(u"drowssap\x202C");

const std::vector<OddText> kOddTexts{
    {"Empty", u"", u""},
    {"Blank", u"   ", u"   "},
    {"Of64KUnits", kLongest, kLongest},
    {"WithArgumentsThatNobodyHands", u"%9%%", u"%9%"},
    {"WithArgument0", u"%0%0", u"%0%0"},
    {"OfPercentSigns", u"%%%%%", u"%%%"},
    {"OfFormatsOfOtherPrograms", u"%s%n%*d{0}", u"%s%n%*d{0}"},
    {"WithLoneSurrogates", u"\xDC00\xD800", u"\xDC00\xD800"},
    {"WithANul", kNul, kNul},
    {"WithTabs", u"\t\t\t", u"\t\t\t"},
    {"WithLineBreaks", u"\r\n\n\r\x2028", u"\r\n\n\r\x2028"},
    {"OfAcceleratorMarks", u"&&&&&", u"&&&&&"},
    {"ThatTurnsTheDirection", kTurned, kTurned},
    {"ThatLooksLikeATarget", u"\\\\ARCHIVE", u"\\\\ARCHIVE"},
    {"ThatLooksLikeAPath", u"..\\..\\C:\\nul", u"..\\..\\C:\\nul"},
};

class OddLanguage : public Secrets, public testing::WithParamInterface<OddText> {
  protected:
    OddLanguage() {
        practice::Library library = ScriptedLanguage(1033);
        library.path = u"C:\\Program Files\\Kestrelmoor\\default.loc";
        library.script.every_text = GetParam().says;
        library.script.font_name = "";
        world.libraries.Put(std::move(library));
        gLocalizer.reset();
        EXPECT_FALSE(LoadLocalization(0x409));
        gReminderTime = kTwoWeeks;
    }

    static constexpr std::int32_t kTwoWeeks = 1209600;

    const String& Shown() const { return GetParam().shown; }

    /// The new password and no other lets in everywhere.
    void ExpectAllChanged(const std::vector<std::pair<String, String>>& old_of_each) {
        for (const auto& [target, old_password] : old_of_each) {
            auto* const accounts = AccountsOf(world.network, target);
            ASSERT_NE(accounts, nullptr);
            EXPECT_EQ(practice::LogOn(*accounts, u"user", kMarkedNew, world.clock.Now()), 0U);
            EXPECT_EQ(practice::LogOn(*accounts, u"user", old_password, world.clock.Now()), 1326U);
        }
    }

    /// Lines of the log that end so: each event is a line, whatever a text of the language says.
    long LogLines(std::string_view ending) const {
        const Lines log = Log();
        return std::count_if(log.begin(), log.end(),
                             [&](const auto& line) { return line.ends_with(ending); });
    }
};

TEST_P(OddLanguage, ARunChangesEachTargetOnce) {
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    ASSERT_TRUE(user.ClickOn(At(u"cmdOK")));
    EXPECT_EQ(ChangedServers(), (Lines{"\\\\WORKBENCH", "\\\\ARCHIVE", "\\\\DC1"}));
    ExpectAllChanged({{u"", kMarkedOld}, {u"\\\\ARCHIVE", kMarkedOld}, {u"PRACTICE", kMarkedOld}});
    EXPECT_EQ(LogLines("Information: Password changed"), 3);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_P(OddLanguage, EachTargetGetsItsOwnOldPassword) {
    SetPassword(u"\\\\ARCHIVE", kMarkedOfArchive);
    SetPassword(u"\\\\DC1", kMarkedOfDomain);
    OpenRows();
    TypeOldOfEach(kMarkedOld, kMarkedOfArchive, kMarkedOfDomain);
    TypeNew(kMarkedNew);
    ASSERT_TRUE(user.ClickOn(At(u"cmdOK")));
    ExpectAllChanged({{u"", kMarkedOld}, {u"\\\\ARCHIVE", kMarkedOfArchive}, {u"PRACTICE", kMarkedOfDomain}});
}

TEST_P(OddLanguage, AFailedRunLeadsBackToANewWindow) {
    Open();
    TypePasswords(kMarkedWrong, kMarkedNew);
    ASSERT_TRUE(user.ClickOn(At(u"cmdOK")));
    EXPECT_EQ(LogLines("Information: Password changed"), 0);
    EXPECT_EQ(world.network.StoreAt(u"\\\\ARCHIVE")->Find(u"user")->password, kMarkedOld);
    ASSERT_TRUE(user.ClickOn(At(u"cmdOK")));
    TakeWindow();
    EXPECT_EQ(Targets().size(), 3U);
    EXPECT_EQ(Box(u"txtOldPass").Text() + Box(u"txtNewPass").Text() + Box(u"txtStatus").Text(), u"");
}

TEST_P(OddLanguage, EveryTextIsShownAsItIs) {
    Open();
    EXPECT_TRUE(form->Caption() == Shown());
    for (const char16_t* const name : {u"cmdOK", u"cmdCancel", u"cmdSettings", u"chkSame"})
        EXPECT_TRUE(At(name).Caption() == Shown()) << ToUtf8(name);
    const String name_of_the_computer = u" " + Shown();
    EXPECT_TRUE(List().List(0).starts_with(name_of_the_computer.substr(0, name_of_the_computer.find(u'\t'))));
}

TEST_P(OddLanguage, TheReminderAsksAndItsAnswerCounts) {
    gForceWindow = false;
    world.network.StoreAt(u"\\\\ARCHIVE")->Find(u"user")->password_expired = true;
    world.boxes.Answer(6);
    RunExpiryWatch(true);
    ASSERT_EQ(Boxes().size(), 1U);
    EXPECT_TRUE(world.boxes.All()[0].title == Shown());
    EXPECT_TRUE(world.boxes.All()[0].text.ends_with(u"\r\n\r\n" + Shown()));
    TakeWindow();
}

TEST_P(OddLanguage, TheReminderThatIsRefusedOpensNothing) {
    gForceWindow = false;
    world.network.StoreAt(u"\\\\ARCHIVE")->Find(u"user")->password_expired = true;
    world.boxes.Answer(7);
    RunExpiryWatch(true);
    EXPECT_EQ(Boxes().size(), 1U);
    EXPECT_TRUE(Application::Current().Forms().empty());
}

TEST_P(OddLanguage, TheSettingsTakeATarget) {
    modules_left = 1; // the language library that is asked for its languages
    Open();
    AtNextPump(u"frmSettings", [this](Form& settings) {
        EXPECT_TRUE(settings.Caption() == Shown());
        ASSERT_TRUE(user.ClickOn(settings.Find(u"cmdAddServer")));
        ASSERT_TRUE(user.Type(u"\\\\SPARE"));
        ASSERT_TRUE(user.ClickOn(settings.Find(u"chkPermanent")));
        ASSERT_TRUE(user.ClickOn(settings.Find(u"cmdOK")));
    });
    ASSERT_TRUE(user.ClickOn(At(u"cmdSettings")));
    const Lines targets = Targets();
    EXPECT_EQ(Lines(targets.begin() + 1, targets.end()), (Lines{"\\\\ARCHIVE", "\\\\SPARE", "PRACTICE"}));
}

TEST_P(OddLanguage, TheAboutWindowOpensAndCloses) {
    const auto about = Application::Current().Make<frmAbout>();
    about->Show();
    EXPECT_TRUE(about->Caption() == Shown());
    about->Unload();
}

TEST_P(OddLanguage, AFailedCallIsToldAndLoggedOnOneLine) {
    world.Fail("NetUserChangePassword", 86, 0);
    Open();
    TypePasswords(kMarkedOld, kMarkedNew);
    ASSERT_TRUE(user.ClickOn(At(u"cmdOK")));
    EXPECT_EQ(ChangedServers().size(), 3U);
    for (const std::string& line : Log())
        EXPECT_TRUE(line.starts_with("Information: ") || line.starts_with("Error: ")) << line;
    EXPECT_EQ(Log().size(), 46U);
}

INSTANTIATE_TEST_SUITE_P(Texts, OddLanguage, testing::ValuesIn(kOddTexts),
                         [](const auto& odd) { return std::string(odd.param.name); });

} // namespace

} // namespace kestrelmoor::tests

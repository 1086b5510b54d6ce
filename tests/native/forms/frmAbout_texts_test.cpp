#include "tests/native/forms/about_window.h"

namespace kestrelmoor::tests {

namespace {

class AboutWords : public AboutWindow {
  protected:
    void ExpectFont(const Font& font, const String& name, int charset) {
        EXPECT_EQ(font.Name(), name);
        EXPECT_EQ(font.Charset(), charset);
    }
};

} // namespace

TEST_F(AboutWords, TheCaptionHasTheProgramsNameAndEveryControlItsText) {
    Load();
    EXPECT_EQ(form->Caption(), u"text 202: Kestrelmoor");
    const std::pair<const char16_t*, const char*> captions[] = {{u"cmdHelp", "text 1003"},
                                                                {u"cmdOK", "text 1001"},
                                                                {u"lblLoc", "text 206"},
                                                                {u"lblLocDisclaimer", "text 204"},
                                                                {u"lblLocWeb", "https://www.example.net/"},
                                                                {u"lblDescription", "text 203"},
                                                                {u"lblTitle", "Kestrelmoor"},
                                                                {u"lblWeb", ""}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(CaptionOf(name), caption) << ToUtf8(name);
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(AboutWords, TheVersionHasItsNumberInOneTwoAndFourDigits) {
    struct Version {
        std::uint16_t major, minor, revision;
        const char* text;
    };
    constexpr Version kVersions[] = {{1, 2, 84, "text 201: 1, 02, 0084"},
                                     {0, 0, 0, "text 201: 0, 00, 0000"},
                                     {12, 34, 5678, "text 201: 12, 34, 5678"},
                                     {65535, 65535, 65535, "text 201: 65535, 65535, 65535"},
                                     {1, 10, 7, "text 201: 1, 10, 0007"}};
    for (const Version& version : kVersions) {
        world.machine.own_version.major = version.major;
        world.machine.own_version.minor = version.minor;
        world.machine.own_version.revision = version.revision;
        Load();
        EXPECT_EQ(CaptionOf(u"lblVersion"), version.text);
        form->Unload();
    }
}

TEST_F(AboutWords, TheProgramsOwnVersionIs1_2_84) {
    Load();
    EXPECT_EQ(CaptionOf(u"lblVersion"), "text 201: 1, 02, 0084");
}

TEST_F(AboutWords, TheTitleAndTheLegalNoticeAreThoseOfTheVersionRecord) {
    world.machine.own_version.title = u"Another title";
    world.machine.own_version.legal_notice = u"All rights & none";
    Load();
    EXPECT_EQ(form->Caption(), u"text 202: Another title");
    EXPECT_EQ(CaptionOf(u"lblTitle"), "Another title");
    EXPECT_EQ(CaptionOf(u"lblDisclaimer"), "All rights & none");
}

TEST_F(AboutWords, AVersionRecordThatCantBeReadIsNoMatter) {
    world.Fail("ReadVersionRecord", 1813, 0);
    Open();
    EXPECT_EQ(CaptionOf(u"lblDisclaimer"), "");
    EXPECT_EQ(CaptionOf(u"cmdOK"), "text 1001");
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(AboutWords, AControlWithoutATextKeepsWhatItHas) {
    Make();
    At(u"lblWeb").SetCaption(u"kept");
    At(u"lblDescription").SetCaption(u"kept too");
    At(u"lblDescription").SetTag(u"");
    Load();
    EXPECT_EQ(CaptionOf(u"lblWeb"), "kept");
    EXPECT_EQ(CaptionOf(u"lblDescription"), "kept too");
}

TEST_F(AboutWords, ATagThatIsNoNumberIsNoText) {
    Make();
    At(u"cmdOK").SetCaption(u"kept");
    At(u"cmdOK").SetTag(u"OK");
    Load();
    EXPECT_EQ(CaptionOf(u"cmdOK"), "kept");
}

TEST_F(AboutWords, TheFormsTextIsTheOneItsTagNames) {
    Say(202, u"About %1 and its makers");
    Load();
    EXPECT_EQ(form->Caption(), u"About Kestrelmoor and its makers");
}

TEST_F(AboutWords, AMarkInALabelsTextStandsInItsCaption) {
    Say(206, u"&Translation");
    Load();
    EXPECT_EQ(CaptionOf(u"lblLoc"), "&Translation");
    EXPECT_EQ(ToUtf8(At(u"lblLoc").Tag()), "");
}

TEST_F(AboutWords, AToolTipStaysUnlessItIsANumber) {
    Make();
    At(u"cmdOK").SetToolTipText(u"204");
    At(u"picIcon").SetToolTipText(u"206");
    Load();
    EXPECT_EQ(At(u"cmdOK").ToolTipText(), u"text 204");
    EXPECT_EQ(At(u"picIcon").ToolTipText(), u"text 206");
    EXPECT_EQ(At(u"cmdHelp").ToolTipText(), u"");
    for (const char16_t* const name : {u"lblWeb", u"lblLocWeb"})
        EXPECT_EQ(At(name).ToolTipText(), u"Click to open the Author's Home Page in Internet");
}

TEST_F(AboutWords, FormAndControlsHaveTheLibrarysFont) {
    Load();
    ExpectFont(form->Font(), u"Test Sans", 238);
    for (const char16_t* const name :
         {u"picIcon", u"cmdHelp", u"cmdOK", u"lblLoc", u"lblLocDisclaimer", u"lblLocWeb", u"lblDescription",
          u"lblVersion", u"lblWeb", u"lblDisclaimer"}) {
        SCOPED_TRACE(ToUtf8(name));
        ExpectFont(At(name).Font(), u"Test Sans", 238);
        EXPECT_FLOAT_EQ(At(name).Font().Size(), 8.25F);
    }
}

TEST_F(AboutWords, TheTitleHasTheShellsFontAndKeepsItsLooksAndItsCharacterSet) {
    Make();
    At(u"lblTitle").Font().SetName(u"Design Sans");
    At(u"lblTitle").Font().SetCharset(204);
    Load();
    ExpectFont(At(u"lblTitle").Font(), u"MS Shell Dlg", 204);
    EXPECT_EQ(At(u"lblTitle").Font().Size(), 18);
    EXPECT_TRUE(At(u"lblTitle").Font().Bold());
    EXPECT_TRUE(At(u"lblTitle").Font().Italic());
}

TEST_F(AboutWords, LinesTimersAndTheBandHaveNoText) {
    Make();
    for (const char16_t* const name : {u"tmrWeb", u"tmrLocWeb", u"Line1(0)", u"Line1(1)", u"shAbout"}) {
        At(name).SetTag(u"204");
        At(name).SetToolTipText(u"204");
    }
    Load();
    for (const char16_t* const name : {u"tmrWeb", u"tmrLocWeb", u"Line1(0)", u"Line1(1)", u"shAbout"}) {
        SCOPED_TRACE(ToUtf8(name));
        EXPECT_EQ(At(name).ToolTipText(), u"204");
        ExpectFont(At(name).Font(), u"MS Shell Dlg", 1);
    }
}

TEST_F(AboutWords, ATranslationWithoutACreditLeavesItsLabelsEmptyAndItsLinkHidden) {
    TestTexts texts = AboutTexts();
    texts[204] = texts[205] = texts[206] = u"";
    SpeakTestLanguage(texts);
    Load();
    for (const char16_t* const name : {u"lblLoc", u"lblLocDisclaimer", u"lblLocWeb"})
        EXPECT_EQ(CaptionOf(name), "") << ToUtf8(name);
    EXPECT_FALSE(At(u"lblLocWeb").Visible());
    EXPECT_TRUE(At(u"lblLoc").Visible());
    EXPECT_TRUE(At(u"lblLocDisclaimer").Visible());
    EXPECT_EQ(Boxes(), std::vector<ShownBox>{});
}

TEST_F(AboutWords, TheTranslatorsAddressShowsTheTranslatorsLink) {
    Make();
    At(u"lblLocWeb").SetVisible(false);
    Load();
    EXPECT_TRUE(At(u"lblLocWeb").Visible());
}

} // namespace kestrelmoor::tests

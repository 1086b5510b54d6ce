#include "tests/native/forms/settings_window.h"
#include "tests/native/support/recording_desktop.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

using SettingsLoad = SettingsWindow;

/// Of a record only the entries that are milestones, each run of equal ones as one.
Lines Milestones(const RecordingDesktop::Record& record, const Lines& milestones) {
    Lines seen;
    for (const std::string& entry : record)
        if (std::find(milestones.begin(), milestones.end(), entry) != milestones.end() &&
            (seen.empty() || seen.back() != entry))
            seen.push_back(entry);
    return seen;
}

} // namespace

TEST_F(SettingsLoad, GoesThroughItsStepsInOrder) {
    RecordingDesktop desktop;
    Configure({u"PRACTICE"}, {true});
    gReminderTime = 86400;
    gSyncLocal = false;
    gForceWindow = true;
    gHelpFile.clear();
    desktop.Take();
    Load();
    // The colours; the texts, with the sentence of the reminder; the cues; the languages; the row of the
    // reminder; the settings; the servers; the permanence; no change as yet.
    const Lines steps = {
        "frmSettings Colours",     "frmSettings Caption", "cmdOK Enabled",      "lblLang Caption",
        "cbLang row inserted 0",   "chkRemind Place",     "txtRemind Place",    "lblRemind Place",
        "chkRemind Value",         "txtRemind Text",      "chkLocalPass Value", "lstServers row inserted 0",
        "lstServers row marked 0", "chkPermanent Value",  "cmdOK Enabled",      "cmdHelp Enabled"};
    EXPECT_EQ(Milestones(desktop.Take(), steps), steps);
    EXPECT_FALSE(OkEnabled());
}

TEST_F(SettingsLoad, TheTitleHasTheProgramsNameAndEveryCaptionItsText) {
    Load();
    EXPECT_EQ(form->Caption(), u"text 421: Kestrelmoor");
    const std::pair<const char16_t*, const char*> captions[] = {
        {u"cmdHelp", "text 1003"},     {u"cmdOK", "text 1001"},       {u"cmdCancel", "text 1002"},
        {u"cmdAbout", "text 413"},     {u"chkLocalPass", "text 406"}, {u"cmdAddServer", "text 408"},
        {u"cmdRemServer", "text 409"}, {u"chkRemind", "text 410"},    {u"chkPermanent", "text 402"},
        {u"fraNetPwd", "text 407"}};
    for (const auto& [name, caption] : captions)
        EXPECT_EQ(CaptionOf(name), caption) << ToUtf8(name);
}

TEST_F(SettingsLoad, LabelsHaveTheirTextInTheirTagAndNoMarkInTheirCaption) {
    Load();
    EXPECT_EQ(TagOf(u"lblLang"), "&text 401");
    EXPECT_EQ(CaptionOf(u"lblLang"), "text 401");
    EXPECT_EQ(TagOf(u"lblRemind"), "&text 411: noun 412 of 14");
    EXPECT_EQ(CaptionOf(u"lblRemind"), "text 411: noun 412 of 14");
}

TEST_F(SettingsLoad, WhereCuesAreAlwaysShownLabelsHaveTheirMark) {
    gKeyboardCues = true;
    Load();
    EXPECT_EQ(CaptionOf(u"lblLang"), "&text 401");
    EXPECT_EQ(CaptionOf(u"lblRemind"), "&text 411: noun 412 of 14");
}

TEST_F(SettingsLoad, EveryControlAndTheFormHaveTheLibrarysFont) {
    Load();
    EXPECT_EQ(form->Font().Name(), u"Test Sans");
    EXPECT_EQ(form->Font().Charset(), 238);
    for (const auto& control : form->Controls()) {
        EXPECT_EQ(control->Font().Name(), u"Test Sans") << ToUtf8(control->Name());
        EXPECT_EQ(control->Font().Charset(), 238) << ToUtf8(control->Name());
    }
}

TEST_F(SettingsLoad, TheFontReachesBothPartsOfTheEntry) {
    Load();
    for (const auto& part : Entry().Constituents()) {
        EXPECT_EQ(part->Font().Name(), u"Test Sans") << ToUtf8(part->Name());
        EXPECT_EQ(part->Font().Charset(), 238) << ToUtf8(part->Name());
    }
}

TEST_F(SettingsLoad, TheReminderTimeShowsAsWholeDaysTruncated) {
    const std::pair<std::int32_t, const char*> times[] = {{0, "0"},         {86399, "0"},
                                                          {86400, "1"},     {100000, "1"},
                                                          {172799, "1"},    {172800, "2"},
                                                          {1209600, "14"},  {8639999, "99"},
                                                          {8640000, "100"}, {2147483647, "24855"},
                                                          {-86399, "0"},    {-86400, "-1"},
                                                          {-100000, "-1"},  {-2147483647 - 1, "-24855"}};
    for (const auto& [time, days] : times) {
        gReminderTime = time;
        Load();
        EXPECT_EQ(ToUtf8(Days().Text()), days) << time;
        EXPECT_EQ(TagOf(u"lblRemind"), std::string("&text 411: noun 412 of ") + days) << time;
        form->Unload();
    }
}

TEST_F(SettingsLoad, BothCheckBoxesShowTheirSetting) {
    for (const bool on : {false, true}) {
        gSyncLocal = on;
        gAutoStart = !on;
        Load();
        EXPECT_EQ(Check(u"chkLocalPass").Value(), on ? 1 : 0);
        EXPECT_EQ(Check(u"chkRemind").Value(), on ? 0 : 1);
        EXPECT_TRUE(At(u"chkLocalPass").Enabled());
        form->Unload();
    }
}

TEST_F(SettingsLoad, OnADomainMemberTheLocalPasswordIsUncheckedAndCantBeChosen) {
    gDomainMember = true;
    gSyncLocal = false;
    Load();
    EXPECT_EQ(Check(u"chkLocalPass").Value(), 0);
    EXPECT_FALSE(At(u"chkLocalPass").Enabled());
}

TEST_F(SettingsLoad, EachServerHasARowThatIsCheckedWhereItIsActive) {
    Configure({u"ZEBRA", u"ARCHIVE", u"PRACTICE"}, {true, false, true});
    Load();
    EXPECT_EQ(Rows(), (Lines{"ARCHIVE", "* PRACTICE", "* ZEBRA"}));
}

TEST_F(SettingsLoad, BitsOfLaterBytesBelongToLaterServers) {
    StringList servers;
    for (char16_t letter = u'A'; letter <= u'J'; ++letter)
        servers.push_back(String(1, letter));
    Configure(servers, {false, false, false, false, false, false, false, true, false, true});
    Load();
    EXPECT_EQ(Rows(), (Lines{"A", "B", "C", "D", "E", "F", "G", "* H", "I", "* J"}));
}

TEST_F(SettingsLoad, NoRowIsCurrent) {
    Configure({u"ARCHIVE", u"PRACTICE"}, {true, true});
    Open();
    EXPECT_EQ(List().ListIndex(), -1);
}

TEST_F(SettingsLoad, ThePermanenceIsCheckedOnlyWhereTheWindowWasAskedFor) {
    Load();
    EXPECT_EQ(Check(u"chkPermanent").Value(), 0);
    EXPECT_TRUE(At(u"chkPermanent").Enabled());
    form->Unload();
    gForceWindow = true;
    Load();
    EXPECT_EQ(Check(u"chkPermanent").Value(), 1);
    EXPECT_TRUE(At(u"chkPermanent").Enabled());
}

TEST_F(SettingsLoad, WhatTheWatchHasNarrowedCantBePermanentEvenWhereTheWindowWasAskedFor) {
    gTargetsNarrowed = true;
    for (const bool asked_for : {false, true}) {
        gForceWindow = asked_for;
        Load();
        EXPECT_EQ(Check(u"chkPermanent").Value(), 0);
        EXPECT_FALSE(At(u"chkPermanent").Enabled());
        form->Unload();
    }
}

TEST_F(SettingsLoad, HelpIsEnabledWhereThereIsAHelpFile) {
    Load();
    EXPECT_TRUE(At(u"cmdHelp").Enabled());
    form->Unload();
    gHelpFile.clear();
    Load();
    EXPECT_FALSE(At(u"cmdHelp").Enabled());
}

TEST_F(SettingsLoad, WithNoChangeMadeOkIsDisabledAndEnterDoesNothing) {
    Configure({u"ARCHIVE"}, {true});
    gAutoStart = true;
    gForceWindow = true;
    gReminderTime = 0;
    Open();
    EXPECT_FALSE(OkEnabled());
    user.Press(key::kReturn);
    EXPECT_TRUE(form->IsLoaded());
}

TEST_F(SettingsLoad, AWiderCaptionMovesTheRowToTheRightAndNarrowsItsEnd) {
    // Six pixels of 15 twips a character, and 255 twips for the mark.
    struct Row {
        std::size_t characters;
        Twips check_width, box_left, label_left, label_width;
    };
    const Row rows[] = {{8, 975, 1140, 1620, 3435},
                        {11, 1245, 1410, 1890, 3165},
                        {12, 1335, 1500, 1980, 3075},
                        {20, 2055, 2220, 2700, 2355},
                        {1, 345, 510, 990, 4065}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.characters);
        TestTexts texts = SettingsTexts();
        texts[410] = String(row.characters, u'x');
        SpeakTestLanguage(texts);
        Load();
        EXPECT_EQ(At(u"chkRemind").Width(), row.check_width);
        EXPECT_EQ(Days().Left(), row.box_left);
        EXPECT_EQ(At(u"lblRemind").Left(), row.label_left);
        EXPECT_EQ(At(u"lblRemind").Width(), row.label_width);
        form->Unload();
    }
}

TEST_F(SettingsLoad, TheRowOfTheReminderKeepsAllElseInItsPlace) {
    Load();
    EXPECT_EQ(At(u"chkRemind").Left(), 120);
    EXPECT_EQ(At(u"chkRemind").Top(), 1920);
    EXPECT_EQ(At(u"chkRemind").Height(), 255);
    EXPECT_EQ(Days().Top(), 1905);
    EXPECT_EQ(Days().Width(), 375);
    EXPECT_EQ(Days().Height(), 285);
    EXPECT_EQ(At(u"lblRemind").Top(), 1950);
    EXPECT_EQ(At(u"lblRemind").Height(), 255);
}

TEST_F(SettingsLoad, TheFirstControlInTabOrderThatCanTakeTheFocusHasIt) {
    Configure({u"ARCHIVE"});
    Open();
    EXPECT_EQ(form->ActiveControl(), &At(u"chkLocalPass"));
    form->Unload();
    gDomainMember = true;
    Open();
    EXPECT_EQ(form->ActiveControl(), &List());
    EXPECT_EQ(CurrentRow(), "ARCHIVE");
}

TEST_F(SettingsLoad, TabGoesThroughTheWindowInTheOrderOfTheIndices) {
    Configure({u"ARCHIVE"});
    Open();
    user.Press(key::kSpace); // OK can be reached with a change made
    ASSERT_TRUE(OkEnabled());
    Lines order;
    for (int stop = 0; stop < 12; ++stop) {
        order.push_back(ToUtf8(form->ActiveControl()->Name()));
        user.Press(key::kTab);
    }
    EXPECT_EQ(order,
              (Lines{"chkLocalPass", "lstServers", "cmdAddServer", "cmdRemServer", "chkRemind", "txtRemind",
                     "cbLang", "chkPermanent", "cmdAbout", "cmdHelp", "cmdOK", "cmdCancel"}));
    EXPECT_EQ(form->ActiveControl(), &At(u"chkLocalPass"));
}

} // namespace kestrelmoor::tests

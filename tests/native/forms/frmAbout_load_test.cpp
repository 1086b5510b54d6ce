#include "tests/native/forms/about_window.h"
#include "tests/native/support/recording_desktop.h"

#include <algorithm>

namespace kestrelmoor::tests {

namespace {

class AboutLoad : public AboutWindow {
  protected:
    /// Of what was called and shown only these, each run of equal ones as one.
    static Lines Milestones(const Lines& record, const Lines& milestones) {
        Lines seen;
        for (const std::string& entry : record)
            if (std::ranges::count(milestones, entry) != 0 && (seen.empty() || seen.back() != entry))
                seen.push_back(entry);
        return seen;
    }

    Lines Sent() const { return CallsOf({"SendUpdateUiState"}); }

    std::string Sending(const char* state) const {
        return "SendUpdateUiState(\"" + std::to_string(form->Window()) + "\", \"" + state + "\")";
    }
};

} // namespace

TEST_F(AboutLoad, MakesItsCallsInOrder) {
    PutTheme();
    Install();
    Load();
    const Lines steps = {"OpenThemeData", "GetThemeSysColor", "LoadImageW",  "SendUpdateUiState",
                         "RegOpenKeyExW", "RegQueryValueExW", "LoadCursorW", "OleCreatePictureIndirect",
                         "RegCloseKey"};
    EXPECT_EQ(Milestones(Names(), steps), steps);
}

TEST_F(AboutLoad, GoesThroughItsStepsInOrder) {
    RecordingDesktop desktop;
    Install();
    gHelpFile.clear();
    for (const char* const call : {"LoadImageW", "SendUpdateUiState", "RegOpenKeyExW", "RegCloseKey"})
        world.calls.Before(call, [&desktop, call] { desktop.Note(call); });
    Load();
    // Colours and icon; the texts; the cues; the address; the translator's link; help.
    const Lines steps = {"frmAbout Colours", "LoadImageW",
                         "frmAbout Caption", "cmdHelp Caption",
                         "lblWeb Font",      "SendUpdateUiState",
                         "cmdHelp Caption",  "lblWeb Visible",
                         "RegOpenKeyExW",    "lblWeb Caption",
                         "lblWeb Visible",   "lblWeb MousePointer",
                         "RegCloseKey",      "lblLocWeb MousePointer",
                         "cmdHelp Enabled"};
    EXPECT_EQ(Milestones(desktop.Take(), steps), steps);
}

TEST_F(AboutLoad, CuesAreHiddenAtFirstUnlessTheyAreAlwaysShown) {
    Load();
    EXPECT_EQ(Sent(), Lines{Sending("196609")});
    form->Unload();
    world.calls.Clear();
    gKeyboardCues = true;
    Load();
    EXPECT_EQ(Sent(), Lines{Sending("196610")});
}

TEST_F(AboutLoad, CuesAreShownAndHiddenOnceEach) {
    Load();
    world.calls.Clear();
    form->ICue_UnCue();
    EXPECT_EQ(Sent(), Lines{});
    form->ICue_Cue();
    form->ICue_Cue();
    EXPECT_EQ(Sent(), Lines{Sending("196610")});
    form->ICue_UnCue();
    form->ICue_UnCue();
    EXPECT_EQ(Sent(), (Lines{Sending("196610"), Sending("196609")}));
}

TEST_F(AboutLoad, WhereCuesAreAlwaysShownTheyCanStillBeHidden) {
    gKeyboardCues = true;
    Load();
    world.calls.Clear();
    form->ICue_Cue();
    EXPECT_EQ(Sent(), Lines{});
    form->ICue_UnCue();
    EXPECT_EQ(Sent(), Lines{Sending("196609")});
}

TEST_F(AboutLoad, BeforeWindows2000TheWindowIsToldNothing) {
    gWinVersion = 0x24FFFFFF;
    gKeyboardCues = true;
    Load();
    form->ICue_UnCue();
    form->ICue_Cue();
    EXPECT_EQ(Sent(), Lines{});
}

TEST_F(AboutLoad, ACuePassLeavesEveryLabelItsCaption) {
    Install(u"https://www.example.org/?a&b");
    Say(206, u"&Translation");
    Load();
    for (const bool shown : {true, false}) {
        if (shown)
            form->ICue_Cue();
        else
            form->ICue_UnCue();
        EXPECT_EQ(CaptionOf(u"lblWeb"), "https://www.example.org/?a&b");
        EXPECT_EQ(CaptionOf(u"lblLoc"), "&Translation");
        EXPECT_EQ(CaptionOf(u"lblTitle"), "Kestrelmoor");
        EXPECT_EQ(CaptionOf(u"lblDescription"), "text 203");
    }
}

TEST_F(AboutLoad, ACuePassRepaintsTheButtonsAlone) {
    RecordingDesktop desktop;
    Load();
    desktop.Take();
    form->ICue_Cue();
    EXPECT_EQ(desktop.Take(), (Lines{"cmdHelp Caption", "cmdOK Caption"}));
    form->ICue_UnCue();
    EXPECT_EQ(desktop.Take(), (Lines{"cmdHelp Caption", "cmdOK Caption"}));
    EXPECT_EQ(CaptionOf(u"cmdOK"), "text 1001");
}

} // namespace kestrelmoor::tests

#include "window_services/keyboard_cues.h"

#include "platform/input_hooks.h"
#include "runtime/errors.h"
#include "shell/program_state.h"
#include "tests/native/support/probe_form.h"
#include "tests/native/support/program_test.h"
#include "tests/native/support/recording_desktop.h"
#include "window_services/ICue.h"

namespace kestrelmoor::tests {

namespace {

class KeyboardCues : public ProgramTest {
  protected:
    KeyboardCues() {
        gWinVersion = kWindows2000;
        form->lblText.SetTag(u"&Name:");
        form->Show();
        desktop.Take();
    }

    RecordingDesktop desktop;
    std::shared_ptr<ProbeForm> form = MakeProbe();
};

/// Cues that can't be shown.
class FailingForm : public ProbeForm, public ICue {
  public:
    void ICue_Cue() override { RaiseError(error_number::kInvalidArgument); }
    void ICue_UnCue() override {}
};

} // namespace

TEST_F(KeyboardCues, TheShowingPassMarksLabelsAndRepaintsButtonsAndCheckBoxes) {
    bool shown = false;
    ShowCues(*form, shown);
    EXPECT_TRUE(shown);
    EXPECT_EQ(desktop.Take(), (Lines{"lblText Caption", "chkMark Caption", "cmdOK Caption"}));
    EXPECT_EQ(form->lblText.Caption(), u"&Name:");
    EXPECT_EQ(CallsOf({"SendUpdateUiState"}), Lines{"SendUpdateUiState(\"42\", \"196610\")"});
}

TEST_F(KeyboardCues, TheHidingPassRepaintsFramesToo) {
    bool shown = true;
    HideCues(*form, shown);
    EXPECT_FALSE(shown);
    EXPECT_EQ(desktop.Take(),
              (Lines{"lblText Caption", "fraGroup Caption", "chkMark Caption", "cmdOK Caption"}));
    EXPECT_EQ(form->lblText.Caption(), u"Name:");
    EXPECT_EQ(CallsOf({"SendUpdateUiState"}), Lines{"SendUpdateUiState(\"42\", \"196609\")"});
}

TEST_F(KeyboardCues, APassLeavesTheOtherCaptionsAsTheyAre) {
    bool shown = false;
    ShowCues(*form, shown);
    HideCues(*form, shown);
    EXPECT_EQ(form->cmdOK.Caption(), u"OK");
    EXPECT_EQ(form->fraGroup.Caption(), u"Group");
    EXPECT_EQ(form->txtText.Text(), u"abc");
}

TEST_F(KeyboardCues, APassThatWouldChangeNothingIsNotRun) {
    bool shown = true;
    ShowCues(*form, shown);
    EXPECT_TRUE(shown);
    shown = false;
    HideCues(*form, shown);
    EXPECT_FALSE(shown);
    EXPECT_EQ(desktop.Take(), Lines{});
    EXPECT_EQ(CallsOf({"SendUpdateUiState"}), Lines{});
}

TEST_F(KeyboardCues, LabelsMayKeepTheirCaptions) {
    form->lblText.SetCaption(u"own");
    desktop.Take();
    bool shown = false;
    ShowCues(*form, shown, CueLabels::kKeepCaptions);
    HideCues(*form, shown, CueLabels::kKeepCaptions);
    EXPECT_EQ(desktop.Take(), (Lines{"chkMark Caption", "cmdOK Caption", "fraGroup Caption",
                                     "chkMark Caption", "cmdOK Caption"}));
    EXPECT_EQ(form->lblText.Caption(), u"own");
}

TEST_F(KeyboardCues, ACaptionWithoutAMarkIsTheTagUnchanged) {
    form->lblText.SetTag(u"Name:");
    HideCaptionCue(form->lblText);
    EXPECT_EQ(form->lblText.Caption(), u"Name:");
    form->lblText.SetTag(u"&");
    HideCaptionCue(form->lblText);
    EXPECT_EQ(form->lblText.Caption(), u"");
}

TEST_F(KeyboardCues, AKeyWhoseCuesFailGoesOnItsWay) {
    const auto failing = Application::Current().Make<FailingForm>();
    failing->Show();
    EXPECT_EQ(Application::Current().ActiveForm(), failing.get());
    world.calls.Clear();
    KeyboardCueHook(platform::kHookAction, u'A', 1);
    EXPECT_EQ(CallsOf({"CallNextHookEx"}), Lines{"CallNextHookEx(\"0\", \"0\", \"65\")"});
}

TEST_F(KeyboardCues, ABuildOfWindows2000IsAskedAndTheLastNT4IsNot) {
    world.machine.keyboard_cues = false;
    gWinVersion = 0x24FFFFFF;
    ReadKeyboardCues();
    EXPECT_TRUE(gKeyboardCues);
    EXPECT_EQ(world.calls.Count("SystemParametersInfoW"), 0U);
    gWinVersion = 0x25000000;
    ReadKeyboardCues();
    EXPECT_FALSE(gKeyboardCues);
    EXPECT_EQ(world.calls.Count("SystemParametersInfoW"), 1U);
}

} // namespace kestrelmoor::tests

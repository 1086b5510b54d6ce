#include "window_services/keyboard_cues.h"

#include "platform/input_hooks.h"
#include "shell/program_state.h"

namespace kestrelmoor {

namespace {

constexpr std::uint32_t kClearHiding = 0x30002; ///< UIS_CLEAR for UISF_HIDEFOCUS and UISF_HIDEACCEL
constexpr std::uint32_t kSetHiding = 0x30001;   ///< UIS_SET for both

void TellWindow(const Form& form, std::uint32_t wParam) {
    if (gWinVersion >= kWindows2000)
        platform::SendUpdateUiState(form.Window(), wParam);
}

} // namespace

void ReadKeyboardCues() {
    gKeyboardCues = gWinVersion < kWindows2000 || platform::GetKeyboardCues();
}

void ShowCaptionCue(Control& control) {
    control.SetCaption(control.Tag());
}

void HideCaptionCue(Control& control) {
    String caption = control.Tag();
    const std::size_t mark = caption.find(u'&');
    if (mark != String::npos)
        caption.erase(mark, 1);
    control.SetCaption(caption);
}

void ShowCues(Form& form, bool& bCueShown, CueLabels labels) {
    if (bCueShown)
        return;
    TellWindow(form, kClearHiding);
    for (const auto& control : form.Controls()) {
        const ControlKind kind = control->Kind();
        if (kind == ControlKind::Label && labels == CueLabels::kTakePart)
            ShowCaptionCue(*control);
        else if (kind == ControlKind::CommandButton || kind == ControlKind::CheckBox)
            control->SetCaption(control->Caption());
    }
    bCueShown = true;
}

void HideCues(Form& form, bool& bCueShown, CueLabels labels) {
    if (!bCueShown)
        return;
    TellWindow(form, kSetHiding);
    for (const auto& control : form.Controls()) {
        const ControlKind kind = control->Kind();
        if (kind == ControlKind::Label && labels == CueLabels::kTakePart)
            HideCaptionCue(*control);
        else if (kind == ControlKind::CommandButton || kind == ControlKind::CheckBox ||
                 kind == ControlKind::Frame)
            control->SetCaption(control->Caption());
    }
    bCueShown = false;
}

void TurnCues(ICue& form, bool bCueShown) {
    if (bCueShown)
        form.ICue_UnCue();
    else
        form.ICue_Cue();
}

} // namespace kestrelmoor

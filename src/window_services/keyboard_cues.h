#pragma once

#include "runtime/forms/form.h"
#include "window_services/ICue.h"

#include <cstdint>

namespace kestrelmoor {

/// Learns whether cues are always shown: by the system's setting, or because the system is older than
/// Windows 2000, which knows no hiding.
void ReadKeyboardCues();

/// The two hooks that show and hide the cues of the active form: any key shows them, a movement of the mouse
/// with no key held hides them. A hook that can't be set leaves the cues as they are.
void InstallCueHooks();
void RemoveCueHooks();

/// What the hooks run.
std::intptr_t KeyboardCueHook(int nCode, std::uintptr_t wParam, std::intptr_t lParam);
std::intptr_t MouseCueHook(int nCode, std::uintptr_t wParam, std::intptr_t lParam);

/// A label's caption from its tag, with the accelerator mark.
void ShowCaptionCue(Control& control);

/// The same without the first mark; a second one stays.
void HideCaptionCue(Control& control);

/// Whether the labels of a form take part in the passes below, or keep their captions.
enum class CueLabels { kTakePart, kKeepCaptions };

/// The showing pass over a form, where `bCueShown` says that its cues are hidden: labels get their marks,
/// buttons and check boxes repaint. The flag is set.
void ShowCues(Form& form, bool& bCueShown, CueLabels labels = CueLabels::kTakePart);

/// The hiding pass where the flag says that they are shown: as above without marks; frames repaint too. The
/// flag is cleared.
void HideCues(Form& form, bool& bCueShown, CueLabels labels = CueLabels::kTakePart);

/// Turns the cues of a form, so that new captions take over the state that is the inverse of the flag.
void TurnCues(ICue& form, bool bCueShown);

} // namespace kestrelmoor

#pragma once

#include "runtime/forms/form.h"

namespace kestrelmoor {

/// Learns whether cues are always shown: by the system's setting, or because the system is older than
/// Windows 2000, which knows no hiding.
void ReadKeyboardCues();

/// A label's caption from its tag, with the accelerator mark.
void ShowCaptionCue(Control& control);

/// The same without the first mark; a second one stays.
void HideCaptionCue(Control& control);

/// The showing pass over a form: labels get their marks, buttons and check boxes repaint.
void ShowCues(Form& form);

/// The hiding pass: as above without marks; frames repaint too.
void HideCues(Form& form);

} // namespace kestrelmoor

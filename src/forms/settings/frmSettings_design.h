#pragma once

#include "runtime/forms/design.h"

namespace kestrelmoor {

/// The settings window as designed, in English lengths: the row of the reminder is fitted to the language
/// when the window loads.
extern const FormDesign kfrmSettingsDesign;

} // namespace kestrelmoor

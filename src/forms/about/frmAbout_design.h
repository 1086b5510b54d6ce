#pragma once

#include "runtime/forms/design.h"

namespace kestrelmoor {

/// The about window as designed. The two lines under its band, "Line1" item 0 and item 1, are named
/// "Line1(0)" and "Line1(1)".
extern const FormDesign kfrmAboutDesign;

} // namespace kestrelmoor

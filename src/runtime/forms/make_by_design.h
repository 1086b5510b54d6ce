#pragma once

#include "runtime/forms/control.h"

namespace kestrelmoor {

/// The control that a row of a design table stands for. Raises 5 for a user control without a maker.
std::unique_ptr<Control> MakeByDesign(Form& form, const ControlDesign& design);

} // namespace kestrelmoor

#pragma once

#include "runtime/forms/design.h"

#include <span>

namespace kestrelmoor {

/// What the entry of a computer is made of, on a surface of 4800 by 1110 twips; its size decides the places.
extern const std::span<const ControlDesign> kctlAddComputerDesign;

} // namespace kestrelmoor

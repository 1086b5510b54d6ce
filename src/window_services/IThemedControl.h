#pragma once

#include "runtime/forms/geometry.h"

namespace kestrelmoor {

/// A control that colours itself and what it is made of.
class IThemedControl {
  public:
    virtual ~IThemedControl() = default;

    virtual void SetThemedColors(Colour ClrBtnFace, Colour ClrBtnText, Colour ClrWndBack,
                                 Colour ClrWndText) = 0;
};

} // namespace kestrelmoor

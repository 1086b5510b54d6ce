#pragma once

#include "platform/windows/form_window.h"
#include "runtime/forms/controls.h"

namespace kestrelmoor::platform {

/// A line or a shape: it has no window, the form's background shows it.
class GraphicPeer : public ControlPeer {
  public:
    explicit GraphicPeer(const FormWindow& form) : mForm(form) {}

    void Show(Property what) override;

  private:
    const FormWindow& mForm;
};

/// Draws the lines and shapes of a form, what comes first in its design on top. Lines run across or down.
void DrawGraphics(HDC context, const Form& form);

/// The colour that lies behind a label: of the shape that it stands in, else the form's.
Colour ColourBehind(const Label& label);

} // namespace kestrelmoor::platform

#pragma once

#include "platform/windows/control_window.h"
#include "runtime/forms/user_control.h"

namespace kestrelmoor::platform {

/// Holds other controls, whose messages it passes on to the form.
class ContainerWindow : public ControlWindow {
  protected:
    using ControlWindow::ControlWindow;
    LRESULT Process(UINT message, WPARAM wide, LPARAM parameter) override;
};

class FrameWindow : public ContainerWindow {
  public:
    FrameWindow(FormWindow& form, Control& frame);
};

/// A bare surface. A press on it, beside its constituents, gives it the focus.
class UserControlWindow : public ContainerWindow {
  public:
    UserControlWindow(FormWindow& form, UserControl& control);

    /// Its constituents' edges are rounded as places on the form, so they are placed anew with it.
    void ShowPlace() override;

  protected:
    LRESULT Process(UINT message, WPARAM wide, LPARAM parameter) override;
};

} // namespace kestrelmoor::platform

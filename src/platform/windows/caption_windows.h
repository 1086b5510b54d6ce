#pragma once

#include "platform/windows/control_window.h"
#include "runtime/forms/controls.h"

namespace kestrelmoor::platform {

/// Stands ahead of its box, and so on top of it. Where the design lets it run on behind a box it ends at that
/// box's edge.
class LabelWindow : public ControlWindow {
  public:
    LabelWindow(FormWindow& form, Label& label);
    HBRUSH Colours(HDC context, UINT question) const override;
    bool MeasureCaption(Twips& width, Twips& height) const override;

  protected:
    void ShowPlace() override;
};

class ButtonWindow : public ControlWindow {
  public:
    ButtonWindow(FormWindow& form, CommandButton& button);
    void Show(Property what) override;
    bool Reports(int code) const override { return code == BN_CLICKED; }
    void Notified(int code) override;
};

/// Its mark is the model's: a press is told there and comes back as a value to show.
class CheckWindow : public ControlWindow {
  public:
    CheckWindow(FormWindow& form, CheckBox& box);
    void Show(Property what) override;
    bool Reports(int code) const override { return code == BN_CLICKED; }
    void Notified(int code) override;
};

} // namespace kestrelmoor::platform

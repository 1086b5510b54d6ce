#pragma once

#include "platform/windows/control_window.h"
#include "runtime/forms/controls.h"

namespace kestrelmoor::platform {

class EditWindow : public ControlWindow {
  public:
    EditWindow(FormWindow& form, TextBox& box);

    void Show(Property what) override;
    bool ReadSelection(int& start, int& length) override;
    void ReplaceSelection(StringView text) override;
    bool Reports(int code) const override { return code == EN_CHANGE && !IsQuiet(); }
    void Notified(int code) override;
    HBRUSH Colours(HDC context, UINT question) const override;

  protected:
    void ShowFont() override;

  private:
    TextBox& Box() const { return static_cast<TextBox&>(Model()); }
    void ShowText();
    void ShowSelection() const;
    void ShowMask() const;
    void ShowBorder() const;
    void ShowMargins() const;
    void TurnInputMethodOff() const;
    String WindowText() const;
};

} // namespace kestrelmoor::platform

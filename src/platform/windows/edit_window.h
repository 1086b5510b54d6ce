#pragma once

#include "platform/windows/control_window.h"
#include "runtime/allowance.h"
#include "runtime/forms/controls.h"

#include <optional>

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
    LRESULT Process(UINT message, WPARAM wide, LPARAM parameter) override;
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
    bool CaretStandsAtEnd() const;
    void BringHeldTextIn();
    String TakeHeldText();

    std::optional<String> mHeldText; ///< what the end of the text still lacks in the window
    Allowance mShowings;
};

} // namespace kestrelmoor::platform

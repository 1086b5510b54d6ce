#pragma once

#include "runtime/forms/control.h"

#include <span>
#include <vector>

namespace kestrelmoor {

/// A control made of controls of its own, its constituents, which stand inside it. To its form it is one
/// control: its GotFocus and LostFocus are raised when the focus enters and leaves it as a whole, GotFocus
/// ahead of the constituent's and LostFocus behind it. The constituents' tab order lies at its own place.
class UserControl : public Control {
  public:
    /// The constituents' places are relative to the user control; their tab indices count among themselves.
    UserControl(Form& form, const ControlDesign& design, std::span<const ControlDesign> constituents);

    const std::vector<std::unique_ptr<Control>>& Constituents() const { return mConstituents; }

    /// The constituent of that name, which must be there (else 5) and of that kind.
    template <class Kind>
    Kind& Get(StringView name) {
        return dynamic_cast<Kind&>(Find(name));
    }
    Control& Find(StringView name) const;

    /// The constituent with the focus; null: none.
    Control* ActiveConstituent() const;

    /// One of its constituents can.
    bool CanTakeFocus() const override;

    Handler<> Resize; ///< its size has changed; also once as its form loads, ahead of Form_Load
    Handler<> Hide;   ///< it was visible and is no longer: by itself, with its container or with its form

  protected:
    Control* FocusTarget() override;
    void Moved(const Place& before) override;

  private:
    friend class Form;

    /// What is hidden just now; null: the form.
    void HiddenWith(const Control* gone);

    std::vector<std::unique_ptr<Control>> mConstituents;
};

} // namespace kestrelmoor

#pragma once

#include "runtime/forms/form.h"

#include <functional>
#include <memory>

namespace kestrelmoor::tests {

/// The hand of a user on the desktop that the tests run on. Each call returns when all that follows from the
/// input has happened. While one lives, the application has its desktop.
class Hand {
  public:
    Hand() = default;
    virtual ~Hand() = default;
    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;

    /// A key down and up with its shift state (key:: masks); Alt with a letter is an accelerator. Letters and
    /// digits are named by their capital's code and bring their character along.
    virtual void Press(int key, int shift = 0) = 0;
    virtual void Type(StringView text) = 0;

    /// A click of the left button in the middle of a control, or on a row of a list.
    virtual void ClickOn(Control& control) = 0;
    virtual void ChooseRow(ListBox& list, int row) = 0;

    /// A click on the mark of a row.
    virtual void ToggleRow(ListBox& list, int row) = 0;

    /// The close box.
    virtual void CloseWindow(Form& form) = 0;

    /// Handles events until none is left.
    virtual void Settle() = 0;

    /// Does `action` from the event loop, as soon as one waits for an event: this is how a test acts within a
    /// modal form. Actions are done in the order in which they were given.
    virtual void Later(std::function<void()> action) = 0;
};

/// The hand that the linker has chosen: on real windows, or on the model alone.
std::unique_ptr<Hand> MakeHand();

} // namespace kestrelmoor::tests

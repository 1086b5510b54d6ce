#pragma once

#include "runtime/forms/form.h"

namespace kestrelmoor::practice {

/// What a person does at the keyboard and with the mouse, reported to the forms as real windows would report
/// it, with what real windows do of their own accord: an edit takes characters, a button Space, a list
/// arrows. Each call is false where nothing can take the input: no form in front, or a control that is
/// hidden, disabled or behind a modal form.
class User {
  public:
    /// A key with its shift state (key:: masks) on the form in front; Alt with a letter or digit is an
    /// accelerator. Letters and digits bring their character along.
    bool Press(int key, int shift = 0);

    /// Character by character; a line feed is Return and a tab the Tab key.
    bool Type(StringView text);

    /// A click of the left button in the middle of the control, which comes to front with its form. In a user
    /// control it hits the constituent that lies there.
    bool ClickOn(Control& control);

    /// A click on a row of a list, which is scrolled to it first where it is out of view, or the choice of
    /// one in a drop-down list.
    bool ChooseRow(RowControl& list, int row);

    /// The window of a list is scrolled so that the row stands at its top, or as near as its rows reach.
    bool ScrollTo(ListBox& list, int top_row);

    /// The pointer goes to a place on the screen, in pixels, over the form in front. The control that lies
    /// there is told of the movement.
    bool MoveMouse(int x, int y);

    /// The same to the middle of a control.
    bool MoveOnto(const Control& control);

    /// A button of the mouse (1 left, 2 right, 4 middle) goes down in the middle of the control and is let go
    /// again; what the left one then clicks on is `ClickOn`.
    bool PressOn(Control& control, int button);

    /// A click on the check mark of a row.
    bool ToggleRow(ListBox& list, int row);

    /// The close box of the window.
    bool CloseWindow(Form& form);
};

} // namespace kestrelmoor::practice

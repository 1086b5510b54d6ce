#pragma once

#include "runtime/text.h"

#include <functional>
#include <string>
#include <vector>

namespace kestrelmoor::tests {

enum class ActionKind {
    Click,       ///< on a control
    DoubleClick, ///< two clicks on a control
    ChooseRow,   ///< of a list
    ToggleRow,   ///< the check mark of a row
    ScrollTo,    ///< a row to the top of a list
    Point,       ///< the mouse is moved onto a control
    Press,       ///< a key
    Type,        ///< a character
    CloseWindow, ///< the close box of the window in front
    Pick,        ///< a row of the dialog to browse, and its OK button
    CancelDialog,
};

/// One input of the person at the screen, at what stands in front.
struct UserAction {
    ActionKind kind;
    String control{};
    int number = 0; ///< row, key code or character
    int shift = 0;  ///< of a key

    bool operator==(const UserAction&) const = default;
};

/// "click cmdOK", "choose lstOldPass 1", "press 13" and the like, for a message.
std::string TextOf(const UserAction& action);

/// Every input that a person can make now: each control that can be used, each row, the keys that mean
/// something, a letter and a digit, the accelerators that captions mark, the close box.
std::vector<UserAction> PossibleActions();

/// Does it, and `between` the two clicks of a double click. False: nothing there can take it.
bool CarryOut(const UserAction& action, const std::function<void()>& between = {});

} // namespace kestrelmoor::tests

#pragma once

#include "runtime/text.h"

#include <windows.h>

namespace kestrelmoor::platform {

/// The tool tips of one form's controls, in a window of the system that is made with the first of them. A
/// system without such windows shows none.
class ToolTips {
  public:
    /// The window goes with its owner.
    explicit ToolTips(HWND owner = nullptr) : mOwner(owner) {}

    /// Empty: none.
    void Set(HWND control, const String& text);

    /// The mouse over a control; any other message is nothing to it.
    void Hear(HWND control, UINT message, WPARAM wide, LPARAM parameter) const;

  private:
    bool Make();

    HWND mOwner;
    HWND mWindow = nullptr;
};

} // namespace kestrelmoor::platform

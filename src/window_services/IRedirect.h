#pragma once

#include "runtime/forms/peer.h"

#include <cstdint>

namespace kestrelmoor {

/// A form that sees the messages of its window before the window does.
class IRedirect {
  public:
    virtual ~IRedirect() = default;

    /// `result` is what the window answers; it stays 0 for a handle that is not the form's own.
    virtual void WndProc(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam, std::intptr_t lParam,
                         std::intptr_t& result) = 0;
};

} // namespace kestrelmoor

#pragma once

#include "platform/visual_style.h"
#include "platform/window_messages.h"
#include "runtime/forms/form.h"

#include <map>

namespace kestrelmoor::practice {

/// An icon as it was loaded.
struct IconImage {
    int number = 0;
    int width = 0;
    int height = 0;

    bool operator==(const IconImage&) const = default;
};

/// The windows of all loaded forms and of their controls, and of the message boxes that are up.
class Windows {
  public:
    static Windows& Current();

    WindowHandle Add(Form& form);
    WindowHandle Add(Control& control);
    WindowHandle AddBox(); ///< a message box's, which is neither
    void Remove(WindowHandle window);

    /// Null: no such window, or none of that kind.
    Form* FindForm(WindowHandle window) const;
    Control* FindControl(WindowHandle window) const;

    /// The procedure that a window has now, under the number that the program knows it by; 0: no such
    /// window. What comes before a program's own one is `kOwnProcedure`.
    static constexpr platform::PreviousProcedure kOwnProcedure = 1;
    platform::PreviousProcedure Procedure(WindowHandle window) const;
    void SetProcedure(WindowHandle window, platform::PreviousProcedure procedure);

    /// Gives a window its small (0) or large (1) icon, which goes with it. What it had before comes back, and
    /// where there is no such window the icon itself.
    platform::OwnedIcon ExchangeIcon(WindowHandle window, std::uint32_t size, platform::OwnedIcon icon);

    /// The icon that a window bears; none: it has none.
    std::optional<IconImage> Icon(WindowHandle window, std::uint32_t size) const;

  private:
    struct Window {
        Form* form = nullptr;
        Control* control = nullptr;
        platform::PreviousProcedure procedure = kOwnProcedure;
        std::map<std::uint32_t, platform::OwnedIcon> icons;
    };
    WindowHandle Add(Window window);
    const Window* Find(WindowHandle window) const;

    std::map<WindowHandle, Window> mWindows;
    WindowHandle mLast = 0x10000;
};

/// Sends a message to a window as the system or another program does; the window's answer.
std::intptr_t DeliverMessage(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam = 0,
                             std::intptr_t lParam = 0);

} // namespace kestrelmoor::practice

#pragma once

#include "runtime/forms/peer.h"

#include <cstdint>
#include <optional>

namespace kestrelmoor::platform {

/// Messages to windows, and the procedure that receives a form's.

namespace window_message {
inline constexpr std::uint32_t kSetText = 12;       ///< lParam: a text that ends in NUL
inline constexpr std::uint32_t kGetText = 13;       ///< wParam: characters in the buffer of lParam, NUL too
inline constexpr std::uint32_t kGetTextLength = 14; ///< without the NUL
inline constexpr std::uint32_t kSysColorChange = 21;
inline constexpr std::uint32_t kSettingChange = 26;
inline constexpr std::uint32_t kKeyDown = 256;
inline constexpr std::uint32_t kThemeChanged = 794;
} // namespace window_message

/// A window procedure of the program's own, as the system is given it.
using WindowProcedure = std::intptr_t (*)(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam,
                                          std::intptr_t lParam);

/// A procedure that was there before, 0 for none.
using PreviousProcedure = std::uintptr_t;

/// SetWindowLongW, index -4: puts `procedure` in front of the window's own, and gives that one.
PreviousProcedure SetWindowProcedure(WindowHandle hWnd, WindowProcedure procedure);

/// SetWindowLongW, index -4: puts the previous one back.
void RestoreWindowProcedure(WindowHandle hWnd, PreviousProcedure previous);

std::intptr_t CallWindowProcW(PreviousProcedure previous, WindowHandle hWnd, std::uint32_t uMsg,
                              std::uintptr_t wParam, std::intptr_t lParam);

std::intptr_t SendMessageW(WindowHandle hWnd, std::uint32_t uMsg, std::uintptr_t wParam,
                           std::intptr_t lParam);

/// A rectangle in pixels.
struct PixelRectangle {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};

/// LB_GETITEMRECT: a row's place in its list's client area, also of one that is scrolled out. None: there is
/// no such row.
std::optional<PixelRectangle> GetListItemRectangle(WindowHandle hWndList, int row);

PixelRectangle GetClientRect(WindowHandle hWnd);

/// The two corners, from one window's client area to another's.
PixelRectangle MapWindowPoints(WindowHandle hWndFrom, WindowHandle hWndTo, const PixelRectangle& rectangle);

} // namespace kestrelmoor::platform

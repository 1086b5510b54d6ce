#pragma once

#include <windows.h>

#include <vector>

namespace kestrelmoor::platform {

/// Tab stops in the dialog units of the design, as the list must be given them with the font that it has now.
/// The stops stay where the design has them whatever the font and the resolution.
std::vector<int> StopsForFont(HWND list, const std::vector<int>& stops);

} // namespace kestrelmoor::platform

#pragma once

#include <optional>
#include <string_view>

namespace kestrelmoor::practice {

struct KeyStroke {
    int key = 0;
    int shift = 0;
};

/// The key of a name such as Enter, Shift+Tab, Alt+x, F1 or Up, case ignored; no value for any other text.
std::optional<KeyStroke> KeyOfName(std::string_view name);

} // namespace kestrelmoor::practice

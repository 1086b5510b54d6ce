#pragma once

#include <cstdint>

namespace kestrelmoor {

/// Lengths of the form model are twips, 1440 to the inch, in single precision. Pixels are the desktop's
/// affair: 15 twips to the pixel at 96 dots per inch.
using Twips = float;

/// Where a control stands in its container.
struct Place {
    Twips left = 0;
    Twips top = 0;
    Twips width = 0;
    Twips height = 0;
};

/// A colour: high bit clear 0x00BBGGRR, high bit set a reference to a system colour by its index.
using Colour = std::uint32_t;

namespace system_colour {
inline constexpr Colour kWindow = 0x80000005;
inline constexpr Colour kWindowText = 0x80000008;
inline constexpr Colour kButtonFace = 0x8000000F;
inline constexpr Colour kButtonText = 0x80000012;
} // namespace system_colour

} // namespace kestrelmoor

#pragma once

#include "platform/visual_style.h"
#include "runtime/forms/picture.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// Images: drawn, and made into picture objects.

inline constexpr std::uint32_t kDrawNormal = 3; ///< DI_NORMAL

/// Draws an icon into a device context with its corner at x, y. Width and height 0: the size that the image
/// has. No step of an animation, no brush behind it.
bool DrawIconEx(std::uintptr_t hDC, int x, int y, const OwnedIcon& icon, int nWidth, int nHeight,
                std::uint32_t nFlags);

inline constexpr std::uint32_t kIconPicture = 3; ///< PICTYPE_ICON: icons and mouse pointers

/// PICTDESC with an image of a single handle.
struct PictureDescription {
    std::uint32_t size = 20; ///< of the whole record
    std::uint32_t type = 0;
    std::uintptr_t image = 0;
};

/// An IPicture ({7BF80980-BF32-101A-8BBB-00AA00300CAB}) of that image. `bOwn`: the image goes with the
/// picture. The result is a COM result: below 0 failed, and there is no picture then. A system without the
/// call raises 53 or 453.
std::int32_t OleCreatePictureIndirect(const PictureDescription& description, bool bOwn,
                                      SharedPicture& picture);

} // namespace kestrelmoor::platform

#pragma once

#include "runtime/forms/picture.h"

#include <cstdint>

namespace kestrelmoor {

/// A picture object of an icon or a mouse pointer, which belongs to the picture from then on. None for no
/// handle, and none where it can't be made.
SharedPicture IconToPicture(std::uintptr_t hIcon, std::uint32_t nType);

} // namespace kestrelmoor

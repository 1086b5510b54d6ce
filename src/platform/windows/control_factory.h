#pragma once

#include "platform/windows/form_window.h"

namespace kestrelmoor::platform {

/// The peer of a control by its kind; null for a kind that has no window of its own.
std::unique_ptr<ControlPeer> MakeControlPeer(FormWindow& form, Control& control);

} // namespace kestrelmoor::platform

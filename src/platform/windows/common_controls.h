#pragma once

namespace kestrelmoor::platform {

/// Loads COMCTL32 once, ahead of the first box or window. By its plain name: only so does the manifest
/// decide which version comes, and the system never takes that one from the program's folder.
void LoadCommonControls() noexcept;

} // namespace kestrelmoor::platform

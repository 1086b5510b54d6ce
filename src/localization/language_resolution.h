#pragma once

#include <cstdint>

namespace kestrelmoor {

/// Brings up the library of a language, 0 for the automatic one: the chosen language falls back to the
/// automatic one, and that to English. False: `gLocalizer` and `gLocLibHandle` are set. True: nothing could
/// be brought up, the user has been told and `gLocalizer` is null. Callers set `gLocalizer` to null first.
bool LoadLocalization(std::int16_t nLang);

/// Sets `gHelpFile` to the library's help file in the program's folder, empty when there is no such file.
void FindHelpFile();

} // namespace kestrelmoor

#include "forms/about/show_about.h"

namespace kestrelmoor {

void (*ShowAbout)() = [] {};

} // namespace kestrelmoor

#include "forms/settings/show_settings.h"

namespace kestrelmoor {

void (*ShowSettings)(Form& owner) = [](Form& /*owner*/) {};

} // namespace kestrelmoor

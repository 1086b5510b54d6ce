// The one class of the library.
#ifndef KESTRELMOOR_LANGUAGES_LOCALIZER_H
#define KESTRELMOOR_LANGUAGES_LOCALIZER_H

#include <stdbool.h>
#include <stdint.h>

#include "languages/localization_abi.h"

// Hands out a new object as the interface asked for.
int32_t CreateLocalizer(const Guid* iid, void** out);

uint32_t LiveLocalizerCount(void);

bool IsSameGuid(const Guid* left, const Guid* right);

#endif

// Memory of the kinds that a library hands out. Each operation gives null when there is no memory left.
#ifndef KESTRELMOOR_LANGUAGES_ALLOCATION_H
#define KESTRELMOOR_LANGUAGES_ALLOCATION_H

#include <stdint.h>

#include "languages/localization_abi.h"
#include "languages/texts.h"

// Both belong to whoever receives them.
LocText NewText(TextSpan span);
LocArray* NewNumberArray(const uint16_t* numbers, uint32_t count);

void* NewObjectMemory(uint32_t size);
void FreeObjectMemory(void* memory);

#endif

#include <stdlib.h>
#include <string.h>

#include "languages/allocation.h"

enum { kFixedSizeFeature = 0x10 };

LocText NewText(TextSpan span) {
    uint32_t size = span.length * (uint32_t)sizeof(LocChar);
    uint32_t* block = malloc(sizeof(uint32_t) + size + sizeof(LocChar));
    if (!block) {
        return NULL;
    }
    LocText text = (LocText)(void*)(block + 1);
    *block = size;
    memcpy(text, span.units, size);
    text[span.length] = 0;
    return text;
}

LocArray* NewNumberArray(const uint16_t* numbers, uint32_t count) {
    size_t size = count * sizeof(uint16_t);
    LocArray* array = malloc(sizeof(LocArray) + size);
    if (!array) {
        return NULL;
    }
    *array = (LocArray){.dimensions = 1,
                        .features = kFixedSizeFeature,
                        .element_size = sizeof(uint16_t),
                        .data = array + 1,
                        .count = count,
                        .lower_bound = kFirstLanguage};
    memcpy(array->data, numbers, size);
    return array;
}

void* NewObjectMemory(uint32_t size) {
    return malloc(size);
}

void FreeObjectMemory(void* memory) {
    free(memory);
}

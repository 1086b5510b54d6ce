#include <windows.h>

#include "languages/allocation.h"

// The platform's own header of these two also declares the class factory, whose names are ours here.
__declspec(dllimport) LocText __stdcall SysAllocStringLen(const LocChar* text, UINT length);
__declspec(dllimport) LocArray* __stdcall SafeArrayCreateVector(USHORT type, LONG lower_bound, ULONG count);

enum { kSigned16BitNumbers = 2 };

LocText NewText(TextSpan span) {
    return SysAllocStringLen(span.units, span.length);
}

LocArray* NewNumberArray(const uint16_t* numbers, uint32_t count) {
    LocArray* array = SafeArrayCreateVector(kSigned16BitNumbers, kFirstLanguage, count);
    if (array) {
        for (uint32_t i = 0; i < count; ++i) {
            ((uint16_t*)array->data)[i] = numbers[i];
        }
    }
    return array;
}

void* NewObjectMemory(uint32_t size) {
    return HeapAlloc(GetProcessHeap(), 0, size);
}

void FreeObjectMemory(void* memory) {
    HeapFree(GetProcessHeap(), 0, memory);
}

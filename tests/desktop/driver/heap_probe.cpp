// A library for programs under test: a heap can be walked by its own process only. It allocates nothing.
#include "heap_probe.h"

namespace {

constexpr DWORD kMostHeaps = 64;

DWORD BytesIn(HANDLE heap) {
    DWORD bytes = 0;
    PROCESS_HEAP_ENTRY entry{};
    HeapLock(heap);
    while (HeapWalk(heap, &entry))
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0)
            bytes += entry.cbData;
    HeapUnlock(heap);
    return bytes;
}

} // namespace

extern "C" __declspec(dllexport) DWORD WINAPI MeasureHeaps(HeapUse* use) {
    HANDLE heaps[kMostHeaps];
    const DWORD count = GetProcessHeaps(kMostHeaps, heaps);
    *use = {};
    for (DWORD i = 0; i < count && i < kMostHeaps; ++i)
        (heaps[i] == GetProcessHeap() ? use->common : use->own) += BytesIn(heaps[i]);
    return count;
}

#pragma once

#include <windows.h>

/// Bytes that the blocks of a process's heaps hold.
struct HeapUse {
    DWORD own;    ///< of the heaps made for it: that of its run-time library is one
    DWORD common; ///< of the heap that the system's libraries share with it
};

/// Exported by heap_probe.dll: measures the process that has loaded it. Gives how many heaps there are.
inline constexpr char kMeasureHeaps[] = "MeasureHeaps";

#include "process_memory.h"

#include <winternl.h>

#include <cstddef>
#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

constexpr auto kSystemHandles = static_cast<SYSTEM_INFORMATION_CLASS>(16);
constexpr NTSTATUS kTooSmall = static_cast<NTSTATUS>(0xC0000004);

struct HandleEntry {
    ULONG process;
    UCHAR type;
    UCHAR flags;
    USHORT handle;
    void* object;
    ULONG access;
};
struct HandleTable {
    ULONG count;
    HandleEntry entries[1];
};

} // namespace

long long CountKernelHandles(DWORD process) {
    using Query = NTSTATUS(NTAPI*)(SYSTEM_INFORMATION_CLASS, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<std::max_align_t> memory(4096);
    NTSTATUS status = kTooSmall;
    while (query != nullptr && status == kTooSmall) {
        memory.resize(memory.size() * 2);
        status = query(kSystemHandles, memory.data(), static_cast<ULONG>(memory.size() * sizeof memory[0]),
                       nullptr);
    }
    if (status < 0)
        throw std::runtime_error("the system does not list its handles");
    const auto* table = reinterpret_cast<const HandleTable*>(memory.data());
    long long count = 0;
    for (ULONG i = 0; i < table->count; ++i)
        count += table->entries[i].process == process;
    return count;
}

} // namespace kestrelmoor::driver

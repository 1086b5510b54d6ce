#include "process_memory.h"

#include "commands.h"

#include <winternl.h>

#include <stdexcept>

namespace kestrelmoor::driver {

namespace {

// Where a 32-bit process environment block keeps the address of the GDI handle table, and the table's shape.
constexpr std::size_t kTablePlace = 0x94;
constexpr std::size_t kTableSize = 65536;
struct TableEntry {
    unsigned long long object;
    unsigned long owner;
    unsigned short generation;
    unsigned char type;
    unsigned char flags;
    unsigned long long user_pointer;
};
static_assert(sizeof(TableEntry) == 24);

} // namespace

void* EnvironmentBlock(HANDLE process) {
    using Query = NTSTATUS(NTAPI*)(HANDLE, PROCESSINFOCLASS, void*, ULONG, ULONG*);
    const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationProcess")));
    PROCESS_BASIC_INFORMATION information{};
    if (query == nullptr ||
        query(process, ProcessBasicInformation, &information, sizeof information, nullptr) < 0)
        throw std::runtime_error("the process tells nothing of itself");
    return information.PebBaseAddress;
}

long long CountGdiObjects(HANDLE process) {
    const char* block = static_cast<const char*>(EnvironmentBlock(process));
    const void* table = nullptr;
    if (!ReadProcessMemory(process, block + kTablePlace, &table, sizeof table, nullptr))
        FailWithLastError("ReadProcessMemory of the environment block");
    std::vector<TableEntry> entries(kTableSize);
    if (!ReadProcessMemory(process, table, entries.data(), entries.size() * sizeof(TableEntry), nullptr))
        FailWithLastError("ReadProcessMemory of the handle table");
    long long count = 0;
    for (const TableEntry& entry : entries)
        count += entry.type != 0;
    return count;
}

} // namespace kestrelmoor::driver

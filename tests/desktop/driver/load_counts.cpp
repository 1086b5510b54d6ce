#include "process_memory.h"

#include "commands.h"

namespace kestrelmoor::driver {

namespace {

// Where a 32-bit process keeps the chain of its libraries, and in each link how often it has been loaded.
constexpr std::size_t kLoaderPlace = 0x0C;
constexpr std::size_t kChainPlace = 0x0C;
constexpr std::size_t kBasePlace = 0x18;
constexpr std::size_t kCountPlace = 0x38;
constexpr DWORD kForGood = 0xFFFF;

DWORD ReadAt(HANDLE process, DWORD address) {
    DWORD number = 0;
    if (!ReadProcessMemory(process, reinterpret_cast<const void*>(ULONG_PTR{address}), &number, sizeof number,
                           nullptr))
        FailWithLastError("ReadProcessMemory of the loaded libraries");
    return number;
}

} // namespace

std::map<HMODULE, DWORD> LoadCounts(HANDLE process) {
    const auto block = static_cast<DWORD>(Number(EnvironmentBlock(process)));
    const DWORD head = ReadAt(process, block + kLoaderPlace) + kChainPlace;
    std::map<HMODULE, DWORD> counts;
    for (DWORD link = ReadAt(process, head); link != head; link = ReadAt(process, link)) {
        const DWORD count = ReadAt(process, link + kCountPlace) & 0xFFFF;
        const auto module = reinterpret_cast<HMODULE>(ULONG_PTR{ReadAt(process, link + kBasePlace)});
        counts[module] = count == kForGood ? 0 : count;
    }
    return counts;
}

} // namespace kestrelmoor::driver

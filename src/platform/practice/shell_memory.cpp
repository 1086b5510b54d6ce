#include "platform/practice/shell_memory.h"

#include "platform/practice/world/world.h"

#include <algorithm>
#include <memory>

namespace kestrelmoor::practice {

namespace {

using Block = std::shared_ptr<std::uint8_t[]>;

constexpr std::uint8_t kOldByte = 0xCD;

} // namespace

// Exactly as large as asked for, so that a sanitizer sees a step beyond its end, and never empty of old
// bytes.
std::uint8_t* NewShellMemory(std::size_t size) {
    Block block(new std::uint8_t[size]);
    std::fill_n(block.get(), size, kOldByte);
    std::uint8_t* const memory = block.get();
    TheWorld().handles.OpenAt(HandleKind::ShellMemory, reinterpret_cast<std::uintptr_t>(memory),
                              std::move(block));
    return memory;
}

std::uint8_t* NewShellMemory(std::span<const std::uint8_t> bytes) {
    std::uint8_t* const memory = NewShellMemory(bytes.size());
    std::copy(bytes.begin(), bytes.end(), memory);
    return memory;
}

void FreeShellMemory(const void* memory) {
    if (memory)
        TheWorld().handles.Close(HandleKind::ShellMemory, reinterpret_cast<std::uintptr_t>(memory));
}

} // namespace kestrelmoor::practice

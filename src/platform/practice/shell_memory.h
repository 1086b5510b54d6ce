#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace kestrelmoor::practice {

/// Memory of the shell's allocator, as many bytes as asked for and all of them 0. Until it is given back it
/// is among the handles of the world.
std::uint8_t* NewShellMemory(std::size_t size);

/// The same with a copy of `bytes` in it.
std::uint8_t* NewShellMemory(std::span<const std::uint8_t> bytes);

/// Gives it back; null is nothing to give back.
void FreeShellMemory(const void* memory);

} // namespace kestrelmoor::practice

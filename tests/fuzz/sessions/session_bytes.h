#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace kestrelmoor::fuzz {

/// The bytes of an input, taken one after the other. Behind the last there are noughts.
class SessionBytes {
  public:
    explicit SessionBytes(std::span<const std::uint8_t> bytes) : mBytes(bytes) {}

    bool AtEnd() const { return mBytes.empty(); }

    std::uint8_t Next() {
        if (mBytes.empty())
            return 0;
        const std::uint8_t byte = mBytes.front();
        mBytes = mBytes.subspan(1);
        return byte;
    }

    /// Below `count`.
    std::size_t Below(std::size_t count) { return Next() % count; }

    /// A byte's lowest bit.
    bool Flag() { return (Next() & 1) != 0; }

    template <class Type, std::size_t Count>
    const Type& Of(const Type (&choices)[Count]) {
        return choices[Below(Count)];
    }

  private:
    std::span<const std::uint8_t> mBytes;
};

} // namespace kestrelmoor::fuzz

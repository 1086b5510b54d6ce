#pragma once

#include "runtime/text.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace kestrelmoor::practice {

/// A security identifier in the platform's layout: revision, count, six bytes of authority (the highest
/// first), then the sub-authorities (the lowest byte first).
using SidBytes = std::vector<std::uint8_t>;

inline constexpr std::size_t kSidCountOffset = 1;
inline constexpr std::size_t kSidAuthorityOffset = 2;
inline constexpr std::size_t kSidSubAuthoritiesOffset = 8;

/// The identifier of a text such as S-1-5-21-10-20-30-1001, with up to 15 sub-authorities; no value for any
/// other text.
std::optional<SidBytes> SidOfText(StringView text);

/// Bytes that the identifier at an address takes.
std::size_t SidSize(const void* sid);

} // namespace kestrelmoor::practice

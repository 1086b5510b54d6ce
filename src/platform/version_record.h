#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor::platform {

/// What the executable's own version record says. A field that it lacks, or a record that can't be read, is
/// empty or 0.
struct VersionRecord {
    String title;        ///< ProductName
    String legal_notice; ///< LegalCopyright
    std::uint16_t major = 0;
    std::uint16_t minor = 0;
    std::uint16_t revision = 0; ///< the last of the file version's four numbers; the third is not used

    bool operator==(const VersionRecord&) const = default;
};

VersionRecord ReadVersionRecord();

} // namespace kestrelmoor::platform

#pragma once

#include "forms/settings/modBrowse.h"
#include "tests/native/support/program_test.h"

namespace kestrelmoor::tests {

inline constexpr WindowHandle kBrowseOwner = 77;
inline constexpr std::uint32_t kUnspecified = 0x80004005; ///< the failure that says nothing

/// A network with a domain and computers in every shape that the shell has for them:
///
///     Whole       PRACTICE (a domain, with the computer DC1), DEEP (not described)
///     ARCHIVE     a computer with the share Shelf
///     GROUP       a domain
///     SPARE       not described; its name gives another item
///     LONELY      not described; its name gives itself
///     Printer     neither
class BrowseNetwork : public ProgramTest {
  protected:
    BrowseNetwork();
    ~BrowseNetwork() override;

    static constexpr std::uint16_t kWhole = 0, kArchive = 1, kGroup = 2, kSpare = 3, kHiddenSpare = 4,
                                   kLonely = 5, kPrinter = 6;

    practice::ShellItem& At(std::uint16_t number) { return world.shell.network.items[number]; }

    /// What a browse holds while it runs: the allocator and the root.
    void Begin();
};

} // namespace kestrelmoor::tests

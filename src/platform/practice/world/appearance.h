#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace kestrelmoor::practice {

/// How the screen looks: the visual style, the colours (0x00BBGGRR by the index of the system colour) and the
/// measures in pixels. A new world has the plain look, without a style.
struct Appearance {
    bool library_present = true;           ///< the library of styles can be bound
    std::set<std::string> missing_entries; ///< entries that it lacks
    bool app_themed = false;
    bool theme_active = false;
    std::uint32_t app_properties = 7;           ///< bit 0: the frames of windows as well
    std::map<int, std::uint32_t> theme_colours; ///< a colour that the style leaves out is the system's
    std::map<int, std::uint32_t> system_colours{{5, 0xFFFFFF},  {8, 0},         {13, 0xD77800},
                                                {15, 0xF0F0F0}, {16, 0xA0A0A0}, {17, 0x6D6D6D},
                                                {18, 0},        {20, 0xFFFFFF}, {26, 0xCC6600}};
    std::map<int, int> metrics{{11, 32}, {12, 32}, {49, 16}, {50, 16}};
    std::vector<int> icons{1}; ///< the program's own images that can be loaded

    bool operator==(const Appearance&) const = default;
};

} // namespace kestrelmoor::practice

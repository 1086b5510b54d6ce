#pragma once

#include <type_traits>

/// What a changed source asks at each of its points: is this the change that is tried? Every asking is noted,
/// so that a test is known by the points that it reaches. A constant expression is never changed.
namespace kestrelmoor::mutant {

inline constexpr unsigned kMost = 1U << 16U;

/// The change that is tried; none: 0.
inline unsigned active = 0;

inline unsigned char own_notes[kMost] = {};
/// One byte for each number. They may lie where other processes of the same test see them.
inline unsigned char* notes = own_notes;

inline bool Ask(unsigned number) {
    notes[number] = 1;
    return number == active;
}

constexpr bool On(unsigned number) {
    return !std::is_constant_evaluated() && Ask(number);
}

/// A number, a character or a name of an enumeration, one higher when the change is tried.
template <class T>
constexpr T Plus(unsigned number, T value) {
    if constexpr (std::is_enum_v<T>)
        return On(number) ? static_cast<T>(static_cast<std::underlying_type_t<T>>(value) + 1) : value;
    else
        return On(number) ? static_cast<T>(value + 1) : value;
}

} // namespace kestrelmoor::mutant

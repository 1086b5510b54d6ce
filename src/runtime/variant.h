#pragma once

#include "runtime/dates.h"
#include "runtime/text.h"

#include <cstdint>
#include <variant>

namespace kestrelmoor {

/// A value of an automation object, whose kind is known only when it comes.
struct NullValue { ///< there, and says nothing
    bool operator==(const NullValue&) const = default;
};
struct DateValue {
    Date date = 0;
    bool operator==(const DateValue&) const = default;
};
struct ForeignValue { ///< an object, an array or an error: nothing that can be converted
    bool operator==(const ForeignValue&) const = default;
};
using Variant = std::variant<std::monostate, ///< never set
                             NullValue, bool, std::int32_t, double, DateValue, String, ForeignValue>;

/// As a signed 32-bit number: never set 0, true -1, a fraction rounded to even, a text as by `ToInteger32`.
/// Raises 94 for null, 13 for what is no number and 6 for what doesn't fit.
std::int32_t ToInteger32(const Variant& value);

/// As a truth: never set and null are false, a number is true unless 0, a text is "True", "False" or a
/// number. Raises 13 for anything else.
bool ToBoolean(const Variant& value);

/// As a floating number, a date as its days: never set 0. Raises 94 for null and 13 for what is no number.
double ToDouble(const Variant& value);

} // namespace kestrelmoor

#pragma once

#include "runtime/text.h"

#include <cstdint>
#include <optional>

namespace kestrelmoor {

/// Text to a signed 16-bit number: decimal with sign, fraction and exponent, or `&H409` for hexadecimal
/// (and `&O` for octal); blanks around it don't count; a fraction is rounded to the nearest whole number, a
/// half to the even one. Raises 13 for a text that is no number and 6 for one outside -32768 to 32767.
std::int16_t ToInteger16(StringView text);

/// The same for a signed 32-bit number.
std::int32_t ToInteger32(StringView text);

/// The same for a floating number, unrounded. Raises 13 for a text that is no number and 6 for one beyond all
/// sizes.
double ToDouble(StringView text);

/// Whether the whole text is a number in the sense of `ToInteger32`, whatever its size.
bool IsNumeric(StringView text);

/// The number that the leading characters form, 0 when there is none. Blanks, tabs and line feeds between
/// the characters don't count.
double LeadingNumber(StringView text);

/// The nearest whole number, a half to the even neighbour.
double RoundToEven(double value);

/// `value` as a signed 32-bit number, rounded to even. Raises 6 when it doesn't fit.
std::int32_t RoundToInteger32(double value);

/// `value` as a signed 16-bit number. Raises 6 when it doesn't fit.
std::int16_t Integer16(std::int64_t value);

/// Decimal digits, with a minus sign for a negative number.
String DecimalText(std::int64_t value);

/// Decimal digits with leading zeros up to `digits`: the formats "0", "00" and "000" for 1, 2 and 3.
String PaddedText(std::int64_t value, std::size_t digits);

/// A single-precision number with at most seven significant digits and a period: "13.5", "-0.25". Below
/// 0.0001 and from 10,000,000 on with an exponent: "1.5E-05".
String SingleText(float value);

/// Hexadecimal digits in capitals, without leading zeros.
String HexText(std::uint32_t value);

/// "True" or "False".
String BooleanText(bool value);

} // namespace kestrelmoor

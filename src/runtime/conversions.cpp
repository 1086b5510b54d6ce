#include "runtime/conversions.h"

#include "runtime/errors.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace kestrelmoor {

namespace {

bool IsDigit(char16_t unit) {
    return unit >= u'0' && unit <= u'9';
}

bool IsSpace(char16_t unit) {
    return unit == u' ' || (unit >= u'\t' && unit <= u'\r');
}

StringView TrimSpaces(StringView text) {
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::size_t CountDigits(StringView text, std::size_t from) {
    std::size_t end = from;
    while (end < text.size() && IsDigit(text[end]))
        ++end;
    return end - from;
}

/// Length of the decimal number at the front: sign, digits with a period among them, exponent. 0: none.
std::size_t DecimalLength(StringView text) {
    std::size_t at = !text.empty() && (text[0] == u'-' || text[0] == u'+') ? 1 : 0;
    std::size_t digits = CountDigits(text, at);
    at += digits;
    if (at < text.size() && text[at] == u'.') {
        const std::size_t fraction = CountDigits(text, at + 1);
        digits += fraction;
        at += 1 + fraction;
    }
    if (digits == 0)
        return 0;
    if (at < text.size() && (text[at] == u'e' || text[at] == u'E' || text[at] == u'd' || text[at] == u'D')) {
        std::size_t exponent = at + 1;
        if (exponent < text.size() && (text[exponent] == u'-' || text[exponent] == u'+'))
            ++exponent;
        const std::size_t exponent_digits = CountDigits(text, exponent);
        if (exponent_digits != 0)
            at = exponent + exponent_digits;
    }
    return at;
}

/// The value of what `DecimalLength` has measured. Only ASCII is left in such a text.
double DecimalValue(StringView text) {
    std::string digits;
    digits.reserve(text.size());
    for (const char16_t unit : text)
        digits.push_back(unit == u'd' || unit == u'D' ? 'e' : static_cast<char>(unit));
    return std::strtod(digits.c_str(), nullptr);
}

std::optional<unsigned> DigitValue(char16_t unit, unsigned base) {
    unsigned value = base;
    if (IsDigit(unit))
        value = static_cast<unsigned>(unit - u'0');
    else if (unit >= u'a' && unit <= u'f')
        value = static_cast<unsigned>(unit - u'a') + 10;
    return value < base ? std::optional<unsigned>(value) : std::nullopt;
}

/// The digits behind `&H` or `&O`. A value of up to 16 bits is the pattern of a 16-bit number, a larger one
/// that of a 32-bit number, so `&HFFFF` is -1. No value: not of this notation; not-a-number: too large.
std::optional<double> NotationValue(StringView text) {
    const String lower = LowerAscii(text);
    if (lower.size() < 3 || lower[0] != u'&' || (lower[1] != u'h' && lower[1] != u'o'))
        return std::nullopt;
    const unsigned base = lower[1] == u'h' ? 16 : 8;
    std::uint64_t value = 0;
    for (std::size_t i = 2; i < lower.size(); ++i) {
        const std::optional<unsigned> digit = DigitValue(lower[i], base);
        if (!digit)
            return std::nullopt;
        value = value * base + *digit;
        if (value > std::numeric_limits<std::uint32_t>::max())
            return std::numeric_limits<double>::quiet_NaN();
    }
    if (value <= std::numeric_limits<std::uint16_t>::max())
        return static_cast<double>(static_cast<std::int16_t>(value));
    return static_cast<double>(static_cast<std::int32_t>(value));
}

/// The value of a text that is a number as a whole; not-a-number for one beyond all sizes.
std::optional<double> WholeNumber(StringView text) {
    text = TrimSpaces(text);
    if (const std::optional<double> value = NotationValue(text))
        return value;
    if (text.empty() || DecimalLength(text) != text.size())
        return std::nullopt;
    return DecimalValue(text);
}

double ToWholeWithin(StringView text, double least, double most) {
    const std::optional<double> value = WholeNumber(text);
    if (!value)
        RaiseError(error_number::kTypeMismatch);
    const double whole = RoundToEven(*value);
    if (!(whole >= least && whole <= most))
        RaiseError(error_number::kOverflow);
    return whole;
}

constexpr int kSingleDigits = 7; ///< what a single-precision number holds for certain
constexpr int kLeastPlainExponent = -4;

/// The digits of a number, the first of which stands for ten to the exponent; none of the last ones is 0.
struct SignificantDigits {
    String digits;
    int exponent = 0;
};

SignificantDigits DigitsOf(double magnitude) {
    if (magnitude == 0)
        return {u"0", 0};
    int exponent = 0;
    for (; magnitude >= 10; ++exponent)
        magnitude /= 10;
    for (; magnitude < 1; --exponent)
        magnitude *= 10;
    const std::int32_t number = RoundToInteger32(magnitude * 1E6);
    if (number == 10'000'000)
        ++exponent;
    String digits = DecimalText(number);
    digits.resize(digits.find_last_not_of(u'0') + 1);
    return {std::move(digits), exponent};
}

/// Puts the period behind the first `whole` digits, or zeros in the place of those that are missing.
void PlacePeriod(String& digits, std::size_t whole) {
    if (digits.size() > whole)
        digits.insert(whole, 1, u'.');
    else
        digits.append(whole - digits.size(), u'0');
}

} // namespace

std::int16_t ToInteger16(StringView text) {
    return static_cast<std::int16_t>(ToWholeWithin(text, -32768.0, 32767.0));
}

std::int32_t ToInteger32(StringView text) {
    return static_cast<std::int32_t>(ToWholeWithin(text, -2147483648.0, 2147483647.0));
}

double ToDouble(StringView text) {
    const std::optional<double> value = WholeNumber(text);
    if (!value)
        RaiseError(error_number::kTypeMismatch);
    if (!std::isfinite(*value))
        RaiseError(error_number::kOverflow);
    return *value;
}

bool IsNumeric(StringView text) {
    return WholeNumber(text).has_value();
}

double LeadingNumber(StringView text) {
    String packed;
    for (const char16_t unit : text)
        if (unit != u' ' && unit != u'\t' && unit != u'\n')
            packed.push_back(unit);
    return DecimalValue(StringView(packed).substr(0, DecimalLength(packed)));
}

double RoundToEven(double value) {
    const double below = std::floor(value);
    const double rest = value - below;
    if (rest < 0.5)
        return below;
    if (rest > 0.5)
        return below + 1;
    return std::fmod(below, 2.0) == 0.0 ? below : below + 1;
}

std::int32_t RoundToInteger32(double value) {
    const double whole = RoundToEven(value);
    if (!(whole >= -2147483648.0 && whole <= 2147483647.0))
        RaiseError(error_number::kOverflow);
    return static_cast<std::int32_t>(whole);
}

std::int16_t Integer16(std::int64_t value) {
    const auto narrow = static_cast<std::int16_t>(value);
    if (narrow != value)
        RaiseError(error_number::kOverflow);
    return narrow;
}

String DecimalText(std::int64_t value) {
    return PaddedText(value, 1);
}

String PaddedText(std::int64_t value, std::size_t digits) {
    auto rest = static_cast<std::uint64_t>(value);
    if (value < 0)
        rest = 0 - rest;
    String reversed;
    do {
        reversed.push_back(static_cast<char16_t>(u'0' + rest % 10));
        rest /= 10;
    } while (rest != 0);
    while (reversed.size() < digits)
        reversed.push_back(u'0');
    if (value < 0)
        reversed.push_back(u'-');
    return {reversed.rbegin(), reversed.rend()};
}

String SingleText(float value) {
    if (std::isnan(value))
        return u"NaN";
    String text(std::signbit(value) && value != 0 ? u"-" : u"");
    if (std::isinf(value))
        return text + u"Infinity";
    auto [digits, exponent] = DigitsOf(std::fabs(value));
    if (exponent < kLeastPlainExponent || exponent >= kSingleDigits) {
        PlacePeriod(digits, 1);
        digits += exponent < 0 ? u"E-" : u"E+";
        digits += PaddedText(std::abs(exponent), 2);
    } else {
        digits.insert(0, static_cast<std::size_t>(std::max(0, -exponent)), u'0');
        PlacePeriod(digits, static_cast<std::size_t>(std::max(0, exponent)) + 1);
    }
    return text += digits;
}

String HexText(std::uint32_t value) {
    String reversed;
    do {
        reversed.push_back(u"0123456789ABCDEF"[value % 16]);
        value /= 16;
    } while (value != 0);
    return {reversed.rbegin(), reversed.rend()};
}

String BooleanText(bool value) {
    return value ? u"True" : u"False";
}

} // namespace kestrelmoor

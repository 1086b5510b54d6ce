#include "runtime/variant.h"

#include "runtime/conversions.h"
#include "runtime/errors.h"

namespace kestrelmoor {

namespace {

struct Number32 {
    std::int32_t operator()(std::monostate) const { return 0; }
    std::int32_t operator()(NullValue) const { RaiseError(error_number::kInvalidNull); }
    std::int32_t operator()(bool value) const { return value ? -1 : 0; }
    std::int32_t operator()(std::int32_t value) const { return value; }
    std::int32_t operator()(double value) const { return RoundToInteger32(value); }
    std::int32_t operator()(DateValue value) const { return RoundToInteger32(value.date); }
    std::int32_t operator()(const String& text) const { return ToInteger32(StringView(text)); }
    std::int32_t operator()(ForeignValue) const { RaiseError(error_number::kTypeMismatch); }
};

struct Truth {
    bool operator()(std::monostate) const { return false; }
    bool operator()(NullValue) const { return false; }
    bool operator()(bool value) const { return value; }
    bool operator()(std::int32_t value) const { return value != 0; }
    bool operator()(double value) const { return value != 0; }
    bool operator()(DateValue value) const { return value.date != 0; }
    bool operator()(const String& text) const {
        const String word = LowerAscii(text);
        return word == u"true" || (word != u"false" && ToDouble(StringView(text)) != 0);
    }
    bool operator()(ForeignValue) const { RaiseError(error_number::kTypeMismatch); }
};

struct Floating {
    double operator()(std::monostate) const { return 0; }
    double operator()(NullValue) const { RaiseError(error_number::kInvalidNull); }
    double operator()(bool value) const { return value ? -1 : 0; }
    double operator()(std::int32_t value) const { return value; }
    double operator()(double value) const { return value; }
    double operator()(DateValue value) const { return value.date; }
    double operator()(const String& text) const { return ToDouble(StringView(text)); }
    double operator()(ForeignValue) const { RaiseError(error_number::kTypeMismatch); }
};

} // namespace

std::int32_t ToInteger32(const Variant& value) {
    return std::visit(Number32(), value);
}

bool ToBoolean(const Variant& value) {
    return std::visit(Truth(), value);
}

double ToDouble(const Variant& value) {
    return std::visit(Floating(), value);
}

} // namespace kestrelmoor

#include "runtime/errors.h"

#include "runtime/conversions.h"

#include <utility>

namespace kestrelmoor {

namespace {

constexpr std::int32_t kSystemCodeBase = static_cast<std::int32_t>(0x80070000U);

struct Described {
    std::int32_t number;
    const char16_t* description;
};

constexpr Described kDescriptions[] = {
    {error_number::kInvalidArgument, u"Invalid procedure call or argument"},
    {error_number::kOverflow, u"Overflow"},
    {error_number::kOutOfMemory, u"Out of memory"},
    {error_number::kSubscript, u"Subscript out of range"},
    {error_number::kTypeMismatch, u"Type mismatch"},
    {error_number::kFileNotFound, u"File not found"},
    {error_number::kPermissionDenied, u"Permission denied"},
    {error_number::kPathNotFound, u"Path not found"},
    {error_number::kObjectNotSet, u"Object variable not set"},
    {error_number::kInvalidNull, u"Invalid use of null"},
    {error_number::kInvalidPropertyValue, u"Invalid property value"},
    {error_number::kInvalidPropertyIndex, u"Invalid property array index"},
    {error_number::kNoSuchMember, u"Object doesn't support this property or method"},
    {error_number::kEntryNotFound, u"Specified DLL function not found"},
};

} // namespace

RuntimeError::RuntimeError(std::int32_t number, String source, String description)
    : mNumber(number), mSource(std::move(source)), mDescription(std::move(description)),
      mWhat("Run-time error " + ToUtf8(DecimalText(number)) + ": " + ToUtf8(mDescription)) {}

void RaiseError(std::int32_t number) {
    throw RuntimeError(number, u"Kestrelmoor", ErrorDescription(number));
}

String ErrorDescription(std::int32_t number) {
    for (const Described& entry : kDescriptions)
        if (entry.number == number)
            return entry.description;
    return u"Automation error";
}

std::int32_t ErrorNumberOfComResult(std::int32_t result) {
    switch (static_cast<std::uint32_t>(result)) {
    case 0x80070005U:
        return error_number::kPermissionDenied;
    case 0x8007000EU:
        return error_number::kOutOfMemory;
    case 0x80070057U:
        return error_number::kInvalidArgument;
    default:
        return result;
    }
}

void RaiseIfFailed(std::int32_t result) {
    if (result < 0)
        RaiseError(ErrorNumberOfComResult(result));
}

std::int32_t ErrorNumberOfSystemCode(std::uint32_t code) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(kSystemCodeBase) + code);
}

} // namespace kestrelmoor

#pragma once

#include "runtime/text.h"

#include <cstdint>

namespace kestrelmoor {

/// The finished text of a message: the library's words with `%1` to `%9` replaced by the arguments and `%%`
/// by a percent sign. A number that the library doesn't know costs a box with the reason and gives an empty
/// text; nothing else can fail.
String LoadMessage(std::int16_t nNumber, const StringList& aArgs);

/// The placeholders of `sText` replaced. One digit is read; what stands behind a percent sign and names no
/// argument stays as it is, and an argument is not looked at again.
String FillPlaceholders(String sText, const StringList& aArgs);

/// The system's words for an error code, empty when it has none.
String GetSystemErrorText(std::uint32_t nCode);

/// The text for the user of a failed call: code and system text, and the call's name when diagnosing.
String FormatApiError(std::uint32_t nCode, const String& sApiName);

} // namespace kestrelmoor

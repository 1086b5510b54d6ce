#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrelmoor {

/// Every text of the program: counted UTF-16, as the platform has it. An unpaired surrogate is legal
/// content (a password may hold one) and passes through unchanged.
using String = std::u16string;
using StringView = std::u16string_view;
using StringList = std::vector<String>;

/// UTF-8 of a text, for files and terminals. An unpaired surrogate becomes U+FFFD.
std::string ToUtf8(StringView text);

/// The text of UTF-8 bytes. Each byte that begins no well-formed sequence becomes U+FFFD.
String FromUtf8(std::string_view bytes);

/// Without the blanks (32, and no other space) at both ends.
StringView TrimBlanks(StringView text);

/// With A to Z made small, all else as it stands. For switches and hexadecimal digits, not for names:
/// comparing names is the platform's affair (platform/collation.h).
String LowerAscii(StringView text);

/// Up to, and without, the first NUL.
String TrimAtNul(StringView text);

/// `sPath` with a backslash added unless it ends in one; an empty path becomes a single backslash.
String AddBackslash(StringView sPath);

/// The pieces between the separators, always one more than there are separators.
StringList Split(StringView text, char16_t separator);

/// The pieces with the separator between each two.
String Join(const StringList& pieces, char16_t separator);

/// `text` between two quotation marks, as the log shows the arguments of a call.
String Quoted(StringView text);

} // namespace kestrelmoor

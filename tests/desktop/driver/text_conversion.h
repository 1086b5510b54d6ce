#pragma once

#include <string>

namespace kestrelmoor::driver {

/// The protocol speaks UTF-8, Windows speaks UTF-16. Lone surrogates pass as U+FFFD.
std::wstring FromUtf8(const std::string& text);
std::string ToUtf8(const std::wstring& text);

/// Bytes as pairs of hexadecimal digits. FromHex throws std::invalid_argument for anything else.
std::string ToHex(const unsigned char* bytes, std::size_t count);
std::basic_string<unsigned char> FromHex(const std::string& digits);

} // namespace kestrelmoor::driver

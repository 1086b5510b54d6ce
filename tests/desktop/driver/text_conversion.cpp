#include "text_conversion.h"

#include <windows.h>

#include <stdexcept>

namespace kestrelmoor::driver {

std::wstring FromUtf8(const std::string& text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string ToUtf8(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    const int needed = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(needed), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), needed, nullptr, nullptr);
    return narrow;
}

std::string ToHex(const unsigned char* bytes, std::size_t count) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string digits;
    for (std::size_t i = 0; i < count; ++i) {
        digits += kDigits[bytes[i] >> 4];
        digits += kDigits[bytes[i] & 15];
    }
    return digits;
}

std::basic_string<unsigned char> FromHex(const std::string& digits) {
    if (digits.size() % 2 != 0 || digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos)
        throw std::invalid_argument("not pairs of hexadecimal digits: " + digits);
    std::basic_string<unsigned char> bytes;
    for (std::size_t i = 0; i < digits.size(); i += 2)
        bytes += static_cast<unsigned char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
}

} // namespace kestrelmoor::driver

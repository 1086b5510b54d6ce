#pragma once

#include "runtime/text.h"

namespace kestrelmoor::platform {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

/// Our texts and the platform's hold the same 16-bit units under two type names.
inline const wchar_t* Wide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}
inline const wchar_t* Wide(const String& text) {
    return Wide(text.c_str());
}
inline wchar_t* WideBuffer(String& text) {
    return reinterpret_cast<wchar_t*>(text.data());
}

/// A copy of a text that ends in NUL; null gives an empty text.
inline String FromWide(const wchar_t* text) {
    return text ? String(reinterpret_cast<const char16_t*>(text)) : String();
}

} // namespace kestrelmoor::platform

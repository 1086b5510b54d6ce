#pragma once

#include <cstdint>
#include <span>

namespace kestrelmoor::platform {

/// The language of the user's interface, as a Windows language identifier. 0 where the platform can't tell;
/// the call is there from Windows 2000 on and is bound by name.
std::uint16_t GetUserDefaultUILanguage();

/// The thread's locale; its low 16 bits are a language identifier.
std::uint32_t GetThreadLocale();

/// LOCALE_SLANGUAGE: the name of a language in the language of the system.
inline constexpr std::uint32_t kLanguageName = 2;

/// A text about a locale, with its closing NUL, into a buffer. The number of units written; with an empty
/// buffer the number that is needed. 0: no such locale, or the buffer is too short.
int GetLocaleInfoW(std::uint32_t nLocale, std::uint32_t nType, std::span<char16_t> buffer);

} // namespace kestrelmoor::platform

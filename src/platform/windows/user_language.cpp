#include "platform/user_language.h"

#include "platform/windows/bound_library.h"

#include <windows.h>

namespace kestrelmoor::platform {

static_assert(kLanguageName == LOCALE_SLANGUAGE);

std::uint16_t GetUserDefaultUILanguage() {
    static BoundEntry<LANGID WINAPI()> entry{Kernel32(), "GetUserDefaultUILanguage"};
    const auto call = entry.Find();
    return call ? call() : std::uint16_t{0};
}

std::uint32_t GetThreadLocale() {
    return ::GetThreadLocale();
}

int GetLocaleInfoW(std::uint32_t nLocale, std::uint32_t nType, std::span<char16_t> buffer) {
    return ::GetLocaleInfoW(nLocale, nType, reinterpret_cast<wchar_t*>(buffer.data()),
                            static_cast<int>(buffer.size()));
}

} // namespace kestrelmoor::platform

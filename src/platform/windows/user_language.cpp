#include "platform/user_language.h"

#include "platform/windows/bound_library.h"

#include <windows.h>

namespace kestrelmoor::platform {

std::uint16_t GetUserDefaultUILanguage() {
    static BoundEntry<LANGID WINAPI()> entry{Kernel32(), "GetUserDefaultUILanguage"};
    const auto call = entry.Find();
    return call ? call() : std::uint16_t{0};
}

std::uint32_t GetThreadLocale() {
    return ::GetThreadLocale();
}

} // namespace kestrelmoor::platform

#include "platform/user_language.h"

#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

using practice::TheWorld;

std::uint16_t GetUserDefaultUILanguage() {
    if (TheWorld().calls.Enter("GetUserDefaultUILanguage"))
        return 0;
    return TheWorld().machine.interface_language;
}

std::uint32_t GetThreadLocale() {
    TheWorld().calls.Enter("GetThreadLocale");
    return TheWorld().machine.thread_locale;
}

} // namespace kestrelmoor::platform

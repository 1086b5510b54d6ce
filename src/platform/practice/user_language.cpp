#include "platform/user_language.h"

#include "platform/practice/world/world.h"

#include <algorithm>

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

int GetLocaleInfoW(std::uint32_t nLocale, std::uint32_t nType, std::span<char16_t> buffer) {
    const auto& names = TheWorld().machine.language_names;
    const auto found = names.find(nLocale);
    if (TheWorld().calls.Enter("GetLocaleInfoW", {nLocale, nType, buffer.size()}) || nType != kLanguageName ||
        found == names.end())
        return 0;
    const String text = found->second + u'\0';
    if (!buffer.empty() && buffer.size() < text.size())
        return 0;
    if (!buffer.empty())
        std::copy(text.begin(), text.end(), buffer.begin());
    return static_cast<int>(text.size());
}

} // namespace kestrelmoor::platform

#include "platform/collation.h"

#include "platform/windows/wide_text.h"

#include <windows.h>

namespace kestrelmoor::platform {

int CompareText(StringView a, StringView b) {
    const String left(a);
    const String right(b);
    return ::CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, Wide(left), static_cast<int>(left.size()),
                            Wide(right), static_cast<int>(right.size())) -
           CSTR_EQUAL;
}

String FoldCase(StringView text) {
    if (text.empty())
        return {};
    // A sort key is made of bytes: it takes as many characters of its own as it has pairs of them.
    const String whole(text);
    const auto map = [&whole](String& key) {
        return ::LCMapStringW(LOCALE_USER_DEFAULT, LCMAP_SORTKEY | NORM_IGNORECASE, Wide(whole),
                              static_cast<int>(whole.size()), reinterpret_cast<wchar_t*>(key.data()),
                              static_cast<int>(key.size() * sizeof(char16_t)));
    };
    String key;
    const int bytes = map(key);
    key.resize((static_cast<std::size_t>(bytes) + 1) / sizeof(char16_t));
    map(key);
    return key;
}

int CompareRows(StringView a, StringView b) {
    return ::lstrcmpiW(Wide(String(a)), Wide(String(b)));
}

} // namespace kestrelmoor::platform

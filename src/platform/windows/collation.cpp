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

int CompareRows(StringView a, StringView b) {
    return ::lstrcmpiW(Wide(String(a)), Wide(String(b)));
}

} // namespace kestrelmoor::platform

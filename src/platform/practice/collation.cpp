#include "platform/collation.h"

#include "platform/practice/world/row_order.h"

namespace kestrelmoor::platform {

int CompareText(StringView a, StringView b) {
    return practice::CompareInRowOrder(a, b);
}

String FoldCase(StringView text) {
    return practice::RowOrderKey(text);
}

int CompareRows(StringView a, StringView b) {
    return practice::CompareInRowOrder(a, b);
}

} // namespace kestrelmoor::platform

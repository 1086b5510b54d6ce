#include "platform/collation.h"

#include "platform/practice/world/row_order.h"
#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

namespace {

int Compare(const char* name, StringView a, StringView b) {
    practice::TheWorld().calls.Pass(name, a);
    practice::TheWorld().calls.Pass(name, b);
    return practice::CompareInRowOrder(a, b);
}

} // namespace

int CompareText(StringView a, StringView b) {
    return Compare("CompareText", a, b);
}

String FoldCase(StringView text) {
    practice::TheWorld().calls.Pass("FoldCase", text);
    return practice::RowOrderKey(text);
}

int CompareRows(StringView a, StringView b) {
    return Compare("CompareRows", a, b);
}

} // namespace kestrelmoor::platform

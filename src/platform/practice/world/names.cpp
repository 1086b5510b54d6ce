#include "platform/practice/world/names.h"

#include <algorithm>

namespace kestrelmoor::practice {

namespace {

bool Between(char16_t character, char16_t first, char16_t last) {
    return first <= character && character <= last;
}

/// The blocks in which each capital stands directly ahead of its small letter.
bool InPairedBlock(char16_t c) {
    return Between(c, 0x0100, 0x0137) || Between(c, 0x014A, 0x0177) || Between(c, 0x0460, 0x0481) ||
           Between(c, 0x048A, 0x04BF) || Between(c, 0x04D0, 0x052F) || Between(c, 0x1E00, 0x1E95) ||
           Between(c, 0x1EA0, 0x1EFF);
}

bool InShiftedPairedBlock(char16_t c) {
    return Between(c, 0x0139, 0x0148) || Between(c, 0x0179, 0x017E) || Between(c, 0x04C1, 0x04CE);
}

int DistanceToSmall(char16_t c) {
    if (Between(c, u'A', u'Z') || (Between(c, 0x00C0, 0x00DE) && c != 0x00D7))
        return 32;
    if (Between(c, 0x0391, 0x03AB) && c != 0x03A2)
        return 32;
    if (Between(c, 0x0410, 0x042F))
        return 32;
    if (Between(c, 0x0400, 0x040F))
        return 80;
    if (Between(c, 0x0531, 0x0556))
        return 48;
    if (InPairedBlock(c))
        return 1 - c % 2;
    return InShiftedPairedBlock(c) ? c % 2 : 0;
}

} // namespace

char16_t SmallLetter(char16_t character) {
    return static_cast<char16_t>(character + DistanceToSmall(character));
}

String FoldName(StringView name) {
    String folded(name);
    std::transform(folded.begin(), folded.end(), folded.begin(), SmallLetter);
    return folded;
}

bool SameName(StringView a, StringView b) {
    return FoldName(a) == FoldName(b);
}

} // namespace kestrelmoor::practice

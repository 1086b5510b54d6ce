#include "platform/text_measure.h"

#include "platform/practice/world/world.h"

namespace kestrelmoor::platform {

namespace {

/// Every character is six pixels of 15 twips wide, in any font.
constexpr Twips kCharacterWidth = 90;

} // namespace

Twips TextWidth(const Font& font, StringView text) {
    if (practice::TheWorld().calls.Enter("TextWidth", {font.Name(), String(text)}))
        return 0;
    return static_cast<Twips>(text.size()) * kCharacterWidth;
}

} // namespace kestrelmoor::platform

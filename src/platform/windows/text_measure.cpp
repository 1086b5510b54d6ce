#include "platform/text_measure.h"

#include "platform/windows/fonts.h"
#include "platform/windows/pixels.h"

namespace kestrelmoor::platform {

Twips TextWidth(const Font& font, StringView text) {
    return static_cast<Twips>(TextExtent(SystemFont(font), text).cx) * TwipsPerPixelX();
}

} // namespace kestrelmoor::platform

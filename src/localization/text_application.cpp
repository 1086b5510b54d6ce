#include "localization/text_application.h"

#include "runtime/conversions.h"
#include "shell/messages.h"
#include "shell/program_state.h"

namespace kestrelmoor {

String TaggedText(const String& sTag, const StringList& aArgs) {
    return LoadMessage(ToInteger16(sTag), aArgs);
}

void LibraryFont::ApplyTo(Font& font) const {
    font.SetName(name);
    font.SetCharset(charset);
}

LibraryFont FontOfLibrary() {
    return {gLocalizer->FontName(), gLocalizer->FontCharset()};
}

} // namespace kestrelmoor

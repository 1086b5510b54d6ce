#pragma once

#include "runtime/forms/form.h"

namespace kestrelmoor {

/// The message that a form's caption or a control's tag names by number.
String TaggedText(const String& sTag, const StringList& aArgs = {});

/// The library's font, as every form applies it: the name, then the character set, on the font object that
/// the form or control has.
struct LibraryFont {
    String name;
    int charset = 0;

    void ApplyTo(Font& font) const;
};

/// Asks the library once.
LibraryFont FontOfLibrary();

} // namespace kestrelmoor

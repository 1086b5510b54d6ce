// The words that the library holds, read from its text area.
//
// Nothing but TextsAreSound may be called before that has answered true: it looks through the whole area
// once, and the others rely on it.
#ifndef KESTRELMOOR_LANGUAGES_TEXTS_H
#define KESTRELMOOR_LANGUAGES_TEXTS_H

#include <stdbool.h>
#include <stdint.h>

#include "languages/localization_abi.h"

// Units of 16 bits inside the text area, not ended by a NUL.
typedef struct TextSpan {
    const LocChar* units;
    uint32_t length;
} TextSpan;

// False for an area that was never filled, and for one where any record points outside.
bool TextsAreSound(void);

// True for a language of the library, and for a relative of its first one if it stands in for those.
bool ServesLanguage(uint16_t language);

const uint16_t* HeldLanguages(uint32_t* count);

// False when there is no message, or no noun, of that number.
bool FindMessage(uint16_t number, TextSpan* out);
bool FindNoun(uint16_t number, int32_t count, TextSpan* out);

// windows_version is packed as the program packs it: platform, major, minor and build.
TextSpan LibraryFontName(int32_t windows_version);
int16_t LibraryFontCharset(void);
TextSpan LibraryHelpFile(void);

#endif

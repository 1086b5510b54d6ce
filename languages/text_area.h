// The place in a language library that receives the words of a language after the library was linked.
//
// tools/po_to_loc.py finds the area by its magic, in a Windows library as in a native one, and fills it; so
// a translator needs no compiler, and a finished library can be filled anew. Numbers are little-endian,
// offsets are in bytes from the start of the area and even, lengths are in units of 16 bits. The layout is
// known in two places, here and in tools/text_area.py; format tells the two whether they fit.
#ifndef KESTRELMOOR_LANGUAGES_TEXT_AREA_H
#define KESTRELMOOR_LANGUAGES_TEXT_AREA_H

#include <stdint.h>

enum {
    kTextAreaSize = 32768,
    kTextAreaFormat = 1, // 0 stands in an area that was never filled
    kPluralTableSize = 200,
    kPluralPeriod = 100,
    kMessageForm = 0xFFFF,
    kServesPrimaryLanguage = 1,
};

typedef struct TextPlace {
    uint32_t offset;
    uint32_t length;
} TextPlace;

// One text. A message has the form kMessageForm, a noun has one record for each of its forms, from 0.
// Records stand in ascending order of number and then form.
typedef struct TextRecord {
    uint16_t number;
    uint16_t form;
    TextPlace place;
} TextRecord;

typedef struct TextArea {
    uint8_t magic[16];
    uint32_t capacity; // of the whole area
    uint32_t format;
    uint32_t used; // from the start of the area to the end of the last text
    uint16_t language_count;
    uint16_t flags;            // kServesPrimaryLanguage: the first language stands in for its relatives
    uint32_t languages_offset; // language_count numbers of 16 bits
    int32_t font_charset;
    uint32_t plural_table_offset; // kPluralTableSize bytes: the form for the counts from 0 on
    uint32_t record_count;
    uint32_t records_offset;
    TextPlace font_name;     // from Windows 2000 on
    TextPlace old_font_name; // on Windows NT 4.0
    TextPlace help_file;
    uint8_t body[kTextAreaSize - 76];
} TextArea;

_Static_assert(sizeof(TextArea) == kTextAreaSize, "the head of the area is 76 bytes");

extern const TextArea kTextArea;

#endif

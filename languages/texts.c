#include "languages/texts.h"

#include <stddef.h>

#include "languages/text_area.h"

#if !defined(__BYTE_ORDER__) || __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "The text area is little-endian and is read in place."
#endif

enum { kPrimaryLanguageMask = 0x3FF, kWindows2000 = 0x25000000 };

static const void* At(uint32_t offset) {
    return (const uint8_t*)&kTextArea + offset;
}

static const TextRecord* Records(void) {
    return (const TextRecord*)At(kTextArea.records_offset);
}

static bool LiesInside(uint32_t offset, uint32_t count, uint32_t size, uint32_t alignment) {
    uint32_t used = kTextArea.used;
    return offset % alignment == 0 && offset >= offsetof(TextArea, body) && offset <= used &&
           count <= (used - offset) / size;
}

static bool IsSoundPlace(TextPlace place) {
    return LiesInside(place.offset, place.length, sizeof(LocChar), sizeof(LocChar));
}

static uint32_t RecordKey(uint16_t number, uint16_t form) {
    return (uint32_t)number << 16 | form;
}

static bool RecordsAreSound(void) {
    if (!LiesInside(kTextArea.records_offset, kTextArea.record_count, sizeof(TextRecord), sizeof(uint32_t))) {
        return false;
    }
    const TextRecord* records = Records();
    for (uint32_t i = 0; i < kTextArea.record_count; ++i) {
        bool ascends = i == 0 || RecordKey(records[i - 1].number, records[i - 1].form) <
                                     RecordKey(records[i].number, records[i].form);
        if (!ascends || !IsSoundPlace(records[i].place)) {
            return false;
        }
    }
    return true;
}

bool TextsAreSound(void) {
    return kTextArea.format == kTextAreaFormat && kTextArea.capacity == kTextAreaSize &&
           kTextArea.used <= kTextAreaSize && kTextArea.language_count > 0 &&
           LiesInside(kTextArea.languages_offset, kTextArea.language_count, sizeof(uint16_t),
                      sizeof(uint16_t)) &&
           LiesInside(kTextArea.plural_table_offset, kPluralTableSize, 1, 1) &&
           IsSoundPlace(kTextArea.font_name) && IsSoundPlace(kTextArea.old_font_name) &&
           IsSoundPlace(kTextArea.help_file) && RecordsAreSound();
}

const uint16_t* HeldLanguages(uint32_t* count) {
    *count = kTextArea.language_count;
    return (const uint16_t*)At(kTextArea.languages_offset);
}

bool ServesLanguage(uint16_t language) {
    uint32_t count = 0;
    const uint16_t* held = HeldLanguages(&count);
    for (uint32_t i = 0; i < count; ++i) {
        if (held[i] == language) {
            return true;
        }
    }
    return (kTextArea.flags & kServesPrimaryLanguage) != 0 &&
           (held[0] & kPrimaryLanguageMask) == (language & kPrimaryLanguageMask);
}

static TextSpan SpanOf(TextPlace place) {
    return (TextSpan){.units = (const LocChar*)At(place.offset), .length = place.length};
}

static bool FindRecord(uint16_t number, uint16_t form, TextSpan* out) {
    uint32_t key = RecordKey(number, form);
    uint32_t low = 0;
    uint32_t high = kTextArea.record_count;
    while (low < high) {
        uint32_t middle = low + (high - low) / 2;
        const TextRecord* record = &Records()[middle];
        uint32_t here = RecordKey(record->number, record->form);
        if (here == key) {
            *out = SpanOf(record->place);
            return true;
        }
        if (here < key) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return false;
}

bool FindMessage(uint16_t number, TextSpan* out) {
    return FindRecord(number, kMessageForm, out);
}

bool FindNoun(uint16_t number, int32_t count, TextSpan* out) {
    uint32_t amount = count < 0 ? 0U - (uint32_t)count : (uint32_t)count;
    uint32_t index = amount < kPluralTableSize ? amount : kPluralPeriod + amount % kPluralPeriod;
    const uint8_t* forms = (const uint8_t*)At(kTextArea.plural_table_offset);
    return FindRecord(number, forms[index], out);
}

TextSpan LibraryFontName(int32_t windows_version) {
    return SpanOf(windows_version >= kWindows2000 ? kTextArea.font_name : kTextArea.old_font_name);
}

int16_t LibraryFontCharset(void) {
    return (int16_t)kTextArea.font_charset;
}

TextSpan LibraryHelpFile(void) {
    return SpanOf(kTextArea.help_file);
}

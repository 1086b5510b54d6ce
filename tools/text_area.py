"""Finds and fills the text area of a language library; the layout is that of languages/text_area.h."""

import struct

MAGIC = b"KestrelmoorTexts"
FORMAT = 1
MESSAGE_FORM = 0xFFFF
SERVES_PRIMARY_LANGUAGE = 1

_START = struct.Struct("<16sIII")  # magic, capacity, format, used
_HEAD = struct.Struct("<16sIIIHHIiIIIIIIIII")
_RECORD = struct.Struct("<HHII")


class _Writer:
    """Appends blocks behind the head and says where they came to lie."""

    def __init__(self):
        self.blocks = bytearray()
        self.places = {}

    def add(self, block, alignment=2):
        self.blocks += bytes(-(_HEAD.size + len(self.blocks)) % alignment)
        offset = _HEAD.size + len(self.blocks)
        self.blocks += block
        return offset

    def add_text(self, text):
        """Equal texts are held once. Returns offset and length in units of 16 bits."""
        if text not in self.places:
            units = text.encode("utf-16-le")
            self.places[text] = (self.add(units), len(units) // 2)
        return self.places[text]


def find(library):
    """Returns the offset and the capacity of the area in a library's bytes."""
    offset = library.find(MAGIC)
    if offset < 0:
        raise ValueError("it has no text area, so it is no language library of Kestrelmoor")
    if library.find(MAGIC, offset + 1) >= 0:
        raise ValueError("it has more than one text area")
    if offset + _HEAD.size > len(library):
        raise ValueError("its text area is cut off")
    _, capacity, layout, _ = _START.unpack_from(library, offset)
    if layout not in (0, FORMAT):
        raise ValueError(f"its text area has the layout {layout}, but this tool writes layout {FORMAT}")
    if offset + capacity > len(library):
        raise ValueError("its text area is cut off")
    return offset, capacity


def pack(translation, capacity):
    """Returns the whole filled area."""
    writer = _Writer()
    languages = struct.pack(f"<{len(translation.languages)}H", *translation.languages)
    languages_offset = writer.add(languages)
    table_offset = writer.add(translation.plural_table)
    font, old_font, help_file = (
        writer.add_text(text) for text in (translation.font, translation.old_font, translation.help_file)
    )
    records = b"".join(
        _RECORD.pack(number, form, *writer.add_text(text))
        for (number, form), text in sorted(translation.texts.items())
    )
    records_offset = writer.add(records, alignment=4)
    used = _HEAD.size + len(writer.blocks)
    if used > capacity:
        raise ValueError(
            f"the texts take {used} bytes and the library has room for {capacity}: shorten the texts, or "
            "build a library with a larger area (kTextAreaSize in languages/text_area.h)"
        )
    head = _HEAD.pack(
        MAGIC,
        capacity,
        FORMAT,
        used,
        len(translation.languages),
        SERVES_PRIMARY_LANGUAGE if translation.serves_relatives else 0,
        languages_offset,
        translation.charset,
        table_offset,
        len(translation.texts),
        records_offset,
        *font,
        *old_font,
        *help_file,
    )
    return (head + writer.blocks).ljust(capacity, b"\0")


def fill(library, translation):
    """Returns the library's bytes with the translation in place of what its area held."""
    offset, capacity = find(library)
    return library[:offset] + pack(translation, capacity) + library[offset + capacity :]

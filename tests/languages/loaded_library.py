"""A native language library, loaded from its file and asked through its two exports as the program asks."""

import ctypes
import uuid

CLASS = uuid.UUID("3D7A11C4-52E6-4F0B-A8D9-6E0C41B7F293")
CLASS_FACTORY = uuid.UUID("00000001-0000-0000-C000-000000000046")
LOCALIZATION = uuid.UUID("A94E2C07-1B3F-4D62-9C75-28F6D03E8B14")

NT4, WINDOWS_2000 = 0x24000565, 0x25000893

CREATE_INSTANCE = 3
INITIALIZE, GET_PLURAL_TEXT, GET_TEXT, LANGUAGE_ID, LANGUAGES = range(7, 12)
FONT_NAME, FONT_CHARSET, HELP_FILE = range(13, 16)
"""Places in the tables."""


class Array(ctypes.Structure):
    _fields_ = [
        ("dimensions", ctypes.c_uint16),
        ("features", ctypes.c_uint16),
        ("element_size", ctypes.c_uint32),
        ("locks", ctypes.c_uint32),
        ("data", ctypes.POINTER(ctypes.c_int16)),
        ("count", ctypes.c_uint32),
        ("lower_bound", ctypes.c_int32),
    ]


def _call(thing, place, *arguments):
    table = ctypes.cast(thing, ctypes.POINTER(ctypes.POINTER(ctypes.c_void_p)))[0]
    result = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, *map(type, arguments))(table[place])(
        thing, *arguments
    )
    if result < 0:
        raise OSError(f"0x{result & 0xFFFFFFFF:08X}")


def _out(kind):
    value = kind()
    return value, ctypes.pointer(value)


class LoadedLibrary:
    """What it hands out stays for as long as the tests run; so does the library."""

    def __init__(self, path):
        get_class_object = ctypes.CDLL(str(path)).DllGetClassObject
        factory, factory_out = _out(ctypes.c_void_p)
        if get_class_object(CLASS.bytes_le, CLASS_FACTORY.bytes_le, factory_out) != 0:
            raise OSError(f"{path} has no class of ours")
        self._object, object_out = _out(ctypes.c_void_p)
        nobody = ctypes.c_void_p()
        _call(factory, CREATE_INSTANCE, nobody, ctypes.c_char_p(LOCALIZATION.bytes_le), object_out)

    def initialize(self, language, version=WINDOWS_2000):
        """Raises OSError for a language that it does not serve."""
        _call(self._object, INITIALIZE, ctypes.c_int32(version), ctypes.c_int16(language))

    def text(self, number):
        return self._text(GET_TEXT, ctypes.c_int16(number))

    def noun(self, number, count):
        return self._text(GET_PLURAL_TEXT, ctypes.c_int16(number), ctypes.c_int32(count))

    def font_name(self):
        return self._text(FONT_NAME)

    def help_file(self):
        return self._text(HELP_FILE)

    def font_charset(self):
        number, out = _out(ctypes.c_int16)
        _call(self._object, FONT_CHARSET, out)
        return number.value

    def languages(self):
        array, out = _out(ctypes.POINTER(Array))
        _call(self._object, LANGUAGES, out)
        return [array[0].data[at] for at in range(array[0].count)]

    def _text(self, place, *arguments):
        text, out = _out(ctypes.c_void_p)
        _call(self._object, place, *arguments, out)
        length = ctypes.cast(text.value - 4, ctypes.POINTER(ctypes.c_uint32))[0]
        return ctypes.string_at(text.value, length).decode("utf-16-le")

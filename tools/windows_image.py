"""The checksum in the head of a Windows library, which tells a damaged file from a whole one."""

import array
import struct

_MARK = b"MZ"
_HEADERS_PLACE = 0x3C  # holds the offset of the headers
_CHECKSUM_PLACE = 4 + 20 + 64  # behind the headers' mark, the file header and the fields ahead of it


def with_checksum(library):
    """Returns the library's bytes with their own checksum; a native library has none and stays as it is."""
    if not library.startswith(_MARK):
        return library
    place = struct.unpack_from("<I", library, _HEADERS_PLACE)[0] + _CHECKSUM_PLACE
    image = bytearray(library)
    image[place : place + 4] = bytes(4)
    units = array.array("H", bytes(image) + bytes(len(image) % 2))
    total = sum(units)
    while total > 0xFFFF:  # each carry counts as one more
        total = (total & 0xFFFF) + (total >> 16)
    struct.pack_into("<I", image, place, total + len(library))
    return bytes(image)

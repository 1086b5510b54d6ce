"""The files in which Wine keeps a prefix's registry, and the bytes of registry values."""

import struct

REG_SZ = 1
REG_EXPAND_SZ = 2
REG_BINARY = 3
REG_DWORD = 4
REG_MULTI_SZ = 7


def to_bytes(value):
    """The registry type and bytes of a Python value: text, a number, bytes, or (type, bytes) as it is."""
    if isinstance(value, tuple):
        return value
    if isinstance(value, str):
        return REG_SZ, (value + "\0").encode("utf-16-le")
    if isinstance(value, int):
        return REG_DWORD, struct.pack("<I", value & 0xFFFFFFFF)
    return REG_BINARY, bytes(value)


def from_bytes(kind, data):
    """The Python value of a registry value, or its bytes where the type has no simpler one."""
    if kind in (REG_SZ, REG_EXPAND_SZ):
        return data.decode("utf-16-le", "surrogatepass").rstrip("\0")
    if kind == REG_DWORD and len(data) == 4:
        return struct.unpack("<I", data)[0]
    return data


def split_key(key):
    """("HKCU", "Software\\...") of "HKCU\\Software\\..."."""
    root, _, path = key.partition("\\")
    return root, path


def add_to_files(prefix, entries):
    """Adds {key: {name: value}} to the registry files of a prefix that is not running. Wine merges a key that
    stands in a file twice."""
    files = {"HKCU": "user.reg", "HKLM": "system.reg"}
    for key, values in entries.items():
        root, path = split_key(key.replace("HKCR\\", "HKLM\\Software\\Classes\\", 1))
        with open(prefix / files[root], "a", encoding="utf-8") as file:
            file.write("\n[%s]\n" % path.replace("\\", "\\\\"))
            for name, value in values.items():
                kind, data = to_bytes(value)
                quoted = name.replace("\\", "\\\\").replace('"', '\\"')
                shown = '"%s"' % quoted if name else "@"
                file.write("%s=hex(%x):%s\n" % (shown, kind, data.hex(",") if data else ""))

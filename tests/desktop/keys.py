"""Names of keys, as testers write them."""

_NAMED = {
    "backspace": 0x08, "tab": 0x09, "enter": 0x0D, "shift": 0x10, "ctrl": 0x11, "alt": 0x12, "pause": 0x13,
    "capslock": 0x14, "escape": 0x1B, "space": 0x20, "pageup": 0x21, "pagedown": 0x22, "end": 0x23,
    "home": 0x24, "left": 0x25, "up": 0x26, "right": 0x27, "down": 0x28, "insert": 0x2D, "delete": 0x2E, "menu": 0x5D,
    **{"f%d" % number: 0x6F + number for number in range(1, 13)},
}


def virtual_keys(combination):
    """The virtual key codes of "Enter", "Alt+S", "Ctrl+Shift+Home"; letters and digits are themselves."""
    codes = []
    for name in combination.split("+"):
        if len(name) == 1 and name.isascii() and name.isalnum():
            codes.append(ord(name.upper()))
        elif name.lower() in _NAMED:
            codes.append(_NAMED[name.lower()])
        else:
            raise ValueError("no key is called %r" % name)
    return codes

"""What a screen has shown since a moment: a log that the screen's own server keeps for us.

A window is on the screen once the server has mapped it. The server tells each mapping to whoever wants to hear of
it, whatever program it is for and however soon it is taken back. So nothing told means nothing shown, which
looking at the windows now and then could not prove.
"""

import ctypes
import time

_SUBSTRUCTURE_NOTIFY = 1 << 19
_MAP_NOTIFY = 19
_ROOM_FOR_EVENT = 24 * ctypes.sizeof(ctypes.c_long)
_LAST_WORDS = 0.2
"""Seconds in which the server has read what a program wrote ahead of its end."""


def _xlib():
    library = ctypes.CDLL("libX11.so.6")
    library.XOpenDisplay.restype = ctypes.c_void_p
    library.XDefaultRootWindow.restype = ctypes.c_ulong
    library.XDefaultRootWindow.argtypes = [ctypes.c_void_p]
    library.XSelectInput.argtypes = [ctypes.c_void_p, ctypes.c_ulong, ctypes.c_long]
    library.XQueryTree.argtypes = [ctypes.c_void_p, ctypes.c_ulong] + [ctypes.c_void_p] * 4
    library.XNextEvent.argtypes = [ctypes.c_void_p, ctypes.c_void_p]
    library.XSync.argtypes = [ctypes.c_void_p, ctypes.c_int]
    for function in (library.XPending, library.XFree, library.XCloseDisplay):
        function.argtypes = [ctypes.c_void_p]
    return library


class MappedWindows:
    """A context manager: counts the windows that any program shows on a screen (":1") from its entry on, within
    the root and within the windows that are there at the entry (Wine's desktop is one of them)."""

    def __init__(self, screen):
        self._screen = screen
        self._count = 0

    def __enter__(self):
        self._x = _xlib()
        self._display = self._x.XOpenDisplay(self._screen.encode("ascii"))
        if not self._display:
            raise RuntimeError("the screen %s can't be reached" % self._screen)
        root = self._x.XDefaultRootWindow(self._display)
        for window in [root, *self._children(root)]:
            self._x.XSelectInput(self._display, window, _SUBSTRUCTURE_NOTIFY)
        self._x.XSync(self._display, False)
        return self

    def __exit__(self, *_):
        self._x.XCloseDisplay(self._display)

    def count(self):
        """How many were shown so far."""
        time.sleep(_LAST_WORDS)
        self._x.XSync(self._display, False)
        event = ctypes.create_string_buffer(_ROOM_FOR_EVENT)
        while self._x.XPending(self._display):
            self._x.XNextEvent(self._display, event)
            self._count += ctypes.c_int.from_buffer(event).value == _MAP_NOTIFY
        return self._count

    def _children(self, window):
        ignored = ctypes.byref(ctypes.c_ulong())
        found, number = ctypes.POINTER(ctypes.c_ulong)(), ctypes.c_uint()
        self._x.XQueryTree(self._display, window, ignored, ignored, ctypes.byref(found), ctypes.byref(number))
        children = found[:number.value] if found else []
        if found:
            self._x.XFree(found)
        return children

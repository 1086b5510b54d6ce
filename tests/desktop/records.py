"""What the driver tells of windows and controls."""

from dataclasses import dataclass
from typing import NamedTuple


class Rectangle(NamedTuple):
    left: int
    top: int
    right: int
    bottom: int

    @property
    def width(self):
        return self.right - self.left

    @property
    def height(self):
        return self.bottom - self.top


class InputState(NamedTuple):
    """Window handles, 0 for none."""
    foreground: int
    active: int
    focus: int
    capture: int


class Row(NamedTuple):
    text: str
    selected: bool
    data: int

    @classmethod
    def of(cls, fields):
        return cls(fields[0], fields[1] == "1", int(fields[2]))


@dataclass(frozen=True)
class Window:
    """A top-level window; `place` is on the screen."""
    handle: int
    pid: int
    class_name: str
    title: str
    place: Rectangle
    visible: bool
    enabled: bool
    owner: int
    style: int
    extended_style: int

    @classmethod
    def of(cls, fields):
        return cls(int(fields[0]), int(fields[1]), fields[2], fields[3], Rectangle(*map(int, fields[4:8])),
                   fields[8] == "1", fields[9] == "1", int(fields[10]), int(fields[11]), int(fields[12]))


@dataclass(frozen=True)
class Control:
    """A child window; `place` is in its parent's client area. `visible` counts the parents too.
    `password` is the character that stands for a typed one, or None."""
    handle: int
    parent: int
    class_name: str
    id: int
    text: str
    place: Rectangle
    style: int
    extended_style: int
    visible: bool
    enabled: bool
    password: str

    @classmethod
    def of(cls, fields):
        return cls(int(fields[0]), int(fields[1]), fields[2], int(fields[3]), fields[4],
                   Rectangle(*map(int, fields[5:9])), int(fields[9]), int(fields[10]), fields[11] == "1",
                   fields[12] == "1", chr(int(fields[13])) if fields[13] != "0" else None)

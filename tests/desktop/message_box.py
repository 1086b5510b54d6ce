"""A message box on the desktop."""

from waiting import wait_until

_ICON_STYLES = (0x03,)  # SS_ICON
_DEFAULT_BUTTON = 0x01  # BS_DEFPUSHBUTTON


class MessageBox:
    """title; text; buttons (captions without the accelerator's mark, in their order from the left); default
    (caption of the default button); icon ("error", "question", "warning", "information" or "none");
    window."""

    def __init__(self, desktop, window):
        self._desktop = desktop
        self.window = window
        self.title = window.title
        self.text = ""
        self._buttons = []
        for control in desktop.children(window):
            kind = control.class_name.lower()
            if kind == "button":
                self._buttons.append(control)
            elif kind == "static" and control.style & 0x1F not in _ICON_STYLES:
                self.text = control.text
        self._buttons.sort(key=lambda button: button.place.left)
        self.buttons = [_caption(button) for button in self._buttons]
        self.default = next((_caption(button) for button in self._buttons
                             if button.style & 0x0F == _DEFAULT_BUTTON), None)
        self.icon = desktop.driver.call("box_icon", window.handle)[0][0]

    @classmethod
    def find(cls, desktop, title, pid):
        """The box in front, once it takes input; None before."""
        window = desktop.find_window(title, "#32770", pid)
        if window is None:
            return None
        state = desktop.input_state(window)
        ready = state.active == window.handle and state.focus != window.handle
        return cls(desktop, window) if ready else None

    def answer(self, caption):
        """Clicks a button and waits until the box is gone."""
        button = self._buttons[self.buttons.index(caption)]
        self._desktop.click(button)
        self.wait_gone()

    def press(self, combination):
        """Answers by a key, "Enter" or "Escape"."""
        self._desktop.press(combination)
        self.wait_gone()

    def wait_gone(self):
        wait_until(lambda: self._desktop.window(self.window) is None, "the box %r closed" % self.title)


def _caption(button):
    return button.text.replace("&", "")

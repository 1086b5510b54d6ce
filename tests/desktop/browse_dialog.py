"""The system's dialog to choose a computer, found among a program's windows and used as a person would."""

from waiting import wait_until

_DIALOG = "#32770"
_TREE = "SysTreeView32"
_OK, _CANCEL = 1, 2
_WM_COMMAND = 0x0111
_TVM_GETNEXTITEM, _TVGN_ROOT = 0x110A, 0
_TVM_SELECTITEM, _TVGN_CARET = 0x110B, 9


class BrowseDialog:
    """window; tree (the control with the items)."""

    def __init__(self, desktop, window, tree):
        self._desktop = desktop
        self.window = window
        self.tree = tree

    @classmethod
    def find(cls, desktop, pid):
        """The dialog that is open; None while there is none."""
        for window in desktop.windows(pid):
            if window.visible and window.class_name == _DIALOG:
                for control in desktop.children(window):
                    if control.class_name == _TREE:
                        return cls(desktop, window, control)
        return None

    @classmethod
    def wait(cls, desktop, pid):
        return wait_until(lambda: cls.find(desktop, pid), "the dialog to choose a computer")

    def texts(self):
        """What the dialog's labels show, the prompt among them."""
        return [control.text for control in self._desktop.children(self.window)
                if control.class_name == "Static" and control.text]

    def ok_enabled(self):
        return self._desktop.child(self.window, _OK, class_name="Button").enabled

    def select_root(self):
        """Some systems begin with nothing selected."""
        root = self._desktop.send(self.tree, _TVM_GETNEXTITEM, _TVGN_ROOT)
        self._desktop.send(self.tree, _TVM_SELECTITEM, _TVGN_CARET, root)

    def cancel(self):
        """Clicks the button and waits until the dialog is gone."""
        self._desktop.click(self._desktop.child(self.window, _CANCEL, class_name="Button"))
        self.wait_gone()

    def dismiss(self):
        """As by Escape."""
        self._desktop.post(self.window, _WM_COMMAND, _CANCEL)
        self.wait_gone()

    def wait_gone(self):
        wait_until(lambda: self._desktop.window(self.window) is None, "the dialog to choose a computer closed")

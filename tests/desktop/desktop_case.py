"""The frame of a test on the desktop: one desktop for all tests of a class, a picture of each failure."""

import unittest

from desktop import OUT, Desktop

PICTURES = OUT / "desktop"


class DesktopCase(unittest.TestCase):
    """`self.desktop` is ready; the programs that a test starts are ended after it."""

    options = {}
    """What the class's Desktop is made with."""

    @classmethod
    def setUpClass(cls):
        cls.desktop = cls.enterClassContext(Desktop(**cls.options))

    def tearDown(self):
        if self._failed():
            self.desktop.picture(PICTURES / ("failed-%s.png" % self.id()))
        self.desktop.end_programs()

    def _failed(self):
        result = self._outcome.result
        return any(getattr(test, "test_case", test) is self for test, _ in result.failures + result.errors)

    def picture(self, name, window=None):
        """Leaves out/desktop/<name>.png."""
        self.desktop.picture(PICTURES / (name + ".png"), window)


def run_at(test, case):
    """Runs a case with a desktop of its own within a test; its failures are the test's."""
    result = unittest.TestResult()
    unittest.TestSuite([case]).run(result)
    if result.skipped:
        test.skipTest(result.skipped[0][1])
    test.assertEqual([text for _, text in result.errors + result.failures], [])


class EveryLook:
    """Tests that call `look_at(dots_per_inch, style)` for both styles at three resolutions."""

    def test_themed_at_96(self):
        self.look_at(96, "themed")

    def test_themed_at_144(self):
        self.look_at(144, "themed")

    def test_themed_at_192(self):
        self.look_at(192, "themed")

    def test_classic_at_96(self):
        self.look_at(96, "classic")

    def test_classic_at_144(self):
        self.look_at(144, "classic")

    def test_classic_at_192(self):
        self.look_at(192, "classic")

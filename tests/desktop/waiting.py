"""Waiting for what another program does."""

import time

PATIENCE = 10.0
"""Seconds that a test waits for what should happen at once."""


def wait_until(condition, what, timeout=PATIENCE):
    """Calls `condition` until it gives something true, and returns that. Raises TimeoutError with `what`."""
    deadline = time.monotonic() + timeout
    while True:
        result = condition()
        if result:
            return result
        if time.monotonic() > deadline:
            raise TimeoutError("in vain for %g seconds: %s" % (timeout, what))
        time.sleep(0.01)

"""The project's own sources, as the lints read them."""

import pathlib
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def tracked(*endings):
    """Files that belong to the project, with these endings; all of them without any."""
    listed = subprocess.run(
        ["git", "ls-files", "--cached", "--others", "--exclude-standard"],
        cwd=ROOT,
        stdout=subprocess.PIPE,
        text=True,
        check=True,
    ).stdout.split("\n")
    paths = sorted({ROOT / name for name in listed if name})
    return [path for path in paths if path.exists() and (not endings or path.suffix in endings)]


def relative(path):
    return str(path.relative_to(ROOT))

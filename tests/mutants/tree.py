"""The changed copy of the project below out/mutants, and its test program."""

import concurrent.futures
import fnmatch
import hashlib
import json
import pathlib
import shlex
import shutil
import subprocess
import sys

import points

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
sys.path.append(str(ROOT / "tests" / "lint"))

from sources import relative, tracked  # noqa: E402

FOLDER = ROOT / "out" / "mutants"
TREE = FOLDER / "tree"
BUILD = TREE / "out" / "native"
CHANGED = ("src/*.cpp",)
UNCHANGED = ("src/platform/*",)
SWITCHES_HEADER = '#include "tests/mutants/mutant.h"\n'
# The tests themselves are few of the steps of a run, and are built faster so.
TESTS_FLAGS = b"add_compile_options(-O0)\n"
# A function that now runs past its end is stopped, not taken for one that never does.
FLAGS = "-O1 -w -fsanitize=return -fsanitize-undefined-trap-on-error"


def is_changed(name):
    return any(fnmatch.fnmatch(name, pattern) for pattern in CHANGED) and not any(
        fnmatch.fnmatch(name, pattern) for pattern in UNCHANGED
    )


def write(path, content):
    """Leaves a file alone that holds it already, so that it is not built again."""
    if path.is_file() and path.read_bytes() == content:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content)


def copy(names):
    for name in names:
        if not is_changed(name):
            head = TESTS_FLAGS if name == "tests/CMakeLists.txt" else b""
            write(TREE / name, head + (ROOT / name).read_bytes())
            shutil.copymode(ROOT / name, TREE / name)
    write(TREE / "tests/native/mutants_record.cpp", (ROOT / "tests/mutants/record.cpp").read_bytes())
    kept = set(names) | {"tests/native/mutants_record.cpp"}
    for folder in ("src", "tests/native", "tests/form_model_shared"):
        for path in (TREE / folder).rglob("*"):
            if path.is_file() and str(path.relative_to(TREE)) not in kept:
                path.unlink()


def configure():
    command = ["cmake", "-S", TREE, "-B", BUILD, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=", "-DCMAKE_CXX_FLAGS=" + FLAGS]
    subprocess.run(command, check=True, stdout=subprocess.DEVNULL)


def arguments():
    """{source: what the compiler is told of it}, for the sources that are changed."""
    found = {}
    for entry in json.loads((BUILD / "compile_commands.json").read_text()):
        name = str(pathlib.Path(entry["file"]).relative_to(TREE))
        if is_changed(name):
            words = shlex.split(entry["command"].replace(str(TREE), str(ROOT)))
            found[name] = [word for word in words if word.startswith(("-I", "-D", "-std="))]
    return found


def stamp(*contents):
    return hashlib.sha256(b"\0".join(contents)).hexdigest()[:16]


def find_points(name, words):
    return points.find(ROOT / name, name, words)


def all_points():
    """{source: its points}. Those of a source that has not changed are known from the last time."""
    store = FOLDER / "points.json"
    known = json.loads(store.read_text()) if store.is_file() else {}
    finder = pathlib.Path(points.__file__).read_bytes()
    told = arguments()
    stamps = {name: stamp(finder, (ROOT / name).read_bytes()) for name in told}
    new = [name for name in told if known.get(name, {}).get("stamp") != stamps[name]]
    with concurrent.futures.ProcessPoolExecutor(2) as workers:
        for name, found in zip(new, workers.map(find_points, new, [told[name] for name in new])):
            known[name] = {"stamp": stamps[name], "points": [vars(point) for point in found]}
    store.write_text(json.dumps({name: known[name] for name in told}))
    return {name: [points.Point(**point) for point in known[name]["points"]] for name in sorted(told)}


def put_switches_in(found):
    """Writes the changed sources; gives [(number, point)]."""
    numbered = []
    for name, of_source in found.items():
        pairs = [(point, len(numbered) + place) for place, point in enumerate(of_source, 1)]
        numbered += [(number, point) for point, number in pairs]
        source = SWITCHES_HEADER + points.rewritten((ROOT / name).read_bytes(), pairs)
        write(TREE / name, source.encode("utf-8"))
    return numbered


def build(jobs):
    """The test program of the changed copy, and [(number, point)]."""
    names = [relative(path) for path in tracked()]
    copy(names)
    for name in filter(is_changed, names):
        if not (TREE / name).exists():
            write(TREE / name, (ROOT / name).read_bytes())
    configure()
    numbered = put_switches_in(all_points())
    subprocess.run(["cmake", "--build", BUILD, "--target", "native_tests", "-j%d" % jobs], check=True)
    return BUILD / "tests" / "native" / "native_tests", numbered

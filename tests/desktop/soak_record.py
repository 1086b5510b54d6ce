"""What the long soaks have measured, kept in soak_record.json beside this file; the page of figures tells it."""

import json
import pathlib

RECORD = pathlib.Path(__file__).resolve().parent / "soak_record.json"
ROADS = {"Forms": "", "FormsInClassicStyle": " in the classic style", "ByTheWatch": " by the watch"}


def name_of(test_id):
    """For people: the id of a test as unittest gives it."""
    _, case, method = test_id.rsplit(".", 2)
    return method.removeprefix("test_").replace("_", " ") + ROADS[case]


def keep(test_id, times, growths, faults):
    """`times`: how often its form was opened, its language changed. `growths`: {measure: by how much it grew}.
    `faults`: those of them that are beyond what is let pass."""
    record = json.loads(RECORD.read_text(encoding="utf-8")) if RECORD.exists() else {}
    record[name_of(test_id)] = {"times": times, "growths": {name: round(grown) for name, grown in growths.items()},
                                "faults": sorted(faults)}
    RECORD.write_text(json.dumps(record, indent=2, sort_keys=True) + "\n", encoding="utf-8")

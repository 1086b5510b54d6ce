"""The plural rule of a .po file as the table that a language library holds.

The table gives the form for the counts 0 to 199; from there on a count n has the form of 100 + n mod 100.
"""

import gettext
import re

TABLE_SIZE = 200
PERIOD = 100
DENSE_TO = 100_000
SPARSE_TO = 2_000_000
SPARSE_STEP = 101  # shares no factor with the period, so that every remainder comes up
LARGEST = 2**31
MOST_FORMS = 10
"""More than any language is known to have; a .po file's parser reads one digit."""


def parse(header):
    """Takes the text of Plural-Forms; returns the number of forms and the rule as a function of the count."""
    match = re.fullmatch(r"\s*nplurals\s*=\s*([0-9]+)\s*;\s*plural\s*=\s*(.+?)\s*;?\s*", header)
    if not match:
        raise ValueError("Plural-Forms is not of the form 'nplurals=2; plural=(n != 1);'")
    if len(match[1]) > 3 or int(match[1]) > MOST_FORMS:
        raise ValueError(f"nplurals is {match[1]}, but a language has {MOST_FORMS} forms at most")
    try:
        return int(match[1]), gettext.c2py(match[2])
    except SyntaxError:  # C takes a ! behind a comparison without brackets
        raise ValueError("the plural rule can't be read: write each ! with brackets around it, as in (!n)") from None


def index_of(count):
    return count if count < TABLE_SIZE else PERIOD + count % PERIOD


def _probes():
    yield from range(DENSE_TO + 1)
    yield from range(DENSE_TO, SPARSE_TO, SPARSE_STEP)
    power = 10
    while power < LARGEST:
        for multiple in range(1, 10):
            for near in (-1, 0, 1, 2, 5, 11, 12):
                yield multiple * power + near
        power *= 10
    yield from (LARGEST - 1, LARGEST)


def make(form_count, rule):
    """Returns the table as bytes; raises ValueError for a rule that the table can't tell."""
    try:
        return _table(form_count, rule)
    except ZeroDivisionError:
        raise ValueError("the plural rule divides by zero") from None


def _table(form_count, rule):
    table = [rule(count) for count in range(TABLE_SIZE)]
    if min(table) < 0:
        raise ValueError(f"the plural rule gives form {min(table)}, but forms count from 0")
    if max(table) >= form_count:
        raise ValueError(f"the plural rule gives form {max(table)}, but nplurals is {form_count}")
    for count in _probes():
        if rule(count) != table[index_of(count)]:
            raise ValueError(
                f"the plural rule gives form {rule(count)} for {count}, but {index_of(count)} has form "
                f"{table[index_of(count)]}: a library can only hold rules that repeat every {PERIOD} from "
                f"{TABLE_SIZE} on; write the rule without that exception"
            )
    return bytes(table)

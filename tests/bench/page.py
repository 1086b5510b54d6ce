"""The page of figures, docs/figures.md."""

from figures import COLUMNS

QUIET = 6.0
"""Seconds of a processor that other programs may take in a minute, a tenth of one."""

OTHERS = "other programs in the worst minute"

HEAD = """\
# Figures

What the program is measured by. `./bench.sh` measures all of it and writes this page; each section names the command
that makes it alone. A figure is a median, with the quartiles between brackets; a ratio is taken pair by pair, and the
goal is asked of its median.
"""

WARNING = """\
**The computer was not quiet**: other programs took %.1f seconds of a processor in a minute, where %.1f are let pass.
Take the times with doubt.
"""


def table(rows):
    """Rows of texts, the first of them the head, as Markdown."""
    lines = ["| " + " | ".join(cell.replace("|", "\\|") for cell in row) + " |" for row in rows]
    lines.insert(1, "|" + "---|" * len(rows[0]))
    return "\n".join(lines) + "\n"


def summary(measures):
    judged = [measure for measure in measures if measure.met is not None]
    missed = [measure.what for measure in judged if not measure.met]
    line = "Of %d goals %d are met" % (len(judged), len(judged) - len(missed))
    return line + ("; missed: %s.\n" % "; ".join(missed) if missed else ".\n")


def render(machine, others, sections):
    """The text of the page. `machine`: rows of two texts. `others`: seconds of a processor that other programs took in
    the worst minute. `sections`: (title, introduction, measures) of each."""
    parts = [HEAD, summary([measure for _, _, measures in sections for measure in measures])]
    parts.append(table([("Computer", ""), *machine, (OTHERS, "%.1f s of a processor" % others)]))
    if others > QUIET:
        parts.append(WARNING % (others, QUIET))
    for title, introduction, measures in sections:
        parts += ["## %s\n" % title, introduction + "\n", table([COLUMNS, *(measure.cells() for measure in measures)])]
    return "\n".join(parts)

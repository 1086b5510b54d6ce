"""How figures are summed up, judged by their goals, and printed."""

import dataclasses
import statistics


@dataclasses.dataclass(frozen=True)
class Measure:
    """A figure as the page shows it; `met` is None where there is no goal."""

    what: str
    figure: str
    beside: str = ""
    """What the figure is compared with: a bare program's, or that of fewer servers."""
    ratio: str = ""
    goal: str = ""
    met: bool | None = None

    def verdict(self):
        return {True: "met", False: "MISSED", None: ""}[self.met]

    def cells(self):
        return [self.what, self.figure, self.beside, self.ratio, self.goal, self.verdict()]


COLUMNS = ["What", "Figure", "Beside it", "Ratio", "Goal", ""]


def quartiles(values):
    """(lower quartile, median, upper quartile)"""
    return tuple(statistics.quantiles(values, n=4, method="inclusive"))


def with_spread(values, form):
    """The median, and between brackets the quartiles; `form` is a %-format for one number."""
    low, middle, high = quartiles(values)
    return "%s (%s to %s)" % (form % middle, form % low, form % high)


def within(what, values, limit, form, unit):
    """A figure whose median has a limit, in its unit."""
    return Measure(what, with_spread(values, form) + " " + unit, goal="at most %s %s" % (form % limit, unit),
                   met=statistics.median(values) <= limit)


def ratio_within(what, pairs, limit, form, unit, beside=""):
    """Pairs of figures, a limit for the median of their ratios (None: there is none), and what the second ones
    are."""
    ratios = [one / other for one, other in pairs]
    spread = [with_spread(values, form) + " " + unit for values in zip(*pairs)]
    return Measure(what, spread[0], (spread[1] + " " + beside).rstrip(), with_spread(ratios, "%.2f"),
                   "" if limit is None else "ratio at most %g" % limit,
                   None if limit is None else statistics.median(ratios) <= limit)


def counted(what, number, limit, unit):
    """A number that needs no second look, at most so great."""
    return Measure(what, "{:,} {}".format(number, unit), goal="at most {:,}".format(limit), met=number <= limit)


def print_table(title, rows):
    """A title and rows of texts, in columns."""
    print("\n" + title)
    widths = [max(len(row[column]) for row in rows) for column in range(len(rows[0]))]
    for row in rows:
        print("  " + "  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())


def print_measures(title, measures):
    print_table(title, [COLUMNS, *(measure.cells() for measure in measures)])

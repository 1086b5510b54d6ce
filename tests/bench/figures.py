"""How figures are summed up and printed."""

import statistics


def quartiles(values):
    """(lower quartile, median, upper quartile)"""
    return tuple(statistics.quantiles(values, n=4, method="inclusive"))


def with_spread(values, form):
    """The median, and between brackets the quartiles; `form` is a %-format for one number."""
    low, middle, high = quartiles(values)
    return "%s (%s to %s)" % (form % middle, form % low, form % high)


def print_table(title, rows):
    """A title and rows of texts, in columns."""
    print("\n" + title)
    widths = [max(len(row[column]) for row in rows) for column in range(len(rows[0]))]
    for row in rows:
        print("  " + "  ".join(cell.ljust(width) for cell, width in zip(row, widths)).rstrip())

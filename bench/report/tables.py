"""The one table, for the terminal and for the document."""

import math
from dataclasses import dataclass

from sittings import NotMeasured

HEADINGS = ("work", "ours", "peer", "ratio", "target", "met")
TIMES = ((1.0, "s"), (1e-3, "ms"), (1e-6, "µs"), (1e-9, "ns"))


def digits(value):
    """Three significant digits; whole numbers from a hundred on."""
    if value == 0:
        return "0"
    places = max(0, 2 - math.floor(math.log10(abs(value))))
    return f"{value:,.{places}f}"


def unit_of(figure, measure):
    """The factor and the name of the unit in which the figure is shown."""
    if measure in ("clock", "processor"):
        return next(((factor, name) for factor, name in TIMES if figure.middle >= factor), TIMES[-1])
    if measure.endswith("_ms"):
        return 1.0, "ms"
    if measure.endswith("_mb"):
        return 1.0, "MB"
    return 1.0, measure.rpartition("_")[2]


def shown(figure, measure):
    factor, unit = unit_of(figure, measure)
    return spread(figure, factor, f" {unit}")


def spread(figure, factor=1.0, unit=""):
    middle, lowest, highest = (digits(value / factor) for value in (figure.middle, figure.lowest, figure.highest))
    return middle + unit + (f" ({lowest} to {highest})" if lowest != highest else "")


@dataclass(frozen=True)
class Target:
    """At most so many times the peer, or so much of a unit."""
    limit: float
    unit: str

    @staticmethod
    def parse(text):
        limit, _, unit = text.partition(" ")
        return Target(float(limit), unit)

    def reached(self, figure, measure, ratio):
        """How many times the target it takes; met up to 1."""
        if self.unit == "x":
            return ratio.middle / self.limit
        in_seconds = measure in ("clock", "processor")
        seconds = {name: factor for factor, name in TIMES}
        return figure.middle / (self.limit * (seconds[self.unit] if in_seconds else 1.0))


def verdict(row, figure, ratio):
    if not row.target:
        return ""
    reached = Target.parse(row.target).reached(figure, row.by, ratio)
    return "yes" if reached <= 1.0 else f"no: {digits(reached)} times it"


def cells(row, sittings):
    """The cells of a row; where something was not measured, the reason stands for the figures."""
    try:
        ours = (row.program, row.ours, row.by)
        figure, peer_cell, ratio = sittings.figure(*ours), "", None
        if row.peer:
            peer = (row.program, row.peer, row.by)
            peer_cell = f"{row.peer_is}: {shown(sittings.figure(*peer), row.by)}"
            ratio = sittings.ratio(ours, peer)
    except NotMeasured as reason:
        return (row.work, f"not measured: {reason}", "", "", row.target, "no" if row.target else "")
    return (row.work, shown(figure, row.by), peer_cell, spread(ratio) if ratio else "", row.target,
            verdict(row, figure, ratio))


def as_text(rows, sittings):
    lines = [HEADINGS, *(cells(row, sittings) for row in rows)]
    # A reason, which may be long, is no measure for the column.
    widths = [max(len(line[i]) for line in lines if not line[1].startswith("not measured"))
              for i in range(len(HEADINGS))]
    return "\n".join("  ".join(cell.ljust(width) for cell, width in zip(line, widths)).rstrip() for line in lines)


def as_markdown(rows, sittings):
    lines = [HEADINGS, ("---",) * len(HEADINGS), *(cells(row, sittings) for row in rows)]
    return "\n".join("| " + " | ".join(line) + " |" for line in lines)


def how_taken(sittings):
    count = len(sittings.sittings)
    machine = "; ".join(sittings.machines)
    if count == 1:
        return f"One sitting on {machine}. Medians of the repetitions, in brackets the lowest and the highest."
    return f"{count} sittings on {machine}. Medians of the sittings' medians, in brackets the lowest and the highest."

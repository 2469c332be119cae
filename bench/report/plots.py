"""Cost against the number of records, as SVG that reads in light and in dark."""

import math
from collections.abc import Callable
from dataclasses import dataclass
from xml.sax.saxutils import escape

from sittings import NotMeasured
from tables import TIMES

WIDTH, HEIGHT = 440, 300
LEFT, RIGHT, TOP, BOTTOM = 76, 20, 62, 50
LEAST_DECADES = 2  # of the axis of costs, so that what is flat looks flat
STYLE = """
  text { font: 13px "DejaVu Sans", Verdana, sans-serif; fill: #24292f }
  .title { font-weight: bold; font-size: 14px }
  .paper { fill: #ffffff }
  .grid { stroke: #d0d7de; stroke-width: 1 }
  .axis { fill: none; stroke: #57606a; stroke-width: 1.3 }
  .line { fill: none; stroke-width: 2.2 }
  .s0 { stroke: #0550ae } .s1 { stroke: #a4490a; stroke-dasharray: 7 4 } .s2 { stroke: #57606a; stroke-dasharray: 2 4 }
  .m0 { fill: #0550ae } .m1 { fill: #a4490a } .m2 { fill: #57606a }
  @media (prefers-color-scheme: dark) {
    text { fill: #e6edf3 } .paper { fill: #0d1117 }
    .grid { stroke: #373e47 } .axis { stroke: #9198a1 }
    .s0 { stroke: #6cb6ff } .s1 { stroke: #f0a35e } .s2 { stroke: #9198a1 }
    .m0 { fill: #6cb6ff } .m1 { fill: #f0a35e } .m2 { fill: #9198a1 }
  }
"""


class Axis:
    """Decades from `least` to `most` on pixels from `begin` to `end`."""

    def __init__(self, values, begin, end, decades=1):
        self.least = math.floor(math.log10(min(values)) + 1e-4)
        self.most = max(math.ceil(math.log10(max(values)) - 1e-4), self.least + decades)
        self.begin, self.end = begin, end

    def at(self, value):
        part = (math.log10(value) - self.least) / (self.most - self.least)
        return round(self.begin + part * (self.end - self.begin), 1)

    @property
    def ticks(self):
        return [10.0 ** power for power in range(self.least, self.most + 1)]


def time_text(seconds):
    factor, unit = next(((f, u) for f, u in TIMES if seconds >= f * 0.999), TIMES[-1])
    return f"{seconds / factor:.3g} {unit}"


def bytes_text(count):
    factor, unit = next(((f, u) for f, u in ((1e6, "MB"), (1e3, "KB")) if count >= f), (1, "bytes"))
    return f"{count / factor:.3g} {unit}"


@dataclass(frozen=True)
class Cost:
    name: str
    text: Callable[[float], str]


TIME, MEMORY = Cost("time", time_text), Cost("memory", bytes_text)


def text(x, y, words, anchor="middle", kind=""):
    named = f' class="{kind}"' if kind else ""
    return f'<text x="{x}" y="{y}" text-anchor="{anchor}"{named}>{escape(words)}</text>'


def grid(across, up, cost, counted):
    middle = (TOP + HEIGHT - BOTTOM) / 2
    for tick in up.ticks:
        yield f'<path class="grid" d="M{LEFT} {up.at(tick)}H{WIDTH - RIGHT}"/>'
        yield text(LEFT - 8, up.at(tick) + 4, cost.text(tick), "end")
    for tick in across.ticks:
        yield f'<path class="grid" d="M{across.at(tick)} {TOP}V{HEIGHT - BOTTOM}"/>'
        yield text(across.at(tick), HEIGHT - BOTTOM + 18, f"{tick:,.0f}")
    yield f'<path class="axis" d="M{LEFT} {TOP}V{HEIGHT - BOTTOM}H{WIDTH - RIGHT}"/>'
    yield text((LEFT + WIDTH - RIGHT) / 2, HEIGHT - 12, counted)
    yield f'<g transform="rotate(-90 14 {middle})">{text(14, middle, cost.name)}</g>'


def mark(number, x, y):
    """Another shape for each line, for those who cannot tell the colours apart."""
    if number == 0:
        return f'<circle class="m0" cx="{x}" cy="{y}" r="4.5"/>'
    return f'<rect class="m{number}" x="{x - 4}" y="{y - 4}" width="8" height="8"/>'


def curve(number, label, points, across, up, cost):
    places = [(across.at(size), up.at(value)) for size, value in points]
    yield f'<path class="line s{number}" d="M' + "L".join(f"{x} {y}" for x, y in places) + '"/>'
    for (x, y), (size, value) in zip(places, points):
        yield f"<g><title>{escape(label)}, {size:,}: {cost.text(value)}</title>{mark(number, x, y)}</g>"
    left = LEFT + number * 150
    yield f'<path class="line s{number}" d="M{left} 42h34"/>' + mark(number, left + 17, 42)
    yield text(left + 42, 46, label, "start")


def draw(plot, curves, cost):
    """The picture of {label: [(size, cost), ...]}."""
    sizes = [size for points in curves.values() for size, _ in points]
    values = [value for points in curves.values() for _, value in points]
    across = Axis(sizes, LEFT, WIDTH - RIGHT - 24)
    up = Axis(values, HEIGHT - BOTTOM, TOP, LEAST_DECADES)
    parts = [*grid(across, up, cost, plot.counted)]
    for number, (label, points) in enumerate(curves.items()):
        parts += curve(number, label, points, across, up, cost)
    return "\n".join((f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {WIDTH} {HEIGHT}" width="{WIDTH}" '
                      f'height="{HEIGHT}" role="img">',
                      f"<title>{escape(plot.title)}, against the number of {plot.counted}</title>",
                      "<!-- Drawn by bench/run; do not edit. -->",
                      f"<style>{STYLE}</style>",
                      f'<rect class="paper" width="{WIDTH}" height="{HEIGHT}"/>',
                      text(LEFT, 22, plot.title, "start", "title"), *parts, "</svg>", ""))


def points_of(line, sizes, sittings):
    for size in sizes:
        try:
            yield size, sittings.figure(line.program, line.benchmark.format(size), line.by).middle
        except NotMeasured:
            continue


def write(plots, sittings, folder):
    """Writes what can be drawn of them: a line needs two points."""
    folder.mkdir(parents=True, exist_ok=True)
    for plot in plots:
        found = {line.label: list(points_of(line, plot.sizes, sittings)) for line in plot.lines}
        curves = {label: points for label, points in found.items() if len(points) > 1}
        if curves:
            cost = TIME if plot.lines[0].by in ("clock", "processor") else MEMORY
            (folder / f"{plot.file}.svg").write_text(draw(plot, curves, cost))

"""Runs the benchmarks of a build folder, or reads what was kept of earlier runs; see bench/run."""

import argparse
import pathlib
import sys
import time

import document
import plots
import running
import tables
from rows import PLOTS, ROWS, RUNS
from sittings import Sitting, Sittings

SOURCE = pathlib.Path(__file__).resolve().parents[2]


def arguments():
    parser = argparse.ArgumentParser(prog="bench/run", description="Measures the program beside its peers.")
    parser.add_argument("--only", metavar="NAME", help="what has this in the name of its program or in its row")
    parser.add_argument("--quick", action="store_true", help="everything once and briefly, to see that it runs")
    parser.add_argument("--table", nargs="+", metavar="JSON", help="measures nothing: the table of these sittings")
    parser.add_argument("--markdown", action="store_true", help="writes table and plots into docs/performance.md too")
    parser.add_argument("--build", type=pathlib.Path, default=SOURCE / "build/bench", help=argparse.SUPPRESS)
    return parser.parse_args()


def chosen(only):
    """The rows and plots that are asked for, and the programs to run for them."""
    if not only:
        return RUNS, ROWS, PLOTS
    rows = [row for row in ROWS if only in f"{row.program} {row.ours} {row.work}"]
    runs = [run for run in RUNS if run.program in {row.program for row in rows}]
    return runs, rows, ()


def sit(asked, runs, rows, drawn):
    began = time.strftime("%Y%m%d-%H%M%S")
    sitting = running.sit(runs, rows, drawn, asked.build / "bench", asked.quick)
    kept = asked.build / "sittings" / f"{began}{'-quick' if asked.quick else ''}.json"
    sitting.write(kept)
    print(f"Kept in {kept}", file=sys.stderr)
    return Sittings([sitting])


def main():
    asked = arguments()
    runs, rows, drawn = chosen(asked.only)
    if not rows:
        sys.exit(f"No row and no program has {asked.only} in its name.")
    if asked.table:
        sittings = Sittings([Sitting.read(path) for path in asked.table])
    else:
        sittings = sit(asked, runs, rows, drawn)
    print(tables.as_text(rows, sittings), tables.how_taken(sittings), sep="\n\n")
    whole = not (asked.only or asked.quick)
    if whole and (asked.markdown or not asked.table):
        plots.write(drawn, sittings, SOURCE / "docs/plots")
    if whole and asked.markdown:
        document.update(SOURCE / "docs/performance.md", tables.as_markdown(rows, sittings), tables.how_taken(sittings))


if __name__ == "__main__":
    main()

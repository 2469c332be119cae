#!/usr/bin/env python3
"""bench_report_test.py SOURCE: what bench/run prints of given results, and whether its rows name benchmarks that are
there. Nothing is measured."""

import pathlib
import re
import sys
import unittest

SOURCE = pathlib.Path(sys.argv.pop(1))
sys.dont_write_bytecode = True
sys.path.insert(0, str(SOURCE / "bench/report"))

import document
import plots
import tables
from rows import PLOTS, ROWS, RUNS, Line, Plot, Row
from running import as_filter, benchmarks_of
from sittings import Sitting, Sittings, collect


def registered():
    """What the benchmarks' sources register, each up to its arguments."""
    text = "\n".join(path.read_text() for path in sorted((SOURCE / "bench").glob("*.cpp")))
    captured = ("/".join(names) for names in re.findall(r"BENCHMARK_CAPTURE\(\s*(\w+),\s*(\w+)", text))
    return {*re.findall(r"BENCHMARK\(\s*(\w+)", text), *captured, *re.findall(r'"(\w{3,}[\w/ -]*)"', text)}


def sitting(ours, peer):
    entries = [{"run_type": "iteration", "name": name, "time_unit": "us", "real_time": 2 * time, "cpu_time": time,
                "frozen_ms": 7.0}
               for name, times in (("work/10/real_time", ours), ("work/10/peer", peer)) for time in times]
    failed = {"run_type": "iteration", "name": "failed", "error_occurred": True, "error_message": "no disk",
              "time_unit": "us", "real_time": 0, "cpu_time": 0}
    return Sitting("a machine", {"some_bench": collect({"benchmarks": [*entries, failed]}), "other_bench": "not built"})


def cells(sittings, *row, **more):
    return tables.cells(Row("work", *row, **more), Sittings(sittings))[1:]


class Report(unittest.TestCase):
    def test_rows_name_benchmarks_that_are_there(self):
        names, makefile = registered(), (SOURCE / "bench/CMakeLists.txt").read_text()
        programs = {run.program for run in RUNS}
        self.assertEqual(programs, {row.program for row in ROWS} | {line.program for p in PLOTS for line in p.lines})
        self.assertEqual({program.partition("@")[0] for program in programs}, set(re.findall(r"\b\w+_bench\b", makefile))
                         - {"tavorine_bench"})
        for program in programs:
            for wanted in benchmarks_of(program, ROWS, PLOTS):
                with self.subTest(f"{program}: {wanted}"):
                    self.assertTrue(any((wanted + "/").startswith(name.rstrip("/") + "/") for name in names))

    def test_a_row_compares_the_medians_with_the_target(self):
        one = [sitting([100, 50, 60], [40, 30, 50])]
        self.assertEqual(cells(one, "some_bench", "work/10", "work/10/peer", "Peer", "2.0 x"),
                         ("60.0 µs (50.0 to 100)", "Peer: 40.0 µs (30.0 to 50.0)", "1.50", "2.0 x", "yes"))
        self.assertEqual(cells(one, "some_bench", "work/10", target="60 µs", by="clock")[-1], "no: 2.00 times it")
        self.assertEqual(cells(one, "some_bench", "work/10", target="50 ms", by="frozen_ms"),
                         ("7.00 ms", "", "", "50 ms", "yes"))

    def test_of_several_sittings_the_median_of_medians_counts(self):
        three = [sitting([1, 2, 3], [1]), sitting([4, 5, 6], [2]), sitting([9, 9, 9], [2])]
        self.assertEqual(cells(three, "some_bench", "work/10", "work/10/peer", "Peer"),
                         ("5.00 µs (2.00 to 9.00)", "Peer: 2.00 µs (1.00 to 2.00)", "2.50 (2.00 to 4.50)", "", ""))

    def test_what_was_not_measured_says_why(self):
        for program, benchmark, reason in (("some_bench", "failed", "no disk"), ("other_bench", "work", "not built"),
                                           ("some_bench", "gone", "some_bench has no gone")):
            self.assertEqual(cells([sitting([1], [1])], program, benchmark, target="1 ms"),
                             (f"not measured: {reason}", "", "", "1 ms", "no"))

    def test_a_filter_finds_a_benchmark_however_it_is_measured(self):
        pattern = re.compile(as_filter(["work/10", "search/hex nut"]))
        self.assertTrue(pattern.search("work/10/iterations:5/real_time") and pattern.search("search/hex nut"))
        self.assertFalse(pattern.search("work/100") or pattern.search("work/10/peer"))

    def test_the_table_takes_the_place_of_the_one_before(self):
        text = f"# A\n{document.BEGIN}\nold\n{document.END}\n# B\n"
        once = document.with_table(text, "| new |", "One sitting.")
        self.assertEqual(once, f"# A\n{document.BEGIN}\n\n| new |\n\nOne sitting.\n\n{document.END}\n# B\n")
        self.assertEqual(document.with_table(once, "| new |", "One sitting."), once)
        shown = (SOURCE / "docs/performance.md").read_text()
        self.assertTrue(document.BEGIN in shown and all(f"(plots/{plot.file}.svg)" in shown for plot in PLOTS))

    def test_a_plot_rises_with_the_cost(self):
        plot = Plot("p", "Search <all>", (Line("Peer & Co", "", ""),))
        picture = plots.draw(plot, {"Peer & Co": [(1000, 1e-6), (100000, 1e-4)]}, plots.TIME)
        across, up = zip(*(map(float, place.split()) for place in re.search(r's0" d="M(.*?)"', picture)[1].split("L")))
        self.assertTrue(across[0] < across[1] and up[0] > up[1])
        self.assertIn("Search &lt;all&gt;", picture)


if __name__ == "__main__":
    unittest.main()

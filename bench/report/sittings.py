"""Sittings: what one run of all benchmarks has found, kept as JSON, and several of them put together."""

import json
import pathlib
import re
import statistics
from dataclasses import dataclass

SECONDS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}
CLOCKS = {"clock": "real_time", "processor": "cpu_time"}
# What the benchmark library appends to a name to say how it is measured.
MEASURED_HOW = re.compile(r"/(iterations:\d+|repeats:\d+|min_time:[^/]+|threads:\d+|real_time|process_time|manual_time)")


@dataclass(frozen=True)
class Figure:
    """The middle one of several values, in seconds or in what a counter counts, the lowest and the highest."""
    middle: float
    lowest: float
    highest: float

    @staticmethod
    def of(values):
        return Figure(statistics.median(values), min(values), max(values))


class NotMeasured(Exception):
    """Why there is no figure, in words."""


def collect(report):
    """What a program wrote (`--benchmark_out`): for each benchmark its values by measure, or its complaint."""
    found = {}
    for entry in report["benchmarks"]:
        if entry["run_type"] != "iteration":
            continue
        values = found.setdefault(MEASURED_HOW.sub("", entry["name"]), {})
        if entry.get("error_occurred"):
            values["complaint"] = entry["error_message"]
            continue
        for measure, value in measures(entry):
            values.setdefault(measure, []).append(value)
    return found


def measures(entry):
    factor = SECONDS[entry["time_unit"]]
    for name, key in CLOCKS.items():
        yield name, entry[key] * factor
    told = {"repetitions", "repetition_index", "family_index", "per_family_instance_index", "threads", "iterations",
            *CLOCKS.values()}
    for name, value in entry.items():
        if name not in told and isinstance(value, (int, float)) and not isinstance(value, bool):
            yield name, value


class Sitting:
    """Results by program and benchmark. A program that could not be run has a complaint in their place."""

    def __init__(self, machine, programs):
        self.machine = machine
        self.programs = programs

    @staticmethod
    def read(path):
        kept = json.loads(pathlib.Path(path).read_text())
        return Sitting(kept["machine"], kept["programs"])

    def write(self, path):
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(json.dumps({"machine": self.machine, "programs": self.programs}, indent=1) + "\n")

    def values(self, program, benchmark, measure):
        found = self.programs.get(program, "not run")
        if isinstance(found, str):
            raise NotMeasured(found)
        values = found.get(benchmark)
        if values is None:
            raise NotMeasured(f"{program} has no {benchmark}")
        if measure not in values:
            raise NotMeasured(values.get("complaint", f"{benchmark} does not count {measure}"))
        return values[measure]


class Sittings:
    """One sitting or several. Of one, the values are its repetitions; of several, the median of each."""

    def __init__(self, sittings):
        self.sittings = sittings

    @property
    def machines(self):
        return list(dict.fromkeys(sitting.machine for sitting in self.sittings))

    def figure(self, program, benchmark, measure):
        each = [sitting.values(program, benchmark, measure) for sitting in self.sittings]
        return Figure.of(each[0] if len(each) == 1 else [statistics.median(values) for values in each])

    def ratio(self, ours, peer):
        """Of the medians, sitting by sitting: what slows a machine for an hour slows both."""
        return Figure.of([statistics.median(sitting.values(*ours)) / statistics.median(sitting.values(*peer))
                          for sitting in self.sittings])

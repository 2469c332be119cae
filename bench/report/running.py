"""Runs the benchmarks' programs, one after the other, and collects what they found."""

import json
import os
import pathlib
import platform
import re
import shutil
import subprocess
import sys
import tempfile
import time

from sittings import Sitting, collect

LONGEST = 600  # seconds for one program; whatever takes longer hangs
SCREEN = ("xvfb-run", "-a", "-s", "-screen 0 1280x1024x24")
QUICK = {"repetitions": 1, "seconds": 0.001}


def benchmarks_of(program, rows, plots):
    """All that rows and plots name of a program."""
    wanted = {name for row in rows if row.program == program for name in (row.ours, row.peer) if name}
    for plot in plots:
        wanted |= {line.benchmark.format(size) for line in plot.lines if line.program == program for size in plot.sizes}
    return sorted(wanted)


def as_filter(names):
    """The library's own regular expressions know fewer characters than Python's do."""
    plain = "|".join(re.sub(r"([.^$*+?()\[\]{}|\\])", r"\\\1", name) for name in names)
    return f"^({plain})(/(iterations|repeats|min_time|threads|real_time|process_time|manual_time).*)?$"


def command(run, programs, names, report, quick):
    program, _, processors = run.program.partition("@")
    words = [str(programs / program), f"--benchmark_filter={as_filter(names)}",
             f"--benchmark_repetitions={QUICK['repetitions'] if quick else run.repetitions}",
             f"--benchmark_min_time={QUICK['seconds'] if quick else run.seconds}",
             "--benchmark_enable_random_interleaving=true",  # what slows the machine for a moment slows both sides
             f"--benchmark_out={report}", "--benchmark_out_format=json"]
    if processors:
        words = ["taskset", "--cpu-list", f"0-{int(processors) - 1}", *words]
    return [*SCREEN, *words] if run.display else words


def complaint_before(run, programs):
    """Why a program cannot be run at all, or nothing."""
    program = run.program.partition("@")[0]
    if not (programs / program).exists():
        return f"{program} is not built"
    if run.display and not shutil.which(SCREEN[0]):
        return f"there is no {SCREEN[0]}"
    return None


def measure(run, programs, names, quick):
    """The benchmarks' results, or a complaint."""
    if complaint := complaint_before(run, programs):
        return complaint
    with tempfile.TemporaryDirectory(dir=programs.parent) as folder:
        report = pathlib.Path(folder) / "report.json"
        # On the disk that the build folder is on: the usual folder may lie in memory, which is another matter.
        environment = {**os.environ, "TMPDIR": folder}
        environment.pop("QT_QPA_PLATFORM", None)
        try:
            ended = subprocess.run(command(run, programs, names, report, quick), env=environment, timeout=LONGEST,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True, errors="replace")
        except subprocess.TimeoutExpired:
            return f"not ready within {LONGEST} s"
        try:
            return collect(json.loads(report.read_text()))
        except (OSError, ValueError):
            last = ended.stderr.strip().splitlines()[-1:] or ["no word"]
            return f"it ended with {ended.returncode}: {last[0]}"


def machine():
    """What a reader must know to compare figures."""
    def first(path, pattern):
        try:
            return re.search(pattern, pathlib.Path(path).read_text(), re.MULTILINE).group(1)
        except (OSError, AttributeError):
            return "unknown"

    model = re.sub(r"\s+", " ", first("/proc/cpuinfo", r"^model name\s*: (.*)$"))
    system = first("/etc/os-release", r'^PRETTY_NAME="?([^"\n]*)')
    return f"{os.cpu_count()} cores of {model}, {system}, Linux {platform.release().split('-')[0]}"


def sit(runs, rows, plots, programs, quick):
    found = {}
    for number, run in enumerate(runs, 1):
        print(f"[{number}/{len(runs)}] {run.program}", end=" ", file=sys.stderr, flush=True)
        began = time.monotonic()
        found[run.program] = measure(run, programs, benchmarks_of(run.program, rows, plots), quick)
        told = f": {found[run.program]}" if isinstance(found[run.program], str) else ""
        print(f"{time.monotonic() - began:.0f} s{told}", file=sys.stderr, flush=True)
    return Sitting(machine(), found)

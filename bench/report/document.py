"""Puts the table into docs/performance.md, in the place of the one that is there."""

import textwrap

BEGIN, END = "<!-- The table: bench/run --markdown -->", "<!-- The table ends -->"


def with_table(text, table, how_taken):
    before, begin, rest = text.partition(BEGIN)
    _, end, behind = rest.partition(END)
    if not (begin and end):
        raise SystemExit(f"The document has no place for the table: a line {BEGIN} and a line {END}")
    return f"{before}{BEGIN}\n\n{table}\n\n{textwrap.fill(how_taken, 120)}\n\n{END}{behind}"


def update(path, table, how_taken):
    path.write_text(with_table(path.read_text(), table, how_taken))

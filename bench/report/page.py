"""Prints the page of a run: page.py RESULTS.json SLOTS.md NOTES.md MACHINE."""

import sys

from classes import CLASSES, PEER_NOTES
from goals import FILL_ARRAYS, GOALS, ROW_GOALS, RUNS, CACHED
from results import BLOCK, PLANES, ROWS, Results

INTRODUCTION = """# Benchmarks

How fast each kernel is, beside ordinary C++ that does the same, the best known code for the job,
and the limit of the memory. Printed by `scripts/benchmark`, which measures it all anew.

![Each kernel in each form against the limit of the memory](benchmarks.svg)

{machine}

- All forms take turns in random order in one run of {repetitions} rounds. Figures are cycles a
  sample, the least of the rounds, and ratios are of these; the median round takes {spread:.0%} more.
  A ratio above 1 says that the other one takes longer than the kernel. Planes hold noise and have 256 KiB unless said otherwise;
  three figures are for planes of 16 KiB, 256 KiB and 16 MiB.
- *Scalar* is the kernel a sample at a time, *16-byte* the form that is installed on a processor of
  this kind, with its instruction set. *32-byte* is the same text compiled for AVX2, which is not
  installed: what wider registers would bring.
- *g++ -O3* and *no vectoriser* are the ordinary routine as g++ compiles it for the same instruction
  set (SSE2), with and without its vectoriser: the host's own routine, or where that is written for
  the eye alone, one with the usual arithmetic (`bench/ordinary/`).
- *Limit* is the cheapest loop in 16-byte registers that reads and writes the same planes.
  It is no bound on kernels that do not write everything, or that the C library writes for.
"""


def number(value):
    return "" if value is None else f"{value:.3f}" if value < 1 else f"{value:.2f}" if value < 10 else f"{value:.1f}"


def times(value):
    return "-" if value is None else f"{value:.2f}" if value < 10 else f"{value:.0f}"


class Page:
    def __init__(self, results):
        self.results = results

    def cell(self, case, form, shape=CACHED):
        r = self.results
        return number(r.least(case, form, shape)) if r.has(case, form, shape) else ""

    def ratios(self, case, form_at, shapes):
        """The ratio at each shape; empty if there is none at all."""
        found = [self.results.ratio(case, form_at(shape), shape) for shape in shapes]
        return " / ".join(map(times, found)) if any(found) else ""

    def print_class(self, title, cases):
        r = self.results
        shape_of = {case: CACHED if r.has(case, r.installed(case), CACHED) else BLOCK for case in cases}
        print(f"\n## {title}\n")
        print("| kernel | scalar | 16-byte | 32-byte | g++ -O3 | no vectoriser | peer | limit "
              "| x g++ -O3 | x peer | of the limit |")
        print("|---|---|---|---|---|---|---|---|---|---|---|")
        notes = []
        for case in cases:
            shape, own = shape_of[case], r.installed(case)
            shapes = PLANES if shape == CACHED else [shape]
            peer = r.peer(case, shape)
            peer_text = f"{self.cell(case, peer, shape)} {peer}" if peer else ""
            wide = f"{self.cell(case, own, shape)} {own}" if own != "scalar" else ""
            cells = [r.name(case), self.cell(case, "scalar", shape), wide, self.cell(case, "AVX2", shape),
                     self.cell(case, "vectorised", shape), self.cell(case, "unvectorised", shape), peer_text,
                     self.cell(case, "limit", shape), self.ratios(case, lambda _: "vectorised", shapes),
                     self.ratios(case, lambda at: r.peer(case, at), shapes),
                     self.ratios(case, lambda _: "limit", shapes)]
            print("| " + " | ".join(cells) + " |")
            note = PEER_NOTES.get((case.split(" ")[0], peer))
            if note and (peer, note) not in notes:
                notes.append((peer, note))
        for peer, note in notes:
            print(f"\n{peer} {note}.")

    def print_rows(self):
        r = self.results
        print("\n## Short rows\n\nCycles a row in the installed form, 64 rows of each width;"
              " in brackets how many times as long the scalar form takes.\n")
        print("| kernel | 5 | 15 | 33 | 100 |\n|---|---|---|---|---|")
        for _, cases in CLASSES:
            for case in cases:
                own = r.installed(case)
                if own == "scalar" or not r.has(case, own, ROWS[0]):
                    continue
                cells = []
                for shape in ROWS:
                    cycles = r.least(case, own, shape) * int(shape.split("x")[1])
                    ratio = r.ratio(case, "scalar", shape)
                    cells.append(f"{cycles:.1f}" + (f" ({times(ratio)})" if ratio else ""))
                print(f"| {r.name(case)} | " + " | ".join(cells) + " |")

    def print_runs(self):
        print("\n## Runs of bytes\n\nHow many times as long the C library takes.\n")
        print("| bytes | copy | fill |\n|---|---|---|")
        for size in RUNS:
            shape = f"1x{size}"
            cells = [times(self.results.ratio(f"memo/{slot} run", "C library", shape)) for slot in (0, 3)]
            print(f"| {size} | " + " | ".join(cells) + " |")

    def print_fill_arrays(self):
        r = self.results
        counts = [2, 4, 8, 16, 64, 256, 4096]
        print("\n## Fill arrays\n\nHow many times as long `std::sort` and a plain merge take, by crossings a row"
              " over as many settled ones: scattered anew in each row, or as in the row above but for a step.\n")
        print("| rows | " + " | ".join(map(str, counts)) + " |\n|---" * 1 + "|---" * len(counts) + "|")
        for case in FILL_ARRAYS:
            cells = [times(r.ratio(case, "vectorised", str(count), "plain")) for count in counts]
            print(f"| {', '.join(case.split('/')[2:])} | " + " | ".join(cells) + " |")

    def print_goals(self, notes):
        r = self.results
        print("\n## Goals\n\nThe worst case of each; unless said otherwise, times g++ -O3 in planes of 256 KiB.\n")
        print("| goal | at least | measured | | reason |\n|---|---|---|---|---|")

        def line(key, what, wanted, measured, where, is_reached):
            reason = "" if is_reached else notes.get(key, "")
            verdict = "reached" if is_reached else "**short**"
            print(f"| {what} | {wanted} | {measured} ({where}) | {verdict} | {reason} |")

        for goal in GOALS:
            worst = goal.worst(r)
            if not worst:
                continue
            ratio, case, shape = worst
            where = ", ".join(case.split("/")[2:]) if case.startswith("path") else r.name(case)
            if len(goal.shapes) > 1:
                where += f", {shape.removeprefix('1x')}"
            line(goal.key, goal.what, f"{goal.least:g}", times(ratio), where, ratio >= goal.least)
        for shape, most in ROW_GOALS.items():
            width = shape.split("x")[1]
            cycles = r.least("blnd/2", r.installed("blnd/2"), shape) * int(width)
            line(f"rows-{width}", f"masked normal blend, cycles for a row of {width}", f"at most {most}",
                 f"{cycles:.1f}", r.installed("blnd/2"), cycles <= most)
        slowest = min((ratio, case, shape) for _, cases in CLASSES for case in cases for shape in PLANES + ROWS
                      if (ratio := r.ratio(case, "scalar", shape)) and r.installed(case) != "scalar")
        line("narrow", "no kernel slower than its scalar form at any width", "1", times(slowest[0]),
             f"{r.name(slowest[1])}, {slowest[2]}", slowest[0] >= 0.97)


def read_notes(path):
    """Lines `key: reason`, continued by lines that are indented."""
    notes, key = {}, None
    with open(path, encoding="utf-8") as file:
        for line in file:
            if line.startswith(" ") and key:
                notes[key] += " " + line.strip()
            elif ":" in line and not line.startswith("#"):
                key, reason = line.split(":", 1)
                notes[key] = reason.strip()
    return notes


def main():
    results_path, slots_path, notes_path, machine = sys.argv[1:]
    results = Results(results_path, slots_path)
    page = Page(results)
    repetitions = len(results.values["blnd/2"]["SSE2"][CACHED])
    print(INTRODUCTION.format(machine=machine, repetitions=repetitions,
                              spread=results.spread() - 1), end="")
    page.print_goals(read_notes(notes_path))
    for title, cases in CLASSES:
        page.print_class(title, [case for case in cases if case in results.values])
    page.print_rows()
    page.print_runs()
    page.print_fill_arrays()


main()

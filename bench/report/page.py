"""Prints the page of a run: page.py RESULTS.json SLOTS.md NOTES.md MACHINE."""

import sys

import goals
from classes import CLASSES, PEER_NOTES
from goals import FILL_ARRAYS, FOLDED_OUTLINES, IN_CACHE, NOISE, OUTLINES, RUNS
from results import BLOCK, CACHED, CALLS, FORMS, HUGE, PLANES, ROWS, SIXTEEN, WIDER, Results

INTRODUCTION = """# Benchmarks

How fast each kernel is, beside ordinary C++ that does the same, the best known code for the job,
and the limit of the memory. Printed by `scripts/benchmark`, which measures it all anew.

![Each kernel in each form against the limit of the memory](benchmarks.svg)

{machine}

{ports}

- All forms take turns in random order in one run of {repetitions} rounds. Figures are cycles a
  sample, the least of the rounds, and ratios are of these; the median round takes {spread:.0%} more.
- A ratio above 1 says that the other one takes longer than the kernel. Planes hold noise and have
  256 KiB unless said otherwise; three figures are for planes of 16 KiB, 256 KiB and 16 MiB, two for
  the first two of these.
- A column a form: *scalar* takes a sample at a time, *SSE2* and *SSSE3* 16 bytes, *AVX2* 32,
  *AVX512* 64. The widest that stands in a kernel's line is the one in its slot here. An SSE2 form
  that an SSSE3 form replaces is not measured at 16 MiB.
- *g++ -O3* and *no vectoriser* are the ordinary routine as g++ compiles it for SSE2, with and
  without its vectoriser: the host's own routine, or where that is written for the eye alone, one
  with the usual arithmetic (`host/ordinary/`).
- *Peer* is the best of libyuv, OpenCV and the C library, each in the widest instructions it chooses.
- *Limit* is the cheapest loop that reads and writes the same planes: in 16 bytes, and in the widest
  registers that run. *Of the limit* takes that of the installed form's width. It is no bound on
  kernels that do not write everything, or that the C library writes for.
- *Misaligned*: every plane starts another odd number of samples past a boundary of 64 bytes.
"""
PORTS = {
    None: "This processor does not run 64-byte registers, or its system does not save them.",
    True: "This processor takes 64-byte registers whole: it adds {wide:.0f} bytes a cycle in them, {half:.0f} in 32-byte ones.",
    False: "This processor splits 64-byte registers into halves: it adds {wide:.0f} bytes a cycle in them, "
           "{half:.0f} in 32-byte ones. Goals that ask for whole ones are not judged on it.",
}

UNKNOWN = "Not known here: the reasons that are known were found on another processor."


def number(value):
    return "" if value is None else f"{value:.3f}" if value < 1 else f"{value:.2f}" if value < 10 else f"{value:.1f}"


def times(value):
    return "-" if value is None else f"{value:.2f}" if value < 10 else f"{value:.0f}"


def several(values):
    """Returns ratios side by side; an empty text if there are none at all."""
    values = list(values)
    return " / ".join(map(times, values)) if any(values) else ""


def print_row(*cells):
    print("| " + " | ".join(cells) + " |")


def print_head(*cells):
    print_row(*cells)
    print("|---" * len(cells) + "|")


class Page:
    def __init__(self, results, notes, machine):
        self.results = results
        self.notes = notes
        self.are_notes_of_this = machine.startswith(notes["measured on"])

    def cell(self, case, form, shape=CACHED):
        r = self.results
        return number(r.least(case, form, shape)) if r.has(case, form, shape) else ""

    def ratios(self, case, role, shapes, form="installed"):
        return several(self.results.ratio(case, role, shape, form) for shape in shapes)

    def cases_of_classes(self):
        return [case for _, cases in CLASSES for case in cases if case in self.results.values]

    def print_class(self, title, cases):
        r = self.results
        print(f"\n## {title}\n")
        print_head("kernel", *FORMS, "g++ -O3", "no vectoriser", "peer", "limit, 16 bytes", "widest",
                   "x g++ -O3", "x peer", "of the limit")
        notes = []
        for case in cases:
            shape = CACHED if r.has(case, r.installed(case), CACHED) else BLOCK
            shapes = PLANES if shape == CACHED else [shape]
            peer = r.form(case, "peer", shape)
            print_row(r.name(case), *(self.cell(case, form, shape) for form in FORMS),
                      self.cell(case, "vectorised", shape), self.cell(case, "unvectorised", shape),
                      f"{self.cell(case, peer, shape)} {peer}" if peer else "",
                      self.cell(case, "limit", shape), self.cell(case, "limit widest", shape),
                      *(self.ratios(case, role, shapes) for role in ("vectorised", "peer", "own limit")))
            note = PEER_NOTES.get((case.split(" ")[0], peer))
            if note and (peer, note) not in notes:
                notes.append((peer, note))
        for peer, note in notes:
            print(f"\n{peer} {note}.")

    def print_forms(self):
        r = self.results
        if r.widest() not in WIDER:
            return
        print("\n## Forms beside each other\n\nHow many times as long the next narrower form takes, of two of 16 bytes "
              "the better one; and how many times as long a form takes where no plane is aligned.\n")
        print_head("kernel", "AVX2 over 16 bytes", "AVX512 over AVX2", *(f"{form}, misaligned" for form in WIDER))
        for case in self.cases_of_classes():
            shapes = PLANES if r.has(case, r.installed(case), CACHED) else [BLOCK]
            cells = [self.ratios(case, "16-byte", shapes, "AVX2"), self.ratios(case, "AVX2", shapes, "AVX512")]
            cells += [several(r.misaligned(case, form, shape) for shape in IN_CACHE) for form in WIDER]
            if any(cells):
                print_row(r.name(case), *cells)
        if r.has("blnd/2", "hand SSE2", CACHED):
            print("\nThe masked normal blend written by hand: how many times as long as the kernel it takes.\n")
            print_head("form", *(f"{size} KiB" for size in (16, 256)))
            for form in SIXTEEN + WIDER:
                if r.has("blnd/2", form, CACHED):
                    print_row(form, *(times(r.ratio("blnd/2", "hand " + form, shape, form)) for shape in IN_CACHE))

    def print_narrow_slots(self):
        r = self.results
        widest = r.widest()
        kept = {}
        for case in r.values:
            slot = "/".join(case.split(" ")[0].split("/")[:2])
            form = r.installed(case)
            if form and form != widest:
                kept[slot] = form
        if not widest or not kept:
            return
        print(f"\n## Slots that keep a narrower form\n\nIn every other slot that was measured stands {widest}.\n")
        print(f"The reasons were found on {self.notes['measured on']}.\n")
        print_head("slot", "form", "why")
        for slot, form in sorted(kept.items(), key=lambda item: (item[0].split("/")[0], int(item[0].split("/")[1]))):
            print_row(f"{slot} {r.names.get(slot, '')}", form, self.notes.get("keeps " + slot, ""))

    def print_rows(self):
        r = self.results
        rows = [case for case in self.cases_of_classes()
                if r.installed(case) != "scalar" and r.has(case, r.installed(case), ROWS[0])]
        if not rows:
            return
        print("\n## Short rows\n\nCycles a row in the installed form, 64 rows of each width;"
              " in brackets how many times as long the scalar and the next narrower form take.\n")
        print_head("kernel", "form", *(shape.split("x")[1] for shape in ROWS))
        for case in rows:
            own = r.installed(case)
            cells = []
            for shape in ROWS:
                cycles = r.least(case, own, shape) * int(shape.split("x")[1])
                found = [r.ratio(case, "scalar", shape)]
                if own in WIDER:
                    found.append(r.ratio(case, r.narrower(case, own, shape), shape))
                cells.append(f"{cycles:.1f}" + (f" ({', '.join(map(times, found))})" if any(found) else ""))
            print_row(r.name(case), own, *cells)

    def print_huge(self):
        r = self.results
        cases = [case for case in self.cases_of_classes() if r.has(case, r.installed(case), HUGE)]
        if not cases:
            return
        print("\n## Planes of 64 MiB\n\nPlanes that no cache holds, in the installed form: cycles a sample in planes of"
              " 256 KiB, 16 and 64 MiB; of the limit of its width in the latter two; and how many times the work of"
              " one thread two threads do in the same time, each on its own planes.\n")
        print_head("kernel", "256 KiB", "16 MiB", "64 MiB", "of the limit", "two threads, 256 KiB", "16 MiB")
        for case in cases:
            own = r.installed(case)
            print_row(r.name(case), *(self.cell(case, own, shape) for shape in (CACHED, PLANES[2], HUGE)),
                      self.ratios(case, "own limit", (PLANES[2], HUGE)),
                      *(several([r.speed_up(case, shape)]) for shape in (CACHED, PLANES[2])))

    def print_calls(self):
        found = [(self.results.arguments[case], case) for case in self.cases_of_classes()
                 if self.results.call(case, CALLS[0]) is not None]
        if not found:
            return
        print("\n## The cost of a call\n\nCycles of a call on planes of these rows and columns in the installed form,"
              " beyond those of a routine that returns at once; in brackets how many times as long as the cheapest"
              " kernel that takes as many arguments.\n")
        print_head("arguments", "kernel", *(shape.replace("x", " x ") for shape in CALLS))
        for count, case in sorted(found, key=lambda each: each[0]):
            cells = []
            for shape in CALLS:
                least = min(self.results.call(other, shape) for other_count, other in found if other_count == count)
                cycles = self.results.call(case, shape)
                cells.append(f"{cycles:.0f} ({times(cycles / max(least, 1))})")
            print_row(str(count), self.results.name(case), *cells)

    def print_runs(self):
        if "memo/0 run" not in self.results.values:
            return
        print("\n## Runs of bytes\n\nHow many times as long the C library takes.\n")
        print_head("bytes", "copy", "fill")
        for size in RUNS:
            print_row(str(size), *(times(self.results.ratio(f"memo/{slot} run", "C library", f"1x{size}"))
                                   for slot in (0, 3)))

    def print_fill_arrays(self):
        r = self.results
        if FILL_ARRAYS[0] not in r.values:
            return
        counts = [2, 4, 8, 16, 64, 256, 4096]
        print("\n## Fill arrays\n\nHow many times as long `std::sort` and a plain merge take, by crossings a row"
              " over as many settled ones: scattered anew in each row, or as in the row above but for a step.\n")
        print_head("rows", *map(str, counts))
        for case in FILL_ARRAYS:
            print_row(", ".join(case.split("/")[2:]),
                      *(times(r.ratio(case, "vectorised", str(count))) for count in counts))
        print("\nThe same for outlines over a ring, as the demonstration's rasteriser gives them.\n")
        print_head("rule", *OUTLINES)
        for case in FOLDED_OUTLINES:
            print_row(case.split("/")[3], *(times(r.ratio(case, "vectorised", shape)) for shape in OUTLINES))

    def reason(self, key, case, shape):
        """Returns why a goal is missed: in a slot, in a shape, or anywhere."""
        if not self.are_notes_of_this:
            return UNKNOWN
        found = (self.notes.get(" ".join((key, where)).rstrip()) for where in (case.split(" ")[0], shape, ""))
        return next(filter(None, found), "Not known.")

    def print_goal(self, key, what, wanted, measured, case, shape, is_reached, is_judged=True):
        verdict = "not judged" if not is_judged else "reached" if is_reached else "**short**"
        print_row(what, wanted, measured, verdict, self.reason(key, case, shape) if verdict == "**short**" else "")

    def print_goal_list(self, title, listed):
        r = self.results
        judged = [(goal, worst) for goal in listed if (worst := goal.worst(r))]
        if not judged:
            return
        print(f"\n### {title}\n")
        print_head("goal", "at least", "measured", "", "reason")
        for goal, (ratio, case, shape) in judged:
            where = ", ".join(case.split("/")[2:]) if case.startswith("path") else r.name(case)
            if len(goal.shapes) > 1:
                where += f", {shape.removeprefix('1x')}"
            self.print_goal(goal.key, goal.what, f"{goal.least:g}", f"{times(ratio)} ({where})", case, shape,
                            ratio >= goal.least * goal.allowed,
                            not goal.needs_whole_ports or r.has_whole_ports())

    def print_goals(self):
        print("\n## Goals\n\nThe worst case of each.")
        self.print_goal_list("AVX2 over 16 bytes, in planes of 16 and 256 KiB", goals.WIDE_GOALS)
        self.print_goal_list("AVX512 over AVX2, in planes of 16 and 256 KiB, where 64-byte registers are taken whole",
                             goals.WIDEST_GOALS)
        self.print_width_goals()
        self.print_goal_list("The installed form beside the best peer, in planes of 16 and 256 KiB", goals.PEER_GOALS)
        self.print_goal_list("The better form of 16 bytes, times g++ -O3 in planes of 256 KiB unless said otherwise",
                             goals.NARROW_GOALS)
        self.print_row_goals()

    def print_width_goals(self):
        r = self.results
        if r.widest() not in WIDER:
            return
        print("\n### Everywhere\n")
        print_head("goal", "limit", "measured", "", "reason")
        for form in WIDER:
            for key, where, shapes, most in (("slower", "aligned or not", PLANES + [BLOCK], 1 / NOISE),
                                             ("short", "in short rows", ROWS, goals.SHORT_ROW_NOISE)):
                found = goals.against_narrower(r, form, shapes)
                if not found:
                    continue
                ratio, case, shape = max(found)
                slower = sum(1 for each, _, _ in found if each > most)
                self.print_goal(f"{key}-{form}", f"{form} not slower than the next narrower form, {where}",
                                f"at most {most:.2f} x",
                                f"{times(ratio)} ({r.name(case)}, {shape}); {slower} of {len(found)} slower",
                                case, shape, slower == 0)
        for shape, most in goals.MISALIGNED_GOALS.items():
            if worst := goals.worst_misaligned(r, shape):
                ratio, case, form = worst
                self.print_goal(f"misaligned-{shape}", f"misaligned planes, {shape}", f"at most {most} x",
                                f"{times(ratio)} ({r.name(case)}, {form})", case, shape, ratio <= most)

    def print_row_goals(self):
        r = self.results
        for shape, most in goals.ROW_GOALS.items():
            own = r.installed("blnd/2")
            if not own:
                break
            width = shape.split("x")[1]
            cycles = r.least("blnd/2", own, shape) * int(width)
            self.print_goal(f"rows-{width}", f"masked normal blend as installed, cycles for a row of {width}",
                            f"at most {most}", f"{cycles:.1f} ({own})", "blnd/2", shape, cycles <= most)
        found = [(ratio, case, shape) for case in r.cases() for shape in PLANES + ROWS
                 if (ratio := r.ratio(case, "scalar", shape, "16-byte"))]
        if found:
            ratio, case, shape = min(found)
            self.print_goal("narrow", "no kernel slower than its scalar form at any width", "1",
                            f"{times(ratio)} ({r.name(case)}, {shape})", case, shape, ratio >= NOISE)


def read_notes(path):
    """Reads lines `key: reason`, which indented lines continue."""
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
    page = Page(results, read_notes(notes_path), machine)
    ports = PORTS[results.has_whole_ports()].format(wide=results.bytes_added("AVX512") or 0,
                                                    half=results.bytes_added("AVX2") or 0)
    print(INTRODUCTION.format(machine=machine, ports=ports, repetitions=results.repetitions(),
                              spread=results.spread() - 1), end="")
    page.print_goals()
    page.print_narrow_slots()
    for title, cases in CLASSES:
        if cases := [case for case in cases if case in results.values]:
            page.print_class(title, cases)
    page.print_forms()
    page.print_huge()
    page.print_rows()
    page.print_calls()
    page.print_runs()
    page.print_fill_arrays()


main()

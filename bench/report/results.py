"""What a run of vantrix-bench measured."""

import json
import re
import statistics
from collections import defaultdict

PLANES = ["64x256", "256x1024", "4096x4096"]
CACHED = "256x1024"
ROWS = ["64x5", "64x15", "64x33", "64x100"]
BLOCK = "1x128"
HUGE = "8192x8192"
CALLS = ["1x1", "1x16", "8x8"]
THREADS = " two threads"
SIXTEEN = ["SSE2", "SSSE3"]  # forms of 16 bytes
WIDER = ["AVX2", "AVX512"]  # narrowest first, as in all lists of forms
FORMS = ["scalar"] + SIXTEEN + WIDER
PEERS = ["libyuv", "OpenCV", "C library"]
# A processor that takes 64-byte registers whole adds at least this many times as many bytes a cycle
# in them as in 32-byte registers; one that splits them adds no more.
WHOLE_PORTS = 1.15


class Results:
    """Cycles a sample (fill arrays: a row), by case, form and shape, for each repetition."""

    def __init__(self, path, slots_page):
        with open(path, encoding="utf-8") as file:
            run = json.load(file)
        self.context = run["context"]
        self.values = defaultdict(lambda: defaultdict(dict))
        self.arguments = {}  # how many, by case
        for line in run["benchmarks"]:
            if line["run_type"] != "iteration":
                continue
            case, form, shape = self._place(line["name"])
            per_row = case.startswith("path")
            value = line["cycles_per_row" if per_row else "cycles_per_sample"]
            self.values[case][form].setdefault(shape, []).append(value)
            if "arguments" in line:
                self.arguments[case] = int(line["arguments"])
        self.names = {}
        suite = None
        with open(slots_page, encoding="utf-8") as file:
            for line in file:
                if line.startswith("## "):
                    suite = line[3:].strip()
                elif match := re.match(r"\| (\d+) \| `(\w+)`", line):
                    self.names[f"{suite}/{match[1]}"] = match[2]

    @staticmethod
    def _place(name):
        parts = name.split("/")
        if parts[0] == "path":  # suite, slot, form, what the rows are like, rule, crossings
            return "/".join(parts[:2] + parts[3:5]), parts[2], parts[5]
        return "/".join(parts[:2]), parts[2], parts[3]

    def name(self, case):
        slot, _, setting = case.partition(" ")
        name = self.names.get(slot, slot)
        return f"{name}, {setting}" if setting else name

    def cases(self):
        """Returns the cases of kernels, except misaligned ones and those in several threads."""
        return [case for case in self.values
                if not case.startswith("path") and not case.endswith(("misaligned", THREADS))]

    def has(self, case, form, shape):
        return bool(form) and case in self.values and shape in self.values[case].get(form, {})

    def least(self, case, form, shape):
        return min(self.values[case][form][shape])

    def median(self, case, form, shape):
        return statistics.median(self.values[case][form][shape])

    def repetitions(self):
        return max(len(values) for forms in self.values.values() for shapes in forms.values()
                   for values in shapes.values())

    def widest(self):
        """Returns the widest form that runs on the processor that was measured."""
        return max((form for forms in self.values.values() for form in forms if form in FORMS),
                   key=FORMS.index, default=None)

    def installed(self, case):
        """Returns the form that is in the slot on the processor that was measured."""
        forms = self.values.get(case, {})
        return next((form for form in reversed(FORMS) if form in forms), None)

    def best(self, case, forms, shape):
        forms = [form for form in forms if self.has(case, form, shape)]
        return min(forms, key=lambda form: self.least(case, form, shape), default=None)

    def form(self, case, role, shape):
        """Returns a form by its name or by its role: installed, 16-byte, peer, or own limit."""
        if role == "installed":
            return self.installed(case)
        if role == "16-byte":
            return self.best(case, SIXTEEN, shape)
        if role == "peer":
            return self.best(case, PEERS, shape)
        if role == "own limit":
            return "limit widest" if self.installed(case) in WIDER else "limit"
        return role

    def narrower(self, case, form, shape):
        """Returns the next narrower form that was measured, the best if several have that width."""
        if form == "AVX512" and self.has(case, "AVX2", shape):
            return "AVX2"
        return self.best(case, SIXTEEN, shape) if form in WIDER else "scalar"

    def ratio(self, case, other, shape, form="installed"):
        """Returns how many times as long as `form` another takes; None if one was not measured."""
        form, other = self.form(case, form, shape), self.form(case, other, shape)
        if not self.has(case, other, shape) or not self.has(case, form, shape):
            return None
        return self.least(case, other, shape) / self.least(case, form, shape)

    def misaligned(self, case, form, shape):
        """Returns how many times as long a form takes if no plane is aligned."""
        moved = case + " misaligned"
        if not self.has(moved, form, shape) or not self.has(case, form, shape):
            return None
        return self.least(moved, form, shape) / self.least(case, form, shape)

    def call(self, case, shape):
        """Returns the cycles of a call beyond those of a routine that returns at once; None if not measured."""
        form = self.installed(case)
        if not self.has(case, form, shape) or not self.has(case, "nothing", shape):
            return None
        rows, columns = map(int, shape.split("x"))
        return rows * columns * (self.least(case, form, shape) - self.least(case, "nothing", shape))

    def speed_up(self, case, shape):
        """Returns how many times the work of one thread two do in the same time; None if not measured."""
        form, together = self.installed(case), case + THREADS
        if not self.has(case, form, shape) or not self.has(together, form, shape):
            return None
        return 2 * self.least(case, form, shape) / self.least(together, form, shape)

    def bytes_added(self, form):
        """Returns the bytes added a cycle, in registers; None if the form does not run."""
        added = self.context.get(f"bytes added per cycle, {form}")
        return added and float(added)

    def has_whole_ports(self):
        """Returns whether 64-byte registers are taken whole; None if there are none."""
        wide, half = self.bytes_added("AVX512"), self.bytes_added("AVX2")
        return wide and half and wide / half >= WHOLE_PORTS

    def spread(self):
        """Returns the ratio of median to least value, in the median case."""
        return statistics.median(
            self.median(case, form, shape) / self.least(case, form, shape)
            for case, forms in self.values.items() for form, shapes in forms.items() for shape in shapes)

"""What a run of vantrix-bench measured."""

import json
import re
import statistics
from collections import defaultdict

PLANES = ["64x256", "256x1024", "4096x4096"]
ROWS = ["64x5", "64x15", "64x33", "64x100"]
BLOCK = "1x128"
WIDE = ["SSE41", "SSSE3", "SSE2"]  # the widest first, which is the one that is installed
PEERS = ["libyuv", "OpenCV", "C library"]


class Results:
    """Cycles a sample (fill arrays: a row), by case, form and shape, for each repetition."""

    def __init__(self, path, slots_page):
        with open(path, encoding="utf-8") as file:
            run = json.load(file)
        self.context = run["context"]
        self.values = defaultdict(lambda: defaultdict(dict))
        for line in run["benchmarks"]:
            if line["run_type"] != "iteration":
                continue
            case, form, shape = self._place(line["name"])
            per_row = case.startswith("path")
            value = line["cycles_per_row" if per_row else "cycles_per_sample"]
            self.values[case][form].setdefault(shape, []).append(value)
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

    def has(self, case, form, shape):
        return bool(form) and shape in self.values[case].get(form, {})

    def least(self, case, form, shape):
        return min(self.values[case][form][shape])

    def median(self, case, form, shape):
        return statistics.median(self.values[case][form][shape])

    def installed(self, case):
        """The form that a processor of this kind gets."""
        forms = self.values[case]
        return next((form for form in WIDE + ["scalar", "plain"] if form in forms), None)

    def peer(self, case, shape):
        """The best of the peers."""
        peers = [form for form in PEERS if self.has(case, form, shape)]
        return min(peers, key=lambda form: self.least(case, form, shape), default=None)

    def ratio(self, case, other, shape, form=None):
        """How many times as long as the installed form another takes; None if not measured."""
        form = form or self.installed(case)
        if not self.has(case, other, shape) or not self.has(case, form, shape):
            return None
        return self.least(case, other, shape) / self.least(case, form, shape)

    def spread(self):
        """By how much medians exceed the least: in the middle case."""
        return statistics.median(
            self.median(case, form, shape) / self.least(case, form, shape)
            for case, forms in self.values.items() for form, shapes in forms.items() for shape in shapes)

"""Printers for gdb: `source tools/debugger/gdb_printers.py`, then `print` or `info locals`.

Lanes are shown as numbers, planes with their first samples, fill arrays row by row.
"""
import pathlib
import re
import sys

import gdb
import gdb.printing

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import shown


def number(value):
    return float(value) if value.type.strip_typedefs().code == gdb.TYPE_CODE_FLT else int(value)


class LanesPrinter:
    def __init__(self, value):
        self._value = value

    def to_string(self):
        first, last = self._value.type.strip_typedefs().range()
        lane_bytes = self._value.type.strip_typedefs().target().sizeof
        return shown.lanes([number(self._value[i]) for i in range(first, last + 1)], lane_bytes)


class PlanePrinter:
    def __init__(self, value):
        self._value = value

    def to_string(self):
        row = self._value["row"]
        try:
            samples = [number(row[i]) for i in range(shown.SHOWN_SAMPLES)]
        except gdb.MemoryError:
            samples = None
        return shown.plane(int(row), int(self._value["stride"]), samples)


class FillArrayPrinter:
    def __init__(self, value):
        words = value.address.cast(gdb.lookup_type("unsigned int").pointer())
        self._array = shown.FillArray(
            lambda index, count: [int(words[index + i]) for i in range(count)])

    def to_string(self):
        return str(self._array)

    def children(self):
        for index in range(min(self._array.row_count(), shown.SHOWN_ROWS)):
            try:
                row = self._array.row(index)
            except gdb.MemoryError:
                row = "unreadable"
            yield f"row {self._array.first_row + index}", row


PLANE = re.compile(r"^vantrix::((Plane|Target|Output)Of<.*>|Weights)$")


def find_printer(value):
    kind = value.type.strip_typedefs().unqualified()
    if kind.code == gdb.TYPE_CODE_ARRAY and "vector_size" in str(kind):
        return LanesPrinter(value)
    if kind.code == gdb.TYPE_CODE_STRUCT and PLANE.match(kind.name or ""):
        return PlanePrinter(value)
    if kind.code == gdb.TYPE_CODE_STRUCT and kind.name == "vantrix::FillArray" and value.address:
        return FillArrayPrinter(value)
    return None


find_printer.__name__ = "vantrix"
gdb.printing.register_pretty_printer(None, find_printer, replace=True)

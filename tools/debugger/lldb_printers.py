"""Printers for lldb: `command script import tools/debugger/lldb_printers.py`, then `frame variable`.

Lanes are shown as numbers, planes with their first samples, fill arrays row by row.
"""
import pathlib
import struct
import sys

import lldb

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import shown

FORMATS = {
    lldb.eBasicTypeUnsignedChar: "B", lldb.eBasicTypeSignedChar: "b", lldb.eBasicTypeChar: "b",
    lldb.eBasicTypeUnsignedShort: "H", lldb.eBasicTypeShort: "h",
    lldb.eBasicTypeUnsignedInt: "I", lldb.eBasicTypeInt: "i",
    lldb.eBasicTypeUnsignedLong: "Q", lldb.eBasicTypeLong: "q",
    lldb.eBasicTypeUnsignedLongLong: "Q", lldb.eBasicTypeLongLong: "q",
    lldb.eBasicTypeFloat: "f", lldb.eBasicTypeDouble: "d",
}


def unpacked(kind, data):
    letter = FORMATS[kind.GetCanonicalType().GetUnqualifiedType().GetBasicType()]
    return list(struct.unpack(f"<{len(data) // struct.calcsize(letter)}{letter}", data))


def read(value, address, size):
    """Returns bytes of the program's memory; None if they cannot be read."""
    error = lldb.SBError()
    data = value.GetProcess().ReadMemory(address, size, error)
    return data if error.Success() and len(data) == size else None


def show_lanes(value, _):
    value = value.GetNonSyntheticValue()
    kind = value.GetType().GetCanonicalType()
    lane = kind.GetVectorElementType()
    data = value.GetData()
    error = lldb.SBError()
    raw = data.ReadRawData(error, 0, kind.GetByteSize())
    return shown.lanes(unpacked(lane, raw), lane.GetByteSize())


def show_plane(value, _):
    value = value.GetNonSyntheticValue()
    row = value.GetChildMemberWithName("row")
    stride = value.GetChildMemberWithName("stride").GetValueAsSigned()
    sample, address = row.GetType().GetPointeeType(), row.GetValueAsUnsigned()
    data = read(value, address, shown.SHOWN_SAMPLES * sample.GetByteSize())
    return shown.plane(address, stride, None if data is None else unpacked(sample, data))


def show_fill_array(value, _):
    value = value.GetNonSyntheticValue()
    address = value.GetLoadAddress()

    def words(index, count):
        data = read(value, address + 4 * index, 4 * count) if count else b""
        if data is None:
            raise MemoryError
        return struct.unpack(f"<{count}I", data)

    try:
        array = shown.FillArray(words)
        rows = [f"row {array.first_row + index} = {array.row(index)}"
                for index in range(min(array.row_count(), shown.SHOWN_ROWS))]
    except MemoryError:
        return "unreadable"
    return f"{array}: {{{', '.join(rows)}}}"


def is_lanes(kind, _):
    return kind.GetCanonicalType().IsVectorType()


def __lldb_init_module(debugger, _):
    for function, types in (
            ("show_lanes", "--recognizer-function " + __name__ + ".is_lanes"),
            ("show_plane", "-x '^vantrix::((Plane|Target|Output)Of<.*>|Weights)$'"),
            ("show_fill_array", "vantrix::FillArray")):
        debugger.HandleCommand(f"type summary add -F {__name__}.{function} {types}")

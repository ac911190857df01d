"""How lanes, planes and fill arrays are shown. The printers for gdb and lldb share this code."""

SHOWN_SAMPLES = 16  # of a plane's first row
SHOWN_ENTRIES = 64  # of a row of a fill array
SHOWN_ROWS = 1000
GROUP_BYTES = 16  # lanes move within groups of this many bytes
HEAD_WORDS = 26
FIRST_ROW, END_ROW, ROW_STRIDE = 1, 3, 5  # words of a fill array's head
FIRST_ENTRY = 2
WORD_BITS = 32


def numbers(values):
    return " ".join(f"{value:g}" if isinstance(value, float) else str(value) for value in values)


def lanes(values, lane_bytes):
    """Returns the text of a register, with a bar between its 16-byte groups."""
    group = max(1, GROUP_BYTES // lane_bytes)
    groups = [values[i:i + group] for i in range(0, len(values), group)]
    return f"{len(values)} x {lane_bytes * 8} bits [{' | '.join(map(numbers, groups))}]"


def plane(address, stride, samples):
    """Returns the text of a plane or a target. samples: the first of the row, or None if unreadable."""
    start = "unreadable" if samples is None else f"{numbers(samples)} ..."
    return f"row at {address:#x}, stride {stride}: {start}"


def signed(word):
    return word - (1 << WORD_BITS) if word >> (WORD_BITS - 1) else word


class FillArray:
    """read_words(index, count) gives words of the block, counted from its head."""

    def __init__(self, read_words):
        self._read = read_words
        head = read_words(0, HEAD_WORDS)
        self.first_row, self.end_row = signed(head[FIRST_ROW]), signed(head[END_ROW])
        self.row_stride = signed(head[ROW_STRIDE])

    def __str__(self):
        return f"rows {self.first_row} to {self.end_row - 1}, {self.row_stride} words each"

    def row_count(self):
        return max(0, self.end_row - self.first_row) if self.row_stride >= FIRST_ENTRY else 0

    def row(self, index):
        """Returns what row `index`, counted from 0, holds: spans, then crossings with their directions."""
        start = HEAD_WORDS + index * self.row_stride
        room = self.row_stride - FIRST_ENTRY
        settled, pending = self._read(start, FIRST_ENTRY)
        for count in (settled, pending):
            if count > room:
                return f"{settled} settled, {pending} pending: more than the {room} that fit"
        spans = self._read(start + FIRST_ENTRY, min(settled, SHOWN_ENTRIES))
        crossings = self._read(start + self.row_stride - pending, min(pending, SHOWN_ENTRIES))
        text = " ".join("..".join(map(str, spans[i:i + 2])) for i in range(0, len(spans), 2))
        text += " ..." if settled > len(spans) else ""
        text += "".join(f" {entry >> 1}{':up' if entry & 1 else ':down'}" for entry in crossings)
        text += " ..." if pending > len(crossings) else ""
        return text.strip() or "empty"

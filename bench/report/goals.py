"""The goals. Each is judged by the worst of its cases."""

from dataclasses import dataclass, field

from results import CACHED, PLANES, ROWS, WIDER

RUNS = [16, 31, 64, 100, 128, 200, 256, 500, 1000, 4000, 16000, 64000, 1 << 18, 1 << 20, 1 << 24]
IN_CACHE = PLANES[:2]
NOISE = 0.97  # a ratio this much below 1 counts as equal: two runs of one kernel differ as much
SHORT_ROW_NOISE = 1.05


@dataclass
class Goal:
    """`against` must take at least `least` times as long."""

    key: str
    what: str
    cases: list
    least: float
    against: str = "vectorised"
    shapes: list = field(default_factory=lambda: [CACHED])
    form: str = "16-byte"
    needs_whole_ports: bool = False
    allowed: float = 1  # the part of `least` that counts as reached

    def worst(self, results):
        """Returns the least ratio, its case and its shape."""
        found = []
        for case in self.cases:
            for shape in self.shapes:
                ratio = results.ratio(case, self.against, shape, self.form)
                if ratio is not None:
                    found.append((ratio, case, shape))
        return min(found, default=None)


def blends(*slots):
    return [f"blnd/{slot}" for slot in slots]


def filters(slot, *taps, scales=("0.73", "1.7")):
    return [f"rsmp/{slot} {count} taps x{scale}" for count in taps for scale in scales]


NORMAL = blends(2, 3)
EXTREMES_IN_PART = blends(7, 8, 10, 11)
MODES_IN_PART = blends(22, 26, 47, 48, 50, 51, 56, 57, 58, 59)
FULL = blends(24, 27, 49, 52, 74, 75, 97)
DISCS = [case + " disc" for case in blends(2, 7, 10, 22, 47, 50)]
CONVOLUTION = ["filt/28 3 taps", "filt/28 7 taps"]
VERTICAL_8 = filters(6, 2, 4, 6, scales=["0.73"])
VERTICAL_FLOAT = filters(27, 4, 6, scales=["0.73"])
HORIZONTAL = filters(5, 2, 4, 6) + filters(13, 4, 6) + filters(26, 4, 6)
CHOSEN = blends(28, 29, 30, 31, 106)
EQUALITY = ["memo/17", "memo/18", "sele/33", "sele/75"]
OUTLINES = ["circle", "star", "letters", "hatching"]
FILL_ARRAYS = [f"path/24/{lie}/{rule}" for lie in ("scattered", "as above") for rule in ("even-odd", "winding")]
FOLDED_OUTLINES = [f"path/24/outlines/{rule}" for rule in ("even-odd", "winding")]
ALL_RUNS = [f"1x{size}" for size in RUNS]


def wide(key, what, cases, least):
    return Goal("wide-" + key, what, cases, least, "16-byte", IN_CACHE, "AVX2")


def widest(key, what, cases, least):
    return Goal("widest-" + key, what, cases, least, "AVX2", IN_CACHE, "AVX512", needs_whole_ports=True)


def level(key, what, *cases):
    return Goal("level-" + key, what, list(cases), 1, "peer", IN_CACHE, "installed", allowed=NOISE)


# The 32-byte form compared with the better of the two 16-byte forms.
WIDE_GOALS = [
    wide("full", "multiply, screen, overlay, hard light at full strength", FULL, 1.85),
    wide("modes", "modes under a mask or opacity", MODES_IN_PART, 1.85),
    wide("extremes-in-part", "lighten, darken under a mask", EXTREMES_IN_PART, 1.85),
    wide("burn", "burn", blends(66), 1.85),
    wide("convolution", "vertical convolution", CONVOLUTION, 1.85),
    wide("boxes", "box averages of 3 rows and more", ["rsmp/3 of 3", "rsmp/3 of 7"], 1.85),
    wide("vertical", "vertical filters, 8-bit", VERTICAL_8, 1.85),
    wide("vertical-float", "vertical filters, float", VERTICAL_FLOAT, 1.85),
    wide("normal", "masked normal blends", NORMAL, 1.7),
    wide("deviation", "local deviation", ["filt/12"], 1.7),
    wide("horizontal", "horizontal filters", HORIZONTAL, 1.6),
    wide("chosen", "lighten, darken at full strength, threshold copies", CHOSEN, 1.3),
]
# The 64-byte form compared with the 32-byte form.
WIDEST_GOALS = [
    widest("blends", "arithmetic blends, without division", NORMAL + EXTREMES_IN_PART + MODES_IN_PART + FULL, 1.3),
    widest("convolution", "vertical convolution", CONVOLUTION, 1.35),
    widest("vertical", "vertical filters", VERTICAL_8 + VERTICAL_FLOAT, 1.35),
    widest("horizontal", "horizontal filters", HORIZONTAL, 1.15),
]
# The installed form compared with the best peer.
PEER_GOALS = [
    level("normal", "masked normal blend", "blnd/2"),
    level("products", "multiply, screen", "blnd/24", "blnd/27", "blnd/74"),
    level("extremes", "lighten, darken", "blnd/28", "blnd/29"),
    level("threshold", "threshold copies", "blnd/30", "blnd/31"),
    level("depth", "8 to 16 bits", "conv/18"),
    level("boxes", "averages of 2 rows, of 2 x 2 blocks", "rsmp/3 of 2", "rsmp/24"),
]
MISALIGNED_GOALS = {"64x256": 1.25, "256x1024": 1.35}

# The better 16-byte form compared with ordinary code and with the limit of its width.
NARROW_GOALS = [
    Goal("products", "multiply, screen at full strength", blends(24, 27, 74), 1.5),
    Goal("mixes", "all blends under a mask or opacity", NORMAL + EXTREMES_IN_PART + MODES_IN_PART, 4.8),
    Goal("discs", "six of them, the mask a disc", DISCS, 9.6),
    Goal("extremes", "lighten, darken at full strength", blends(28, 29), 0.7),
    Goal("extremes-limit", "the same, of the limit at 16 MiB", blends(28, 29), 0.95, "limit", ["4096x4096"]),
    Goal("threshold", "threshold copies", blends(30, 31), 90),
    Goal("threshold-limit", "threshold copy, of the three-read-one-write limit", blends(30), 0.9, "limit"),
    Goal("division", "division blends", blends(66), 14),
    Goal("depth", "8-to-16 expansion, rescaling", ["conv/18", "conv/19"], 15),
    Goal("depth-limit", "8-to-16 expansion, of the one-read-two-write limit", ["conv/18"], 0.9, "limit"),
    Goal("convolution-3", "vertical convolution, 3 taps", ["filt/28 3 taps"], 1.6),
    Goal("convolution-7", "vertical convolution, 7 taps", ["filt/28 7 taps"], 1.4),
    Goal("box-2", "box average of 2 rows", ["rsmp/3 of 2"], 30),
    Goal("box-3", "box average of 3 rows", ["rsmp/3 of 3"], 10),
    Goal("box-7", "box average of 7 rows", ["rsmp/3 of 7"], 10),
    Goal("vertical-4", "resampling, 8-bit, vertical, 4 taps", ["rsmp/6 4 taps x0.73"], 4.5),
    Goal("vertical-6", "resampling, 8-bit, vertical, 6 taps", ["rsmp/6 6 taps x0.73"], 3.8),
    Goal("horizontal", "resampling, 8-bit, horizontal", filters(5, 4, 6), 3.5),
    Goal("float-horizontal", "resampling of floats, horizontal", filters(26, 4, 6), 3),
    Goal("float-vertical", "resampling of floats, vertical", VERTICAL_FLOAT, 3),
    Goal("deviation", "local deviation", ["filt/12"], 3.5),
    Goal("copy", "copy, of the C library from 16 bytes to 16 MiB", ["memo/0 run"], 0.95, "C library", ALL_RUNS,
         "installed"),
    Goal("fill", "fill, of the C library from 16 bytes to 16 MiB", ["memo/3 run"], 0.95, "C library", ALL_RUNS,
         "installed"),
    Goal("equality", "equality, classification", EQUALITY, 6),
    Goal("equality-limit", "the same, of the read limit", EQUALITY, 0.8, "limit"),
    Goal("fill-arrays-scattered", "fill arrays of scattered rows, 2 to 16 crossings", FILL_ARRAYS[:2], 2,
         shapes=["2", "4", "8", "16"], form="installed"),
    Goal("fill-arrays", "fill arrays of rows like the one above", FILL_ARRAYS[2:], 1,
         shapes=["2", "4", "8", "16", "64", "256", "4096"], form="installed", allowed=NOISE),
    Goal("outlines", "fill arrays of outlines", FOLDED_OUTLINES, 1, shapes=OUTLINES, form="installed",
         allowed=NOISE),
]
# The most cycles a row, for the masked normal blend as installed.
ROW_GOALS = {"64x5": 12, "64x15": 12, "64x33": 16, "64x100": 40}


def against_narrower(results, form, shapes):
    """Returns how many times as long as the next narrower form this one takes: ratio, case, shape."""
    return [(1 / ratio, case, shape) for case in list(results.values) for shape in shapes
            if (ratio := results.ratio(case, results.narrower(case, form, shape), shape, form))]


def worst_misaligned(results, shape):
    """Returns where misaligned planes cost most: how many times as long, the case and the form."""
    found = [(ratio, case, form) for case in results.cases() for form in WIDER
             if (ratio := results.misaligned(case, form, shape))]
    return max(found, default=None)

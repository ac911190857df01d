"""The goals, and how each is judged: by the worst of its cases."""

from dataclasses import dataclass, field

MIXES = ["2", "7", "10", "22", "47", "50", "3", "8", "11", "26", "48", "51", "57", "58", "59", "56"]
DISCS = ["blnd/2 disc", "blnd/7 disc", "blnd/10 disc", "blnd/22 disc", "blnd/47 disc", "blnd/50 disc"]
RUNS = [16, 31, 64, 100, 128, 200, 256, 500, 1000, 4000, 16000, 64000, 1 << 18, 1 << 20, 1 << 24]
CACHED = "256x1024"


@dataclass
class Goal:
    """`least` is how many times as long `against` must take at least."""

    key: str
    what: str
    cases: list
    least: float
    against: str = "vectorised"
    shapes: list = field(default_factory=lambda: [CACHED])
    form: str = None

    def worst(self, results):
        """The least ratio, the case and the shape it was measured in."""
        found = []
        for case in self.cases:
            for shape in self.shapes:
                ratio = results.ratio(case, self.against, shape, self.form)
                if ratio is not None:
                    found.append((ratio, case, shape))
        return min(found, default=None)


def blends(slots):
    return ["blnd/" + slot for slot in slots]


FILL_ARRAYS = [f"path/24/{lie}/{rule}" for lie in ("scattered", "as above") for rule in ("even-odd", "winding")]

GOALS = [
    Goal("products", "multiply, screen at full strength", blends(["24", "27", "74"]), 1.5),
    Goal("mixes", "modes under a mask or opacity", blends(MIXES), 4.8),
    Goal("discs", "the same, the mask a disc", DISCS, 9.6),
    Goal("extremes", "lighten, darken at full strength", blends(["28", "29"]), 0.7),
    Goal("extremes-limit", "the same, of the limit at 16 MiB", blends(["28", "29"]), 0.95, "limit", ["4096x4096"]),
    Goal("threshold", "threshold copies", blends(["30", "31"]), 90),
    Goal("threshold-limit", "threshold copy, of the three-read-one-write limit", blends(["30"]), 0.9, "limit"),
    Goal("division", "division blends", blends(["66"]), 14),
    Goal("depth", "8-to-16 expansion, rescaling", ["conv/18", "conv/19"], 15),
    Goal("depth-limit", "8-to-16 expansion, of the one-read-two-write limit", ["conv/18"], 0.9, "limit"),
    Goal("convolution-3", "vertical convolution, 3 taps", ["filt/28 3 taps"], 1.6),
    Goal("convolution-7", "vertical convolution, 7 taps", ["filt/28 7 taps"], 1.4),
    Goal("box-2", "box average of 2 rows", ["rsmp/3 of 2"], 30),
    Goal("box-3", "box average of 3 rows", ["rsmp/3 of 3"], 10),
    Goal("box-7", "box average of 7 rows", ["rsmp/3 of 7"], 10),
    Goal("vertical-4", "resampling, 8-bit, vertical, 4 taps", ["rsmp/6 4 taps x0.73"], 4.5),
    Goal("vertical-6", "resampling, 8-bit, vertical, 6 taps", ["rsmp/6 6 taps x0.73"], 3.8),
    Goal("horizontal", "resampling, 8-bit, horizontal",
         [f"rsmp/5 {taps} taps x{scale}" for taps in (4, 6) for scale in (0.73, 1.7)], 3.5),
    Goal("float-horizontal", "resampling of floats, horizontal",
         [f"rsmp/26 {taps} taps x{scale}" for taps in (4, 6) for scale in (0.73, 1.7)], 3),
    Goal("float-vertical", "resampling of floats, vertical", ["rsmp/27 4 taps x0.73", "rsmp/27 6 taps x0.73"], 3),
    Goal("deviation", "local deviation", ["filt/12"], 3.5),
    Goal("copy", "copy, of the C library from 16 bytes to 16 MiB", ["memo/0 run"], 0.95, "C library",
         [f"1x{size}" for size in RUNS]),
    Goal("fill", "fill, of the C library from 16 bytes to 16 MiB", ["memo/3 run"], 0.95, "C library",
         [f"1x{size}" for size in RUNS]),
    Goal("equality", "equality, classification", ["memo/17", "memo/18", "sele/33", "sele/75"], 6),
    Goal("equality-limit", "the same, of the read limit", ["memo/17", "memo/18", "sele/33", "sele/75"], 0.8, "limit"),
    Goal("fill-arrays", "fill arrays, 2 to 16 crossings", FILL_ARRAYS, 2, shapes=["2", "4", "8", "16"], form="plain"),
]

# Cycles a row at most, for the masked normal blend.
ROW_GOALS = {"64x5": 12, "64x15": 12, "64x33": 16, "64x100": 40}

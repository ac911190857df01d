"""Which kernels are grouped on the page, and where a peer's work differs."""


def blends(*slots):
    return [f"blnd/{slot}" for slot in slots]


CLASSES = [
    ("Normal blends under a mask", blends(2, "2 disc", 3)),
    ("Lighten and darken under a mask", blends("7", "7 disc", "8", "10", "10 disc", "11")),
    ("Multiply and screen in part", blends("22", "22 disc", "56", "57", "26")),
    ("Overlay and hard light in part",
     blends("47", "47 disc", "48", "58", "50", "50 disc", "51", "59")),
    ("Blends at full strength", blends("24", "24 tiles", "27", "49", "52", "28", "29")),
    ("Products of planes", blends("74", "75", "97")),
    ("Division blends", blends("66", "96")),
    ("Threshold copies", blends("30", "31", "106")),
    ("Depths", ["conv/18", "conv/19"]),
    ("Filters", ["filt/28 3 taps", "filt/28 7 taps", "filt/12", "filt/12 tiles", "filt/191", "filt/192", "filt/193", "filt/194"]),
    ("Sums of differences, a block of 128 bytes", ["filt/188", "filt/189"]),
    ("Box averages, per source sample", ["rsmp/3 of 2", "rsmp/3 of 3", "rsmp/3 of 7", "rsmp/24"]),
    ("Resampling by filters, 8-bit",
     [f"rsmp/5 {taps} taps x{scale}" for taps in (2, 4, 6) for scale in (0.73, 1.7)]
     + [f"rsmp/6 {taps} taps x0.73" for taps in (2, 4, 6)]),
    ("Resampling by filters, 16-bit and float",
     [f"rsmp/{slot} {taps} taps x{scale}" for slot in (13, 26) for taps in (4, 6) for scale in (0.73, 1.7)]
     + [f"rsmp/27 {taps} taps x0.73" for taps in (4, 6)]),
    ("Resampling by position", ["rsmp/7", "rsmp/18", "rsmp/19"]),
    ("Copies and fills", ["memo/0", "memo/1", "memo/3", "memo/4", "memo/65", "memo/66"]),
    ("Equality and classification", ["memo/17", "memo/18", "sele/33", "sele/75"]),
    ("Marks and distances", ["sele/26", "sele/35", "sele/73"]),
]

PEER_NOTES = {
    ("blnd/2", "libyuv"): "divides by 256 instead of 255",
    ("blnd/24", "OpenCV"): "through floats",
    ("blnd/74", "OpenCV"): "through floats",
    ("blnd/28", "OpenCV"): "stores every sample",
    ("blnd/29", "OpenCV"): "stores every sample",
    ("blnd/30", "OpenCV"): "selects where the mask is not 0",
    ("blnd/31", "OpenCV"): "selects where the mask is not 0",
    ("conv/18", "libyuv"): "truncates: one lower for odd samples",
    ("filt/28", "OpenCV"): "rounds once more, clamps, and repeats edge rows",
    ("memo/17", "C library"): "compares the run with itself one byte on",
    ("rsmp/3", "OpenCV"): "averages areas in floats",
    ("rsmp/5", "OpenCV"): "its own cubic weights, in both directions",
    ("rsmp/6", "OpenCV"): "its own cubic weights, in both directions",
    ("rsmp/13", "OpenCV"): "its own cubic weights, in both directions",
    ("rsmp/26", "OpenCV"): "its own cubic weights, in both directions",
    ("rsmp/27", "OpenCV"): "its own cubic weights, in both directions",
}

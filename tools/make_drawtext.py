#!/usr/bin/python3
"""Writes the drawings' stroke font DRAWTEXT.DTA from the Hershey simplex Roman font.

Source: rowmans.jhf of Debian's hershey-fonts-data (/usr/share/hershey-fonts), the
single-stroke "simplex Roman" of Dr. A. V. Hershey (U.S. National Bureau of
Standards, 1967) in the format of James Hurt (Cognition, Inc.). Its letters and
digits are those of futural.jhf; rowmans.jhf is taken because its period, comma,
colon and semicolon sit on the baseline (futural.jhf lifts them, so that "2.50"
would read "2·50") and its underscore lies just under the baseline. The caret
comes from futural.jhf (rowmans.jhf has an arrow there).

The file: 216 blocks, one per character code 1..216 in code order, each a line
"code,n" and n lines "x1,y1,x2,y2", CR LF, numbers with at most 3 decimals.
Codes 1..31 and 127 are empty; 32..126 are ASCII; 128..216 are the
Windows-1252 characters, composed below from the font's own glyphs (degree
sign, plus-minus, superscripts, micro, fractions, multiplication, diameter
sign, accented capitals, quotes and so on); those not composed are empty.

Scaling into the 7 x 8 unit cell (y grows upward, baseline at y = 0):
- y: Hershey's cap height of 21 units becomes 8 (scale 8/21); Hershey y runs
  downward with the baseline at 9, so y = (9 - hy) * 8/21. Descenders reach
  -2.667 (7 Hershey units), brackets and accents at most 10.
- x: scale 3/8, so that the widest regular capitals (16 Hershey units: A, M,
  O, V) are 6 units wide; a glyph whose ink is wider still (W, m, @, the
  mathematical signs) is condensed about its centre to 6. The centre of the
  glyph's Hershey advance goes to x = 3.5, moved inward if needed so that the
  ink keeps a side bearing of 0.5: every point lies within 0.5..6.5.

Simplification: each Hershey polyline becomes straight strokes between its
points. A glyph of more than 15 strokes is thinned by greedy point removal:
repeatedly the inner point (never a polyline end) whose removal changes the
shape least is dropped, measured as the largest distance of the original
points it stood for from the new chord, until 15 strokes remain. Before that,
the doubled thickening strokes of @, {, } and ~ are left out.

Usage: make_drawtext.py OUTPUT [FONT_DIR]
"""

import math
import sys

FONT_DIR = "/usr/share/hershey-fonts"
MAX_STROKES = 15
SY = 8 / 21
SX = 3 / 8
CELL = 7.0
BEARING = 0.5

# Polylines kept of the glyphs that Hershey thickens with a second, parallel pen path.
THIN = {"@": [0, 2], "{": [0, 2], "}": [0, 2], "~": [0]}


def read_jhf(path):
    """The glyphs of a .jhf font in ASCII order from the space: (left, right, polylines) in Hershey units."""
    glyphs = {}
    with open(path, encoding="ascii") as f:
        for i, line in enumerate(f.read().splitlines()):
            body = line[8:]
            polylines, current = [], []
            for j in range(2, len(body), 2):
                pair = body[j:j + 2]
                if pair == " R":
                    polylines.append(current)
                    current = []
                else:
                    current.append((ord(pair[0]) - 82, ord(pair[1]) - 82))
            if current:
                polylines.append(current)
            glyphs[chr(32 + i)] = (ord(body[0]) - 82, ord(body[1]) - 82, polylines)
    return glyphs


def moved(glyph, scale=1.0, dx=0.0, dy=0.0, cx=0.0, cy=0.0):
    """The glyph scaled about (cx, cy), then moved by (dx, dy); a negative scale turns it half round."""
    left, right, polylines = glyph
    f = lambda x, y: (cx + (x - cx) * scale + dx, cy + (y - cy) * scale + dy)
    return (left, right, [[f(x, y) for x, y in p] for p in polylines])


def joined(*glyphs, left=-10, right=10):
    """The polylines of several glyphs as one glyph with the given advance."""
    return (left, right, [p for g in glyphs for p in g[2]])


def lines(*polylines, left=-10, right=10):
    return (left, right, [list(p) for p in polylines])


# Accents over a capital (Hershey units; the cap top is at -12).
GRAVE = lines([(-2, -17), (2, -14)])
ACUTE = lines([(2, -17), (-2, -14)])
CIRCUMFLEX = lines([(-3, -14), (0, -17), (3, -14)])
TILDE = lines([(-4, -14), (-2, -16), (2, -15), (4, -17)])
DIAERESIS = lines([(-3, -16.5), (-3, -14.5)], [(3, -16.5), (3, -14.5)])
RING = lines([(0, -17), (1.5, -16), (1.5, -14.5), (0, -13.5), (-1.5, -14.5), (-1.5, -16), (0, -17)])
CARON = lines([(-3, -17), (0, -14), (3, -17)])
CEDILLA = lines([(0, 9), (0, 11), (2, 12), (2, 14), (0, 15), (-2, 15)])


def extras(g):
    """The Windows-1252 characters above 127, composed from the ASCII glyphs `g`."""
    def sup(ch, dx=0.0):  # a digit or letter at half size, its top at the cap height
        return moved(g[ch], 0.5, dx, -6)

    def small(ch, dx, dy):  # a glyph at 0.45 size moved to (dx, dy) from its own centre
        return moved(g[ch], 0.45, dx, dy, 0, -1.5)

    def fraction(numerator, denominator):  # small digits beside a slash
        return joined(small(numerator, -5, -6), lines([(6, -12), (-6, 9)]), small(denominator, 5, 4))

    low = lambda accent: moved(accent, dy=7)  # an accent over a lowercase letter
    quote = moved(g["'"], dx=-3), moved(g["'"], dx=3)
    backquote = moved(g["`"], dx=-3), moved(g["`"], dx=3)
    composed = {
        128: joined(g["C"], lines([(-10, -4), (3, -4)], [(-10, 1), (3, 1)])),
        130: g[","],
        131: g["f"],
        132: joined(moved(g[","], dx=-3), moved(g[","], dx=3)),
        133: joined(moved(g["."], dx=-6), g["."], moved(g["."], dx=6)),
        134: lines([(0, -12), (0, 12)], [(-5, -6), (5, -6)]),
        135: lines([(0, -12), (0, 12)], [(-5, -6), (5, -6)], [(-5, 5), (5, 5)]),
        136: CIRCUMFLEX,
        138: joined(g["S"], CARON),
        139: small("<", 0, 0),
        142: joined(g["Z"], CARON),
        145: joined(g["`"], left=-5, right=5),
        146: joined(g["'"], left=-5, right=5),
        147: joined(*backquote),
        148: joined(*quote),
        149: moved(g["\x7f"], dy=10),
        150: lines([(-7, 0), (7, 0)]),
        151: lines([(-11, 0), (11, 0)]),
        152: TILDE,
        153: joined(sup("T", -5), sup("M", 5)),
        154: joined(g["s"], low(CARON)),
        155: small(">", 0, 0),
        158: joined(g["z"], low(CARON)),
        159: joined(g["Y"], DIAERESIS),
        161: moved(g["!"], -1.0, 0, 7, 0, -1.5),
        162: joined(g["c"], lines([(0, -9), (0, 13)])),
        163: lines([(6, -10), (4, -12), (1, -12), (-1, -11), (-2, -8), (-2, 6), (-4, 9), (7, 9)], [(-6, -2), (4, -2)]),
        165: joined(g["Y"], lines([(-6, -1), (6, -1)], [(-6, 3), (6, 3)])),
        166: lines([(0, -16), (0, -3)], [(0, 3), (0, 16)]),
        168: DIAERESIS,
        170: joined(sup("a"), lines([(-4, 0), (4, 0)])),
        171: joined(small("<", -3, 0), small("<", 3, 0)),
        172: lines([(-8, -2), (8, -2), (8, 3)]),
        173: g["-"],
        175: lines([(-6, -15), (6, -15)]),
        176: g["\x7f"],
        177: lines([(0, -12), (0, 4)], [(-8, -4), (8, -4)], [(-8, 9), (8, 9)]),
        178: sup("2"),
        179: sup("3"),
        180: ACUTE,
        181: joined(g["u"], lines([(-5, 5), (-5, 16)])),
        183: moved(g["."], dy=-7),
        184: CEDILLA,
        185: sup("1"),
        186: joined(sup("o"), lines([(-4, 0), (4, 0)])),
        187: joined(small(">", -3, 0), small(">", 3, 0)),
        188: fraction("1", "4"),
        189: fraction("1", "2"),
        190: fraction("3", "4"),
        191: moved(g["?"], -1.0, 0, 7, 0, -1.5),
        198: lines([(-10, 9), (1, -12), (9, -12)], [(1, -12), (1, 9), (9, 9)], [(-5, 0), (1, 0)], [(1, -2), (7, -2)]),
        199: joined(g["C"], CEDILLA),
        208: joined(g["D"], lines([(-10, -2), (-3, -2)])),
        209: joined(g["N"], TILDE),
        215: lines([(-6, -6), (6, 6)], [(6, -6), (-6, 6)]),
        216: joined(g["O"], lines([(-9, 12), (9, -15)])),
    }
    # The accented capitals, in their code order.
    four = (GRAVE, ACUTE, CIRCUMFLEX, DIAERESIS)
    for first, letter, accents in ((192, "A", (GRAVE, ACUTE, CIRCUMFLEX, TILDE, DIAERESIS, RING)), (200, "E", four),
                                   (204, "I", four), (210, "O", (GRAVE, ACUTE, CIRCUMFLEX, TILDE, DIAERESIS))):
        for k, accent in enumerate(accents):
            composed[first + k] = joined(g[letter], accent)
    return composed


def chord_error(points, i, j):
    """The largest distance of points[i..j] from the chord points[i]-points[j]."""
    (ax, ay), (bx, by) = points[i], points[j]
    length = math.hypot(bx - ax, by - ay)
    worst = 0.0
    for px, py in points[i + 1:j]:
        if length == 0:
            d = math.hypot(px - ax, py - ay)
        else:
            d = abs((bx - ax) * (ay - py) - (ax - px) * (by - ay)) / length
        worst = max(worst, d)
    return worst


def simplified(polylines):
    """The polylines thinned by greedy point removal to at most MAX_STROKES strokes (indices into each)."""
    kept = [list(range(len(p))) for p in polylines]
    while sum(len(k) - 1 for k in kept) > MAX_STROKES:
        best = None
        for n, (points, k) in enumerate(zip(polylines, kept)):
            for m in range(1, len(k) - 1):
                error = chord_error(points, k[m - 1], k[m + 1])
                if best is None or error < best[0]:
                    best = (error, n, m)
        if best is None:
            raise ValueError("too many polylines to keep within the stroke limit")
        del kept[best[1]][best[2]]
    return [[p[i] for i in k] for p, k in zip(polylines, kept)]


def cell_strokes(glyph):
    """The glyph's strokes in cell units: (x1, y1, x2, y2) each, and whether it had to be simplified."""
    left, right, polylines = glyph
    polylines = [p for p in polylines if len(p) > 1]
    if not polylines:
        return [], False
    xs = [x for p in polylines for x, _ in p]
    sx = min(SX, (CELL - 2 * BEARING) / (max(xs) - min(xs))) if max(xs) > min(xs) else SX
    centre = (left + right) / 2
    lo, hi = (min(xs) - centre) * sx + CELL / 2, (max(xs) - centre) * sx + CELL / 2
    shift = max(0.0, BEARING - lo) - max(0.0, hi - (CELL - BEARING))
    cell = [[((x - centre) * sx + CELL / 2 + shift, (9 - y) * SY) for x, y in p] for p in polylines]
    thin = simplified(cell)
    strokes = [(a[0], a[1], b[0], b[1]) for p in thin for a, b in zip(p, p[1:])]
    return strokes, len(thin) != len(cell) or any(len(a) != len(b) for a, b in zip(thin, cell))


def number(v):
    text = f"{v:.3f}".rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    font_dir = sys.argv[2] if len(sys.argv) == 3 else FONT_DIR
    roman = read_jhf(font_dir + "/rowmans.jhf")
    roman["^"] = read_jhf(font_dir + "/futural.jhf")["^"]
    for ch, keep in THIN.items():
        left, right, polylines = roman[ch]
        roman[ch] = (left, right, [polylines[i] for i in keep])
    glyphs = {code: roman[chr(code)] for code in range(32, 127)}
    glyphs.update(extras(roman))
    out, thinned = [], []
    for code in range(1, 217):
        strokes, was_thinned = cell_strokes(glyphs[code]) if code in glyphs else ([], False)
        if was_thinned:
            thinned.append(code)
        out.append(f"{code},{len(strokes)}")
        out.extend(",".join(number(v) for v in s) for s in strokes)
    with open(sys.argv[1], "w", newline="") as f:
        f.write("\r\n".join(out) + "\r\n")
    print(f"{len(thinned)} glyphs simplified: {' '.join(str(c) for c in thinned)}", file=sys.stderr)


if __name__ == "__main__":
    main()

#!/usr/bin/env python3
# make-demo-voice.py - writes the demonstration voice of "utts generate",
# data/demo-voice/{durations,lf0,cepstrum}.model, in the readable form of
# "utts compile-model". The numbers are set by hand from textbook figures
# (Mandarin tone shapes in Chao's five levels, a falling declination, typical
# segment lengths); nothing is trained. Run it again after changing a figure;
# the build compiles the written files.
import math
import os
import sys

STATES = 5
OUT = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "data", "demo-voice")

BANNER = """\
# {name} - DEMONSTRATION model section, NOT a trained voice.
# Written by scripts/make-demo-voice.py from hand-set figures so that
# "utts generate" has something plausible to show; edit the script, not this
# file. Compiled by the build into build/data/demo-voice.img together with
# the other sections of data/demo-voice/. The encoding of rows, stream values
# and window values is described in docs/generation.md.
#
# Label fields the trees ask about, by their feature path in the labels of
# "utts labels" (data/context.fields).
field "name"                                    "[P]"  "/"
field "n.name"                                  "[N]"  "/"
field "R:Phrase.PositionFW"                     "[PF]" "/"
field "R:Phrase.PositionBW"                     "[PB]" "/"
field "R:Phrase.parent.tone"                    "[T]"  "/"
field "R:Phrase.parent.PositionBW"              "[SB]" "/"
field "R:Phrase.parent.parent.PositionGrandFW"  "[WF]" "/"
field "R:Phrase.parent.parent.PositionGrandBW"  "[WB]" "/"
"""

# Phone classes by IPA symbol. A vowel is any phone name that begins with a
# vowel symbol (so length marks and diacritics ride along).
OPEN = ["a", "æ", "ɑ", "ɒ", "ɐ", "ʌ", "ɶ"]
MID = ["e", "o", "ɛ", "ɔ", "ə", "ɚ", "ɝ", "ɜ", "ɤ", "ø", "œ", "ɵ", "ɘ", "ɞ"]
CLOSE = ["i", "u", "y", "ɪ", "ʊ", "ɨ", "ʉ", "ɯ", "ʏ"]
NASAL = ["m", "n", "ŋ", "ɲ", "ɱ"]
VOICED_OTHER = ["l", "r", "ɹ", "ɻ", "ɾ", "ɫ", "ɭ", "j", "w", "ɥ", "v", "z", "ʒ", "ð", "ʐ",
                "b", "d", "g", "ɡ", "ʁ", "dʒ"]
FRICATIVE = ["s", "ʃ", "f", "h", "x", "ɕ", "ʂ", "θ", "ç"]


def prefix_patterns(symbols):
    return " ".join('"[P]%s*"' % s for s in symbols)


def exact_patterns(symbols):
    return " ".join('"[P]%s/"' % s for s in symbols)


PHONE_QUESTIONS = """\
question Pause      "[P]pau/"
question Vowel      {vowels}
question OpenVowel  {open}
question CloseVowel {close}
question Voiced     {vowels} {voiced}
question Nasal      {nasal}
question VoicedCons {voiced}
question Fricative  {fric}
""".format(vowels=prefix_patterns(OPEN + MID + CLOSE), open=prefix_patterns(OPEN),
           close=prefix_patterns(CLOSE), nasal=exact_patterns(NASAL),
           voiced=exact_patterns(NASAL + VOICED_OTHER), fric=exact_patterns(FRICATIVE))

CONTEXT_QUESTIONS = """\
question NextIsEdge    "[N]x/"
question FirstInSyl    "[PF]1/"
question LastInSyl     "[PB]1/"
question LastSylOfWord "[SB]1/"
question FirstWord     "[WF]1/"
question LastWord      "[WB]1/"
question Tone1 "[T]1/"
question Tone2 "[T]2/"
question Tone3 "[T]3/"
question Tone4 "[T]4/"
question Tone5 "[T]5/"
"""


class Rows:
    """Statistics rows in order, each with a comment saying what it is for."""

    def __init__(self):
        self.rows = []

    def add(self, comment, mean, ivar=None):
        self.rows.append((comment, mean, ivar))
        return len(self.rows)  # the leaf: row number + 1


def q(name, no, yes):
    return ("q", name, no, yes)


def emit_tree(value, tree):
    """Nodes in preorder, ids 0, -1, -2, ...: every child after its parent."""
    lines = []
    counter = [0]

    def walk(node):
        if node[0] == "leaf":
            return node[1]
        my_id = -counter[0]
        counter[0] += 1
        slot = len(lines)
        lines.append(None)
        no = walk(node[2])
        yes = walk(node[3])
        lines[slot] = "  node %d %s %d %d" % (my_id, node[1], no, yes)
        return my_id

    walk(tree)
    return "tree %d\n%s\nend\n" % (value, "\n".join(lines))


def leaf(n):
    return ("leaf", n)


def write(name, text):
    with open(os.path.join(OUT, name), "w", encoding="utf-8") as f:
        f.write(text)


def rows_text(rows, has_ivar):
    out = []
    for i, (comment, mean, ivar) in enumerate(rows.rows):
        out.append("# leaf %d: %s" % (i + 1, comment))
        out.append("mean %d %s" % (i, " ".join(str(v) for v in mean)))
        if has_ivar:
            out.append("ivar %d %s" % (i, " ".join(str(v) for v in ivar)))
    return "\n".join(out) + "\n"


# ---- durations: one tree over phones, the five states' lengths in ms ----
def durations():
    rows = Rows()
    L = {}
    L["pau_initial"] = rows.add("pause before a phrase", [20, 20, 60, 20, 20])
    L["pau_final"] = rows.add("pause after a phrase", [30, 40, 100, 40, 30])
    L["vowel"] = rows.add("vowel", [15, 20, 45, 25, 15])
    L["vowel_final"] = rows.add("vowel of the phrase's last syllable (final lengthening)",
                                [20, 30, 70, 40, 30])
    L["vowel_t3"] = rows.add("vowel of a third-tone syllable (the longest tone)",
                             [20, 25, 55, 30, 20])
    L["vowel_t5"] = rows.add("vowel of a neutral-tone syllable (short)", [10, 15, 30, 15, 10])
    L["voiced"] = rows.add("voiced consonant", [10, 15, 25, 15, 10])
    L["voiceless"] = rows.add("voiceless consonant", [10, 15, 30, 15, 10])
    tree = q("Pause",
             q("Vowel",
               q("VoicedCons", leaf(L["voiceless"]), leaf(L["voiced"])),
               q("LastWord",
                 q("Tone3", q("Tone5", leaf(L["vowel"]), leaf(L["vowel_t5"])), leaf(L["vowel_t3"])),
                 q("LastSylOfWord",
                   q("Tone3", q("Tone5", leaf(L["vowel"]), leaf(L["vowel_t5"])),
                     leaf(L["vowel_t3"])),
                   leaf(L["vowel_final"])))),
             q("NextIsEdge", leaf(L["pau_initial"]), leaf(L["pau_final"])))
    text = BANNER.format(name="durations.model")
    text += """
# Durations: stream value 0x1nnnn, nnnn the states of a phone (5). One tree;
# its leaf's mean row holds the states' lengths in milliseconds.
stream_value 0x10005
rows %d

%s
%s
%s
statistics 0
%s
extra 00
""" % (len(rows.rows), PHONE_QUESTIONS, CONTEXT_QUESTIONS,
       emit_tree(1, tree),
       rows_text(rows, False))
    write("durations.model", text)


# ---- log F0: tone shapes over the syllable, declination over the phrase ----
BASE_HZ = 200.0
# Chao's five levels as offsets from the speaker's mid level, in log units.
LEVEL = 0.11


def chao(level):
    return (level - 3.0) * LEVEL


# Points (x across the syllable's voiced part from 0 to 1, Chao level).
TONES = {
    "1": ("first tone, high level 55", [(0, 5), (1, 5)]),
    "2": ("second tone, rising 35", [(0, 3), (0.3, 2.9), (1, 5)]),
    "3": ("third tone, dipping 214", [(0, 2), (0.5, 1), (1, 3.5)]),
    "4": ("fourth tone, falling 51", [(0, 5), (1, 1.2)]),
    "5": ("neutral tone, low and short", [(0, 2.2), (1, 1.8)]),
    "0": ("no tone (a word of another language)", [(0, 3.3), (1, 2.6)]),
}
# Where in the syllable a phone sits, and the part of the contour it carries.
PARTS = [
    ("the whole syllable", (0.0, 1.0)),
    ("the start of the syllable", (0.0, 0.45)),
    ("the middle of the syllable", (0.3, 0.75)),
    ("the end of the syllable", (0.5, 1.0)),
]
# Declination: the word's place in the phrase.
PLACES = [("the phrase's first word", 0.07), ("a middle word", 0.0),
          ("the phrase's last word", -0.08)]


def contour(points, x):
    for (x0, y0), (x1, y1) in zip(points, points[1:]):
        if x <= x1:
            return chao(y0 + (y1 - y0) * (x - x0) / (x1 - x0))
    return chao(points[-1][1])


def lf0():
    scale = 1000
    ivar = [625, 10000, 10000, 0]  # static, delta, delta-delta (ratios matter)
    rows = Rows()
    unvoiced = rows.add("unvoiced (pauses, voiceless consonants): no statistics",
                        [0, 0, 0, 0], [0, 0, 0, 0])
    leaves = {}
    for st in range(STATES):
        for tone, (tname, points) in TONES.items():
            for p, (pname, (a, b)) in enumerate(PARTS):
                x = a + (b - a) * (st + 0.5) / STATES
                for w, (wname, decl) in enumerate(PLACES):
                    lf = math.log(BASE_HZ) + contour(points, x) + decl
                    leaves[(st, tone, p, w)] = rows.add(
                        "state %d, %s, %s, in %s: %.0f Hz" % (st + 2, tname, pname, wname,
                                                             math.exp(lf)),
                        [int(round(lf * scale)), 0, 0, 1000], ivar)

    def place(st, tone, p):
        return q("FirstWord",
                 q("LastWord", leaf(leaves[(st, tone, p, 1)]), leaf(leaves[(st, tone, p, 2)])),
                 leaf(leaves[(st, tone, p, 0)]))

    def part(st, tone):
        return q("FirstInSyl",
                 q("LastInSyl", place(st, tone, 2), place(st, tone, 3)),
                 q("LastInSyl", place(st, tone, 1), place(st, tone, 0)))

    def tones(st):
        tree = part(st, "0")
        for tone in ["5", "4", "3", "2", "1"]:
            tree = q("Tone" + tone, tree, part(st, tone))
        return tree

    trees = []
    for st in range(STATES):
        voiced = q("Voiced", leaf(unvoiced), tones(st))
        trees.append("# State %d\n" % (st + 2) + emit_tree(st + 2, voiced))
    text = BANNER.format(name="lf0.model")
    text += """
# Log F0: stream value 0x3nnnn, nnnn the static dimensions (1). Means in
# thousandths (window value 1000) of the natural log of F0 in Hz, for the
# static, delta and delta-delta windows; mean value 3 (after the three
# windows) is the state's voicing probability in thousandths. Inverse
# variances in a unit of their own: only their ratios count.
window 0 0 1
window -1 1 -0.5 0 0.5
window -1 1 1 -2 1
window_value %d
stream_value 0x30001
rows %d

%s
%s
%s
statistics 1
%s
extra 00
""" % (scale, len(rows.rows), PHONE_QUESTIONS, CONTEXT_QUESTIONS, "\n".join(trees),
       rows_text(rows, True))
    write("lf0.model", text)


# ---- spectrum: four cepstrum-like dimensions by phone class ----
CLASSES = [
    ("pause", [-3.0, 0.0, 0.0, 0.0]),
    ("open vowel", [2.0, 1.2, -0.3, 0.2]),
    ("mid vowel", [1.8, 1.0, 0.1, -0.1]),
    ("close vowel", [1.5, 1.4, 0.4, -0.2]),
    ("nasal", [1.0, 1.5, 0.2, 0.1]),
    ("other voiced consonant", [1.2, 0.9, 0.0, 0.1]),
    ("voiceless fricative", [0.0, -0.6, -0.2, 0.3]),
    ("voiceless stop or affricate", [-0.5, -0.2, 0.1, 0.0]),
]
NEUTRAL = [0.5, 0.5, 0.0, 0.0]
WEIGHT = [0.6, 0.9, 1.0, 0.9, 0.6]  # how close each state comes to its target


def spectrum():
    scale = 1000
    dims = 4
    ivar = [100] * dims + [1600] * dims + [1600] * dims
    rows = Rows()
    leaves = {}
    for st in range(STATES):
        for c, (cname, target) in enumerate(CLASSES):
            # Silence stays silence; sounds move from and to a neutral shape.
            weight = 1.0 if c == 0 else WEIGHT[st]
            v = [NEUTRAL[d] + (target[d] - NEUTRAL[d]) * weight for d in range(dims)]
            leaves[(st, c)] = rows.add("state %d, %s" % (st + 2, cname),
                                       [int(round(x * scale)) for x in v] + [0] * (2 * dims),
                                       ivar)
    trees = []
    for st in range(STATES):
        L = lambda c: leaf(leaves[(st, c)])
        tree = q("Pause",
                 q("Vowel",
                   q("Nasal",
                     q("VoicedCons", q("Fricative", L(7), L(6)), L(5)),
                     L(4)),
                   q("OpenVowel", q("CloseVowel", L(2), L(3)), L(1))),
                 L(0))
        trees.append("# State %d\n" % (st + 2) + emit_tree(st + 2, tree))
    text = BANNER.format(name="cepstrum.model")
    text += """
# Spectrum: stream value 0x2nnnn, nnnn the static dimensions (4). Means in
# thousandths (window value 1000), window-major: four static values, four
# deltas, four delta-deltas. Inverse variances in a unit of their own.
window 0 0 1
window -1 1 -0.5 0 0.5
window -1 1 1 -2 1
window_value %d
stream_value 0x20004
rows %d

%s
%s
%s
statistics 1
%s
extra 00
""" % (scale, len(rows.rows), PHONE_QUESTIONS, CONTEXT_QUESTIONS, "\n".join(trees),
       rows_text(rows, True))
    write("cepstrum.model", text)


def main():
    os.makedirs(OUT, exist_ok=True)
    durations()
    lf0()
    spectrum()
    return 0


if __name__ == "__main__":
    sys.exit(main())

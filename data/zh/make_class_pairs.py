#!/usr/bin/python3
# make_class_pairs.py - estimates the class-pair table of the sample Chinese
# dictionary from real tagged text, and writes the class list.
#
# Run once by hand (the outputs are committed), with Debian's python3-jieba
# and fortunes-zh installed:
#   /usr/bin/python3 data/zh/make_class_pairs.py \
#       /usr/share/games/fortunes/chinese data/zh
#
# The text is tagged with jieba's own part-of-speech tagger, its HMM for
# unknown words off, so the tags are those of jieba's word list. Sentences are
# the lines of each fortune; class pairs are counted between adjacent words
# of a line, punctuation included (jieba tags it "x").
#
# For C classes and N counted pairs, with add-one smoothing over all C*C pairs:
#   P(a, b)   = (count(a, b) + 1) / (N + C*C)
#   score     = ln P(b | a) = ln P(a, b) - ln sum_b' P(a, b')
#   association = ln P(a, b) - ln P(a, .) - ln P(., b)   (pointwise mutual
#                 information; negative when the pair is rarer than chance,
#                 which is where a prosodic word boundary goes)
#
# jieba's word list holds no punctuation (jieba splits it off by pattern), so
# the marks tagged "x" in the text that occur at least 5 times are written as
# a lexicon of their own (punctuation.txt), each scored ln(count / words).
import collections
import math
import re
import sys

import jieba
import jieba.posseg

ANSI = re.compile(r"\x1b\[[0-9;]*m")


def fortunes(path):
    text = open(path, encoding="utf-8", errors="replace").read()
    for fortune in text.split("\n%\n"):
        for line in ANSI.sub("", fortune).splitlines():
            line = line.strip()
            if line:
                yield line


def main():
    source, out_dir = sys.argv[1], sys.argv[2]
    jieba.setLogLevel(60)
    tags = set()
    dict_path = jieba.get_dict_file().name
    for line in open(dict_path, encoding="utf-8"):
        parts = line.split()
        if len(parts) == 3:
            tags.add(parts[2])
    pairs = collections.Counter()
    marks = collections.Counter()
    lines = words = 0
    for line in fortunes(source):
        lines += 1
        cut = [t for t in jieba.posseg.cut(line, HMM=False) if t.word.strip()]
        for t in cut:
            # "#" would read as a comment line of the lexicon.
            if t.flag == "x" and len(t.word) == 1 and not t.word.isalnum() and t.word != "#":
                marks[t.word] += 1
        tagged = [t.flag for t in cut]
        words += len(tagged)
        tags.update(tagged)
        for a, b in zip(tagged, tagged[1:]):
            pairs[(a, b)] += 1
    classes = sorted(tags)
    c = len(classes)
    n = sum(pairs.values())
    joint = {(a, b): (pairs[(a, b)] + 1) / (n + c * c) for a in classes for b in classes}
    left = {a: sum(joint[(a, b)] for b in classes) for a in classes}
    right = {b: sum(joint[(a, b)] for a in classes) for b in classes}
    with open(f"{out_dir}/classes.txt", "w", encoding="utf-8") as f:
        f.write("# Word classes of the sample Chinese dictionary: jieba's part-of-speech\n")
        f.write("# tags (its word list and its tagger's output), one per line with its code.\n")
        f.write("# Written by make_class_pairs.py. Words not in the dictionary get \"x\".\n")
        for code, name in enumerate(classes):
            f.write(f"{name}\t{code}\n")
        f.write("default\tx\n")
    with open(f"{out_dir}/punctuation.txt", "w", encoding="utf-8") as f:
        f.write("# Punctuation of the sample Chinese dictionary, written by\n")
        f.write(f"# make_class_pairs.py: marks tagged x in fortunes-zh, ln(count / {words}).\n")
        f.write("[words]\n")
        for mark, count in sorted(marks.items()):
            if count >= 5:
                f.write(f"{mark}\tx\t{math.log(count / words):.6f}\n")
    with open(f"{out_dir}/class_pairs.txt", "w", encoding="utf-8") as f:
        f.write("# Class-pair table of the sample Chinese dictionary, written by\n")
        f.write("# make_class_pairs.py from Debian's fortunes-zh (the file 'chinese'):\n")
        f.write(f"# {lines} lines, {words} words tagged by jieba {jieba.__version__} "
                f"(HMM off), {n} adjacent pairs, {c} classes.\n")
        f.write("# Columns: earlier class, later class, ln P(later | earlier),\n")
        f.write("# pointwise mutual information; add-one smoothing over all pairs.\n")
        for a in classes:
            for b in classes:
                score = math.log(joint[(a, b)]) - math.log(left[a])
                assoc = math.log(joint[(a, b)]) - math.log(left[a]) - math.log(right[b])
                f.write(f"{a}\t{b}\t{score:.6f}\t{assoc:.6f}\n")


if __name__ == "__main__":
    main()

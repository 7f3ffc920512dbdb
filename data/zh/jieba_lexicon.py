#!/usr/bin/env python3
# jieba_lexicon.py - the lexicon of the sample Chinese dictionary, made by the
# build from the word list of Debian's python3-jieba (its dict.txt: word,
# frequency, part-of-speech tag per line).
#
#   jieba_lexicon.py DICT.TXT OUTPUT
#
# Each line becomes one reading "word TAB tag TAB score", the score being the
# natural log of the word's relative frequency, ln(freq / sum of all
# frequencies), with a frequency of 0 counted as 1 as jieba itself does.
import math
import sys


def main():
    source, output = sys.argv[1], sys.argv[2]
    entries = []
    for line in open(source, encoding="utf-8"):
        parts = line.split()
        if len(parts) != 3:
            continue
        word, freq, tag = parts
        entries.append((word, max(int(freq), 1), tag))
    total = sum(f for _, f, _ in entries)
    with open(output, "w", encoding="utf-8") as out:
        out.write(f"# From {source}: {len(entries)} readings, frequencies summing to {total}.\n")
        out.write("[words]\n")
        for word, freq, tag in entries:
            out.write(f"{word}\t{tag}\t{math.log(freq / total):.6f}\n")


if __name__ == "__main__":
    main()

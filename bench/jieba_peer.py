#!/usr/bin/python3
# jieba_peer.py - the jieba side of bench_dict: segments the lines of a UTF-8
# file with python3-jieba's own dictionary (the word list the sample
# dictionary is made from), its HMM for unknown words off.
#
#   jieba_peer.py TEXT PASSES WORDS_OUT
#
# Prints one line "seconds S" per pass (process CPU time of the segmentation
# alone, the dictionary loaded before), and writes the words of the last
# pass to WORDS_OUT, one input line per line, words separated by U+0001.
import sys
import time

import jieba


def main():
    text_path, passes, out_path = sys.argv[1], int(sys.argv[2]), sys.argv[3]
    jieba.setLogLevel(60)
    jieba.initialize()
    lines = open(text_path, encoding="utf-8").read().split("\n")
    words = []
    for _ in range(passes):
        start = time.process_time()
        words = [jieba.lcut(line, HMM=False) for line in lines]
        print(f"seconds {time.process_time() - start:.6f}", flush=True)
    with open(out_path, "w", encoding="utf-8") as out:
        for w in words:
            out.write("\x01".join(w) + "\n")


if __name__ == "__main__":
    main()

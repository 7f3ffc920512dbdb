#!/usr/bin/env python3
# make_pinyin_table.py - builds the character-reading table of the Mandarin
# pack from Unihan_Readings.txt (Debian's unicode-data): for every code point
# with a kMandarin field, its first value (the reading preferred in mainland
# usage), as a toneless pinyin syllable and a tone digit; a few characters
# without one are supplied below (SUPPLEMENT).
#
#   make_pinyin_table.py UNIHAN_READINGS OUTPUT.cpp
#
# UNIHAN_READINGS may be the plain text or its .bz2. The output is a C++
# source in namespace utts::mandarin (see pinyin_readings.cpp for the layout):
#   kSyllableText    the distinct toneless syllables, each ending in NUL, with
#                    u-umlaut written as "ü" (UTF-8)
#   kSyllableStart   offset of each syllable in kSyllableText
#   kRunFirst        first code point of each run of code points
#   kRunStart        index in kReadings of each run's first entry, plus one
#                    entry past the last run
#   kReadings        per code point: syllable index * 8 + tone (1-4, 5 for
#                    the neutral tone), or 0 for a code point without reading
#                    inside a run
import bz2
import sys
import unicodedata

TONE_MARKS = {'\u0304': 1, '\u0301': 2, '\u030c': 3, '\u0300': 4}
# Characters of everyday text that Unihan gives no kMandarin reading: 〇, the
# zero of written-out years (二〇二六年).
SUPPLEMENT = {0x3007: ('ling', 2)}
# Code points closer than this share a run, the gap filled with zeros: a
# zero entry costs 2 bytes, a new run 8.
MAX_GAP = 4


def syllable_and_tone(reading):
    """Splits a tone-marked syllable (zhōng, lǜ, m̄) into (zhong, 1)."""
    tone = 5
    base = ''
    for ch in unicodedata.normalize('NFD', reading):
        if ch in TONE_MARKS:
            tone = TONE_MARKS[ch]
        else:
            base += ch
    base = unicodedata.normalize('NFC', base)
    if not base or any(not ('a' <= c <= 'z' or c in 'üê') for c in base):
        raise ValueError('unexpected reading %r' % reading)
    return base, tone


def read_lines(path):
    if path.endswith('.bz2'):
        return bz2.open(path, 'rt', encoding='utf-8')
    return open(path, encoding='utf-8')


def main():
    if len(sys.argv) != 3:
        sys.exit('usage: make_pinyin_table.py UNIHAN_READINGS OUTPUT.cpp')
    readings = {}
    with read_lines(sys.argv[1]) as lines:
        for line in lines:
            fields = line.rstrip('\n').split('\t')
            if len(fields) < 3 or fields[1] != 'kMandarin':
                continue
            readings[int(fields[0][2:], 16)] = syllable_and_tone(fields[2].split()[0])
    if not readings:
        sys.exit('no kMandarin field in %s' % sys.argv[1])
    for cp, (syllable, tone) in SUPPLEMENT.items():
        readings.setdefault(cp, (syllable, tone))

    syllables = sorted({s for s, _ in readings.values()})
    index = {s: i for i, s in enumerate(syllables)}
    if len(syllables) >= 8192:
        sys.exit('too many syllables for 16-bit entries')

    run_first, run_start, values = [], [], []
    previous = None
    for cp in sorted(readings):
        if previous is None or cp - previous > MAX_GAP:
            run_first.append(cp)
            run_start.append(len(values))
        else:
            values.extend([0] * (cp - previous - 1))
        syllable, tone = readings[cp]
        values.append(index[syllable] * 8 + tone)
        previous = cp
    run_start.append(len(values))

    text, starts, offset = [], [], 0
    for s in syllables:
        starts.append(offset)
        encoded = s.encode('utf-8')
        text.append(''.join('\\%03o' % b if b > 127 else chr(b) for b in encoded))
        offset += len(encoded) + 1

    def rows(numbers, per_line=12):
        out = []
        for i in range(0, len(numbers), per_line):
            out.append('    ' + ', '.join(str(n) for n in numbers[i:i + per_line]) + ',')
        return '\n'.join(out)

    with open(sys.argv[2], 'w', encoding='ascii') as out:
        out.write('// Generated from %s at build time by make_pinyin_table.py.\n' % sys.argv[1])
        out.write('#include <cstddef>\n#include <cstdint>\n\nnamespace utts::mandarin {\n\n')
        out.write('extern const std::size_t kReadingCount = %d;\n' % len(readings))
        out.write('extern const std::size_t kSyllableCount = %d;\n' % len(syllables))
        out.write('extern const std::size_t kRunCount = %d;\n\n' % len(run_first))
        out.write('extern const char kSyllableText[] =\n')
        for piece in text:
            out.write('    "%s\\0"\n' % piece)
        out.write('    ;\n\n')
        out.write('extern const std::uint16_t kSyllableStart[] = {\n%s\n};\n\n' % rows(starts))
        out.write('extern const std::uint32_t kRunFirst[] = {\n%s\n};\n\n' % rows(run_first))
        out.write('extern const std::uint32_t kRunStart[] = {\n%s\n};\n\n' % rows(run_start))
        out.write('extern const std::uint16_t kReadings[] = {\n%s\n};\n\n' % rows(values, 16))
        out.write('}  // namespace utts::mandarin\n')


if __name__ == '__main__':
    main()

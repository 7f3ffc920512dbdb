// image_text.h - the lexical layer of the readable tree and model forms:
// lines of blank-separated words, double-quoted words with escapes, "#"
// comments; and the printing of words, numbers and bytes that reads back
// to the same values.
#ifndef UTILS_UTTS_IMAGE_TEXT_H
#define UTILS_UTTS_IMAGE_TEXT_H

#include <cstdint>
#include <string>
#include <vector>

namespace utts {

struct TextLine {
  int number;                      // 1-based line number in the text
  std::vector<std::string> words;  // at least one
};

// Splits `text` into its non-empty lines. Words are separated by blanks and
// TABs; a word in double quotes may hold blanks, "#" and escapes (\\ \" \n
// \t \xHH); "#" outside quotes starts a comment. False with "line N:
// reason" in `error` on an unterminated quote or a bad escape.
bool split_lines(const std::string &text, std::vector<TextLine> &lines, std::string &error);

// `s` in double quotes, with \\, \" and \xHH for control bytes.
std::string quote(const std::string &s);

// A whole-word integer (decimal, or hexadecimal after 0x) in [min, max].
bool parse_int(const std::string &word, long long min, long long max, long long &out);

// A float printed with enough digits to read back to the same bits; one
// that is not finite is printed as its bits, "0x" and eight hex digits.
std::string format_float(float f);
bool parse_float(const std::string &word, float &out);

// Bytes as lower-case hex digits, and back (an even number of digits).
std::string hex_bytes(const unsigned char *data, size_t size);
bool parse_hex(const std::string &word, std::string &bytes);

// "line N: " + message.
std::string at_line(int number, const std::string &message);

}  // namespace utts

#endif  // UTILS_UTTS_IMAGE_TEXT_H

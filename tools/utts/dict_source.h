// dict_source.h - the text form of a dictionary (class list, class-pair
// table, lexicon) read into a source, compiled to an image, and written
// back from an image, so that compile -> dump -> compile gives the same bytes.
//
// The text is line based; "#" starts a comment line; fields are separated by
// tabs or spaces; a line "[classes]", "[pairs]" or "[words]" selects what the
// following lines are:
//   [classes]  NAME [CODE]      a class and its code (0..255; by default its
//                               position in the list)
//              default NAME     the class of words not in the dictionary
//   [pairs]    EARLIER LATER SCORE ASSOCIATION   (class names, two floats;
//                               the first line of a pair wins)
//   [words]    WORD CLASS SCORE one reading; a word's readings in file order
//              range L MAX MIN  the score range of words of length L (by
//                               default the range of their readings' scores)
//   [phrase_break], [stress]    a model section in the readable form of
//                               "utts compile-model", to the next section
#ifndef UTILS_UTTS_DICT_SOURCE_H
#define UTILS_UTTS_DICT_SOURCE_H

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace utts {

struct DictSource {
  struct Class {
    std::string name;
    unsigned code;
  };
  struct Pair {
    unsigned prev, next;
    float score, association;
  };
  struct Reading {
    unsigned cls;
    double score;
  };
  struct Range {
    float max, min;
  };
  std::vector<Class> classes;
  std::string default_class;
  uint32_t default_code = 0;
  std::vector<Pair> pairs;
  std::map<std::u16string, std::vector<Reading>> words;  // code-unit order
  std::map<uint32_t, Range> ranges;
  // Compiled model sections to embed, and models in readable form (to be
  // compiled by encode_models).
  std::vector<uint8_t> phrase_break, stress;
  std::string phrase_break_text, stress_text;
};

// Compiles the models given in readable form. False with a message.
bool encode_models(DictSource &source, std::string &error);

// Reads one text (`section` is the section it starts in: "", "classes",
// "pairs" or "words"). Classes must come before the pairs and words that
// name them. False with a message naming `where` and the line on error.
bool read_dict_source(const std::string &text, const std::string &where, std::string section,
                      DictSource &source, std::string &error);

// The image of a source.
std::vector<uint8_t> compile_dict(const DictSource &source);

// The text of an image NLPDIC_Check accepted, models included. False with
// a message when the image is not one this tool could have written.
bool dump_dict(const std::vector<uint8_t> &image, std::string &text, std::string &error);

std::u16string utf8_to_utf16(const std::string &s);
std::string utf16_to_utf8(const std::u16string &s);

}  // namespace utts

#endif  // UTILS_UTTS_DICT_SOURCE_H

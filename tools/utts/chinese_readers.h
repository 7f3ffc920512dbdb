// chinese_readers.h - the Mandarin readers that the front end registers with
// the converter for the elements of data/chinese.rules, and the Mandarin
// say-as reader. Readings are written in Chinese characters (UTF-8).
#ifndef UTILS_UTTS_CHINESE_READERS_H
#define UTILS_UTTS_CHINESE_READERS_H

#include <cstddef>
#include <string>

#include "hconverter.h"

namespace utts {

// The bundled Mandarin rule set (data/chinese.rules), built into the program.
extern const char kChineseRules[];
extern const std::size_t kChineseRulesSize;

}  // namespace utts

namespace utts::chinese {

// Registers a reader for every element name of the bundled Mandarin rules
// and sets the Mandarin say-as reader.
void add_readers(HConverter *converter);

// Reads a say-as element: interpret-as cardinal (or number), ordinal,
// digits, telephone, characters (or spell-out, letters), date (format ymd,
// dmy, mdy or a shorter combination; ymd by default), time, currency (or
// money) and percent. Other values are refused, which leaves the element
// unchanged.
int read_say_as(const char *text, CStr *out, const char *interpret_as, const char *format,
                const char *detail);

// The readers, for direct use and tests. Each appends the reading of the
// whole text to `out` and returns false, appending nothing, when the text is
// not what it reads. Surrounding blanks are ignored.
bool read_cardinal(const std::string &text, std::string &out);      // -1,234.5
bool read_count(const std::string &text, std::string &out);         // 2 before 个
bool read_ordinal(const std::string &text, std::string &out);       // 2 after 第
bool read_digits(const std::string &text, std::string &out);        // 2026, 一 for 1
bool read_code(const std::string &text, std::string &out);          // 1201, 幺 for 1
bool read_telephone(const std::string &text, std::string &out);     // +86 138-1234-5678
bool read_year(const std::string &text, std::string &out);          // 2026 (年 not included)
bool read_date(const std::string &text, std::string &out);          // 2026年11月24日, 2026-11-24
bool read_time(const std::string &text, std::string &out);          // 14:30, 14:30:05
bool read_clock(const std::string &text, std::string &out);         // 3点15分
bool read_money(const std::string &text, std::string &out);         // ¥12.50, $3, 3.5亿元
bool read_amount(const std::string &text, std::string &out);        // 12.50 before 元
bool read_percent(const std::string &text, std::string &out);       // 12.5%, 5‰
bool read_percent_bare(const std::string &text, std::string &out);  // 40% after 30-
bool read_fraction(const std::string &text, std::string &out);      // 3/4
bool read_temperature(const std::string &text, std::string &out);   // -5℃
bool read_temperature_bare(const std::string &text, std::string &out);  // -5 before -3℃
bool read_measure(const std::string &text, std::string &out);           // 5kg, 120km/h

}  // namespace utts::chinese

#endif  // UTILS_UTTS_CHINESE_READERS_H

// english_readers.h - the English readers that the front end registers with the
// converter: one per element name of the bundled rule set, and the say-as
// reader.
#ifndef UTILS_UTTS_ENGLISH_READERS_H
#define UTILS_UTTS_ENGLISH_READERS_H

#include <string>

#include "hconverter.h"

namespace utts {

struct ReaderEntry {
  const char *element;  // element name made by the bundled rules
  ConvertFunc read;
};

// The readers by element name; ends with a null entry.
const ReaderEntry *english_readers();

// Reads a say-as element: interpret-as cardinal (or number), ordinal,
// digits, characters (or spell-out, letters), telephone, date (format mdy,
// dmy, ymd, or any shorter combination of y, m and d; mdy by default; the
// day is said first when it is written before the month) and time. Other values are refused,
// which leaves the element unchanged.
int read_say_as(const char *text, CStr *out, const char *interpret_as, const char *format,
                const char *detail);

// The readers themselves, for direct use and tests. Each appends words to
// `out` and returns false when the text is not what it reads.
bool read_money(const std::string &text, std::string &out);
bool read_date(const std::string &text, const std::string &format, std::string &out);
bool read_month_date(const std::string &text, std::string &out);
bool read_time(const std::string &text, std::string &out);
bool read_time_range(const std::string &text, std::string &out);
bool read_telephone(const std::string &text, std::string &out);
bool read_measure(const std::string &text, std::string &out);
bool read_characters(const std::string &text, std::string &out);

}  // namespace utts

#endif  // UTILS_UTTS_ENGLISH_READERS_H

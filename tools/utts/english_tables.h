// english_tables.h - word tables of the English readers: months, currencies,
// units of measure, abbreviations and the names of symbols spelled out.
#ifndef UTILS_UTTS_ENGLISH_TABLES_H
#define UTILS_UTTS_ENGLISH_TABLES_H

namespace utts {

extern const char *const kMonthNames[12];

struct Currency {
  const char *symbol;  // UTF-8, as written before the amount
  const char *major, *major_plural;
  const char *minor, *minor_plural;  // null when amounts are not split
};
extern const Currency kCurrencies[];  // ends with a null symbol

struct Unit {
  const char *symbol;  // as written after the number
  const char *singular, *plural;
};
extern const Unit kUnits[];  // ends with a null symbol

struct Expansion {
  const char *written, *spoken;
};
extern const Expansion kAbbreviations[];  // ends with a null entry

// The spoken name of a punctuation or symbol character, or null.
const char *symbol_name(char c);

}  // namespace utts

#endif  // UTILS_UTTS_ENGLISH_TABLES_H

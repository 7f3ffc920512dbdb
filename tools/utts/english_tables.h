// english_tables.h - word tables of the English readers: months, currencies,
// units of measure, time zones, abbreviations and the names of symbols
// spelled out.
#ifndef UTILS_UTTS_ENGLISH_TABLES_H
#define UTILS_UTTS_ENGLISH_TABLES_H

namespace utts {

extern const char *const kMonthNames[12];

struct Currency {
  const char *symbol;  // UTF-8, as written before (or after) the amount
  const char *major, *major_plural;
  const char *minor, *minor_plural;  // null when amounts are not split
};
extern const Currency kCurrencies[];  // ends with a null symbol; longer symbols first

struct Unit {
  const char *symbol;  // as written after the number
  const char *singular, *plural;
  // True when the symbol means the same in capitals ("KG", "Mins"); false
  // where case tells units apart ("MB" and "mb", "MW" and "mW").
  bool any_case;
};
extern const Unit kUnits[];  // ends with a null symbol

struct Expansion {
  const char *written, *spoken;
};
extern const Expansion kAbbreviations[];  // ends with a null entry

// Time zone abbreviations read letter by letter after a time; ends with null.
extern const char *const kTimeZones[];

// The spoken name of a punctuation or symbol character, or null.
const char *symbol_name(char c);

}  // namespace utts

#endif  // UTILS_UTTS_ENGLISH_TABLES_H

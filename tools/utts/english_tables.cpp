// english_tables.cpp - the word tables of the English readers, as data.
// American spelling (meter, liter), as in the number words.
#include "utts/english_tables.h"

namespace utts {

const char *const kMonthNames[12] = {"January",   "February", "March",    "April",
                                     "May",       "June",     "July",     "August",
                                     "September", "October",  "November", "December"};

// Symbols that hold another symbol ("US$" and "$") come before it, so that
// the first match is the whole symbol.
const Currency kCurrencies[] = {
    {"US$", "U S dollar", "U S dollars", "cent", "cents"},
    {"C$", "Canadian dollar", "Canadian dollars", "cent", "cents"},
    {"A$", "Australian dollar", "Australian dollars", "cent", "cents"},
    {"NZ$", "New Zealand dollar", "New Zealand dollars", "cent", "cents"},
    {"HK$", "Hong Kong dollar", "Hong Kong dollars", "cent", "cents"},
    {"S$", "Singapore dollar", "Singapore dollars", "cent", "cents"},
    {"R$", "real", "reais", "centavo", "centavos"},
    {"$", "dollar", "dollars", "cent", "cents"},
    {"\xE2\x82\xAC", "euro", "euros", "cent", "cents"},        // euro sign
    {"\xC2\xA3", "pound", "pounds", "penny", "pence"},         // pound sign
    {"\xC2\xA5", "yen", "yen", nullptr, nullptr},              // yen sign
    {"\xE2\x82\xA9", "won", "won", nullptr, nullptr},          // won sign
    {"\xE2\x82\xB9", "rupee", "rupees", "paisa", "paise"},     // rupee sign
    {"\xE2\x82\xBD", "ruble", "rubles", "kopek", "kopeks"},    // ruble sign
    {"\xE2\x82\xBA", "lira", "lira", nullptr, nullptr},        // lira sign
    {"\xE2\x82\xAA", "shekel", "shekels", "agora", "agorot"},  // new shekel sign
    {"\xE2\x82\xB1", "peso", "pesos", "centavo", "centavos"},  // peso sign
    {"\xE2\x82\xA6", "naira", "naira", "kobo", "kobo"},        // naira sign
    {"\xE0\xB8\xBF", "baht", "baht", "satang", "satang"},      // baht sign
    {"\xC2\xA2", "cent", "cents", nullptr, nullptr},           // cent sign
    {"Rs.", "rupee", "rupees", "paisa", "paise"},
    {"Rs", "rupee", "rupees", "paisa", "paise"},
    {"USD", "U S dollar", "U S dollars", "cent", "cents"},
    {"EUR", "euro", "euros", "cent", "cents"},
    {"GBP", "pound", "pounds", "penny", "pence"},
    {"JPY", "yen", "yen", nullptr, nullptr},
    {"CAD", "Canadian dollar", "Canadian dollars", "cent", "cents"},
    {"AUD", "Australian dollar", "Australian dollars", "cent", "cents"},
    {"INR", "rupee", "rupees", "paisa", "paise"},
    {"CNY", "yuan", "yuan", nullptr, nullptr},
    {"CHF", "Swiss franc", "Swiss francs", "centime", "centimes"},
    // Written close after an amount only: 50p, 20c.
    {"p", "penny", "pence", nullptr, nullptr},
    {"c", "cent", "cents", nullptr, nullptr},
    {nullptr, nullptr, nullptr, nullptr, nullptr},
};

// clang-format off
// One unit a line reads better than the columns the formatter would make.
const Unit kUnits[] = {
    // Length, and the areas and volumes built from it (see the readers).
    {"km", "kilometer", "kilometers", true},
    {"m", "meter", "meters", false},
    {"cm", "centimeter", "centimeters", true},
    {"mm", "millimeter", "millimeters", true},
    {"\xC2\xB5m", "micrometer", "micrometers", false},  // micro sign
    {"\xCE\xBCm", "micrometer", "micrometers", false},  // Greek mu
    {"nm", "nanometer", "nanometers", false},
    {"mi", "mile", "miles", true},
    {"ft", "foot", "feet", true},
    {"in", "inch", "inches", false},
    {"yd", "yard", "yards", true},
    {"yds", "yard", "yards", true},
    // Mass.
    {"kg", "kilogram", "kilograms", true},
    {"kgs", "kilogram", "kilograms", true},
    {"g", "gram", "grams", false},
    {"mg", "milligram", "milligrams", true},
    {"lb", "pound", "pounds", true},
    {"lbs", "pound", "pounds", true},
    {"oz", "ounce", "ounces", true},
    // Volume.
    {"L", "liter", "liters", false},
    {"l", "liter", "liters", false},
    {"ml", "milliliter", "milliliters", true},
    {"mL", "milliliter", "milliliters", false},
    {"cc", "cubic centimeter", "cubic centimeters", false},
    {"gal", "gallon", "gallons", true},
    {"tbsp", "tablespoon", "tablespoons", true},
    {"tsp", "teaspoon", "teaspoons", true},
    // Time.
    {"ms", "millisecond", "milliseconds", false},
    {"sec", "second", "seconds", true},
    {"secs", "second", "seconds", true},
    {"min", "minute", "minutes", true},
    {"mins", "minute", "minutes", true},
    {"h", "hour", "hours", false},
    {"hr", "hour", "hours", true},
    {"hrs", "hour", "hours", true},
    {"wk", "week", "weeks", true},
    {"wks", "week", "weeks", true},
    {"yr", "year", "years", true},
    {"yrs", "year", "years", true},
    // Speed and rates.
    {"km/h", "kilometer per hour", "kilometers per hour", true},
    {"km/hr", "kilometer per hour", "kilometers per hour", true},
    {"kmph", "kilometer per hour", "kilometers per hour", true},
    {"kmh", "kilometer per hour", "kilometers per hour", true},
    {"kph", "kilometer per hour", "kilometers per hour", true},
    {"mph", "mile per hour", "miles per hour", true},
    {"m/s", "meter per second", "meters per second", true},
    {"rpm", "revolution per minute", "revolutions per minute", true},
    {"kbps", "kilobit per second", "kilobits per second", true},
    {"mbps", "megabit per second", "megabits per second", true},
    {"gbps", "gigabit per second", "gigabits per second", true},
    // Data.
    {"KB", "kilobyte", "kilobytes", false},
    {"kB", "kilobyte", "kilobytes", false},
    {"MB", "megabyte", "megabytes", false},
    {"GB", "gigabyte", "gigabytes", false},
    {"TB", "terabyte", "terabytes", false},
    {"PB", "petabyte", "petabytes", false},
    {"Kb", "kilobit", "kilobits", false},
    {"Mb", "megabit", "megabits", false},
    {"Gb", "gigabit", "gigabits", false},
    // Frequency, electricity, energy, pressure, sound.
    {"hz", "hertz", "hertz", true},
    {"khz", "kilohertz", "kilohertz", true},
    {"mhz", "megahertz", "megahertz", true},
    {"ghz", "gigahertz", "gigahertz", true},
    {"W", "watt", "watts", false},
    {"mW", "milliwatt", "milliwatts", false},
    {"kW", "kilowatt", "kilowatts", false},
    {"MW", "megawatt", "megawatts", false},
    {"GW", "gigawatt", "gigawatts", false},
    {"Wh", "watt hour", "watt hours", false},
    {"kWh", "kilowatt hour", "kilowatt hours", false},
    {"MWh", "megawatt hour", "megawatt hours", false},
    {"GWh", "gigawatt hour", "gigawatt hours", false},
    {"V", "volt", "volts", false},
    {"mV", "millivolt", "millivolts", false},
    {"kV", "kilovolt", "kilovolts", false},
    {"mA", "milliamp", "milliamps", false},
    {"mAh", "milliamp hour", "milliamp hours", false},
    {"kcal", "kilocalorie", "kilocalories", true},
    {"hp", "horsepower", "horsepower", false},
    {"Pa", "pascal", "pascals", false},
    {"kPa", "kilopascal", "kilopascals", false},
    {"hPa", "hectopascal", "hectopascals", false},
    {"psi", "p s i", "p s i", true},
    {"dB", "decibel", "decibels", false},
    {"ha", "hectare", "hectares", false},
    // Temperature and angle; the readers write every degree sign as U+00B0.
    {"\xC2\xB0" "C", "degree Celsius", "degrees Celsius", false},
    {"\xC2\xB0" "F", "degree Fahrenheit", "degrees Fahrenheit", false},
    {"\xC2\xB0" "K", "kelvin", "kelvins", false},
    {"\xC2\xB0", "degree", "degrees", false},
    {nullptr, nullptr, nullptr, false},
};
// clang-format on

const char *const kTimeZones[] = {"UTC", "GMT", "BST", "CET", "CEST", "IST", "JST",  "AEST", "AET",
                                  "EST", "EDT", "ET",  "CST", "CDT",  "CT",  "MST",  "MDT",  "MT",
                                  "PST", "PDT", "PT",  "AST", "ADT",  "AT",  nullptr};

const Expansion kAbbreviations[] = {
    {"Mr.", "mister"},
    {"Mrs.", "missus"},
    {"Ms.", "miz"},
    {"Dr.", "doctor"},
    {"Prof.", "professor"},
    {"Jr.", "junior"},
    {"Sr.", "senior"},
    {"St.", "street"},
    {"Ave.", "avenue"},
    {"Blvd.", "boulevard"},
    {"Rd.", "road"},
    {"Mt.", "mount"},
    {"Gov.", "governor"},
    {"Sen.", "senator"},
    {"Rep.", "representative"},
    {"Gen.", "general"},
    {"Capt.", "captain"},
    {"Lt.", "lieutenant"},
    {"Sgt.", "sergeant"},
    {"Inc.", "incorporated"},
    {"Ltd.", "limited"},
    {"Corp.", "corporation"},
    {"Co.", "company"},
    {"Dept.", "department"},
    {"No.", "number"},
    {"Fig.", "figure"},
    {"Vol.", "volume"},
    {"vs.", "versus"},
    {"etc.", "et cetera"},
    {"approx.", "approximately"},
    {"e.g.", "for example"},
    {"i.e.", "that is"},
    {"a.m.", "a m"},
    {"p.m.", "p m"},
    {"&", "and"},
    {nullptr, nullptr},
};

const char *symbol_name(char c) {
  switch (c) {
    case '-':
      return "dash";
    case '.':
      return "dot";
    case '@':
      return "at";
    case '_':
      return "underscore";
    case '/':
      return "slash";
    case '#':
      return "hash";
    case '+':
      return "plus";
    case '&':
      return "and";
    case '*':
      return "star";
    case ':':
      return "colon";
    default:
      return nullptr;
  }
}

}  // namespace utts

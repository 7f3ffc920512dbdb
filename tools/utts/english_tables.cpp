// english_tables.cpp - the word tables of the English readers, as data.
#include "utts/english_tables.h"

namespace utts {

const char *const kMonthNames[12] = {"January",   "February", "March",    "April",
                                     "May",       "June",     "July",     "August",
                                     "September", "October",  "November", "December"};

const Currency kCurrencies[] = {
    {"$", "dollar", "dollars", "cent", "cents"},
    {"\xE2\x82\xAC", "euro", "euros", "cent", "cents"},  // euro sign
    {"\xC2\xA3", "pound", "pounds", "penny", "pence"},   // pound sign
    {"\xC2\xA5", "yen", "yen", nullptr, nullptr},        // yen sign
    {nullptr, nullptr, nullptr, nullptr, nullptr},
};

const Unit kUnits[] = {
    {"km/h", "kilometer per hour", "kilometers per hour"},
    {"m/s", "meter per second", "meters per second"},
    {"mph", "mile per hour", "miles per hour"},
    {"kg", "kilogram", "kilograms"},
    {"g", "gram", "grams"},
    {"mg", "milligram", "milligrams"},
    {"lb", "pound", "pounds"},
    {"lbs", "pound", "pounds"},
    {"oz", "ounce", "ounces"},
    {"km", "kilometer", "kilometers"},
    {"m", "meter", "meters"},
    {"cm", "centimeter", "centimeters"},
    {"mm", "millimeter", "millimeters"},
    {"mi", "mile", "miles"},
    {"ft", "foot", "feet"},
    {"L", "liter", "liters"},
    {"l", "liter", "liters"},
    {"ml", "milliliter", "milliliters"},
    {"mL", "milliliter", "milliliters"},
    {"GHz", "gigahertz", "gigahertz"},
    {"MHz", "megahertz", "megahertz"},
    {"kHz", "kilohertz", "kilohertz"},
    {"Hz", "hertz", "hertz"},
    {"TB", "terabyte", "terabytes"},
    {"GB", "gigabyte", "gigabytes"},
    {"MB", "megabyte", "megabytes"},
    {"KB", "kilobyte", "kilobytes"},
    {"kB", "kilobyte", "kilobytes"},
    {"kW", "kilowatt", "kilowatts"},
    {"kWh", "kilowatt hour", "kilowatt hours"},
    {"W", "watt", "watts"},
    {"V", "volt", "volts"},
    {"mAh", "milliamp hour", "milliamp hours"},
    {"\xC2\xB0"
     "C",
     "degree Celsius", "degrees Celsius"},  // degree sign
    {"\xC2\xB0"
     "F",
     "degree Fahrenheit", "degrees Fahrenheit"},
    {"\xC2\xB0", "degree", "degrees"},
    {"ms", "millisecond", "milliseconds"},
    {"min", "minute", "minutes"},
    {"hrs", "hour", "hours"},
    {"sq ft", "square foot", "square feet"},
    {nullptr, nullptr, nullptr},
};

const Expansion kAbbreviations[] = {
    {"Mr.", "mister"},        {"Mrs.", "missus"},       {"Ms.", "miz"},
    {"Dr.", "doctor"},        {"Prof.", "professor"},   {"Jr.", "junior"},
    {"Sr.", "senior"},        {"St.", "street"},        {"Ave.", "avenue"},
    {"Blvd.", "boulevard"},   {"Rd.", "road"},          {"Mt.", "mount"},
    {"Gov.", "governor"},     {"Sen.", "senator"},      {"Rep.", "representative"},
    {"Gen.", "general"},      {"Capt.", "captain"},     {"Lt.", "lieutenant"},
    {"Sgt.", "sergeant"},     {"Inc.", "incorporated"}, {"Ltd.", "limited"},
    {"Corp.", "corporation"}, {"Co.", "company"},       {"Dept.", "department"},
    {"No.", "number"},        {"Fig.", "figure"},       {"Vol.", "volume"},
    {"vs.", "versus"},        {"etc.", "et cetera"},    {"approx.", "approximately"},
    {"e.g.", "for example"},  {"i.e.", "that is"},      {"a.m.", "a m"},
    {"p.m.", "p m"},          {nullptr, nullptr},
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

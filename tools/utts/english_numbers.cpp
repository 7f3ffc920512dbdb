// english_numbers.cpp - number words for American English: no "and" inside
// numbers, hyphens in twenty-one .. ninety-nine, short scale (million, billion,
// trillion, up to quintillion).
#include "utts/english_numbers.h"

#include "bsr_cstr.h"
#include "hconverter.h"

namespace utts {

namespace {

const char *const kOnes[] = {"zero",    "one",     "two",       "three",    "four",
                             "five",    "six",     "seven",     "eight",    "nine",
                             "ten",     "eleven",  "twelve",    "thirteen", "fourteen",
                             "fifteen", "sixteen", "seventeen", "eighteen", "nineteen"};
const char *const kTens[] = {"",      "",      "twenty",  "thirty", "forty",
                             "fifty", "sixty", "seventy", "eighty", "ninety"};
const char *const kScales[] = {"",         "thousand",    "million",    "billion",
                               "trillion", "quadrillion", "quintillion"};
constexpr size_t kMaxCardinalDigits = 21;

// Irregular ordinal forms of the last word of a cardinal.
struct OrdinalForm {
  const char *cardinal, *ordinal;
};
const OrdinalForm kOrdinalForms[] = {{"one", "first"},     {"two", "second"},   {"three", "third"},
                                     {"five", "fifth"},    {"eight", "eighth"}, {"nine", "ninth"},
                                     {"twelve", "twelfth"}};

bool all_digits(const std::string &s) {
  if (s.empty()) return false;
  for (char c : s)
    if (c < '0' || c > '9') return false;
  return true;
}

// 1..99 as one word ("forty-two").
std::string below_hundred(int n) {
  if (n < 20) return kOnes[n];
  std::string word = kTens[n / 10];
  if (n % 10 != 0) word += std::string("-") + kOnes[n % 10];
  return word;
}

// 1..999.
void below_thousand(int n, std::string &out) {
  if (n >= 100) {
    add_word(out, kOnes[n / 100]);
    add_word(out, "hundred");
    n %= 100;
  }
  if (n > 0) add_word(out, below_hundred(n));
}

// Turns the last word of a cardinal reading into its ordinal form.
std::string ordinal_of(const std::string &cardinal) {
  size_t cut = cardinal.find_last_of(" -");
  size_t start = cut == std::string::npos ? 0 : cut + 1;
  std::string head = cardinal.substr(0, start), last = cardinal.substr(start);
  for (const OrdinalForm &form : kOrdinalForms)
    if (last == form.cardinal) return head + form.ordinal;
  if (!last.empty() && last.back() == 'y') return head + last.substr(0, last.size() - 1) + "ieth";
  return head + last + "th";
}

}  // namespace

void add_word(std::string &out, const std::string &word) {
  if (word.empty()) return;
  if (!out.empty() && out.back() != ' ') out += ' ';
  out += word;
}

long digit_value(const std::string &digits) {
  if (!all_digits(digits) || digits.size() > 9) return -1;
  return std::stol(digits);
}

bool say_digits(const std::string &digits, std::string &out) {
  bool any = false;
  for (char c : digits) {
    if (c < '0' || c > '9') continue;
    add_word(out, kOnes[c - '0']);
    any = true;
  }
  return any;
}

bool say_cardinal(const std::string &digits, std::string &out) {
  if (!all_digits(digits)) return false;
  size_t first = digits.find_first_not_of('0');
  if (first == std::string::npos) {
    add_word(out, "zero");
    return true;
  }
  std::string significant = digits.substr(first);
  if (significant.size() > kMaxCardinalDigits) return say_digits(significant, out);
  // Groups of three from the left; the first may be shorter.
  size_t groups = (significant.size() + 2) / 3;
  size_t at = 0, width = significant.size() - (groups - 1) * 3;
  for (size_t g = groups; g > 0; --g) {
    int value = std::stoi(significant.substr(at, width));
    if (value != 0) {
      below_thousand(value, out);
      add_word(out, kScales[g - 1]);
    }
    at += width;
    width = 3;
  }
  return true;
}

bool say_ordinal(const std::string &digits, std::string &out) {
  std::string cardinal;
  if (!say_cardinal(digits, cardinal)) return false;
  add_word(out, ordinal_of(cardinal));
  return true;
}

bool say_year(const std::string &digits, std::string &out) {
  long year = digit_value(digits);
  if (year < 0) return false;
  if (digits.size() == 2) {
    if (year == 0) {
      add_word(out, "oh oh");
    } else if (year < 10) {
      add_word(out, "oh");
      add_word(out, kOnes[year]);
    } else {
      add_word(out, below_hundred(static_cast<int>(year)));
    }
    return true;
  }
  if (digits.size() != 4 || year < 1000) return say_cardinal(digits, out);
  int high = static_cast<int>(year / 100), low = static_cast<int>(year % 100);
  // 2000-2009 and 1000, 3000, ...: "two thousand five".
  if ((high % 10 == 0 && low < 10) || (year >= 2000 && year < 2010))
    return say_cardinal(digits, out);
  add_word(out, below_hundred(high));
  if (low == 0) {
    add_word(out, "hundred");
  } else if (low < 10) {
    add_word(out, "oh");
    add_word(out, kOnes[low]);
  } else {
    add_word(out, below_hundred(low));
  }
  return true;
}

bool say_number(const char *text, std::string &out) {
  CStr *sign = CStrCreate(4), *integer = CStrCreate(32), *fraction = CStrCreate(16);
  bool ok = sign != nullptr && integer != nullptr && fraction != nullptr &&
            SayAsCardinal(text, ".", ",", sign, integer, fraction) == 0 &&
            (CStrLength(integer) > 0 || CStrLength(fraction) > 0);
  if (ok) {
    std::string result;
    if (CStrLastC(sign) == '-') add_word(result, "minus");
    if (CStrLength(integer) > 0)
      say_cardinal(CStrStr(integer), result);
    else
      add_word(result, "zero");
    if (CStrLength(fraction) > 0) {
      add_word(result, "point");
      say_digits(CStrStr(fraction), result);
    }
    add_word(out, result);
  }
  CStrDestroy(sign);
  CStrDestroy(integer);
  CStrDestroy(fraction);
  return ok;
}

}  // namespace utts

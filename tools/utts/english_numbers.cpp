// Number words for American English: no "and" inside numbers, hyphens in
// twenty-one .. ninety-nine, short scale (million, billion, trillion).
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
const char *const kScales[] = {"", "thousand", "million", "billion", "trillion"};
constexpr size_t kMaxCardinalDigits = 15;

// Irregular ordinal forms of the last word of a cardinal.
struct OrdinalForm {
  const char *cardinal, *ordinal;
};
const OrdinalForm kOrdinalForms[] = {{"one", "first"},  {"two", "second"}, {"three", "third"},
                                     {"five", "fifth"}, {"eight", "eighth"}, {"nine", "ninth"},
                                     {"twelve", "twelfth"}};

bool allDigits(const std::string &s) {
  if (s.empty()) return false;
  for (char c : s)
    if (c < '0' || c > '9') return false;
  return true;
}

// 1..99 as one word ("forty-two").
std::string belowHundred(int n) {
  if (n < 20) return kOnes[n];
  std::string word = kTens[n / 10];
  if (n % 10 != 0) word += std::string("-") + kOnes[n % 10];
  return word;
}

// 1..999.
void belowThousand(int n, std::string &out) {
  if (n >= 100) {
    addWord(out, kOnes[n / 100]);
    addWord(out, "hundred");
    n %= 100;
  }
  if (n > 0) addWord(out, belowHundred(n));
}

// Turns the last word of a cardinal reading into its ordinal form.
std::string ordinalOf(const std::string &cardinal) {
  size_t cut = cardinal.find_last_of(" -");
  size_t start = cut == std::string::npos ? 0 : cut + 1;
  std::string head = cardinal.substr(0, start), last = cardinal.substr(start);
  for (const OrdinalForm &form : kOrdinalForms)
    if (last == form.cardinal) return head + form.ordinal;
  if (!last.empty() && last.back() == 'y') return head + last.substr(0, last.size() - 1) + "ieth";
  return head + last + "th";
}

}  // namespace

void addWord(std::string &out, const std::string &word) {
  if (word.empty()) return;
  if (!out.empty() && out.back() != ' ') out += ' ';
  out += word;
}

long digitValue(const std::string &digits) {
  if (!allDigits(digits) || digits.size() > 9) return -1;
  return std::stol(digits);
}

bool sayDigits(const std::string &digits, std::string &out) {
  bool any = false;
  for (char c : digits) {
    if (c < '0' || c > '9') continue;
    addWord(out, kOnes[c - '0']);
    any = true;
  }
  return any;
}

bool sayCardinal(const std::string &digits, std::string &out) {
  if (!allDigits(digits)) return false;
  size_t first = digits.find_first_not_of('0');
  if (first == std::string::npos) {
    addWord(out, "zero");
    return true;
  }
  std::string significant = digits.substr(first);
  if (significant.size() > kMaxCardinalDigits) return sayDigits(significant, out);
  // Groups of three from the left; the first may be shorter.
  size_t groups = (significant.size() + 2) / 3;
  size_t at = 0, width = significant.size() - (groups - 1) * 3;
  for (size_t g = groups; g > 0; --g) {
    int value = std::stoi(significant.substr(at, width));
    if (value != 0) {
      belowThousand(value, out);
      addWord(out, kScales[g - 1]);
    }
    at += width;
    width = 3;
  }
  return true;
}

bool sayOrdinal(const std::string &digits, std::string &out) {
  std::string cardinal;
  if (!sayCardinal(digits, cardinal)) return false;
  addWord(out, ordinalOf(cardinal));
  return true;
}

bool sayYear(const std::string &digits, std::string &out) {
  long year = digitValue(digits);
  if (year < 0) return false;
  if (digits.size() == 2) {
    if (year == 0) {
      addWord(out, "oh oh");
    } else if (year < 10) {
      addWord(out, "oh");
      addWord(out, kOnes[year]);
    } else {
      addWord(out, belowHundred(static_cast<int>(year)));
    }
    return true;
  }
  if (digits.size() != 4 || year < 1000) return sayCardinal(digits, out);
  int high = static_cast<int>(year / 100), low = static_cast<int>(year % 100);
  // 2000-2009 and 1000, 3000, ...: "two thousand five".
  if ((high % 10 == 0 && low < 10) || (year >= 2000 && year < 2010)) return sayCardinal(digits, out);
  addWord(out, belowHundred(high));
  if (low == 0) {
    addWord(out, "hundred");
  } else if (low < 10) {
    addWord(out, "oh");
    addWord(out, kOnes[low]);
  } else {
    addWord(out, belowHundred(low));
  }
  return true;
}

bool sayNumber(const char *text, std::string &out) {
  CStr *sign = CStrCreate(4), *integer = CStrCreate(32), *fraction = CStrCreate(16);
  bool ok = sign && integer && fraction &&
            SayAsCardinal(text, ".", ",", sign, integer, fraction) == 0 &&
            (CStrLength(integer) > 0 || CStrLength(fraction) > 0);
  if (ok) {
    std::string result;
    if (CStrLastC(sign) == '-') addWord(result, "minus");
    if (CStrLength(integer) > 0)
      sayCardinal(CStrStr(integer), result);
    else
      addWord(result, "zero");
    if (CStrLength(fraction) > 0) {
      addWord(result, "point");
      sayDigits(CStrStr(fraction), result);
    }
    addWord(out, result);
  }
  CStrDestroy(sign);
  CStrDestroy(integer);
  CStrDestroy(fraction);
  return ok;
}

}  // namespace utts

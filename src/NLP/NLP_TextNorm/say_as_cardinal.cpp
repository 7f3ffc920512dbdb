// say_as_cardinal.cpp - SayAsCardinal: splits a written number into sign,
// integer digits and fraction digits for the readers that speak it.
#include "hconverter.h"

namespace {

constexpr int kBadArgument = ~9;  // -10

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_leading_blank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

// Appends the ASCII digits of [at, end) to `out`; stops at the first failure.
int append_digits(const char *at, const char *end, CStr *out) {
  for (; at < end; ++at) {
    if (!is_digit(*at)) continue;
    if (int rc = CStrAppendC(out, *at)) return rc;
  }
  return 0;
}

}  // namespace

extern "C" UTILS_API int SayAsCardinal(const char *text, const char *decimal_point,
                                       const char *group_separator, CStr *sign,
                                       CStr *integer_digits, CStr *fraction_digits) {
  if (text == nullptr || decimal_point == nullptr || group_separator == nullptr ||
      sign == nullptr || integer_digits == nullptr || fraction_digits == nullptr)
    return kBadArgument;
  if (*text == 0 || *decimal_point == 0 || *group_separator == 0) return kBadArgument;
  CStrErase(sign, 0);
  CStrErase(integer_digits, 0);
  CStrErase(fraction_digits, 0);

  const char *at = text;
  while (is_leading_blank(*at)) ++at;
  if (*at == '+' || *at == '-') {
    if (int rc = CStrAppendC(sign, *at)) return rc;
    ++at;
  }
  // Only the decimal point's first byte splits the number; the group
  // separator is required but every non-digit is dropped anyway.
  const char *point = at;
  while (*point != 0 && *point != *decimal_point) ++point;
  const char *end = point;
  while (*end != 0) ++end;
  if (int rc = append_digits(at, point, integer_digits)) return rc;
  if (*point != 0) return append_digits(point + 1, end, fraction_digits);
  return 0;
}

// ipa_inventory.cpp - the IPA inventory as constant data: 115 rows sorted by
// code point, the silence row, the 36 diacritics, and a dense index over the
// code points below U+0400 that the compiler builds from the rows, so that
// a lookup is one load instead of a search.
#include "Utils/Phonetics/ipa_inventory.h"

namespace utils::phonetics {

// Row fields in the record's order: code point, class, height, backness,
// rounding, manner, reserved, place mask, voicing, nasality, laterality,
// airstream. One row a line keeps the table readable and comparable with
// its source, which clang-format would scatter over several lines.
// clang-format off
constexpr IPAPhonemeFeat kIpaRows[kIpaRowCount] = {
    {0x0061, 1, 7, 1, 2, 0, 0,    0, 0, 0, 0, 0},  //   0
    {0x0062, 2, 0, 0, 0, 1, 0,    1, 1, 1, 1, 1},  //   1
    {0x0063, 2, 0, 0, 0, 1, 0,   64, 2, 1, 1, 1},  //   2
    {0x0064, 2, 0, 0, 0, 1, 0,    8, 1, 1, 1, 1},  //   3
    {0x0065, 1, 3, 1, 2, 0, 0,    0, 0, 0, 0, 0},  //   4
    {0x0066, 2, 0, 0, 0, 2, 0,    2, 2, 1, 1, 1},  //   5
    {0x0067, 2, 0, 0, 0, 1, 0,  128, 1, 1, 1, 1},  //   6
    {0x0068, 2, 0, 0, 0, 2, 0, 2048, 2, 1, 0, 1},  //   7
    {0x0069, 1, 1, 1, 2, 0, 0,    0, 0, 0, 0, 0},  //   8
    {0x006A, 2, 0, 0, 0, 3, 0,   64, 1, 1, 1, 1},  //   9
    {0x006B, 2, 0, 0, 0, 1, 0,  128, 2, 1, 1, 1},  //  10
    {0x006C, 2, 0, 0, 0, 3, 0,    8, 1, 1, 2, 1},  //  11
    {0x006D, 2, 0, 0, 0, 1, 0,    1, 1, 2, 1, 1},  //  12
    {0x006E, 2, 0, 0, 0, 1, 0,    8, 1, 2, 1, 1},  //  13
    {0x006F, 1, 3, 5, 1, 0, 0,    0, 0, 0, 0, 0},  //  14
    {0x0070, 2, 0, 0, 0, 1, 0,    1, 2, 1, 1, 1},  //  15
    {0x0071, 2, 0, 0, 0, 1, 0,  256, 2, 1, 1, 1},  //  16
    {0x0072, 2, 0, 0, 0, 4, 0,    8, 1, 1, 1, 1},  //  17
    {0x0073, 2, 0, 0, 0, 2, 0,    8, 2, 1, 1, 1},  //  18
    {0x0074, 2, 0, 0, 0, 1, 0,    8, 2, 1, 1, 1},  //  19
    {0x0075, 1, 1, 5, 1, 0, 0,    0, 0, 0, 0, 0},  //  20
    {0x0076, 2, 0, 0, 0, 2, 0,    2, 1, 1, 1, 1},  //  21
    {0x0077, 2, 0, 0, 0, 3, 0,  129, 1, 1, 1, 1},  //  22
    {0x0078, 2, 0, 0, 0, 2, 0,  128, 2, 1, 1, 1},  //  23
    {0x0079, 1, 1, 1, 1, 0, 0,    0, 0, 0, 0, 0},  //  24
    {0x007A, 2, 0, 0, 0, 2, 0,    8, 1, 1, 1, 1},  //  25
    {0x00E6, 1, 6, 1, 2, 0, 0,    0, 0, 0, 0, 0},  //  26
    {0x00E7, 2, 0, 0, 0, 2, 0,   64, 2, 1, 1, 1},  //  27
    {0x00F0, 2, 0, 0, 0, 2, 0,    4, 1, 1, 1, 1},  //  28
    {0x00F8, 1, 3, 1, 1, 0, 0,    0, 0, 0, 0, 0},  //  29
    {0x0127, 2, 0, 0, 0, 2, 0,  512, 2, 1, 0, 1},  //  30
    {0x014B, 2, 0, 0, 0, 1, 0,  128, 1, 2, 1, 1},  //  31
    {0x0153, 1, 5, 1, 1, 0, 0,    0, 0, 0, 0, 0},  //  32
    {0x01C0, 2, 0, 0, 0, 6, 0,    4, 0, 3, 1, 4},  //  33
    {0x01C1, 2, 0, 0, 0, 6, 0,    8, 0, 3, 2, 4},  //  34
    {0x01C2, 2, 0, 0, 0, 6, 0,   16, 0, 3, 1, 4},  //  35
    {0x01C3, 2, 0, 0, 0, 6, 0,    8, 0, 3, 1, 4},  //  36
    {0x0250, 1, 6, 3, 0, 0, 0,    0, 0, 0, 0, 0},  //  37
    {0x0251, 1, 7, 5, 2, 0, 0,    0, 0, 0, 0, 0},  //  38
    {0x0252, 1, 7, 5, 1, 0, 0,    0, 0, 0, 0, 0},  //  39
    {0x0253, 2, 0, 0, 0, 1, 0,    1, 1, 1, 1, 6},  //  40
    {0x0254, 1, 5, 5, 1, 0, 0,    0, 0, 0, 0, 0},  //  41
    {0x0255, 2, 0, 0, 0, 2, 0,   72, 2, 1, 1, 1},  //  42
    {0x0256, 2, 0, 0, 0, 1, 0,   32, 1, 1, 1, 1},  //  43
    {0x0257, 2, 0, 0, 0, 1, 0,    8, 1, 1, 1, 6},  //  44
    {0x0258, 1, 3, 3, 2, 0, 0,    0, 0, 0, 0, 0},  //  45
    {0x0259, 1, 4, 3, 0, 0, 0,    0, 0, 0, 0, 0},  //  46
    {0x025A, 1, 5, 3, 2, 0, 0,    0, 0, 0, 0, 0},  //  47
    {0x025B, 1, 5, 1, 2, 0, 0,    0, 0, 0, 0, 0},  //  48
    {0x025C, 1, 5, 3, 2, 0, 0,    0, 0, 0, 0, 0},  //  49
    {0x025D, 1, 5, 3, 2, 0, 0,    0, 0, 0, 0, 0},  //  50
    {0x025E, 1, 5, 3, 1, 0, 0,    0, 0, 0, 0, 0},  //  51
    {0x025F, 2, 0, 0, 0, 1, 0,   64, 1, 1, 1, 1},  //  52
    {0x0260, 2, 0, 0, 0, 1, 0,  128, 1, 1, 1, 6},  //  53
    {0x0261, 2, 0, 0, 0, 1, 0,  128, 1, 1, 1, 1},  //  54
    {0x0262, 2, 0, 0, 0, 1, 0,  256, 1, 1, 1, 1},  //  55
    {0x0263, 2, 0, 0, 0, 2, 0,  128, 1, 1, 1, 1},  //  56
    {0x0264, 1, 3, 5, 2, 0, 0,    0, 0, 0, 0, 0},  //  57
    {0x0265, 2, 0, 0, 0, 3, 0,   65, 1, 1, 1, 1},  //  58
    {0x0266, 2, 0, 0, 0, 2, 0, 2048, 1, 1, 0, 1},  //  59
    {0x0267, 2, 0, 0, 0, 2, 0,    0, 2, 1, 1, 1},  //  60
    {0x0268, 1, 1, 3, 2, 0, 0,    0, 0, 0, 0, 0},  //  61
    {0x026A, 1, 2, 2, 2, 0, 0,    0, 0, 0, 0, 0},  //  62
    {0x026C, 2, 0, 0, 0, 2, 0,    8, 2, 1, 2, 1},  //  63
    {0x026D, 2, 0, 0, 0, 3, 0,   32, 1, 1, 2, 1},  //  64
    {0x026E, 2, 0, 0, 0, 2, 0,    8, 1, 1, 2, 1},  //  65
    {0x026F, 1, 1, 5, 2, 0, 0,    0, 0, 0, 0, 0},  //  66
    {0x0270, 2, 0, 0, 0, 3, 0,  128, 1, 1, 1, 1},  //  67
    {0x0271, 2, 0, 0, 0, 1, 0,    2, 1, 2, 1, 1},  //  68
    {0x0272, 2, 0, 0, 0, 1, 0,   64, 1, 2, 1, 1},  //  69
    {0x0273, 2, 0, 0, 0, 1, 0,   32, 1, 2, 1, 1},  //  70
    {0x0274, 2, 0, 0, 0, 1, 0,  256, 1, 2, 1, 1},  //  71
    {0x0275, 1, 3, 3, 1, 0, 0,    0, 0, 0, 0, 0},  //  72
    {0x0276, 1, 7, 1, 1, 0, 0,    0, 0, 0, 0, 0},  //  73
    {0x0278, 2, 0, 0, 0, 2, 0,    1, 2, 1, 1, 1},  //  74
    {0x0279, 2, 0, 0, 0, 3, 0,    8, 1, 1, 1, 1},  //  75
    {0x027A, 2, 0, 0, 0, 5, 0,    8, 1, 1, 2, 1},  //  76
    {0x027B, 2, 0, 0, 0, 3, 0,   32, 1, 1, 1, 1},  //  77
    {0x027D, 2, 0, 0, 0, 5, 0,   32, 1, 1, 1, 1},  //  78
    {0x027E, 2, 0, 0, 0, 5, 0,    8, 1, 1, 1, 1},  //  79
    {0x0280, 2, 0, 0, 0, 4, 0,  256, 1, 1, 1, 1},  //  80
    {0x0281, 2, 0, 0, 0, 2, 0,  256, 1, 1, 1, 1},  //  81
    {0x0282, 2, 0, 0, 0, 2, 0,   32, 2, 1, 1, 1},  //  82
    {0x0283, 2, 0, 0, 0, 2, 0,   16, 2, 1, 1, 1},  //  83
    {0x0284, 2, 0, 0, 0, 1, 0,   64, 1, 1, 1, 6},  //  84
    {0x0288, 2, 0, 0, 0, 1, 0,   32, 2, 1, 1, 1},  //  85
    {0x0289, 1, 1, 3, 1, 0, 0,    0, 0, 0, 0, 0},  //  86
    {0x028A, 1, 2, 4, 1, 0, 0,    0, 0, 0, 0, 0},  //  87
    {0x028B, 2, 0, 0, 0, 3, 0,    2, 1, 1, 1, 1},  //  88
    {0x028C, 1, 5, 5, 2, 0, 0,    0, 0, 0, 0, 0},  //  89
    {0x028D, 2, 0, 0, 0, 3, 0,  129, 2, 1, 1, 1},  //  90
    {0x028E, 2, 0, 0, 0, 3, 0,   64, 1, 1, 2, 1},  //  91
    {0x028F, 1, 2, 2, 1, 0, 0,    0, 0, 0, 0, 0},  //  92
    {0x0290, 2, 0, 0, 0, 2, 0,   32, 1, 1, 1, 1},  //  93
    {0x0291, 2, 0, 0, 0, 2, 0,   72, 1, 1, 1, 1},  //  94
    {0x0292, 2, 0, 0, 0, 2, 0,   16, 1, 1, 1, 1},  //  95
    {0x0294, 2, 0, 0, 0, 1, 0, 2048, 2, 1, 0, 1},  //  96
    {0x0295, 2, 0, 0, 0, 2, 0,  512, 1, 1, 0, 1},  //  97
    {0x0298, 2, 0, 0, 0, 6, 0,    1, 0, 3, 1, 4},  //  98
    {0x0299, 2, 0, 0, 0, 4, 0,    1, 1, 1, 1, 1},  //  99
    {0x029B, 2, 0, 0, 0, 1, 0,  256, 1, 1, 1, 6},  // 100
    {0x029C, 2, 0, 0, 0, 2, 0, 1024, 2, 1, 0, 1},  // 101
    {0x029D, 2, 0, 0, 0, 2, 0,   64, 1, 1, 1, 1},  // 102
    {0x029F, 2, 0, 0, 0, 3, 0,  128, 1, 1, 2, 1},  // 103
    {0x02A1, 2, 0, 0, 0, 1, 0, 1024, 0, 1, 0, 1},  // 104
    {0x02A2, 2, 0, 0, 0, 2, 0, 1024, 1, 1, 0, 1},  // 105
    {0x02A3, 2, 0, 0, 0, 7, 0,    8, 1, 1, 1, 1},  // 106
    {0x02A4, 2, 0, 0, 0, 7, 0,   16, 1, 1, 1, 1},  // 107
    {0x02A5, 2, 0, 0, 0, 7, 0,   72, 1, 1, 1, 1},  // 108
    {0x02A6, 2, 0, 0, 0, 7, 0,    8, 2, 1, 1, 1},  // 109
    {0x02A7, 2, 0, 0, 0, 7, 0,   16, 2, 1, 1, 1},  // 110
    {0x02A8, 2, 0, 0, 0, 7, 0,   72, 2, 1, 1, 1},  // 111
    {0x03B2, 2, 0, 0, 0, 2, 0,    1, 1, 1, 1, 1},  // 112
    {0x03B8, 2, 0, 0, 0, 2, 0,    4, 2, 1, 1, 1},  // 113
    {0x03C7, 2, 0, 0, 0, 2, 0,  256, 2, 1, 1, 1},  // 114
};
// clang-format on

namespace {

constexpr IPAPhonemeFeat kSilenceRow = {
    static_cast<uint16_t>(kIpaSilence), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};

// clang-format off
constexpr uint16_t kDiacritics[] = {
    0x02BC, 0x0329, 0x032F, 0x02B0, 0x207F, 0x02E1, 0x031A, 0x030A, 0x0325, 0x032D,
    0x032C, 0x0324, 0x0330, 0x033C, 0x032A, 0x033A, 0x033B, 0x031F, 0x0320, 0x0308,
    0x033D, 0x031E, 0x031D, 0x0339, 0x031C, 0x02B7, 0x02B2, 0x02E0, 0x1DA3, 0x02E4,
    0x0334, 0x0318, 0x0319, 0x0303, 0x02DE, 0x02B4};
// clang-format on
static_assert(sizeof kDiacritics / sizeof kDiacritics[0] == 36, "36 diacritics");

// Every row symbol and all diacritics but two lie below U+0400; the two
// above it are compared directly.
constexpr uint32_t kIndexSize = 0x400;
constexpr uint8_t kDiacriticBit = 0x80;
constexpr uint8_t kSilenceSlot = kIpaRowCount + 1;
static_assert(kSilenceSlot < kDiacriticBit, "row slots fit below the diacritic bit");

// slot[c]: 0 for no row, r + 1 for row r, kSilenceSlot for "#", with
// kDiacriticBit set when c is a diacritic.
struct Index {
  uint8_t slot[kIndexSize];
};

constexpr Index make_index() {
  Index x{};
  for (int r = 0; r < kIpaRowCount; ++r)
    x.slot[kIpaRows[r].CodePoint] = static_cast<uint8_t>(r + 1);
  x.slot[kIpaSilence] = kSilenceSlot;
  for (uint16_t d : kDiacritics) {
    if (d < kIndexSize) x.slot[d] = static_cast<uint8_t>(x.slot[d] | kDiacriticBit);
  }
  return x;
}

constexpr bool rows_ascend() {
  for (int r = 1; r < kIpaRowCount; ++r) {
    if (kIpaRows[r - 1].CodePoint >= kIpaRows[r].CodePoint) return false;
  }
  return true;
}
static_assert(rows_ascend(), "the rows are sorted by code point without repeats");
static_assert(kIpaRows[kIpaRowCount - 1].CodePoint < kIndexSize, "the index covers every row");
static_assert(sizeof(IPAPhonemeFeat) == 14, "a row is 14 bytes");

// The diacritics above the index, compared directly in ipa_is_diacritic.
constexpr uint32_t kHighDiacritics[2] = {0x207F, 0x1DA3};

constexpr bool high_diacritics_are_listed() {
  int above = 0;
  for (uint16_t d : kDiacritics) {
    if (d < kIndexSize) continue;
    if (d != kHighDiacritics[0] && d != kHighDiacritics[1]) return false;
    ++above;
  }
  return above == 2;
}
static_assert(high_diacritics_are_listed(), "only the two listed diacritics lie above the index");

constexpr Index kIndex = make_index();

}  // namespace

const IPAPhonemeFeat *ipa_row(uint32_t c) {
  if (c >= kIndexSize) return nullptr;
  uint8_t slot = static_cast<uint8_t>(kIndex.slot[c] & ~kDiacriticBit);
  if (slot == 0) return nullptr;
  if (slot == kSilenceSlot) return &kSilenceRow;
  return &kIpaRows[slot - 1];
}

bool ipa_is_diacritic(uint32_t c) {
  if (c < kIndexSize) return (kIndex.slot[c] & kDiacriticBit) != 0;
  return c == kHighDiacritics[0] || c == kHighDiacritics[1];
}

}  // namespace utils::phonetics

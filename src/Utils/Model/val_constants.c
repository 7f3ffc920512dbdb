// val_constants.c - the constant values: integer atoms 0..60 (exported, one
// after another in a single read-only array), wide-string atoms "0".."60" and
// "x", and the default answer of feature paths. Their count is -1: never
// counted or freed.
#include "Utils/Model/val_cell.h"

// Initialisers and the symbol definitions below are written out by hand:
// clang-format would split them over many lines.
// clang-format off
#define UTILS_INT_ATOM(n) { .c.atom = { .type = BSR_VAL_INT, .ref_count = -1, .payload.i = (n) } }
#define UTILS_WSTRING_ATOM(text) \
  { .c.atom = { .type = BSR_VAL_WSTRING, .ref_count = -1, .payload.p = (void *)(text) } }
// clang-format on

// One array keeps the integers consecutive; each exported name is a symbol
// placed on its element (see UTILS_EXPORT_INT_ATOM).
__attribute__((visibility("hidden"), aligned(16))) const val utils_val_int_atoms[61] = {
    UTILS_INT_ATOM(0),  UTILS_INT_ATOM(1),  UTILS_INT_ATOM(2),  UTILS_INT_ATOM(3),
    UTILS_INT_ATOM(4),  UTILS_INT_ATOM(5),  UTILS_INT_ATOM(6),  UTILS_INT_ATOM(7),
    UTILS_INT_ATOM(8),  UTILS_INT_ATOM(9),  UTILS_INT_ATOM(10), UTILS_INT_ATOM(11),
    UTILS_INT_ATOM(12), UTILS_INT_ATOM(13), UTILS_INT_ATOM(14), UTILS_INT_ATOM(15),
    UTILS_INT_ATOM(16), UTILS_INT_ATOM(17), UTILS_INT_ATOM(18), UTILS_INT_ATOM(19),
    UTILS_INT_ATOM(20), UTILS_INT_ATOM(21), UTILS_INT_ATOM(22), UTILS_INT_ATOM(23),
    UTILS_INT_ATOM(24), UTILS_INT_ATOM(25), UTILS_INT_ATOM(26), UTILS_INT_ATOM(27),
    UTILS_INT_ATOM(28), UTILS_INT_ATOM(29), UTILS_INT_ATOM(30), UTILS_INT_ATOM(31),
    UTILS_INT_ATOM(32), UTILS_INT_ATOM(33), UTILS_INT_ATOM(34), UTILS_INT_ATOM(35),
    UTILS_INT_ATOM(36), UTILS_INT_ATOM(37), UTILS_INT_ATOM(38), UTILS_INT_ATOM(39),
    UTILS_INT_ATOM(40), UTILS_INT_ATOM(41), UTILS_INT_ATOM(42), UTILS_INT_ATOM(43),
    UTILS_INT_ATOM(44), UTILS_INT_ATOM(45), UTILS_INT_ATOM(46), UTILS_INT_ATOM(47),
    UTILS_INT_ATOM(48), UTILS_INT_ATOM(49), UTILS_INT_ATOM(50), UTILS_INT_ATOM(51),
    UTILS_INT_ATOM(52), UTILS_INT_ATOM(53), UTILS_INT_ATOM(54), UTILS_INT_ATOM(55),
    UTILS_INT_ATOM(56), UTILS_INT_ATOM(57), UTILS_INT_ATOM(58), UTILS_INT_ATOM(59),
    UTILS_INT_ATOM(60)};

// val_int_<n> = utils_val_int_atoms + 16 * n, a 16-byte object of its own.
// clang-format off
#define UTILS_EXPORT_INT_ATOM(n)                           \
  __asm__(".globl val_int_" #n "\n"                        \
          ".type val_int_" #n ", @object\n"                \
          ".size val_int_" #n ", 16\n"                     \
          ".set val_int_" #n ", utils_val_int_atoms + 16 * " #n "\n");
// clang-format on
_Static_assert(sizeof(val) == 16, "a value cell is two 64-bit words");

UTILS_EXPORT_INT_ATOM(0)
UTILS_EXPORT_INT_ATOM(1)
UTILS_EXPORT_INT_ATOM(2)
UTILS_EXPORT_INT_ATOM(3)
UTILS_EXPORT_INT_ATOM(4)
UTILS_EXPORT_INT_ATOM(5)
UTILS_EXPORT_INT_ATOM(6)
UTILS_EXPORT_INT_ATOM(7)
UTILS_EXPORT_INT_ATOM(8)
UTILS_EXPORT_INT_ATOM(9)
UTILS_EXPORT_INT_ATOM(10)
UTILS_EXPORT_INT_ATOM(11)
UTILS_EXPORT_INT_ATOM(12)
UTILS_EXPORT_INT_ATOM(13)
UTILS_EXPORT_INT_ATOM(14)
UTILS_EXPORT_INT_ATOM(15)
UTILS_EXPORT_INT_ATOM(16)
UTILS_EXPORT_INT_ATOM(17)
UTILS_EXPORT_INT_ATOM(18)
UTILS_EXPORT_INT_ATOM(19)
UTILS_EXPORT_INT_ATOM(20)
UTILS_EXPORT_INT_ATOM(21)
UTILS_EXPORT_INT_ATOM(22)
UTILS_EXPORT_INT_ATOM(23)
UTILS_EXPORT_INT_ATOM(24)
UTILS_EXPORT_INT_ATOM(25)
UTILS_EXPORT_INT_ATOM(26)
UTILS_EXPORT_INT_ATOM(27)
UTILS_EXPORT_INT_ATOM(28)
UTILS_EXPORT_INT_ATOM(29)
UTILS_EXPORT_INT_ATOM(30)
UTILS_EXPORT_INT_ATOM(31)
UTILS_EXPORT_INT_ATOM(32)
UTILS_EXPORT_INT_ATOM(33)
UTILS_EXPORT_INT_ATOM(34)
UTILS_EXPORT_INT_ATOM(35)
UTILS_EXPORT_INT_ATOM(36)
UTILS_EXPORT_INT_ATOM(37)
UTILS_EXPORT_INT_ATOM(38)
UTILS_EXPORT_INT_ATOM(39)
UTILS_EXPORT_INT_ATOM(40)
UTILS_EXPORT_INT_ATOM(41)
UTILS_EXPORT_INT_ATOM(42)
UTILS_EXPORT_INT_ATOM(43)
UTILS_EXPORT_INT_ATOM(44)
UTILS_EXPORT_INT_ATOM(45)
UTILS_EXPORT_INT_ATOM(46)
UTILS_EXPORT_INT_ATOM(47)
UTILS_EXPORT_INT_ATOM(48)
UTILS_EXPORT_INT_ATOM(49)
UTILS_EXPORT_INT_ATOM(50)
UTILS_EXPORT_INT_ATOM(51)
UTILS_EXPORT_INT_ATOM(52)
UTILS_EXPORT_INT_ATOM(53)
UTILS_EXPORT_INT_ATOM(54)
UTILS_EXPORT_INT_ATOM(55)
UTILS_EXPORT_INT_ATOM(56)
UTILS_EXPORT_INT_ATOM(57)
UTILS_EXPORT_INT_ATOM(58)
UTILS_EXPORT_INT_ATOM(59)
UTILS_EXPORT_INT_ATOM(60)

// The tables go through the exported names, so that they agree with every
// other user of the names (an executable may hold its own copies of them).
const val *const utils_val_int_table[61] = {
    &val_int_0,  &val_int_1,  &val_int_2,  &val_int_3,  &val_int_4,  &val_int_5,  &val_int_6,
    &val_int_7,  &val_int_8,  &val_int_9,  &val_int_10, &val_int_11, &val_int_12, &val_int_13,
    &val_int_14, &val_int_15, &val_int_16, &val_int_17, &val_int_18, &val_int_19, &val_int_20,
    &val_int_21, &val_int_22, &val_int_23, &val_int_24, &val_int_25, &val_int_26, &val_int_27,
    &val_int_28, &val_int_29, &val_int_30, &val_int_31, &val_int_32, &val_int_33, &val_int_34,
    &val_int_35, &val_int_36, &val_int_37, &val_int_38, &val_int_39, &val_int_40, &val_int_41,
    &val_int_42, &val_int_43, &val_int_44, &val_int_45, &val_int_46, &val_int_47, &val_int_48,
    &val_int_49, &val_int_50, &val_int_51, &val_int_52, &val_int_53, &val_int_54, &val_int_55,
    &val_int_56, &val_int_57, &val_int_58, &val_int_59, &val_int_60};

static const bsr_wchar text_0[] = u"0";
static const bsr_wchar text_1[] = u"1";
static const bsr_wchar text_2[] = u"2";
static const bsr_wchar text_3[] = u"3";
static const bsr_wchar text_4[] = u"4";
static const bsr_wchar text_5[] = u"5";
static const bsr_wchar text_6[] = u"6";
static const bsr_wchar text_7[] = u"7";
static const bsr_wchar text_8[] = u"8";
static const bsr_wchar text_9[] = u"9";
static const bsr_wchar text_10[] = u"10";
static const bsr_wchar text_11[] = u"11";
static const bsr_wchar text_12[] = u"12";
static const bsr_wchar text_13[] = u"13";
static const bsr_wchar text_14[] = u"14";
static const bsr_wchar text_15[] = u"15";
static const bsr_wchar text_16[] = u"16";
static const bsr_wchar text_17[] = u"17";
static const bsr_wchar text_18[] = u"18";
static const bsr_wchar text_19[] = u"19";
static const bsr_wchar text_20[] = u"20";
static const bsr_wchar text_21[] = u"21";
static const bsr_wchar text_22[] = u"22";
static const bsr_wchar text_23[] = u"23";
static const bsr_wchar text_24[] = u"24";
static const bsr_wchar text_25[] = u"25";
static const bsr_wchar text_26[] = u"26";
static const bsr_wchar text_27[] = u"27";
static const bsr_wchar text_28[] = u"28";
static const bsr_wchar text_29[] = u"29";
static const bsr_wchar text_30[] = u"30";
static const bsr_wchar text_31[] = u"31";
static const bsr_wchar text_32[] = u"32";
static const bsr_wchar text_33[] = u"33";
static const bsr_wchar text_34[] = u"34";
static const bsr_wchar text_35[] = u"35";
static const bsr_wchar text_36[] = u"36";
static const bsr_wchar text_37[] = u"37";
static const bsr_wchar text_38[] = u"38";
static const bsr_wchar text_39[] = u"39";
static const bsr_wchar text_40[] = u"40";
static const bsr_wchar text_41[] = u"41";
static const bsr_wchar text_42[] = u"42";
static const bsr_wchar text_43[] = u"43";
static const bsr_wchar text_44[] = u"44";
static const bsr_wchar text_45[] = u"45";
static const bsr_wchar text_46[] = u"46";
static const bsr_wchar text_47[] = u"47";
static const bsr_wchar text_48[] = u"48";
static const bsr_wchar text_49[] = u"49";
static const bsr_wchar text_50[] = u"50";
static const bsr_wchar text_51[] = u"51";
static const bsr_wchar text_52[] = u"52";
static const bsr_wchar text_53[] = u"53";
static const bsr_wchar text_54[] = u"54";
static const bsr_wchar text_55[] = u"55";
static const bsr_wchar text_56[] = u"56";
static const bsr_wchar text_57[] = u"57";
static const bsr_wchar text_58[] = u"58";
static const bsr_wchar text_59[] = u"59";
static const bsr_wchar text_60[] = u"60";

static const val string_atoms[61] = {
    UTILS_WSTRING_ATOM(text_0),  UTILS_WSTRING_ATOM(text_1),  UTILS_WSTRING_ATOM(text_2),
    UTILS_WSTRING_ATOM(text_3),  UTILS_WSTRING_ATOM(text_4),  UTILS_WSTRING_ATOM(text_5),
    UTILS_WSTRING_ATOM(text_6),  UTILS_WSTRING_ATOM(text_7),  UTILS_WSTRING_ATOM(text_8),
    UTILS_WSTRING_ATOM(text_9),  UTILS_WSTRING_ATOM(text_10), UTILS_WSTRING_ATOM(text_11),
    UTILS_WSTRING_ATOM(text_12), UTILS_WSTRING_ATOM(text_13), UTILS_WSTRING_ATOM(text_14),
    UTILS_WSTRING_ATOM(text_15), UTILS_WSTRING_ATOM(text_16), UTILS_WSTRING_ATOM(text_17),
    UTILS_WSTRING_ATOM(text_18), UTILS_WSTRING_ATOM(text_19), UTILS_WSTRING_ATOM(text_20),
    UTILS_WSTRING_ATOM(text_21), UTILS_WSTRING_ATOM(text_22), UTILS_WSTRING_ATOM(text_23),
    UTILS_WSTRING_ATOM(text_24), UTILS_WSTRING_ATOM(text_25), UTILS_WSTRING_ATOM(text_26),
    UTILS_WSTRING_ATOM(text_27), UTILS_WSTRING_ATOM(text_28), UTILS_WSTRING_ATOM(text_29),
    UTILS_WSTRING_ATOM(text_30), UTILS_WSTRING_ATOM(text_31), UTILS_WSTRING_ATOM(text_32),
    UTILS_WSTRING_ATOM(text_33), UTILS_WSTRING_ATOM(text_34), UTILS_WSTRING_ATOM(text_35),
    UTILS_WSTRING_ATOM(text_36), UTILS_WSTRING_ATOM(text_37), UTILS_WSTRING_ATOM(text_38),
    UTILS_WSTRING_ATOM(text_39), UTILS_WSTRING_ATOM(text_40), UTILS_WSTRING_ATOM(text_41),
    UTILS_WSTRING_ATOM(text_42), UTILS_WSTRING_ATOM(text_43), UTILS_WSTRING_ATOM(text_44),
    UTILS_WSTRING_ATOM(text_45), UTILS_WSTRING_ATOM(text_46), UTILS_WSTRING_ATOM(text_47),
    UTILS_WSTRING_ATOM(text_48), UTILS_WSTRING_ATOM(text_49), UTILS_WSTRING_ATOM(text_50),
    UTILS_WSTRING_ATOM(text_51), UTILS_WSTRING_ATOM(text_52), UTILS_WSTRING_ATOM(text_53),
    UTILS_WSTRING_ATOM(text_54), UTILS_WSTRING_ATOM(text_55), UTILS_WSTRING_ATOM(text_56),
    UTILS_WSTRING_ATOM(text_57), UTILS_WSTRING_ATOM(text_58), UTILS_WSTRING_ATOM(text_59),
    UTILS_WSTRING_ATOM(text_60)};

const val *const utils_val_string_table[61] = {
    &string_atoms[0],  &string_atoms[1],  &string_atoms[2],  &string_atoms[3],  &string_atoms[4],
    &string_atoms[5],  &string_atoms[6],  &string_atoms[7],  &string_atoms[8],  &string_atoms[9],
    &string_atoms[10], &string_atoms[11], &string_atoms[12], &string_atoms[13], &string_atoms[14],
    &string_atoms[15], &string_atoms[16], &string_atoms[17], &string_atoms[18], &string_atoms[19],
    &string_atoms[20], &string_atoms[21], &string_atoms[22], &string_atoms[23], &string_atoms[24],
    &string_atoms[25], &string_atoms[26], &string_atoms[27], &string_atoms[28], &string_atoms[29],
    &string_atoms[30], &string_atoms[31], &string_atoms[32], &string_atoms[33], &string_atoms[34],
    &string_atoms[35], &string_atoms[36], &string_atoms[37], &string_atoms[38], &string_atoms[39],
    &string_atoms[40], &string_atoms[41], &string_atoms[42], &string_atoms[43], &string_atoms[44],
    &string_atoms[45], &string_atoms[46], &string_atoms[47], &string_atoms[48], &string_atoms[49],
    &string_atoms[50], &string_atoms[51], &string_atoms[52], &string_atoms[53], &string_atoms[54],
    &string_atoms[55], &string_atoms[56], &string_atoms[57], &string_atoms[58], &string_atoms[59],
    &string_atoms[60]};

static const bsr_wchar text_x[] = u"x";
static const bsr_wchar text_default[] = u"0";
const val utils_val_string_x = UTILS_WSTRING_ATOM(text_x);
const val utils_val_ffeature_default = UTILS_WSTRING_ATOM(text_default);

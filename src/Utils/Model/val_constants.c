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

// A cell is two machine words: 16 bytes on 64-bit targets, 8 on 32-bit ARM.
// The assembler needs the size as a literal.
#if UINTPTR_MAX > 0xFFFFFFFFu
#define UTILS_VAL_BYTES "16"
_Static_assert(sizeof(val) == 16, "a value cell is two 64-bit words");
#else
#define UTILS_VAL_BYTES "8"
_Static_assert(sizeof(val) == 8, "a value cell is two 32-bit words");
#endif

// val_int_<n> = utils_val_int_atoms + n cells, an object of its own. The
// type is written "%object": "@" starts a comment in ARM assembly.
// clang-format off
#define UTILS_EXPORT_INT_ATOM(n)                                        \
  __asm__(".globl val_int_" #n "\n"                                     \
          ".type val_int_" #n ", %object\n"                             \
          ".size val_int_" #n ", " UTILS_VAL_BYTES "\n"                 \
          ".set val_int_" #n ", utils_val_int_atoms + " UTILS_VAL_BYTES " * " #n "\n");
// clang-format on

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

static const bsr_wchar kText0[] = u"0";
static const bsr_wchar kText1[] = u"1";
static const bsr_wchar kText2[] = u"2";
static const bsr_wchar kText3[] = u"3";
static const bsr_wchar kText4[] = u"4";
static const bsr_wchar kText5[] = u"5";
static const bsr_wchar kText6[] = u"6";
static const bsr_wchar kText7[] = u"7";
static const bsr_wchar kText8[] = u"8";
static const bsr_wchar kText9[] = u"9";
static const bsr_wchar kText10[] = u"10";
static const bsr_wchar kText11[] = u"11";
static const bsr_wchar kText12[] = u"12";
static const bsr_wchar kText13[] = u"13";
static const bsr_wchar kText14[] = u"14";
static const bsr_wchar kText15[] = u"15";
static const bsr_wchar kText16[] = u"16";
static const bsr_wchar kText17[] = u"17";
static const bsr_wchar kText18[] = u"18";
static const bsr_wchar kText19[] = u"19";
static const bsr_wchar kText20[] = u"20";
static const bsr_wchar kText21[] = u"21";
static const bsr_wchar kText22[] = u"22";
static const bsr_wchar kText23[] = u"23";
static const bsr_wchar kText24[] = u"24";
static const bsr_wchar kText25[] = u"25";
static const bsr_wchar kText26[] = u"26";
static const bsr_wchar kText27[] = u"27";
static const bsr_wchar kText28[] = u"28";
static const bsr_wchar kText29[] = u"29";
static const bsr_wchar kText30[] = u"30";
static const bsr_wchar kText31[] = u"31";
static const bsr_wchar kText32[] = u"32";
static const bsr_wchar kText33[] = u"33";
static const bsr_wchar kText34[] = u"34";
static const bsr_wchar kText35[] = u"35";
static const bsr_wchar kText36[] = u"36";
static const bsr_wchar kText37[] = u"37";
static const bsr_wchar kText38[] = u"38";
static const bsr_wchar kText39[] = u"39";
static const bsr_wchar kText40[] = u"40";
static const bsr_wchar kText41[] = u"41";
static const bsr_wchar kText42[] = u"42";
static const bsr_wchar kText43[] = u"43";
static const bsr_wchar kText44[] = u"44";
static const bsr_wchar kText45[] = u"45";
static const bsr_wchar kText46[] = u"46";
static const bsr_wchar kText47[] = u"47";
static const bsr_wchar kText48[] = u"48";
static const bsr_wchar kText49[] = u"49";
static const bsr_wchar kText50[] = u"50";
static const bsr_wchar kText51[] = u"51";
static const bsr_wchar kText52[] = u"52";
static const bsr_wchar kText53[] = u"53";
static const bsr_wchar kText54[] = u"54";
static const bsr_wchar kText55[] = u"55";
static const bsr_wchar kText56[] = u"56";
static const bsr_wchar kText57[] = u"57";
static const bsr_wchar kText58[] = u"58";
static const bsr_wchar kText59[] = u"59";
static const bsr_wchar kText60[] = u"60";

static const val kStringAtoms[61] = {
    UTILS_WSTRING_ATOM(kText0),  UTILS_WSTRING_ATOM(kText1),  UTILS_WSTRING_ATOM(kText2),
    UTILS_WSTRING_ATOM(kText3),  UTILS_WSTRING_ATOM(kText4),  UTILS_WSTRING_ATOM(kText5),
    UTILS_WSTRING_ATOM(kText6),  UTILS_WSTRING_ATOM(kText7),  UTILS_WSTRING_ATOM(kText8),
    UTILS_WSTRING_ATOM(kText9),  UTILS_WSTRING_ATOM(kText10), UTILS_WSTRING_ATOM(kText11),
    UTILS_WSTRING_ATOM(kText12), UTILS_WSTRING_ATOM(kText13), UTILS_WSTRING_ATOM(kText14),
    UTILS_WSTRING_ATOM(kText15), UTILS_WSTRING_ATOM(kText16), UTILS_WSTRING_ATOM(kText17),
    UTILS_WSTRING_ATOM(kText18), UTILS_WSTRING_ATOM(kText19), UTILS_WSTRING_ATOM(kText20),
    UTILS_WSTRING_ATOM(kText21), UTILS_WSTRING_ATOM(kText22), UTILS_WSTRING_ATOM(kText23),
    UTILS_WSTRING_ATOM(kText24), UTILS_WSTRING_ATOM(kText25), UTILS_WSTRING_ATOM(kText26),
    UTILS_WSTRING_ATOM(kText27), UTILS_WSTRING_ATOM(kText28), UTILS_WSTRING_ATOM(kText29),
    UTILS_WSTRING_ATOM(kText30), UTILS_WSTRING_ATOM(kText31), UTILS_WSTRING_ATOM(kText32),
    UTILS_WSTRING_ATOM(kText33), UTILS_WSTRING_ATOM(kText34), UTILS_WSTRING_ATOM(kText35),
    UTILS_WSTRING_ATOM(kText36), UTILS_WSTRING_ATOM(kText37), UTILS_WSTRING_ATOM(kText38),
    UTILS_WSTRING_ATOM(kText39), UTILS_WSTRING_ATOM(kText40), UTILS_WSTRING_ATOM(kText41),
    UTILS_WSTRING_ATOM(kText42), UTILS_WSTRING_ATOM(kText43), UTILS_WSTRING_ATOM(kText44),
    UTILS_WSTRING_ATOM(kText45), UTILS_WSTRING_ATOM(kText46), UTILS_WSTRING_ATOM(kText47),
    UTILS_WSTRING_ATOM(kText48), UTILS_WSTRING_ATOM(kText49), UTILS_WSTRING_ATOM(kText50),
    UTILS_WSTRING_ATOM(kText51), UTILS_WSTRING_ATOM(kText52), UTILS_WSTRING_ATOM(kText53),
    UTILS_WSTRING_ATOM(kText54), UTILS_WSTRING_ATOM(kText55), UTILS_WSTRING_ATOM(kText56),
    UTILS_WSTRING_ATOM(kText57), UTILS_WSTRING_ATOM(kText58), UTILS_WSTRING_ATOM(kText59),
    UTILS_WSTRING_ATOM(kText60)};

const val *const utils_val_string_table[61] = {
    &kStringAtoms[0],  &kStringAtoms[1],  &kStringAtoms[2],  &kStringAtoms[3],  &kStringAtoms[4],
    &kStringAtoms[5],  &kStringAtoms[6],  &kStringAtoms[7],  &kStringAtoms[8],  &kStringAtoms[9],
    &kStringAtoms[10], &kStringAtoms[11], &kStringAtoms[12], &kStringAtoms[13], &kStringAtoms[14],
    &kStringAtoms[15], &kStringAtoms[16], &kStringAtoms[17], &kStringAtoms[18], &kStringAtoms[19],
    &kStringAtoms[20], &kStringAtoms[21], &kStringAtoms[22], &kStringAtoms[23], &kStringAtoms[24],
    &kStringAtoms[25], &kStringAtoms[26], &kStringAtoms[27], &kStringAtoms[28], &kStringAtoms[29],
    &kStringAtoms[30], &kStringAtoms[31], &kStringAtoms[32], &kStringAtoms[33], &kStringAtoms[34],
    &kStringAtoms[35], &kStringAtoms[36], &kStringAtoms[37], &kStringAtoms[38], &kStringAtoms[39],
    &kStringAtoms[40], &kStringAtoms[41], &kStringAtoms[42], &kStringAtoms[43], &kStringAtoms[44],
    &kStringAtoms[45], &kStringAtoms[46], &kStringAtoms[47], &kStringAtoms[48], &kStringAtoms[49],
    &kStringAtoms[50], &kStringAtoms[51], &kStringAtoms[52], &kStringAtoms[53], &kStringAtoms[54],
    &kStringAtoms[55], &kStringAtoms[56], &kStringAtoms[57], &kStringAtoms[58], &kStringAtoms[59],
    &kStringAtoms[60]};

static const bsr_wchar kTextX[] = u"x";
static const bsr_wchar kTextDefault[] = u"0";
const val utils_val_string_x = UTILS_WSTRING_ATOM(kTextX);
const val utils_val_ffeature_default = UTILS_WSTRING_ATOM(kTextDefault);

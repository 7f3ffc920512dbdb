// Values: constants and clamping, readers and their type rules, reference
// counts and release, lists, equality and printing.
#include <gtest/gtest.h>

#include "model_test_util.h"

namespace {

TEST(ValConstants, ClampedLookupsReturnTheExportedConstants) {
  EXPECT_EQ(val_int_n(-5), &val_int_0);
  EXPECT_EQ(val_int_n(0), &val_int_0);
  EXPECT_EQ(val_int_n(37), &val_int_37);
  EXPECT_EQ(val_int_n(60), &val_int_60);
  EXPECT_EQ(val_int_n(61), &val_int_60);
  EXPECT_EQ(val_int_n(1000), &val_int_60);
  for (int n = 0; n <= 60; ++n) {
    EXPECT_EQ(val_int(val_int_n(n)), n);
    EXPECT_EQ(val_int_n(n)->c.atom.ref_count, -1);
    const bsr_wchar *s = val_wstring(val_string_n(n));
    ASSERT_NE(s, nullptr);
    std::string digits = std::to_string(n);
    EXPECT_EQ(std::u16string(s), std::u16string(digits.begin(), digits.end()));
  }
  EXPECT_EQ(wide(val_wstring(val_string_n(7))), u"7");
  EXPECT_EQ(val_string_n(-1), val_string_n(0));
  EXPECT_EQ(val_string_n(99), val_string_n(60));
}

TEST(ValConstants, SurviveEveryRelease) {
  for (int k = 0; k < 3; ++k) {
    delete_val(&val_int_5);
    delete_val(val_string_n(5));
  }
  EXPECT_EQ(val_int_5.c.atom.ref_count, -1);
  EXPECT_EQ(val_int(&val_int_5), 5);
  EXPECT_EQ(wide(val_wstring(val_string_n(5))), u"5");
}

TEST(ValConstants, StoredInManySetsAndReleased) {
  features *a = new_features();
  features *b = new_features();
  feat_set(a, "x", &val_int_9);
  feat_set(b, "x", val_string_n(9));
  feat_set(b, "y", &val_int_9);
  delete_features(a);
  delete_features(b);
  EXPECT_EQ(val_int_9.c.atom.ref_count, -1);
  EXPECT_EQ(val_int(&val_int_9), 9);
  EXPECT_EQ(wide(val_wstring(val_string_n(9))), u"9");
}

TEST(ValTypes, TableAndCodesAgree) {
  const char *names[] = {"int", "float", "string", "wstring", "utterance", "uttfunc", "ffunc",
                         "relation", "item", "cart", "userdata", "itemfunc", "features"};
  for (int row = 0; row < 13; ++row) EXPECT_STREQ(bsr_val_defs[row].name, names[row]);
  for (int row = 0; row < 4; ++row) EXPECT_EQ(bsr_val_defs[row].delete_function, nullptr);
  EXPECT_EQ(bsr_val_defs[4].delete_function, &val_delete_utterance);
  EXPECT_EQ(bsr_val_defs[12].delete_function, &val_delete_features);
  EXPECT_EQ(bsr_val_defs[8].delete_function, &val_delete_item);
  const int32_t codes[] = {bsr_val_type_utterance, bsr_val_type_uttfunc, bsr_val_type_ffunc,
                           bsr_val_type_relation,  bsr_val_type_item,    bsr_val_type_cart,
                           bsr_val_type_userdata,  bsr_val_type_itemfunc, bsr_val_type_features};
  for (int k = 0; k < 9; ++k) EXPECT_EQ(codes[k], 2 * (k + 4) + 1);
}

TEST(ValRead, NumbersAndTheStringAsymmetry) {
  val *i = int_val(-42);
  val *f = float_val(-3.75f);
  val *s = wstring_val(u"42");
  EXPECT_EQ(val_int(i), -42);
  EXPECT_FLOAT_EQ(val_float(i), -42.0f);
  EXPECT_EQ(val_int(f), -3);  // toward zero
  EXPECT_FLOAT_EQ(val_float(f), -3.75f);
  EXPECT_EQ(val_int(s), 42);
  EXPECT_EQ(val_float(s), 0.0f);
  EXPECT_EQ(val_int(nullptr), 0);
  EXPECT_EQ(val_float(nullptr), 0.0f);
  EXPECT_EQ(val_wstring(i), nullptr);
  EXPECT_EQ(i->c.atom.ref_count, 0);
  delete_val(i);
  delete_val(f);
  delete_val(s);
}

TEST(ValRead, NullWideStringIsAStringAtomWithoutText) {
  val *s = wstring_val(nullptr);
  EXPECT_EQ(val_wstringp(s), 1);
  EXPECT_EQ(val_wstring(s), nullptr);
  EXPECT_EQ(printed([&](FILE *o) { val_print(o, s); }), "");
  delete_val(s);
}

int g_payload;
const val *a_ffunc(const item *) { return &val_int_1; }

TEST(ValRead, TypedPayloadsOnlyForTheirOwnType) {
  val *u = userdata_val(&g_payload);
  val *fn = ffunc_val(a_ffunc);
  EXPECT_EQ(val_userdata(u), &g_payload);
  EXPECT_EQ(val_item(u), nullptr);
  EXPECT_EQ(val_generic(u, bsr_val_type_userdata), &g_payload);
  EXPECT_EQ(val_generic(u, bsr_val_type_cart), nullptr);
  EXPECT_EQ(val_ffunc(fn), &a_ffunc);
  EXPECT_EQ(val_ffunc(u), nullptr);
  val *typed = val_new_typed(bsr_val_type_relation, &g_payload);
  EXPECT_EQ(static_cast<void *>(val_relation(typed)), &g_payload);
  val *narrow = val_new_typed(5, const_cast<char *>("kept"));
  EXPECT_STREQ(static_cast<const char *>(val_void(narrow)), "kept");
  EXPECT_EQ(val_void(&val_int_3), nullptr);
  EXPECT_EQ(val_void(u), &g_payload);
  delete_val(narrow);  // a narrow string atom never frees its text
  delete_val(u);
  delete_val(fn);
  delete_val(typed);
}

TEST(ValRead, ConsFieldsAndVoid) {
  val *list = cons_val(&val_int_1, cons_val(&val_int_2, nullptr));
  EXPECT_EQ(bsr_val_consp(list), 1);
  EXPECT_EQ(bsr_val_consp(&val_int_1), 0);
  EXPECT_EQ(val_car(list), &val_int_1);
  EXPECT_EQ(val_void(list), val_cdr(list));  // a cons answers its second word
  EXPECT_EQ(val_car(&val_int_1), nullptr);
  EXPECT_EQ(val_cdr(nullptr), nullptr);
  val *empty_car = cons_val(nullptr, &val_int_1);
  EXPECT_EQ(val_void(empty_car), nullptr);  // start reads 0
  delete_val(empty_car);
  delete_val(list);
}

TEST(ValRefcount, CountRules) {
  val *v = int_val(1);
  EXPECT_EQ(val_dec_refcount(v), 0);  // count 0 stays 0
  val_inc_refcount(v);
  val_inc_refcount(v);
  EXPECT_EQ(v->c.atom.ref_count, 2);
  EXPECT_EQ(val_dec_refcount(v), 1);
  EXPECT_EQ(val_dec_refcount(&val_int_4), -1);
  val_inc_refcount(&val_int_4);
  EXPECT_EQ(val_int_4.c.atom.ref_count, -1);
  val *cell = cons_val(nullptr, nullptr);
  val_inc_refcount(cell);
  EXPECT_EQ(val_dec_refcount(cell), 0);
  EXPECT_EQ(cell->c.cons.car, nullptr);  // untouched
  delete_val(cell);
  delete_val(v);  // 1 -> 0: freed
  delete_val(nullptr);
}

TEST(ValRefcount, SharedByTwoSetsLivesUntilTheLastRelease) {
  features *a = new_features();
  features *b = new_features();
  val *v = wstring_val(u"shared");
  feat_set(a, "k", v);
  feat_set(b, "k", v);
  EXPECT_EQ(v->c.atom.ref_count, 2);
  delete_features(a);
  EXPECT_EQ(v->c.atom.ref_count, 1);
  EXPECT_EQ(wide(feat_wstring(b, "k")), u"shared");  // ASan would catch a freed read
  delete_features(b);                                // frees v: LeakSanitizer checks
}

TEST(ValRefcount, OwnedPayloadsGoWithTheLastReference) {
  features *inner = new_features();
  feat_set_int(inner, "n", 3);
  val *wrapped = features_val(inner);
  features *outer = new_features();
  feat_set(outer, "inner", wrapped);
  EXPECT_EQ(feat_int(val_features(feat_val(outer, "inner")), "n"), 3);
  delete_features(outer);  // releases wrapped, which deletes inner
  val *u = utterance_val(new_utterance());
  relation *r = utt_relation_create(val_utterance(u), "Word");
  relation_append(r, nullptr);
  delete_val(u);  // deletes the utterance with its heap
}

TEST(ValRefcount, DeleteValListKeepsElements) {
  val *a = int_val(10);
  val *b = wstring_val(u"b");
  val *list = cons_val(a, cons_val(b, nullptr));
  EXPECT_EQ(a->c.atom.ref_count, 1);
  delete_val_list(list);
  EXPECT_EQ(val_int(a), 10);
  EXPECT_EQ(wide(val_wstring(b)), u"b");
  delete_val(a);
  delete_val(b);
  delete_val_list(int_val(5));  // an atom is simply released
}

TEST(ValList, LengthReverseAppend) {
  EXPECT_EQ(val_length(nullptr), 0);
  EXPECT_EQ(val_length(&val_int_2), 1);
  val *list = cons_val(int_val(1), cons_val(int_val(2), cons_val(int_val(3), nullptr)));
  EXPECT_EQ(val_length(list), 3);
  list = val_reverse(list);
  EXPECT_EQ(printed([&](FILE *o) { val_print(o, list); }), "(3 2 1)");
  val *more = cons_val(int_val(4), nullptr);
  EXPECT_EQ(val_append(nullptr, more), more);
  EXPECT_EQ(val_append(list, more), list);
  EXPECT_EQ(printed([&](FILE *o) { val_print(o, list); }), "(3 2 1 4)");
  EXPECT_EQ(val_reverse(nullptr), nullptr);
  delete_val(list);
}

TEST(ValList, SetCarLowersTheOldCountWithoutFreeing) {
  val *old_car = int_val(1);
  val *cell = cons_val(old_car, nullptr);
  EXPECT_EQ(old_car->c.atom.ref_count, 1);
  val *fresh = int_val(2);
  EXPECT_EQ(set_car(cell, fresh), cell);
  EXPECT_EQ(old_car->c.atom.ref_count, 0);
  EXPECT_EQ(fresh->c.atom.ref_count, 0);  // stored without a raise
  EXPECT_EQ(val_car(cell), fresh);
  EXPECT_EQ(set_car(old_car, fresh), nullptr);  // not a cons
  EXPECT_EQ(set_cdr(old_car, fresh), nullptr);
  val *tail = cons_val(&val_int_7, nullptr);
  EXPECT_EQ(set_cdr(cell, tail), cell);
  EXPECT_EQ(val_length(cell), 2);
  delete_val(cell);  // frees fresh (count 0) and the tail
  delete_val(old_car);
}

TEST(ValList, MembershipAndAssociation) {
  val *list = cons_val(wstring_val(u"a"), cons_val(int_val(7), cons_val(wstring_val(u"c"), nullptr)));
  val *seven = int_val(7);
  EXPECT_EQ(val_member(seven, list), 1);
  EXPECT_EQ(val_member(&val_int_8, list), 0);
  EXPECT_EQ(val_member(seven, nullptr), 0);
  EXPECT_EQ(val_member_wstring(u"c", list), 1);
  EXPECT_EQ(val_member_wstring(u"7", list), 0);
  EXPECT_EQ(val_member_wstring(nullptr, list), 1);  // the int reads as a null string
  val *alist = cons_val(cons_val(wstring_val(u"k1"), cons_val(&val_int_1, nullptr)),
                        cons_val(cons_val(&val_int_2, nullptr),
                                 cons_val(cons_val(wstring_val(u"k2"), nullptr), nullptr)));
  val *hit = val_assoc_wstring(u"k2", alist);
  ASSERT_NE(hit, nullptr);
  EXPECT_EQ(wide(val_wstring(val_car(hit))), u"k2");
  EXPECT_EQ(val_assoc_wstring(u"zz", alist), nullptr);
  delete_val(alist);
  delete_val(seven);
  delete_val(list);
}

TEST(ValEqual, AtomsByTypeAndContent) {
  val *a = wstring_val(u"same");
  val *b = wstring_val(u"same");
  val *c = wstring_val(u"other");
  EXPECT_EQ(val_equal(a, b), 1);
  EXPECT_EQ(val_equal(a, c), 0);
  EXPECT_EQ(val_equal(nullptr, nullptr), 1);
  EXPECT_EQ(val_equal(nullptr, a), 0);
  val *f1 = float_val(2.5f);
  val *f2 = float_val(2.5f);
  val *i2 = int_val(2);
  EXPECT_EQ(val_equal(f1, f2), 1);
  EXPECT_EQ(val_equal(i2, &val_int_2), 1);
  EXPECT_EQ(val_equal(i2, f1), 0);  // different types never equal
  val *u1 = userdata_val(&g_payload);
  val *u2 = userdata_val(&g_payload);
  EXPECT_EQ(val_equal(u1, u2), 1);
  for (val *v : {a, b, c, f1, f2, i2, u1, u2}) delete_val(v);
}

TEST(ValEqual, ListsNeedCarPointersAgreeingInLow16Bits) {
  // Shared constants as cars: the car pointers are identical, so equal.
  val *l1 = cons_val(&val_int_3, nullptr);
  val *l2 = cons_val(&val_int_3, nullptr);
  EXPECT_EQ(val_equal(l1, l2), 1);
  // Separately made equal ints: equal only if the addresses share 16 bits.
  val *x = int_val(5);
  val *y = int_val(5);
  val *m1 = cons_val(x, nullptr);
  val *m2 = cons_val(y, nullptr);
  bool low_bits_agree = (reinterpret_cast<uintptr_t>(x) & 0xFFFF) == (reinterpret_cast<uintptr_t>(y) & 0xFFFF);
  EXPECT_EQ(val_equal(m1, m2), low_bits_agree ? 1 : 0);
  EXPECT_EQ(val_equal(l1, &val_int_3), 0);
  for (val *v : {l1, l2, m1, m2}) delete_val(v);
}

TEST(ValCompare, NumericOrderReadsStringsAsZero) {
  val *one = wstring_val(u"1");
  val *two = wstring_val(u"2");
  EXPECT_EQ(val_less(one, two), 0);
  EXPECT_EQ(val_greater(two, one), 0);
  EXPECT_EQ(val_less(&val_int_1, &val_int_2), 1);
  val *half = float_val(0.5f);
  EXPECT_EQ(val_greater(half, one), 1);  // 0.5 > 0.0
  EXPECT_EQ(val_less(nullptr, &val_int_1), 1);
  for (val *v : {one, two, half}) delete_val(v);
}

TEST(ValPrint, Formats) {
  EXPECT_EQ(printed([](FILE *o) { val_print(o, nullptr); }), "[null]");
  val *list = cons_val(&val_int_1, cons_val(&val_int_2, nullptr));
  EXPECT_EQ(printed([&](FILE *o) { val_print(o, list); }), "(1 2)");
  val *f = float_val(1.5f);
  EXPECT_EQ(printed([&](FILE *o) { val_print(o, f); }), "1.500000");
  val *s = wstring_val(u"caf\u00e9 \u4e2d");
  EXPECT_EQ(printed([&](FILE *o) { val_print(o, s); }), "caf\xc3\xa9 \xe4\xb8\xad");
  val *it = item_val(reinterpret_cast<item *>(&g_payload));
  std::string text = printed([&](FILE *o) { val_print(o, it); });
  EXPECT_EQ(text.rfind("[Val item 0x", 0), 0u) << text;
  EXPECT_EQ(text.back(), ']');
  val *narrow = val_new_typed(5, const_cast<char *>("n"));
  EXPECT_EQ(printed([&](FILE *o) { val_print(o, narrow); }).rfind("[Val string 0x", 0), 0u);
  // Nested list, and a final atom cdr that is not printed.
  val *nested = cons_val(cons_val(&val_int_1, nullptr), cons_val(s, &val_int_9));
  EXPECT_EQ(printed([&](FILE *o) { val_print(o, nested); }), "((1) caf\xc3\xa9 \xe4\xb8\xad)");
  delete_val(nested);  // releases s too (count 1)
  for (val *v : {list, f, it, narrow}) delete_val(v);
}

TEST(ValPrint, LongWideStringUsesAHeapBuffer) {
  std::u16string long_text(3000, u'\u00e9');
  val *s = wstring_val(long_text.c_str());
  std::string out = printed([&](FILE *o) { val_print(o, s); });
  EXPECT_EQ(out.size(), 6000u);
  delete_val(s);
}

}  // namespace

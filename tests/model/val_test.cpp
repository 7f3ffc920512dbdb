// val_test.cpp - values: constants and clamping, readers and their type rules,
// reference counts and release, lists, equality, ordering and printing.
#include <gtest/gtest.h>

#include <regex>

#include "model_test_util.h"

namespace {

int g_payload;
const val *a_ffunc(const item *) { return &val_int_1; }

TEST(ValConstants, ClampedAndSurviveEveryRelease) {
  EXPECT_EQ(val_int_n(-5), &val_int_0);
  EXPECT_EQ(val_int_n(1000), &val_int_60);
  EXPECT_EQ(val_int_n(37), &val_int_37);
  EXPECT_EQ(val_string_n(-1), val_string_n(0));
  EXPECT_EQ(val_string_n(99), val_string_n(60));
  for (int n = 0; n <= 60; ++n) {
    EXPECT_EQ(val_int(val_int_n(n)), n);
    EXPECT_EQ(printed_val(val_string_n(n)), std::to_string(n));
  }
  features *a = new_features();
  feat_set(a, "x", &val_int_9);
  feat_set(a, "y", val_string_n(9));
  delete_features(a);
  delete_val(&val_int_9);
  val_inc_refcount(&val_int_9);
  EXPECT_EQ(val_dec_refcount(val_string_n(9)), -1);
  EXPECT_EQ(printed_val(&val_int_9), "9");
  EXPECT_EQ(printed_val(val_string_n(9)), "9");
}

TEST(ValTypes, TableAndCodesAgree) {
  const char *names[] = {"int",      "float", "string", "wstring",  "utterance", "uttfunc", "ffunc",
                         "relation", "item",  "cart",   "userdata", "itemfunc",  "features"};
  for (int row = 0; row < 13; ++row) EXPECT_STREQ(bsr_val_defs[row].name, names[row]);
  for (int row = 0; row < 4; ++row) EXPECT_EQ(bsr_val_defs[row].delete_function, nullptr);
  EXPECT_EQ(bsr_val_defs[4].delete_function, &val_delete_utterance);
  EXPECT_EQ(bsr_val_defs[8].delete_function, &val_delete_item);
  EXPECT_EQ(bsr_val_defs[12].delete_function, &val_delete_features);
  const int32_t codes[] = {bsr_val_type_utterance, bsr_val_type_uttfunc,  bsr_val_type_ffunc,
                           bsr_val_type_relation,  bsr_val_type_item,     bsr_val_type_cart,
                           bsr_val_type_userdata,  bsr_val_type_itemfunc, bsr_val_type_features};
  for (int k = 0; k < 9; ++k) EXPECT_EQ(codes[k], 2 * (k + 4) + 1);
}

TEST(ValRead, ReadersFollowTheTypeRules) {
  val *i = int_val(-42), *f = float_val(-3.75f), *s = wstring_val(u"42"),
      *none = wstring_val(nullptr);
  EXPECT_FLOAT_EQ(val_float(i), -42.0f);
  EXPECT_EQ(val_int(f), -3);  // toward zero
  EXPECT_EQ(val_int(s), 42);  // only int reads parse strings
  EXPECT_EQ(val_float(s), 0.0f);
  EXPECT_EQ(val_wstring(i), nullptr);
  EXPECT_EQ(printed_val(none), "");  // a string atom without text
  val *u = userdata_val(&g_payload), *fn = ffunc_val(a_ffunc);
  EXPECT_EQ(val_generic(u, bsr_val_type_userdata), &g_payload);
  EXPECT_EQ(val_generic(u, bsr_val_type_cart), nullptr);
  EXPECT_EQ(val_ffunc(fn), &a_ffunc);
  EXPECT_EQ(val_ffunc(u), nullptr);
  val *narrow =
      val_new_typed(5, const_cast<char *>("kept"));  // a narrow string never frees its text
  EXPECT_STREQ(static_cast<const char *>(val_void(narrow)), "kept");
  EXPECT_EQ(val_void(&val_int_3), nullptr);
  val *list = cons_val(&val_int_1, cons_val(&val_int_2, nullptr)),
      *empty_car = cons_val(nullptr, u);
  EXPECT_EQ(bsr_val_consp(list), 1);
  EXPECT_EQ(bsr_val_consp(&val_int_1), 0);
  EXPECT_EQ(val_void(list), val_cdr(list));  // a cons answers its second word
  EXPECT_EQ(bsr_val_consp(empty_car), 1);    // a start of 0 is even
  EXPECT_EQ(val_void(empty_car), nullptr);
  EXPECT_EQ(val_car(&val_int_1), nullptr);
  for (val *v : {i, f, s, none, fn, narrow, list, empty_car}) delete_val(v);  // empty_car frees u
}

TEST(ValRefcount, CountRulesAndSharedValues) {
  val *v = int_val(1);
  EXPECT_EQ(val_dec_refcount(v), 0);  // 0 stays 0
  val_inc_refcount(v);
  delete_val(v);  // 1 -> 0: freed
  delete_val(nullptr);
  features *a = new_features(), *b = new_features();
  val *shared = wstring_val(u"shared");
  feat_set(a, "k", shared);
  feat_set(b, "k", shared);
  EXPECT_EQ(shared->c.atom.ref_count, 2);
  delete_features(a);
  EXPECT_EQ(wide(feat_wstring(b, "k")), u"shared");  // ASan catches a freed read
  delete_features(b);                                // LeakSanitizer checks it goes
}

TEST(ValRefcount, OwnedPayloadsGoWithTheLastReference) {
  features *inner = new_features();
  feat_set_int(inner, "n", 3);
  features *outer = new_features();
  feat_set(outer, "inner", features_val(inner));
  EXPECT_EQ(feat_int(val_features(feat_val(outer, "inner")), "n"), 3);
  delete_features(outer);
  val *u = utterance_val(new_utterance());
  relation_append(utt_relation_create(val_utterance(u), "Word"), nullptr);
  delete_val(u);
  val *a = int_val(10);
  delete_val_list(cons_val(a, cons_val(&val_int_2, nullptr)));  // the cells, not the elements
  EXPECT_EQ(val_int(a), 10);
  delete_val(a);
}

TEST(ValList, BuildingAndEditing) {
  EXPECT_EQ(val_length(nullptr), 0);
  EXPECT_EQ(val_length(&val_int_2), 1);  // an atom is a list of one
  val *list =
      val_reverse(cons_val(int_val(1), cons_val(int_val(2), cons_val(int_val(3), nullptr))));
  val *more = cons_val(int_val(4), nullptr);
  EXPECT_EQ(val_append(list, more), list);
  EXPECT_EQ(printed_val(list), "(3 2 1 4)");
  EXPECT_EQ(val_length(list), 4);
  val *old_car = val_car(list), *fresh = int_val(9);
  EXPECT_EQ(set_car(list, fresh), list);
  EXPECT_EQ(old_car->c.atom.ref_count, 0);      // lowered, not freed
  EXPECT_EQ(fresh->c.atom.ref_count, 0);        // stored without a raise
  EXPECT_EQ(set_cdr(old_car, fresh), nullptr);  // not a cons
  EXPECT_EQ(set_cdr(more, cons_val(&val_int_7, nullptr)), more);
  EXPECT_EQ(printed_val(list), "(9 2 1 4 7)");
  delete_val(list);
  delete_val(old_car);
}

TEST(ValList, MembershipAndAssociation) {
  val *list =
      cons_val(wstring_val(u"a"), cons_val(int_val(7), cons_val(wstring_val(u"c"), nullptr)));
  val *seven = int_val(7);
  EXPECT_EQ(val_member(seven, list), 1);  // equal, not the same cell
  EXPECT_EQ(val_member(&val_int_8, list), 0);
  EXPECT_EQ(val_member_wstring(u"c", list), 1);
  EXPECT_EQ(val_member_wstring(u"7", list), 0);     // the int 7 is not the string "7"
  EXPECT_EQ(val_member_wstring(nullptr, list), 1);  // the int reads as a null string
  val *alist = cons_val(cons_val(wstring_val(u"k1"), nullptr),
                        cons_val(cons_val(&val_int_2, nullptr),
                                 cons_val(cons_val(wstring_val(u"k2"), nullptr), nullptr)));
  EXPECT_EQ(wide(val_wstring(val_car(val_assoc_wstring(u"k2", alist)))), u"k2");
  EXPECT_EQ(val_assoc_wstring(u"zz", alist), nullptr);
  for (val *v : {alist, seven, list}) delete_val(v);
}

TEST(ValCompare, EqualityAndNumericOrder) {
  val *a = wstring_val(u"1"), *b = wstring_val(u"1"), *c = wstring_val(u"2"), *f = float_val(0.5f);
  val *i2 = int_val(2), *u1 = userdata_val(&g_payload), *u2 = userdata_val(&g_payload);
  EXPECT_EQ(val_equal(a, b), 1);
  EXPECT_EQ(val_equal(a, c), 0);
  EXPECT_EQ(val_equal(nullptr, nullptr), 1);
  EXPECT_EQ(val_equal(nullptr, a), 0);
  EXPECT_EQ(val_equal(i2, &val_int_2), 1);
  EXPECT_EQ(val_equal(c, &val_int_2), 0);  // different types never equal
  EXPECT_EQ(val_equal(u1, u2), 1);
  EXPECT_EQ(val_less(a, c), 0);  // strings order as zero
  EXPECT_EQ(val_greater(f, c), 1);
  EXPECT_EQ(val_less(nullptr, &val_int_1), 1);
  // Lists compare car pointers in their low 16 bits.
  val *l1 = cons_val(&val_int_3, nullptr), *l2 = cons_val(&val_int_3, nullptr);
  val *m1 = cons_val(i2, nullptr), *m2 = cons_val(int_val(2), nullptr);
  EXPECT_EQ(val_equal(l1, l2), 1);
  bool low_bits_agree =
      ((reinterpret_cast<uintptr_t>(i2) ^ reinterpret_cast<uintptr_t>(val_car(m2))) & 0xFFFF) == 0;
  EXPECT_EQ(val_equal(m1, m2), low_bits_agree ? 1 : 0);
  EXPECT_EQ(val_equal(l1, &val_int_3), 0);
  for (val *v : {a, b, c, f, u1, u2, l1, l2, m1, m2}) delete_val(v);
}

TEST(ValPrint, Formats) {
  EXPECT_EQ(printed_val(nullptr), "[null]");
  EXPECT_EQ(printed_val(&val_int_7), "7");
  val *f = float_val(1.5f), *s = wstring_val(u"caf\u00e9 \u4e2d");
  EXPECT_EQ(printed_val(f), "1.500000");
  val *nested =
      cons_val(cons_val(&val_int_1, nullptr), cons_val(s, &val_int_9));  // final atom cdr unprinted
  EXPECT_EQ(printed_val(nested), "((1) caf\xc3\xa9 \xe4\xb8\xad)");
  val *it = item_val(reinterpret_cast<item *>(&g_payload));
  EXPECT_TRUE(std::regex_match(printed_val(it), std::regex("\\[Val item 0x.+\\]")))
      << printed_val(it);
  val *narrow = val_new_typed(5, const_cast<char *>("n"));
  EXPECT_TRUE(std::regex_match(printed_val(narrow), std::regex("\\[Val string 0x.+\\]")));
  std::u16string long_text(3000, u'\u00e9');  // past any stack buffer
  val *big = wstring_val(long_text.c_str());
  EXPECT_EQ(printed_val(big).size(), 6000u);
  for (val *v : {nested, f, it, narrow, big}) delete_val(v);
}

}  // namespace

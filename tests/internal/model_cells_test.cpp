// model_cells_test.cpp - value cells of the model's own making: an item's
// entry in its contents' relation table, a wide-string value that carries its
// text after the cell, and values handed to a set to keep. Each is released
// exactly once.
#include <gtest/gtest.h>

#include <string>

#include "Utils/Model/feature_store.h"
#include "Utils/Model/item_contents.h"
#include "Utils/Model/val_cell.h"
#include "bsr_string.h"
#include "ssml_io.h"
#include "utt_features.h"

namespace {

using utils::model::adopt_value;
using utils::model::store_value;
using utils::model::wstring_in_cell_block;
using utils::model::wstring_val_fit;
using utils::model::wstring_val_with_room;

const val *entry_of(const item *i, const char *relname) {
  return feat_val(i->contents->relations, relname);
}

// An item's entry in its contents' relation table is an ordinary counted
// value: a caller that keeps a copy of it keeps it past the item's deletion.
TEST(ItemEntry, IsCountedAndOutlivesItsItemWhenHeldElsewhere) {
  relation *words = new_relation("Word", nullptr);
  relation *syls = new_relation("Syllable", nullptr);
  item *w = relation_append(words, nullptr);
  item *s = relation_append(syls, w);
  ASSERT_NE(s, nullptr);
  const val *we = entry_of(w, "Word");
  EXPECT_EQ(val_item(we), w);
  EXPECT_EQ(val_item(entry_of(w, "Syllable")), s);
  EXPECT_EQ(we->c.atom.ref_count, 1);
  features *kept = new_features();
  feat_set(kept, "w", we);
  EXPECT_EQ(we->c.atom.ref_count, 2);
  delete_item(w);
  EXPECT_EQ(item_as(s, "Word"), nullptr);
  EXPECT_EQ(feat_val(kept, "w"), we);  // still a live cell (ASan would object otherwise)
  EXPECT_EQ(we->c.atom.ref_count, 1);
  delete_features(kept);
  delete_relation(words);
  delete_relation(syls);
}

TEST(WstringWithRoom, HoldsItsTextInTheCellsBlock) {
  val *v = wstring_val_with_room(6);
  ASSERT_NE(v, nullptr);
  EXPECT_EQ(v->c.atom.ref_count, 0);
  EXPECT_TRUE(wstring_in_cell_block(v));
  auto *text = static_cast<bsr_wchar *>(v->c.atom.payload.p);
  EXPECT_EQ(text[0], 0);  // zeroed room
  std::u16string hello = u"hello";
  hello.copy(reinterpret_cast<char16_t *>(text), hello.size());
  EXPECT_EQ(std::u16string(val_wstring(v)), u"hello");
  delete_val(v);  // frees cell and text together
}

// wstring_val copies the text into the cell's own block; a null text gives
// a wide-string value without one.
TEST(WstringVal, CopiesIntoTheCellsBlock) {
  bsr_wchar text[] = u"copy me";
  val *v = wstring_val(text);
  ASSERT_NE(v, nullptr);
  EXPECT_TRUE(wstring_in_cell_block(v));
  text[0] = u'X';
  EXPECT_EQ(std::u16string(val_wstring(v)), u"copy me");
  delete_val(v);
  val *empty = wstring_val(nullptr);
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(val_wstring(empty), nullptr);
  delete_val(empty);
}

TEST(WstringWithRoom, FittingKeepsTheTextAndMovesThePayload) {
  val *v = wstring_val_with_room(1000);
  ASSERT_NE(v, nullptr);
  auto *text = static_cast<bsr_wchar *>(v->c.atom.payload.p);
  text[0] = u'\x4E2D';
  text[1] = u'!';
  v = wstring_val_fit(v, 3);
  EXPECT_TRUE(wstring_in_cell_block(v));
  EXPECT_EQ(std::u16string(val_wstring(v)), u"\x4E2D!");
  delete_val(v);
  // Values of separately allocated strings are not touched by fitting.
  val *w = val_new_typed(BSR_VAL_WSTRING, tts_wcsdup(u"abc"));
  EXPECT_FALSE(wstring_in_cell_block(w));
  EXPECT_EQ(wstring_val_fit(w, 1), w);
  EXPECT_EQ(std::u16string(val_wstring(w)), u"abc");
  delete_val(w);
}

// Long texts outside ASCII get values whose room was shrunk after the
// conversion; the text survives the shrinking.
TEST(WstringWithRoom, LoadedTextsSurviveFitting) {
  std::string zh;
  for (int k = 0; k < 20; ++k) zh += "\xE4\xB8\xAD";  // U+4E2D twenty times
  std::string doc = "<speak><s>" + zh + "</s><s>ab</s></speak>";
  utterance *u = new_utterance();
  ASSERT_EQ(utt_load_ssml(u, doc.c_str()), 1);
  item *root = relation_head(utt_relation(u, "ssml"));
  item *first = item_daughter(root);
  EXPECT_EQ(std::u16string(item_feat_wstring(item_daughter(first), "text")),
            std::u16string(20, u'\x4E2D'));
  const val *ab = item_feat(item_daughter(item_next(first)), "text");
  EXPECT_EQ(std::u16string(val_wstring(ab)), u"ab");
  delete_utterance(u);
}

// A set that takes a value holds the only reference to it; a value it cannot
// take is released at once (LeakSanitizer reports one that is not).
TEST(AdoptValue, StoredValuesAreHeldOnceAndRefusedOnesReleased) {
  features *f = new_features();
  val *kept = int_val(5);
  EXPECT_TRUE(adopt_value(f, "n", kept));
  EXPECT_EQ(feat_val(f, "n"), kept);
  EXPECT_EQ(kept->c.atom.ref_count, 1);
  EXPECT_FALSE(adopt_value(nullptr, "n", int_val(6)));
  EXPECT_FALSE(adopt_value(f, "n", nullptr));
  EXPECT_EQ(feat_val(f, "n"), kept);
  delete_features(f);
}

TEST(StoreValue, TellsWhetherTheSetTookTheValue) {
  features *f = new_features();
  EXPECT_TRUE(store_value(f, "n", &val_int_3));
  EXPECT_TRUE(store_value(f, "n", &val_int_4));  // replacing counts as taking
  EXPECT_EQ(feat_val(f, "n"), &val_int_4);
  EXPECT_FALSE(store_value(f, "m", nullptr));
  EXPECT_EQ(feat_present(f, "m"), 0);
  EXPECT_FALSE(store_value(nullptr, "n", &val_int_3));
  delete_features(f);
}

}  // namespace

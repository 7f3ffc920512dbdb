// dict_check_test.cpp - NLPDIC_Check on sound, truncated and corrupted
// images: the offset of the first fault, and NLPDIC_Create on every image
// the checker accepts.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "dict/dict_image_builder.h"
#include "nlp_dict.h"

namespace {

using namespace dict_test;

struct Parts {
  Bytes classes, pairs, table, one, two, end;
  Bytes image() const { return join({classes, pairs, table, one, two, end}); }
  size_t at_pairs() const { return classes.size(); }
  size_t at_table() const { return at_pairs() + pairs.size(); }
  size_t at_one() const { return at_table() + table.size(); }
  size_t at_two() const { return at_one() + one.size(); }
  size_t at_end() const { return at_two() + two.size(); }
};

LengthEntry ones() {
  LengthEntry e;
  e.words = {u"a", u"b", u"c"};
  e.readings = {{{0, 10}}, {{0, 20}, {1, 30}}, {{1, 40}}};
  return e;
}

LengthEntry twos() {
  LengthEntry e;
  e.words = {u"ab", u"bc"};
  e.readings = {{{0, 1}, {1, 2}, {0, 3}}, {{1, 4}}};
  return e;
}

Parts parts() {
  return Parts{monogram({{u"n", 0}, {u"v", 1}}, 0),
               bigram({{0, 1, -1.0f, 0.5f}, {1, 0, -2.0f, -0.5f}}),
               word_table(4),
               word_class(1, ones()),
               word_class(2, twos()),
               end_keyword()};
}

size_t check(const Bytes &b) { return NLPDIC_Check(b.data(), static_cast<uint32_t>(b.size())); }

TEST(DictCheck, SoundImage) {
  const Bytes image = parts().image();
  EXPECT_EQ(check(image), 0u);
  NLPDIC *d = NLPDIC_Create(image.data());
  ASSERT_NE(d, nullptr);
  NLPDIC_Node *head = NLPDIC_DictBreak(d, u"abc", 1);
  EXPECT_NE(head, nullptr);
  NLPDIC_DeleNode(head);
  NLPDIC_Destroy(d);
}

TEST(DictCheck, NullAndEmptyImages) {
  EXPECT_EQ(NLPDIC_Check(nullptr, 10), 1u);
  const Bytes image = parts().image();
  EXPECT_EQ(NLPDIC_Check(image.data(), 0), 1u);
}

TEST(DictCheck, EveryTruncationIsAFaultInsideTheImage) {
  const Bytes image = parts().image();
  for (size_t cut = 0; cut < image.size(); ++cut) {
    // A copy of exactly `cut` bytes, so that a read past it is seen.
    Bytes part(image.begin(), image.begin() + static_cast<long>(cut));
    const size_t r = NLPDIC_Check(part.data(), cut);
    EXPECT_NE(r, 0u) << cut;
    EXPECT_LE(r, std::max<size_t>(cut, 1)) << cut;
  }
}

TEST(DictCheck, CorruptionsAndTheirOffsets) {
  const Parts p = parts();
  struct Case {
    const char *what;
    std::function<Bytes()> make;
    size_t offset;
  };
  auto with = [&](std::function<void(Bytes &)> edit) {
    Bytes b = p.image();
    edit(b);
    return b;
  };
  const size_t one_body = p.at_one() + 20;  // keyword 12, L 4, size 4
  const std::vector<Case> cases = {
      {"unknown first keyword",
       [] {
         return Bytes{'X', 0, 0, 0};
       },
       1},
      {"unknown keyword later",
       [&] {
         Bytes stop;
         put_keyword(stop, "NLP_STOP");
         return join({p.classes, stop, p.end});
       },
       p.at_pairs()},
      {"no class inventory",
       [&] {
         return join({p.pairs, p.end});
       },
       p.pairs.size()},
      {"no end keyword",
       [&] {
         return join({p.classes, p.pairs});
       },
       p.at_table()},
      {"keyword padding not zero", [&] { return with([&](Bytes &b) { b[p.at_pairs() + 7] = 1; }); },
       p.at_pairs()},
      {"odd name block", [&] { return with([](Bytes &b) { set_u32(b, 16 + 8, 7); }); }, 16 + 8},
      {"more codes than classes", [&] { return with([](Bytes &b) { set_u32(b, 16 + 12, 3); }); },
       16 + 12},
      {"class count beyond the names", [&] { return with([](Bytes &b) { set_u32(b, 16, 3); }); },
       16 + 20 + 8},
      {"pair count beyond the section",
       [&] { return with([&](Bytes &b) { set_u32(b, p.at_pairs() + 12, 3); }); },
       p.at_pairs() + 12},
      {"word class before word-table",
       [&] {
         return join({p.classes, p.one, p.end});
       },
       p.at_pairs() + 12},
      {"second word-table",
       [&] {
         return join({p.classes, p.table, p.table, p.end});
       },
       p.at_pairs() + p.table.size()},
      {"length above the maximum",
       [&] {
         return join({p.classes, word_table(1), p.one, p.two, p.end});
       },
       p.at_pairs() + 16 + p.one.size() + 12},
      {"length zero", [&] { return with([&](Bytes &b) { set_u32(b, p.at_one() + 12, 0); }); },
       p.at_one() + 12},
      {"length repeated",
       [&] {
         return join({p.classes, p.table, p.one, p.one, p.end});
       },
       p.at_pairs() + 16 + p.one.size() + 12},
      {"words out of order", [&] { return with([&](Bytes &b) { b[one_body + 4] = 'z'; }); },
       one_body + 6},
      {"zero unit in a word", [&] { return with([&](Bytes &b) { b[one_body + 6] = 0; }); },
       one_body + 6},
      {"reading count zero",
       [&] { return with([&](Bytes &b) { b[one_body + 4 + 8 + 4 + 4] = 0; }); },
       one_body + 4 + 8 + 4 + 4},
      {"multi index not below the count",
       [&] { return with([&](Bytes &b) { set_u32(b, one_body + 4 + 8 + 4, 3); }); },
       one_body + 4 + 8 + 4},
      {"section size too small for the readings",
       [&] { return with([&](Bytes &b) { set_u32(b, p.at_one() + 16, 36); }); },
       one_body + 36},  // where the reading records begin
      {"score bound not finite",
       [&] {
         return with([&](Bytes &b) { set_u32(b, one_body + 4 + 8 + 4 + 4 + 4 + 4, 0x7FC00000); });
       },
       one_body + 4 + 8 + 4 + 4 + 4 + 4},
      {"misaligned section",
       [&] {
         Bytes b = p.classes;
         set_u32(b, 12, static_cast<uint32_t>(b.size() - 16 + 2));
         b.push_back(0);
         b.push_back(0);
         return join({b, p.end});
       },
       p.classes.size() + 2},
  };
  for (const Case &c : cases) {
    const Bytes b = c.make();
    EXPECT_EQ(check(b), c.offset == 0 ? 1u : c.offset) << c.what;
  }
}

TEST(DictCheck, ModelSectionNeedsItsHeader) {
  Bytes section;
  put_keyword(section, "STRESS");
  put_u32(section, 4 + 4);
  put_u32(section, 0);  // the unread word, but none of the three strings
  const Parts p = parts();
  EXPECT_EQ(check(join({p.classes, section, p.end})), p.classes.size() + 12);
}

}  // namespace

// hostile_input_test.cpp - documents that make Mini-XML's string reader run
// past the end of its text: loaded from copies that end right before an
// inaccessible page, so that any read beyond the terminating zero faults.
#include <gtest/gtest.h>

#include <string>

#include "../fuzz/guarded_input.h"
#include "markup_fixture.h"

namespace {

using namespace markup_test;

// A copy whose terminating zero is the last readable byte before a page that
// may not be read; valid until the next copy.
const char *guarded(const std::string &text) {
  return fuzz::guarded_c_string(reinterpret_cast<const uint8_t *>(text.data()), text.size());
}

TEST(HostileInput, OverReadCaseIsRefusedWithoutReadingPastItsEnd) {
  Utt utt;
  EXPECT_EQ(utt_load_ssml(utt.u, guarded(read_file("data/markup/mxml-overread.ssml"))), 0);
  EXPECT_EQ(utt_relation(utt.u, "ssml"), nullptr);
}

// The bytes FE and FF never occur in UTF-8; either one anywhere refuses the
// document, wherever it stands.
TEST(HostileInput, ByteOrderMarkBytesAreRefused) {
  const char *cases[] = {
      "<speak>\xFE\xFF"
      "abc</speak>",
      "<speak>\xFF\xFE"
      "abcd</speak>",
      "\xFE\xFF<speak/>",
      "<speak a=\"\xFF\"/>",
      "<speak>\xFE",
  };
  for (const char *c : cases) {
    Utt utt;
    EXPECT_EQ(utt_load_ssml(utt.u, guarded(c)), 0) << c;
  }
}

// Text that ends inside a tag, an attribute or a multi-byte character is
// read up to its terminating zero and no further.
TEST(HostileInput, DocumentsCutAnywhereStopAtTheirEnd) {
  const std::string whole =
      "\xEF\xBB\xBF<?xml version=\"1.0\"?><!-- c --><speak xml:lang=\"zh\"><s a=\"1\">"
      "\xE4\xB8\xAD\xF0\x9F\x98\x80<![CDATA[x]]></s></speak>";
  // Cut before speak begins there is no document; cut later, whatever the
  // result, no read may fault.
  const size_t speak = whole.find("<speak");
  for (size_t cut = 0; cut < whole.size(); ++cut) {
    Utt utt;
    const int loaded = utt_load_ssml(utt.u, guarded(whole.substr(0, cut)));
    if (cut <= speak) {
      EXPECT_EQ(loaded, 0) << cut;
    }
  }
  Utt utt;
  EXPECT_EQ(utt_load_ssml(utt.u, guarded(whole)), 1);
}

}  // namespace

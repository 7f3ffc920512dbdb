// hostile_input_test.cpp - documents that make Mini-XML's string reader run
// past the end of its text: loaded from copies that end right before an
// inaccessible page, so that any read beyond the terminating zero faults.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "markup_fixture.h"

namespace {

using namespace markup_test;

// A zero-terminated copy of a text whose terminating zero is the last
// readable byte before a page that may not be read.
class GuardedText {
 public:
  explicit GuardedText(const std::string &text) {
    const size_t page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    const size_t bytes = text.size() + 1;
    pages_ = (bytes + page - 1) / page * page + page;
    base_ = static_cast<char *>(
        mmap(nullptr, pages_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
    if (base_ == MAP_FAILED) {
      base_ = nullptr;
      return;
    }
    mprotect(base_ + pages_ - page, page, PROT_NONE);
    text_ = base_ + pages_ - page - bytes;
    memcpy(text_, text.c_str(), bytes);
  }
  ~GuardedText() {
    if (base_ != nullptr) munmap(base_, pages_);
  }
  GuardedText(const GuardedText &) = delete;
  GuardedText &operator=(const GuardedText &) = delete;
  const char *c_str() const { return text_; }

 private:
  char *base_ = nullptr;
  char *text_ = nullptr;
  size_t pages_ = 0;
};

TEST(HostileInput, OverReadCaseIsRefusedWithoutReadingPastItsEnd) {
  GuardedText text(read_file("data/markup/mxml-overread.ssml"));
  ASSERT_NE(text.c_str(), nullptr);
  Utt utt;
  EXPECT_EQ(utt_load_ssml(utt.u, text.c_str()), 0);
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
    GuardedText text(c);
    Utt utt;
    EXPECT_EQ(utt_load_ssml(utt.u, text.c_str()), 0) << c;
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
    GuardedText text(whole.substr(0, cut));
    Utt utt;
    const int loaded = utt_load_ssml(utt.u, text.c_str());
    if (cut <= speak) {
      EXPECT_EQ(loaded, 0) << cut;
    }
  }
  GuardedText text(whole);
  Utt utt;
  EXPECT_EQ(utt_load_ssml(utt.u, text.c_str()), 1);
}

}  // namespace

// sentence_wrap.cpp - the AddTag callbacks that make sentence elements.
#include "utts/sentence_wrap.h"

#include "ssml_io.h"
#include "ssml_tags.h"

namespace utts {
namespace {

bool is_blank(const std::u16string &text) {
  for (char16_t c : text)
    if (c != u' ' && c != u'\t' && c != u'\r' && c != u'\n' && c != u'\u3000') return false;
  return true;
}

// A new sentence element standing right before `at`, or right after `after`.
item *new_sentence_before(item *at, int *made) {
  item *s = item_prepend(at, nullptr);
  if (s != nullptr) {
    item_set_wstring(s, "tag", SentenceTagName());
    ++*made;
  }
  return s;
}

item *new_sentence_after(item *after, int *made) {
  item *s = item_append(after, nullptr);
  if (s != nullptr) {
    item_set_wstring(s, "tag", SentenceTagName());
    ++*made;
  }
  return s;
}

void add_text(item *sentence, const std::u16string &text) {
  if (item *t = item_add_daughter(sentence, nullptr); t != nullptr)
    item_set_wstring(t, "text", text.c_str());
}

// The text is cut into pieces that each end a sentence but the last; each
// piece goes to the current sentence, a new one after it for the next. The
// original item is always replaced (a result other than the item deletes
// it). The result is the sentence that later content may join: none when
// the text ended a sentence.
item *wrap_text(item *text_item, item *wrapper, void *data) {
  int *made = static_cast<int *>(data);
  const bsr_wchar *own = item_feat_wstring(text_item, "text");
  const std::u16string text = own != nullptr ? own : u"";
  size_t start = 0;
  for (size_t k = 0; k <= text.size(); ++k) {
    const bool end_of_text = k == text.size();
    if (!end_of_text && !ends_sentence(text[k], k + 1 < text.size() ? text[k + 1] : 0)) continue;
    const std::u16string piece = text.substr(start, end_of_text ? k - start : k + 1 - start);
    start = k + 1;
    if (is_blank(piece)) continue;
    if (wrapper == nullptr) wrapper = new_sentence_before(text_item, made);
    if (wrapper == nullptr) return nullptr;
    add_text(wrapper, piece);
    if (!end_of_text) {
      // The sentence is complete; what follows opens another one.
      item *next = new_sentence_after(wrapper, made);
      if (next == nullptr) return nullptr;
      wrapper = next;
    }
  }
  // A sentence opened for text that turned out blank stays empty: drop it.
  if (wrapper != nullptr && item_daughter(wrapper) == nullptr) {
    delete_item(wrapper);
    --*made;
    return nullptr;
  }
  return wrapper;
}

// Inline elements (say-as, sub, break, prosody ...) join the current
// sentence, or open one.
item *wrap_element(item *element, item *wrapper, void *data) {
  if (wrapper == nullptr) wrapper = new_sentence_before(element, static_cast<int *>(data));
  if (wrapper == nullptr) return nullptr;
  move_tree(wrapper, element);
  return wrapper;
}

}  // namespace

bool ends_sentence(char16_t unit, char16_t next) {
  switch (unit) {
    case u'\u3002':  // 。
    case u'\uFF01':  // ！
    case u'\uFF1F':  // ？
    case u'\uFF1B':  // ；
    case u'!':
    case u'?':
    case u';':
      return true;
    case u'.':
      return next == 0 || next == u' ' || next == u'\n' || next == u'\t' || next == u'\r';
    default:
      return false;
  }
}

int wrap_sentences(item *root) {
  int made = 0;
  AddTag(root, SentenceTagName(), SentenceChildTag(), SentenceParentTag(), wrap_text, wrap_element,
         &made);
  return made;
}

}  // namespace utts

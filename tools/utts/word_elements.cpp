// word_elements.cpp - word elements from the text of the sentences.
#include "utts/word_elements.h"

#include <vector>

#include "ssml_tags.h"
#include "utt_walk.h"
#include "utts/mandarin_pronunciation.h"
#include "utts/sentence_wrap.h"

namespace utts {
namespace {

using mandarin::RunKind;
using mandarin::TextRun;

// Marks that are read as a pause inside a sentence.
bool is_pause_mark(char16_t c) {
  switch (c) {
    case u',':
    case u':':
    case u'\uFF0C':  // ，
    case u'\u3001':  // 、
    case u'\uFF1A':  // ：
    case u'\u2014':  // —
    case u'\u2026':  // …
      return true;
    default:
      return false;
  }
}

bool language_is_english(const std::u16string &lang) {
  return lang.size() >= 2 && (lang[0] == u'e' || lang[0] == u'E') &&
         (lang[1] == u'n' || lang[1] == u'N') && (lang.size() == 2 || lang[2] == u'-');
}

class WordMaker {
 public:
  WordMaker(utterance *u, NLPDIC *dict, const std::u16string &lang)
      : words_(utt_relation_create(u, "_Word_")),
        dict_(dict),
        foreign_letters_(!language_is_english(lang)) {}

  int made() const { return made_; }

  // Replaces `text_item` by the words of its text.
  void split(item *text_item) {
    const bsr_wchar *own = item_feat_wstring(text_item, "text");
    const std::u16string text = own != nullptr ? own : u"";
    TextRun run{};
    for (size_t at = 0; mandarin::next_run(text.c_str(), text.size(), at, run); at = run.end) {
      const std::u16string piece = text.substr(run.begin, run.end - run.begin);
      if (run.kind == RunKind::kHan) {
        add_segmented(text_item, piece);
      } else if (run.kind == RunKind::kLatin || run.kind == RunKind::kDigits) {
        add_token(text_item, piece, run.kind == RunKind::kLatin && foreign_letters_);
      } else {
        mark_punctuation(piece);
      }
    }
    delete_item(text_item);
  }

 private:
  item *add_word(item *before, const std::u16string &word, int32_t pos) {
    item *w = item_prepend(before, nullptr);
    if (w == nullptr) return nullptr;
    item_set_wstring(w, "tag", WordTagName());
    item_set_wstring(w, "name", word.c_str());
    item_set_int(w, "pos", pos);
    item_set_int(w, "name_Len", static_cast<int32_t>(word.size()));
    if (item *t = item_add_daughter(w, nullptr); t != nullptr)
      item_set_wstring(t, "text", word.c_str());
    relation_append(words_, w);
    last_ = w;
    ++made_;
    return w;
  }

  void add_segmented(item *before, const std::u16string &run) {
    NLPDIC_Node *head = NLPDIC_DictBreak(dict_, run.c_str(), 1);
    if (head == nullptr) {  // no dictionary or no memory: the run as one word
      add_word(before, run, NLPDIC_GetDefaultID(dict_));
      return;
    }
    for (NLPDIC_Node *n = head->Link; n != nullptr && n->ClassId != -1; n = n->Link)
      add_word(before, std::u16string(n->Word, static_cast<size_t>(n->Length)), n->ClassId);
    NLPDIC_DeleNode(head);
  }

  // A run of letters or digits is one word; the dictionary gives its class.
  void add_token(item *before, const std::u16string &token, bool other_language) {
    int32_t pos = NLPDIC_GetDefaultID(dict_);
    if (NLPDIC_Node *head = NLPDIC_DictBreak(dict_, token.c_str(), 0); head != nullptr) {
      if (head->Link != nullptr && head->Link->ClassId != -1) pos = head->Link->ClassId;
      NLPDIC_DeleNode(head);
    }
    item *w = add_word(before, token, pos);
    if (w != nullptr && other_language) item_set_wstring(w, "xml:lang", u"en-US");
  }

  // Blanks, hyphens, quotes, brackets and the like only separate words; a
  // pause mark (comma, colon, dash, ellipsis, a sentence end) ends the
  // phrase of the word before it (nothing when no word came first).
  void mark_punctuation(const std::u16string &marks) {
    bool pause = false;
    bool sentence_end = false;
    for (size_t k = 0; k < marks.size(); ++k) {
      if (ends_sentence(marks[k], k + 1 < marks.size() ? marks[k + 1] : 0)) sentence_end = true;
      if (sentence_end || is_pause_mark(marks[k])) pause = true;
    }
    if (!pause || last_ == nullptr) return;
    item_set_int(last_, "break", -1);
    item_set_wstring(last_, "delay", sentence_end ? u"long" : u"short");
  }

  relation *words_;
  NLPDIC *dict_;
  bool foreign_letters_;
  item *last_ = nullptr;
  int made_ = 0;
};

// A sub element's alias is what is said: it replaces the element's content.
void speak_aliases(item *root) {
  const bsr_wchar *sub = SubTagName();
  for (item *s = utt_walk_next_tag(root, root, 1, sub); s != nullptr;
       s = utt_walk_next_tag(s, root, 1, sub)) {
    const bsr_wchar *alias = item_feat_wstring(s, "alias");
    if (alias == nullptr) continue;
    const std::u16string said = alias;
    for (item *d = item_daughter(s); d != nullptr; d = item_daughter(s)) delete_item(d);
    if (item *t = item_add_daughter(s, nullptr); t != nullptr)
      item_set_wstring(t, "text", said.c_str());
  }
}

}  // namespace

int make_word_elements(utterance *u, item *root, NLPDIC *dict, const std::u16string &lang) {
  speak_aliases(root);
  std::vector<item *> texts;
  for (item *i = utt_walk_next(root, root, 1); i != nullptr; i = utt_walk_next(i, root, 1))
    if (!item_feat_present(i, "tag") && item_feat_present(i, "text")) texts.push_back(i);
  WordMaker maker(u, dict, lang);
  for (item *t : texts) maker.split(t);
  return maker.made();
}

}  // namespace utts

// tag_schema.cpp - the constant SSML tag schema: one row per element that
// the front end knows, and the exported accessors that hand its strings out.
#include "ssml_tags.h"

#include "Utils/Markup/tag_list.h"

namespace {

// An element's name, the tags that may enclose it and the tags it may
// enclose. Lists keep a space at both ends (see ssml_tags.h); a null list
// means the element has no list of that kind.
struct TagRow {
  const bsr_wchar *name;
  const bsr_wchar *parents;
  const bsr_wchar *children;
};

// Enclosers shared by most inline elements.
constexpr bsr_wchar kInlineParents[] = u" audio emphasis lang lookup p prosody s speak voice ";

constexpr TagRow kPara = {
    u"p", u" audio lang lookup prosody speak voice ",
    u" audio break emphasis lang lookup mark phoneme prosody say-as sub s token voice w word "};
constexpr TagRow kSentence = {
    u"s", u" audio lang lookup p prosody speak voice ",
    u" audio break emphasis lang lookup mark phoneme prosody say-as sub token voice w word "};
constexpr TagRow kToken = {u"token", kInlineParents,
                           u" audio break emphasis mark phoneme say-as sub word "};
constexpr TagRow kWord = {u"word", kInlineParents,
                          u" audio break emphasis mark phoneme prosody say-as sub "};
constexpr TagRow kLang = {
    u"lang", kInlineParents,
    u" audio break emphasis lang lookup mark p phoneme prosody say-as sub s token voice w "};
constexpr TagRow kBreak = {u"break", kInlineParents, u""};
constexpr TagRow kMark = {u"mark", kInlineParents, nullptr};

constexpr TagRow kSub = {u"sub", nullptr, nullptr};
constexpr TagRow kPhoneme = {u"phoneme", nullptr, nullptr};
constexpr TagRow kSayAs = {u"say-as", nullptr, nullptr};
constexpr TagRow kSyllable = {u"syllable", nullptr, nullptr};
constexpr TagRow kPhone = {u"phone", nullptr, nullptr};
constexpr TagRow kProsody = {u"prosody", nullptr, nullptr};
constexpr TagRow kVoice = {u"voice", nullptr, nullptr};

}  // namespace

namespace utils::markup {

const bsr_wchar *mark_tag_name() { return kMark.name; }
const bsr_wchar *mark_parent_tag() { return kMark.parents; }

}  // namespace utils::markup

extern "C" {

UTILS_API const bsr_wchar *ParaTagName(void) { return kPara.name; }
UTILS_API const bsr_wchar *ParaParentTag(void) { return kPara.parents; }
UTILS_API const bsr_wchar *ParaChildTag(void) { return kPara.children; }

UTILS_API const bsr_wchar *SentenceTagName(void) { return kSentence.name; }
UTILS_API const bsr_wchar *SentenceParentTag(void) { return kSentence.parents; }
UTILS_API const bsr_wchar *SentenceChildTag(void) { return kSentence.children; }

UTILS_API const bsr_wchar *TokenTagName(void) { return kToken.name; }
UTILS_API const bsr_wchar *TokenParentTag(void) { return kToken.parents; }
UTILS_API const bsr_wchar *TokenChildTag(void) { return kToken.children; }

UTILS_API const bsr_wchar *WordTagName(void) { return kWord.name; }
UTILS_API const bsr_wchar *WordParentTag(void) { return kWord.parents; }
UTILS_API const bsr_wchar *WordChildTag(void) { return kWord.children; }

UTILS_API const bsr_wchar *LangTagName(void) { return kLang.name; }
UTILS_API const bsr_wchar *LangParentTag(void) { return kLang.parents; }
UTILS_API const bsr_wchar *LangChildTag(void) { return kLang.children; }

UTILS_API const bsr_wchar *BreakTagName(void) { return kBreak.name; }
UTILS_API const bsr_wchar *BreakParentTag(void) { return kBreak.parents; }
UTILS_API const bsr_wchar *BreakChildTag(void) { return kBreak.children; }

UTILS_API const bsr_wchar *SubTagName(void) { return kSub.name; }
UTILS_API const bsr_wchar *PhonemeTagName(void) { return kPhoneme.name; }
UTILS_API const bsr_wchar *SayAsTagName(void) { return kSayAs.name; }
UTILS_API const bsr_wchar *SyllableTagName(void) { return kSyllable.name; }
UTILS_API const bsr_wchar *PhoneTagName(void) { return kPhone.name; }
UTILS_API const bsr_wchar *ProsodyTagName(void) { return kProsody.name; }
UTILS_API const bsr_wchar *VoiceTagName(void) { return kVoice.name; }

}  // extern "C"

// hierarchy_names.h - the relation and feature names that the prosodic
// hierarchy is built from and read by.
#ifndef UTILS_HIERARCHY_HIERARCHY_NAMES_H
#define UTILS_HIERARCHY_HIERARCHY_NAMES_H

namespace utils::hierarchy {

constexpr char kFocusPhrase[] = "focus_phrase";
constexpr char kPhrase[] = "Phrase";
constexpr char kPWord[] = "PWord";
constexpr char kWord[] = "Word";
constexpr char kSyllable[] = "Syllable";
constexpr char kPhone[] = "Phone";

constexpr char kFocusFeature[] = "focus";
constexpr char kLangFeature[] = "xml:lang";
constexpr char kNameFeature[] = "name";
constexpr char kToneFeature[] = "tone";
constexpr char kStressFeature[] = "stress";
constexpr char kBreakFeature[] = "break";
constexpr char kDelayFeature[] = "delay";
constexpr char kPhonePosFeature[] = "pho-pos";
constexpr char kPositionFW[] = "PositionFW";
constexpr char kPositionBW[] = "PositionBW";
constexpr char kVowelFeature[] = "vowel";
constexpr char kVoicedFeature[] = "voiced";

constexpr char16_t kPause[] = u"pau";

}  // namespace utils::hierarchy

#endif  // UTILS_HIERARCHY_HIERARCHY_NAMES_H

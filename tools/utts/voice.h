// voice.h - a voice for "utts generate": model sections that give the state
// durations and the parameter streams of phones, and the generation of
// parameter tracks from context labels through the trees and MLPG.
//
// A voice is a list of model sections (hts_model.h), read from one or more
// files, each file holding one section or several back to back. What a
// section holds is said by its stream value: the kind in the high 16 bits,
// a count in the low 16 bits. In every kind a tree's leaf L selects
// statistics row L - 1 (leaves count from 1), and a row is 256 16-bit values
// of which the first ones are used and the rest ignored:
//
//   0x1nnnn  durations. nnnn = S, the number of states of a phone. Tree 0
//            picks a row per phone; mean values 0 .. S-1 of the row are the
//            durations of the phone's states in milliseconds. Inverse
//            variances are not read (the section may have none).
//   0x2nnnn  a parameter stream (spectrum, say) of D = nnnn static
//            dimensions. One tree per state (S trees), tree k picking the
//            row of state k. A mean row holds W x D values, window-major as
//            a PStream frame (value w x D + m: window w, dimension m), in
//            units of 1 / window_value (window_value 1000: the values are
//            thousandths). The inverse-variance row holds the same layout
//            in any unit common to the whole section: MLPG only depends on
//            their ratios, so they are handed to the stream unscaled.
//   0x3nnnn  log F0: a stream as above (normally D = 1) whose mean value
//            W x D is the state's voicing probability in thousandths; a state
//            is voiced when it is 500 or more. Unvoiced frames get no
//            statistics (inverse variances 0), so that MLPG bridges them
//            instead of pulling the contour towards 0, and are written out
//            as kUnvoiced.
//
// A voice needs one duration section and at least one stream. The per-tree
// values (the states' numbers by custom) are not read.
//
// States last whole frames of 5 ms, at least one each. The rounding error of
// each state is carried into the next, so that a phone sequence keeps its
// total length: a state of d ms gets round(d / 5 + carry) frames (at least
// 1), and carry becomes d / 5 + carry - frames.
#ifndef UTILS_UTTS_VOICE_H
#define UTILS_UTTS_VOICE_H

#include <cstdint>
#include <string>
#include <vector>

#include "hts_model.h"
#include "utt_val.h"

namespace utts {

// Milliseconds per frame.
constexpr double kFrameMs = 5.0;
// The log F0 written for an unvoiced frame (the log of zero by convention).
constexpr float kUnvoiced = -1.0e10f;

enum class SectionKind { kDuration = 1, kStream = 2, kLogF0 = 3 };

// The label-field table that labels are read with: per field the feature
// path, the prefix and the suffix.
struct LabelTable {
  std::vector<std::string> names, prefixes, suffixes;
  int count() const { return static_cast<int>(names.size()); }
  // Splits `label` into one value per field: a value runs from its field's
  // prefix to its suffix, or, when the suffix is empty, to the next field's
  // prefix. False with a reason in `error` when the label does not fit.
  bool split(const std::string &label, std::vector<std::string> &values, std::string &error) const;
};

// The generated tracks: `columns` values per frame, frame-major.
struct Tracks {
  int frames = 0;
  std::vector<std::string> columns;  // "lf0", "c0", "c1", ...
  std::vector<bool> log_f0;          // per column: a log F0 column
  std::vector<float> values;         // frames x columns
  // Per label: its first frame, its frame count and its phone name (the
  // value of the label field whose path is "name", or "").
  struct Phone {
    int start, frames;
    std::string name;
  };
  std::vector<Phone> phones;
  float at(int frame, int column) const {
    return values[static_cast<size_t>(frame) * columns.size() + column];
  }
};

class Voice {
 public:
  Voice() = default;
  ~Voice();
  Voice(const Voice &) = delete;
  Voice &operator=(const Voice &) = delete;

  // Adds the sections of the image in `bytes`, read from `file` (the name
  // is only used in messages). Every section is checked with
  // HTSModel_Check first. False with a one-line reason on failure.
  bool add_image(const std::string &file, const std::string &bytes, std::string &error);

  // Ties the sections together once all are added: one duration section,
  // at least one stream, the trees of every stream one per state, rows in
  // reach of the windows, and every label field the trees ask about found
  // in `labels` by its feature path. `labels` is copied.
  bool finish(const LabelTable &labels, std::string &error);

  // The label fields of the first section, as a table (for labels written
  // with the model's own fields).
  LabelTable first_section_fields() const;

  // Generates the tracks of one utterance from its labels (one per phone).
  // False with a reason naming the label on failure.
  bool generate(const std::vector<std::string> &labels, Tracks &out, std::string &error);

  int sections() const { return static_cast<int>(sections_.size()); }

  // The most frames an utterance may have (default 1 << 24, 23 hours):
  // durations of 32 s a state times many labels would otherwise ask for
  // gigabytes before anything is generated.
  void set_max_frames(int frames) { max_frames_ = frames; }

 private:
  struct Section {
    HTSModel *model = nullptr;
    SectionKind kind = SectionKind::kStream;
    int count = 0;       // states (durations) or static dimensions
    float scale = 1.0f;  // units per 1.0 of the means
    int half_width = 0;  // the largest window offset
    std::string origin;  // "FILE section N" for messages
  };
  bool add_section(const std::string &origin, const uint32_t *at, size_t size, int &consumed,
                   std::string &error);
  bool leaf_row(const Section &s, int tree, item *i, int label, int &row, std::string &error) const;

  std::vector<std::vector<uint32_t>> images_;  // 4-aligned copies the models point into
  std::vector<Section> sections_;
  LabelTable labels_;
  std::vector<std::string> keys_;  // per label field: the item feature holding its value
  std::vector<std::vector<const char *>> tree_names_;  // per section: keys of its fields
  std::vector<bool> used_;                             // per label field: asked about
  int name_field_ = -1;                                // the label field of path "name"
  int states_ = 0;
  int max_frames_ = 1 << 24;
};

}  // namespace utts

#endif  // UTILS_UTTS_VOICE_H

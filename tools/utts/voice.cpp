// voice.cpp - reading a voice's model sections, and generating parameter
// tracks from context labels: tree lookups, state durations, parameter
// streams and MLPG.
#include "utts/voice.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "bsr_unicode.h"
#include "dtree.h"
#include "hts_pstream.h"
#include "utterance.h"

namespace utts {

namespace {

const char *kind_name(SectionKind kind) {
  switch (kind) {
    case SectionKind::kDuration:
      return "duration";
    case SectionKind::kLogF0:
      return "log F0";
    default:
      return "stream";
  }
}

// Releases a PStream at the end of a scope.
struct StreamGuard {
  PStream *ps;
  ~StreamGuard() { PStream_Destroy(ps); }
};

}  // namespace

bool LabelTable::split(const std::string &label, std::vector<std::string> &values,
                       std::string &error) const {
  values.clear();
  size_t at = 0;
  const int n = count();
  for (int j = 0; j < n; ++j) {
    const std::string &prefix = prefixes[j], &suffix = suffixes[j];
    if (label.compare(at, prefix.size(), prefix) != 0) {
      error = "field " + std::to_string(j + 1) + ": \"" + prefix + "\" expected at column " +
              std::to_string(at + 1);
      return false;
    }
    at += prefix.size();
    size_t end;
    if (j == n - 1) {
      end = label.size() >= suffix.size() ? label.size() - suffix.size() : std::string::npos;
      if (end == std::string::npos || end < at || label.compare(end, suffix.size(), suffix) != 0) {
        error = "the label does not end with \"" + suffix + "\"";
        return false;
      }
    } else {
      const std::string &delimiter = !suffix.empty() ? suffix : prefixes[j + 1];
      if (delimiter.empty()) {
        error = "field " + std::to_string(j + 1) +
                " has no suffix and the next no prefix: its end cannot be found";
        return false;
      }
      end = label.find(delimiter, at);
      if (end == std::string::npos) {
        error = "field " + std::to_string(j + 1) + ": \"" + delimiter + "\" not found";
        return false;
      }
    }
    values.push_back(label.substr(at, end - at));
    at = end + suffix.size();
  }
  return true;
}

Voice::~Voice() {
  for (Section &s : sections_) HTSModel_Destroy(s.model);
}

bool Voice::add_image(const std::string &file, const std::string &bytes, std::string &error) {
  if (bytes.empty()) {
    error = file + ": empty, no model section in it";
    return false;
  }
  // The models point into the image and read its windows as int and float:
  // a copy in 32-bit words is 4-aligned wherever the file's bytes were.
  images_.emplace_back((bytes.size() + 3) / 4, 0u);
  std::vector<uint32_t> &image = images_.back();
  std::memcpy(image.data(), bytes.data(), bytes.size());
  size_t offset = 0;
  for (int n = 1; offset < bytes.size(); ++n) {
    const std::string origin = file + " section " + std::to_string(n);
    int consumed = 0;
    if (!add_section(origin, image.data() + offset / 4, bytes.size() - offset, consumed, error)) {
      if (error.empty())
        error = file + ": section " + std::to_string(n) + " at byte " + std::to_string(offset) +
                " is not a sound model section";
      return false;
    }
    offset += static_cast<size_t>(consumed);
  }
  return true;
}

bool Voice::add_section(const std::string &origin, const uint32_t *at, size_t size, int &consumed,
                        std::string &error) {
  if (const size_t fault = HTSModel_Check(at, size); fault != 0) {
    error = origin + ": not a sound model section (fault at byte " + std::to_string(fault) +
            " of the section)";
    return false;
  }
  Section s;
  s.origin = origin;
  s.model = HTSModel_Create(at, &consumed);
  if (s.model == nullptr || consumed <= 0) {
    HTSModel_Destroy(s.model);
    error = origin + ": out of memory";
    return false;
  }
  sections_.push_back(s);
  Section &added = sections_.back();
  const HTSModel *m = added.model;
  const uint32_t kind = m->stream_value >> 16;
  added.count = static_cast<int>(m->stream_value & 0xffff);
  if (kind < 1 || kind > 3) {
    error = origin + ": stream value 0x" + [&] {
      char hex[16];
      std::snprintf(hex, sizeof hex, "%x", m->stream_value);
      return std::string(hex);
    }() + " names no kind of section (0x1nnnn durations, 0x2nnnn a stream, 0x3nnnn log F0)";
    return false;
  }
  added.kind = static_cast<SectionKind>(kind);
  if (added.count < 1) {
    error = origin + ": the stream value's count (low 16 bits) is 0";
    return false;
  }
  if (m->mean_rows == nullptr || m->num_rows == 0) {
    error = origin + ": the section has no statistics rows";
    return false;
  }
  if (m->num_trees < 1) {
    error = origin + ": the section has no trees";
    return false;
  }
  if (added.kind == SectionKind::kDuration) {
    if (added.count > HTS_MODEL_ROW_VALUES) {
      error = origin + ": more states than a row holds";
      return false;
    }
    return true;
  }
  if (m->num_windows < 1) {
    error = origin + ": a " + kind_name(added.kind) + " section needs at least one window";
    return false;
  }
  if (m->has_ivar == 0) {
    error = origin + ": a " + kind_name(added.kind) + " section needs inverse variances";
    return false;
  }
  if (m->window_value == 0) {
    error = origin + ": the window value (units per 1.0 of the means) is 0";
    return false;
  }
  added.scale = static_cast<float>(m->window_value);
  const int used = m->num_windows * added.count + (added.kind == SectionKind::kLogF0 ? 1 : 0);
  if (used > HTS_MODEL_ROW_VALUES) {
    error = origin + ": " + std::to_string(m->num_windows) + " windows of " +
            std::to_string(added.count) + " dimensions do not fit a row of " +
            std::to_string(HTS_MODEL_ROW_VALUES) + " values";
    return false;
  }
  for (int w = 0; w < m->num_windows; ++w)
    added.half_width = std::max({added.half_width, -m->win_l_width[w], m->win_r_width[w]});
  return true;
}

bool Voice::finish(const LabelTable &labels, std::string &error) {
  labels_ = labels;
  int durations = 0, streams = 0;
  for (const Section &s : sections_) {
    if (s.kind == SectionKind::kDuration) {
      ++durations;
      states_ = s.count;
    } else {
      ++streams;
    }
  }
  if (durations != 1) {
    error = durations == 0 ? "the voice has no duration section (stream value 0x1nnnn)"
                           : "the voice has more than one duration section";
    return false;
  }
  if (streams == 0) {
    error = "the voice has no parameter stream (stream value 0x2nnnn or 0x3nnnn)";
    return false;
  }
  for (const Section &s : sections_) {
    if (s.kind != SectionKind::kDuration && s.model->num_trees != states_) {
      error = s.origin + ": " + std::to_string(s.model->num_trees) +
              " trees, but the durations give phones " + std::to_string(states_) +
              " states (one tree per state)";
      return false;
    }
  }
  keys_.clear();
  used_.assign(labels_.count(), false);
  name_field_ = -1;
  for (int j = 0; j < labels_.count(); ++j) {
    keys_.push_back("f" + std::to_string(j));
    if (labels_.names[j] == "name" && name_field_ < 0) name_field_ = j;
  }
  // The trees read each field's value from an item feature that the labels
  // fill in, found by the field's feature path in the label table.
  tree_names_.assign(sections_.size(), {});
  for (size_t i = 0; i < sections_.size(); ++i) {
    const HTSModel *m = sections_[i].model;
    for (int f = 0; f < m->num_features; ++f) {
      const std::string path = m->feature_names[f];
      if (path == "0") {
        tree_names_[i].push_back("0");
        continue;
      }
      const auto found = std::find(labels_.names.begin(), labels_.names.end(), path);
      if (found == labels_.names.end()) {
        error = sections_[i].origin + ": the trees read the feature \"" + path +
                "\", which the labels do not carry";
        return false;
      }
      const size_t j = static_cast<size_t>(found - labels_.names.begin());
      used_[j] = true;
      tree_names_[i].push_back(keys_[j].c_str());
    }
    sections_[i].model->trees->FeatureNames = tree_names_[i].data();
  }
  return true;
}

LabelTable Voice::first_section_fields() const {
  LabelTable t;
  if (sections_.empty()) return t;
  const HTSModel *m = sections_.front().model;
  for (int f = 0; f < m->num_features; ++f) {
    t.names.push_back(m->feature_names[f]);
    t.prefixes.push_back(m->feature_prefixes[f]);
    t.suffixes.push_back(m->feature_suffixes[f]);
  }
  return t;
}

bool Voice::leaf_row(const Section &s, int tree, item *i, int label, int &row,
                     std::string &error) const {
  const int leaf = DTree_Lookup(s.model->trees, tree, i);
  if (leaf < 1 || static_cast<uint32_t>(leaf) > s.model->num_rows) {
    error = "label " + std::to_string(label) + ": tree " + std::to_string(tree) + " of " +
            s.origin + " gives leaf " + std::to_string(leaf) + ", but the section has " +
            std::to_string(s.model->num_rows) + " rows";
    return false;
  }
  row = leaf - 1;
  return true;
}

bool Voice::generate(const std::vector<std::string> &labels, Tracks &out, std::string &error) {
  out = Tracks();
  if (labels.empty()) {
    error = "no labels to generate from";
    return false;
  }
  const int phones = static_cast<int>(labels.size());
  const size_t sections = sections_.size();
  // rows[(label * sections + section) * states + state]; durations in frames
  // per label and state.
  std::vector<int> rows(static_cast<size_t>(phones) * sections * states_, 0);
  std::vector<int> frames(static_cast<size_t>(phones) * states_, 0);

  utterance *u = new_utterance();
  if (u == nullptr) {
    error = "out of memory";
    return false;
  }
  struct UttGuard {
    utterance *u;
    ~UttGuard() { delete_utterance(u); }
  } utt_guard{u};
  relation *r = utt_relation_create(u, "Label");
  std::vector<std::string> values;
  std::u16string wide;
  double carry = 0.0;
  int total = 0;
  for (int p = 0; p < phones; ++p) {
    if (!labels_.split(labels[p], values, error)) {
      error = "label " + std::to_string(p + 1) + ": " + error;
      return false;
    }
    item *i = relation_append(r, nullptr);
    if (i == nullptr) {
      error = "out of memory";
      return false;
    }
    for (int j = 0; j < labels_.count(); ++j) {
      if (!used_[j]) continue;
      wide.assign(values[j].size() + 1, u'\0');
      bsr_UTF8ToUTF16(values[j].c_str(), static_cast<uint32_t>(values[j].size()),
                      reinterpret_cast<bsr_wchar *>(&wide[0]), static_cast<uint32_t>(wide.size()));
      item_set_wstring(i, keys_[j].c_str(), reinterpret_cast<const bsr_wchar *>(wide.c_str()));
    }
    const int start = total;
    for (size_t k = 0; k < sections; ++k) {
      const Section &s = sections_[k];
      int *at = &rows[(static_cast<size_t>(p) * sections + k) * states_];
      if (s.kind == SectionKind::kDuration) {
        int row;
        if (!leaf_row(s, 0, i, p + 1, row, error)) {
          delete_item(i);
          return false;
        }
        const int16_t *mean = s.model->mean_rows[row];
        for (int st = 0; st < states_; ++st) {
          const double exact = std::max<int16_t>(mean[st], 0) / kFrameMs + carry;
          int n = static_cast<int>(std::floor(exact + 0.5));
          if (n < 1) n = 1;
          carry = exact - n;
          frames[static_cast<size_t>(p) * states_ + st] = n;
          total += n;
        }
        if (total > max_frames_) {
          delete_item(i);
          error = "label " + std::to_string(p + 1) + ": the utterance passes " +
                  std::to_string(max_frames_) + " frames";
          return false;
        }
      } else {
        for (int st = 0; st < states_; ++st)
          if (!leaf_row(s, st, i, p + 1, at[st], error)) {
            delete_item(i);
            return false;
          }
      }
    }
    delete_item(i);
    out.phones.push_back({start, total - start, name_field_ >= 0 ? values[name_field_] : ""});
  }
  out.frames = total;

  // Columns: each stream's static dimensions, in section order.
  std::vector<int> first_column(sections, 0);
  int log_f0_sections = 0, other_sections = 0;
  for (const Section &s : sections_) {
    if (s.kind == SectionKind::kLogF0) ++log_f0_sections;
    if (s.kind == SectionKind::kStream) ++other_sections;
  }
  int number = 0;
  for (size_t k = 0; k < sections; ++k) {
    const Section &s = sections_[k];
    if (s.kind == SectionKind::kDuration) continue;
    ++number;
    first_column[k] = static_cast<int>(out.columns.size());
    const bool several = s.kind == SectionKind::kLogF0 ? log_f0_sections > 1 : other_sections > 1;
    const std::string stem = several ? "s" + std::to_string(number) + "." : "";
    for (int m = 0; m < s.count; ++m) {
      if (s.kind == SectionKind::kLogF0)
        out.columns.push_back(stem + "lf0" + (s.count > 1 ? std::to_string(m) : ""));
      else
        out.columns.push_back(stem + "c" + std::to_string(m));
      out.log_f0.push_back(s.kind == SectionKind::kLogF0);
    }
  }
  const size_t width = out.columns.size();
  out.values.assign(static_cast<size_t>(total) * width, 0.0f);

  std::vector<bool> voiced;
  for (size_t k = 0; k < sections; ++k) {
    const Section &s = sections_[k];
    if (s.kind == SectionKind::kDuration) continue;
    const HTSModel *m = s.model;
    const int size = m->num_windows * s.count;
    PStream *ps =
        PStream_Create(m->num_windows, m->win_l_width, m->win_r_width,
                       const_cast<float **>(m->win_coefficient), size, s.half_width, total);
    if (ps == nullptr) {
      error = "out of memory";
      return false;
    }
    StreamGuard guard{ps};
    voiced.assign(total, true);
    int t = 0;
    for (int p = 0; p < phones; ++p) {
      const int *at = &rows[(static_cast<size_t>(p) * sections + k) * states_];
      for (int st = 0; st < states_; ++st) {
        const int16_t *mean = m->mean_rows[at[st]];
        const uint16_t *ivar = m->ivar_rows[at[st]];
        const bool voice = s.kind != SectionKind::kLogF0 || mean[size] >= 500;
        for (int n = frames[static_cast<size_t>(p) * states_ + st]; n > 0; --n, ++t) {
          voiced[t] = voice;
          // Unvoiced frames keep the stream's zeros: no statistics.
          if (!voice) continue;
          std::memcpy(ps->mean[t], mean, sizeof(int16_t) * size);
          std::memcpy(ps->ivar[t], ivar, sizeof(uint16_t) * size);
        }
      }
    }
    // A window that reaches past either end of the utterance has no frames to
    // difference there: its statistics at those frames are dropped, or MLPG
    // would read the missing neighbours as 0 and bend the track's ends.
    for (int w = 0; w < m->num_windows; ++w) {
      for (int f = 0; f < total; ++f) {
        if (f + m->win_l_width[w] >= 0 && f + m->win_r_width[w] < total) continue;
        std::fill(ps->ivar[f] + w * s.count, ps->ivar[f] + (w + 1) * s.count, uint16_t{0});
      }
    }
    for (int dim = 0; dim < s.count; ++dim) {
      // A frame whose substituted value comes out exactly 0 (a mean of 0, as
      // a silence's higher dimensions often are) keeps what par held: start
      // every dimension from zeros, not from the previous one's track.
      std::fill(ps->par, ps->par + total, 0.0f);
      HTS_PStream_mlpg(ps, dim);
      const size_t column = static_cast<size_t>(first_column[k] + dim);
      for (int f = 0; f < total; ++f)
        out.values[static_cast<size_t>(f) * width + column] =
            voiced[f] ? ps->par[f] / s.scale : kUnvoiced;
    }
  }
  return true;
}

}  // namespace utts

// fuzz_generate.cpp - fuzzes generation in the front end ("utts generate",
// its voice code compiled in): a voice image and labels from the input, read
// with the first section's own label fields. Whatever the bytes, reading the
// voice and generating either fail with a reason or give tracks whose shape
// adds up: a value per frame and column, the phones' frames summing to the
// frames.
//
// Input: a 16-bit little-endian image size N, N bytes of model sections,
// then the labels, one a line.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "utts/voice.h"

namespace {

void check(bool ok) {
  if (!ok) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  if (size < 2) return 0;
  const size_t n = data[0] | (static_cast<size_t>(data[1]) << 8);
  if (size - 2 < n) return 0;
  const std::string image(reinterpret_cast<const char *>(data) + 2, n);
  const std::string text(reinterpret_cast<const char *>(data) + 2 + n, size - 2 - n);
  utts::Voice voice;
  // Frames cost a few hundred bytes each: keep utterances small.
  voice.set_max_frames(20000);
  std::string error;
  if (!voice.add_image("fuzz", image, error)) {
    check(!error.empty());
    return 0;
  }
  if (!voice.finish(voice.first_section_fields(), error)) {
    check(!error.empty());
    return 0;
  }
  std::vector<std::string> labels;
  size_t start = 0;
  while (start < text.size() && labels.size() < 64) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    if (end > start) labels.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  utts::Tracks tracks;
  if (!voice.generate(labels, tracks, error)) {
    check(!error.empty());
    return 0;
  }
  check(tracks.values.size() == static_cast<size_t>(tracks.frames) * tracks.columns.size());
  check(tracks.phones.size() == labels.size());
  int sum = 0;
  for (const utts::Tracks::Phone &p : tracks.phones) {
    check(p.start == sum);
    check(p.frames >= 1);
    sum += p.frames;
  }
  check(sum == tracks.frames);
  return 0;
}

// image_writer.h - tree images and model sections written into a fixed
// buffer, so that the workloads make their images without allocating.
#ifndef UTILS_ALLOC_IMAGE_WRITER_H
#define UTILS_ALLOC_IMAGE_WRITER_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace alloc_test {

struct ImageWriter {
  unsigned char bytes[8192];
  size_t size = 0;
  void u32(uint32_t v) {
    for (int k = 0; k < 4; ++k) bytes[size++] = static_cast<unsigned char>(v >> 8 * k);
  }
  void i16(int16_t v) {
    bytes[size++] = static_cast<unsigned char>(static_cast<uint16_t>(v));
    bytes[size++] = static_cast<unsigned char>(static_cast<uint16_t>(v) >> 8);
  }
  void str(const char *s) {
    const size_t n = std::strlen(s) + 1;
    std::memcpy(bytes + size, s, n);
    size += n;
  }
  void pad(size_t origin = 0) {
    while ((size - origin) % 4 != 0) bytes[size++] = 0;
  }
  void node(int16_t id, int16_t question, int16_t no, int16_t yes) {
    i16(id);
    i16(question);
    i16(no);
    i16(yes);
  }
  // Two trees over the fields "[C]" (name) and "[L]" (previous name):
  //   tree 0: 0 "C is a" no -1 yes 1; -1 "L is a, marked" no 2 yes 3
  //   tree 1: 0 "C is m or n" no 4 yes 5
  void trees(size_t origin) {
    u32(2);
    const char *patterns[] = {"[C]a/", "*[L]a/*", "[C]m/", "[C]n/"};
    u32(4);
    for (const char *p : patterns) str(p);
    pad(origin);
    u32(3);
    i16(1);
    i16(0);
    i16(1);
    i16(1);
    i16(2);
    i16(2);
    i16(3);
    pad(origin);
    u32(16);
    node(0, 0, -1, 1);
    node(-1, 1, 2, 3);
    u32(8);
    node(0, 2, 4, 5);
  }
};

}  // namespace alloc_test

#endif  // UTILS_ALLOC_IMAGE_WRITER_H

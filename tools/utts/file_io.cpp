// file_io.cpp - file helpers of the front end (POSIX).
#include "utts/file_io.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace utts {

int fail(const std::string &message, int status) {
  std::fprintf(stderr, "utts: %s\n", message.c_str());
  return status;
}

namespace {

bool read_stream(std::FILE *in, std::string &text) {
  char buffer[1 << 16];
  size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, in)) > 0) text.append(buffer, n);
  return !std::ferror(in);
}

}  // namespace

bool read_all(const std::string &path, std::string &text, std::string &error) {
  text.clear();
  if (path == "-") {
    if (read_stream(stdin, text)) return true;
    error = "cannot read standard input: " + std::string(std::strerror(errno));
    return false;
  }
  std::FILE *in = std::fopen(path.c_str(), "rb");
  if (in == nullptr) {
    error = "cannot read '" + path + "': " + std::strerror(errno);
    return false;
  }
  bool ok = read_stream(in, text);
  if (!ok) error = "cannot read '" + path + "': " + std::strerror(errno);
  std::fclose(in);
  return ok;
}

bool write_all(const std::string &path, const std::string &bytes, std::string &error) {
  std::FILE *out = path == "-" ? stdout : std::fopen(path.c_str(), "wb");
  bool ok = out != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), out) == bytes.size();
  if (out != nullptr) ok = (out == stdout ? std::fflush(out) == 0 : std::fclose(out) == 0) && ok;
  if (!ok) error = "cannot write '" + path + "'";
  return ok;
}

bool copy_to_stdout(const std::string &from, std::string &error) {
  std::string text;
  if (!read_all(from, text, error)) return false;
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0) {
    error = "cannot write standard output: " + std::string(std::strerror(errno));
    return false;
  }
  return true;
}

std::string make_temp_file(std::string &error) {
  const char *dir = std::getenv("TMPDIR");
  std::string path = std::string(dir != nullptr && *dir ? dir : "/tmp") + "/utts-XXXXXX";
  int fd = mkstemp(&path[0]);
  if (fd < 0) {
    error = "cannot make a temporary file in '" + path.substr(0, path.rfind('/')) +
            "': " + std::strerror(errno);
    return std::string();
  }
  close(fd);
  return path;
}

QuietStderr::QuietStderr() : saved_(dup(2)) {
  std::fflush(stderr);
  int null = open("/dev/null", O_WRONLY);
  if (null >= 0) {
    dup2(null, 2);
    close(null);
  }
}

QuietStderr::~QuietStderr() {
  std::fflush(stderr);
  if (saved_ >= 0) {
    dup2(saved_, 2);
    close(saved_);
  }
}

}  // namespace utts

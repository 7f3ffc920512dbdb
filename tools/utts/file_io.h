// file_io.h - whole-file reading and writing for the front end, with "-"
// standing for standard input and output, and errors as one-line messages.
#ifndef UTILS_UTTS_FILE_IO_H
#define UTILS_UTTS_FILE_IO_H

#include <string>

namespace utts {

// Writes "utts: MESSAGE" and a line feed to standard error and returns
// `status`: the one-line error every command ends with.
int fail(const std::string &message, int status = 1);

// Reads all of `path` ("-": standard input) into `text`. On failure returns
// false with a reason in `error`.
bool read_all(const std::string &path, std::string &text, std::string &error);

// Writes `bytes` to `path` ("-": standard output). On failure returns false
// with "cannot write 'PATH'" in `error`.
bool write_all(const std::string &path, const std::string &bytes, std::string &error);

// Copies the file at `from` to standard output. False with a reason on failure.
bool copy_to_stdout(const std::string &from, std::string &error);

// A new empty temporary file's path, or "" on failure (reason in `error`).
std::string make_temp_file(std::string &error);

// Sends standard error to /dev/null while it lives (for libraries that print
// diagnostics of their own).
class QuietStderr {
 public:
  QuietStderr();
  ~QuietStderr();
  QuietStderr(const QuietStderr &) = delete;
  QuietStderr &operator=(const QuietStderr &) = delete;

 private:
  int saved_;
};

}  // namespace utts

#endif  // UTILS_UTTS_FILE_IO_H

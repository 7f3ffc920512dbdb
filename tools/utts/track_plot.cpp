// track_plot.cpp - parameter tracks drawn as a PNG by gnuplot.
#include "utts/track_plot.h"

#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "utts/file_io.h"

extern char **environ;

namespace utts {

namespace {

// A gnuplot single-quoted string: a quote inside is written twice.
std::string quoted(const std::string &s) {
  std::string out = "'";
  for (char c : s) {
    if (c == '\'') out += '\'';
    out += c;
  }
  return out + "'";
}

bool executable(const std::string &path) {
  struct stat st;
  return stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode) && access(path.c_str(), X_OK) == 0;
}

bool write_text(const std::string &path, const std::string &text, std::string &error) {
  std::FILE *f = std::fopen(path.c_str(), "wb");
  bool ok = f != nullptr && std::fwrite(text.data(), 1, text.size(), f) == text.size();
  if (f != nullptr) ok = std::fclose(f) == 0 && ok;
  if (!ok) error = "cannot write the temporary file '" + path + "'";
  return ok;
}

// The data file: time in seconds, then per column its value; F0 in Hz for
// log F0 columns, NaN where unvoiced (gnuplot breaks the line there).
std::string data_text(const Tracks &t) {
  std::string out;
  char buf[32];
  for (int f = 0; f < t.frames; ++f) {
    std::snprintf(buf, sizeof buf, "%.3f", f * kFrameMs / 1000.0);
    out += buf;
    for (size_t c = 0; c < t.columns.size(); ++c) {
      const float v = t.at(f, static_cast<int>(c));
      if (t.log_f0[c] && v <= kUnvoiced)
        std::snprintf(buf, sizeof buf, " NaN");
      else
        std::snprintf(buf, sizeof buf, " %.6g", t.log_f0[c] ? std::exp(v) : v);
      out += buf;
    }
    out += '\n';
  }
  return out;
}

std::string script_text(const Tracks &t, const std::string &data, const std::string &png) {
  bool has_f0 = false, has_other = false;
  for (bool b : t.log_f0) (b ? has_f0 : has_other) = true;
  const int panels = (has_f0 ? 1 : 0) + (has_other ? 1 : 0);
  std::string s;
  s += "set encoding utf8\n";
  s += "if (strstrt(GPVAL_TERMINALS, 'pngcairo') > 0) {\n"
       "  set terminal pngcairo size 1200," +
       std::to_string(300 * panels + 60) +
       " font ',9'\n"
       "} else {\n"
       "  set terminal png size 1200," +
       std::to_string(300 * panels + 60) + "\n}\n";
  s += "set output " + quoted(png) + "\n";
  s += "set xrange [0:" + std::to_string(t.frames * kFrameMs / 1000.0) + "]\n";
  s += "set grid ytics\nset key outside right top\n";
  // Phone boundaries on every panel, names above the first (when they fit).
  for (size_t p = 0; p < t.phones.size(); ++p) {
    const double x = t.phones[p].start * kFrameMs / 1000.0;
    if (p > 0)
      s += "set arrow from " + std::to_string(x) + ", graph 0 to " + std::to_string(x) +
           ", graph 1 nohead lc rgb '#c8c8c8' back\n";
  }
  s += "set multiplot layout " + std::to_string(panels) + ",1\n";
  bool first = true;
  auto names = [&]() {
    std::string out;
    if (t.phones.size() > 200) return out;
    for (size_t p = 0; p < t.phones.size(); ++p) {
      const double mid = (t.phones[p].start + t.phones[p].frames / 2.0) * kFrameMs / 1000.0;
      out += "set label " + std::to_string(p + 1) + " " + quoted(t.phones[p].name) + " at " +
             std::to_string(mid) + ", graph 1.04 center font ',8'\n";
    }
    return out;
  };
  auto clear_names = [&]() { return std::string(t.phones.size() > 200 ? "" : "unset label\n"); };
  if (has_f0) {
    s += names();
    first = false;
    s += "set title 'F0 (Hz), gaps where unvoiced' offset 0,1\nset ylabel 'Hz'\nplot ";
    bool comma = false;
    for (size_t c = 0; c < t.columns.size(); ++c) {
      if (!t.log_f0[c]) continue;
      s += std::string(comma ? ", " : "") + quoted(data) + " using 1:" + std::to_string(c + 2) +
           " with lines lw 2 title " + quoted(t.columns[c]);
      comma = true;
    }
    s += "\n" + clear_names();
  }
  if (has_other) {
    if (first) s += names();
    s += "set title 'Spectral parameters' offset 0,1\nset ylabel ''\nset xlabel 'time (s)'\nplot ";
    bool comma = false;
    for (size_t c = 0; c < t.columns.size(); ++c) {
      if (t.log_f0[c]) continue;
      s += std::string(comma ? ", " : "") + quoted(data) + " using 1:" + std::to_string(c + 2) +
           " with lines title " + quoted(t.columns[c]);
      comma = true;
    }
    s += "\n";
  }
  s += "unset multiplot\n";
  return s;
}

}  // namespace

std::string find_gnuplot() {
  if (const char *given = std::getenv("UTTS_GNUPLOT"); given != nullptr && given[0] != '\0')
    return executable(given) ? given : "";
  const char *path = std::getenv("PATH");
  if (path == nullptr) return "";
  const std::string dirs = path;
  size_t at = 0;
  while (at <= dirs.size()) {
    size_t end = dirs.find(':', at);
    if (end == std::string::npos) end = dirs.size();
    const std::string dir = end > at ? dirs.substr(at, end - at) : ".";
    const std::string candidate = dir + "/gnuplot";
    if (executable(candidate)) return candidate;
    at = end + 1;
  }
  return "";
}

bool plot_tracks(const Tracks &tracks, const std::string &gnuplot, const std::string &png,
                 std::string &error) {
  const std::string data = make_temp_file(error);
  if (data.empty()) return false;
  const std::string script = make_temp_file(error);
  if (script.empty()) {
    std::remove(data.c_str());
    return false;
  }
  bool ok = write_text(data, data_text(tracks), error) &&
            write_text(script, script_text(tracks, data, png), error);
  if (ok) {
    std::vector<char *> argv = {const_cast<char *>(gnuplot.c_str()),
                                const_cast<char *>(script.c_str()), nullptr};
    pid_t pid;
    int status = 0;
    if (posix_spawn(&pid, gnuplot.c_str(), nullptr, nullptr, argv.data(), environ) != 0) {
      error = "cannot run " + gnuplot;
      ok = false;
    } else if (waitpid(pid, &status, 0) != pid || !WIFEXITED(status) || WEXITSTATUS(status) != 0) {
      error = "gnuplot failed to draw '" + png + "'";
      ok = false;
    }
  }
  std::remove(data.c_str());
  std::remove(script.c_str());
  return ok;
}

}  // namespace utts

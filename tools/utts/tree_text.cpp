// tree_text.cpp - decision trees between their readable form and their
// image.
#include "utts/tree_text.h"

#include <cstring>
#include <map>
#include <set>

namespace utts {

void put_u32(std::string &out, uint32_t v) {
  for (int k = 0; k < 4; ++k) out += static_cast<char>(v >> 8 * k & 0xFF);
}

void put_i16(std::string &out, int16_t v) {
  const auto u = static_cast<uint16_t>(v);
  out += static_cast<char>(u & 0xFF);
  out += static_cast<char>(u >> 8);
}

void pad4(std::string &out, size_t origin) {
  while ((out.size() - origin) % 4 != 0) out += '\0';
}

namespace {

uint32_t get_u32(const unsigned char *p) {
  return static_cast<uint32_t>(p[0]) | static_cast<uint32_t>(p[1]) << 8 |
         static_cast<uint32_t>(p[2]) << 16 | static_cast<uint32_t>(p[3]) << 24;
}

int16_t get_i16(const unsigned char *p) {
  return static_cast<int16_t>(static_cast<uint16_t>(p[0] | p[1] << 8));
}

size_t padded(size_t n) { return (n + 3) & ~static_cast<size_t>(3); }

bool is_name(const std::string &word) {
  if (word.empty()) return false;
  for (const char c : word)
    if (c == '"' || c == '#' || static_cast<unsigned char>(c) <= ' ') return false;
  return true;
}

bool child(const std::string &word, int16_t &out) {
  long long v = 0;
  if (!parse_int(word, INT16_MIN, INT16_MAX, v)) return false;
  out = static_cast<int16_t>(v);
  return true;
}

}  // namespace

bool TreeSetReader::read(const TextLine &line, TreeSet &set, bool &taken, std::string &error) {
  const std::vector<std::string> &w = line.words;
  const std::string &key = w[0];
  taken = true;
  auto fail = [&](const std::string &message) {
    error = at_line(line.number, message);
    return false;
  };
  if (in_tree_ && key != "node" && key != "end")
    return fail("'" + key + "' inside a tree (close it with 'end')");
  if (key == "field") {
    if (w.size() != 4) return fail("field takes a path, a prefix and a suffix");
    set.fields.push_back({w[1], w[2], w[3]});
  } else if (key == "question") {
    if (w.size() < 2 || !is_name(w[1])) return fail("question takes a name, then its patterns");
    for (const Question &q : set.questions)
      if (q.name == w[1]) return fail("question '" + w[1] + "' is defined twice");
    if (w.size() - 2 > INT16_MAX) return fail("a question holds at most 32767 patterns");
    set.questions.push_back({w[1], std::vector<std::string>(w.begin() + 2, w.end()), line.number});
  } else if (key == "header") {
    long long v = 0;
    if (w.size() != 2 || !parse_int(w[1], 0, UINT32_MAX, v))
      return fail("header takes one 32-bit number");
    set.header_given = true;
    set.header = static_cast<uint32_t>(v);
  } else if (key == "tree") {
    TreeText tree;
    tree.line = line.number;
    if (w.size() == 2) {
      long long v = 0;
      if (!parse_int(w[1], 0, UINT32_MAX, v)) return fail("a tree's value is a 32-bit number");
      tree.has_value = true;
      tree.value = static_cast<uint32_t>(v);
    } else if (w.size() != 1) {
      return fail("tree takes at most a value");
    }
    set.trees.push_back(tree);
    in_tree_ = true;
  } else if (key == "node") {
    if (!in_tree_) return fail("node outside a tree");
    NodeText n;
    n.line = line.number;
    if (w.size() != 5 || !child(w[1], n.id) || !child(w[3], n.no) || !child(w[4], n.yes))
      return fail("node takes an Id, a question, No and Yes (16-bit numbers)");
    if (n.id > 0) return fail("a node's Id is 0 (the root) or negative");
    n.question = w[2];
    set.trees.back().nodes.push_back(n);
  } else if (key == "end") {
    if (!in_tree_) return fail("end without a tree");
    if (w.size() != 1) return fail("end takes nothing");
    if (set.trees.back().nodes.empty()) return fail("a tree needs at least its root");
    in_tree_ = false;
  } else {
    taken = false;
  }
  return true;
}

bool TreeSetReader::finish(std::string &error) const {
  if (in_tree_) {
    error = "the last tree has no 'end'";
    return false;
  }
  return true;
}

bool encode_trees(const TreeSet &set, std::string &out, std::string &error) {
  const size_t origin = out.size();
  if (set.trees.size() > DTREE_MAX_TREES) {
    error = "at most 16 trees";
    return false;
  }
  std::vector<std::string> patterns;
  std::map<std::string, int16_t> pattern_index;
  std::map<std::string, int16_t> question_index;
  std::vector<std::vector<int16_t>> questions;
  for (const Question &q : set.questions) {
    question_index[q.name] = static_cast<int16_t>(questions.size());
    questions.emplace_back();
    for (const std::string &p : q.patterns) {
      if (p.find('\0') != std::string::npos) {
        error = at_line(q.line, "a pattern holds a NUL byte");
        return false;
      }
      auto found = pattern_index.find(p);
      if (found == pattern_index.end()) {
        if (patterns.size() >= INT16_MAX) {
          error = at_line(q.line, "more than 32767 different patterns");
          return false;
        }
        found = pattern_index.emplace(p, static_cast<int16_t>(patterns.size())).first;
        patterns.push_back(p);
      }
      questions.back().push_back(found->second);
    }
    if (questions.size() > INT16_MAX) {
      error = at_line(q.line, "more than 32767 questions");
      return false;
    }
  }
  put_u32(out, set.header_given ? set.header : static_cast<uint32_t>(set.trees.size()));
  put_u32(out, static_cast<uint32_t>(patterns.size()));
  for (const std::string &p : patterns) {
    out += p;
    out += '\0';
  }
  pad4(out, origin);
  put_u32(out, static_cast<uint32_t>(questions.size()));
  for (const auto &q : questions) {
    put_i16(out, static_cast<int16_t>(q.size()));
    for (int16_t index : q) put_i16(out, index);
    pad4(out, origin);
  }
  for (const TreeText &tree : set.trees) {
    // Every child must be stored after the node that names it, and the
    // tree needs a root: the lookup only ever scans forward.
    std::set<int16_t> later;
    for (size_t k = tree.nodes.size(); k-- > 0;) {
      const NodeText &n = tree.nodes[k];
      for (const int16_t next : {n.no, n.yes}) {
        if (next <= 0 && later.count(next) == 0) {
          error = at_line(n.line, "node " + std::to_string(n.id) + " leads to node " +
                                      std::to_string(next) + ", which is not stored after it");
          return false;
        }
      }
      later.insert(n.id);
    }
    if (later.count(0) == 0) {
      error = at_line(tree.line, "the tree has no root (a node with Id 0)");
      return false;
    }
    put_u32(out, static_cast<uint32_t>(8 * tree.nodes.size()));
    for (const NodeText &n : tree.nodes) {
      const auto q = question_index.find(n.question);
      if (q == question_index.end()) {
        error = at_line(n.line, "no question named '" + n.question + "'");
        return false;
      }
      put_i16(out, n.id);
      put_i16(out, q->second);
      put_i16(out, n.no);
      put_i16(out, n.yes);
    }
    pad4(out, origin);
  }
  return true;
}

size_t decode_trees(const unsigned char *data, int count, TreeSet &set) {
  set.header = get_u32(data);
  set.header_given = set.header != static_cast<uint32_t>(count);
  const uint32_t pattern_count = get_u32(data + 4);
  size_t at = 8;
  std::vector<std::string> patterns;
  for (uint32_t k = 0; k < pattern_count; ++k) {
    const char *s = reinterpret_cast<const char *>(data + at);
    patterns.emplace_back(s);
    at += std::strlen(s) + 1;
  }
  at = padded(at);
  const uint32_t question_count = get_u32(data + at);
  at += 4;
  set.questions.clear();
  for (uint32_t q = 0; q < question_count; ++q) {
    Question question;
    question.name = "q" + std::to_string(q);
    const int16_t n = get_i16(data + at);
    for (int16_t k = 0; k < n; ++k)
      question.patterns.push_back(patterns[static_cast<size_t>(get_i16(data + at + 2 + 2 * k))]);
    set.questions.push_back(question);
    at += padded(2 + 2 * static_cast<size_t>(n));
  }
  set.trees.clear();
  for (int t = 0; t < count; ++t) {
    const uint32_t bytes = get_u32(data + at);
    at += 4;
    TreeText tree;
    for (uint32_t k = 0; k < bytes / 8; ++k) {
      const unsigned char *p = data + at + 8 * k;
      NodeText n;
      n.id = get_i16(p);
      n.question = "q" + std::to_string(get_i16(p + 2));
      n.no = get_i16(p + 4);
      n.yes = get_i16(p + 6);
      tree.nodes.push_back(n);
    }
    set.trees.push_back(tree);
    at = padded(at + bytes);
  }
  return at;
}

std::string print_fields(const std::vector<Field> &fields) {
  std::string out;
  for (const Field &f : fields)
    out += "field " + quote(f.name) + " " + quote(f.prefix) + " " + quote(f.suffix) + "\n";
  return out;
}

std::string print_trees(const TreeSet &set, bool with_values) {
  std::string out;
  if (set.header_given) out += "header " + std::to_string(set.header) + "\n";
  for (const Question &q : set.questions) {
    out += "question " + q.name;
    for (const std::string &p : q.patterns) out += " " + quote(p);
    out += "\n";
  }
  for (const TreeText &tree : set.trees) {
    out += with_values ? "tree " + std::to_string(tree.value) + "\n" : "tree\n";
    for (const NodeText &n : tree.nodes)
      out += "  node " + std::to_string(n.id) + " " + n.question + " " + std::to_string(n.no) +
             " " + std::to_string(n.yes) + "\n";
    out += "end\n";
  }
  return out;
}

std::string unasked_patterns(const TreeSet &set) {
  std::string out;
  std::set<std::string> reported;
  for (const Question &q : set.questions) {
    for (const std::string &p : q.patterns) {
      const std::string asked = !p.empty() && p[0] == '*' ? p.substr(1) : p;
      bool found = false;
      for (const Field &f : set.fields)
        if (!f.prefix.empty() && f.prefix[0] == '[' &&
            asked.compare(0, f.prefix.size(), f.prefix) == 0)
          found = true;
      if (!found && reported.insert(p).second)
        out += at_line(q.line, "pattern " + quote(p) + " asks about no field: it never matches\n");
    }
  }
  return out;
}

}  // namespace utts

// main.cpp - utts, the command-line front end of the speech engine: each stage
// of the front end is a subcommand (see command.h).
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "utts/command.h"

namespace utts {
namespace {

constexpr int kMaxCommands = 32;
const Command *g_commands[kMaxCommands + 1];
int g_count = 0;

int by_name(const void *a, const void *b) {
  return std::strcmp((*static_cast<const Command *const *>(a))->name,
                     (*static_cast<const Command *const *>(b))->name);
}

const Command *find(const char *name) {
  for (int i = 0; i < g_count; ++i)
    if (std::strcmp(g_commands[i]->name, name) == 0) return g_commands[i];
  return nullptr;
}

void print_usage(FILE *out) {
  std::fputs(
      "Usage: utts COMMAND [OPTIONS]\n"
      "\n"
      "The text-to-speech front end, one stage per command:\n",
      out);
  for (const Command *const *c = registered_commands(); *c != nullptr; ++c)
    std::fprintf(out, "  %-14s %s\n", (*c)->name, (*c)->summary);
  std::fputs("  help           show this help, or 'utts help COMMAND' for a command's options\n",
             out);
}

}  // namespace

Registration::Registration(const Command &command) {
  if (g_count < kMaxCommands) g_commands[g_count++] = &command;
}

const Command *const *registered_commands() {
  std::qsort(g_commands, g_count, sizeof g_commands[0], by_name);
  g_commands[g_count] = nullptr;
  return g_commands;
}

}  // namespace utts

int main(int argc, char **argv) {
  if (argc < 2) {
    utts::print_usage(stderr);
    return 2;
  }
  const char *name = argv[1];
  if (std::strcmp(name, "help") == 0 || std::strcmp(name, "-h") == 0 ||
      std::strcmp(name, "--help") == 0) {
    const utts::Command *command = argc > 2 ? utts::find(argv[2]) : nullptr;
    if (command != nullptr)
      std::fputs(command->usage, stdout);
    else
      utts::print_usage(stdout);
    return 0;
  }
  const utts::Command *command = utts::find(name);
  if (command == nullptr) {
    std::fprintf(stderr, "utts: unknown command '%s' (see 'utts --help')\n", name);
    return 2;
  }
  return command->run(argc - 2, argv + 2);
}

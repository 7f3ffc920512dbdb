// The "normalize" subcommand: SSML in, normalised SSML out.
#ifndef UTTS_NORMALIZE_COMMAND_H
#define UTTS_NORMALIZE_COMMAND_H

namespace utts {

// Runs "utts normalize" with the arguments after the subcommand name.
// Returns the process exit status.
int runNormalize(int argc, char **argv);

// The usage text of the subcommand.
const char *normalizeUsage();

}  // namespace utts

#endif

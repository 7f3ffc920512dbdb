// track_plot.h - parameter tracks drawn as a PNG by gnuplot, which the front
// end runs as a program when a plot is asked for (and needs only then).
#ifndef UTILS_UTTS_TRACK_PLOT_H
#define UTILS_UTTS_TRACK_PLOT_H

#include <string>

#include "utts/voice.h"

namespace utts {

// The path of gnuplot: $UTTS_GNUPLOT when set, else the first executable
// "gnuplot" on PATH; "" when there is none.
std::string find_gnuplot();

// Draws `tracks` into the PNG file `png` with the gnuplot at `gnuplot`: one
// panel per kind of stream over time in seconds, with the phone boundaries
// and names. Log F0 is drawn as F0 in Hz, with gaps where frames are
// unvoiced. False with a one-line reason on failure.
bool plot_tracks(const Tracks &tracks, const std::string &gnuplot, const std::string &png,
                 std::string &error);

}  // namespace utts

#endif  // UTILS_UTTS_TRACK_PLOT_H

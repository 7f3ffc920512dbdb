#!/bin/sh
# utts_generate_test.sh - parameter generation through the front end: a tiny
# voice whose tracks are worked out by hand (frame counts from the state
# durations with their rounding carried, constant means coming back as they
# are, unvoiced frames, the raw output's size and bytes), the demonstration
# voice on the labels of the mixed-language example, and the one-line
# errors with non-zero exits for bad labels, bad voices and bad options.
# Usage: utts_generate_test.sh UTTS_BINARY BUILT_DATA_DIR EXAMPLE_SSML
set -u
utts=$1
built=$2
example=$3
. "$(dirname "$0")/../cli_checks.sh"
expect_error() {  # expect_error NAME STATUS PATTERN COMMAND...
  name=$1; status=$2; pattern=$3; shift 3
  "$@" > "$work/out" 2> "$work/err"
  check "$name exits $status" [ $? -eq "$status" ]
  check "$name says so" grep -q -- "$pattern" "$work/err"
  check "$name in one line" [ "$(wc -l < "$work/err")" -eq 1 ]
}
compile() {  # compile NAME: $work/NAME.model -> $work/NAME.img
  "$utts" compile-model -o "$work/$1.img" "$work/$1.model" 2> "$work/compile.err"
  check "$1 compiles" [ $? -eq 0 ]
}

# A tiny voice of two states a phone. Durations (ms): a 10 and 20 (2 + 4
# frames), b 7 and 7 (1.4 frames each: the carried rounding gives 1, then
# 2), c 0 and 0 (at least one frame each).
cat > "$work/dur.model" <<'EOF'
field "name" "[P]" "/"
field "tone" "[T]" ""
stream_value 0x10002
rows 3
question IsA "[P]a/"
question IsC "[P]c/"
tree 1
  node 0 IsA -1 2
  node -1 IsC 1 3
end
statistics 0
mean 0 7 7
mean 1 10 20
mean 2 0 0
extra 00
EOF
# Log F0 with delta windows: a constant 5.000 where voiced (a, c); b unvoiced.
cat > "$work/lf0.model" <<'EOF'
field "name" "[P]" "/"
field "tone" "[T]" ""
window 0 0 1
window -1 1 -0.5 0 0.5
window -1 1 1 -2 1
window_value 1000
stream_value 0x30001
rows 2
question IsB "[P]b/"
tree 2
  node 0 IsB 1 2
end
tree 3
  node 0 IsB 1 2
end
statistics 1
mean 0 5000 0 0 1000
ivar 0 10 100 100
mean 1 0 0 0 0
extra 00
EOF
# Two dimensions with the static window alone: each frame is its state's
# mean, in hundredths. b's first dimension is 0 after a's 2.5 and 4.
cat > "$work/cep.model" <<'EOF'
field "name" "[P]" "/"
window 0 0 1
window_value 100
stream_value 0x20002
rows 3
question IsA "[P]a/"
tree 2
  node 0 IsA 3 1
end
tree 3
  node 0 IsA 3 2
end
statistics 1
mean 0 250 -100
mean 1 400 0
mean 2 0 300
ivar 0 1 1
ivar 1 1 1
ivar 2 1 1
extra 00
EOF
for m in dur lf0 cep; do compile $m; done
cat "$work/dur.img" "$work/lf0.img" "$work/cep.img" > "$work/voice.img"

printf '[P]a/[T]1\n[P]b/[T]0\n\n[P]a/[T]4\n' > "$work/aba.lab"
"$utts" generate --model-fields "$work/voice.img" "$work/aba.lab" > "$work/aba.txt"
check "generate exits 0" [ $? -eq 0 ]
check "the header names the columns" [ "$(head -n 1 "$work/aba.txt")" = "# lf0 c0 c1" ]
check "a, b, a: 6 + 3 + 6 frames" [ "$(grep -vc '^#' "$work/aba.txt")" -eq 15 ]
# Frames by hand: lf0 5 where voiced, -1e+10 where not; c0 c1 the means.
cat > "$work/aba.want" <<'EOF'
5 2.5 -1
5 2.5 -1
5 4 0
5 4 0
5 4 0
5 4 0
u 0 3
u 0 3
u 0 3
5 2.5 -1
5 2.5 -1
5 4 0
5 4 0
5 4 0
5 4 0
EOF
# Log F0 within 1e-4 of the hand value (float sums); "u" is unvoiced.
grep -v '^#' "$work/aba.txt" | awk '{
  lf0 = ($1 == "-1e+10") ? "u" : (($1 - 5 < 1e-4 && 5 - $1 < 1e-4) ? "5" : $1);
  print lf0, $2, $3 }' > "$work/aba.got"
check "the frames worked by hand" cmp -s "$work/aba.want" "$work/aba.got"
check "every value is finite" [ "$(grep -ci 'nan\|inf' "$work/aba.txt")" -eq 0 ]

# Durations: b b gives 1 + 2 + 1 + 2 frames (rounding of 1.4 carried), c b
# gives 1 + 1 + 1 + 1 (c's states at least one frame, the debt carried on).
printf '[P]b/[T]0\n[P]b/[T]0\n' | "$utts" generate --model-fields "$work/voice.img" > "$work/bb.txt"
check "b b: 6 frames" [ "$(grep -vc '^#' "$work/bb.txt")" -eq 6 ]
printf '[P]c/[T]0\n[P]b/[T]0\n' | "$utts" generate --model-fields "$work/voice.img" > "$work/cb.txt"
check "c b: 4 frames" [ "$(grep -vc '^#' "$work/cb.txt")" -eq 4 ]
check "c is voiced" [ "$(sed -n 2p "$work/cb.txt" | awk '{ print ($1 > 4.999 && $1 < 5.001) }')" = 1 ]

# Raw: 15 frames x 3 columns x 4 bytes, little-endian float32, no header.
"$utts" generate --model-fields -f raw -o "$work/aba.f32" "$work/voice.img" "$work/aba.lab"
check "raw exits 0" [ $? -eq 0 ]
check "raw is 180 bytes" [ "$(wc -c < "$work/aba.f32")" -eq 180 ]
check "raw frame 0, c0 is 2.5" [ "$(od -A n -t x1 -j 4 -N 4 "$work/aba.f32" | tr -d ' ')" = "00002040" ]
check "raw frame 6, c1 is 3" [ "$(od -A n -t x1 -j 80 -N 4 "$work/aba.f32" | tr -d ' ')" = "00004040" ]
check "raw frame 6, lf0 is -1e10" [ "$(od -A n -t x1 -j 72 -N 4 "$work/aba.f32" | tr -d ' ')" = "f90215d0" ]

# Sections from several files, and labels read with a table of their own.
printf 'name "" /\ntone T ""\n' > "$work/own.fields"
printf 'a/T1\nb/T0\na/T4\n' > "$work/own.lab"
"$utts" generate --fields "$work/own.fields" "$work/dur.img" -m "$work/lf0.img" \
  -m "$work/cep.img" "$work/own.lab" > "$work/own.txt"
check "three files and a label table" cmp -s "$work/aba.txt" "$work/own.txt"
"$utts" generate --fields "$work/own.fields" "$work/dur.img" -m "$work/cep.img" \
  "$work/own.lab" > "$work/cep.txt"
check "a voice without log F0" [ "$(head -n 1 "$work/cep.txt")" = "# c0 c1" ]

# The demonstration voice on the labels of the mixed-language example.
"$utts" labels "$example" > "$work/mixed.lab"
"$utts" generate "$built/demo-voice.img" "$work/mixed.lab" > "$work/mixed.txt"
check "the demo voice generates" [ $? -eq 0 ]
check "demo columns" [ "$(head -n 1 "$work/mixed.txt")" = "# lf0 c0 c1 c2 c3" ]
frames=$(grep -vc '^#' "$work/mixed.txt")
check "demo: over 2 s of frames" [ "$frames" -gt 400 ]
check "demo: voiced frames between 150 and 300 Hz" \
  [ "$(awk '!/^#/ && $1 != "-1e+10" && ($1 < 5.01 || $1 > 5.71)' "$work/mixed.txt" | wc -l)" -eq 0 ]
check "demo: some frames voiced" [ "$(awk '!/^#/ && $1 != "-1e+10"' "$work/mixed.txt" | wc -l)" -gt 100 ]
check "demo: the pauses unvoiced" [ "$(head -n 2 "$work/mixed.txt" | tail -n 1 | cut -d' ' -f1)" = "-1e+10" ]
"$utts" labels -l zh-CN "$example" | "$utts" generate "$built/demo-voice.img" > "$work/zh.txt"
check "the Chinese name generates" [ $? -eq 0 ]

# Plots: with gnuplot a PNG; without it, a clear error before any output.
if command -v gnuplot > /dev/null 2>&1; then
  "$utts" generate --plot "$work/mixed.png" -o "$work/plotted.txt" "$built/demo-voice.img" "$work/mixed.lab"
  check "a plot exits 0" [ $? -eq 0 ]
  check "the plot is a PNG" [ "$(od -A n -t x1 -N 4 "$work/mixed.png" | tr -d ' ')" = "89504e47" ]
  check "the tracks are written beside the plot" cmp -s "$work/mixed.txt" "$work/plotted.txt"
else
  echo "note: gnuplot not installed; the plot itself is not tested"
fi
UTTS_GNUPLOT=/nonexistent/gnuplot expect_error "a plot without gnuplot" 1 \
  "plot needs gnuplot, which is not installed" \
  "$utts" generate --plot "$work/no.png" "$built/demo-voice.img" "$work/mixed.lab"
check "nothing is written then" [ ! -s "$work/out" ]
check "no plot appears" [ ! -e "$work/no.png" ]

# Bad labels.
: > "$work/empty.lab"
expect_error "an empty label file" 1 "empty.lab: no labels in it" \
  "$utts" generate --model-fields "$work/voice.img" "$work/empty.lab"
printf '\n\n' > "$work/blank.lab"
expect_error "a label file of blank lines" 1 "no labels in it" \
  "$utts" generate --model-fields "$work/voice.img" "$work/blank.lab"
printf '[P]a/[T]1\n[Q]a/[T]1\n' > "$work/bad.lab"
expect_error "a label that fits no field" 1 'bad.lab: label 2: field 1: "\[P\]" expected' \
  "$utts" generate --model-fields "$work/voice.img" "$work/bad.lab"
expect_error "labels without the trees' fields" 1 'the trees read the feature "tone", which the labels do not carry' \
  "$utts" generate "$work/voice.img" "$work/aba.lab"
expect_error "labels of another table" 1 "label 1: field 1" \
  "$utts" generate "$built/demo-voice.img" "$work/aba.lab"
sed 's/node 0 IsB 1 2/node 0 IsB 1 7/' "$work/lf0.model" > "$work/far.model"
compile far
expect_error "a leaf past the rows" 1 "label 2: tree 0 of .*far.img section 1 gives leaf 7, but the section has 2 rows" \
  "$utts" generate --model-fields "$work/dur.img" -m "$work/far.img" "$work/aba.lab"

sed 's/^mean 0 7 7$/mean 0 32767 32767/' "$work/dur.model" > "$work/long.model"
compile long
awk 'BEGIN { for (i = 0; i < 1300; ++i) print "[P]b/[T]0" }' > "$work/long.lab"
expect_error "an utterance of over 23 hours" 1 "label 1281: the utterance passes 16777216 frames" \
  "$utts" generate --model-fields "$work/long.img" -m "$work/lf0.img" "$work/long.lab"

# Bad voices.
head -c 100 "$work/lf0.img" > "$work/cut.img"
expect_error "a cut section" 1 "cut.img section 1: not a sound model section (fault at byte" \
  "$utts" generate --model-fields "$work/cut.img" "$work/aba.lab"
cat "$work/dur.img" "$work/cut.img" > "$work/tail.img"
expect_error "a cut second section" 1 "tail.img section 2: not a sound model section" \
  "$utts" generate --model-fields "$work/tail.img" "$work/aba.lab"
: > "$work/nothing.img"
expect_error "an empty model file" 1 "nothing.img: empty, no model section in it" \
  "$utts" generate --model-fields "$work/nothing.img" "$work/aba.lab"
expect_error "no durations" 1 "the voice has no duration section" \
  "$utts" generate --model-fields "$work/lf0.img" "$work/aba.lab"
expect_error "two duration sections" 1 "more than one duration section" \
  "$utts" generate --model-fields "$work/dur.img" -m "$work/dur.img" "$work/aba.lab"
expect_error "durations alone" 1 "the voice has no parameter stream" \
  "$utts" generate --model-fields "$work/dur.img" "$work/aba.lab"
sed 's/stream_value 0x30001/stream_value 0x40001/' "$work/lf0.model" > "$work/kind.model"
compile kind
expect_error "an unknown kind" 1 "stream value 0x40001 names no kind of section" \
  "$utts" generate --model-fields "$work/dur.img" -m "$work/kind.img" "$work/aba.lab"
sed 's/window_value 100/window_value 0/' "$work/cep.model" > "$work/scale.model"
compile scale
expect_error "a stream without a scale" 1 "the window value (units per 1.0 of the means) is 0" \
  "$utts" generate --model-fields "$work/dur.img" -m "$work/scale.img" "$work/aba.lab"
sed 's/stream_value 0x10002/stream_value 0x10003/' "$work/dur.model" > "$work/three.model"
compile three
expect_error "a stream with a tree per state too few" 1 "2 trees, but the durations give phones 3 states" \
  "$utts" generate --model-fields "$work/three.img" -m "$work/lf0.img" "$work/aba.lab"
sed 's/statistics 1/statistics 0/; /^ivar/d' "$work/cep.model" > "$work/noivar.model"
compile noivar
expect_error "a stream without inverse variances" 1 "needs inverse variances" \
  "$utts" generate --model-fields "$work/dur.img" -m "$work/noivar.img" "$work/aba.lab"

# Bad usage: exit 2.
expect_error "no model" 2 "no model given" "$utts" generate
expect_error "a bad format" 2 "the format is text or raw, not 'wav'" \
  "$utts" generate -f wav "$work/voice.img" "$work/aba.lab"
expect_error "both label tables" 2 "exclude each other" \
  "$utts" generate --model-fields --fields "$work/own.fields" "$work/voice.img" "$work/aba.lab"
expect_error "an unknown option" 2 "unknown option '--speed'" \
  "$utts" generate --speed 2 "$work/voice.img" "$work/aba.lab"
expect_error "a missing model file" 1 "missing.img" \
  "$utts" generate "$work/missing.img" "$work/aba.lab"

summary utts_generate

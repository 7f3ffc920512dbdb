#!/bin/sh
# utts_trees_test.sh - trees and model sections through the front end:
# compile, dump and compile again give the same bytes; lookups of the
# example labels worked by hand; the one-line errors with non-zero exits for
# bad text and for images that are not sound.
# Usage: utts_trees_test.sh UTTS_BINARY DATA_DIR BUILT_DATA_DIR
set -u
utts=$1
data=$2
built=$3
. "$(dirname "$0")/../cli_checks.sh"

# Round trips: text -> image -> text -> image, for both kinds and for the
# images the build made.
for kind in tree model; do
  "$utts" compile-$kind -o "$work/$kind.img" "$data/example.$kind"
  check "$kind compiles" [ $? -eq 0 ]
  check "$kind matches the built image" cmp -s "$work/$kind.img" "$built/example.$kind.img"
  "$utts" dump "$work/$kind.img" > "$work/$kind.txt"
  check "$kind dumps" [ $? -eq 0 ]
  "$utts" compile-$kind -o "$work/$kind.again" "$work/$kind.txt"
  check "$kind dump compiles" [ $? -eq 0 ]
  check "$kind compile-dump-compile is byte-identical" cmp -s "$work/$kind.img" "$work/$kind.again"
  "$utts" dump "$work/$kind.again" > "$work/$kind.txt2"
  check "$kind dump is stable" cmp -s "$work/$kind.txt" "$work/$kind.txt2"
  "$utts" dump --kind $kind < "$work/$kind.img" > /dev/null
  check "$kind dumps from standard input with its kind named" [ $? -eq 0 ]
done
check "the tree dump names its questions" grep -q '^question q5 "\*\[C\]?/\*"$' "$work/tree.txt"
check "the model dump keeps the window coefficients" grep -q '^window -1 1 -0.5 0 0.5$' "$work/model.txt"
check "the model dump keeps the trees' values" grep -q '^tree 3$' "$work/model.txt"
check "the model dump keeps the rows" grep -q '^mean 3 402 -20 8$' "$work/model.txt"

# A model without statistics or windows, and odd bytes in quoted words.
cat > "$work/bare.model" <<'TEXT'
field "a b" "[\x01\"]" "\\"
question Q "[\x01\"]x*"
tree 7
  node 0 Q 1 2
end
TEXT
"$utts" compile-model -o "$work/bare.img" "$work/bare.model"
check "a bare model compiles" [ $? -eq 0 ]
# fields 16, W, stream value, K, the tree value and P 20, trees 36, B 4
check "to 76 bytes" [ "$(wc -c < "$work/bare.img")" -eq 76 ]
"$utts" dump "$work/bare.img" > "$work/bare.txt" && "$utts" compile-model -o "$work/bare.again" "$work/bare.txt"
check "a bare model round-trips" cmp -s "$work/bare.img" "$work/bare.again"
check "quoted bytes come back escaped" grep -q '^field "a b" "\[\\x01\\"\]" "\\\\"$' "$work/bare.txt"

# A model's tree image may carry another first word; it comes back.
printf 'header 9\nquestion Q "[C]a"\ntree 1\n  node 0 Q 1 2\nend\n' > "$work/header.model"
"$utts" compile-model -o "$work/header.img" "$work/header.model" 2>/dev/null && "$utts" dump "$work/header.img" > "$work/header.txt"
check "a model's tree header is dumped" grep -q '^header 9$' "$work/header.txt"
"$utts" compile-model -o "$work/header.again" "$work/header.txt" 2>/dev/null
check "and compiles back to the same bytes" cmp -s "$work/header.img" "$work/header.again"
printf 'header 9\n' > "$work/header.tree"
expect_error() {  # expect_error NAME STATUS PATTERN COMMAND...
  name=$1; status=$2; pattern=$3; shift 3
  "$@" > /dev/null 2> "$work/err"
  check "$name exits $status" [ $? -eq "$status" ]
  check "$name says so" grep -q -- "$pattern" "$work/err"
}
expect_error "a header in a tree file" 1 "line 1: a tree file's first word is its tree count" "$utts" compile-tree "$work/header.tree"

# Lookups (worked by hand in data/example.tree and data/example.model).
printf '2 4\n4 2\n3 2\n2 1\n3 2\n' > "$work/model.want"
"$utts" lookup "$built/example.model.img" "$data/example.labels" > "$work/model.got"
check "model lookup exits 0" [ $? -eq 0 ]
check "model leaves" cmp -s "$work/model.want" "$work/model.got"
printf '2 4\n4 6\n3 6\n2 5\n3 6\n' > "$work/tree.want"
"$utts" lookup -f "$data/example.fields" "$built/example.tree.img" < "$data/example.labels" > "$work/tree.got"
check "tree lookup exits 0" [ $? -eq 0 ]
check "tree leaves" cmp -s "$work/tree.want" "$work/tree.got"
check "one tree" [ "$("$utts" lookup -t 1 -f "$data/example.fields" "$built/example.tree.img" "$data/example.labels" | tr '\n' ' ')" = "4 6 6 5 6 " ]

# Errors: one line on standard error, exit 1 (2 for bad usage).
printf 'question Q "[C]a"\ntree\n  node 0 Q -1 2\n  node -2 Q 1 2\nend\n' > "$work/order.tree"
expect_error "a child stored before" 1 "line 3: node 0 leads to node -1, which is not stored after it" \
  "$utts" compile-tree "$work/order.tree"
printf 'tree\n  node 0 Q 1 2\nend\n' > "$work/noq.tree"
expect_error "an unknown question" 1 "line 2: no question named 'Q'" "$utts" compile-tree "$work/noq.tree"
printf 'question Q "[C]a"\ntree\n  node -1 Q 1 2\nend\n' > "$work/noroot.tree"
expect_error "no root" 1 "line 2: the tree has no root" "$utts" compile-tree "$work/noroot.tree"
printf 'question Q "[C]a\n' > "$work/quote.tree"
expect_error "an open quote" 1 "line 1: unterminated quote" "$utts" compile-tree "$work/quote.tree"
printf 'tree 5\n  node 0 Q 1 2\nend\n' > "$work/value.tree"
expect_error "a value in a tree file" 1 "line 1: trees of a tree file carry no value" "$utts" compile-tree "$work/value.tree"
printf 'window -1 1 0.5\n' > "$work/window.model"
expect_error "a short window" 1 "line 1: a window from -1 to 1 has 3 coefficients" "$utts" compile-model "$work/window.model"
printf 'rows 1\nstatistics 0\nmean 0 1\n' > "$work/extra.model"
expect_error "statistics without a trailing block" 1 "trailing block of at least one byte" "$utts" compile-model "$work/extra.model"
printf 'rows 3000000\nstatistics 1\nextra 00\n' > "$work/huge.model"
expect_error "statistics past 2 GB" 1 "the statistics of 3000000 rows pass 2 GB" "$utts" compile-model "$work/huge.model"
printf 'field name "[C]" ""\nquestion Q "[D]a"\ntree\n  node 0 Q 1 2\nend\n' > "$work/unasked.tree"
"$utts" compile-tree -o "$work/unasked.img" "$work/unasked.tree" 2> "$work/err"
check "an unasked pattern still compiles" [ $? -eq 0 ]
check "with a warning" grep -q 'line 2: pattern "\[D\]a" asks about no field' "$work/err"

head -c 40 "$work/model.img" > "$work/cut.img"
expect_error "a cut image" 1 "is not an image of a known kind" "$utts" dump "$work/cut.img"
expect_error "a tree image as a model" 1 "is not a sound model image" "$utts" dump --kind model "$work/tree.img"
expect_error "an unknown kind" 2 "unknown kind 'dictionary'" "$utts" dump --kind dictionary "$work/tree.img"
expect_error "a tree file without fields" 1 "give -f FIELDS" "$utts" lookup "$work/tree.img" "$data/example.labels"
printf '[L]x/[C]m/\n' > "$work/short.labels"
expect_error "a short label" 1 "label 1: field 3" "$utts" lookup "$work/model.img" "$work/short.labels"

summary utts_trees

#!/bin/sh
# The utts command line: normalising a document to a file and to standard
# output, and the one-line errors with non-zero exits for bad input.
# Usage: utts_cli_test.sh UTTS_BINARY
set -u
utts=$1
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
passes=0

check() {  # check NAME CONDITION...
  name=$1; shift
  if "$@"; then passes=$((passes + 1)); else echo "FAILED: $name"; failures=$((failures + 1)); fi
}

printf '<speak><s>It costs $12.50 on 11/21/2026.</s></speak>' > "$work/in.ssml"
"$utts" normalize -o "$work/out.ssml" "$work/in.ssml"
check "file output exits 0" [ $? -eq 0 ]
check "file output is the saved utterance" grep -q '<sub alias="twelve dollars and fifty cents">\$12.50</sub>' "$work/out.ssml"
check "date read" grep -q 'alias="November twenty-first, twenty twenty-six"' "$work/out.ssml"
check "declaration first" [ "$(head -n 1 "$work/out.ssml")" = '<?xml version="1.0" encoding="UTF-8"?>' ]

"$utts" normalize < "$work/in.ssml" > "$work/stdout.ssml"
check "stdin to stdout exits 0" [ $? -eq 0 ]
check "stdout holds the same document" cmp -s "$work/out.ssml" "$work/stdout.ssml"

printf '(\\d+)\txnum{"?0"}\n' > "$work/own.rules"
"$utts" normalize -r "$work/own.rules" "$work/in.ssml" > "$work/own.ssml"
check "own rules replace the bundled ones" grep -q '<sub alias="12">12</sub>' "$work/own.ssml"

expect_error() {  # expect_error NAME PATTERN ARGS... (input from $work/stdin)
  name=$1; pattern=$2; shift 2
  "$utts" "$@" < "$work/stdin" > "$work/err.out" 2> "$work/err.txt"
  status=$?
  check "$name: non-zero exit" [ $status -ne 0 ]
  check "$name: one line" [ "$(wc -l < "$work/err.txt")" -eq 1 ]
  check "$name: message" grep -q "$pattern" "$work/err.txt"
}

printf '<speak><s>a</speak>' > "$work/stdin"
expect_error "malformed" "not well-formed SSML" normalize
printf '<p>a</p>' > "$work/stdin"
expect_error "no speak" "has no <speak> element" normalize
expect_error "missing file" "cannot read '$work/none.ssml'" normalize "$work/none.ssml"
printf 'ok\t"x"\n(bad\t"x"\n' > "$work/bad.rules"
printf '<speak>1</speak>' > "$work/stdin"
expect_error "bad rules" "bad.rules:2: rule rejected" normalize -r "$work/bad.rules"
expect_error "unknown option" "unknown option '--frob'" normalize --frob
expect_error "unknown command" "unknown command 'frob'" frob

"$utts" normalize --help > "$work/help.txt"
check "help exits 0" [ $? -eq 0 ]
check "help explains usage" grep -q '^Usage: utts normalize' "$work/help.txt"

echo "utts_cli: $passes passed, $failures failed"
[ $failures -eq 0 ]

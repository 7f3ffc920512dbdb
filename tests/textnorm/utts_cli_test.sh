#!/bin/sh
# utts_cli_test.sh - the utts command line: normalising a document to a file
# and to standard output, plain text wrapped in a speak element, and the
# one-line errors with non-zero exits for bad input.
# Usage: utts_cli_test.sh UTTS_BINARY
set -u
utts=$1
. "$(dirname "$0")/../cli_checks.sh"

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

# Plain text: wrapped in a speak element of the given language (en-US when
# none is given), its markup characters escaped so that they stay text.
printf 'It costs $12.50 & more <3.\n' | "$utts" normalize > "$work/plain.ssml" 2> "$work/plain.err"
check "plain text exits 0" [ $? -eq 0 ]
check "plain text is wrapped in en-US" grep -q '^<speak xml:lang="en-US">It costs $' "$work/plain.ssml"
check "plain text is normalised" grep -q '<sub alias="twelve dollars and fifty cents">\$12.50</sub>' "$work/plain.ssml"
check "escaped characters come back as text" grep -q '> more <$' "$work/plain.ssml"
check "plain text needs no note" [ ! -s "$work/plain.err" ]
printf 'Call me at 5.' | "$utts" normalize --lang en-GB > "$work/gb.ssml"
check "--lang names the language" grep -q '^<speak xml:lang="en-GB">Call me' "$work/gb.ssml"
printf 'a "quote"' | "$utts" normalize -l 'x"y' > "$work/quote.ssml"
check "a quote in the language stays in the attribute" grep -q '^<speak xml:lang="x"y">a "quote"</speak>' "$work/quote.ssml"
printf ' \n\t<speak><s>It is 5.</s></speak>' | "$utts" normalize > "$work/blank.ssml"
check "blanks before the markup: still SSML" grep -q '^<speak>$' "$work/blank.ssml"

# Input that starts with '<' but is not SSML with a speak element is read as
# text, and a note on standard error says so.
printf '<p>a 5</p>' | "$utts" normalize > "$work/nospeak.ssml" 2> "$work/nospeak.err"
check "no speak element: exits 0" [ $? -eq 0 ]
check "no speak element: read as text" grep -q '^<speak xml:lang="en-US"><p>a $' "$work/nospeak.ssml"
check "no speak element: the note" grep -q 'not SSML (it has no <speak> element); reading it as plain text' "$work/nospeak.err"
printf '<speak><s>a</speak>' | "$utts" normalize > "$work/bad.ssml" 2> "$work/bad.err"
check "malformed: exits 0" [ $? -eq 0 ]
check "malformed: read as text" grep -q '^<speak xml:lang="en-US"><speak><s>a</speak></speak>$' "$work/bad.ssml"
check "malformed: the note" grep -q 'not SSML (it is not well-formed' "$work/bad.err"

expect_error() {  # expect_error NAME PATTERN ARGS... (input from $work/stdin)
  name=$1; pattern=$2; shift 2
  "$utts" "$@" < "$work/stdin" > "$work/err.out" 2> "$work/err.txt"
  status=$?
  check "$name: non-zero exit" [ $status -ne 0 ]
  check "$name: one line" [ "$(wc -l < "$work/err.txt")" -eq 1 ]
  check "$name: message" grep -q "$pattern" "$work/err.txt"
}

printf 'bad \303( text' > "$work/stdin"
expect_error "not UTF-8" "standard input cannot be read as UTF-8 text" normalize
# The bytes FE and FF would send Mini-XML's reader past the end of the text.
cp "$(dirname "$0")/../data/markup/mxml-overread.ssml" "$work/stdin"
expect_error "a byte FE or FF" "standard input cannot be read as UTF-8 text" normalize
printf 'plain \377\376 text' > "$work/stdin"
expect_error "FF FE in plain text" "standard input cannot be read as UTF-8 text" normalize
expect_error "lang without a tag" "option '--lang' needs a language tag" normalize --lang
expect_error "missing file" "cannot read '$work/none.ssml'" normalize "$work/none.ssml"
printf 'ok\t"x"\n(bad\t"x"\n' > "$work/bad.rules"
printf '<speak>1</speak>' > "$work/stdin"
expect_error "bad rules" "bad.rules:2: rule rejected" normalize -r "$work/bad.rules"
expect_error "unknown option" "unknown option '--frob'" normalize --frob
expect_error "unknown command" "unknown command 'frob'" frob

"$utts" normalize --help > "$work/help.txt"
check "help exits 0" [ $? -eq 0 ]
check "help explains usage" grep -q '^Usage: utts normalize' "$work/help.txt"

summary utts_cli

#!/bin/sh
# utts_labels_test.sh - "utts labels" on the command line: labels of the
# two-language example in both builds, an own field table, and the one-line
# errors with non-zero exits for bad input.
# Usage: utts_labels_test.sh UTTS_BINARY EXAMPLE
set -u
utts=$1
example=$2
. "$(dirname "$0")/../cli_checks.sh"

"$utts" labels "$example" > "$work/main.lab"
check "main build exits 0" [ $? -eq 0 ]
# 6 words in 2 phrases: 16 + 8 phones with the placeholder, 2 pauses each.
check "one line per phone and pause" [ "$(wc -l < "$work/main.lab")" -eq 28 ]
check "the first line is the opening pause" grep -q '^x^x-pau+a=' "$work/main.lab"
check "the placeholder stands for the Chinese name" grep -q '^ɛ^t-s+a=' "$work/main.lab"

"$utts" labels -l zh-CN "$example" > "$work/other.lab"
check "other build exits 0" [ $? -eq 0 ]
check "only the Chinese name is kept" [ "$(grep -c -- '-l+i=' "$work/other.lab")" -eq 1 ]
check "its tone is read" grep -q '^pau^l-i+n=a@2_1/A:3_x_4/' "$work/other.lab"

printf '# own table\nname "" ""\nR:Phrase.parent.tone [ ]\n0 | ""\n' > "$work/own.fields"
"$utts" labels -f "$work/own.fields" -o "$work/own.lab" "$example"
check "own table exits 0" [ $? -eq 0 ]
check "own table fields" [ "$(sed -n 2p "$work/own.lab")" = "a[0]|0" ]
check "pauses have no syllable" [ "$(sed -n 1p "$work/own.lab")" = "pau[x]|0" ]

printf '<speak xml:lang="en"><word ph="a"/></speak>' > "$work/attr.ssml"
"$utts" labels -a pron "$work/attr.ssml" > /dev/null 2> "$work/attr.err"
check "no pronunciation in the named attribute fails" [ $? -eq 1 ]
check "and says so" grep -q "no word carries a pronunciation in 'pron'" "$work/attr.err"

printf '<speak><word ph="a"/></speak>' | "$utts" labels > /dev/null 2> "$work/lang.err"
check "no language fails" [ $? -eq 1 ]
check "and asks for -l" grep -q 'give the language with -l' "$work/lang.err"

long=$(printf 'a%.0s' $(seq 1 40))
printf '<speak xml:lang="en"><word ph="%s"/></speak>' "$long" | "$utts" labels > /dev/null 2> "$work/long.err"
check "an over-long syllable fails" [ $? -eq 1 ]
check "and names the word" grep -q 'word 1: pronunciation refused' "$work/long.err"

printf 'name a b c\n' > "$work/bad.fields"
"$utts" labels -f "$work/bad.fields" "$example" > /dev/null 2> "$work/fields.err"
check "a bad table fails" [ $? -eq 1 ]
check "and names the line" grep -q 'line 1: more than three columns' "$work/fields.err"

printf 'hello' | "$utts" labels > /dev/null 2>&1
check "text that is not SSML fails" [ $? -eq 1 ]
"$utts" labels --bogus > /dev/null 2>&1
check "an unknown option is bad usage" [ $? -eq 2 ]

summary utts_labels

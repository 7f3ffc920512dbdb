#!/bin/sh
# utts_analyze_test.sh - the whole front end on the command line: labels from
# Chinese text with an English name, the stages in order, sentences and
# words as built, and clean errors.
# Usage: utts_analyze_test.sh UTTS_BINARY
set -u
utts=$1
. "$(dirname "$0")/../cli_checks.sh"

# Two sentences, a number, an English word: 我喜欢Python。今天是5号。
printf '我喜欢Python。今天是5号。' > "$work/in.txt"
"$utts" analyze "$work/in.txt" > "$work/labels" 2> "$work/err"
check "Chinese text: exits 0" [ $? -eq 0 ]
check "Chinese text: no message" [ ! -s "$work/err" ]
# The phones, one per label: the centre phone sits between '-' and '+'.
phones=$(awk -F'[-+]' '{printf "%s ", $2}' "$work/labels")
check "phones of the first phrase, the English word as the placeholder s a" \
  [ "${phones%%pau pau*}" = "pau w o ɕ i x w a n s a " ]
check "a phrase per sentence, each framed by pauses" [ "$(grep -c -- '-pau+' "$work/labels")" -eq 4 ]
check "the number is read: 五 (u) in the second phrase" grep -q -- '-u+x=' "$work/labels"

"$utts" analyze --stages "$work/in.txt" > "$work/stages"
check "--stages exits 0" [ $? -eq 0 ]
order=$(grep '^== ' "$work/stages" | cut -d' ' -f2 | tr -d ':' | tr '\n' ' ')
check "--stages shows every stage in order" \
  [ "$order" = "normalisation sentences words pronunciation breaks stress labels " ]
check "two sentence elements" grep -q '^== sentences: 2$' "$work/stages"
check "the English word is marked as another language" \
  grep -q 'word name="Python" pos=[0-9]* name_Len=6 xml:lang="en-US"' "$work/stages"
check "the word before a full stop ends its phrase" \
  grep -q 'word name="Python".* break=-1 delay="long"' "$work/stages"
check "a Chinese word carries its pronunciation" grep -q 'word name="喜欢".* ph="ɕi3.xwan1"' "$work/stages"
check "the number became a word through its alias" grep -q 'sub alias="五"' "$work/stages"

printf '<speak xml:lang="zh-CN"><s>你好</s></speak>' | "$utts" analyze > "$work/ssml.labels"
check "SSML input: labels for 你好" [ "$(wc -l < "$work/ssml.labels")" -eq 7 ]

printf 'Hello there.' | "$utts" analyze > "$work/en.labels" 2> "$work/en.err"
check "English text: exits 0" [ $? -eq 0 ]
check "English text: no labels" [ ! -s "$work/en.labels" ]
check "English text: the note" grep -q 'has no word with a pronunciation; no labels' "$work/en.err"

printf 'not a dictionary' > "$work/bad.dic"
printf '你好' | "$utts" analyze -d "$work/bad.dic" > /dev/null 2> "$work/bad.err"
check "bad dictionary: non-zero exit" [ $? -ne 0 ]
check "bad dictionary: message" grep -q 'is not a sound dictionary image' "$work/bad.err"
printf '你好' | "$utts" analyze --frob > /dev/null 2> "$work/opt.err"
check "unknown option: exit 2" [ $? -eq 2 ]

summary utts_analyze

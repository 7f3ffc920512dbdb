#!/usr/bin/env bash
# utts_dict_test.sh - utts compile-dict and segment from the command line:
# a small dictionary compiled from its three texts, segmentation in both
# modes, the sample dictionary, the error messages, compile -> dump ->
# compile, and breaks.
set -u
UTTS=$1
SAMPLE=$2
DATA=$3
. "$(dirname "$0")/../cli_checks.sh"
expect() {  # expect NAME EXPECTED ACTUAL
  check "$1" [ "$2" = "$3" ] || printf '  expected: %s\n  actual:   %s\n' "$2" "$3"
}

printf '# classes\nn\nv\nx 9\ndefault x\n' > "$work/classes"
printf 'n\tv\t-1\t-0.5\nv\tn\t-1\t0.5\nn\tn\t-3\t1\nn\tx\t-1\t0\n' > "$work/pairs"
printf '[words]\n北京\tn\t-5\n北\tn\t-9\n京\tn\t-9\n爱\tv\t-6\n我\tn\t-6\n我\tv\t-12\n' > "$work/lexicon"

"$UTTS" compile-dict -c "$work/classes" -p "$work/pairs" -l "$work/lexicon" -o "$work/small.dic"
expect "compile exit status" 0 $?
expect "character mode" "我/n 爱/v 北京/n Z/x?" \
  "$(printf '我爱北京Z\n' | "$UTTS" segment -d "$work/small.dic")"
expect "token mode" "北/n 京/n ,/x? 我/n" \
  "$(printf '北 京 , 我\n' | "$UTTS" segment -t -d "$work/small.dic")"
expect "one line out per line in" 3 \
  "$(printf '我\n\n爱\n' | "$UTTS" segment -d "$work/small.dic" | wc -l)"

# The sample dictionary from jieba's word list.
expect "sample dictionary" "我/r 爱/v 北京/ns 天安门/ns 。/x" \
  "$(printf '我爱北京天安门。\n' | "$UTTS" segment -d "$SAMPLE")"

# Errors.
printf 'n\tq\t-1\t0\n' > "$work/badpairs"
msg=$("$UTTS" compile-dict -c "$work/classes" -p "$work/badpairs" -o "$work/x.dic" 2>&1)
expect "unknown class status" 1 $?
expect "unknown class message" "utts: $work/badpairs:1: unknown class q" "$msg"
printf 'n\nv\n' > "$work/nodefault"
msg=$("$UTTS" compile-dict -c "$work/nodefault" -o "$work/x.dic" 2>&1)
expect "no default message" "utts: no default class given (a line: default NAME)" "$msg"
msg=$("$UTTS" segment -d "$work/classes" < /dev/null 2>&1)
expect "not an image status" 1 $?
case "$msg" in *"is not a sound dictionary image"*) ;; *) expect "not an image message" "...not a sound..." "$msg" ;; esac
"$UTTS" compile-dict --bogus > /dev/null 2>&1
expect "bad option status" 2 $?

# compile -> dump -> compile gives the same bytes, models included.
"$UTTS" compile-model -o "$work/pb.img" "$DATA/phrase_break.model" &&
  "$UTTS" compile-model -o "$work/st.img" "$DATA/stress.model" &&
  "$UTTS" compile-dict -c "$work/classes" -p "$work/pairs" -l "$work/lexicon" \
    --phrase-break "$work/pb.img" --stress "$work/st.img" -o "$work/models.dic"
expect "compile with models" 0 $?
"$UTTS" dump "$work/models.dic" > "$work/dumped.txt"
expect "dump status" 0 $?
"$UTTS" compile-dict -o "$work/again.dic" "$work/dumped.txt"
expect "recompile status" 0 $?
cmp -s "$work/models.dic" "$work/again.dic"
expect "compile -> dump -> compile identical" 0 $?
"$UTTS" dump "$SAMPLE" > "$work/sample.txt" && "$UTTS" compile-dict -o "$work/sample.dic" "$work/sample.txt"
cmp -s "$SAMPLE" "$work/sample.dic"
expect "sample dictionary round trip" 0 $?

# Breaks on the sample dictionary.
expect "breaks" "我/r 爱/v 北京/ns 天安门/ns ∣ 。/x ∕ 今天天气/i ∣ 很/zg 好/a ，/x ∣ 我们/r 去/v 公园/n 散步/n 吧/y ！/x" \
  "$(printf '我爱北京天安门。今天天气很好，我们去公园散步吧！\n' | "$UTTS" breaks -d "$SAMPLE")"

summary utts_dict

#!/bin/sh
# utts_mandarin_test.sh - "utts normalize" in Mandarin: --lang zh-CN (and the
# other spellings of Mandarin) picks the Chinese rules and readers, so does
# the xml:lang of an SSML document, and --lang overrides the document.
# Usage: utts_mandarin_test.sh UTTS_BINARY EXAMPLE
set -u
utts=$1
example=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
passes=0

check() {  # check NAME CONDITION...
  name=$1; shift
  if "$@"; then passes=$((passes + 1)); else echo "FAILED: $name"; failures=$((failures + 1)); fi
}

printf '售价¥12.50，共2个。' | "$utts" normalize --lang zh-CN > "$work/plain.ssml"
check "plain text exits 0" [ $? -eq 0 ]
check "plain text in zh-CN" grep -q '^<speak xml:lang="zh-CN">' "$work/plain.ssml"
check "money in Chinese" grep -q '<sub alias="十二元五角">¥12.50</sub>' "$work/plain.ssml"
check "a count says 两" grep -q '<sub alias="两">2</sub>' "$work/plain.ssml"

for tag in zh cmn ZH-Hans zh_TW; do
  printf '2%%' | "$utts" normalize -l "$tag" > "$work/tag.ssml"
  check "--lang $tag reads Chinese" grep -q 'alias="百分之二"' "$work/tag.ssml"
done

printf '<speak xml:lang="zh-CN"><s>下午3点</s></speak>' > "$work/zh.ssml"
"$utts" normalize "$work/zh.ssml" > "$work/zh.out"
check "the document's xml:lang picks Chinese" grep -q '<sub alias="三点">3点</sub>' "$work/zh.out"
"$utts" normalize --lang en-US "$work/zh.ssml" > "$work/en.out"
check "--lang overrides the document" grep -q '<sub alias="three">3</sub>' "$work/en.out"

printf 'It costs $12.50.' | "$utts" normalize > "$work/english.ssml"
check "English stays the default" grep -q '<sub alias="twelve dollars and fifty cents">' "$work/english.ssml"

"$utts" normalize "$example" > "$work/example.out"
check "the Chinese example exits 0" [ $? -eq 0 ]
check "the example's date" grep -q 'alias="二零二六年十一月二十四日"' "$work/example.out"
check "the example's temperatures" grep -q 'alias="零下五摄氏度">-5℃</sub>到' "$work/example.out"
check "the example's English name is left alone" grep -q 'Maria Lopez' "$work/example.out"

echo "utts_mandarin: $passes passed, $failures failed"
[ $failures -eq 0 ]

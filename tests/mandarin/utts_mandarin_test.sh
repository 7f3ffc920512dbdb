#!/bin/sh
# utts_mandarin_test.sh - "utts normalize" in Mandarin: --lang zh-CN (and the
# other spellings of Mandarin) picks the Chinese rules and readers, so does
# the xml:lang of an SSML document, and --lang overrides the document; parts
# of a document in another language are read in theirs.
# Usage: utts_mandarin_test.sh UTTS_BINARY EXAMPLE
set -u
utts=$1
example=$2
. "$(dirname "$0")/../cli_checks.sh"

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

# A part in another language is read in its own language.
printf '<speak xml:lang="zh-CN"><s>乘坐<voice xml:lang="en-US">Boeing 747</voice>飞了2小时</s></speak>' \
  | "$utts" normalize > "$work/inner-en.out"
check "an English part of a Chinese text" grep -q '<sub alias="seven hundred forty-seven">747</sub>' "$work/inner-en.out"
check "the Chinese around it" grep -q '<sub alias="两">2</sub>' "$work/inner-en.out"
printf '<speak><s>Call <voice xml:lang="zh-CN">电话13812345678</voice> at 5.</s></speak>' \
  | "$utts" normalize > "$work/inner-zh.out"
check "a Chinese part of an English text" grep -q 'alias="幺三八 幺二三四 五六七八"' "$work/inner-zh.out"
check "the English around it" grep -q '<sub alias="five">5</sub>' "$work/inner-zh.out"
printf '(\\d+)\txnum{"?0"}\n' > "$work/own.rules"
printf '<speak><s>5 <voice xml:lang="zh-CN">6</voice></s></speak>' \
  | "$utts" normalize -r "$work/own.rules" > "$work/own.out"
check "own rules read every part in one pass" grep -q '<sub alias="6">6</sub>' "$work/own.out"

printf 'It costs $12.50.' | "$utts" normalize > "$work/english.ssml"
check "English stays the default" grep -q '<sub alias="twelve dollars and fifty cents">' "$work/english.ssml"

"$utts" normalize "$example" > "$work/example.out"
check "the Chinese example exits 0" [ $? -eq 0 ]
check "the example's date" grep -q 'alias="二零二六年十一月二十四日"' "$work/example.out"
check "the example's temperatures" grep -q 'alias="零下五摄氏度">-5℃</sub>到' "$work/example.out"
check "the example's English name is left alone" grep -q 'Maria Lopez' "$work/example.out"

summary utts_mandarin

#!/usr/bin/env bash
# Compares the names libUtils.so defines in its dynamic symbol table with the
# expected list: nothing missing, nothing extra (Mini-XML shows only mxmlRelease).
set -euo pipefail
lib=$1 expected=$2
actual=$(nm -D --defined-only "$lib" | awk '{print $NF}' | sed 's/@.*//' | sort -u)
want=$(sort -u "$expected")
missing=$(comm -13 <(echo "$actual") <(echo "$want"))
extra=$(comm -23 <(echo "$actual") <(echo "$want"))
status=0
[ -n "$missing" ] && { echo "listed but not exported:"; echo "$missing"; status=1; }
[ -n "$extra" ] && { echo "exported but not listed:"; echo "$extra"; status=1; }
mxml=$(echo "$actual" | grep -E '^_?mxml' | grep -v -x mxmlRelease || true)
[ -n "$mxml" ] && { echo "Mini-XML symbols leaked:"; echo "$mxml"; status=1; }
[ $status -eq 0 ] && echo "exports: $(echo "$want" | wc -l) names, all present, none extra"
exit $status

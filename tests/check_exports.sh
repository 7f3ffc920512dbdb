#!/usr/bin/env bash
# check_exports.sh - holds libUtils.so to its interface.
#
#   check_exports.sh LIBRARY EXPORTS_LIST SOURCE_DIR [--all-families]
#
# 1. The dynamic symbol table defines exactly the names of EXPORTS_LIST (the
#    union of src/exports/*.txt): nothing missing, nothing extra, and of
#    Mini-XML only mxmlRelease.
# 2. Every listed name belongs to the interface: the shared list
#    ../shared/exports.txt beside the source tree (UTILS_INTERFACE_LIST
#    names another file) or tests/extra_exports.txt.
# 3. Names of the interface that no family provides yet are counted and
#    printed; with --all-families (or UTILS_ALL_FAMILIES=1 in the
#    environment) each of them is a failure.
set -euo pipefail
lib=$1 expected=$2 source=$3
all_families=${UTILS_ALL_FAMILIES:-0}
[ "${4:-}" = "--all-families" ] && all_families=1
interface=${UTILS_INTERFACE_LIST:-$source/../shared/exports.txt}
extra=$source/tests/extra_exports.txt
status=0

names() { grep -E '^[A-Za-z_][A-Za-z0-9_]*$' "$1" | sort -u; }

actual=$(nm -D --defined-only "$lib" | awk '{print $NF}' | sed 's/@.*//' | sort -u)
want=$(names "$expected")
missing=$(comm -13 <(echo "$actual") <(echo "$want"))
surplus=$(comm -23 <(echo "$actual") <(echo "$want"))
[ -n "$missing" ] && { echo "listed but not exported:"; echo "$missing"; status=1; }
[ -n "$surplus" ] && { echo "exported but not listed:"; echo "$surplus"; status=1; }
mxml=$(echo "$actual" | grep -E '^_?mxml' | grep -v -x mxmlRelease || true)
[ -n "$mxml" ] && { echo "Mini-XML symbols leaked:"; echo "$mxml"; status=1; }

if [ ! -f "$interface" ]; then
  echo "the interface list $interface is missing (set UTILS_INTERFACE_LIST to its path)"
  exit 1
fi
allowed=$(sort -u <(names "$interface") <(names "$extra"))
foreign=$(comm -23 <(echo "$want") <(echo "$allowed"))
[ -n "$foreign" ] && {
  echo "listed in src/exports/ but not part of the interface (neither in $interface nor in tests/extra_exports.txt):"
  echo "$foreign"
  status=1
}
pending=$(comm -13 <(echo "$want") <(echo "$allowed"))
count=$(echo -n "$pending" | grep -c . || true)
if [ "$count" -gt 0 ]; then
  echo "not yet provided: $count names"
  if [ "$all_families" = 1 ]; then
    echo "$pending"
    echo "every family is expected (UTILS_ALL_FAMILIES): the names above are missing"
    status=1
  fi
fi
[ $status -eq 0 ] && echo "exports: $(echo "$want" | wc -l) names, all present, none extra, all in the interface"
exit $status

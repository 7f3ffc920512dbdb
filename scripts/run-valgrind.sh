#!/usr/bin/env bash
# run-valgrind.sh - runs the plain GoogleTest programs of a build under
# valgrind's memcheck. Unlike the sanitizers, memcheck also watches the code
# that is not instrumented (Mini-XML, RE2, the C library), so a read past a
# block by a dependency shows here. Any memcheck error or definite leak fails.
# Usage: scripts/run-valgrind.sh BUILD_DIR
set -uo pipefail
build=$(cd "$1" && pwd) || exit 1
supp=$(cd "$(dirname "$0")" && pwd)/valgrind.supp
# The tests read their data relative to tests/, as ctest runs them.
cd "$(dirname "$0")/../tests" || exit 1
failed=0
for t in "$build"/tests/test_*; do
  [ -x "$t" ] || continue
  name=$(basename "$t")
  log=$(mktemp)
  if valgrind --quiet --error-exitcode=99 --suppressions="$supp" --leak-check=full --errors-for-leak-kinds=definite \
      --track-origins=yes "$t" --gtest_brief=1 >"$log" 2>&1; then
    echo "$name: clean"
  else
    echo "$name: FAILED"
    tail -n 40 "$log"
    failed=1
  fi
  rm -f "$log"
done
exit $failed

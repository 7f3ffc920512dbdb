#!/usr/bin/env bash
# run-fuzz.sh - runs every libFuzzer harness of a build for a while, each
# with its seeds, and prints one summary line per harness; fails when any
# harness found a crash, a leak or a timeout. Usage:
#   scripts/run-fuzz.sh BUILD_DIR SECONDS [RUNS]
# RUNS (optional) stops a harness after that many executions instead.
set -uo pipefail
build=$1
seconds=$2
runs=${3:-}
summary=()
failed=0
for f in "$build"/fuzz/fuzz_*; do
  [ -x "$f" ] || continue
  name=$(basename "$f")
  corpus=$build/corpus/$name
  mkdir -p "$corpus"
  seeds=fuzz/seeds/$name
  [ -d "$seeds" ] || seeds=
  log=$build/$name.log
  limit=(-max_total_time="$seconds")
  [ -n "$runs" ] && limit+=(-runs="$runs")
  echo "== $name"
  "$f" "${limit[@]}" -print_final_stats=1 -artifact_prefix="$build/$name-" \
    "$corpus" $seeds >"$log" 2>&1
  status=$?
  execs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" | tail -n 1)
  secs=$(sed -n 's/^stat::average_exec_per_sec: *//p' "$log" | tail -n 1)
  cov=$(grep -o 'cov: [0-9]*' "$log" | tail -n 1)
  if [ $status -eq 0 ]; then
    verdict=clean
  else
    verdict="FAILED (exit $status, see $log)"
    failed=1
    grep -m 3 -E 'ERROR|SUMMARY|Test unit written' "$log" | sed 's/^/   /'
  fi
  summary+=("$(printf '%-24s %12s executions %8s/s  %-10s %s' "$name" "${execs:-?}" "${secs:-?}" "${cov:-}" "$verdict")")
done
echo
echo "== fuzz summary"
printf '%s\n' "${summary[@]}"
exit $failed

# cli_checks.sh - what the command-line tests share; each sources it after
# reading its own arguments. It makes a work folder, removed at exit, and
# gives:
#   check NAME CONDITION...  runs CONDITION, counting a pass or a failure;
#   summary NAME             prints the counts and is the script's status.
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
passes=0

check() {
  name=$1; shift
  if "$@"; then passes=$((passes + 1)); else echo "FAILED: $name"; failures=$((failures + 1)); fi
}

summary() {
  echo "$1: $passes passed, $failures failed"
  [ "$failures" -eq 0 ]
}

#!/bin/sh
# compile_fail_test.sh COMPILER ROOT FILE: FILE compiles, and with each CASE of it it does not.
set -eu

compile() { "$1" -std=c++20 -fsyntax-only -w -I "$2" -DCASE="$4" "$3" 2> /dev/null; }

compile "$@" 0 || {
  echo "does not compile without a case"
  exit 1
}
status=0
count=0
for case in $(sed -n 's/^#.*CASE == \([0-9]*\).*/\1/p' "$3"); do
  count=$((count + 1))
  if compile "$@" "$case"; then
    echo "case $case compiles"
    status=1
  fi
done
echo "$count cases"
[ "$count" -gt 0 ]
exit $status

#!/bin/sh
# Another compiler and no optimisation give the same digits.
# other_compilers_test.sh PROGRAM CXX SOURCES: PROGRAM prints the digests of this build.
set -eu
program=$1 cxx=$2 sources=$3
count=20000
[ -z "${DEPCALC_LONG-}" ] || count=2000000
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$program" "$count" > "$work/expected"
cat "$work/expected"

# An asset in two lanes comes to what it comes to in more.
[ "$(sed -n 's/two lanes //p' "$work/expected")" = "$(sed -n 's/most lanes //p' "$work/expected")" ]

compare() {
  compiler=$1 level=$2

  (cd "$sources" && "$compiler" -std=c++20 "$level" -ffp-contract=off -w -I. -o "$work/other" \
    values/*.cpp common/*.cpp engine/*.cpp tests/engine/schedule_digest.cpp)
  "$work/other" "$count" > "$work/found"
  diff "$work/expected" "$work/found" || { echo "$compiler $level gives other digits"; exit 1; }
  echo "$compiler $level: the same"
}

compare "$cxx" -O0
if command -v clang++ > /dev/null; then compare clang++ -O2; fi

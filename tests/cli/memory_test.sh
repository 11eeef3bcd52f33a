#!/bin/sh
# Memory does not grow with the file: ten times the rows take hardly any more, good rows or
# bad. depcalc and generate_assets are on the PATH; SANITIZED is set where the address sanitizer is.
set -eu

# Sanitizers keep freed memory aside; without that, growth is the program's own.
export ASAN_OPTIONS="quarantine_size_mb=0:malloc_context_size=0"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# KiB that `depcalc schedule` takes for a file, whatever its exit status.
memory() {
  /usr/bin/time -q -f %M -o "$work/peak" depcalc schedule --today "$2" --format "$3" "$1" \
    > "$work/out" 2> "$work/errors" || [ "$2" = 1900-01-01 ]
  cat "$work/peak"
}

rows=40000
most=1024
# Each thread's part of the sanitizer's allocator grows as the turns fall; so many rows take more.
if [ -n "${SANITIZED-}" ]; then
  rows=160000
  most=4096
fi
generate_assets 4000 > "$work/small.csv"
generate_assets "$rows" > "$work/large.csv"
for case in "2024-06-30 csv" "2024-06-30 json" "2024-06-30 table" "1900-01-01 csv"; do
  set -- $case
  small=$(memory "$work/small.csv" "$1" "$2")
  large=$(memory "$work/large.csv" "$1" "$2")
  echo "$case: $small KiB, then $large KiB"
  [ "$large" -lt $((small + most)) ]
done

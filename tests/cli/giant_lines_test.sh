#!/bin/sh
# A line of 64 MiB (in the long form 1 GiB), and lines a tenth of that of every other kind that
# might cost a reader memory, come through a pipe. Their place and what is wrong are said, the next
# row is read, and memory stays small. depcalc is on the PATH; SANITIZED is set where the address
# space must not be limited.
set -eu

size=65536
[ -z "${DEPCALC_LONG-}" ] || size=1048576
# Sanitizers keep freed memory aside; without that, growth is the program's own.
export ASAN_OPTIONS="quarantine_size_mb=0:malloc_context_size=0"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failed=0

giant() { head -c "${size}K" /dev/zero | tr '\0' "$1"; }
many() { head -c "$((size / 10))K" /dev/zero | tr '\0' "$1"; }

# rows KIND: a header, the line of that kind, and a good row unless the line has no end.
rows() {
  [ "$1" = heading ] || echo id,life,basis,placed_in_service
  case $1 in
    none) ;;
    heading | field) printf 'A,' && giant x && echo ;;
    lines) printf 'A,"' && many '\n' && echo '"' ;;
    quotes) printf 'A,"' && many '"' && echo '"' ;;
    commas) printf 'A,' && many , && echo ;;
    nul) printf 'A,' && many '\0' && echo ;;
    bytes) printf 'A,' && many '\377' && echo ;;
    empty) many '\r' ;;
    open) printf 'A,"' && many x && return ;;
  esac
  echo GOOD,1,9,2024-01-01
}

limited() {
  [ -n "${SANITIZED-}" ] || ulimit -v 131072
  exec /usr/bin/time -q -f %M -o "$work/peak" "$@"
}

# run KIND COMMAND...: gives `status`, `peak` in KiB and the files out and errors.
run() {
  kind=$1
  shift
  status=0
  rows "$kind" | (limited "$@") > "$work/out" 2> "$work/errors" || status=$?
  peak=$(cat "$work/peak")
}

# check KIND STATUS MESSAGE COMMAND...
check() {
  expected="$2 ${3:+-:$3}"
  kind=$1
  shift 3
  run "$kind" "$@"
  came="$status $(head -n 1 "$work/errors")"
  echo "$2, $kind: $peak KiB, $came"
  [ "$came" = "$expected" ] && [ "$peak" -lt "$most" ] && return
  echo "expected less than $most KiB, $expected"
  failed=1
}

good_row_read() {
  [ "$(grep -c ^GOOD "$work/out")" = 4 ] && return
  echo "the good row is not there"
  failed=1
}

schedule="depcalc schedule --format csv --today 2024-06-01"
run none $schedule
most=$((peak + 3072))
too_long="The field is longer than 65,536 bytes."
check empty 0 "" $schedule
good_row_read
check heading 1 "1: column 3: $too_long" $schedule
check field 1 "2: column 3: $too_long" $schedule
good_row_read
check lines 1 "2: column 3: $too_long" $schedule
good_row_read
check quotes 1 "2: column 3: $too_long" $schedule
good_row_read
check commas 1 "2: column 1026: The record has more than 1,024 fields." $schedule
good_row_read
check nul 1 "2: column 3: The file contains a NUL character; please save it as plain UTF-8 text." \
  $schedule
good_row_read
check bytes 1 "2: column 3: The text is not UTF-8; please save it as UTF-8." $schedule
good_row_read
check open 1 \
  "2: column 3: The quote opened here is never closed; please add the closing quote." $schedule

depcalc new "$work/w.company"
import="depcalc import --today 2024-06-01 $work/w.company -"
run none $import
# Import takes texts as long as a company file can hold.
most=$((peak + 16384))
check field 1 "2: column 3: The field is longer than 4,194,304 bytes." $import
check commas 1 "2: column 1026: The record has more than 1,024 fields." $import
exit $failed

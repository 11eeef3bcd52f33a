#!/usr/bin/env bash
# On several cores `depcalc schedule` writes what it writes on one: the same bytes in both outputs and
# the same status, whatever the rows, and in bounded memory. depcalc and generate_assets are on the
# PATH.
set -eu

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

generate_assets 20000 > good.csv
# Quotes, fields too many, line ends of all kinds, bytes that are no UTF-8, empty lines.
awk 'BEGIN { srand(1) }
  NR == 1 { print; next }
  {
    chance = rand()
    if (chance < 0.02) $0 = $0 ",more"
    else if (chance < 0.04) sub(/,/, ",\"several\r\nlines, \"\"quoted\"\"\"")
    else if (chance < 0.06) sub(/^[^,]*/, "\"a\nb\"")
    else if (chance < 0.08) sub(/,/, ",a\"b")
    else if (chance < 0.10) $0 = ""
    else if (chance < 0.12) $0 = "\377" $0
    printf "%s%s", $0, chance < 0.5 ? "\n" : chance < 0.8 ? "\r\n" : "\r"
  }' good.csv > odd.csv
{ head -9000 good.csv; echo '"never closed'; tail -9000 good.csv; } > open.csv
{ head -1 good.csv; yes x | head -40000; } > bad.csv
head -1 good.csv > empty.csv
head -c 150000 good.csv > short.csv  # within a row
printf '%s\n' 'basis;life' > foreign.csv

run() {
  local status=0
  depcalc schedule --today 2024-06-30 --format "$1" --jobs "$2" "$3" > "out.$2" 2> "errors.$2" || status=$?
  echo "$status" >> "errors.$2"
}
for file in good odd open bad empty short foreign; do
  for format in csv json table; do
    run "$format" 1 "$file.csv"
    for jobs in 2 3 16; do
      run "$format" "$jobs" "$file.csv"
      cmp out.1 "out.$jobs"
      cmp errors.1 "errors.$jobs"
    done
  done
  echo "$file: $(wc -c < out.1) bytes, $(wc -l < errors.1) lines of messages"
done

# What cannot be written is said once, by the same status.
for jobs in 1 4; do
  status=0
  depcalc schedule --jobs "$jobs" --today 2024-06-30 good.csv > /dev/full 2> "full.$jobs" || status=$?
  echo "$status" >> "full.$jobs"
done
cmp full.1 full.4

# A reader that has seen enough ends every thread.
[ "$(depcalc schedule --jobs 8 --today 2024-06-30 --format csv good.csv | head -1)" = id,method,fiscal_year,amount ]

# A folder cannot be read: nothing but that is said.
for jobs in 1 4; do
  status=0
  depcalc schedule --jobs "$jobs" "$work" > "out.$jobs" 2> "errors.$jobs" || status=$?
  [ "$status" = 3 ]
done
cmp out.1 out.4
cmp errors.1 errors.4

# However slow its reader and however little a row takes in the file, memory is bounded.
export ASAN_OPTIONS="quarantine_size_mb=0:malloc_context_size=0"
{ echo placed_in_service,life,basis; yes 2024-01-01,50,1 | head -60000; } > many.csv
most=65536
[ -z "${SANITIZED-}" ] || most=$((4 * most))
for file in many.csv bad.csv; do
  { /usr/bin/time -q -f %M -o peak depcalc schedule --jobs 32 --today 2024-06-30 --format json "$file" 2> errors.32 || true; } |
    { sleep 1; wc -c; }
  echo "$file: $(cat peak) KiB"
  [ "$(cat peak)" -lt "$most" ]
done

#!/usr/bin/env bash
# journey.sh DEPCALC_DESKTOP DEPCALC_DRIVE: a user's whole journey on a real X server, by keyboard:
# a new company, three assets, each method, edit, delete, print. What the company file and the
# printed schedule then hold is checked.
set -euo pipefail

desktop=$1
drive=$2
place=$(mktemp -d)
mkdir -m 700 "$place/run"
export XDG_CONFIG_HOME="$place/config" XDG_DATA_HOME="$place/data" XDG_RUNTIME_DIR="$place/run"
export QT_QPA_PLATFORM=xcb QT_ACCESSIBILITY=0 LC_ALL=C.UTF-8
company="$place/joinery.company"
program=
server=

finish() {
  local status=$?
  [[ $status -eq 0 ]] || import -window root "${DEPCALC_JOURNEY_SHOT:-/tmp/journey-failed.png}" || true
  [[ -z $program ]] || kill "$program" 2>/dev/null || true
  [[ -z $server ]] || kill "$server" 2>/dev/null || true
  wait 2>/dev/null || true
  rm -rf "$place"
  exit "$status"
}
trap finish EXIT

fail() {
  echo "journey: $*" >&2
  exit 1
}

mkfifo "$place/display"
Xvfb -displayfd 4 -screen 0 1280x900x24 4>"$place/display" 2>"$place/xvfb.log" &
server=$!
read -r -t 30 number <"$place/display" || fail "no X server: $(cat "$place/xvfb.log")"
export DISPLAY=":$number"

# No window manager is here: whoever opens a window gives it the keys.
await() {
  local id
  for _ in $(seq 300); do
    id=$(xdotool search --onlyvisible --name "$1" 2>/dev/null | tail -1) || id=
    if [[ -n $id ]] && xdotool windowfocus --sync "$id" 2>/dev/null; then
      sleep 0.2
      return
    fi
    sleep 0.1
  done
  fail "no window called $1"
}
await_end() {
  for _ in $(seq 300); do
    xdotool search --onlyvisible --name "$1" >/dev/null 2>&1 || return 0
    sleep 0.1
  done
  fail "$1 stays"
}
keys() { xdotool key --delay 40 "$@"; }
types() { xdotool type --delay 25 "$1"; }
main_window() { await '^joinery – Depreciation Calculator$'; }
# Types each text and goes on to the next field; +N takes the Nth item of a list.
fields() {
  local text
  for text in "$@"; do
    if [[ $text == +* ]]; then
      for _ in $(seq "${text#+}"); do keys Down; done
    else
      types "$text"
    fi
    keys Tab
  done
}

# The X plugin and the font library keep memory to the end; leaks of our own are looked for in the
# tests that do without a server.
ASAN_OPTIONS=detect_leaks=0 "$desktop" 2>"$place/errors" &
program=$!
await '^Depreciation Calculator$'
keys ctrl+n
await '^New Company'
types "$company"
keys Return
await '^Company Info'
keys Return
await_end '^Company Info'
main_window

fields TRK-014 'Delivery truck' 1FTYR10D Warehouse 9/15/2023 '' 5 +1 38450 4000 150000
keys alt+c Tab Right alt+s            # sum of the years' digits
keys alt+n
fields LAT-002 Lathe C-4471 Shop 7/1/2023 '' 5 +4 10000 1000 ''
keys alt+c Tab Right Right alt+s      # double declining balance
keys alt+n
fields PC-031 Workstation 5CD9 Office 1/20/2024 '' 3 +0 2350 0 1000
keys alt+c Tab Right Right Right alt+s  # units of production
keys alt+n
fields OLD-001 Old '' '' 1/20/2024 '' 3 +0 100 0 ''
keys alt+s                            # no method: saved without comparing

# Edit the second asset, delete the fourth, print the rest into a file. The asset just saved is the
# one selected.
keys Left Left alt+e
keys ctrl+a
types LAT-003
keys alt+s
keys Right Right alt+d
await '^Delete an Asset'
keys alt+y
await_end '^Delete an Asset'
main_window
keys alt+p
await 'PDF'
keys ctrl+a
types "$place/schedule.pdf"
keys Return
await_end 'PDF'
main_window
keys ctrl+q
for _ in $(seq 300); do
  kill -0 "$program" 2>/dev/null || break
  sleep 0.1
done
wait "$program" || fail "the program ended with status $?"
program=
[[ ! -s $place/errors ]] || fail "it said: $(cat "$place/errors")"

printf 'table\n' >"$place/script"
"$drive" "$company" "$place/script" >"$place/table" || fail "the company cannot be read"
for text in TRK-014 LAT-003 PC-031 SYD DDB UOP; do
  grep -q -- "$text" "$place/table" || fail "$text is not in the company file"
done
for text in LAT-002 OLD-001; do
  ! grep -q -- "$text" "$place/table" || fail "$text is still in the company file"
done
pdftotext -layout "$place/schedule.pdf" "$place/schedule.txt"
for text in 'Depreciation Schedule' TRK-014 LAT-003 PC-031; do
  grep -q -- "$text" "$place/schedule.txt" || fail "$text is not on paper"
done
echo "journey: done"

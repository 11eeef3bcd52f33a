#!/bin/sh
# man_page_test.sh PAGE: every command and every option that --help names is in the manual page,
# and the page is well formed. depcalc is on the PATH.
set -eu

page=$1
plain=$(sed 's/\\-/-/g' "$page")
missing=0
options=0

look_for() {
  printf '%s\n' "$plain" | grep -q -e "$1\([^a-z-]\|\$\)" || {
    echo "not in the manual page: $1 ($2)"
    missing=1
  }
}

commands=$(depcalc --help | sed -n '/^Subcommands:/,$p' | sed -n 's/^  \([a-z]*\) .*/\1/p')
for command in "" $commands; do
  [ -z "$command" ] || look_for "depcalc $command" command
  for option in $(depcalc $command --help | sed -n 's/^  \(-.*\)/\1/p' | grep -o -e '--[a-z-]*'); do
    look_for "$option" "depcalc $command"
    options=$((options + 1))
  done
done
[ "$options" -ge 8 ] || {
  echo "only $options options found in the help"
  exit 1
}

warnings=$(LC_ALL=C MANWIDTH=100 man --warnings -l "$page" 2>&1 > /dev/null)
[ -z "$warnings" ] || {
  echo "$warnings"
  missing=1
}
exit $missing

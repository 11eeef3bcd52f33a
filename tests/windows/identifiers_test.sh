#!/usr/bin/env bash
# identifiers_test.sh PAGE IDL…: the page's table of identifiers is that of the type libraries: what
# clients were built with never changes, nor is anything new kept from them.
set -euo pipefail
page=$1
shift
of_libraries() {
  awk '/uuid\(/ { match($0, /uuid\([0-9A-Fa-f-]+\)/); id = toupper(substr($0, RSTART + 5, RLENGTH - 6)) }
    function named(name) { print name, id; id = "" }
    id && $1 ~ /^(library|interface|dispinterface|coclass)$/ { named($2) }
    id && $1 == "typedef" && $2 == "enum" { named($3) }' "$@" | LC_ALL=C sort
}
of_page() { sed -n 's/^| `\([A-Za-z0-9]*\)` | `{\([0-9A-F-]*\)}` |$/\1 \2/p' "$page" | LC_ALL=C sort; }

diff <(of_libraries "$@") <(of_page)
count=$(of_page | wc -l)
echo "$count identifiers"
[[ $count -gt 20 && $(of_page | cut -d' ' -f2 | sort -u | wc -l) -eq $count ]]

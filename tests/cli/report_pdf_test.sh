#!/usr/bin/env bash
# report_pdf_test.sh: what a report says as a PDF document is what it says as a table, to the last
# asset of 5,000. depcalc and generate_assets are on the PATH.
set -euo pipefail

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
  echo "$*"
  exit 1
}

# Methods and departments in turn, and texts that need lines of their own.
rows() {
  generate_assets "$1" | awk -F, -v OFS=, '
    NR == 1 { print $0, "method"; next }
    { split("SL SYD DDB", methods, " "); print $0, methods[NR % 3 + 1] }'
}
depcalc new --today 2024-06-01 big.company --name "Sample Joinery" > /dev/null
# No name of two words: those are broken into lines.
rows 5000 | sed 's/"Extractor, twin"/Extractor/; s/ \(fittings\|truck\|router\|saw\)//' |
  depcalc import --allow-duplicates --today 2024-06-01 big.company - > /dev/null

report() { depcalc report "$1" "$2" --today 2024-06-01 "${@:3}"; }
pdf() {
  report "$@" --format pdf --output report.pdf
  pdftotext "${layout--layout}" report.pdf report.txt
}
squeezed() { sed -E 's/[ \f]+/ /g; s/^ //; s/ $//'; }

# Row for row, in their order.
depcalc_rows() { grep -E '^ *[0-9]+ +A[0-9]{8}' | squeezed; }
pdf schedule big.company --year 2024 --landscape
report schedule big.company --year 2024 | depcalc_rows > wanted
depcalc_rows < report.txt > found
[[ $(wc -l < wanted) -gt 3000 ]] || fail "only $(wc -l < wanted) assets"
cmp wanted found || { diff wanted found | head; fail "the rows of the schedule"; }
pages=$(pdfinfo report.pdf | awk '$1 == "Pages:" { print $2 }')
[[ $(grep -c "Page [0-9]* of $pages\$" report.txt) -eq $pages ]] || fail "pages are not numbered"
[[ $(grep -c 'Convention' report.txt) -eq $pages ]] || fail "captions are not on every page"

# Word for word, over whatever pages a table is spread: each of them at least as often.
words() { tr -s ' \n\f' '\n\n\n' | grep -v '^[-=]*$' | sort; }
has_all_words() {
  local missing
  report "$@" --format table | words > wanted
  pdf "$@" ${paper-}
  words < report.txt > found
  missing=$(comm -23 wanted found | head -5)
  [[ -z $missing ]] || fail "$* ${paper-}: not on paper: $missing"
}
layout=-raw
depcalc new --today 2024-06-01 small.company --name "Sample & <Sons>" > /dev/null
rows 120 | depcalc import --allow-duplicates --today 2024-06-01 small.company - > /dev/null
for paper in "--paper A4" "--paper A4 --landscape" "--paper Letter" "--paper Letter --landscape"; do
  has_all_words schedule small.company --year 2024 --by department
  has_all_words years small.company --by method
  has_all_words rollforward small.company --year 2024 --by convention
  has_all_words journal small.company --year 2024 --by department
done
# 5,000 assets over 40 years and more.
paper=
has_all_words years big.company

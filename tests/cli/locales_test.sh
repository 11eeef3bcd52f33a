#!/bin/sh
# locales_test.sh LOCALES: what every command prints is the same, byte for byte, whatever the
# language, the number format and the time zone, on leap days and at year ends; today is the date
# where the user is. Locales are made in the directory LOCALES where they are not there yet.
# depcalc and depcalc-desktop are on the PATH.
set -eu

LOCPATH=$1
export LOCPATH
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
languages="de_DE tr_TR ar_EG"
zones="Pacific/Kiritimati Etc/GMT+12"
days="2024-02-29 2023-12-31"
[ -z "${DEPCALC_LONG-}" ] || days="$days 2024-01-01 2024-12-31 2025-02-28 2000-02-29 2048-02-29"

# --- The languages and zones are really there ------------------------------------------------------

fail() {
  echo "$*"
  exit 1
}

mkdir -p "$LOCPATH"
for language in $languages; do
  [ -e "$LOCPATH/$language.UTF-8/LC_TIME" ] ||
    localedef -i "$language" -f UTF-8 "$LOCPATH/$language.UTF-8" || fail "no locale $language"
done
first_month() { LC_ALL=$1.UTF-8 locale mon | cut -d ';' -f 1; }
[ "$(first_month de_DE) $(first_month tr_TR) $(first_month ar_EG)" = "Januar Ocak يناير" ] ||
  fail "the locales do not work"
[ "$(LC_ALL=de_DE.UTF-8 locale decimal_point)" = , ] || fail "the number formats do not work"
[ "$(TZ=Pacific/Kiritimati date +%z) $(TZ=Etc/GMT+12 date +%z)" = "+1400 -1200" ] ||
  fail "the time zones do not work"

# --- Every command ---------------------------------------------------------------------------------

cat > "$work/assets.csv" << END
ID,Name,SERIAL,Department,PLACED_IN_SERVICE,FISCAL_YEAR_END,LIFE,CONVENTION,Basis,SALVAGE,CAPACITY,METHOD
A-1,Müller İIıi,=1,ورشة,2024-02-29,02-29,3,ACTUAL DAYS,"1,234.56",0.5,"12,345",sl
B-2,Lathe,,Shop,2023-12-31,12-31,50,half year,9999999.99,,,SYD
C-3,Press,,Shop,12/31/2023,,5,FULL MONTH,1e3,1,7,ddb
D-4,Saw,,Shop,1/1/2024,06-30,7,HALF MONTH,.01,,3,UOP
E-5,Bench,,,2023-03-01,,1,full year,5,,,
END
grep -v '^A-1' "$work/assets.csv" > "$work/plain.csv"
cat > "$work/bad.csv" << END
id,life,basis,placed_in_service,salvage,capacity,convention
A,"3,5",9,31.12.2023,,,
B,5,"1.234,56",2024-13-01,"0,5",١٢,ACTUAL DAYS
END

# run NUMBER ARGUMENTS...: keeps what comes out, its messages and its status.
run() {
  out=$1
  shift
  status=0
  depcalc "$@" > "$out" 2> "$out.errors" || status=$?
  echo "$status" > "$out.status"
}

# Everything, with today as $1, in the current directory.
every_command() {
  today="--today $1"
  cp ../assets.csv ../plain.csv ../bad.csv .
  run new new $today --name Müller --first-month april w.company
  run import import $today w.company assets.csv
  run more import --allow-duplicates $today w.company plain.csv
  run refused import $today w.company bad.csv
  for format in table csv json; do
    run "schedule-$format" schedule $today --ignore-unknown --format "$format" assets.csv
    run "list-$format" list $today --format "$format" w.company
    run "register-$format" register $today --format "$format" w.company
  done
  for format in table csv json html; do
    for kind in schedule years rollforward journal check; do
      run "report-$kind-$format" report "$kind" $today --format "$format" w.company
    done
    run "report-asset-$format" report asset --asset 1 $today --format "$format" w.company
  done
  run bad schedule $today bad.csv
  run dump dump $today w.company
  run delete delete $today w.company 1
  run left list $today w.company
  run print print $today w.company --output w.pdf
  pdftotext -layout w.pdf w.text
  run check check $today w.company
  run missing list missing.company
  run help --help
  rm w.company w.pdf
}

in_place() {
  mkdir "$work/$1"
  cd "$work/$1"
}

for day in $days; do
  (in_place "C-$day" && LC_ALL=C TZ=UTC && export LC_ALL TZ && every_command "$day")
  [ "$(cat "$work/C-$day/"*.status | sort | uniq -c | tr -s ' \n' ' ')" = " 42 0 2 1 1 3 " ] ||
    fail "the commands end otherwise: $(grep . "$work/C-$day/"*.status "$work/C-$day/"*.errors)"
  for language in $languages; do
    for zone in $zones; do
      place="$language-$(basename "$zone")-$day"
      (in_place "$place" && LC_ALL=$language.UTF-8 TZ=$zone && export LC_ALL TZ &&
        every_command "$day")
      sed -i "s,/$place/,/C-$day/," "$work/$place/"*.errors
      diff -r "$work/C-$day" "$work/$place" || fail "$day: $language in $zone prints otherwise"
    done
  done
done
echo "$(ls -d "$work"/*-*-*-* | wc -l) runs of $(ls "$work/C-2024-02-29/"*.status | wc -l) commands agree"

# --- Today -----------------------------------------------------------------------------------------

# Fifty years from the day $1 of today, and the day behind it.
fifty_years_on() {
  echo "$1" | sed 's/-02-29$/-02-28/' | (IFS=- read -r y m d && echo "$((y + 50))-$m-$d")
}

accepted() {
  printf 'life,basis,placed_in_service\n1,9,%s\n' "$1" |
    TZ=$zone depcalc schedule > /dev/null 2> "$work/refusal"
}

for zone in $zones; do
  before=$(TZ=$zone date +%F)
  last=$(fifty_years_on "$before")
  last_accepted=$(accepted "$last" && echo yes || echo no)
  next_accepted=$(accepted "$(date -d "$last + 1 day" +%F)" && echo yes || echo no)
  [ "$before" = "$(TZ=$zone date +%F)" ] || continue # midnight has passed
  echo "$zone: today is $before"
  [ "$last_accepted $next_accepted" = "yes no" ] || fail "today is not $before in $zone"
done

# --- The program's screens and print ---------------------------------------------------------------

QT_QPA_PLATFORM=offscreen
XDG_RUNTIME_DIR=$work
TZ=UTC
SOURCE_DATE_EPOCH=1717243200 # June 1, 2024, 12:00, wherever a picture shows when
export QT_QPA_PLATFORM XDG_RUNTIME_DIR TZ SOURCE_DATE_EPOCH
depcalc new "$work/w.company"
depcalc import --today 2024-06-01 "$work/w.company" "$work/plain.csv" > /dev/null
for language in C $languages; do
  LC_ALL=$language.UTF-8 ASAN_OPTIONS=detect_leaks=0 depcalc-desktop \
    --preview "$work/screens-$language" "$work/w.company" > /dev/null 2> "$work/messages" ||
    fail "$(cat "$work/messages")"
  for document in "$work/screens-$language/"*.pdf; do
    pdftotext -layout "$document" "$document.text"
    rm "$document"
  done
  diff -r "$work/screens-C" "$work/screens-$language" || fail "$language draws otherwise"
done
echo "$(ls "$work/screens-C" | wc -l) screens and documents agree"

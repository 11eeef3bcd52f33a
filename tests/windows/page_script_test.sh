#!/usr/bin/env bash
# page_script_test.sh WINE SESSION PAGE: the script that stands in PAGE has ten lines, runs, and prints
# what stands there.
set -euo pipefail
wine=$1
session=$2
page=$3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# block KIND: the page's first block of that kind.
block() { awk -v fence="\`\`\`$1" '$0 == fence { on = 1; next } on && /^```$/ { exit } on' "$page"; }

block vbs >"$folder/schedule.vbs"
block text >"$folder/expected"
[[ $(wc -l <"$folder/schedule.vbs") -eq 10 ]] || { echo "The script has not ten lines"; exit 1; }
[[ -s $folder/expected ]] || { echo "The page does not say what the script prints"; exit 1; }
# The engine's own status is 0 even where a script fails.
echo 'WScript.Quit 42' >>"$folder/schedule.vbs"
status=0
"$wine" run "$session" cscript //nologo "Z:${folder//\//\\}\\schedule.vbs" >"$folder/printed" || status=$?
[[ $status -eq 42 ]] || { cat "$folder/printed"; echo "The script ended with status $status"; exit 1; }
diff "$folder/expected" <(tr -d '\r' <"$folder/printed")

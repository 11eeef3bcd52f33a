#!/usr/bin/env bash
# imports_test.sh OBJDUMP FILE: FILE asks for nothing that does not come with Windows.
set -euo pipefail
objdump=$1
file=$2

of_windows='advapi32|comctl32|comdlg32|gdi32|kernel32|msvcrt|ole32|oleacc|oleaut32|shell32|user32|uxtheme|winspool'
imports=$("$objdump" -p "$file" | sed -n 's/.*DLL Name: //p')
[[ $(wc -w <<<"$imports") -ge 2 ]] || { echo "Found too few imports: $imports"; exit 1; }
foreign=$(grep -viE "^($of_windows)\.(dll|drv)$" <<<"$imports" || true)
[[ -z $foreign ]] || { echo "$file needs files that may not be there:" $foreign; exit 1; }
echo $imports

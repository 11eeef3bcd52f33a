#!/usr/bin/env bash
# script_test.sh WINE SESSION SCRIPT [INPUT EXPECTED]: runs a script by the engine for its kind. It
# must end with status 42: the engine's own is 0 even where a script fails. With INPUT it is given
# that and a file to write, which must become EXPECTED.
set -euo pipefail
wine=$1
session=$2
script=$3
out=$(mktemp)
trap 'rm -f "$out"' EXIT

windows_path() { echo "Z:${1//\//\\}"; }

arguments=()
[[ $# -eq 3 ]] || arguments=("$(windows_path "$4")" "$(windows_path "$out")")
status=0
"$wine" run "$session" cscript.exe //nologo "$(windows_path "$script")" "${arguments[@]}" || status=$?
[[ $status -eq 42 ]] || { echo "$script ended with status $status"; exit 1; }
[[ $# -eq 3 ]] || cmp "$out" "$5"

#!/usr/bin/env bash
# registration_round_test.sh WINE SESSION LIBRARY: registering leaves the keys that clients look for,
# and unregistering the registry as it was, for everyone and for one user.
set -euo pipefail
wine=$1
session=$2
library="Z:${3//\//\\}"
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

run() { "$wine" run "$session" "$@"; }
# Where programs keep things; what lies outside, the display's drivers count themselves.
export_registry() {
  local hive
  for hive in HKEY_LOCAL_MACHINE HKEY_CURRENT_USER; do
    run regedit /E "Z:${folder//\//\\}\\$hive.reg" "$hive\\Software"
  done
  cat "$folder"/HKEY_*.reg >"$folder/$1"
  [[ $(wc -c <"$folder/$1") -gt 100000 ]] || { echo "The registry was not exported"; exit 1; }
}
has() {
  run reg query "$1" >/dev/null 2>&1 || { echo "$1 is missing after registering $2"; exit 1; }
}
unchanged() {
  cmp "$folder/before" "$folder/$1" && return
  diff -a <(tr -d '\0\r' <"$folder/before") <(tr -d '\0\r' <"$folder/$1") || true
  exit 1
}

round() {
  local hive=$1 register=$2 unregister=$3
  run regsvr32 /s $register "$library"
  has "$hive\\Software\\Classes\\DepCalc10.CalculateDep\\CLSID" "$hive"
  has "$hive\\Software\\Classes\\TypeLib\\{32952DFC-1660-4B2A-9FDE-43527E032F55}\\1.0\\0\\win64" "$hive"
  has "$hive\\Software\\Classes\\Interface\\{DD20E570-CC03-441F-AAA6-3F4E0EB560EF}\\ProxyStubClsid32" "$hive"
  run regsvr32 /s $register "$library"  # twice is no mistake
  run regsvr32 /s $unregister "$library"
  export_registry after
  unchanged after
}

export_registry before
round HKLM "" "/u"
round HKCU "/n /i:user" "/u /n /i:user"
echo "The registry is as it was."

#!/usr/bin/env bash
# package_test.sh CMAKE BUILD OBJDUMP IMPORTS_TEST: the zip holds the library, its type libraries, the
# page with the pictures that it shows, and the licences, and the library needs nothing else.
set -euo pipefail
cmake=$1
build=$2
objdump=$3
imports_test=$4
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

(cd "$build" && "${cmake%cmake}cpack" -B "$folder" >"$folder/log") || { cat "$folder/log"; exit 1; }
(cd "$folder" && "$cmake" -E tar xf depcalc-*-windows.zip)
package=$(echo "$folder"/depcalc-*-windows)
[[ -d $package ]] || { echo "There is no zip, or not one folder in it"; exit 1; }

wanted='DepCalc10.idl DepCalc10.tlb DepCalcHost.idl DepCalcHost.tlb LICENSE LICENSE.gcc LICENSE.mingw-w64
  ZemDepCalc.ocx host.vbs windows.md'
wanted=$(xargs <<<"$wanted")
pictures=$(sed -n 's/.*!\[[^]]*\](\([^)]*\)).*/\1/p' "$package/windows.md")
links=$(grep -o '](\([^)]*\))' "$package/windows.md" | sed 's/^](//; s/)$//' | grep -v '^https*:' || true)
found=$(cd "$package" && find . -type f ! -path './images/*' | sed 's|^\./||' | LC_ALL=C sort | xargs)
[[ $found == "$wanted" ]] || { printf 'The zip holds\n  %s\nand not\n  %s\n' "$found" "$wanted"; exit 1; }
for link in $pictures $links; do
  [[ -f $package/$link ]] || { echo "windows.md shows or names $link, which is not in the zip"; exit 1; }
done

"$imports_test" "$objdump" "$package/ZemDepCalc.ocx"
dump=$("$objdump" -p "$package/ZemDepCalc.ocx")
exports=$(sed -n '/^\[Ordinal\/Name Pointer\] Table/,/^$/s/.*\] //p' <<<"$dump" | xargs)
[[ $exports == *DllCanUnloadNow*DllGetClassObject*DllInstall*DllRegisterServer*DllUnregisterServer* ]] || { echo "The library's entries are: $exports"; exit 1; }
(( $(wc -c <"$package/ZemDepCalc.ocx") < 8000000 )) || { echo "The library was not stripped"; exit 1; }
ls -l "$package"

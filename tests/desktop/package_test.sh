#!/usr/bin/env bash
# package_test.sh BUILD: what is installed passes the desktops' validators; the Debian package passes
# Debian's, installs, runs and purges without a trace.
set -euo pipefail

build=$1
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT

fail() {
  echo "package: $*" >&2
  exit 1
}

DESTDIR="$place/tree" cmake --install "$build" --prefix /usr >"$place/install.log"
share="$place/tree/usr/share"
desktop-file-validate "$share/applications/depcalc-desktop.desktop"
appstreamcli validate --no-net "$share/metainfo/org.depcalc.desktop.metainfo.xml" >"$place/appstream" ||
  fail "$(cat "$place/appstream")"
update-mime-database "$share/mime"
man --warnings -l "$share/man/man1/depcalc-desktop.1" 2>&1 >/dev/null | { ! grep .; } ||
  fail "the manual page has warnings"

# The company file is known by its contents, whatever it is called.
"$place/tree/usr/bin/depcalc" new "$place/plain" >/dev/null
grep -aq 'application/vnd.depcalc.company' "$share/mime/magic" || fail "no magic"
[[ $(head -c 15 "$place/plain") == 'SQLite format 3' && $(head -c 72 "$place/plain" | tail -c 4) == DCcf ]] ||
  fail "the magic does not match a company file"

(cd "$place" && cpack --config "$build/CPackConfig.cmake" -B "$place/deb" >"$place/cpack.log") ||
  fail "$(cat "$place/cpack.log")"
package=$(ls "$place"/deb/*.deb)
lintian --allow-root --fail-on error,warning "$package" >"$place/lintian" 2>&1 ||
  fail "$(cat "$place/lintian")"
root="$place/root"
mkdir -p "$root/var/lib/dpkg/updates" "$root/var/lib/dpkg/info"
touch "$root/var/lib/dpkg/status"
dpkg=(dpkg --root="$root" --force-not-root,depends,bad-path,script-chrootless --log=/dev/null)
"${dpkg[@]}" --install "$package" >"$place/dpkg.log" 2>&1 || fail "$(cat "$place/dpkg.log")"
[[ $("$root/usr/bin/depcalc-desktop" -platform offscreen --version) == depcalc\ * ]] ||
  fail "the installed program does not run"
for page in depcalc depcalc-desktop; do
  man -l "$root/usr/share/man/man1/$page.1.gz" | grep -q "^NAME" || fail "no manual page of $page"
done
"$root/usr/bin/depcalc" new "$place/joinery.company" >/dev/null
printf 'id,placed_in_service,life,basis,method\nPC-031,2024-01-20,3,2350,SL\n' |
  "$root/usr/bin/depcalc" import "$place/joinery.company" - >/dev/null
"$root/usr/bin/depcalc" print "$place/joinery.company" --output "$place/schedule.pdf"
[[ $(pdfinfo "$place/schedule.pdf" | awk '$1 == "Pages:" { print $2 }') -gt 0 ]] ||
  fail "the installed command does not print"
# What cannot be shown is told and ends; a box would wait for ever where nobody can see it.
printf "nothing" >"$place/damaged.company"
status=0
XDG_RUNTIME_DIR="$place" timeout 60 "$root/usr/bin/depcalc-desktop" --preview "$place/preview" \
  "$place/damaged.company" 2>"$place/said" || status=$?
[[ $status -eq 1 ]] && grep -q "is not a company file" "$place/said" ||
  fail "preview of a damaged file: status $status, $(cat "$place/said")"
XDG_RUNTIME_DIR="$place" "$root/usr/bin/depcalc-desktop" --preview "$place/preview" \
  "$place/joinery.company" 2>/dev/null | grep -q 'entry.png' || fail "no preview"
for place_of in bash-completion/completions/depcalc zsh/vendor-completions/_depcalc \
  fish/vendor_completions.d/depcalc.fish; do
  [[ -s $root/usr/share/$place_of ]] || fail "no $place_of"
done
bash -c 'source "$1" && complete -p depcalc' bash \
  "$root/usr/share/bash-completion/completions/depcalc" >/dev/null || fail "bash reads no completion"
"${dpkg[@]}" --purge depcalc >"$place/dpkg.log" 2>&1 || fail "$(cat "$place/dpkg.log")"
left=$(find "$root" -path "$root/var/lib/dpkg" -prune -o ! -type d -print)
[[ -z $left ]] || fail "purging leaves $left"
echo "package: done"

#!/usr/bin/env bash
# package_test.sh BUILD: the extension's Debian package passes Debian's checks, needs the PostgreSQL
# that it was built for, and what it installs is an extension that calculates.
set -euo pipefail
build=$1
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
fail() { echo "package: $*" >&2 && exit 1; }

(cd "$place" && cpack --config "$build/CPackPostgresqlConfig.cmake" -B "$place/deb" > "$place/log") ||
  fail "$(cat "$place/log")"
package=$(ls "$place"/deb/*.deb)
lintian --allow-root --fail-on error,warning "$package" > "$place/lintian" 2>&1 ||
  fail "$(cat "$place/lintian")"
server=$(pg_config --version | grep -Eo '[0-9]+' | head -n 1)
[[ $package == */postgresql-"$server"-depcalc_* ]] || fail "$package"
depends=$(dpkg-deb --field "$package" Depends)
[[ $depends == *postgresql-"$server"* && $depends == *libstdc++6* ]] || fail "$depends"

dpkg-deb --extract "$package" "$place/root"
installed=$(cd "$place/root" && find . -type f ! -path './usr/share/doc/*' ! -path './usr/share/lintian/*' | sort | xargs)
[[ $installed == *lib/depcalc.so*extension/depcalc--1.0.sql*extension/depcalc.control ]] || fail "$installed"
! readelf --section-headers "$place"/root/usr/lib/postgresql/*/lib/depcalc.so | grep -q '\.symtab' ||
  fail 'not stripped'

source "$(dirname "$0")/../support/postgres_servers.bash"
start_server SERVER --extension "$place/root"
result=$(psql -qAtX -h "$SERVER" -U postgres -v ON_ERROR_STOP=1 << 'END'
CREATE EXTENSION depcalc;
SELECT depreciation_amounts('2024-03-15', '2000-12-31', 5, 'Half Year', 10000, 1000, 'SL');
END
)
[[ $result == '{900.0000,1800.0000,1800.0000,1800.0000,1800.0000,900.0000}' ]] || fail "$result"

# For tests of the extension: a server that has it, as SERVER, psql's usual one.
#   source extension.bash STAGE [OPTION…]    STAGE is what an installation would put under /

here=$(dirname "${BASH_SOURCE[0]}")
source "$here/../support/postgres_servers.bash"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export LC_ALL=C.UTF-8 LANGUAGE=en PSQLRC=/dev/null PGUSER=postgres PGDATABASE=postgres PGOPTIONS='--client-min-messages=warning'

start_server SERVER --extension "$@"
export PGHOST=$SERVER

# sql [OPTION…]: runs what stands on standard input; prints bare rows.
sql() { psql -qAt -v ON_ERROR_STOP=1 "$@"; }
fail() { echo "$@" >&2 && exit 1; }
# same WHAT EXPECTED FOUND
same() { diff -u <(echo "$2") <(echo "$3") || fail "$1 is not as expected"; }

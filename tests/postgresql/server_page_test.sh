#!/usr/bin/env bash
# server_page_test.sh STAGE PAGE: the commands of docs/server.md do what it says, and print what it
# shows; then, on the servers that they have left, shards say what one server says of many assets.
set -euo pipefail
page=$2
source "$(dirname "$0")/extension.bash" "$1"
source "$here/../support/postgres_installation.bash"

# Blocks of sh and sql become a script that tells their output apart; those of text what it prints.
awk -v script="$work/script" -v shown="$work/shown" '
  /^```(sh|sql)$/ { kind = substr($0, 4); ++blocks; printf "block %d\n", blocks > shown
    print "echo block " blocks > script
    if (kind == "sql") print "psql -v ON_ERROR_STOP=1 << '\''SQL'\'' > result" > script
    next }
  /^```text$/ { kind = "text"; print "cat result" > script; next }
  /^```/ { if (kind == "sql") print "SQL" > script
    if (kind == "sh") print "} > result" > script
    kind = $0 == "```" ? "" : "other"; next }
  kind == "sh" && last_block != blocks { print "{" > script; last_block = blocks }
  kind == "sh" || kind == "sql" { print > script }
  kind == "text" { print > shown }' "$page"
[[ $(grep -c '^block' "$work/shown") -ge 10 ]] || fail "only $(cat "$work/shown")"

# As the user of the servers, in a folder and with programs of its own.
place=$SERVER/page
bin=$(pg_config --bindir)
mkdir "$place"
make_installation "$place/installation" "$bin" "$1"
cp "$work/script" "$place/script"
chown -R "$(stat -c %u:%g "$SERVER/data")" "$place"
as_owner() {
  local as=() owner
  owner=$(stat -c %u "$place")
  [[ $(id -u) == "$owner" ]] || as=(setpriv "--reuid=$owner" "--regid=$(stat -c %g "$place")" --clear-groups)
  (cd "$place" && HOME=$place PATH=$place/installation$bin:$PATH exec "${as[@]}" "$@")
}
stop_all() {
  local data
  for data in "$place"/*/postmaster.pid; do
    [[ ! -e $data ]] || as_owner pg_ctl --pgdata "${data%/*}" --mode immediate stop > /dev/null
  done
}
trap 'stop_all; rm -rf "$work"' EXIT

as_owner timeout 240 bash -euo pipefail script > "$work/printed" 2> "$work/errors" ||
  fail "$(cat "$work/printed" "$work/errors")"
# What psql says of commands without rows is not on the page.
diff -u "$work/shown" <(grep -Ev '^(CREATE|INSERT|UPDATE|ALTER|ANALYZE)\b' "$work/printed") || fail 'the page shows other output'

# Thousands of companies through the same tables.
export PGDATABASE=accounts
awk -v seed=7 -v count=6000 -f "$here/assets.awk" > "$work/assets.csv"
sql << END
TRUNCATE asset;
DELETE FROM every_asset;
CREATE TABLE row (id text, placed date, year_end text, life float8, convention int, basis numeric, salvage numeric, capacity float8);
\copy row FROM '$work/assets.csv' (FORMAT csv, HEADER)
INSERT INTO asset
  SELECT 'Company ' || n % 1000, n, placed, ('2000-' || year_end)::date, life,
    (enum_range(NULL::depreciation_convention))[convention + 1], basis, salvage,
    (enum_range(NULL::depreciation_method))[1 + n % 3]
  FROM (SELECT row_number() OVER () n, * FROM row) r
  WHERE life BETWEEN 1 AND 50 AND basis > 0 AND basis <= 9999999.99 AND salvage >= 0
    AND salvage <= basis AND extract(year FROM placed) < 9900;
INSERT INTO every_asset SELECT * FROM asset;
END
for port in 5434 5435; do
  sql -p $port <<< 'ANALYZE asset'
  [[ $(sql -p $port <<< 'SELECT count(*) FROM asset') -gt 2000 ]] || fail "too few assets on port $port"
done

asset='placed_in_service, fiscal_year_end, life, convention, basis, salvage, method'
queries=("SELECT company, sum(depreciation($asset, 2020)) FROM TABLE GROUP BY company ORDER BY company"
  "SELECT company, number, book_value($asset, 2000) FROM TABLE WHERE depreciation($asset, 2000) > 1000 ORDER BY 1, 2"
  "SELECT company, max(accumulated_depreciation($asset, 2030)), min(first_fiscal_year(placed_in_service, fiscal_year_end)),
    sum(production_rate(basis, salvage, 1000)) FROM TABLE GROUP BY company ORDER BY company"
  "SELECT s.* FROM TABLE, depreciation_schedule($asset) s WHERE company = 'Company 77' ORDER BY 1, 2"
  "SELECT sum(a) FROM TABLE, unnest(depreciation_amounts($asset)) a")
for query in "${queries[@]}"; do
  one=$(sql <<< "${query/TABLE/asset}")
  [[ -n $one && $one == "$(sql <<< "${query/TABLE/every_asset}")" ]] || fail "shards differ in $query"
done
for query in "${queries[@]:0:3}"; do
  plan=$(sql <<< "EXPLAIN (VERBOSE, COSTS OFF) ${query/TABLE/every_asset}")
  [[ $(grep -Ec 'Remote SQL: .*public\.(depreciation|accumulated_depreciation)\(' <<< "$plan") -eq 2 ]] || fail "$plan"
done
plan=$(sql <<< "EXPLAIN (COSTS OFF) ${queries[0]/TABLE/every_asset}")
[[ $plan == *'Async Foreign Scan'* ]] || fail "$plan"
# One company is asked of its own shard alone.
plan=$(sql <<< "EXPLAIN (VERBOSE, COSTS OFF) SELECT sum(depreciation($asset, 2020)) FROM every_asset WHERE company = 'Company 77'")
[[ $(grep -c 'Remote SQL' <<< "$plan") -eq 1 ]] || fail "$plan"
# What a shard refuses is refused here in the same words; a shard that is gone leaves no total.
error=$(sql 2>&1 <<< "SELECT sum(depreciation(placed_in_service, fiscal_year_end, 51, convention, basis, salvage, method, 2020)) FROM every_asset" || true)
[[ $error == *'useful life out of range'*'51 years is too long'*'Give a useful life'* ]] || fail "$error"
as_owner pg_ctl --pgdata shard-5435 --mode immediate stop > /dev/null
error=$(sql 2>&1 <<< "${queries[0]/TABLE/every_asset}" || true)
[[ $error == *'could not connect to server "shard_2"'* && $error != *Company* ]] || fail "$error"

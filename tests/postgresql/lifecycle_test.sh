#!/usr/bin/env bash
# lifecycle_test.sh STAGE: the extension in the life of a database: its planner uses workers, indexes
# and generated columns take the functions, a dump brings everything back, and it goes when dropped.
set -euo pipefail
stage=$1
source "$(dirname "$0")/extension.bash" "$stage" max_worker_processes=8 max_parallel_workers=8

# Installing needs no superuser, only the right to make things in the database.
sql << 'END'
CREATE ROLE accountant LOGIN;
CREATE DATABASE books OWNER accountant;
END
export PGDATABASE=books
sql -U accountant << 'END'
CREATE SCHEMA assets;
CREATE EXTENSION depcalc SCHEMA assets;
CREATE TABLE register (
  company int, placed_in_service date, life double precision, basis numeric(14, 2),
  convention assets.depreciation_convention, method assets.depreciation_method,
  first_year int GENERATED ALWAYS AS (assets.first_fiscal_year(placed_in_service, '2000-06-30')) STORED);
INSERT INTO register
  SELECT n % 100, date '2010-01-01' + n % 4000, 3 + n % 20, 1000 + n, 'Half Month', 'DDB'
  FROM generate_series(1, 400000) n;
CREATE INDEX ON register (assets.depreciation(placed_in_service, '2000-06-30', life, convention, basis, 0, method, 2020));
ANALYZE register;
END

# Two workers, as the planner's own settings have it, and the result of one process.
total="SELECT company, sum(assets.depreciation(placed_in_service, '2000-06-30', life, convention, basis,
  0, method, 2021)) FROM register GROUP BY company ORDER BY company"
plan=$(sql <<< "EXPLAIN (ANALYZE, COSTS OFF, TIMING OFF) $total")
[[ $plan == *'Partial HashAggregate'* && $plan == *'Workers Launched: 2'* ]] || fail "$plan"
same 'the total of workers' "$(sql <<< "SET max_parallel_workers_per_gather = 0; $total")" "$(sql <<< "$total")"

# An index on a year's amount is used.
plan=$(sql <<< "EXPLAIN (COSTS OFF) SELECT * FROM register
  WHERE assets.depreciation(placed_in_service, '2000-06-30', life, convention, basis, 0, method, 2020) = 4711")
[[ $plan == *'Index Scan'* || $plan == *'Bitmap Index Scan'* ]] || fail "$plan"

# A dump names the extension and not what is in it; restored, everything is as it was.
sum="SELECT count(*), sum(hashtextextended(r::text, 0)), sum(first_year) FROM register r"
pg_dump -d books -f "$work/dump.sql"
grep -q '^CREATE EXTENSION IF NOT EXISTS depcalc WITH SCHEMA assets' "$work/dump.sql"
! grep -Eq '^CREATE (FUNCTION|TYPE)' "$work/dump.sql" || fail 'the dump has the functions'
sql <<< 'CREATE DATABASE again'
sql -d again -f "$work/dump.sql" > "$work/restored"
same 'the restored database' "$(sql <<< "$sum; $total")" "$(sql -d again <<< "$sum; $total")"

# One version, the one of the control file and of the SQL file, and nothing to update.
version=$(sed -n "s/^default_version = '\(.*\)'/\1/p" "$stage"/*/*/postgresql/*/extension/depcalc.control)
same 'the version' "$version|$version|" "$(sql << 'END'
SELECT default_version, installed_version, (SELECT count(*) FROM pg_extension_update_paths('depcalc')
  WHERE path IS NOT NULL HAVING count(*) > 0)
  FROM pg_available_extensions WHERE name = 'depcalc'
END
)"
sql << 'END'
ALTER EXTENSION depcalc UPDATE;
ALTER EXTENSION depcalc SET SCHEMA public;
END
same 'the functions in another schema' 2020 "$(sql <<< "SELECT first_fiscal_year('2020-06-30', '2000-06-30')")"

# It goes with what depends on it, when that is said, and leaves nothing.
! sql <<< 'DROP EXTENSION depcalc' 2> "$work/error" || fail 'dropped under a table'
grep -q 'depends on' "$work/error"
same 'what is left' '0|0' "$(sql << 'END'
DROP EXTENSION depcalc CASCADE;
SELECT (SELECT count(*) FROM pg_proc WHERE probin LIKE '%depcalc%'),
  (SELECT count(*) FROM pg_type WHERE typname LIKE 'depreciation%');
END
)"
sql <<< 'CREATE EXTENSION depcalc'

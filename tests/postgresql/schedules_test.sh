#!/usr/bin/env bash
# schedules_test.sh STAGE VECTORS: what SQL gives of assets is what `depcalc schedule` gives, row for
# row, and refuses what that refuses.
set -euo pipefail
vectors=$2
source "$(dirname "$0")/extension.bash" "$1"

sql << 'END'
CREATE EXTENSION depcalc;
CREATE TABLE asset (n serial, id text, placed_in_service date, fiscal_year_end date,
  life double precision, convention depreciation_convention, basis numeric, salvage numeric,
  capacity double precision);

-- Whether every function takes the asset.
CREATE FUNCTION good(a asset) RETURNS boolean LANGUAGE plpgsql AS $$
BEGIN
  PERFORM depreciation_amounts(a.placed_in_service, a.fiscal_year_end, a.life, a.convention,
    a.basis, a.salvage, 'SL'), production_rate(a.basis, a.salvage, a.capacity);
  RETURN true;
EXCEPTION WHEN numeric_value_out_of_range OR datetime_field_overflow OR invalid_parameter_value THEN
  RETURN false;
END $$;
END

# calculated FILE COLUMNS: the file's rows as SQL calculates them, in the command's order.
calculated() {
  sql << END
TRUNCATE asset;
CREATE TEMPORARY TABLE row (LIKE asset);
ALTER TABLE row DROP n, ALTER convention TYPE int USING NULL, ALTER fiscal_year_end TYPE text,
  ADD name text, ADD serial text, ADD department text;
\copy row ($2) FROM '$1' (FORMAT csv, HEADER)
INSERT INTO asset (id, placed_in_service, fiscal_year_end, life, convention, basis, salvage, capacity)
  SELECT id, placed_in_service, ('2000-' || fiscal_year_end)::date, life,
    (enum_range(NULL::depreciation_convention))[convention + 1], basis, coalesce(salvage, 0), coalesce(capacity, 0)
  FROM row;
DELETE FROM asset a WHERE NOT good(a);
CREATE TEMPORARY VIEW result AS
SELECT id, method, fiscal_year, amount
  FROM asset, unnest('{SL,SYD,DDB}'::depreciation_method[]) method,
    depreciation_schedule(placed_in_service, fiscal_year_end, life, convention, basis, salvage, method)
UNION ALL
SELECT id, 'UOP', NULL, production_rate(basis, salvage, capacity) FROM asset;
\copy (SELECT id, method, lpad(fiscal_year::text, 4, '0') fiscal_year, amount FROM result ORDER BY id, method, fiscal_year) TO '$work/sql.csv' (FORMAT csv, HEADER)
END
}

calculated "$vectors/schedules-input.csv" \
  id,name,serial,department,placed_in_service,fiscal_year_end,life,convention,basis,salvage,capacity
cmp "$work/sql.csv" "$vectors/schedules-expected.csv"

seed=${SEED-2026}
echo "seed $seed"
awk -v "seed=$seed" -v count=10000 -f "$here/assets.awk" > "$work/random.csv"
calculated "$work/random.csv" \
  id,placed_in_service,fiscal_year_end,life,convention,basis,salvage,capacity
depcalc schedule --no-date-limit --format csv "$work/random.csv" > "$work/command.csv" 2> "$work/refused" ||
  [[ $? -eq 1 ]]
cmp "$work/sql.csv" "$work/command.csv"
good=$(cut -d, -f1 "$work/sql.csv" | sort -u | wc -l)
refused=$(cut -d: -f2 "$work/refused" | sort -u | wc -l)
echo "$good assets calculated, $refused refused, $(wc -l < "$work/sql.csv") rows"
[[ $good -gt 9000 && $refused -gt 300 && $((good - 1 + refused)) -eq 10000 ]]

# The other functions say the same of the same assets.
same 'what the functions say' 'f|0' "$(sql << 'END'
SELECT bool_or(amounts IS DISTINCT FROM schedule OR wrong), count(*) FILTER (WHERE schedule IS NULL)
FROM (
  SELECT depreciation_amounts(placed_in_service, fiscal_year_end, life, convention, basis, salvage, method) amounts,
    array_agg(amount ORDER BY fiscal_year) schedule,
    bool_or(
      depreciation(placed_in_service, fiscal_year_end, life, convention, basis, salvage, method, fiscal_year) <> amount
      OR accumulated_depreciation(placed_in_service, fiscal_year_end, life, convention, basis, salvage, method, fiscal_year) <> taken
      OR book_value(placed_in_service, fiscal_year_end, life, convention, basis, salvage, method, fiscal_year) <> cost - taken
      OR first_fiscal_year(placed_in_service, fiscal_year_end) <> first) wrong
  FROM (
    SELECT a.*, method, fiscal_year, amount, sum(amount) OVER y taken, min(fiscal_year) OVER y first,
      book_value(placed_in_service, fiscal_year_end, life, convention, basis, salvage, method, 0) cost
    FROM (SELECT * FROM asset WHERE n % 5 = 0) a, unnest('{SL,SYD,DDB}'::depreciation_method[]) method,
      depreciation_schedule(placed_in_service, fiscal_year_end, life, convention, basis, salvage, method)
    WINDOW y AS (PARTITION BY n, method ORDER BY fiscal_year)) years
  GROUP BY n, placed_in_service, fiscal_year_end, life, convention, basis, salvage, method) assets
END
)"

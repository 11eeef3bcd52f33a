#!/usr/bin/env bash
# refusals_test.sh STAGE: what NULL gives, and what each argument is refused with.
set -euo pipefail
source "$(dirname "$0")/extension.bash" "$1"
sql <<< 'CREATE EXTENSION depcalc'
source "$here/refusals.bash"

amounts() { echo "SELECT depreciation_amounts($1)"; }
good="'2020-01-15','2000-12-31',5,'Half Year',1000,100,'SL'"

# expect QUERY ERROR: collects what check_expected then looks at, all at once.
expect() { printf '%s~%s\n' "$1" "$2" >> "$work/expected"; }
check_expected() {
  sql << END > "$work/different"
CREATE TEMPORARY TABLE expected (query text, error text);
\copy expected FROM '$work/expected' (DELIMITER '~')
SELECT query, 'wanted ' || error, 'found ' || error_of(query) FROM expected
  WHERE error <> error_of(query);
SELECT 'fewer cases than there are' FROM expected HAVING count(*) < 110;
END
  [[ ! -s $work/different ]] || fail "$(cat "$work/different")"
}

# placed in service, fiscal-year end, life, convention, basis, salvage value, method; the error
while IFS='~' read -r arguments error; do
  expect "$(amounts "$arguments")" "$error"
  # Every function of an asset refuses the same.
  expect "SELECT * FROM depreciation_schedule($arguments)" "$error"
  for function in depreciation accumulated_depreciation book_value; do
    expect "SELECT $function($arguments, 2020)" "$error"
  done
done << 'END'
'0099-12-31','2000-12-31',5,'Half Year',1000,100,'SL'~22008 date placed in service out of range | The asset was placed in service on 0099-12-31. | Give a date from 0100-01-01 on, so early that the schedule ends before the year 9999.
'10000-01-01','2000-12-31',5,'Half Year',1000,100,'SL'~22008 date placed in service out of range | The asset was placed in service on 10000-01-01. | Give a date from 0100-01-01 on, so early that the schedule ends before the year 9999.
'-infinity','2000-12-31',5,'Half Year',1000,100,'SL'~22008 date placed in service out of range | The asset was placed in service on -infinity. | Give a date from 0100-01-01 on, so early that the schedule ends before the year 9999.
'2020-01-15','infinity',5,'Half Year',1000,100,'SL'~22008 fiscal-year end out of range | The fiscal year ends on infinity. | Give a date from 0100-01-01 to 9999-12-31; only its month and day count.
'2020-01-15','4713-01-01 BC',5,'Half Year',1000,100,'SL'~22008 fiscal-year end out of range | The fiscal year ends on 4713-01-01 BC. | Give a date from 0100-01-01 to 9999-12-31; only its month and day count.
'9995-01-15','2000-12-31',5,'Half Year',1000,100,'SL'~22008 schedule out of range | The schedule of an asset placed in service on 9995-01-15 would run beyond the year 9999. | Give an earlier date or a shorter life.
'2020-01-15','2000-12-31','NaN','Half Year',1000,100,'SL'~22003 useful life is not a number | The useful life is NaN. | Give a useful life from 1 to 50 years.
'2020-01-15','2000-12-31','-Infinity','Half Year',1000,100,'SL'~22003 useful life is not a number | The useful life is -Infinity. | Give a useful life from 1 to 50 years.
'2020-01-15','2000-12-31',0.99,'Half Year',1000,100,'SL'~22003 useful life out of range | The useful life of 0.99 years is too short. | Give a useful life from 1 to 50 years.
'2020-01-15','2000-12-31',50.01,'Half Year',1000,100,'SL'~22003 useful life out of range | The useful life of 50.01 years is too long. | Give a useful life from 1 to 50 years.
'2020-01-15','2000-12-31',5,'Half Year','NaN',100,'SL'~22003 basis is not a number | The basis is NaN. | Give a basis above 0 and up to 9,999,999.99.
'2020-01-15','2000-12-31',5,'Half Year','-Infinity',100,'SL'~22003 basis is not a number | The basis is -Infinity. | Give a basis above 0 and up to 9,999,999.99.
'2020-01-15','2000-12-31',5,'Half Year',0,0,'SL'~22003 basis out of range | The basis of 0 is not above 0. | Give a basis above 0 and up to 9,999,999.99.
'2020-01-15','2000-12-31',5,'Half Year',-1e400,0,'SL'~22003 basis out of range | The basis of -10000000000000000000000000000000000000000000000000000000... is not above 0. | Give a basis above 0 and up to 9,999,999.99.
'2020-01-15','2000-12-31',5,'Half Year',10000000,100,'SL'~22003 basis out of range | The basis of 10000000 is too large. | Give a basis above 0 and up to 9,999,999.99.
'2020-01-15','2000-12-31',5,'Half Year',1e400,100,'SL'~22003 basis out of range | The basis of 100000000000000000000000000000000000000000000000000000000... is too large. | Give a basis above 0 and up to 9,999,999.99.
'2020-01-15','2000-12-31',5,'Half Year',1000,'Infinity','SL'~22003 salvage value is not a number | The salvage value is Infinity. | Give a salvage value from 0 to 9,999,999.99.
'2020-01-15','2000-12-31',5,'Half Year',1000,-0.01,'SL'~22003 salvage value out of range | The salvage value of -0.01 is below 0. | Give a salvage value from 0 to 9,999,999.99.
'2020-01-15','2000-12-31',5,'Half Year',1000,10000000.00,'SL'~22003 salvage value out of range | The salvage value of 10000000.00 is too large. | Give a salvage value from 0 to 9,999,999.99.
'2020-01-15','2000-12-31',5,'Half Year',1000,1000.01,'SL'~22023 salvage value above the basis | The salvage value of 1000.01 is more than the asset has cost. | Give a salvage value from 0 up to the basis.
'2020-01-15','2000-12-31',5,'Half Year',1000,100,'UOP'~22023 units of production has no schedule | Its depreciation depends on the units produced in each fiscal year. | Multiply production_rate(basis, salvage, capacity) by the units produced.
END
expect 'SELECT production_rate(1000, 100, -1)' \
  '22003 production capacity out of range | The production capacity of -1 is below 0. | Give the units that the asset will produce, or 0.'
expect "SELECT production_rate(1000, 100, 'Infinity')" \
  '22003 production capacity is not a number | The production capacity is Infinity. | Give the units that the asset will produce, or 0.'
expect "SELECT production_rate(1000, 'NaN', 1)" \
  '22003 salvage value is not a number | The salvage value is NaN. | Give a salvage value from 0 to 9,999,999.99.'
expect "SELECT first_fiscal_year('9999-12-31', '2000-06-30')" \
  '22008 date placed in service out of range | The fiscal year of 9999-12-31 ends after the year 9999. | Give an earlier date.'
expect "SELECT first_fiscal_year('0001-01-01', '2000-06-30')" \
  '22008 date placed in service out of range | The asset was placed in service on 0001-01-01. | Give a date from 0100-01-01 on, so early that the schedule ends before the year 9999.'

# Labels that somebody has added to the types.
sql << 'END'
ALTER TYPE depreciation_method ADD VALUE 'MACRS';
ALTER TYPE depreciation_convention ADD VALUE 'Mid Quarter';
END
expect "$(amounts "${good/SL/MACRS}")" \
  '22023 unknown depreciation method | There is no method "MACRS". | Give SL, SYD or DDB.'
expect "$(amounts "${good/Half Year/Mid Quarter}")" \
  '22023 unknown prorating convention | There is no convention "Mid Quarter". | Give Full Year, Half Year, Full Month, Half Month or Actual Days.'

check_expected

# A NULL anywhere gives NULL, and no rows.
IFS=, read -ra arguments <<< "$good,2020"
for i in "${!arguments[@]}"; do
  with_null=("${arguments[@]}")
  with_null[i]=NULL
  list=$(IFS=, && echo "${with_null[*]}")
  printf 'SELECT %s(%s) IS NULL;\n' depreciation "$list" accumulated_depreciation "$list" \
    book_value "$list"
  [[ $i -lt 7 ]] || continue
  printf 'SELECT depreciation_amounts(%s) IS NULL;\n' "${list%,*}"
  printf 'SELECT count(*) = 0 FROM depreciation_schedule(%s);\n' "${list%,*}"
done > "$work/nulls"
printf 'SELECT %s IS NULL;\n' 'production_rate(NULL, 0, 1)' 'production_rate(1, NULL, 1)' \
  'production_rate(1, 0, NULL)' "first_fiscal_year(NULL, '2000-12-31')" \
  "first_fiscal_year('2000-12-31', NULL)" >> "$work/nulls"
same 'what NULLs give' '43 t' "$(sql < "$work/nulls" | sort | uniq -c | xargs)"

# The labels are the program's own, and every function is what the planner may use anywhere.
same 'the labels' '{SL,SYD,DDB,UOP,MACRS}|{"Full Year","Half Year","Full Month","Half Month","Actual Days","Mid Quarter"}' \
  "$(sql <<< 'SELECT enum_range(NULL::depreciation_method), enum_range(NULL::depreciation_convention)')"
same 'the functions' '7|t' "$(sql << 'END'
SELECT count(*), bool_and(provolatile = 'i' AND proisstrict AND proparallel = 's' AND procost > 1
    AND obj_description(p.oid) IS NOT NULL)
  FROM pg_proc p JOIN pg_depend d ON d.objid = p.oid AND d.classid = 'pg_proc'::regclass
    AND d.refclassid = 'pg_extension'::regclass AND d.deptype = 'e'
  JOIN pg_extension e ON e.oid = d.refobjid AND extname = 'depcalc'
END
)"

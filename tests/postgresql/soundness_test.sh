#!/usr/bin/env bash
# soundness_test.sh STAGE: a session that was cancelled, ran into its time limit, out of memory or
# into 100,000 calls with arguments that nobody should give is as good as new.
set -euo pipefail
source "$(dirname "$0")/extension.bash" "$1"
sql <<< 'CREATE EXTENSION depcalc'
source "$here/refusals.bash"

asset="'2020-01-15', '2000-12-31', 1 + n % 50, 'Half Year', 1000 + n % 1000, 100"

# One session from here on. ask QUERY: its answer, or the error.
coproc SESSION { exec psql -qAt -v VERBOSITY=sqlstate 2>&1; }
ask() {
  local line
  printf '%s;\n\\echo done\n' "$1" >&"${SESSION[1]}"
  while IFS= read -r line <&"${SESSION[0]}" && [[ $line != done ]]; do echo "$line"; done
}
backend=$(ask 'SELECT pg_backend_pid()')

# Whether the same process still calculates, every digit of it.
is_sound() {
  same "the session after $1" "$backend|300.0000|t" "$(ask "SELECT pg_backend_pid(),
    accumulated_depreciation('2020-01-15', '2000-12-31', 5, 'Half Year', 1000, 0, 'SL', 2021),
    bool_and(depreciation_amounts($asset, 'SL') IS NOT NULL) FROM generate_series(1, 1000) n")"
}
is_sound 'its start'

# A hundred thousand calls with any arguments, and what the process has taken by then. They come
# first, while it has no memory left over that a leak could hide in.
seed=${SEED-18}
echo "seed $seed"
ask "$(cat << 'END'
CREATE FUNCTION pg_temp.one_of(VARIADIC texts text[]) RETURNS text LANGUAGE sql VOLATILE AS
  'SELECT texts[1 + floor(random() * array_length(texts, 1))]';
CREATE FUNCTION pg_temp.any_day() RETURNS text LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN random() < 0.8 THEN (date '1990-01-01' + (random() * 20000)::int)::text
    ELSE pg_temp.one_of('infinity', '-infinity', '0099-12-31', '0100-01-01', '9999-12-31', '10000-01-01',
    '9948-07-04', '4713-01-01 BC', '5874897-12-31', '2020-02-29') END
$$;
CREATE FUNCTION pg_temp.any_number() RETURNS text LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN random() < 0.8 THEN (1 + random() * 49)::text
    ELSE pg_temp.one_of('NaN', 'Infinity', '-Infinity', '1e308', '-1e-308', '0', '-0', '0.5', '1', '50.4999', '50') END
$$;
CREATE FUNCTION pg_temp.any_money(most float8) RETURNS text LANGUAGE sql VOLATILE AS $$
  SELECT CASE WHEN random() < 0.8 THEN (random() * most)::text
    ELSE pg_temp.one_of('NaN', 'Infinity', '-Infinity', '1e131000', '-1e500', '1e-16000', '0', '-0.01', '9999999.99',
    '9999999.990000000000000000000000001', '10000000', repeat('9', 400),
    (random() * 1000)::numeric(8, 2)::text) END
$$;
CREATE FUNCTION pg_temp.calls(seed float8, count int) RETURNS TABLE (outcome text, times bigint) LANGUAGE plpgsql AS $$
DECLARE
  kinds int[] := '{0,0,0,0,0}';
  kind int;
  year int;
  asset text;
BEGIN
  PERFORM setseed(seed);
  FOR i IN 1 .. count / 7 LOOP
    year := (2000000000 * (2 * random() - 1))::int;
    asset := format('%L, %L, %L, %L, %L, %L, %L', pg_temp.any_day(), pg_temp.any_day(), pg_temp.any_number(),
      pg_temp.one_of('Full Year', 'Half Year', 'Full Month', 'Half Month', 'Actual Days'),
      pg_temp.any_money(1e6), pg_temp.any_money(1e4), pg_temp.one_of('SL', 'SYD', 'DDB', 'UOP'));
    FOR which IN 1 .. 7 LOOP
      BEGIN
        CASE which
          WHEN 1 THEN EXECUTE format('SELECT count(*) FROM depreciation_schedule(%s)', asset);
          WHEN 2 THEN EXECUTE format('SELECT depreciation_amounts(%s)', asset);
          WHEN 3 THEN EXECUTE format('SELECT depreciation(%s, %s)', asset, year);
          WHEN 4 THEN EXECUTE format('SELECT accumulated_depreciation(%s, %s)', asset, year);
          WHEN 5 THEN EXECUTE format('SELECT book_value(%s, %s)', asset, year);
          WHEN 6 THEN EXECUTE format('SELECT production_rate(%L, %L, %L)', pg_temp.any_money(1e6), pg_temp.any_money(1e4),
            pg_temp.any_number());
          ELSE EXECUTE format('SELECT first_fiscal_year(%L, %L)', pg_temp.any_day(), pg_temp.any_day());
        END CASE;
        kind := 1;
      EXCEPTION
        WHEN numeric_value_out_of_range THEN kind := 2;
        WHEN datetime_field_overflow THEN kind := 3;
        WHEN invalid_parameter_value THEN kind := 4;
      END;
      kinds[kind] := kinds[kind] + 1;
    END LOOP;
  END LOOP;
  RETURN QUERY SELECT unnest('{done,22003,22008,22023}'::text[]), unnest(kinds[1:4])::bigint;
END $$
END
)"
resident() { awk '$1 == "VmRSS:" { print $2 }' "/proc/$backend/status"; }
ask "SELECT count(*) FROM pg_temp.calls(0.5, 7000)" > /dev/null
before=$(resident)
outcomes=$(ask "SELECT string_agg(outcome || ' ' || times, ', '), min(times) > 1000, sum(times)
  FROM pg_temp.calls($seed / 1000.0, 100002)")
echo "$outcomes; from $before to $(resident) KiB"
[[ $outcomes == *'|t|100002' && $(resident) -lt $((before + 1000)) ]] || fail "$outcomes"
is_sound '100,000 calls'

endless=("SELECT sum(depreciation($asset, 'DDB', 2022)) FROM generate_series(1, 1e12) n"
  "SELECT count(*) FROM generate_series(1, 1e12) n, depreciation_schedule($asset, 'SYD')"
  "SELECT count(s) FROM (SELECT depreciation_schedule($asset, 'SL') s FROM generate_series(1, 1e12) n) x")
for query in "${endless[@]//1 + n % 50/(1 + n % 50)::float8}"; do
  # Three times each, caught at different moments.
  for limit in 3 40 111; do
    ask "SET statement_timeout = $limit"
    same "a limit of $limit ms on $query" 'ERROR:  57014' "$(ask "$query")"
    ask 'SET statement_timeout = 0'
    is_sound 'a time limit'
  done
  (until [[ $(sql <<< "SELECT state FROM pg_stat_activity WHERE pid = $backend") == active ]]; do
    sleep 0.05
  done
  sleep 0.2
  sql <<< "SELECT pg_cancel_backend($backend)" > /dev/null) &
  same "a cancelled $query" 'ERROR:  57014' "$(ask "$query")"
  wait "$!"
  is_sound 'a cancellation'
done

# may_have BYTES: the session's address space. Only its own user may say so, not even root everywhere.
may_have() {
  local owner as_owner=()
  owner=$(stat -c %u "/proc/$backend")
  [[ $(id -u) == "$owner" ]] || as_owner=(setpriv "--reuid=$owner" "--regid=$(stat -c %g "/proc/$backend")" --clear-groups)
  "${as_owner[@]}" prlimit --pid "$backend" "--as=$1:"
}

# Little memory above what the process has: the system then refuses it more, wherever it asks.
for query in "SELECT array_length(array_agg(s.amount), 1) FROM generate_series(1, 10000000) n, depreciation_schedule($asset, 'SL') s" \
  "SELECT length(string_agg(depreciation($asset, 'DDB', 2022)::text, repeat(' ', 1000))) FROM generate_series(1, 10000000) n"; do
  has=$(awk '$1 == "VmSize:" { print $2 * 1024 }' "/proc/$backend/status")
  may_have $((has + 20000000))
  same "memory for $query" 'ERROR:  53200' "$(ask "$query")"
  may_have unlimited
  is_sound 'a lack of memory'
done

grep -E 'PANIC|terminated by signal|crash' "$SERVER/log" && fail 'the server has crashed' || true

\echo Use "CREATE EXTENSION depcalc" to load this file. \quit

CREATE TYPE depreciation_method AS ENUM ('SL', 'SYD', 'DDB', 'UOP');
COMMENT ON TYPE depreciation_method IS
  'straight line, sum of the years'' digits, double declining balance, units of production';

CREATE TYPE depreciation_convention AS ENUM
  ('Full Year', 'Half Year', 'Full Month', 'Half Month', 'Actual Days');
COMMENT ON TYPE depreciation_convention IS
  'how much of a year''s depreciation the first fiscal year takes';

-- A schedule costs about as much as a hundred comparisons of numbers.

CREATE FUNCTION depreciation_schedule(
    placed_in_service date, fiscal_year_end date, life double precision,
    convention depreciation_convention, basis numeric, salvage numeric, method depreciation_method)
  RETURNS TABLE (fiscal_year integer, amount numeric)
  LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100 ROWS 8
  AS 'MODULE_PATHNAME', 'depcalc_schedule';
COMMENT ON FUNCTION depreciation_schedule IS 'depreciation of each fiscal year of an asset';

CREATE FUNCTION depreciation_amounts(
    placed_in_service date, fiscal_year_end date, life double precision,
    convention depreciation_convention, basis numeric, salvage numeric, method depreciation_method)
  RETURNS numeric[]
  LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 120
  AS 'MODULE_PATHNAME', 'depcalc_amounts';
COMMENT ON FUNCTION depreciation_amounts IS
  'depreciation of an asset by fiscal year, from its first fiscal year on';

CREATE FUNCTION depreciation(
    placed_in_service date, fiscal_year_end date, life double precision,
    convention depreciation_convention, basis numeric, salvage numeric, method depreciation_method,
    fiscal_year integer)
  RETURNS numeric
  LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100
  AS 'MODULE_PATHNAME', 'depcalc_depreciation';
COMMENT ON FUNCTION depreciation IS 'depreciation of an asset in a fiscal year, 0 outside its years';

CREATE FUNCTION accumulated_depreciation(
    placed_in_service date, fiscal_year_end date, life double precision,
    convention depreciation_convention, basis numeric, salvage numeric, method depreciation_method,
    fiscal_year integer)
  RETURNS numeric
  LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100
  AS 'MODULE_PATHNAME', 'depcalc_accumulated';
COMMENT ON FUNCTION accumulated_depreciation IS
  'depreciation of an asset up to the end of a fiscal year';

CREATE FUNCTION book_value(
    placed_in_service date, fiscal_year_end date, life double precision,
    convention depreciation_convention, basis numeric, salvage numeric, method depreciation_method,
    fiscal_year integer)
  RETURNS numeric
  LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 100
  AS 'MODULE_PATHNAME', 'depcalc_book_value';
COMMENT ON FUNCTION book_value IS
  'basis of an asset less its depreciation up to the end of a fiscal year';

CREATE FUNCTION production_rate(basis numeric, salvage numeric, capacity double precision)
  RETURNS numeric
  LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 60
  AS 'MODULE_PATHNAME', 'depcalc_production_rate';
COMMENT ON FUNCTION production_rate IS 'depreciation per unit of production, to four decimals';

CREATE FUNCTION first_fiscal_year(placed_in_service date, fiscal_year_end date)
  RETURNS integer
  LANGUAGE C IMMUTABLE STRICT PARALLEL SAFE COST 5
  AS 'MODULE_PATHNAME', 'depcalc_first_fiscal_year';
COMMENT ON FUNCTION first_fiscal_year IS
  'fiscal year in which an asset is placed in service, named by the year it ends in';

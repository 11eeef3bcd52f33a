#include "host/postgresql/server_tables.h"

namespace depcalc {

// The rights follow two rules: who may see a company (depcalc.may, false) and who may change it
// (depcalc.may, true). Views go by the rights of whoever asks.
constexpr const char* first_form = R"SQL(
DO $form$ BEGIN

CREATE SCHEMA IF NOT EXISTS depcalc;

CREATE TABLE depcalc.schema_version (
  version integer PRIMARY KEY,
  made timestamptz NOT NULL DEFAULT now()
);

CREATE TABLE depcalc.company (
  id bigint GENERATED ALWAYS AS IDENTITY PRIMARY KEY,
  filed_as text NOT NULL UNIQUE CHECK (filed_as <> ''),
  name text NOT NULL,
  first_month smallint NOT NULL CHECK (first_month BETWEEN 1 AND 12),
  mode text NOT NULL CHECK (mode IN ('single-user', 'multi-user')),
  revision bigint NOT NULL,
  written_by xid8 NOT NULL
);
COMMENT ON TABLE depcalc.company IS 'Companies, one row each. revision grows with every save.';

CREATE TABLE depcalc.data_table (
  company_id bigint NOT NULL REFERENCES depcalc.company ON DELETE CASCADE,
  id smallint NOT NULL CHECK (id BETWEEN 1 AND 16),
  name text NOT NULL CHECK (name <> ''),
  records integer NOT NULL,
  tally bigint NOT NULL,
  PRIMARY KEY (company_id, id),
  UNIQUE (company_id, name)
);

CREATE TABLE depcalc.record (
  company_id bigint NOT NULL,
  table_id smallint NOT NULL,
  index smallint NOT NULL CHECK (index >= 0),
  fields text NOT NULL,
  readable json,
  digest bigint NOT NULL,
  PRIMARY KEY (company_id, table_id, index),
  FOREIGN KEY (company_id, table_id) REFERENCES depcalc.data_table ON DELETE CASCADE
    DEFERRABLE INITIALLY DEFERRED
);
COMMENT ON TABLE depcalc.record IS
  'Records as company files have them. Read the views; what is written here otherwise is damage.';

CREATE TABLE depcalc.company_use (
  company_id bigint PRIMARY KEY REFERENCES depcalc.company ON DELETE CASCADE,
  pid integer NOT NULL,
  login text NOT NULL,
  machine text NOT NULL,
  program text NOT NULL,
  since timestamptz NOT NULL DEFAULT now()
);
COMMENT ON TABLE depcalc.company_use IS
  'Who opened a company last. Whether it still is open, its advisory lock tells.';

CREATE TABLE depcalc.permission (
  company_id bigint REFERENCES depcalc.company ON DELETE CASCADE,
  role_name text NOT NULL,
  may_edit boolean NOT NULL,
  UNIQUE NULLS NOT DISTINCT (company_id, role_name)
);
COMMENT ON TABLE depcalc.permission IS
  'Which roles may read or change which company; without one, all of them.';

CREATE FUNCTION depcalc.may(company bigint, edit boolean) RETURNS boolean
LANGUAGE sql STABLE PARALLEL SAFE
RETURN pg_has_role((SELECT relowner FROM pg_class WHERE oid = 'depcalc.company'::regclass), 'USAGE')
  OR EXISTS (
    SELECT FROM depcalc.permission AS p JOIN pg_roles AS r ON r.rolname = p.role_name
     WHERE (p.company_id IS NULL OR p.company_id = company)
       AND (p.may_edit OR NOT edit) AND pg_has_role(r.oid, 'USAGE'));

ALTER TABLE depcalc.company ENABLE ROW LEVEL SECURITY;
ALTER TABLE depcalc.data_table ENABLE ROW LEVEL SECURITY;
ALTER TABLE depcalc.record ENABLE ROW LEVEL SECURITY;
ALTER TABLE depcalc.company_use ENABLE ROW LEVEL SECURITY;
CREATE POLICY see ON depcalc.company FOR SELECT USING (depcalc.may(id, false));
CREATE POLICY add ON depcalc.company FOR INSERT WITH CHECK (depcalc.may(NULL, true));
CREATE POLICY change ON depcalc.company FOR UPDATE USING (depcalc.may(id, true));
CREATE POLICY remove ON depcalc.company FOR DELETE USING (depcalc.may(NULL, true));
CREATE POLICY see ON depcalc.data_table FOR SELECT
  USING (company_id IN (SELECT id FROM depcalc.company));
CREATE POLICY change ON depcalc.data_table
  USING (company_id IN (SELECT id FROM depcalc.company WHERE depcalc.may(id, true)));
CREATE POLICY see ON depcalc.record FOR SELECT
  USING (company_id IN (SELECT id FROM depcalc.company));
CREATE POLICY change ON depcalc.record
  USING (company_id IN (SELECT id FROM depcalc.company WHERE depcalc.may(id, true)));
CREATE POLICY see ON depcalc.company_use FOR SELECT
  USING (company_id IN (SELECT id FROM depcalc.company));
CREATE POLICY change ON depcalc.company_use
  USING (company_id IN (SELECT id FROM depcalc.company WHERE depcalc.may(id, true)));

CREATE FUNCTION depcalc.stored_text(value json) RETURNS text
LANGUAGE sql IMMUTABLE PARALLEL SAFE
RETURN CASE json_typeof(value) WHEN 'string' THEN value #>> '{}' END;

CREATE FUNCTION depcalc.stored_number(value json) RETURNS numeric
LANGUAGE sql IMMUTABLE PARALLEL SAFE
RETURN CASE json_typeof(value) WHEN 'number' THEN (value #>> '{}')::numeric END;

-- 30 December 1899 stands for no date.
CREATE FUNCTION depcalc.stored_date(value json) RETURNS date
LANGUAGE sql IMMUTABLE PARALLEL SAFE
RETURN CASE json_typeof(value) WHEN 'object' THEN
  nullif(make_date(substr(value ->> 'date', 1, 4)::int, substr(value ->> 'date', 6, 2)::int,
                   substr(value ->> 'date', 9, 2)::int), '1899-12-30'::date) END;

-- The fiscal year in which a day falls, named by the year in which it ends. 29 February is 1 March
-- in a common year.
CREATE FUNCTION depcalc.fiscal_year_of(day date, fiscal_year_end date) RETURNS integer
LANGUAGE sql IMMUTABLE PARALLEL SAFE
RETURN extract(year FROM day)::int
  + (make_date(extract(year FROM day)::int, extract(month FROM fiscal_year_end)::int, 1)
       + (extract(day FROM fiscal_year_end)::int - 1) < day)::int;

CREATE VIEW depcalc.asset WITH (security_invoker = true) AS
SELECT c.filed_as AS company,
       r.index::integer AS asset,
       depcalc.stored_text(f."AID") AS asset_id,
       depcalc.stored_text(f."AName") AS name,
       depcalc.stored_text(f."ASerial") AS serial_number,
       depcalc.stored_text(f."ADept") AS department,
       depcalc.stored_date(f."AStart") AS placed_in_service,
       depcalc.stored_number(f."ABasis") AS basis,
       depcalc.stored_number(f."ASalvage") AS salvage,
       depcalc.stored_number(f."DRecovery")::double precision AS life,
       CASE depcalc.stored_text(f."DConvention")
         WHEN '1' THEN 'Half Year' WHEN '2' THEN 'Full Month' WHEN '3' THEN 'Half Month'
         WHEN '4' THEN 'Actual Days' ELSE 'Full Year' END AS convention,
       depcalc.stored_text(f."DMethod") AS method,
       depcalc.stored_text(f."AProdCap") AS capacity,
       CASE WHEN upper(depcalc.stored_text(f."DMethod")) = 'UOP'
         THEN depcalc.stored_number(f."Dep0") END AS production_rate,
       depcalc.stored_date(f."AEnd") AS disposed,
       CASE WHEN depcalc.stored_date(f."AEnd") IS NOT NULL
         THEN depcalc.stored_text(f."ASale") END AS proceeds,
       depcalc.stored_date(f."FYEnd") AS fiscal_year_end,
       depcalc.fiscal_year_of(depcalc.stored_date(f."AStart"), depcalc.stored_date(f."FYEnd"))
         AS first_fiscal_year
  FROM depcalc.company AS c
  JOIN depcalc.data_table AS t ON t.company_id = c.id AND t.name = 'ZEM:DepCalc'
  JOIN depcalc.record AS r ON r.company_id = c.id AND r.table_id = t.id AND r.index > 0
 CROSS JOIN LATERAL json_to_record(coalesce(r.readable, r.fields::json)) AS f(
       "AID" json, "AName" json, "ASerial" json, "ADept" json, "AStart" json, "ABasis" json,
       "ASalvage" json, "DRecovery" json, "DConvention" json, "DMethod" json, "AProdCap" json,
       "Dep0" json, "AEnd" json, "ASale" json, "FYEnd" json);
COMMENT ON VIEW depcalc.asset IS 'The registers'' assets, one row each.';

-- By units of production no amount is saved: what a year has depends on its units.
CREATE VIEW depcalc.asset_amount WITH (security_invoker = true) AS
SELECT c.filed_as AS company,
       r.index::integer AS asset,
       depcalc.fiscal_year_of(depcalc.stored_date(f."AStart"), depcalc.stored_date(f."FYEnd"))
         + substr(d.key, 4)::integer AS fiscal_year,
       depcalc.stored_number(d.value) AS amount
  FROM depcalc.company AS c
  JOIN depcalc.data_table AS t ON t.company_id = c.id AND t.name = 'ZEM:DepCalc'
  JOIN depcalc.record AS r ON r.company_id = c.id AND r.table_id = t.id AND r.index > 0
 CROSS JOIN LATERAL json_to_record(coalesce(r.readable, r.fields::json)) AS f(
       "AStart" json, "DRecovery" json, "DConvention" json, "DMethod" json, "FYEnd" json)
 CROSS JOIN LATERAL json_each(coalesce(r.readable, r.fields::json)) AS d
 WHERE upper(depcalc.stored_text(f."DMethod")) <> 'UOP'
   AND d.key ~ '^Dep[0-9]{1,4}$'
   AND json_typeof(d.value) = 'number'
   AND substr(d.key, 4)::integer < round(depcalc.stored_number(f."DRecovery")::double precision
         + (coalesce(depcalc.stored_text(f."DConvention"), '0') <> '0')::integer);
COMMENT ON VIEW depcalc.asset_amount IS
  'What the chosen method gives each asset in each of its fiscal years, one row an amount.';

END $form$
)SQL";

const std::array<const char*, 1> server_migrations{first_form};

}  // namespace depcalc

# error_of(SQL): how a query fails, as "SQLSTATE message | detail | hint"; "none" where it does not.
sql << 'END'
CREATE FUNCTION error_of(query text) RETURNS text LANGUAGE plpgsql AS $$
DECLARE
  state text; message text; detail text; hint text;
BEGIN
  EXECUTE query;
  RETURN 'none';
EXCEPTION WHEN OTHERS THEN
  GET STACKED DIAGNOSTICS state = RETURNED_SQLSTATE, message = MESSAGE_TEXT,
    detail = PG_EXCEPTION_DETAIL, hint = PG_EXCEPTION_HINT;
  RETURN concat_ws(' | ', state || ' ' || message, detail, hint);
END $$;
END

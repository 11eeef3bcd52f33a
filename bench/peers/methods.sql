-- The three methods as one would write them in PL/pgSQL, in numeric, over whole years.
CREATE FUNCTION amounts(basis numeric, salvage numeric, life int)
RETURNS TABLE (method text, year int, amount numeric) LANGUAGE plpgsql AS $$
DECLARE
  book numeric := basis;
BEGIN
  FOR n IN 1..life LOOP
    RETURN QUERY VALUES
      ('SL', n, (basis - salvage) / life),
      ('SYD', n, (basis - salvage) * (life - n + 1) * 2 / (life * (life + 1))),
      ('DDB', n, least(book * 2 / life, greatest(book - salvage, 0)));
    book := book - least(book * 2 / life, greatest(book - salvage, 0));
  END LOOP;
END $$;

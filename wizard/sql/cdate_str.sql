-- The functions cdate and str, which the SQL wizard's statements call and PostgreSQL does not have.
--   psql -v ON_ERROR_STOP=1 -d BANCO -f cdate_str.sql

-- A date with its day first, as in '25/12/2017'. An empty text is Null; a time after the date is left
-- out. A text that is no date is an error, and so is one of digits alone such as '25122017'.
-- Immutable, so that a statement reads its text once: words such as 'today' are not for it.
create or replace function cdate(text) returns date
  language sql immutable strict parallel safe
  set datestyle = 'ISO, DMY'
  as $$ select nullif(trim($1), '')::date $$;

-- The number as PostgreSQL shows it: no blank in front, a decimal point, the decimals of its column.
-- Each type has a function of its own: PostgreSQL would give an integer to that of double precision,
-- which rounds it.
create or replace function str(smallint) returns text
  language sql immutable strict parallel safe as $$ select $1::text $$;
create or replace function str(integer) returns text
  language sql immutable strict parallel safe as $$ select $1::text $$;
create or replace function str(bigint) returns text
  language sql immutable strict parallel safe as $$ select $1::text $$;
create or replace function str(numeric) returns text
  language sql immutable strict parallel safe as $$ select $1::text $$;
create or replace function str(real) returns text
  language sql immutable strict parallel safe as $$ select $1::text $$;
create or replace function str(double precision) returns text
  language sql immutable strict parallel safe as $$ select $1::text $$;

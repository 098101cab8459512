-- Creates the order desk's tables and data in an empty UTF-8 database.
--   psql -q -v ON_ERROR_STOP=1 --single-transaction -d BANCO -f load.sql
set client_encoding = 'UTF8';
\ir schema.sql
\ir estados.sql
\ir cidades.sql
\ir produtos.sql
\ir clientes.sql
\ir pedidos.sql
analyze;

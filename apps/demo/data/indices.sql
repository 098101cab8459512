-- The statements that the fields send to PostgreSQL, and the indexes that serve them.
--
-- A code is checked, without regard to case:
--   Select codigo From cidades Where cast(lower(codigo) as varchar) = cast(lower('00015') as
--   varchar) limit 1
-- The description that belongs to a code is fetched:
--   Select nome From cidades Where cast(codigo as varchar) = cast('00015' as varchar) limit 1
-- The primary key of a varchar column serves that. A char column needs the cast in the index.
create index estados_uf_lower on estados (lower(uf));
create index estados_uf_varchar on estados (cast(uf as varchar));
create index cidades_codigo_lower on cidades (lower(codigo));
create index condicoes_codigo_lower on condicoes_pagamento (lower(codigo));
create index produtos_codigo_lower on produtos (lower(codigo));
create index clientes_codigo_lower on clientes (lower(codigo));

-- A description is checked and its code fetched likewise, in the other direction:
--   Where cast(lower(nome) as varchar) = ...   and   Where cast(nome as varchar) = ...
create index estados_nome_lower on estados (lower(nome));
create index estados_nome on estados (nome);
create index cidades_nome_lower on cidades (lower(nome));
create index condicoes_descricao_lower on condicoes_pagamento (lower(descricao));
create index condicoes_descricao on condicoes_pagamento (descricao);
create index produtos_descricao_lower on produtos (lower(descricao));
create index clientes_nome_lower on clientes (lower(nome));

-- A description completes as it is typed, and a list is searched for a part of it:
--   Select nome, codigo From cidades Where nome ilike 'camp%' limit 1
--   Select ... From clientes Where (clientes.nome_busca ilike '%silva%') Order by clientes.nome
-- No ordered index serves "ilike"; an index of the texts' trigrams does.
create extension if not exists pg_trgm;
create index estados_nome_trgm on estados using gin (nome gin_trgm_ops);
create index cidades_nome_trgm on cidades using gin (nome gin_trgm_ops);
create index condicoes_descricao_trgm on condicoes_pagamento using gin (descricao gin_trgm_ops);
create index produtos_descricao_trgm on produtos using gin (descricao gin_trgm_ops);
create index clientes_nome_trgm on clientes using gin (nome gin_trgm_ops);
create index clientes_nome_busca_trgm on clientes using gin (nome_busca gin_trgm_ops);

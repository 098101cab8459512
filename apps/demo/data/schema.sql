-- The order desk's tables. Codes are texts that hold digits only, filled with zeros to their
-- full length. Texts hold no literals of a mask (cpf_cnpj, cep, telefone); an empty column is
-- Null.

-- A text without its accents, for searches. A generated column takes only a function that always
-- gives the same answer; unaccent does as long as nobody edits its rules.
create extension if not exists unaccent;
create function sem_acentos(texto text) returns text
language sql immutable strict parallel safe as $$
  select public.unaccent('public.unaccent', texto)
$$;

create table estados (
  uf      char(2)     primary key,
  nome    varchar(30) not null,
  capital varchar(40) not null
);

create table cidades (
  codigo varchar(5)  primary key check (codigo ~ '^[0-9]{5}$'),
  nome   varchar(60) not null,
  uf     char(2)     not null references estados,
  ddd    varchar(2)  not null,
  cep    varchar(8)  not null  -- the city's first postcode
);
create unique index cidades_nome on cidades (nome, uf);
create index cidades_uf on cidades (uf);

create table condicoes_pagamento (
  codigo    varchar(2)   primary key check (codigo ~ '^[0-9]{2}$'),
  descricao varchar(40)  not null,
  parcelas  smallint     not null check (parcelas > 0),
  primeira  smallint     not null,  -- days to the first instalment
  intervalo smallint     not null,  -- days between instalments
  acrescimo numeric(5,2) not null   -- surcharge in per cent
);

create table produtos (
  codigo    varchar(5)    primary key check (codigo ~ '^[0-9]{5}$'),
  descricao varchar(60)   not null,
  unidade   varchar(3)    not null,
  preco     numeric(11,2) not null check (preco >= 0),
  estoque   numeric(11,3) not null,
  ativo     boolean       not null default true
);
create index produtos_descricao on produtos (descricao);

create table clientes (
  codigo         varchar(5)    primary key check (codigo ~ '^[0-9]{5}$'),
  nome           varchar(60)   not null check (trim(nome) <> ''),
  cpf_cnpj       varchar(14),
  cep            varchar(8),
  endereco       varchar(60),
  cidade         varchar(5)    references cidades,
  uf             char(2)       references estados,
  telefone       varchar(11),
  email          varchar(60),
  nascimento     date,
  limite_credito numeric(11,2) not null default 0 check (limite_credito >= 0),
  condicao       varchar(2)    references condicoes_pagamento,
  senha          varchar(20),
  ativo          boolean       not null default true,
  observacao     varchar(200),
  -- What a search for a name looks through: "conceição" finds it, and so does "conceicao".
  nome_busca     text not null generated always as (nome || ' | ' || sem_acentos(nome)) stored
);
create index clientes_nome on clientes (nome);
create index clientes_cpf_cnpj on clientes (cpf_cnpj);
create index clientes_nascimento on clientes (nascimento);
create index clientes_uf on clientes (uf);

create table pedidos (
  numero    varchar(6)   primary key check (numero ~ '^[0-9]{6}$'),
  data      date         not null,
  cliente   varchar(5)   not null references clientes,
  uf        char(2)      not null references estados,
  cidade    varchar(5)   not null references cidades,
  condicao  varchar(2)   not null references condicoes_pagamento,
  entrega   date,
  documento varchar(255),                    -- a file of the order
  pasta     varchar(255),                    -- the folder of its papers
  versao    integer      not null default 1, -- counts the writes, so that none is overlooked
  constraint pedidos_entrega check (entrega >= data)
);
create index pedidos_cliente on pedidos (cliente);
create index pedidos_data on pedidos (data);

create table itens_pedido (
  pedido     varchar(6)    not null references pedidos on delete cascade,
  item       smallint      not null check (item > 0),
  produto    varchar(5)    not null references produtos,
  quantidade numeric(8,2)  not null check (quantidade > 0),
  preco      numeric(11,2) not null check (preco >= 0),
  total      numeric(15,2) not null generated always as (round(quantidade * preco, 2)) stored,
  primary key (pedido, item)
);
create index itens_pedido_produto on itens_pedido (produto);

\ir indices.sql

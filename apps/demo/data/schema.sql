-- The order desk's tables. Texts hold digits only where the field has a mask with literals
-- (cpf_cnpj, cep, telefone); an empty column is Null.

create table estados (
  uf      char(2)     primary key,
  nome    varchar(30) not null,
  capital varchar(40) not null
);

create table cidades (
  codigo integer     primary key,
  nome   varchar(60) not null,
  uf     char(2)     not null references estados,
  ddd    varchar(2)  not null,
  cep    varchar(8)  not null  -- where the city's postcodes begin
);
create unique index cidades_nome on cidades (nome, uf);
create index cidades_uf on cidades (uf);

create table condicoes_pagamento (
  codigo    integer      primary key,
  descricao varchar(40)  not null,
  parcelas  smallint     not null check (parcelas > 0),
  primeira  smallint     not null,  -- days to the first instalment
  intervalo smallint     not null,  -- days between instalments
  acrescimo numeric(5,2) not null   -- surcharge in per cent
);

create table produtos (
  codigo    integer       primary key,
  descricao varchar(60)   not null,
  unidade   varchar(3)    not null,
  preco     numeric(11,2) not null check (preco >= 0),
  estoque   numeric(11,3) not null,
  ativo     boolean       not null default true
);
create index produtos_descricao on produtos (descricao);

create table clientes (
  codigo         varchar(5)    primary key check (codigo ~ '^[0-9]{5}$'),  -- zero-filled
  nome           varchar(60)   not null check (trim(nome) <> ''),
  cpf_cnpj       varchar(14),
  cep            varchar(8),
  endereco       varchar(60),
  cidade         integer       references cidades,
  uf             char(2)       references estados,
  telefone       varchar(11),
  email          varchar(60),
  nascimento     date,
  limite_credito numeric(11,2) not null default 0 check (limite_credito >= 0),
  condicao       integer       references condicoes_pagamento,
  senha          varchar(20),
  ativo          boolean       not null default true,
  observacao     varchar(200)
);
create index clientes_nome on clientes (nome);
create index clientes_cpf_cnpj on clientes (cpf_cnpj);

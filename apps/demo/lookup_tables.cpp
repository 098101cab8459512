// The lists of the program: which rows, which columns, which searches.

#include "apps/demo/lookups.h"

namespace tessaria::demo {

const Lookup& customersLookup() {
  static const Lookup lookup{
      u"Clientes",
      u"clientes",
      u"clientes left join cidades on cidades.codigo = clientes.cidade",
      u"",
      {{u"clientes.codigo", u"Código", u"", 1000},
       {u"clientes.nome", u"Nome", u"", 3900},
       {u"cidades.nome as municipio", u"Cidade", u"", 2400},
       {u"clientes.uf", u"UF", u"", 600},
       {u"clientes.nascimento", u"Nascimento", u"dd/mm/yyyy", 1400},
       {u"clientes.cidade", u"", u"", 0},
       {u"clientes.condicao", u"", u"", 0}},
      {{1, u"Nome", u"nome", ListSearch::Text, Match::Contains, u"", 4200, 60},
       {2, u"UF", u"uf", ListSearch::Text, Match::Equal, u"AA", 900, 2},
       {2, u"Nome", u"nome", ListSearch::Text, Match::BeginsWith, u"", 4200, 60},
       {3, u"Nascimento a partir de", u"nascimento", ListSearch::Date, Match::AtLeast,
        u"dd/mm/yyyy", 1800, 10}},
      {u"uf", u"cidade", u"condicao"}};
  return lookup;
}

const Lookup& citiesLookup() {
  static const Lookup lookup{
      u"Cidades",
      u"cidades",
      u"",
      u"(uf = '@uf@' or '@uf@' = '')",
      {{u"codigo", u"Código", u"", 1000},
       {u"nome", u"Nome", u"", 3900},
       {u"uf", u"UF", u"", 600},
       {u"ddd", u"DDD", u"", 700}},
      {{1, u"Nome", u"nome", ListSearch::Text, Match::BeginsWith, u"", 4200, 60, true},
       {2, u"DDD", u"ddd", ListSearch::Text, Match::Equal, u"##", 900, 2},
       {2, u"Nome", u"nome", ListSearch::Text, Match::Contains, u"", 4200, 60}},
      {u"uf"}};
  return lookup;
}

const Lookup& paymentTermsLookup() {
  static const Lookup lookup{
      u"Condições de pagamento",
      u"condicoes_pagamento",
      u"",
      u"",
      {{u"codigo", u"Código", u"", 900},
       {u"descricao", u"Condição", u"", 3300},
       {u"parcelas", u"Parcelas", u"", 1100},
       {u"acrescimo", u"Acréscimo %", u"#,##0.00", 1500}},
      {{1, u"Condição", u"descricao", ListSearch::Text, Match::Contains, u"", 3600, 40},
       {2, u"Parcelas", u"parcelas", ListSearch::Number, Match::Equal, u"##", 900, 2}},
      {}};
  return lookup;
}

const Lookup& productsLookup() {
  static const Lookup lookup{
      u"Produtos",
      u"produtos",
      u"",
      u"",
      {{u"codigo", u"Código", u"", 1000},
       {u"descricao", u"Produto", u"", 4800},
       {u"unidade", u"Un.", u"", 600},
       {u"preco", u"Preço", u"#,##0.00", 1200},
       {u"estoque", u"Estoque", u"#,##0.000", 1200}},
      {{1, u"Produto", u"descricao", ListSearch::Text, Match::Contains, u"", 4200, 60},
       {2, u"Unidade", u"unidade", ListSearch::Text, Match::Equal, u"AAA", 900, 3},
       {2, u"Produto", u"descricao", ListSearch::Text, Match::Contains, u"", 4200, 60},
       {3, u"Preço até", u"preco", ListSearch::Number, Match::AtMost, u"$$$$$$$.$$", 1800, 12}},
      {u"preco"}};
  return lookup;
}

const Lookup& statesLookup() {
  static const Lookup lookup{
      u"Estados",
      u"estados",
      u"",
      u"",
      {{u"uf", u"UF", u"", 700},
       {u"nome", u"Estado", u"", 2700},
       {u"capital", u"Capital", u"", 2700}},
      {{1, u"Estado", u"nome", ListSearch::Text, Match::Contains, u"", 3600, 30}},
      {}};
  return lookup;
}

}  // namespace tessaria::demo

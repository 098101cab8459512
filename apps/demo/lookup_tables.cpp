// The lists of the program: which rows, which columns, which searches.

#include "apps/demo/lookups.h"
#include "tessaria/field_settings.h"

namespace tessaria::demo {

const LookupSettings& customersLookup() {
  static const LookupSettings lookup{
      .title = u"Clientes",
      .table = u"clientes",
      .columns = {{.field = u"clientes.codigo", .caption = u"Código", .width = 1000},
                  {.field = u"clientes.nome", .caption = u"Nome", .width = 3900},
                  {.field = u"cidades.nome as municipio", .caption = u"Cidade", .width = 2400},
                  {.field = u"clientes.uf", .caption = u"UF", .width = 600},
                  {.field = u"clientes.nascimento",
                   .caption = u"Nascimento",
                   .format = u"dd/mm/yyyy",
                   .width = 1400},
                  {.field = u"clientes.cidade", .visible = false},
                  {.field = u"clientes.condicao", .visible = false}},
      .from = u"clientes left join cidades on cidades.codigo = clientes.cidade",
      .searches =
          // With or without its accents.
      {{.caption = u"Nome", .field = u"nome_busca", .width = 4200, .maxLength = 60, .number = 1},
       {.caption = u"UF",
        .field = u"uf",
        .comparison = Comparison::Equal,
        .mask = u"AA",
        .width = 900,
        .maxLength = 2,
        .number = 2},
       {.caption = u"Nome",
        .field = u"nome",
        .comparison = Comparison::BeginsWith,
        .width = 4200,
        .maxLength = 60,
        .number = 2},
       {.caption = u"Nascimento a partir de",
        .field = u"nascimento",
        .type = DataType::Date,
        .comparison = Comparison::AtLeast,
        .width = 1800,
        .maxLength = 10,
        .number = 3}},
      .returnFields = {u"uf", u"cidade", u"condicao"}};
  return lookup;
}

const LookupSettings& citiesLookup() {
  static const LookupSettings lookup{
      .title = u"Cidades",
      .table = u"cidades",
      .columns = {{.field = u"codigo", .caption = u"Código", .width = 1000},
                  {.field = u"nome", .caption = u"Nome", .width = 3900},
                  {.field = u"uf", .caption = u"UF", .width = 600},
                  {.field = u"ddd", .caption = u"DDD", .width = 700}},
      .where = u"(uf = '@uf@' or '@uf@' = '')",
      .searches =
          {{.caption = u"Nome",
            .field = u"nome",
            .comparison = Comparison::BeginsWith,
            .width = 4200,
            .maxLength = 60,
            .completes = true,
            .number = 1},
           {.caption = u"DDD",
            .field = u"ddd",
            .comparison = Comparison::Equal,
            .mask = u"##",
            .width = 900,
            .maxLength = 2,
            .number = 2},
           {.caption = u"Nome", .field = u"nome", .width = 4200, .maxLength = 60, .number = 2}},
      .returnFields = {u"uf"}};
  return lookup;
}

const LookupSettings& paymentTermsLookup() {
  static const LookupSettings lookup{
      .title = u"Condições de pagamento",
      .table = u"condicoes_pagamento",
      .columns = {{.field = u"codigo", .caption = u"Código", .width = 900},
                  {.field = u"descricao", .caption = u"Condição", .width = 3300},
                  {.field = u"parcelas", .caption = u"Parcelas", .width = 1100},
                  {.field = u"acrescimo",
                   .caption = u"Acréscimo %",
                   .format = u"#,##0.00",
                   .width = 1500}},
      .searches = {{.caption = u"Condição", .field = u"descricao", .maxLength = 40},
                   {.caption = u"Parcelas",
                    .field = u"parcelas",
                    .type = DataType::Number,
                    .comparison = Comparison::Equal,
                    .mask = u"##",
                    .width = 900,
                    .maxLength = 2}}};
  return lookup;
}

const LookupSettings& productsLookup() {
  static const LookupSettings lookup{
      .title = u"Produtos",
      .table = u"produtos",
      .columns =
          {{.field = u"codigo", .caption = u"Código", .width = 1000},
           {.field = u"descricao", .caption = u"Produto", .width = 4800},
           {.field = u"unidade", .caption = u"Un.", .width = 600},
           {.field = u"preco", .caption = u"Preço", .format = u"#,##0.00", .width = 1200},
           {.field = u"estoque", .caption = u"Estoque", .format = u"#,##0.000", .width = 1200}},
      .searches = {{.caption = u"Produto",
                    .field = u"descricao",
                    .width = 4200,
                    .maxLength = 60,
                    .number = 1},
                   {.caption = u"Unidade",
                    .field = u"unidade",
                    .comparison = Comparison::Equal,
                    .mask = u"AAA",
                    .width = 900,
                    .maxLength = 3,
                    .number = 2},
                   {.caption = u"Produto",
                    .field = u"descricao",
                    .width = 4200,
                    .maxLength = 60,
                    .number = 2},
                   {.caption = u"Preço até",
                    .field = u"preco",
                    .type = DataType::Number,
                    .comparison = Comparison::AtMost,
                    .mask = u"$$$$$$$.$$",
                    .width = 1800,
                    .maxLength = 12,
                    .number = 3}},
      .returnFields = {u"preco"}};
  return lookup;
}

const LookupSettings& statesLookup() {
  static const LookupSettings lookup{
      .title = u"Estados",
      .table = u"estados",
      .columns = {{.field = u"uf", .caption = u"UF", .width = 700},
                  {.field = u"nome", .caption = u"Estado", .width = 2700},
                  {.field = u"capital", .caption = u"Capital", .width = 2700}},
      .searches = {{.caption = u"Estado", .field = u"nome", .maxLength = 30}}};
  return lookup;
}

}  // namespace tessaria::demo

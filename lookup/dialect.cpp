#include "lookup/dialect.h"

#include <array>

#include "lookup/literals.h"
#include "lookup/sql_family.h"
#include "tessaria/format.h"
#include "tessaria/text.h"

namespace tessaria {
namespace {

constexpr Long kQualquer = -1;

/// One fragment in the three families. A cell is a template: {name} stands for an argument,
/// {name:pattern} for the argument as a date of that pattern.
struct Fragmento {
  Long Tipo;
  Long TipoInteiro;  ///< kQualquer when the code has no kinds
  StringView Access;
  StringView SqlServer;
  StringView PostgreSQL;
};

constexpr StringView kCase = u"Case When {strCondicao} Then {strEntao} Else {strSenao} End";

// The first row of a code and kind counts. The "&" of SQL Server is deliberate.
constexpr std::array kFragmentos{
    Fragmento{fragmento::Substring, kQualquer, u"Mid", u"Substring", u"Substring"},
    Fragmento{fragmento::Condicional, kQualquer, u"IIf({strCondicao}, {strEntao}, {strSenao})",
              kCase, kCase},
    Fragmento{fragmento::Data, kQualquer, u"Cdate('{strData}')", u"'{strData:mm/dd/yyyy}'",
              u"'{strData:yyyy-mm-dd}'::date"},
    Fragmento{fragmento::Inteiro, 0, u"Cint({strExpressao})", u"Convert(int, {strExpressao})",
              u"{strExpressao}::integer"},
    Fragmento{fragmento::Inteiro, 1, u"Cint({strExpressao})", u"Convert(SmallInt, {strExpressao})",
              u"{strExpressao}::int2"},
    Fragmento{fragmento::Inteiro, kQualquer, u"Cint({strExpressao})", u"", u""},
    Fragmento{fragmento::Trim, kQualquer, u"Trim", u"RTrim", u"Trim"},
    Fragmento{fragmento::Concatena, kQualquer, u"&", u"&", u"||"},
    Fragmento{fragmento::Like, kQualquer, u"Like", u"Like", u"ilike"},
};

StringView Celula(const Fragmento& linha, FamiliaSql familia) {
  switch (familia) {
    case FamiliaSql::Access:
      return linha.Access;
    case FamiliaSql::SqlServer:
      return linha.SqlServer;
    case FamiliaSql::PostgreSQL:
      return linha.PostgreSQL;
    case FamiliaSql::Desconhecida:
      break;
  }
  return {};
}

StringView Modelo(Long tipo, Long tipoInteiro, FamiliaSql familia) {
  for (const Fragmento& linha : kFragmentos) {
    const bool mesmoInteiro = linha.TipoInteiro == kQualquer || linha.TipoInteiro == tipoInteiro;
    if (linha.Tipo == tipo && mesmoInteiro) return Celula(linha, familia);
  }
  return {};
}

/// The argument that stands between apostrophes in every template.
constexpr StringView kEntreAspas = u"strData";

struct Argumento {
  StringView Nome;
  const String& Valor;
};

template <std::size_t N>
String ValorDaMarca(StringView marca, const std::array<Argumento, N>& argumentos) {
  const auto doisPontos = marca.find(u':');
  const StringView nome = marca.substr(0, doisPontos);
  for (const Argumento& argumento : argumentos) {
    if (argumento.Nome != nome) continue;
    const bool formata = doisPontos != StringView::npos;
    const String valor =
        formata ? Format(Variant(argumento.Valor), marca.substr(doisPontos + 1)) : argumento.Valor;
    return nome == kEntreAspas ? ConteudoDeTexto(valor) : valor;
  }
  return {};
}

/// Only the template is searched for marks, never what was put in.
template <std::size_t N>
String Preenche(StringView modelo, const std::array<Argumento, N>& argumentos) {
  String texto;
  for (;;) {
    const auto abre = modelo.find(u'{');
    texto += modelo.substr(0, abre);
    if (abre == StringView::npos) return texto;
    const auto fecha = modelo.find(u'}', abre);
    texto += ValorDaMarca(modelo.substr(abre + 1, fecha - abre - 1), argumentos);
    modelo.remove_prefix(fecha + 1);
  }
}

}  // namespace

UmaLinha SelecionaUmaLinha(bool blnPostgreSQL) {
  return blnPostgreSQL ? UmaLinha{u"Select ", u" Limit 1"} : UmaLinha{u"Select Top 1 ", u""};
}

String mdlComum::TraduzSQL(Long intTipo, const String& strCondicao, const String& strEntao,
                           const String& strSenao, const String& strAlias, const String& strData,
                           Long intTipoInteiro, const String& strExpressao) {
  const FamiliaSql familia = FamiliaDoDialeto(NomeDialeto(*ConexaoAtual()));
  const std::array argumentos{
      Argumento{u"strCondicao", strCondicao},   Argumento{u"strEntao", strEntao},
      Argumento{u"strSenao", strSenao},         Argumento{u"strData", strData},
      Argumento{u"strExpressao", strExpressao},
  };
  String texto = Preenche(Modelo(intTipo, intTipoInteiro, familia), argumentos);
  const bool comAlias = intTipo == fragmento::Condicional && !strAlias.empty();
  if (comAlias && familia != FamiliaSql::Desconhecida) texto += u" as " + strAlias;
  return texto;
}

String mdlObjTxt::sqlFuncao(const String& strDbms, const String& strFuncao) {
  const String dialeto = UCase(strDbms);
  if (dialeto == u"MS JET") return {};  // known to TraduzSQL alone
  const FamiliaSql familia = FamiliaDoDialeto(dialeto);
  if (EqualNoCase(strFuncao, u"sqlSubstring")) {
    return String(Modelo(fragmento::Substring, kQualquer, familia));
  }
  if (EqualNoCase(strFuncao, u"sqlConcat")) {
    return String(Modelo(fragmento::Concatena, kQualquer, familia));
  }
  return {};
}

}  // namespace tessaria

#include "lookup/statement_layout.h"

#include <array>

#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

constexpr StringView kQuebra = u"\r\n";
constexpr StringView kNovaLinha = u"\r\n      ";

struct PalavraChave {
  StringView Palavra;
  StringView Disposta;
};

constexpr std::array kPalavrasChave{
    PalavraChave{u"Select", u"SELECT\r\n      "},
    PalavraChave{u"From", u"\r\nFROM\r\n      "},
    PalavraChave{u"Left Join", u"\r\n      Left Join "},
};

struct AspasDoTipo {
  StringView Tipo;
  StringView Abre;
  StringView Fecha;
};

// The date is written in this one way for every dialect.
constexpr std::array kAspas{
    AspasDoTipo{u"String", u"'", u"'"},
    AspasDoTipo{u"Data", u"cDate('", u"')"},
};

AspasDoTipo AspasPara(const String& tipo) {
  for (const AspasDoTipo& aspas : kAspas) {
    if (aspas.Tipo == tipo) return aspas;
  }
  return {};
}

/// The first character from `posicao` on that is no blank; "" at the end.
StringView NaoBrancoDepois(StringView sql, std::size_t posicao) {
  const auto achado = sql.find_first_not_of(u' ', posicao);
  return achado == StringView::npos ? StringView() : sql.substr(achado, 1);
}

/// The last character in front of `posicao` that is no blank; "" at the start.
StringView NaoBrancoAntes(StringView sql, std::size_t posicao) {
  const auto achado = sql.substr(0, posicao).find_last_not_of(u' ');
  return achado == StringView::npos ? StringView() : sql.substr(achado, 1);
}

/// A comma keeps its line between two quoted texts and ahead of a digit from 1 to 9.
bool VirgulaQuebra(StringView sql, std::size_t posicao) {
  const StringView depois = NaoBrancoDepois(sql, posicao + 1);
  const bool entreTextos = depois == u"'" && NaoBrancoAntes(sql, posicao) == u"'";
  return !entreTextos && Val(depois) == 0;
}

String DispoeInstrucao(StringView sql) {
  String pronta;
  // The character behind a keyword is dropped: it is the blank that follows it.
  for (std::size_t i = 0; i < sql.size(); ++i) {
    const PalavraChave* achada = nullptr;
    for (const PalavraChave& palavra : kPalavrasChave) {
      if (StartsWith(sql.substr(i), palavra.Palavra)) achada = &palavra;
    }
    if (achada) {
      pronta += achada->Disposta;
      i += achada->Palavra.size();
    } else {
      pronta += sql[i];
    }
    // A comma that was dropped breaks the line all the same.
    if (i < sql.size() && sql[i] == u',' && VirgulaQuebra(sql, i)) pronta += kNovaLinha;
  }
  return pronta;
}

String DispoeTermos(const LinhasDeLista& linhas) {
  String termos;
  for (const LinhaDeLista& linha : linhas) {
    const String termo = TermoDePesquisa(linha);
    if (termo.empty()) continue;
    if (!termos.empty()) termos.append(u" and ").append(kNovaLinha);
    termos += termo;
  }
  return termos;
}

}  // namespace

String TermoDePesquisa(const LinhaDeLista& linha) {
  if (linha.SubItems.size() != 3) return {};
  const AspasDoTipo aspas = AspasPara(linha.SubItems[2]);
  String termo = Trim(linha.Text) + Trim(linha.SubItems[0]);
  termo.append(aspas.Abre).append(u"@").append(Trim(linha.SubItems[1])).append(u"@");
  return termo.append(aspas.Fecha);
}

String MontaSqlPronta(const String& strSql, const LinhasDeLista* lstWhere,
                      const LinhasDeLista* lstOrderBy) {
  String pronta = DispoeInstrucao(Replace(strSql, u"Where 1 = Null", u""));
  if (lstWhere && !lstWhere->empty()) {
    pronta.append(kQuebra).append(u"WHERE");
    const String termos = DispoeTermos(*lstWhere);
    if (!termos.empty()) pronta.append(kNovaLinha).append(termos);
  }
  if (lstOrderBy && !lstOrderBy->empty()) {
    pronta.append(kQuebra).append(u"ORDER BY");
    StringView separador;
    for (const LinhaDeLista& linha : *lstOrderBy) {
      pronta.append(separador).append(kNovaLinha).append(Trim(linha.Text));
      separador = u",";
    }
  }
  return pronta;
}

}  // namespace tessaria::mdlObjTxt

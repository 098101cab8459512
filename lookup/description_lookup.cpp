#include "lookup/description_lookup.h"

#include <vector>

#include "lookup/dialect.h"
#include "lookup/literals.h"
#include "lookup/query_text.h"
#include "lookup/sql_family.h"
#include "services/box_state.h"
#include "services/trap.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::mdlObjTxt {
namespace {

/// From this release number on a PostgreSQL lookup casts both sides of its comparison.
constexpr Integer kVersaoComCast = 950;

constexpr Integer kTeclaBackspace = 8;

/// `BrwCampoIrmao` and `BrwCampoOutros` as one list.
String CamposDeRetorno(const Browse& browse) {
  String campos = browse.BrwCampoIrmao();
  const String outros = browse.BrwCampoOutros();
  if (!campos.empty() && !outros.empty()) campos += u", ";
  return campos + outros;
}

/// The group clause and the end of the statement. Two more blanks stand in front of the limit
/// behind a group clause.
String FimDaInstrucao(const String& groupBy, StringView limite) {
  if (groupBy.empty()) return String(limite);
  String fim = u" " + groupBy;
  if (!limite.empty()) fim.append(u"  ").append(limite);
  return fim;
}

String InstrucaoDeBusca(const Browse& browse, const host::Connection& conexao, String literal,
                        const String& campos, const String& where) {
  const bool postgres = EhPostgreSQL(conexao);
  String chave = TiraAlias(browse.BrwCampo());
  if (postgres && VersaoPostgreSQL(conexao) >= kVersaoComCast) {
    literal = u"cast(" + literal + u" as varchar)";
    chave = u"cast(" + chave + u" as varchar)";
  }
  if (!Trim(where).empty()) literal += u" And " + where;
  const UmaLinha uma = SelecionaUmaLinha(postgres);
  return String(uma.Select)
      .append(campos + u" From " + browse.From() + u" Where " + chave + u" = " + literal)
      .append(FimDaInstrucao(browse.BrwGroupBy(), uma.Limite));
}

host::RecordsetPtr Executa(host::Connection& conexao, const String& instrucao) {
  if (conexao.ConnectionString().empty()) throw HostError(errors::ObjectNotSet);
  return conexao.Execute(instrucao);
}

/// What the entries of `Outros` become, in their order.
std::vector<Variant> LeOutros(const ListaOutros& outros, const String& campos,
                              host::Recordset& rs) {
  const bool temLinha = !rs.Bof() && !rs.Eof();
  std::vector<Variant> valores;
  for (Long i = 1; i <= outros.Count(); ++i) {
    const String nome = outros.Item(i)->Nome();
    const bool selecionado = InStr(campos, nome) != 0;
    valores.push_back(temLinha && selecionado ? rs.Fields().Item(nome)->Value() : Variant());
  }
  return valores;
}

void PreencheOutros(ListaOutros& outros, const std::vector<Variant>& valores) {
  Long i = 0;
  for (const Variant& valor : valores) outros.Item(++i)->Valor(valor);
}

String InstrucaoDeCompletar(bool postgres, const String& texto, const String& tabela,
                            const String& campo, const Variant& campoIrmao, const String& where) {
  const UmaLinha uma = SelecionaUmaLinha(postgres);
  const StringView like = postgres ? u" ilike '" : u" Like '";
  const String irmao = CStr(campoIrmao);
  String instrucao = String(uma.Select) + campo;
  if (!irmao.empty()) instrucao += u", " + irmao;
  instrucao += u" From " + tabela + u" Where ";
  if (!where.empty()) instrucao += where + u" And ";
  instrucao.append(TiraAlias(campo)).append(like).append(ConteudoDePadrao(texto)).append(u"%'");
  return instrucao.append(uma.Limite);
}

/// False when the sibling refused the value.
bool PassaAoIrmao(_tsText* irmao, const Variant& valor) {
  if (!irmao) throw HostError(errors::ObjectNotSet);
  if (!irmao->TakeValue(valor)) return false;
  irmao->AtualizaIrmao(true, false);
  irmao->DisparaEventos(u"BrowseReturn");
  return true;
}

}  // namespace

Descricao ProcuraDescr(Browse& browse, const Variant& valor, const String& controle,
                       const String& where) {
  Descricao achada;
  Trap(u"mdlObjTxt", u"AchaDescr", [&] {
    const auto conexao = ConexaoAtual();
    const String campos = CamposDeRetorno(browse);
    const String instrucao =
        InstrucaoDeBusca(browse, *conexao, LiteralSql(valor, controle), campos, where);
    if (!campos.empty()) {
      const auto rs = Executa(*conexao, instrucao);
      if (!rs->Bof() && !rs->Eof()) achada.Valor = rs->Fields().Item(0)->Value();
      // All is read before anything is changed.
      PreencheOutros(browse.Outros(), LeOutros(browse.Outros(), campos, *rs));
    }
    achada.Falhou = false;
    // A handler may do away with the definition, which is not touched from here on.
    if (!campos.empty()) App().DoEvents();
  });
  return achada;
}

Variant AchaDescr(Browse& objBrowse, const Variant& varValor, const String& strNomeControle,
                  const String& strWhere, Long /*lngHwnd*/) {
  return ProcuraDescr(objBrowse, varValor, strNomeControle, strWhere).Valor;
}

Variant CompletaDescr(host::TextBox& txtBox, const String& strTabela, const String& strCampo,
                      const Variant& varTecla, bool blnTemIrmao, const Variant& varCampoIrmao,
                      _tsText* objIrmao, const String& strWhere) {
  const BoxState antes(txtBox);
  const String& digitado = antes.Text();
  if (digitado.empty()) return {};
  bool completa = false;
  Trap(u"mdlObjTxt", u"CompletaDescr", [&] {
    const auto conexao = ConexaoAtual();
    const bool postgres = EhPostgreSQL(*conexao);
    if (Equal(varTecla, kTeclaBackspace)) txtBox.Text(LeftWhole(digitado, Len(digitado) - 1));
    const String instrucao =
        InstrucaoDeCompletar(postgres, txtBox.Text(), strTabela, strCampo, varCampoIrmao, strWhere);
    const auto rs =
        conexao->OpenRecordset(instrucao, host::CursorType::Static, host::LockType::ReadOnly);
    completa = rs->Bof();
    if (completa) return;
    const Integer posicao = CInt(Len(txtBox.Text()));
    txtBox.Text(CStr(rs->Fields().Item(0)->Value()));
    if (blnTemIrmao && !PassaAoIrmao(objIrmao, rs->Fields().Item(1)->Value())) return;
    txtBox.SelStart(posicao);
    txtBox.SelLength(Len(txtBox.Text()));
    completa = true;
  });
  if (!completa) antes.PutBack();
  return {};
}

}  // namespace tessaria::mdlObjTxt

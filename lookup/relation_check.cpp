#include "lookup/relation_check.h"

#include "lookup/dialect.h"
#include "lookup/field_types.h"
#include "lookup/literals.h"
#include "lookup/query_text.h"
#include "lookup/sql_family.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

/// The typed value as it goes into the statement.
struct Literal {
  String Sql;
  bool Texto;
};

Literal LiteralDoTipo(const String& valor, Long tipo, const String& nome) {
  if (EhTipoDeCampoTexto(tipo)) return {TextoSql(valor), true};
  return {NumeroSql(valor, nome), false};
}

host::RecordsetPtr Abre(host::Connection& conexao, const String& instrucao) {
  return conexao.OpenRecordset(instrucao, host::CursorType::Static, host::LockType::ReadOnly);
}

/// One check on its connection: what it looks in.
class Relacao {
 public:
  Relacao(const String& tabela, const String& campo)
      : tabela_(tabela), campo_(campo), chave_(TiraAlias(campo)) {}

  /// The type of the field, from a statement that gives no rows.
  Long TipoDoCampo() const {
    const auto rs = Abre(*conexao_, UmaLinhaOnde(chave_ + u"=Null"));
    const Long tipo = rs->Fields().Item(0)->Type();
    rs->Close();
    return tipo;
  }

  /// The row whose field equals the literal. PostgreSQL is strict about types, so both sides
  /// are cast there, and texts are compared without regard to case.
  host::RecordsetPtr Procura(const Literal& literal, const String& where) const {
    String condicao;
    if (!postgres_) {
      condicao = chave_ + u" = " + literal.Sql;
    } else if (!literal.Texto) {
      condicao = u"cast(" + chave_ + u" as integer) = " + literal.Sql;
    } else {
      condicao =
          u"cast(lower(" + chave_ + u") as varchar) = cast(lower(" + literal.Sql + u") as varchar)";
    }
    return Abre(*conexao_, UmaLinhaOnde(condicao + where));
  }

 private:
  String UmaLinhaOnde(const String& condicao) const {
    const UmaLinha uma = SelecionaUmaLinha(postgres_);
    return String(uma.Select)
        .append(campo_ + u" From " + tabela_ + u" Where " + condicao)
        .append(uma.Limite);
  }

  const String& tabela_;
  const String& campo_;
  const String chave_;
  const host::ConnectionPtr conexao_ = ConexaoAtual();
  const bool postgres_ = EhPostgreSQL(*conexao_);
};

Long TipoDoCampo(const host::Field* campo) {
  if (!campo) throw HostError(errors::ObjectNotSet);
  return campo->Type();
}

Literal FazLiteral(const Relacao& relacao, const String& valor, TipoControle tipoControle,
                   const host::Field* campo, bool temCampo, const String& nome) {
  if (tipoControle == TipoControle::Descricao) return {TextoSql(Trim(valor)), true};
  return LiteralDoTipo(valor, temCampo ? TipoDoCampo(campo) : relacao.TipoDoCampo(), nome);
}

}  // namespace

bool ChecaRelacao(const String& strTabela, const String& strCampo, const String& strValor,
                  TipoControle intTipoControle, const host::Field* fldCampo, bool blnTemCampo,
                  bool blnPodeSerBranco, bool blnMensagem, String& strWhere, const String& strLabel,
                  Variant* varRetorno, Long lngHwnd, bool blnBotao) {
  bool existe = false;
  Trap(u"mdlObjTxt", u"ChecaRelacao", [&] {
    if (varRetorno) *varRetorno = Variant();
    if (strTabela.empty() || strCampo.empty()) {
      existe = true;
      return;
    }
    const String nome = strLabel.empty() ? strCampo + u" de " + strTabela : strLabel;
    const auto avisa = [&](const char16_t* texto) {
      mdlMsgBox::ExibeMensagem(lngHwnd, nome + texto, mdlMsgBox::flag::Information);
    };
    if (strValor.empty()) {
      existe = !blnBotao || blnPodeSerBranco;
      if (!existe) avisa(u" Não Pode Ser Branco, Verifique Por Favor");
      return;
    }
    const Relacao relacao(strTabela, strCampo);
    const Literal literal =
        FazLiteral(relacao, strValor, intTipoControle, fldCampo, blnTemCampo, RTrim(nome));
    if (!strWhere.empty()) strWhere = u" And " + strWhere;
    const auto rs = relacao.Procura(literal, strWhere);
    if (rs->Bof() || rs->Eof()) {
      if (blnMensagem) avisa(u" Inexistente, Verifique Por Favor");
      return;
    }
    if (varRetorno) *varRetorno = rs->Fields().Item(0)->Value();
    existe = true;
  });
  return existe;
}

}  // namespace tessaria::mdlObjTxt

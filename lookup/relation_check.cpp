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

/// The typed value as written in the statement.
struct Literal {
  String Sql;
  bool IsText;
};

Literal LiteralOfType(const String& value, Long type, const String& name) {
  if (IsTextFieldType(type)) return {QuotedText(value), true};
  return {SqlNumber(value, name), false};
}

host::RecordsetPtr OpenStatic(host::Connection& connection, const String& statement) {
  return connection.OpenRecordset(statement, host::CursorType::Static, host::LockType::ReadOnly);
}

/// One check: the table and field that it searches, and the connection.
class Relation {
 public:
  Relation(const String& table, const String& field)
      : table_(table), field_(field), key_(TiraAlias(field)) {}

  /// The type of the field, from a statement that returns no rows.
  Long FieldType() const {
    const auto rs = OpenStatic(*connection_, OneRowWhere(key_ + u"=Null"));
    const Long type = rs->Fields().Item(0)->Type();
    rs->Close();
    return type;
  }

  /// The row whose field equals the literal. PostgreSQL is strict about types, so both sides
  /// are cast there, and texts are compared without regard to case.
  host::RecordsetPtr Find(const Literal& literal, const String& where) const {
    String condition;
    if (!postgres_) {
      condition = key_ + u" = " + literal.Sql;
    } else if (!literal.IsText) {
      condition = u"cast(" + key_ + u" as integer) = " + literal.Sql;
    } else {
      condition =
          u"cast(lower(" + key_ + u") as varchar) = cast(lower(" + literal.Sql + u") as varchar)";
    }
    return OpenStatic(*connection_, OneRowWhere(condition + where));
  }

 private:
  String OneRowWhere(const String& condition) const {
    const RowLimit oneRow = LimitToOneRow(postgres_);
    return String(oneRow.Select)
        .append(field_ + u" From " + table_ + u" Where " + condition)
        .append(oneRow.Limit);
  }

  const String& table_;
  const String& field_;
  const String key_;
  const host::ConnectionPtr connection_ = CurrentConnection();
  const bool postgres_ = IsPostgreSQL(*connection_);
};

Long FieldType(const host::Field* field) {
  if (!field) throw HostError(errors::ObjectNotSet);
  return field->Type();
}

Literal MakeLiteral(const Relation& relation, const String& value, TipoControle controlKind,
                    const host::Field* field, bool hasField, const String& name) {
  if (controlKind == TipoControle::Descricao) return {QuotedText(Trim(value)), true};
  return LiteralOfType(value, hasField ? FieldType(field) : relation.FieldType(), name);
}

}  // namespace

bool ChecaRelacao(const String& strTabela, const String& strCampo, const String& strValor,
                  TipoControle intTipoControle, const host::Field* fldCampo, bool blnTemCampo,
                  bool blnPodeSerBranco, bool blnMensagem, String& strWhere, const String& strLabel,
                  Variant* varRetorno, Long lngHwnd, bool blnBotao) {
  bool exists = false;
  Trap(u"mdlObjTxt", u"ChecaRelacao", [&] {
    if (varRetorno) *varRetorno = Variant();
    if (strTabela.empty() || strCampo.empty()) {
      exists = true;
      return;
    }
    const String name = strLabel.empty() ? strCampo + u" de " + strTabela : strLabel;
    const auto tell = [&](const char16_t* text) {
      mdlMsgBox::ExibeMensagem(lngHwnd, name + text, mdlMsgBox::flag::Information);
    };
    if (strValor.empty()) {
      exists = !blnBotao || blnPodeSerBranco;
      if (!exists) tell(u" Não Pode Ser Branco, Verifique Por Favor");
      return;
    }
    const Relation relation(strTabela, strCampo);
    const Literal literal =
        MakeLiteral(relation, strValor, intTipoControle, fldCampo, blnTemCampo, RTrim(name));
    if (!strWhere.empty()) strWhere = u" And " + strWhere;
    const auto rs = relation.Find(literal, strWhere);
    if (rs->Bof() || rs->Eof()) {
      if (blnMensagem) tell(u" Inexistente, Verifique Por Favor");
      return;
    }
    if (varRetorno) *varRetorno = rs->Fields().Item(0)->Value();
    exists = true;
  });
  return exists;
}

}  // namespace tessaria::mdlObjTxt

#include "browse/lookup_run.h"

#include "browse/grid_form.h"
#include "browse/row_criterion.h"
#include "lookup/dialect.h"
#include "lookup/field_types.h"
#include "lookup/literals.h"
#include "lookup/query_text.h"
#include "lookup/where_text.h"
#include "mask/exit_flag.h"
#include "services/busy_pointer.h"
#include "services/dialog_placement.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::mdlObjTxt {
namespace {

bool IsNothing(const Variant& value) {
  const String* text = value.TryGet<String>();
  return value.IsNull() || value.IsEmpty() || (text != nullptr && text->empty());
}

String FieldList(const String& field, const String& sibling, const String& others) {
  String fields = field;
  if (!sibling.empty()) fields += u", " + sibling;
  if (!others.empty()) fields += u", " + others;
  return fields;
}

/// Adds a condition to a clause that is empty or begins with " Where ".
void AddCondition(String& clause, const String& condition) {
  clause += (clause.empty() ? u" Where " : u" And ") + condition;
}

/// The condition for what begins with the operator's text, without the part that was completed.
String TypedStart(const host::TextBox& box, const String& field) {
  const String text = box.Text();
  const Long typed = box.SelStart() == 0 ? Len(text) : box.SelStart();
  return TiraAlias(field) + u" " + mdlComum::TraduzSQL(sql_fragment::Like) + u" '" +
         PatternContent(LeftWhole(text, typed)) + u"%'";
}

/// The whole clause, from " Where " on. `where` is already expanded.
String WhereClause(const String& where, TipoControle kind, const host::TextBox& box,
                   const String& field) {
  String clause;
  if (!where.empty()) AddCondition(clause, where);
  if (kind == TipoControle::Descricao && !Trim(box.Text()).empty())
    AddCondition(clause, TypedStart(box, field));
  AddCondition(clause, TiraAlias(field) + u" Is Not Null");
  return clause;
}

void TellEmptyTable(const String& message, Long lngHwnd) {
  const bool own = !Trim(message).empty();
  mdlMsgBox::ExibeMensagem(
      lngHwnd, own ? message : u"Não Existem Dados na Tabela Pesquisada, Favor Cadastrar", 0);
}

/// Adds a menu entry for each search; consecutive searches with the same number share one.
void FillMenu(host::ToolBar& bar, const Pesquisa* searches) {
  Long previous = 0;
  for (Long i = 1; searches != nullptr && i <= searches->Count(); ++i) {
    const auto item = searches->Item(i);
    if (item->Indice() != previous) {
      bar.AddMenu({item->Caption(), CStr(Variant(item->Indice()))});
    } else {
      auto last = bar.Menu(bar.MenuCount());
      last.Text += u" + " + item->Caption();
      bar.Menu(bar.MenuCount(), last);
    }
    previous = item->Indice();
  }
  if (bar.MenuCount() == 0) {
    bar.ButtonEnabled(false);
    return;
  }
  bar.AddMenu({u"-", {}});
  bar.AddMenu({u"Traz Todos os Registros", {}});
}

host::Recordset& RowsOf(const frmBrowse& form) {
  if (!form.dcBrowse) throw HostError(errors::ObjectNotSet);
  return *form.dcBrowse;
}

/// Goes to the row of the value, or to the first row.
void GoToValue(host::Recordset& rows, Variant& value) {
  if (IsNothing(value)) value = rows.Fields().Item(0)->Value();
  const BusyPointer busy;
  if (const String* text = value.TryGet<String>()) {
    if (!text->empty()) FindStart(rows, *text);
  } else {
    rows.Find(EqualityCriterion(rows.Fields().Item(0)->Name(), value));
  }
  if (rows.Eof()) rows.MoveFirst();
}

/// The key of a chosen description, to which later lookups of its control are limited.
Variant SiblingLiteral(host::Recordset& rows, const String& siblingField) {
  const auto field = rows.Fields().Item(ColumnName(siblingField));
  const Variant value = field->Value();
  return IsNumericFieldType(field->Type()) ? value : Variant(QuotedText(SqlText(value)));
}

}  // namespace

String VerBrowse(float sngTop, float sngLeft, host::TextBox& txtBox, Variant& varValor,
                 const String& strTabela, const String& strCampo, const String& strCampoIrmao,
                 const String& strCampoOutros, const String& strGroupBy, const String& strLeftJoin,
                 const String& strWhere, const String& strTitulo, TipoControle intTipoControle,
                 const host::FormPtr& frmForm, ListaColunas& cgrColGrid,
                 std::shared_ptr<Pesquisa> objPesquisa, const String& strMsgBrowse, Long lngHwnd,
                 ListEnd* end) {
  String result;
  auto outcome = ListEnd::Failed;  // until the list ends otherwise
  Trap(u"mdlObjTxt", u"VerBrowse", [&] {
    const Variant formerValue = varValor;
    // The definition may have been destroyed when the list closes.
    const String sibling = strCampoIrmao;  // NOLINT(performance-unnecessary-copy-initialization)
    frmBrowse form;
    form.lblTitulo().Caption(strTitulo.empty() ? strTabela : strTitulo);
    PlaceOnScreen(form.Window(), sngTop, sngLeft);

    const String fields = FieldList(strCampo, strCampoIrmao, strCampoOutros);
    const String from = strLeftJoin.empty() ? strTabela : strLeftJoin;
    form.strWhere = frmForm ? ExpandCondition(frmForm, strWhere) : strWhere;
    CopiaColunas(cgrColGrid, form.cgrColGrid, false);

    // Without a group clause there are two blanks before the order.
    bool ok = false;
    form.ConectGrid(u"Select " + fields + u" From " + from +
                        WhereClause(form.strWhere, intTipoControle, txtBox, strCampo) + u" " +
                        strGroupBy + u" Order by 1",
                    ok);
    if (!ok) return;
    if (RowsOf(form).Bof()) {
      TellEmptyTable(strMsgBrowse, lngHwnd);
      outcome = ListEnd::Answered;
      return;
    }

    form.DesenhaGrid();
    form.strTabela = strTabela;
    form.strFrom = from;
    form.strCampos = fields;
    form.hWndMsgBox = lngHwnd;
    form.strGroupBy = strGroupBy;
    form.Pesquisa = objPesquisa;
    FillMenu(form.barBrowse(), objPesquisa.get());
    GoToValue(RowsOf(form), varValor);
    txtBox.Tag = exitIsSilenced;

    form.ShowModal();
    App().DoEvents();
    if (!form.lGravar) {
      result = formerValue.IsNull() ? String() : CStr(formerValue);
      outcome = ListEnd::NoChoice;
      return;
    }
    result = CStr(RowsOf(form).Fields().Item(0)->Value());
    const bool hasSibling = !sibling.empty() && intTipoControle == TipoControle::Descricao;
    State().vntValorIrmao = hasSibling ? SiblingLiteral(RowsOf(form), sibling) : Variant();
    outcome = ListEnd::Answered;
  });
  if (end) *end = outcome;
  return result;
}

}  // namespace tessaria::mdlObjTxt

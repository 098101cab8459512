// One run of a lookup, argument by argument.
#pragma once

#include "browse/grid_form.h"
#include "browse/lookup_run.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/tstext.h"
#include "tests/browse/browse_fixture.h"

namespace tessaria::test {

using mdlObjTxt::ListEnd;

inline constexpr Long kOwner = 77;

/// The arguments of a run; by default those of a key field.
struct RunArguments {
  float Top = 0;
  float Left = 0;
  Variant Value;
  String Table = u"clientes";
  String Campo = u"codigo";
  String SiblingField = u"nome";
  String OtherFields = u"cidade";
  String GroupBy;
  String LeftJoin;
  String Where = u"ativo = 1";
  String Title;
  TipoControle Tipo = TipoControle::Browse;
  String MsgBrowse;
};

class RunTest : public BrowseTest {
 protected:
  ~RunTest() override { form->Close(); }

  /// A run whose list is operated by the script.
  String Run(RunArguments& a, memory::ModalScript::Script script) {
    desktop->WillShow(u"frmBrowse", std::move(script));
    return RunUnseen(a);
  }
  /// A run that shows no list.
  String RunUnseen(RunArguments& a) {
    return mdlObjTxt::VerBrowse(a.Top, a.Left, box, a.Value, a.Table, a.Campo, a.SiblingField,
                                a.OtherFields, a.GroupBy, a.LeftJoin, a.Where, a.Title, a.Tipo,
                                form, columns, searches, a.MsgBrowse, kOwner, &end);
  }
  /// The statement that opens the list, which is closed at once.
  String StatementOf(RunArguments a) {
    Run(a, Leave);
    const auto statements = connection->TakeStatements();
    return statements.empty() ? String() : statements.front();
  }
  static void Leave(memory::Dialog& shown) { shown.Click(u"btnVoltar"); }
  static void Confirm(memory::Dialog& shown) { shown.Click(u"btnConfirmar"); }
  void AddSearch(Long number, const String& caption) {
    searches->Add(number, caption, u"nome", 8, 1, u"", 2000, 0, false, false, 0, 0, u"");
  }

  ListEnd end{};  ///< how the last list ended
  std::shared_ptr<memory::Form> form = memory::Form::Create(u"frmCadastro");
  memory::TextBox box;
  ListaColunas columns;
  std::shared_ptr<Pesquisa> searches = std::make_shared<Pesquisa>();
};

}  // namespace tessaria::test

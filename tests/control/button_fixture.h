// A field with a button on a form, and a desktop for the dialogs that it opens.
#pragma once

#include "pickers/calculator.h"
#include "pickers/calendar.h"
#include "pickers/folder_picker.h"
#include "tessaria/memory/dialogs/desktop.h"
#include "tests/control/control_fixture.h"
#include "tests/support/test_desktop.h"

namespace tessaria::test {

/// The tag of the box while its exit is silenced.
inline const char16_t* const silenced = u"Nao Dispara Valida";

class ButtonTest : public ControlTest {
 protected:
  using Script = memory::ModalScript::Script;

  ButtonTest() {
    form->Add<memory::Generic>(u"chkAtivo", u"CheckBox", memory::Generic::Focus::Taken);
    field = AddField(u"txtCampo");
    Control().UsaChecaRelacao(false);
    connection->OnStatement = [this](const String& statement) {
      return InStr(statement, u"Order by 1") != 0 ? list : description;
    };
    auto& files = desktop->Files();
    files.AddDrive(u"c: [SISTEMA]");
    files.AddFile(u"c:\\Programa\\demo.exe");
    files.AddFile(u"c:\\Dados\\Carta.txt");
    files.AddFile(u"c:\\Dados\\foto.png");
  }

  tsText& Control() { return **field; }
  memory::TextBox& Box() { return field->txtEdit(); }
  std::vector<memory::ControlEvent> Returns() { return field->Events(Kind::BrowseReturn); }
  /// The value that the next change is compared with.
  Variant LastValue() {
    Control().DisparaEventos(u"BrowseReturn");
    return Returns().back().LastValue;
  }
  /// Shows the form with the field as one of that kind.
  void Show(TipoControle kind) {
    Control().TipoControle(kind);
    switch (kind) {
      case TipoControle::Browse:
      case TipoControle::Descricao:
        Control().BrowseTable(u"clientes");
        Control().BrwCampo(u"codigo");
        break;
      case TipoControle::Calendario:
        Control().TipoDado(7);
        Control().Mascara(u"dd/mm/yyyy");
        break;
      case TipoControle::Calculadora:
        Control().TipoDado(5);
        Control().Mascara(u"$$$$$.$$");
        break;
      default:
        break;
    }
    form->Show();
    field->ForgetEvents();
    app.TakeBoxes();
  }
  /// Presses the button; the script operates the window of that name.
  void Click(StringView window, Script script) {
    desktop->WillShow(window, std::move(script));
    field->btnBrowse().OnClick();
  }
  /// The window that the button of a kind opens.
  static StringView WindowOf(TipoControle kind) {
    switch (kind) {
      case TipoControle::Calendario:
        return u"frmCalendario";
      case TipoControle::Diretorio:
        return u"frmDiretorio";
      case TipoControle::Calculadora:
        return u"frmCalculadora";
      default:
        return u"frmBrowse";
    }
  }
  /// Whether no shared window is left.
  static bool AllReleased() {
    return !State().frmCalendario && !State().frmCalculadora && !State().frmDiretorio;
  }

  static void Close(memory::Dialog& shown) { shown.CloseWindow(); }
  /// Chooses a row of the list.
  static Script Pick(Long row) {
    return [row](memory::Dialog& shown) {
      shown.SelectRow(u"grdBrowse", row);
      shown.Click(u"btnConfirmar");
    };
  }
  /// Types on the calculator, and closes it with Escape if the keys have not.
  static Script Calculate(const String& keys) {
    return [keys](memory::Dialog& shown) {
      shown.Type(keys);
      if (shown.IsShown()) shown.Press(memory::Key::Escape);
    };
  }

  static constexpr TipoControle kindsWithADialog[] = {
      TipoControle::Browse, TipoControle::Calendario, TipoControle::Descricao,
      TipoControle::Diretorio, TipoControle::Calculadora};

  TestDesktop desktop;
  /// The results of the list of a lookup, and of the search for a description.
  memory::Rows list{{{u"codigo"}, {u"nome"}},
                    {{u"1", u"Ana"}, {u" 15 ", u"Bruno"}, {u"700", u"Beatriz"}}};
  memory::Rows description{{{u"nome"}}, {{u"Bruno"}}};
  FieldPtr field;
};

}  // namespace tessaria::test

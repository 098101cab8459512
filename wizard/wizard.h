// What the tabs of the SQL wizard share: the window, the connection and the selection.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "tessaria/grid_columns.h"
#include "tessaria/host/dialog.h"
#include "wizard/named_texts.h"
#include "wizard/sql_names.h"
#include "wizard/wizard_widgets.h"

namespace tessaria::wizard {

/// The state of an open wizard. Each tab connects its own widgets. An error that leaves a handler
/// is shown in a box, and the wizard goes on: a handler changes the state after what can fail.
struct Wizard {
  explicit Wizard(host::Dialog& ofWizard) : window(ofWizard) {}
  Wizard(const Wizard&) = delete;
  Wizard& operator=(const Wizard&) = delete;

  host::DialogListView& List(StringView name) const {
    return window.Find<host::DialogListView>(name);
  }
  host::DialogCombo& Combo(StringView name) const { return window.Find<host::DialogCombo>(name); }
  host::TextBox& Box(StringView name) const { return window.Find<host::DialogTextBox>(name).Box(); }
  host::DialogButton& Button(StringView name) const {
    return window.Find<host::DialogButton>(name);
  }
  host::DialogCheckBox& Check(StringView name) const {
    return window.Find<host::DialogCheckBox>(name);
  }
  host::DialogLabel& Label(StringView name) const { return window.Find<host::DialogLabel>(name); }
  host::DialogWidget& Widget(StringView name) const {
    return window.Find<host::DialogWidget>(name);
  }
  host::DialogTabs& Tabs() const { return window.Find<host::DialogTabs>(u"tabWizard"); }
  host::DataGrid& Grid() const { return window.Find<host::DataGrid>(u"grdWizard"); }

  /// Whether names with "_" and aliases are taken: the check box. Off in a new wizard.
  bool AcceptsAliases() const { return Check(u"chkAceitaApelidos").Value() == 1; }
  /// Whether a text of `lst1TabSel` stands for a table of another name.
  bool IsAlias(const String& text) const;
  /// A box with that text, "Alerta!" and OK.
  void Alert(const String& text) const;
  /// The text of the label for what the wizard waits for or could not do.
  void Estado(const String& text) const { Label(u"lblEstado").Caption(text); }
  /// Called each time the tab comes to the front; nothing to do where a tab leaves it empty.
  std::function<void()>& OnEnter(Tab tab) { return enter[static_cast<std::size_t>(tab)]; }

  /// The wizard's connection. Error 91 before the first attempt to connect.
  host::Connection& Connection() const;

  host::Dialog& window;
  host::ConnectionPtr cnWizard;  ///< the wizard's own; null before the first attempt to connect
  host::RecordsetPtr rsTabelas;
  host::RecordsetPtr rsCampos;
  SqlNames names;  ///< of the connection's database
  /// The real table of each text of `lst1TabSel`.
  NamedTexts colTabelas;
  String strTabelas;  ///< the text after From
  String strCampos;   ///< the select list
  ListaColunas cgrColGrid;
  /// What the statement selects for each column; empty for columns that were not retrieved.
  std::vector<String> selected;
  Integer intColAtual = 0;  ///< the column in the settings boxes, from 0
  /// The rows that the grid shows; their `Source` is the statement as it was executed.
  host::RecordsetPtr dcWizard;

  /// Enables the tabs and the confirm button.
  std::function<void()> AtualizaAbas;
  /// To be called when the operator has changed whether aliases are accepted.
  std::function<void()> OnAliases;
  /// To be called when `cgrColGrid` has been filled anew: what lists the columns follows.
  std::function<void()> OnColumns;

  std::array<std::function<void()>, kTabs> enter;
};

}  // namespace tessaria::wizard

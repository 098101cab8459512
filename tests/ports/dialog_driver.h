// What a host gives to the contract of surfaces and dialogs: one surface, and an operator's hands.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tessaria/host/dialog.h"
#include "tessaria/text.h"
#include "tests/ports/error_of.h"

namespace tessaria::contract {

/// Keys of the operator that are no characters of a text.
enum class SurfaceKey { Tab, BackTab, Enter, Space, Backspace, Left, Right, Up, Down };

/// Keyboard and mouse at a surface that is shown. What the operator cannot reach (hidden, disabled,
/// on another page) is aimed at all the same, and nothing happens.
class Operator {
 public:
  Operator() = default;
  Operator(const Operator&) = delete;
  Operator& operator=(const Operator&) = delete;
  virtual ~Operator() = default;

  // Keys go to whatever has the focus.
  virtual void Press(SurfaceKey key) = 0;
  virtual void Type(const String& text) = 0;
  /// Alt and a letter.
  virtual void Mnemonic(char16_t letter) = 0;

  /// A click of the mouse into the widget: presses a button, toggles a check box, sets an option,
  /// brings the focus into a box, presses the button of a tool bar.
  virtual void Click(StringView name) = 0;
  /// Drops a list down and clicks one of its rows, numbered from 0.
  virtual void Choose(StringView list, Long row) = 0;
  virtual void ClickTab(StringView strip, Long page) = 0;
  /// Rows of a list view, numbered from 1.
  virtual void ClickRow(StringView list, Long row) = 0;
  virtual void DoubleClickRow(StringView list, Long row) = 0;
  /// A click on the check box in the row.
  virtual void CheckRow(StringView list, Long row) = 0;
  /// Columns of a grid, numbered from 0.
  virtual void ClickHeader(StringView grid, Long column) = 0;
  virtual void ResizeColumn(StringView grid, Long column, Long twips) = 0;
  /// An entry of a tool bar's menu, numbered from 1.
  virtual void ClickMenu(StringView bar, Long position) = 0;
  virtual void PickDay(StringView calendar, Date day) = 0;
  /// Dialogs only.
  virtual void CloseByFrame() = 0;

  // --- What the operator sees ------------------------------------------------------------------
  /// The name of the widget that has the focus; "" for none.
  virtual String Focused() = 0;
  /// What a column shows of the current row.
  virtual String CellText(StringView grid, Long column) = 0;
};

/// One surface made from a description, hidden at first: in a frame of the program, or in a dialog.
class SurfaceDriver {
 public:
  SurfaceDriver() = default;
  SurfaceDriver(const SurfaceDriver&) = delete;
  SurfaceDriver& operator=(const SurfaceDriver&) = delete;
  virtual ~SurfaceDriver() = default;

  virtual host::Surface& Surface() = 0;
  /// The same surface as a dialog; null for one in a frame.
  virtual host::Dialog* Dialog() = 0;
  virtual Operator& Hands() = 0;
  /// Shows the surface, runs the script, and hides it unless the script has. A dialog runs the
  /// script inside its modal loop.
  virtual void Work(const std::function<void()>& script) = 0;
  virtual bool IsShown() = 0;
  /// Drops the last handle, perhaps inside a handler.
  virtual void Destroy() = 0;
  /// Makes it the button that Enter presses.
  virtual void MakeDefault(StringView button) = 0;
  /// Texts of the boxes since the last call.
  virtual std::vector<String> TakeBoxes() = 0;
};

struct SurfaceHost {
  const char* name;
  std::function<std::unique_ptr<SurfaceDriver>(const host::DialogDescription&)> make;
  friend void PrintTo(const SurfaceHost& host, std::ostream* out) { *out << host.name; }
};

inline constexpr StringView kCities[] = {u"Assis", u"Bauru", u"Campinas"};
inline constexpr StringView kPages[] = {u"Principal", u"Busca", u"Grade"};
inline constexpr StringView kHeadings[] = {u"Campo", u"Tipo"};

/// Every kind of widget that needs no files, in the order of the Tab key.
inline constexpr host::WidgetDescription kContractWidgets[] = {
    {u"lblNome", host::WidgetKind::Label, u"Nome"},
    {u"txtNome", host::WidgetKind::TextBox, u"Nome"},
    {u"txtNotas", host::WidgetKind::MultiLineText, u"Notas"},
    {u"visor", host::WidgetKind::Display, u"Visor"},
    {u"cboCidade", host::WidgetKind::ComboBox, u"Cidade", {}, -1, {}, -1, kCities},
    {u"lstCidade", host::WidgetKind::DropDownList, u"Cidades", {}, -1, {}, -1, kCities},
    {u"chkAtivo", host::WidgetKind::CheckBox, u"&Ativo"},
    {u"fraTipo", host::WidgetKind::Frame, u"Tipo"},
    {u"optUm", host::WidgetKind::OptionButton, u"&Um", {}, -1, u"fraTipo"},
    {u"optDois", host::WidgetKind::OptionButton, u"&Dois", {}, -1, u"fraTipo"},
    {u"fraBusca", host::WidgetKind::Frame, u"Busca", {}, -1, u"fraTipo"},
    {u"optIgual", host::WidgetKind::OptionButton, u"&Igual", {}, -1, u"fraBusca"},
    {u"txtBusca", host::WidgetKind::TextBox, u"Texto", {}, -1, u"fraBusca"},
    {u"tabDados", host::WidgetKind::TabStrip, u"Dados", {}, -1, {}, -1, kPages},
    {u"txtPagina0", host::WidgetKind::TextBox, u"Título", {}, -1, u"tabDados", 0},
    {u"txtPagina1", host::WidgetKind::TextBox, u"Procura", {}, -1, u"tabDados", 1},
    {u"fraPagina1", host::WidgetKind::Frame, u"Opções", {}, -1, u"tabDados", 1},
    {u"chkPagina1", host::WidgetKind::CheckBox, u"&Exata", {}, -1, u"fraPagina1"},
    {u"txtPagina2", host::WidgetKind::TextBox, u"Colunas", {}, -1, u"tabDados", 2},
    {u"lista", host::WidgetKind::ListView, u"Campos", {}, -1, {}, -1, kHeadings},
    {u"marcas", host::WidgetKind::CheckList, u"Marcas", {}, -1, {}, -1, kHeadings},
    {u"grade", host::WidgetKind::DataGrid, u"Grade"},
    {u"previa", host::WidgetKind::ColumnPreview, u"Prévia"},
    {u"campo", host::WidgetKind::TsText, u"Campo"},
    {u"barra", host::WidgetKind::ToolBar, u"Ordem"},
    {u"dia", host::WidgetKind::Calendar, u"Dia"},
    {u"btnGravar", host::WidgetKind::CommandButton, u"&Gravar"},
    {u"btnSair", host::WidgetKind::CommandButton, u"&Sair"},
};
inline constexpr host::DialogDescription kContractDialog{u"frmContrato", u"Contrato",
                                                         kContractWidgets};

class SurfaceContract : public testing::TestWithParam<SurfaceHost> {
 protected:
  using Log = std::vector<std::string>;

  void SetUp() override {
    driver_ = GetParam().make(kContractDialog);
    ASSERT_NE(driver_, nullptr);
  }

  SurfaceDriver& Driver() { return *driver_; }
  host::Surface& Surface() { return driver_->Surface(); }
  Operator& Hands() { return driver_->Hands(); }
  void Work(const std::function<void()>& script) { driver_->Work(script); }

  template <class Port>
  Port& The(StringView name) {
    return Surface().Find<Port>(name);
  }
  host::DialogWidget& Widget(StringView name) { return The<host::DialogWidget>(name); }
  host::DialogButton& Button(StringView name) { return The<host::DialogButton>(name); }
  host::TextBox& Box(StringView name) { return The<host::DialogTextBox>(name).Box(); }
  host::DialogCombo& Combo(StringView name) { return The<host::DialogCombo>(name); }
  host::DialogTabs& Tabs() { return The<host::DialogTabs>(u"tabDados"); }
  host::DialogListView& List() { return The<host::DialogListView>(u"lista"); }
  host::DialogListView& Marks() { return The<host::DialogListView>(u"marcas"); }
  host::DataGrid& Grid() { return The<host::DataGrid>(u"grade"); }
  host::DataGrid& Preview() { return The<host::DataGrid>(u"previa"); }

  void Add(std::string event) { log_.push_back(std::move(event)); }
  /// Writes the focus events of a widget to the log.
  void WatchFocus(StringView name) {
    Widget(name).OnGotFocus = [this, name] { Add("got " + ToUtf8(name)); };
    Widget(name).OnLostFocus = [this, name] { Add("lost " + ToUtf8(name)); };
  }
  /// The events since the last call.
  Log TakeLog() { return std::exchange(log_, {}); }

  Log log_;
  std::unique_ptr<SurfaceDriver> driver_;
};

}  // namespace tessaria::contract

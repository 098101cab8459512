// The SQL wizard without a screen: an operator's hands on its window, over a scripted database.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

#include "tessaria/conversion.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/dialogs/dialog.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"
#include "tests/support/test_desktop.h"
#include "tests/wizard/scripted_database.h"
#include "wizard/frm_monta_sql.h"

namespace tessaria::test {

/// The data source "Vendas" leads to `database`. The members that stand for the operator work while
/// the window is open, inside `Run`.
class WizardTest : public testing::Test {
 protected:
  using Rows = std::vector<String>;

  WizardTest() {
    app.AddDataSource(u"Vendas");
    app.OnNewConnection = [this] { return database; };
  }
  ~WizardTest() override { State().frmMontaSql = nullptr; }

  /// Opens the window and works in it; "Voltar" at the end, unless the work has left it.
  void Run(const std::function<void()>& work) {
    const auto form = frmMontaSql::Instance();
    WillWork(work);
    form->Show();
  }
  /// The same for a window that something else opens.
  void WillWork(const std::function<void()>& work) {
    desktop->WillShow(u"frmMontaSql", [this, work](memory::Dialog& dialog) {
      window = &dialog;
      work();
      if (dialog.IsShown()) dialog.Click(u"btnVoltar");
      window = nullptr;
    });
  }
  wizard::Wizard& Parts() { return frmMontaSql::Instance()->Parts(); }

  // --- What the operator sees
  host::DialogListView& List(StringView name) { return Parts().List(name); }
  host::DialogCombo& Combo(StringView name) { return Parts().Combo(name); }
  String Text(StringView box) { return Parts().Box(box).Text(); }
  bool IsEnabled(StringView name) { return Parts().Widget(name).Enabled(); }
  bool IsTabEnabled(wizard::Tab tab) { return Parts().Tabs().TabEnabled(static_cast<Long>(tab)); }
  wizard::Tab Front() { return static_cast<wizard::Tab>(Parts().Tabs().Tab()); }
  Rows RowsOf(StringView list) {
    Rows rows;
    for (Long i = 1; i <= List(list).Count(); ++i) rows.push_back(List(list).Item(i).Text());
    return rows;
  }
  Rows Choices(StringView combo) {
    Rows rows;
    for (Long i = 0; i < Combo(combo).ListCount(); ++i) rows.push_back(Combo(combo).List(i));
    return rows;
  }
  String Selected(StringView list) {
    const host::ListRow* row = List(list).SelectedItem();
    return row == nullptr ? String() : row->Text();
  }

  // --- What the operator does
  void Click(StringView name) { window->Click(name); }
  void GoTo(wizard::Tab tab) { window->ClickTab(u"tabWizard", static_cast<Long>(tab)); }
  void Choose(StringView combo, StringView text) {
    for (Long row = 0; row < Combo(combo).ListCount(); ++row)
      if (Combo(combo).List(row) == text) return window->Choose(combo, row);
    ADD_FAILURE() << "no such row: " << ToUtf8(text);
  }
  void Select(StringView list, StringView text) {
    if (const Long row = RowOf(list, text)) window->ClickRow(list, row);
  }
  void Check(StringView list, StringView text) {
    if (const Long row = RowOf(list, text)) window->CheckRow(list, row);
  }
  /// Replaces the text of a box.
  void Type(StringView box, StringView text) {
    window->FocusOn(box);
    Parts().Box(box).SelStart(0);
    Parts().Box(box).SelLength(Len(Parts().Box(box).Text()));
    if (text.empty()) return window->Press(memory::Key::Delete);
    window->Type(text);
  }
  void Connect() {
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
  }
  void Pick(const Rows& tables) {
    for (const String& table : tables) {
      Select(u"lst1TabTodas", table);
      Click(u"btn1Inc");
    }
  }

  /// The one box since the last call.
  void ExpectAlert(StringView text) {
    const auto boxes = app.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].Text, String(text));
    EXPECT_EQ(boxes[0].Title, u"Alerta!");
    EXPECT_EQ(boxes[0].Style, host::box::Ok);
  }
  /// The error that the last handler left, which a box has shown.
  void ExpectUnhandled(Long number) {
    ASSERT_FALSE(window->UnhandledErrors().empty());
    EXPECT_EQ(window->UnhandledErrors().back().Number(), number);
    app.TakeBoxes();
  }
  void ExpectNoBox() {
    for (const auto& box : app.TakeBoxes()) ADD_FAILURE() << ToUtf8(box.Title + u": " + box.Text);
  }

  memory::Application app;
  TestDesktop desktop;
  std::shared_ptr<ScriptedDatabase> database = std::make_shared<ScriptedDatabase>();
  memory::Dialog* window = nullptr;  ///< while `Run` works

 private:
  /// From 1; 0, which fails the test, when there is none.
  Long RowOf(StringView list, StringView text) {
    for (Long i = 1; i <= List(list).Count(); ++i)
      if (List(list).Item(i).Text() == text) return i;
    ADD_FAILURE() << "no such row: " << ToUtf8(text);
    return 0;
  }
};

}  // namespace tessaria::test

// The SQL wizard as a real window over a database that a test supplies.
#pragma once

#include <QTabWidget>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "tessaria/qt/data_layer.h"
#include "tests/qt_dialogs/dialog_fixture.h"
#include "tests/qt_dialogs/surface_hands.h"
#include "tests/wizard/scripted_database.h"
#include "wizard/frm_monta_sql.h"

namespace tessaria::qt::tests {

/// The data source "Vendas" leads to `database`, with a customer's city as the link to make. The
/// wizard opens over a form of the program.
class WizardWindow : public DialogFixture {
 protected:
  using Rows = std::vector<String>;

  WizardWindow() {
    database->Memory().SetProperty(u"DBMS Name", u"ACCESS");
    database->relations = {{u"", u"Cliente"}, {u"", u"Cidade"}, {u"", u"Estado"}};
    database->fields[u"Cliente"] = {u"Codigo", u"Nome", u"CodCidade"};
    database->fields[u"Cidade"] = {u"Codigo", u"Descricao"};
    setDataLayer({[] {
                    return std::vector<String>{u"Compras", u"Vendas"};
                  },
                  [this] { return database; }});
  }
  ~WizardWindow() override {
    State().frmMontaSql = nullptr;
    setDataLayer({});
  }

  /// Opens the wizard and works in it; "Voltar" at the end, unless the work has left it.
  void run(const std::function<void()>& work) {
    const auto form = frmMontaSql::Instance();
    driver_.willShow(QStringLiteral("frmMontaSql"), [&](QDialog& dialog) {
      window = &dialog;
      SurfaceHands own(dialog);
      hands = &own;
      work();
      if (dialog.isVisible()) own.Click(u"btnVoltar");
      hands = nullptr;
      window = nullptr;
    });
    form->Show();
    tag = form->Tag;
  }

  wizard::Wizard& parts() { return frmMontaSql::Instance()->Parts(); }
  host::DialogListView& list(StringView name) { return parts().List(name); }
  Rows rowsOf(StringView name) {
    Rows rows;
    for (Long i = 1; i <= list(name).Count(); ++i) rows.push_back(list(name).Item(i).Text());
    return rows;
  }
  void bringToFront(wizard::Tab tab) {
    parts().Tabs().TabEnabled(static_cast<Long>(tab), true);
    parts().Tabs().Tab(static_cast<Long>(tab));
    settleEvents();
  }
  QWidget* pageInFront() {
    return at<QTabWidget>(*window, QStringLiteral("tabWizard")).currentWidget();
  }

  void strikeKey(int key, int times = 1, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    for (int i = 0; i < times; ++i) press(*window, key, modifiers);
    settleEvents();
  }
  /// Presses Tab until the widget has the focus.
  void tabTo(const char* name) {
    constexpr int kMost = 40;
    const auto& wanted = at(*window, QLatin1String(name));
    const auto isThere = [&] {
      const QWidget* focus = window->focusWidget();
      return focus == &wanted || wanted.isAncestorOf(focus);
    };
    for (int i = 0; i < kMost && !isThere(); ++i) strikeKey(Qt::Key_Tab);
    EXPECT_TRUE(isThere()) << name;
  }
  void pressButton(const char* name) {
    tabTo(name);
    strikeSpace();
  }
  void strikeSpace() {
    type(*window, QStringLiteral(" "));
    settleEvents();
  }

  std::shared_ptr<test::ScriptedDatabase> database = std::make_shared<test::ScriptedDatabase>();
  QDialog* window = nullptr;      ///< while `run` works
  SurfaceHands* hands = nullptr;  ///< at the window
  String tag;                     ///< how the last run was left
};

}  // namespace tessaria::qt::tests

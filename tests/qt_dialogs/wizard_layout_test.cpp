// How the SQL wizard's window is laid out, and that its keys reach everything.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>
#include <QTreeWidget>
#include <algorithm>
#include <set>

#include "tests/qt_dialogs/wizard_window.h"

namespace tessaria::qt::tests {
namespace {

using wizard::Tab;

constexpr Tab kAllTabs[] = {Tab::Tabelas, Tab::Links, Tab::Campos,  Tab::Grid,
                            Tab::Ordem,   Tab::Where, Tab::Retorno, Tab::SqlPronta};

class WizardLayout : public WizardWindow {
 protected:
  ~WizardLayout() override { QApplication::setFont(font_); }

  /// The program's font is larger from now on.
  void enlarge(double factor) {
    QFont larger = font_;
    larger.setPointSizeF(font_.pointSizeF() * factor);
    QApplication::setFont(larger);
  }
  /// What an operator has in the lists halfway.
  void fill() {
    const Rows names = {u"Cliente.Codigo", u"Cliente.Nome", u"Cidade.Descricao"};
    for (const auto* name : {u"lst1TabTodas", u"lst1TabSel"})
      for (const auto* row : {u"Cliente", u"Cidade", u"Estado"}) list(name).Add(row);
    for (const auto* name : {u"lst3Cmp", u"lst3CmpSel", u"lst3Concatena", u"lst5CmpTodos",
                             u"lst5CmpSel", u"lst6Cmp", u"lst7Cmp", u"lst7CmpRet"})
      for (const String& row : names) list(name).Add(row);
    list(u"lst2Links").Add(u"Cidade.Codigo=Cliente.CodCidade");
    for (const String& row : names) {
      host::ListRow& search = list(u"lst6CmpSel").Add(row);
      for (const auto* part : {u">=", u"txtCodigo", u"Numerico"}) search.AddSubItem(part);
    }
    parts()
        .Box(u"txt8Sql")
        .Text(u"SELECT\r\n      Cliente.Codigo,\r\n       Cliente.Nome\r\nFROM\r\n      Cliente");
    parts().Estado(u"Lendo os campos de Cliente...");
  }
  /// Each tab, with a picture of it.
  void expectNothingClippedOnTabs(const QString& pictures) {
    for (const Tab tab : kAllTabs) {
      bringToFront(tab);
      expectNothingClipped();
      picture(*window, pictures + QString::number(int(tab) + 1));
    }
  }
  void expectNothingClipped() {
    for (QWidget* widget : window->findChildren<QWidget*>()) {
      if (auto* header = qobject_cast<QHeaderView*>(widget)) expectHeadingsFit(*header);
      if (auto* tabs = qobject_cast<QTabBar*>(widget)) expectTabsFit(*tabs);
      const bool isPart = widget->objectName().isEmpty() || !widget->isVisible();
      if (isPart || widget->objectName().startsWith(QLatin1String("qt_"))) continue;
      EXPECT_GE(widget->width(), leastWidth(*widget)) << nameOf(widget);
      EXPECT_GE(widget->height(), leastHeight(*widget)) << nameOf(widget);
      EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << nameOf(widget);
      expectNothingOver(*widget);
    }
  }
  static void expectHeadingsFit(const QHeaderView& header) {
    if (!header.isVisible()) return;
    for (int i = 0; i < header.count(); ++i)
      EXPECT_GE(header.sectionSize(i), header.sectionSizeHint(i))
          << nameOf(header.parentWidget()) << " " << i;
    EXPECT_LE(header.length(), header.viewport()->width()) << nameOf(header.parentWidget());
  }
  static void expectTabsFit(const QTabBar& tabs) {
    for (int i = 0; i < tabs.count(); ++i) {
      const QRect place = tabs.tabRect(i);
      EXPECT_GE(place.width(), tabs.fontMetrics().horizontalAdvance(tabs.tabText(i))) << i;
      EXPECT_TRUE(tabs.rect().contains(place)) << i;
    }
    for (const auto* arrow : tabs.findChildren<QToolButton*>()) EXPECT_FALSE(arrow->isVisible());
  }
  static void expectNothingOver(const QWidget& widget) {
    for (const auto* other :
         widget.parentWidget()->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
      const bool isOver = other != &widget && other->isVisible() &&
                          !other->objectName().isEmpty() &&
                          other->geometry().intersects(widget.geometry());
      EXPECT_FALSE(isOver) << nameOf(other) << " over " << nameOf(&widget);
    }
  }
  /// A line that breaks needs the height for its width.
  static int leastHeight(const QWidget& widget) {
    return std::max(widget.minimumSizeHint().height(), widget.heightForWidth(widget.width()));
  }
  /// A button with a sign need not be as wide as the style makes the others.
  static int leastWidth(const QWidget& widget) {
    const auto* button = qobject_cast<const QPushButton*>(&widget);
    const bool isSign = button && button->text().size() <= 2;
    return isSign ? 2 * button->fontMetrics().horizontalAdvance(button->text())
                  : widget.minimumSizeHint().width();
  }
  static std::string nameOf(const QWidget* widget) { return widget->objectName().toStdString(); }
  QRect placeOf(const char* name) {
    QWidget& widget = at(*window, QLatin1String(name));
    return {widget.mapTo(window, QPoint()), widget.size()};
  }

 private:
  const QFont font_ = QApplication::font();
};

TEST_F(WizardLayout, NothingIsClipped) {
  run([&] {
    fill();
    expectNothingClippedOnTabs(QStringLiteral("wizard_"));
  });
}

TEST_F(WizardLayout, NothingIsClippedAtTheSmallestSize) {
  run([&] {
    fill();
    window->resize(1, 1);
    settleEvents();
    EXPECT_LT(window->width(), window->sizeHint().width());
    expectNothingClippedOnTabs(QStringLiteral("wizard_small_"));
  });
}

TEST_F(WizardLayout, NothingIsClippedWithALargerFont) {
  enlarge(1.5);
  run([&] {
    fill();
    expectNothingClippedOnTabs(QStringLiteral("wizard_large_"));
  });
}

TEST_F(WizardLayout, AnExpressionThatIsLongerThanItsListCanBeScrolledByKeys) {
  run([&] {
    bringToFront(Tab::Campos);
    list(u"lst3CmpSel").Add(u"Cliente.Codigo");
    list(u"lst3CmpSel").Add(String(200, u'x') + u" as Tudo");
    settleEvents();
    auto& view = at<QTreeWidget>(*window, QStringLiteral("lst3CmpSel"));
    auto& bar = *view.horizontalScrollBar();
    EXPECT_GT(view.columnWidth(0), view.fontMetrics().horizontalAdvance(QString(200, u'x')));
    picture(*window, QStringLiteral("wizard_long_expression"));
    view.setFocus();
    press(*window, Qt::Key_Down);
    for (int i = 0; i < 200; ++i) press(*window, Qt::Key_Right);
    EXPECT_EQ(bar.value(), bar.maximum());
    EXPECT_EQ(view.indexOfTopLevelItem(view.currentItem()), 1);
  });
}

TEST_F(WizardLayout, ADroppedListIsAsWideAsItsRows) {
  run([&] {
    bringToFront(Tab::Where);
    window->resize(1, 1);
    const String name = u"financeiro." + String(60, u'x');
    parts().Combo(u"cmb6Tab").AddItem(name);
    auto& box = at<QComboBox>(*window, QStringLiteral("cmb6Tab"));
    box.showPopup();
    settleEvents();
    const int needed = box.fontMetrics().horizontalAdvance(toQt(name));
    EXPECT_GT(box.view()->viewport()->width(), needed);
    EXPECT_LT(box.width(), needed);
    box.hidePopup();
    settleEvents();
    window->activateWindow();
  });
}

TEST_F(WizardLayout, TheRunOverTheColumnsSaysWhatItEmpties) {
  frmMontaSql::Instance()->StartGridRun();
  run([&] {
    EXPECT_TRUE(at(*window, QStringLiteral("lblCampoOutros")).isVisible());
    EXPECT_TRUE(at(*window, QStringLiteral("grdWizard")).isVisible());
    expectNothingClipped();
    picture(*window, QStringLiteral("wizard_columns"));
    press(*window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(parts().Tabs().Tab(), static_cast<Long>(Tab::Retorno));
  });
  frmMontaSql::Instance()->StartFullRun();
  run([&] { EXPECT_FALSE(at(*window, QStringLiteral("lblCampoOutros")).isVisible()); });
}

TEST_F(WizardLayout, TransferButtonsStandBetweenTheirLists) {
  run([&] {
    const struct {
      Tab tab;
      const char *left, *button, *right;
    } rows[] = {{Tab::Tabelas, "lst1TabTodas", "btn1IncTodos", "lst1TabSel"},
                {Tab::Campos, "lst3Cmp", "btn3Inclui", "lst3CmpSel"},
                {Tab::Ordem, "lst5CmpTodos", "Btn5Exc", "lst5CmpSel"},
                {Tab::Where, "lst6Cmp", "btn6CmpInc", "lst6CmpSel"},
                {Tab::Retorno, "lst7Cmp", "btn7CmpRetInc", "lst7CmpRet"}};
    for (const auto& row : rows) {
      bringToFront(row.tab);
      EXPECT_LT(placeOf(row.left).right(), placeOf(row.button).left()) << row.button;
      EXPECT_LT(placeOf(row.button).right(), placeOf(row.right).left()) << row.button;
    }
  });
}

TEST_F(WizardLayout, UpStandsAboveDownBesideTheList) {
  run([&] {
    const struct {
      Tab tab;
      const char *list, *up, *down;
    } rows[] = {{Tab::Campos, "lst3CmpSel", "btn3CmpSelSobe", "btn3CmpSelDesce"},
                {Tab::Campos, "lst3Concatena", "btn3ConcSobe", "btn3ConcDesce"},
                {Tab::Ordem, "lst5CmpSel", "btn5CmpSobe", "btn5CmpDesce"},
                {Tab::Where, "lst6CmpSel", "btn6CmpSobe", "btn6CmpDesce"},
                {Tab::Retorno, "lst7CmpRet", "btn7CmpRetSobe", "btn7CmpRetDesce"}};
    for (const auto& row : rows) {
      bringToFront(row.tab);
      EXPECT_LT(placeOf(row.list).right(), placeOf(row.up).left()) << row.up;
      EXPECT_LT(placeOf(row.up).bottom(), placeOf(row.down).top()) << row.up;
    }
  });
}

TEST_F(WizardLayout, TheListsTakeTheRoomOfALargerWindow) {
  run([&] {
    const QSize before = placeOf("lst1TabTodas").size();
    const QSize button = placeOf("btn1Inc").size();
    window->resize(window->size() + QSize(200, 150));
    settleEvents();
    EXPECT_EQ(placeOf("lst1TabTodas").size(), before + QSize(100, 150));
    EXPECT_EQ(placeOf("btn1Inc").size(), button);
  });
}

TEST_F(WizardLayout, ALongLineAboutTheStateMakesTheWindowNoWider) {
  run([&] {
    const int width = window->width();
    parts().Estado(u"Não foi possível ler os campos de " + String(300, u'x') + u".");
    settleEvents();
    EXPECT_EQ(window->width(), width);
  });
}

// --- Keys ---------------------------------------------------------------------------------------

/// What the Tab key can reach in the window.
std::set<std::string> namesToReach(const QWidget& window) {
  std::set<std::string> names;
  for (const auto& widget : frmMontaSql::Description().Widgets) {
    const auto* face = window.findChild<QWidget*>(toQt(widget.Name));
    const QWidget* target = face;
    while (target->focusProxy()) target = target->focusProxy();
    const bool takesTab = (target->focusPolicy() & Qt::TabFocus) != 0;
    if (takesTab && target->isVisible() && target->isEnabled())
      names.insert(face->objectName().toStdString());
  }
  return names;
}

std::string described(const QWidget* widget) {
  for (; widget; widget = widget->parentWidget())
    for (const auto& each : frmMontaSql::Description().Widgets)
      if (widget->objectName() == toQt(each.Name)) return widget->objectName().toStdString();
  return {};
}

TEST_F(WizardLayout, TheTabKeyReachesEveryWidgetInTheOrderOfTheDescription) {
  run([&] {
    fill();
    for (const Tab tab : kAllTabs) {
      bringToFront(tab);
      const std::set<std::string> expected = namesToReach(*window);
      parts().Widget(u"tabWizard").SetFocus();
      std::vector<std::string> order;
      for (std::size_t i = 0; i < expected.size(); ++i) {
        order.push_back(described(window->focusWidget()));
        press(*window, Qt::Key_Tab);
      }
      EXPECT_EQ(described(window->focusWidget()), "tabWizard");
      EXPECT_EQ(std::set(order.begin(), order.end()), expected) << int(tab);
      std::vector<std::string> inDescription;
      for (const auto& widget : frmMontaSql::Description().Widgets)
        if (const std::string name = toQt(widget.Name).toStdString(); expected.contains(name))
          inDescription.push_back(name);
      EXPECT_EQ(order, inDescription);
    }
  });
}

TEST_F(WizardLayout, ControlPageDownChoosesTheNextTabThatIsEnabled) {
  run([&] {
    parts().Tabs().TabEnabled(2, true);
    parts().Widget(u"cmbSistema").SetFocus();
    press(*window, Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(parts().Tabs().Tab(), 2);
    press(*window, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(parts().Tabs().Tab(), 0);
  });
}

TEST_F(WizardLayout, EnterInABoxDoesNotConfirm) {
  run([&] {
    parts().Box(u"txt7CampoChave").Text(u"Codigo");
    bringToFront(Tab::Grid);
    parts().Widget(u"txt4Caption").SetFocus();
    press(*window, Qt::Key_Return);
    EXPECT_TRUE(window->isVisible());
  });
  EXPECT_EQ(tag, u"Voltar");
}

TEST_F(WizardLayout, EscapeGoesBackAndConfirmIsAMnemonicAway) {
  run([&] { press(*window, Qt::Key_Escape); });
  EXPECT_EQ(tag, u"Voltar");
  run([&] {
    parts().Box(u"txt7CampoChave").Text(u"Codigo");
    hands->Mnemonic(u'c');
  });
  EXPECT_EQ(tag, u"Confirmar");
}

TEST_F(WizardLayout, SignsHaveNamesForScreenReaders) {
  run([&] {
    const auto nameOf = [&](const char* button) {
      return QAccessible::queryAccessibleInterface(&at(*window, QLatin1String(button)))
          ->text(QAccessible::Name);
    };
    EXPECT_EQ(nameOf("btn1Inc"), QString::fromUtf8("Acrescentar tabela"));
    EXPECT_EQ(nameOf("btn3Concatena"), QString::fromUtf8("Adicionar campo para concatenar"));
    EXPECT_EQ(nameOf("btnConectar"), QString::fromUtf8("Conectar"));
    EXPECT_EQ(at<QPushButton>(*window, QStringLiteral("btn3Concatena")).text(),
              QStringLiteral("&&"));
  });
}

}  // namespace
}  // namespace tessaria::qt::tests

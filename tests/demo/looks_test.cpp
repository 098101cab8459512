// What the windows of the demo look like on a screen of 1440 by 900: they fit, no text is cut, and
// a screen reader has a name for everything. Run again with twice the pixels, with 150 dpi, with
// large fonts, and in dark colours.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTableView>
#include <QToolButton>
#include <cmath>

#include "tessaria/qt/tstext.h"
#include "tests/demo/desk_fixture.h"

namespace tessaria::demo {
namespace {

constexpr int kTitleBar = 30;  // what a window manager adds, in device independent pixels

std::string named(const QWidget& widget, const QString& text) {
  return (widget.window()->objectName() + QLatin1Char('/') + widget.objectName() +
          QLatin1Char('/') + text)
      .toStdString();
}

QSize neededBy(const QLabel& label) {
  return label.wordWrap() ? QSize(0, label.heightForWidth(label.width())) : label.sizeHint();
}

template <class Widget, class Needed>
void expectWhole(const QWidget& window, Needed&& needed) {
  for (const Widget* each : window.findChildren<Widget*>()) {
    if (!each->isVisible() || each->text().isEmpty()) continue;
    const QSize need = needed(*each);
    EXPECT_GE(each->width(), need.width()) << named(*each, each->text());
    EXPECT_GE(each->height(), need.height()) << named(*each, each->text());
  }
}

/// The fields with a mask show all of their text.
void expectWholeFields(const QWidget& window) {
  constexpr int kFrame = 8;
  for (const qt::TsText* each : window.findChildren<qt::TsText*>()) {
    if (!each->isVisible() || each->mascara().isEmpty()) continue;
    const auto* edit = each->findChild<QLineEdit*>();
    EXPECT_GE(edit->width(), edit->fontMetrics().horizontalAdvance(edit->displayText()) + kFrame)
        << named(*each, edit->displayText());
  }
}

double lightOf(const QColor& colour) {
  const auto part = [](double value) {
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) +
         0.0722 * part(colour.blueF()) + 0.05;
}

/// As the guidelines for accessible web pages define it.
double contrast(const QColor& a, const QColor& b) {
  return std::max(lightOf(a), lightOf(b)) / std::min(lightOf(a), lightOf(b));
}

/// Captions of disabled fields are as gray as these; a flat button has the ground of what it is on.
bool hasOtherColours(const QWidget& widget) {
  const auto* label = qobject_cast<const QLabel*>(&widget);
  const auto* button = qobject_cast<const QToolButton*>(&widget);
  return (label && label->buddy() && !label->buddy()->isEnabled()) ||
         (button && button->autoRaise());
}

template <class Widget>
void expectContrast(const QWidget& window, QPalette::ColorRole text, QPalette::ColorRole ground) {
  constexpr double kReadable = 4.5;
  for (const Widget* each : window.findChildren<Widget*>()) {
    if (!each->isVisible() || !each->isEnabled() || hasOtherColours(*each)) continue;
    const QPalette& palette = each->palette();
    EXPECT_GE(contrast(palette.color(text), palette.color(ground)), kReadable)
        << named(*each, QLatin1String(each->metaObject()->className()));
  }
}

/// What is enabled can be read.
void expectContrasts(const QWidget& window) {
  expectContrast<QLabel>(window, QPalette::WindowText, QPalette::Window);
  expectContrast<QAbstractButton>(window, QPalette::ButtonText, QPalette::Button);
  expectContrast<QLineEdit>(window, QPalette::Text, QPalette::Base);
  expectContrast<QAbstractItemView>(window, QPalette::Text, QPalette::Base);
  expectContrast<QAbstractItemView>(window, QPalette::Text, QPalette::AlternateBase);
}

void expectGoodLooks(const QWidget& window) {
  expectContrasts(window);
  const QSize room = window.screen()->availableSize() - QSize(0, kTitleBar);
  EXPECT_LE(window.width(), room.width()) << named(window, {});
  EXPECT_LE(window.height(), room.height()) << named(window, {});
  EXPECT_FALSE(window.windowTitle().isEmpty()) << named(window, {});
  expectWholeFields(window);
  expectWhole<QLabel>(window, neededBy);
  expectWhole<QAbstractButton>(window, [](const QAbstractButton& b) { return b.sizeHint(); });
}

QString told(QWidget& widget, QAccessible::Text text) {
  const QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(&widget);
  return seen ? seen->text(text) : QString();
}

/// The widgets of the window that take the focus themselves.
QList<QWidget*> focusable(const QWidget& window) {
  QList<QWidget*> found;
  for (QWidget* each : window.findChildren<QWidget*>())
    if (each->isVisible() && each->focusPolicy() != Qt::NoFocus && !each->focusProxy())
      found << each;
  return found;
}

class DemoLooks : public DeskTest {
 protected:
  /// The dialog that the key opens looks good; Esc closes it.
  void expectDialog(const char* name, const char* key) {
    Player& p = operatorsHands();
    p.expectWindow(QString::fromLatin1(name), [&p] {
      expectGoodLooks(*QApplication::activeModalWidget());
      p.press("Esc");
    });
    p.press(QString::fromLatin1(key));
  }

  void expectDistinctNames() {
    QMap<QString, QString> owners;
    for (QWidget* each : focusable(*window_)) {
      const QString name = told(*each, QAccessible::Name);
      EXPECT_FALSE(name.isEmpty()) << named(*each, each->parentWidget()->objectName());
      EXPECT_FALSE(owners.contains(name)) << named(*each, name) << owners[name].toStdString();
      owners[name] = each->parentWidget()->objectName() + QLatin1Char('/') + each->objectName();
    }
  }

  void expectRequiredTold() {
    for (const qt::TsText* field : window_->findChildren<qt::TsText*>()) {
      if (!field->isVisible()) continue;
      const QString description = told(*field->focusProxy(), QAccessible::Description);
      EXPECT_EQ(description.contains(QStringLiteral("obrigatório")), !field->podeSerBranco())
          << field->objectName().toStdString();
    }
  }

  void expectReadable() {
    expectDistinctNames();
    expectRequiredTold();
  }
};

TEST_F(DemoLooks, TheCustomersFitAndHaveNames) {
  Player& p = operatorsHands();
  EXPECT_EQ(window_->windowTitle(), "Cadastro de clientes – Mesa de pedidos");
  for (const char* page : {"Alt+I", "Alt+D", "Alt+R"}) {
    p.press(QString::fromLatin1(page));
    expectGoodLooks(*window_);
    expectReadable();
  }
}

TEST_F(DemoLooks, TheOrdersFitAndHaveNames) {
  operatorsHands().press("Ctrl+2");
  EXPECT_EQ(window_->windowTitle(), "Pedidos de clientes – Mesa de pedidos");
  expectGoodLooks(*window_);
  expectReadable();
}

TEST_F(DemoLooks, TheDialogsFit) {
  Player& p = operatorsHands();
  p.press("Ctrl+2");
  const std::pair<const char*, const char*> dialogs[] = {{"cliente", "frmBrowse"},
                                                         {"entrega", "frmCalendario"},
                                                         {"documento", "frmDiretorio"},
                                                         {"pasta", "frmDiretorio"}};
  for (const auto& [field, dialog] : dialogs) {
    p.click(QString::fromLatin1(field));
    expectDialog(dialog, "PgDown");
  }
  p.press("Alt+I");
  p.expectFocus("produto");
  p.press("Tab", 3);
  p.expectFocus("preco");
  expectDialog("frmCalculadora", "F9");
}

TEST_F(DemoLooks, TheSearchesFit) {
  Player& p = operatorsHands();
  p.press("Ctrl+2");
  p.click("cliente");
  p.expectWindow("frmBrowse", [&p] {
    for (const char* key : {"F2", "F3", "F4"}) {
      p.expectWindow("frmTsPesquisa", [&p] {
        expectGoodLooks(*QApplication::activeModalWidget());
        p.press("Esc");
      });
      p.press(QString::fromLatin1(key));
    }
    p.press("Esc");
  });
  p.press("PgDown");
}

TEST_F(DemoLooks, TheConflictWindowFits) {
  Player& p = operatorsHands();
  goTo("00012");
  p.click("nome");
  p.type("Padaria Pão Quente e Filhos");
  asAnotherUser(
      "update clientes set nome = 'Padaria Pão Quente Ltda.', telefone = '1133334444', "
      "limite_credito = 4000 where codigo = '00012'");
  p.expectWindow("frmConflito", [&p] {
    expectGoodLooks(*QApplication::activeModalWidget());
    p.press("Esc");
  });
  p.press("Alt+S");
  EXPECT_EQ(p.failures(), QStringList());
  dropInput("cliente");
}

TEST_F(DemoLooks, TheOrdersOfACustomerAreListed) {
  asAnotherUser("update pedidos set cliente = '00070' where numero in ('000001', '000002')");
  goTo("00070");
  const auto* orders = window_->findChild<QTableView*>("pedidosDoCliente");
  ASSERT_GE(orders->model()->rowCount(), 2);
  EXPECT_EQ(orders->model()->headerData(5, Qt::Horizontal).toString(), "Total");
  EXPECT_EQ(orders->model()->index(0, 0).data().toString().size(), 6);
  EXPECT_EQ(window_->findChild<QLabel*>("lblPedidos")->text(),
            QStringLiteral("&Pedidos do cliente: %1").arg(orders->model()->rowCount()));
}

}  // namespace
}  // namespace tessaria::demo

// Actions that do not take the focus: tool buttons, menus, shortcuts, and the frame of the window.
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include "hosts/qt/focus/focus_cycle.h"
#include "tessaria/host/application.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/settle.h"
#include "tessaria/qt/text.h"
#include "tessaria/thread_state.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

class Actions : public FieldFixture {
 protected:
  Actions() {
    save_ = new QAction(QStringLiteral("&Salvar"), window_.get());
    save_->setObjectName(QStringLiteral("acSalvar"));
    watch(save_, &QAction::triggered);
    QObject::connect(first_, &TsText::browseReturn, [this] {
      const auto active = makeForm(*window_)->ActiveControl();
      if (active) active_ = toQt(active->Name() + u" " + active->TypeName());
    });
  }
  template <class Sender, class Signal>
  void watch(Sender* sender, Signal signal) {
    QObject::connect(sender, signal, first_, [this] { seen_ << first_->value().toString(); });
  }
  template <class Widget>
  Widget* add(Widget* widget, const char* name) {
    widget->setObjectName(QLatin1String(name));
    window_->layout()->addWidget(widget);
    return widget;
  }
  QToolButton* toolButton() {
    auto* bar = new QToolBar;
    window_->layout()->addWidget(bar);
    bar->addAction(save_);
    return qobject_cast<QToolButton*>(bar->widgetForAction(save_));
  }
  QMenu* menuBar() {
    auto* bar = new QMenuBar(window_.get());
    window_->layout()->setMenuBar(bar);
    auto* menu = bar->addMenu(QStringLiteral("&Arquivo"));
    menu->addAction(save_);
    return menu;
  }
  void refuseDates() {
    first_->setMascara(QStringLiteral("dd/mm/yyyy"));
    first_->setPromptInclude(true);
  }
  void open(QMenu& menu) {
    auto* bar = qobject_cast<QMenuBar*>(menu.parentWidget());
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu.menuAction()).center());
    ASSERT_TRUE(menu.isVisible());
  }
  void pick(QMenu& menu, QAction* action) {
    QTest::mouseMove(&menu, menu.actionGeometry(action).center());
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(action).center());
  }

  QAction* save_ = nullptr;
  QStringList seen_;  ///< the value whenever something ran
  QString active_;    ///< the active control while the field was settled
};

TEST_F(Actions, AToolButtonFindsTheFieldSettled) {
  QToolButton* button = toolButton();
  show();
  type(*window_, QStringLiteral("abc"));
  click(*button);
  EXPECT_EQ(seen_, QStringList({"abc"}));
  EXPECT_EQ(active_, QStringLiteral("acSalvar CommandButton"));
  EXPECT_EQ(focusedField(), first_);
}

TEST_F(Actions, TheNameOfAToolButtonOrOfItsActionCounts) {
  QToolButton* button = toolButton();
  button->setObjectName(QStringLiteral("btnDesfazer"));
  for (const char* name : {"btnDesfazer", "acSalvar"}) {
    seen_.clear();
    first_->setObjetoCancelar(QLatin1String(name));
    refuseDates();
    show();
    type(*window_, QStringLiteral("31022017"));
    click(*button);
    EXPECT_EQ(seen_.size(), 1) << name;
    EXPECT_EQ(boxes_.takeTexts(), QStringList()) << name;
    first_->setText(QString());
  }
}

TEST_F(Actions, ACancellingMenuEntryRunsWithoutCheckingTheField) {
  QMenu* menu = menuBar();
  first_->setObjetoCancelar(QStringLiteral("acSalvar"));
  refuseDates();
  show();
  type(*window_, QStringLiteral("31022017"));
  const QVariant before = first_->value();
  open(*menu);
  pick(*menu, save_);
  settleEvents();
  EXPECT_EQ(seen_, QStringList({before.toString()}));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(first_->text(), QStringLiteral("31/02/2017"));
}

TEST_F(Actions, AFieldThatRefusesPreventsAToolButton) {
  QToolButton* button = toolButton();
  refuseDates();
  show();
  type(*window_, QStringLiteral("31022017"));
  click(*button);
  EXPECT_EQ(seen_, QStringList());
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_FALSE(button->isDown());
}

TEST_F(Actions, AMessageBoxWhileTheFieldIsSettledDoesNotLoseTheClick) {
  QToolButton* button = toolButton();
  QObject::connect(first_, &TsText::browseReturn, [] {
    State().application->ShowMessageBox(0, u"Cliente em atraso", 0, u"Aviso");
  });
  show();
  type(*window_, QStringLiteral("abc"));
  click(*button);
  EXPECT_EQ(seen_, QStringList({"abc"}));
  EXPECT_FALSE(button->isDown());
}

TEST_F(Actions, EveryControlWithoutAFocusPolicyFindsTheFieldSettled) {
  auto* push = add(new QPushButton(QStringLiteral("Ok")), "btnOk");
  auto* check = add(new QCheckBox(QStringLiteral("Ativo")), "chkAtivo");
  auto* combo = add(new QComboBox, "cmbEstado");
  auto* list = add(new QListWidget, "lstEstado");
  list->addItem(QStringLiteral("SP"));
  combo->addItem(QStringLiteral("SP"));
  for (QWidget* each : QWidgetList{push, check, combo, list}) each->setFocusPolicy(Qt::NoFocus);
  list->viewport()->setFocusPolicy(Qt::NoFocus);
  const QPair<QWidget*, QString> rows[] = {
      {push, QStringLiteral("btnOk CommandButton")},
      {check, QStringLiteral("chkAtivo CheckBox")},
      {combo, QStringLiteral("cmbEstado ComboBox")},
      {list->viewport(), QStringLiteral("lstEstado QListWidget")}};
  show();
  for (const auto& [widget, active] : rows) {
    active_.clear();
    type(*window_, QStringLiteral("x"));
    QTest::mousePress(widget, Qt::LeftButton);
    EXPECT_EQ(first_->value().toString(), QStringLiteral("x")) << active.toStdString();
    EXPECT_EQ(active_, active);
    QTest::mouseRelease(widget, Qt::LeftButton);
    combo->hidePopup();
    first_->setValue(QString());
    first_->setFocus();
    settleEvents();
  }
}

TEST_F(Actions, OpeningAMenuRunsNothing) {
  auto* button = add(new QToolButton, "btnMais");
  button->setPopupMode(QToolButton::InstantPopup);
  button->setMenu(new QMenu(button));
  button->menu()->addAction(save_);
  refuseDates();
  show();
  type(*window_, QStringLiteral("31022017"));
  QTimer::singleShot(0, button, [&] {
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
    pick(*button->menu(), save_);
  });
  QTest::mousePress(button, Qt::LeftButton);
  settleEvents();
  EXPECT_EQ(seen_, QStringList());
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_FALSE(button->menu()->isVisible());
}

TEST_F(Actions, ButtonsOfADialogTakeTheFocus) {
  auto* box = add(new QDialogButtonBox(QDialogButtonBox::Ok), "botoes");
  watch(box, &QDialogButtonBox::accepted);
  show();
  type(*window_, QStringLiteral("abc"));
  click(*box->button(QDialogButtonBox::Ok));
  EXPECT_EQ(seen_, QStringList({"abc"}));
}

// --- Shortcuts

TEST_F(Actions, AShortcutFindsTheFieldSettled) {
  auto* shortcut = new QShortcut(Qt::Key_F7, window_.get());
  shortcut->setObjectName(QStringLiteral("atalho"));
  watch(shortcut, &QShortcut::activated);
  show();
  type(*window_, QStringLiteral("abc"));
  QTest::keyClick(&box(), Qt::Key_F7);
  EXPECT_EQ(seen_, QStringList({"abc"}));
  EXPECT_EQ(active_, QStringLiteral("atalho CommandButton"));
}

TEST_F(Actions, ACharacterIsTypedRatherThanAShortcut) {
  for (const auto& keys : {QKeySequence(Qt::Key_A), QKeySequence(Qt::SHIFT | Qt::Key_B),
                           QKeySequence(Qt::CTRL | Qt::Key_G)}) {
    auto* shortcut = new QShortcut(keys, window_.get());
    watch(shortcut, &QShortcut::activated);
  }
  show();
  QTest::keyClick(&box(), Qt::Key_A);
  QTest::keyClick(&box(), Qt::Key_B, Qt::ShiftModifier);
  EXPECT_EQ(seen_, QStringList());
  QTest::keyClick(&box(), Qt::Key_G, Qt::ControlModifier);
  EXPECT_EQ(seen_, QStringList({"ab"}));
}

// A field without an `ObjetoCancelar` does not treat a nameless action as the cancelling one.
TEST_F(Actions, ANamelessActionFindsTheFieldSettled) {
  save_->setObjectName(QString());
  save_->setShortcut(Qt::CTRL | Qt::Key_S);
  QMenu* menu = menuBar();
  auto* shortcut = new QShortcut(Qt::Key_F7, window_.get());
  watch(shortcut, &QShortcut::activated);
  QToolButton* button = toolButton();
  show();
  type(*window_, QStringLiteral("a"));
  press(*window_, Qt::Key_F7);
  type(*window_, QStringLiteral("b"));
  press(*window_, Qt::Key_S, Qt::ControlModifier);
  type(*window_, QStringLiteral("c"));
  open(*menu);
  pick(*menu, save_);
  type(*window_, QStringLiteral("d"));
  click(*button);
  EXPECT_EQ(seen_, QStringList({"a", "b", "c", "d"}));
}

TEST_F(Actions, AShortcutAfterATabFindsTheFieldLeft) {
  save_->setShortcut(Qt::CTRL | Qt::Key_S);
  window_->addAction(save_);
  show();
  type(*window_, QStringLiteral("abc"));
  press(*window_, Qt::Key_Tab);
  QTest::keyClick(window_->focusWidget(), Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(seen_, QStringList({"abc"}));
}

TEST_F(Actions, AMnemonicOfAButtonWithoutFocusSettlesTheField) {
  auto* push = add(new QPushButton(QStringLiteral("&Ok")), "btnOk");
  push->setFocusPolicy(Qt::NoFocus);
  watch(push, &QPushButton::clicked);
  first_->setPodeSerBranco(false);
  show();
  press(*window_, Qt::Key_O, Qt::AltModifier);
  QTest::qWait(150);
  EXPECT_EQ(seen_, QStringList());
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"Não Pode Ser Branco, Verifique Por Favor"}));
  type(*window_, QStringLiteral("abc"));
  press(*window_, Qt::Key_O, Qt::AltModifier);
  QTest::qWait(200);
  EXPECT_EQ(seen_, QStringList({"abc"}));
}

TEST_F(Actions, AnActionCanDisableSettling) {
  save_->setProperty("settlesField", false);
  save_->setShortcut(Qt::Key_F7);
  window_->addAction(save_);
  show();
  type(*window_, QStringLiteral("abc"));
  QTest::keyClick(&box(), Qt::Key_F7);
  EXPECT_EQ(seen_, QStringList({""}));
}

TEST_F(Actions, AProgramThatTriggersAnActionMustSettleTheFieldItself) {
  show();
  type(*window_, QStringLiteral("abc"));
  save_->trigger();
  EXPECT_EQ(seen_, QStringList({""}));
  EXPECT_TRUE(settle(window_.get(), QStringLiteral("acSalvar")));
  EXPECT_EQ(active_, QStringLiteral("acSalvar CommandButton"));
  save_->trigger();
  EXPECT_EQ(seen_, QStringList({"", "abc"}));
}

// --- Menus

TEST_F(Actions, AMenuEntryFindsTheFieldSettledAndTheMenuClosed) {
  QMenu* menu = menuBar();
  bool open = true;
  QObject::connect(first_, &TsText::browseReturn, [&] { open = menu->isVisible(); });
  show();
  type(*window_, QStringLiteral("abc"));
  this->open(*menu);
  pick(*menu, save_);
  EXPECT_EQ(seen_, QStringList({"abc"}));
  EXPECT_FALSE(open);
  EXPECT_EQ(active_, QStringLiteral("acSalvar CommandButton"));
}

TEST_F(Actions, AMenuEntryIsAlsoChosenByKeys) {
  using Pick = void (*)(QMenu&);
  const Pick picks[] = {[](QMenu& menu) {
                          QTest::keyClick(&menu, Qt::Key_Down);
                          QTest::keyClick(&menu, Qt::Key_Return);
                        },
                        [](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_S); }};
  QMenu* menu = menuBar();
  int value = 0;
  for (const Pick how : picks) {
    seen_.clear();
    show();
    const QString text = QString::number(++value);
    first_->setText(text);
    press(*window_, Qt::Key_A, Qt::AltModifier);
    ASSERT_TRUE(menu->isVisible());
    menu->setActiveAction(nullptr);
    how(*menu);
    settleEvents();
    EXPECT_EQ(seen_, QStringList({text}));
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(focusedField(), first_);
  }
}

TEST_F(Actions, AFieldThatRefusesPreventsAMenuEntry) {
  QMenu* menu = menuBar();
  int told = 0;
  QObject::connect(menu, &QMenu::triggered, [&] { ++told; });
  refuseDates();
  show();
  type(*window_, QStringLiteral("31022017"));
  open(*menu);
  pick(*menu, save_);
  EXPECT_EQ(seen_, QStringList());
  EXPECT_EQ(told, 0);
  EXPECT_FALSE(menu->isVisible());
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_EQ(focusedField(), first_);
}

TEST_F(Actions, AMenuTriggersItsEntryOnce) {
  QMenu* menu = menuBar();
  int told = 0;
  QObject::connect(menu, &QMenu::triggered, [&] { ++told; });
  show();
  for (const char* text : {"abc", ""}) {
    told = 0;
    type(*window_, QLatin1String(text));
    open(*menu);
    pick(*menu, save_);
    EXPECT_EQ(told, 1) << (*text ? "settled" : "untouched");
  }
}

TEST_F(Actions, AMenuThatRunsItsOwnLoopReturnsItsEntry) {
  show();
  for (const char* text : {"abc", ""}) {
    type(*window_, QLatin1String(text));
    QMenu menu;
    menu.addAction(save_);
    QTimer::singleShot(0, &menu, [&] { pick(menu, save_); });
    EXPECT_EQ(menu.exec(QPoint(10, 10)), save_) << (*text ? "settled" : "untouched");
    window_->activateWindow();
    settleEvents();
  }
  EXPECT_EQ(seen_, QStringList({"abc", "abc"}));
}

TEST_F(Actions, AMenuThatRunsItsOwnLoopReturnsNothingWhenTheFieldRefuses) {
  refuseDates();
  show();
  type(*window_, QStringLiteral("31022017"));
  QMenu menu;
  menu.addAction(save_);
  QTimer::singleShot(0, &menu, [&] { pick(menu, save_); });
  EXPECT_EQ(menu.exec(QPoint(10, 10)), nullptr);
  EXPECT_EQ(seen_, QStringList());
}

TEST_F(Actions, TheKeysOfAMenuBarDoNotMoveTheFocus) {
  menuBar();
  int left = 0;
  QObject::connect(first_, &TsText::browseReturn, [&] { ++left; });
  show();
  window_->layout()->menuBar()->setFocus(Qt::MenuBarFocusReason);
  settleEvents();
  first_->setFocus();
  settleEvents();
  EXPECT_EQ(left, 0);
}

TEST_F(Actions, AnEntryOfTheMenuBarItselfSettlesTheField) {
  menuBar();
  auto* bar = qobject_cast<QMenuBar*>(window_->layout()->menuBar());
  bar->addAction(save_);
  show();
  type(*window_, QStringLiteral("abc"));
  QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(save_).center());
  settleEvents();
  EXPECT_EQ(seen_, QStringList({"abc"}));
}

TEST_F(Actions, TheMenuOfTheFieldItselfSettlesNothing) {
  first_->setMascara(QStringLiteral("0000"));
  show();
  type(*window_, QStringLiteral("1"));
  pasteByMenu(box(), QStringLiteral("23"));
  EXPECT_EQ(active_, QString());
  EXPECT_EQ(first_->text(), QStringLiteral("123_"));
}

// --- The frame

class Asking final : public QWidget {
 public:
  bool discards = false;

 protected:
  void closeEvent(QCloseEvent* event) override { event->setAccepted(discards); }
};

TEST_F(Actions, AFormThatAsksItsOperatorMayCloseDespiteARefusal) {
  Asking form;
  form.setProperty("asksBeforeClosing", true);
  auto* field = new TsText(&form);
  field->setUsaChecaRelacao(false);
  field->setMascara(QStringLiteral("dd/mm/yyyy"));
  showActive(form);
  field->setFocus();
  settleEvents();
  type(form, QStringLiteral("31022017"));
  closeByFrame(form);
  EXPECT_TRUE(form.isVisible());
  form.discards = true;
  closeByFrame(form);
  EXPECT_FALSE(form.isVisible());
}

TEST_F(Actions, ClosingByTheProgramSettlesNothing) {
  refuseDates();
  show();
  type(*window_, QStringLiteral("31022017"));
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(Actions, EnterOnTheFieldsOwnButtonPressesTheDefaultButtonSettled) {
  first_->setTipoControle(TsText::Calendario);
  button_->setDefault(true);
  watch(button_, &QPushButton::clicked);
  show();
  type(*window_, QStringLiteral("abc"));
  first_->findChild<QToolButton*>(QStringLiteral("btnBrowse"))->setFocus(Qt::MouseFocusReason);
  press(*window_, Qt::Key_Return);
  EXPECT_EQ(seen_, QStringList({"abc"}));
}

}  // namespace
}  // namespace tessaria::qt::tests

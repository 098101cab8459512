// Actions in special places: overflow menus of tool bars, floating bars, menu bars that the desktop
// shows, spin boxes.
#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include "hosts/qt/focus/focus_cycle.h"
#include "tessaria/qt/settle.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

/// A main window around the fields, with the action "Salvar".
class ActionPlaces : public FieldFixture {
 protected:
  ActionPlaces() {
    main_.setObjectName(QStringLiteral("frmPrincipal"));
    main_.setCentralWidget(window_.release());
    QObject::connect(&save_, &QAction::triggered, first_,
                     [this] { seen_ << first_->value().toString(); });
    save_.setObjectName(QStringLiteral("acSalvar"));
  }
  QToolBar* bar() {
    auto* bar = main_.addToolBar(QStringLiteral("Barra"));
    bar->addAction(&save_);
    return bar;
  }
  void showMain() {
    showActive(main_);
    first_->setFocus();
    settleEvents();
  }
  void typeInto(const QString& text) { type(main_, text); }
  void refuseDates() {
    first_->setMascara(QStringLiteral("dd/mm/yyyy"));
    first_->setPromptInclude(true);
  }

  QMainWindow main_;
  QAction save_{QStringLiteral("&Salvar")};
  QStringList seen_;
};

/// Makes the bar too short for its actions and returns the button that opens the rest.
QToolButton* shorten(QMainWindow& main, QToolBar& bar) {
  for (int i = 0; i < 30; ++i) {
    auto* filler = new QAction(QStringLiteral("Comando %1").arg(i), &bar);
    bar.insertAction(bar.actions().last(), filler);
  }
  main.resize(300, 200);
  settleEvents();
  return bar.findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"));
}

TEST_F(ActionPlaces, AnActionInTheOverflowOfAToolBarFindsTheFieldSettled) {
  for (const bool refused : {false, true}) {
    QToolBar* tools = bar();
    if (refused) refuseDates();
    showMain();
    QToolButton* overflow = shorten(main_, *tools);
    ASSERT_TRUE(overflow && overflow->isVisible());
    QWidget* button = tools->widgetForAction(&save_);
    ASSERT_FALSE(button && button->isVisible());
    typeInto(refused ? QStringLiteral("31022017") : QStringLiteral("abc"));
    // Its menu or the unfolded bar, depending on the style.
    QTimer::singleShot(20, &main_, [&] {
      if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget()))
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(&save_).center());
    });
    QTest::mouseClick(overflow, Qt::LeftButton);
    QTest::qWait(400);  // the bar unfolds
    settleEvents();
    button = tools->widgetForAction(&save_);
    if (seen_.isEmpty() && button && button->isVisible()) click(*button);
    EXPECT_EQ(seen_, refused ? QStringList() : QStringList({"abc"}));
    EXPECT_EQ(boxes_.takeTexts().size(), refused ? 1 : 0);
    seen_.clear();
    main_.removeToolBar(tools);
    delete tools;
  }
}

TEST_F(ActionPlaces, AFloatingToolBarSettlesTheFieldOfItsWindow) {
  QToolBar* tools = bar();
  showMain();
  tools->setWindowFlags(Qt::Tool);
  tools->move(500, 10);
  tools->show();
  settleEvents();
  main_.activateWindow();
  first_->setFocus();
  settleEvents();
  ASSERT_TRUE(tools->isWindow());
  typeInto(QStringLiteral("abc"));
  click(*tools->widgetForAction(&save_));
  EXPECT_EQ(seen_, QStringList({"abc"}));
  seen_.clear();
  refuseDates();
  main_.activateWindow();
  first_->setFocus();
  settleEvents();
  editOf(*first_)->selectAll();
  typeInto(QStringLiteral("31022017"));
  click(*tools->widgetForAction(&save_));
  EXPECT_EQ(seen_, QStringList());
}

TEST_F(ActionPlaces, AFloatingDockSettlesTheFieldOfItsWindow) {
  auto* dock = new QDockWidget(QStringLiteral("Painel"), &main_);
  auto* button = new QToolButton;
  button->setDefaultAction(&save_);
  dock->setWidget(button);
  main_.addDockWidget(Qt::LeftDockWidgetArea, dock);
  showMain();
  dock->setFloating(true);
  settleEvents();
  main_.activateWindow();
  first_->setFocus();
  settleEvents();
  typeInto(QStringLiteral("abc"));
  click(*button);
  EXPECT_EQ(seen_, QStringList({"abc"}));
}

// The desktop triggers the entry, and no event precedes that: the handler must settle the field.
TEST_F(ActionPlaces, AHandlerOfAMenuBarOfTheDesktopSettlesTheFieldItself) {
  main_.menuBar()->setNativeMenuBar(true);
  main_.menuBar()->addMenu(QStringLiteral("&Arquivo"))->addAction(&save_);
  QStringList settled;
  QObject::connect(&save_, &QAction::triggered, first_, [&] {
    if (settle(first_, QStringLiteral("acSalvar"))) settled << first_->value().toString();
  });
  showMain();
  typeInto(QStringLiteral("abc"));
  save_.trigger();
  EXPECT_EQ(settled, QStringList({"abc"}));
  refuseDates();
  editOf(*first_)->selectAll();
  typeInto(QStringLiteral("31022017"));
  save_.trigger();
  EXPECT_EQ(settled, QStringList({"abc"}));
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

class SpinBoxes : public FieldFixture {
 protected:
  SpinBoxes() {
    spin_ = new QSpinBox(window_.get());
    spin_->setObjectName(QStringLiteral("spnParcelas"));
    window_->layout()->addWidget(spin_);
    QObject::connect(spin_, &QSpinBox::valueChanged, first_,
                     [this] { seen_ << first_->value().toString(); });
  }
  void pressUp() {
    QTest::mouseClick(spin_, Qt::LeftButton, {}, QPoint(spin_->width() - 6, 5));
    settleEvents();
  }
  QSpinBox* spin_ = nullptr;
  QStringList seen_;
};

TEST_F(SpinBoxes, TheArrowsFindTheFieldSettled) {
  for (const auto policy : {Qt::WheelFocus, Qt::StrongFocus, Qt::TabFocus, Qt::NoFocus}) {
    SCOPED_TRACE(policy);
    seen_.clear();
    spin_->setFocusPolicy(policy);
    spin_->findChild<QLineEdit*>()->setFocusPolicy(policy);
    show();
    box().selectAll();
    type(*window_, QStringLiteral("abc"));
    pressUp();
    EXPECT_EQ(seen_, QStringList({"abc"}));
    first_->setValue(QStringLiteral("x"));
  }
}

TEST_F(SpinBoxes, AFieldThatRefusesPreventsTheArrows) {
  first_->setMascara(QStringLiteral("dd/mm/yyyy"));
  first_->setPromptInclude(true);
  for (const auto policy : {Qt::WheelFocus, Qt::NoFocus}) {
    SCOPED_TRACE(policy);
    spin_->setFocusPolicy(policy);
    show();
    box().selectAll();
    type(*window_, QStringLiteral("31022017"));
    pressUp();
    EXPECT_EQ(seen_, QStringList());
    EXPECT_EQ(boxes_.takeTexts().size(), 1);
    EXPECT_EQ(focusedField(), first_);
    first_->setText(QString());
  }
}

// The wheel also changes a box that does not have the focus.
TEST_F(SpinBoxes, TheWheelFindsTheFieldSettled) {
  spin_->setFocusPolicy(Qt::StrongFocus);
  show();
  type(*window_, QStringLiteral("abc"));
  const QPointF place(spin_->width() / 2.0, spin_->height() / 2.0);
  QWheelEvent wheel(place, spin_->mapToGlobal(place), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QSpontaneKeyEvent::setSpontaneous(&wheel);
  qApp->notify(spin_, &wheel);
  settleEvents();
  EXPECT_EQ(seen_, QStringList({"abc"}));
}

}  // namespace
}  // namespace tessaria::qt::tests

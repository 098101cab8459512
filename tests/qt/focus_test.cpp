// Leaving and entering whole fields: Tab, mouse, mnemonics, default button, boxes, tabs.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include "hosts/qt/focus/focus_cycle.h"
#include "tessaria/host/application.h"
#include "tessaria/qt/settle.h"
#include "tessaria/thread_state.h"
#include "tessaria/tstext.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

class Focus : public FieldFixture {
 protected:
  Focus() {
    for (TsText* field : {first_, second_})
      QObject::connect(field, &TsText::browseReturn,
                       [this, field] { left_ << field->objectName(); });
    QObject::connect(button_, &QPushButton::clicked, [this] { ++clicks_; });
  }
  /// A field that refuses what is typed.
  void refuseDates() {
    first_->setMascara(QStringLiteral("dd/mm/yyyy"));
    first_->setPromptInclude(true);
  }

  QStringList left_;
  int clicks_ = 0;
};

TEST_F(Focus, TabLeavesOneFieldAndEntersTheNext) {
  show();
  type(*window_, QStringLiteral("abc"));
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(focusedField(), second_);
  EXPECT_EQ(left_, QStringList({"txtPrimeiro"}));
  EXPECT_EQ(first_->value().toString(), QStringLiteral("abc"));
}

TEST_F(Focus, AKeyAfterATabFindsTheFieldEntered) {
  show();
  second_->setText(QStringLiteral("velho"));
  press(*window_, Qt::Key_Tab);
  type(*window_, QStringLiteral("n"));  // no event loop in between
  EXPECT_EQ(second_->text(), QStringLiteral("n"));
  EXPECT_EQ(left_, QStringList({"txtPrimeiro"}));
}

TEST_F(Focus, EnteringSelectsTheText) {
  show();
  second_->setText(QStringLiteral("velho"));
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(second_->selLength(), 5);
}

TEST_F(Focus, AFieldThatRefusesTakesTheFocusBackAndTheOtherGetsNoEvent) {
  refuseDates();
  show();
  type(*window_, QStringLiteral("31022017"));
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"Invalido(a), Corrija Por Favor"}));
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(left_, QStringList({"txtPrimeiro"}));
  EXPECT_EQ(first_->selLength(), 10);
  EXPECT_EQ(first_->text(), QStringLiteral("31/02/2017"));
}

TEST_F(Focus, KeysMeantForAFieldThatWasNotReachedAreDropped) {
  refuseDates();
  show();
  type(*window_, QStringLiteral("31022017"));
  QTest::sendKeyEvent(QTest::Press, &box(), Qt::Key_Tab, QString(), Qt::NoModifier);
  QTest::sendKeyEvent(QTest::Click, editOf(*second_), Qt::Key_9, QStringLiteral("9"),
                      Qt::NoModifier);
  EXPECT_EQ(second_->text(), QString());
  EXPECT_EQ(first_->text(), QStringLiteral("31/02/2017"));
  EXPECT_EQ(focusedField(), first_);
}

TEST_F(Focus, AMousePressThatCausesABoxIsDiscarded) {
  refuseDates();
  show();
  type(*window_, QStringLiteral("31022017"));
  QTest::mousePress(button_, Qt::LeftButton);
  EXPECT_FALSE(button_->isDown());
  EXPECT_EQ(focusedField(), first_);
  QTest::mouseRelease(button_, Qt::LeftButton);
  settleEvents();
  EXPECT_EQ(clicks_, 0);
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(Focus, TheFieldIsSettledBeforeTheButtonIsPressed) {
  QStringList order;
  QObject::connect(first_, &TsText::browseReturn, [&] { order << QStringLiteral("left"); });
  QObject::connect(button_, &QPushButton::pressed, [&] { order << QStringLiteral("pressed"); });
  show();
  click(*button_);
  EXPECT_EQ(order, QStringList({"left", "pressed"}));
  EXPECT_EQ(clicks_, 1);
}

TEST_F(Focus, ARequiredBlankIsRefusedOnlyOnTheWayToAButton) {
  first_->setPodeSerBranco(false);
  show();
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  first_->setFocus();
  settleEvents();
  click(*button_);
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"Não Pode Ser Branco, Verifique Por Favor"}));
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(clicks_, 0);
}

TEST_F(Focus, AMnemonicTakesTheFocusFirst) {
  first_->setPodeSerBranco(false);
  show();
  press(*window_, Qt::Key_G, Qt::AltModifier);
  settleEvents();
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  QTest::qWait(150);
  EXPECT_EQ(clicks_, 0);
  type(*window_, QStringLiteral("abc"));
  press(*window_, Qt::Key_G, Qt::AltModifier);
  QTest::qWait(200);
  EXPECT_EQ(clicks_, 1);
  EXPECT_EQ(first_->value().toString(), QStringLiteral("abc"));
  EXPECT_EQ(window_->focusWidget(), button_);
}

TEST_F(Focus, EnterPressesTheDefaultButtonWhateverTheFilterSays) {
  button_->setDefault(true);
  first_->setMascara(QStringLiteral("0000"));
  show();
  type(*window_, QStringLiteral("7"));
  QString seen;
  QObject::connect(button_, &QPushButton::clicked, [&] { seen = first_->value().toString(); });
  press(*window_, Qt::Key_Return);
  EXPECT_EQ(clicks_, 1);
  EXPECT_EQ(seen, QStringLiteral("0007"));
}

TEST_F(Focus, EnterDoesNotPressWhenTheFieldRefuses) {
  button_->setDefault(true);
  first_->setPodeSerBranco(false);
  show();
  press(*window_, Qt::Key_Return);
  EXPECT_EQ(clicks_, 0);
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(Focus, EnterThatTheProgramTakesReachesNoButton) {
  button_->setDefault(true);
  QObject::connect(first_, &TsText::keyPress, [](qint16& code) {
    if (code == 13) code = 0;
  });
  show();
  press(*window_, Qt::Key_Return);
  EXPECT_EQ(clicks_, 0);
}

TEST_F(Focus, EscapePressesTheCancelButtonWithoutValidation) {
  refuseDates();
  first_->setObjetoCancelar(QStringLiteral("btnGravar"));
  button_->setProperty("Cancel", true);
  show();
  type(*window_, QStringLiteral("31022017"));
  press(*window_, Qt::Key_Escape);
  EXPECT_EQ(clicks_, 1);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(Focus, EscapeClosesADialogWithoutACancelButton) {
  QDialog dialog;
  auto* layout = new QVBoxLayout(&dialog);
  auto* field = new TsText;
  field->setMascara(QStringLiteral("0000"));
  layout->addWidget(field);
  showActive(dialog);
  field->setFocus();
  settleEvents();
  press(dialog, Qt::Key_Escape);
  EXPECT_FALSE(dialog.isVisible());
}

TEST_F(Focus, ADialogOverTheFormDoesNotMoveTheFocus) {
  show();
  type(*window_, QStringLiteral("abc"));
  QDialog dialog(window_.get());
  QTimer::singleShot(0, &dialog, &QDialog::accept);
  dialog.exec();
  window_->activateWindow();
  settleEvents();
  EXPECT_EQ(left_, QStringList());
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(first_->selLength(), 0);  // no Enter either
}

TEST_F(Focus, AnotherWindowDoesNotMoveTheFocus) {
  show();
  QWidget other;
  showActive(other);
  window_->activateWindow();
  settleEvents();
  EXPECT_EQ(left_, QStringList());
}

TEST_F(Focus, TheContextMenuDoesNotMoveTheFocus) {
  show();
  menuOf(box());
  EXPECT_EQ(left_, QStringList());
}

TEST_F(Focus, TheFieldsOwnButtonDoesNotMoveTheFocus) {
  first_->setTipoControle(TsText::Browse);
  show();
  auto* browse = first_->findChild<QToolButton*>(QStringLiteral("btnBrowse"));
  ASSERT_TRUE(browse->isVisible());
  browse->setFocus(Qt::MouseFocusReason);
  settleEvents();
  EXPECT_EQ(left_, QStringList());
  EXPECT_FALSE(first_->valida());  // the focus is on the field's own button
  EXPECT_FALSE(first_->lastValidaStatus());
}

TEST_F(Focus, ATabPageThatIsNotInFrontIsReachedByTab) {
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  auto* tabs = new QTabWidget;
  layout->addWidget(tabs);
  QList<TsText*> fields;
  for (int page = 0; page < 2; ++page) {
    auto* inner = new QWidget;
    auto* rows = new QVBoxLayout(inner);
    for (int i = 0; i < 2; ++i) {
      fields << new TsText;
      rows->addWidget(fields.back());
    }
    tabs->addTab(inner, QString::number(page));
  }
  showActive(window);
  fields[1]->setFocus();
  settleEvents();
  press(window, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(tabs->currentIndex(), 1);
  EXPECT_EQ(window.focusWidget(), editOf(*fields[2]));
  press(window, Qt::Key_Backtab);
  settleEvents();
  EXPECT_EQ(tabs->currentIndex(), 0);
  EXPECT_EQ(window.focusWidget(), editOf(*fields[1]));
}

TEST_F(Focus, AFieldThatRefusesOnAnotherPageComesToTheFront) {
  QWidget window;
  auto* tabs = new QTabWidget(&window);
  auto* date = new TsText;
  auto* other = new TsText;
  for (TsText* field : {date, other}) {
    field->setUsaChecaRelacao(false);
    auto* page = new QWidget;
    (new QVBoxLayout(page))->addWidget(field);
    tabs->addTab(page, QStringLiteral("p"));
  }
  date->setMascara(QStringLiteral("dd/mm/yyyy"));
  showActive(window);
  date->setFocus();
  settleEvents();
  type(window, QStringLiteral("31022017"));
  tabs->setCurrentIndex(1);
  other->setFocus();
  settleEvents();
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_EQ(tabs->currentIndex(), 0);
  EXPECT_EQ(window.focusWidget(), editOf(*date));
}

TEST_F(Focus, AToolBarSettlesTheFieldInPlace) {
  show();
  type(*window_, QStringLiteral("abc"));
  EXPECT_TRUE(settle(window_.get()));
  EXPECT_EQ(first_->value().toString(), QStringLiteral("abc"));
  EXPECT_EQ(left_, QStringList({"txtPrimeiro"}));
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(first_->selLength(), 3);  // it was entered again
}

TEST_F(Focus, AToolBarIsToldOfARefusal) {
  refuseDates();
  show();
  type(*window_, QStringLiteral("31022017"));
  EXPECT_FALSE(settle(window_.get()));
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_EQ(focusedField(), first_);
}

TEST_F(Focus, ARefusalNoLongerCountsWhenTheFieldIsBlank) {
  first_->setMascara(QStringLiteral("#####"));
  first_->setPodeSerBranco(false);
  show();
  // The check of a required blank leaves the status as the last one left it.
  first_->setLastValidaStatus(false);
  EXPECT_TRUE(settle(window_.get()));
  EXPECT_FALSE(first_->lastValidaStatus());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(Focus, AFieldWithTheFocusOnItsOwnButtonIsAlsoSettled) {
  first_->setTipoControle(TsText::Calendario);
  show();
  type(*window_, QStringLiteral("abc"));
  first_->findChild<QToolButton*>(QStringLiteral("btnBrowse"))->setFocus(Qt::MouseFocusReason);
  settleEvents();
  EXPECT_TRUE(settle(window_.get()));
  EXPECT_EQ(first_->value().toString(), QStringLiteral("abc"));
}

TEST_F(Focus, AMessageOfTheProgramIsNotARefusal) {
  QObject::connect(first_, &TsText::browseReturn, [] {
    State().application->ShowMessageBox(0, u"Cliente em atraso", 0, u"Aviso");
  });
  show();
  type(*window_, QStringLiteral("abc"));
  EXPECT_TRUE(settle(window_.get()));
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"Cliente em atraso"}));
}

TEST_F(Focus, AZeroFillThatFailsIsARefusal) {
  first_->setMascara(QStringLiteral("00000"));
  show();
  type(*window_, QStringLiteral("1"));
  press(*window_, Qt::Key_Right);
  type(*window_, QStringLiteral("2"));
  EXPECT_FALSE(settle(window_.get()));
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(Focus, AClickThatEntersAFieldKeepsItsSelection) {
  show();
  second_->setText(QStringLiteral("velho"));
  click(*editOf(*second_));
  EXPECT_EQ(focusedField(), second_);
  EXPECT_EQ(second_->selLength(), 5);
  type(*window_, QStringLiteral("n"));
  EXPECT_EQ(second_->text(), QStringLiteral("n"));
}

TEST_F(Focus, AClickInsideAFieldPlacesTheCaret) {
  show();
  second_->setText(QStringLiteral("velho"));
  click(*editOf(*second_));
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  click(*editOf(*second_));
  EXPECT_EQ(second_->selLength(), 0);
}

TEST_F(Focus, APressThatEntersAFieldAndDragsSelectsWhatItCovers) {
  show();
  second_->setText(QStringLiteral("muito velho"));
  QLineEdit& edit = *editOf(*second_);
  const int middle = edit.height() / 2;
  const int width = edit.fontMetrics().horizontalAdvance(QStringLiteral("muito"));
  QTest::mousePress(&edit, Qt::LeftButton, {}, QPoint(1, middle));
  QMouseEvent move(QEvent::MouseMove, QPointF(width + 2, middle),
                   edit.mapToGlobal(QPointF(width + 2, middle)), Qt::NoButton, Qt::LeftButton, {});
  QCoreApplication::sendEvent(&edit, &move);
  QTest::mouseRelease(&edit, Qt::LeftButton, {}, QPoint(width + 2, middle));
  EXPECT_EQ(second_->selStart(), 0);
  EXPECT_GT(second_->selLength(), 0);
  EXPECT_LT(second_->selLength(), 11);
}

TEST_F(Focus, ATabPageIsReachedFromWidgetsThatAreNoFields) {
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  auto* tabs = new QTabWidget;
  layout->addWidget(tabs);
  const auto page = [&](QWidget* first, QWidget* last) {
    auto* inner = new QWidget;
    auto* rows = new QVBoxLayout(inner);
    rows->addWidget(first);
    rows->addWidget(last);
    tabs->addTab(inner, QString::number(tabs->count()));
  };
  auto* check = new QCheckBox;
  auto* button = new QPushButton;
  auto* field = new TsText;
  page(new TsText, check);
  page(button, field);
  showActive(window);
  check->setFocus();
  settleEvents();
  press(window, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(tabs->currentIndex(), 1);
  EXPECT_EQ(window.focusWidget(), button);
  press(window, Qt::Key_Backtab, Qt::ShiftModifier);
  settleEvents();
  EXPECT_EQ(tabs->currentIndex(), 0);
  EXPECT_EQ(window.focusWidget(), check);
}

TEST_F(Focus, AnEnterHeldSinceADialogPressesNoButton) {
  button_->setDefault(true);
  show();
  const auto send = [&](bool repeated) {
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"),
                    repeated);
    QCoreApplication::sendEvent(&box(), &event);
  };
  send(true);
  send(true);
  EXPECT_EQ(clicks_, 0);
  send(false);
  EXPECT_EQ(clicks_, 1);
}

TEST_F(Focus, TheCaptionIsBlueWhileItsBoxHasTheFocus) {
  first_->setDesignMode(true);
  first_->setLabelAssociado(QStringLiteral("lblPrimeiro"));
  first_->setDesignMode(false);
  show();
  const QColor focused = label_->palette().color(QPalette::WindowText);
  EXPECT_GT(focused.blue(), 200);
  leave();
  EXPECT_LT(label_->palette().color(QPalette::WindowText).blue(), 100);
}

TEST_F(Focus, ADisabledFieldLeavesTheOrderOfTabs) {
  second_->setEnabled(false);
  show();
  press(*window_, Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(window_->focusWidget(), button_);
}

}  // namespace
}  // namespace tessaria::qt::tests

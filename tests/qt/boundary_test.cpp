// No exception leaves the host, and controls survive what their handlers do.
#include <QApplication>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <stdexcept>

#include "tessaria/host/application.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/text.h"
#include "tessaria/thread_state.h"
#include "tessaria/tstext.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

class Boundary : public FieldFixture {
 protected:
  Boundary() {
    QObject::connect(first_, &TsText::unhandledError, [this](int number, const QString& text) {
      errors_ << QStringLiteral("%1 %2").arg(number).arg(text);
    });
  }
  QStringList errors_;
};

TEST_F(Boundary, ARunTimeErrorOfAHandlerIsShownAndTheProgramContinues) {
  QObject::connect(first_, &TsText::keyPress,
                   [](qint16&) { throw HostError(errors::InvalidArgument); });
  show();
  type(*window_, QStringLiteral("ab"));
  EXPECT_EQ(first_->text(), QStringLiteral("ab"));
  ASSERT_EQ(errors_.size(), 2);
  EXPECT_TRUE(errors_[0].startsWith(QStringLiteral("5 ")));
  ASSERT_EQ(boxes_.boxes().size(), 2u);
  EXPECT_EQ(boxes_.boxes()[0].title, QStringLiteral("Erro: 5"));
  EXPECT_EQ(boxes_.boxes()[0].owner, QStringLiteral("frmTeste"));
}

TEST_F(Boundary, AnyOtherExceptionIsAlsoShown) {
  QObject::connect(first_, &TsText::changed, [] { throw std::runtime_error("nada feito"); });
  show();
  first_->setText(QStringLiteral("x"));
  EXPECT_EQ(errors_, QStringList({"51 nada feito"}));
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"nada feito"}));
  EXPECT_EQ(first_->text(), QStringLiteral("x"));
}

TEST_F(Boundary, AssigningAValueOfTheWrongTypeShowsAnError) {
  show();
  first_->setBrowse(QVariant(5));
  ASSERT_EQ(errors_.size(), 1);
  first_->setPesquisa(QStringLiteral("x"));
  EXPECT_EQ(errors_.size(), 2);
}

TEST_F(Boundary, AValueThatCannotBeConvertedShowsTheControlsOwnBox) {
  first_->setTipoDado(5);
  show();
  first_->setValue(QStringLiteral("abc"));
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_EQ(boxes_.boxes()[0].title, QStringLiteral("Erro ao Atualizar o Campo"));
  EXPECT_EQ(errors_, QStringList());
}

TEST_F(Boundary, AnErrorInAHandlerOfTheExitIsReportedByTheControl) {
  QObject::connect(first_, &TsText::browseReturn, [] { throw HostError(errors::Overflow); });
  show();
  leave();
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_EQ(boxes_.boxes()[0].title,
            QStringLiteral("Erro: 6 - Função: tsText.UserControl_ExitFocus"));
  EXPECT_EQ(focusedField(), second_);
}

TEST_F(Boundary, BoxesHavePortugueseButtonsAndTheirOwner) {
  show();
  boxes_.willPress(QStringLiteral("Não"));
  auto& program = *State().application;
  const Long answer =
      program.ShowMessageBox(first_->hWnd(), u"Apagar <tudo>?\rSim?", 52, u"Alerta!");
  EXPECT_EQ(answer, 7);
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_EQ(program.ShowMessageBox(first_->hWnd(), u"E agora?", 4, u"Alerta!"), 6);
  EXPECT_EQ(program.ShowMessageBox(0, u"Pronto", 48, u"Alerta!"), 1);
  EXPECT_EQ(boxes_.boxes()[0].buttons, QStringList({"Sim", "Não"}));
  EXPECT_EQ(boxes_.boxes()[0].owner, QStringLiteral("frmTeste"));
  EXPECT_EQ(boxes_.boxes()[2].buttons, QStringList({"OK"}));
}

// After the first box, the window system may not yet have made the form active again.
TEST_F(Boundary, ABoxRightAfterAnotherOneAlsoBelongsToTheForm) {
  show();
  for (const auto* text : {u"Um", u"Dois", u"Tr\u00EAs"})
    State().application->ShowMessageBox(0, text, 0, u"Alerta!");
  for (const Box& box : boxes_.boxes()) EXPECT_EQ(box.owner, QStringLiteral("frmTeste"));
  settleEvents();
  EXPECT_TRUE(window_->isActiveWindow());
  leave();
  EXPECT_EQ(QApplication::focusWidget(), editOf(*second_));
}

TEST_F(Boundary, ClosingAYesNoBoxMeansNo) {
  show();
  boxes_.whileOpen = [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); };
  EXPECT_EQ(State().application->ShowMessageBox(0, u"?", 4, u"Alerta!"), 7);
}

// --- What handlers do to their own control

using Destroy = void (*)(TsText*, std::function<void()>);
struct Event {
  const char* name;
  Destroy connectTo;
};
void PrintTo(const Event& event, std::ostream* out) { *out << event.name; }

class DestroyedInAHandler : public FieldFixture, public testing::WithParamInterface<Event> {};

TEST_P(DestroyedInAHandler, TheControlAlone) {
  first_->setMascara(QStringLiteral("AAAA"));
  QPointer<TsText> field(first_);
  show();
  GetParam().connectTo(field, [&] { delete field; });
  type(*window_, QStringLiteral("aB"));
  if (field) leave();
  settleEvents();
  EXPECT_FALSE(field);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_P(DestroyedInAHandler, TheWholeForm) {
  QPointer<QWidget> window(window_.release());
  const std::unique_ptr<QWidget, std::function<void(QWidget*)>> cleanUp(
      window, [&](QWidget*) { delete window; });
  showActive(*window);
  first_->setFocus();
  settleEvents();
  GetParam().connectTo(first_, [&] { delete window; });
  commit(*window, QStringLiteral("a"));
  if (window) type(*window, QStringLiteral("B"));
  if (window) second_->setFocus();
  settleEvents();
  EXPECT_FALSE(window);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Events, DestroyedInAHandler,
    testing::Values(Event{"keyDown",
                          [](TsText* f, auto end) {
                            QObject::connect(f, &TsText::keyDown, qApp, [end](qint16& code) {
                              if (code == 'B') end();
                            });
                          }},
                    Event{"keyDownOfShift",
                          [](TsText* f, auto end) {
                            QObject::connect(f, &TsText::keyDown, qApp, [end](qint16& code) {
                              if (code == 16) end();
                            });
                          }},
                    Event{"keyPress",
                          [](TsText* f, auto end) {
                            QObject::connect(f, &TsText::keyPress, qApp, [end] { end(); });
                          }},
                    Event{"changed",
                          [](TsText* f, auto end) {
                            QObject::connect(f, &TsText::changed, qApp, [end] { end(); });
                          }},
                    Event{"keyUp",
                          [](TsText* f, auto end) {
                            QObject::connect(f, &TsText::keyUp, qApp, [end] { end(); });
                          }},
                    Event{"browseReturn", [](TsText* f, auto end) {
                            QObject::connect(f, &TsText::browseReturn, qApp, [end] { end(); });
                          }}));

// Qt looks for shortcuts before it delivers a key; the field is settled at that point.
TEST_P(DestroyedInAHandler, TheWholeFormDuringAShortcut) {
  for (const bool keyIsTaken : {true, false}) {
    SCOPED_TRACE(keyIsTaken);
    QPointer<QWidget> window(new QWidget);
    auto* field = new TsText(window);
    field->setObjectName(QStringLiteral("campo"));
    field->setUsaChecaRelacao(false);
    int pressed = 0;
    auto* shortcut = new QShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+G")), window);
    QObject::connect(shortcut, &QShortcut::activated, qApp, [&] {
      ++pressed;
      if (keyIsTaken) delete window;
    });
    showActive(*window);
    field->setFocus();
    settleEvents();
    type(*window, QStringLiteral("a"));
    GetParam().connectTo(field, [&] { delete window; });
    press(*window, Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
    if (window) type(*window, QStringLiteral("B"));
    settleEvents();
    EXPECT_FALSE(window);
    EXPECT_LE(pressed, 1);
    delete window;
  }
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(Boundary, AControlMayBeDestroyedByItsFirstShow) {
  QPointer<TsText> field(first_);
  QObject::connect(first_, &TsText::shown, qApp, [&] { delete field; });
  showActive(*window_);
  EXPECT_FALSE(field);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(Boundary, AFormMayBeClosedByAFirstShow) {
  QObject::connect(first_, &TsText::shown, qApp, [&] { window_->close(); });
  window_->show();
  settleEvents();
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(Boundary, TheFormMayBeDestroyedByTheListenerOfAnError) {
  QPointer<QWidget> window(window_.release());
  QObject::connect(first_, &TsText::keyPress, qApp,
                   [] { throw HostError(errors::InvalidArgument); });
  QObject::connect(first_, &TsText::unhandledError, qApp, [&] { delete window; });
  showActive(*window);
  first_->setFocus();
  settleEvents();
  type(*window, QStringLiteral("a"));
  EXPECT_FALSE(window);
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(Boundary, TheFormMayBeDestroyedByItsButton) {
  using Press = void (*)(QWidget&, QPushButton&);
  const Press presses[] = {[](QWidget&, QPushButton& button) { click(button); },
                           [](QWidget& window, QPushButton&) { press(window, Qt::Key_Return); },
                           [](QWidget& window, QPushButton&) {
                             press(window, Qt::Key_G, Qt::AltModifier);
                             QTest::qWait(200);
                           }};
  for (const Press how : presses) {
    QPointer<QWidget> window(new QWidget);
    auto* layout = new QVBoxLayout(window);
    auto* field = new TsText;
    auto* button = new QPushButton(QStringLiteral("&Gravar"));
    field->setUsaChecaRelacao(false);
    layout->addWidget(field);
    layout->addWidget(button);
    button->setDefault(true);
    QObject::connect(button, &QPushButton::clicked, qApp, [&] { delete window; });
    showActive(*window);
    field->setFocus();
    settleEvents();
    how(*window, *button);
    EXPECT_FALSE(window);
    delete window;
  }
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(Boundary, AFormClosedUnderABoxClosesTheBox) {
  first_->setMascara(QStringLiteral("dd/mm/yyyy"));
  show();
  type(*window_, QStringLiteral("31022017"));
  boxes_.whileOpen = [&] { window_->close(); };
  leave();
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(Boundary, AFormDestroyedUnderABoxDestroysTheBox) {
  first_->setMascara(QStringLiteral("dd/mm/yyyy"));
  show();
  type(*window_, QStringLiteral("31022017"));
  boxes_.whileOpen = [&] { window_.reset(); };
  second_->setFocus();
  settleEvents();
  EXPECT_EQ(window_, nullptr);
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(Boundary, AHandleOfADestroyedWidgetOwnsNothing) {
  show();
  const int handle = first_->hWnd();
  EXPECT_NE(handle, 0);
  EXPECT_EQ(first_->hWnd(), handle);
  delete first_;
  EXPECT_EQ(State().application->ShowMessageBox(handle, u"Oi", 0, u"Alerta!"), 1);
}

TEST_F(Boundary, WidgetsOfADestroyedFormRaise91) {
  const host::WidgetPtr widget = makeWidget(*first_);
  window_.reset();
  EXPECT_THROW(widget->Name(), HostError);
  EXPECT_THROW(widget->Get(u"Value"), HostError);
}

}  // namespace
}  // namespace tessaria::qt::tests

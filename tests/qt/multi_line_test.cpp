// Fields whose text is edited in a box of several lines.
#include <QAccessible>
#include <QClipboard>
#include <QMimeData>
#include <QPlainTextEdit>

#include "tessaria/comforts.h"
#include "tessaria/field_settings.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

class MultiLine : public FieldFixture {
 protected:
  MultiLine() { first_->setMultiLineText(true); }

  QPlainTextEdit* lines() const { return linesOf(*first_); }
  static QPlainTextEdit* linesOf(TsText& field) {
    return qobject_cast<QPlainTextEdit*>(field.focusProxy());
  }
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    tests::press(*window_, key, modifiers);
  }
  void type(const QString& text) { tests::type(*window_, text); }
  /// Shows the field with this value, the focus in it.
  void showWith(const QString& text) {
    show();
    leave();
    first_->setValue(text);
    first_->setFocus(Qt::TabFocusReason);
    settleEvents();
  }
};

TEST_F(MultiLine, EnterEndsALineAndTabLeaves) {
  show();
  type(QStringLiteral("Entregar à tarde"));
  press(Qt::Key_Return);
  type(QStringLiteral("pelos fundos"));
  press(Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(focusedField(), second_);
  EXPECT_EQ(first_->value(), QVariant(QStringLiteral("Entregar à tarde\r\npelos fundos")));
  press(Qt::Key_Tab, Qt::ShiftModifier);
  settleEvents();
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(first_->selLength(), 30);
}

TEST_F(MultiLine, ArrowsMoveBetweenLinesAndUndoBringsBack) {
  showWith(QStringLiteral("um\r\ndois"));
  press(Qt::Key_Home, Qt::ControlModifier);
  press(Qt::Key_Down);
  EXPECT_EQ(first_->selStart(), 4);
  type(QStringLiteral("x"));
  EXPECT_EQ(first_->text(), QStringLiteral("um\r\nxdois"));
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("um\r\ndois"));
  press(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(first_->selText(), QStringLiteral("um\r\ndois"));
  leave();
  EXPECT_EQ(first_->value(), QVariant(QStringLiteral("um\r\ndois")));
}

TEST_F(MultiLine, TakesAccentsOfInputMethods) {
  show();
  commit(*window_, QStringLiteral("ção"));
  leave();
  EXPECT_EQ(first_->value(), QVariant(QStringLiteral("ção")));
}

// Whatever separates the lines of a stored text, to look at it does not change it.
TEST_F(MultiLine, AVisitChangesNoLineEnd) {
  for (const char* stored : {"um\ndois", "um\r\ndois", "um\ndois\r\ntrês", "um\rdois", "um\n"}) {
    const QString text = QString::fromUtf8(stored);
    showWith(text);
    EXPECT_EQ(first_->text(), text);
    press(Qt::Key_Down);
    leave();
    EXPECT_EQ(first_->value(), QVariant(text));
  }
}

TEST_F(MultiLine, AnEditKeepsTheLineEndsOfTheText) {
  showWith(QStringLiteral("um\ndois"));
  press(Qt::Key_End, Qt::ControlModifier);
  press(Qt::Key_Return);
  type(QStringLiteral("três"));
  EXPECT_EQ(first_->selStart(), 12);
  leave();
  EXPECT_EQ(first_->value(), QVariant(QStringLiteral("um\ndois\ntrês")));
}

TEST_F(MultiLine, AMaskAPasswordOrAButtonLeavesOneLine) {
  show();
  ASSERT_NE(lines(), nullptr);
  first_->setMascara(QStringLiteral("dd/mm/yyyy"));
  EXPECT_EQ(lines(), nullptr);
  EXPECT_TRUE(first_->multiLineText());
  first_->setMascara(QString());
  EXPECT_NE(lines(), nullptr);
  first_->setPasswordChar(QStringLiteral("*"));
  EXPECT_EQ(lines(), nullptr);
  EXPECT_EQ(editOf(*first_)->echoMode(), QLineEdit::Password);
  first_->setPasswordChar(QString());
  EXPECT_NE(lines(), nullptr);
  first_->setTipoControle(TsText::Browse);
  EXPECT_EQ(lines(), nullptr);
  first_->setTipoControle(TsText::Normal);
  EXPECT_NE(lines(), nullptr);
}

TEST_F(MultiLine, AChangeUnderTheFocusKeepsTextSelectionAndFocus) {
  first_->setMultiLineText(false);
  show();
  type(QStringLiteral("um dois"));
  first_->setSelStart(3);
  first_->setSelLength(4);
  first_->setMultiLineText(true);
  settleEvents();
  EXPECT_EQ(focusOf(*window_), lines());
  EXPECT_EQ(first_->selText(), QStringLiteral("dois"));
  type(QStringLiteral("três"));
  EXPECT_EQ(first_->text(), QStringLiteral("um três"));
  leave();
  EXPECT_EQ(first_->value(), QVariant(QStringLiteral("um três")));
  // The tab order stays.
  first_->setFocus();
  settleEvents();
  press(Qt::Key_Tab);
  settleEvents();
  EXPECT_EQ(focusedField(), second_);
}

TEST_F(MultiLine, OneLineAgainShowsTheSameText) {
  showWith(QStringLiteral("um\r\ndois"));
  first_->setMultiLineText(false);
  EXPECT_EQ(first_->text(), QStringLiteral("um\r\ndois"));
  leave();
  EXPECT_EQ(first_->value(), QVariant(QStringLiteral("um\r\ndois")));
}

TEST_F(MultiLine, TheLimitCountsTheEndsOfLines) {
  first_->setMaxLength(6);
  show();
  type(QStringLiteral("um"));
  press(Qt::Key_Return);
  type(QStringLiteral("dois"));
  EXPECT_EQ(first_->text(), QStringLiteral("um\r\ndo"));
}

TEST_F(MultiLine, APastedTextGivesWhatFitsOrIsRefusedAsAWhole) {
  first_->setMaxLength(6);
  show();
  QApplication::clipboard()->setText(QStringLiteral("um\ndois"));
  press(Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("um\r\ndo"));
  press(Qt::Key_A, Qt::ControlModifier);
  press(Qt::Key_Delete);
  Comforts whole = comforts();
  whole.PasteWholeOrNothing = true;
  const Comforts before = comforts();
  setComforts(whole);
  press(Qt::Key_V, Qt::ControlModifier);
  setComforts(before);
  EXPECT_EQ(first_->text(), QString());
  EXPECT_EQ(boxes_.beeps(), 1);
  EXPECT_EQ(lines()->accessibleDescription(),
            QStringLiteral("O texto não cabe neste campo e não foi colado."));
}

TEST_F(MultiLine, EscapePressesTheCancelButtonAndEnterPressesNone) {
  int gravar = 0;
  int cancelar = 0;
  button_->setDefault(true);
  QObject::connect(button_, &QPushButton::clicked, [&] { ++gravar; });
  auto* cancel = new QPushButton(QStringLiteral("Cancelar"));
  cancel->setProperty("Cancel", true);
  window_->layout()->addWidget(cancel);
  QObject::connect(cancel, &QPushButton::clicked, [&] { ++cancelar; });
  show();
  press(Qt::Key_Return);
  EXPECT_EQ(gravar, 0);
  press(Qt::Key_Escape);
  settleEvents();
  EXPECT_EQ(cancelar, 1);
}

TEST_F(MultiLine, EventsComeInTheOrderOfAKey) {
  QStringList events;
  const auto note = [&](const char* event) {
    return [&events, event] { events << QLatin1String(event); };
  };
  show();
  QObject::connect(first_, &TsText::keyDown, note("keyDown"));
  QObject::connect(first_, &TsText::keyPress, note("keyPress"));
  QObject::connect(first_, &TsText::changed, note("changed"));
  QObject::connect(first_, &TsText::keyUp, note("keyUp"));
  press(Qt::Key_Return);
  EXPECT_EQ(events, QStringList({"keyDown", "keyPress", "changed", "keyUp"}));
  events.clear();
  QApplication::clipboard()->setText(QStringLiteral("a"));
  lines()->paste();
  EXPECT_EQ(events, QStringList({"changed", "keyUp"}));
}

TEST_F(MultiLine, AHandlerChangesOrTakesACharacter) {
  show();
  QObject::connect(first_, &TsText::keyPress, [](qint16& code) {
    if (code == 'a') code = 'A';
    if (code == 13) code = 0;
  });
  type(QStringLiteral("a"));
  press(Qt::Key_Return);
  type(QStringLiteral("b"));
  EXPECT_EQ(first_->text(), QStringLiteral("Ab"));
}

TEST_F(MultiLine, ABlankTextThatMayNotBeIsRefused) {
  first_->setPodeSerBranco(false);
  label_->setBuddy(first_);
  show();
  EXPECT_EQ(lines()->accessibleDescription(), QStringLiteral("obrigatório"));
  EXPECT_EQ(lines()->accessibleName(), QStringLiteral("Primeiro"));
  click(*button_);
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"Não Pode Ser Branco, Verifique Por Favor"}));
}

TEST_F(MultiLine, LooksAreThoseOfAField) {
  first_->setPlaceholderText(QStringLiteral("Como entregar"));
  show();
  EXPECT_EQ(lines()->placeholderText(), QStringLiteral("Como entregar"));
  EXPECT_EQ(lines()->objectName(), QStringLiteral("txtEdit"));
  first_->setEnabled(false);
  EXPECT_FALSE(lines()->isEnabled());
  first_->setEnabled(true);
  EXPECT_TRUE(lines()->isEnabled());
  first_->setForeColor(QColor(Qt::darkRed));
  EXPECT_EQ(lines()->palette().color(QPalette::Text), QColor(Qt::darkRed));
  first_->setMultiLineText(false);
  EXPECT_EQ(editOf(*first_)->placeholderText(), QStringLiteral("Como entregar"));
  EXPECT_EQ(editOf(*first_)->palette().color(QPalette::Text), QColor(Qt::darkRed));
}

TEST_F(MultiLine, ALayoutGivesTheHeightThatIsLeft) {
  window_->resize(400, 500);
  show();
  EXPECT_GE(first_->sizeHint().height(), 3 * second_->sizeHint().height() / 2);
  EXPECT_GT(first_->height(), 250);
  EXPECT_EQ(lines()->height(), first_->height());
  EXPECT_EQ(second_->height(), second_->sizeHint().height());
}

TEST_F(MultiLine, IsDescribedInCode) {
  TsText field({.name = u"obs", .placeholder = u"Observações", .multiLineText = true});
  EXPECT_TRUE(field.multiLineText());
  ASSERT_NE(linesOf(field), nullptr);
  EXPECT_EQ(linesOf(field)->placeholderText(), QStringLiteral("Observações"));
  EXPECT_FALSE(field.multiLine());
  EXPECT_FALSE(field.settings().join(QString()).contains(QStringLiteral("Observ")));
}

TEST_F(MultiLine, TheStoredPropertyHasNoEffect) {
  second_->setMultiLine(true);
  show();
  EXPECT_EQ(linesOf(*second_), nullptr);
}

}  // namespace
}  // namespace tessaria::qt::tests

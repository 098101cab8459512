// Typing into masked and unmasked fields, with keys as the operator's keyboard sends them.
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

struct Typed {
  const char* name;
  const char* mask;
  const char* keys;
  const char* inside;   ///< the box while the field has the focus
  const char* outside;  ///< the box after the field was left
  const char* value;
  int maxLength = 0;
  bool promptInclude = false;
};

void PrintTo(const Typed& row, std::ostream* out) { *out << row.name; }

class MaskFamilies : public FieldFixture, public testing::WithParamInterface<Typed> {};

TEST_P(MaskFamilies, AreTypedAndSettled) {
  const Typed& row = GetParam();
  first_->setMascara(QString::fromUtf8(row.mask));
  first_->setMaxLength(row.maxLength);
  first_->setPromptInclude(row.promptInclude);
  show();
  type(*window_, QString::fromUtf8(row.keys));
  EXPECT_EQ(first_->text(), QString::fromUtf8(row.inside));
  leave();
  EXPECT_EQ(first_->text(), QString::fromUtf8(row.outside));
  EXPECT_EQ(first_->value().toString(), QString::fromUtf8(row.value));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

INSTANTIATE_TEST_SUITE_P(
    Typing, MaskFamilies,
    testing::Values(
        Typed{"no mask", "", "Ação 1", "Ação 1", "Ação 1", "Ação 1"},
        Typed{"zeros", "00000", "42", "42___", "00042", "00042"},
        Typed{"digits", "#####", "42", "42___", "42___", "42"},
        Typed{"a letter where a digit goes", "00000", "4a2", "42___", "00042", "00042"},
        Typed{"literals", "000.000.000-00", "12345678909", "123.456.789-09", "123.456.789-09",
              "12345678909"},
        Typed{"literals in front", "(##) ####-####", "1133334444", "(11) 3333-4444_",
              "(11) 3333-4444", "1133334444"},
        Typed{"date", "dd/mm/yyyy", "15082016", "15/08/2016", "15/08/2016", "15/08/2016", 0, true},
        Typed{"upper case", "AAAA", "abcd", "ABCD", "ABCD", "ABCD"},
        Typed{"lower case", "aaaa", "ABCD", "abcd", "abcd", "abcd"},
        Typed{"either case", "C###", "x123", "X123", "X123", "X123"},
        Typed{"number", "$$$$$$$.$$", "1234,56", "1234,56", "1.234,56", "1234,56", 10},
        Typed{"number, the point is the comma", "$$$$$$$.$$", "1234.5", "1234,5", "1.234,50",
              "1234,50", 10},
        // Only a mask with a point has it among the characters that are stripped from the value.
        Typed{"whole number", "$$$$$$", "12345", "12345", "12.345", "12.345", 8},
        Typed{"two-sided", "N00A", "123b", "123B", "123B", "123B"}));

class Typing : public FieldFixture {};

TEST_F(Typing, ADirectAccentedKeyIsOneKeyPress) {
  std::vector<int> codes;
  QObject::connect(first_, &TsText::keyPress, [&](qint16& code) { codes.push_back(code); });
  show();
  type(*window_, QStringLiteral("ç"));
  EXPECT_EQ(first_->text(), QStringLiteral("ç"));
  EXPECT_THAT(codes, testing::ElementsAre(231));
}

TEST_F(Typing, ADeadKeyWithItsLetterIsOneKeyPressAndOneKeyUpOfCode0) {
  std::vector<int> presses;
  std::vector<int> ups;
  QObject::connect(first_, &TsText::keyPress, [&](qint16& code) { presses.push_back(code); });
  QObject::connect(first_, &TsText::keyUp, [&](qint16& code) { ups.push_back(code); });
  show();
  commit(*window_, QStringLiteral("á"));
  EXPECT_EQ(first_->text(), QStringLiteral("á"));
  EXPECT_THAT(presses, testing::ElementsAre(225));
  EXPECT_THAT(ups, testing::ElementsAre(0));
}

TEST_F(Typing, ATextFromAnAssistiveTechnologyIsFollowedByOneKeyUpOfCode0) {
  std::vector<int> ups;
  QObject::connect(first_, &TsText::keyUp, [&](qint16& code) { ups.push_back(code); });
  show();
  QAccessible::queryAccessibleInterface(&box())->setText(QAccessible::Value, QStringLiteral("abc"));
  EXPECT_EQ(first_->text(), QStringLiteral("abc"));
  EXPECT_THAT(ups, testing::ElementsAre(0));
}

TEST_F(Typing, ACommitGoesThroughTheMask) {
  first_->setMascara(QStringLiteral("AA00"));
  show();
  commit(*window_, QStringLiteral("ábc12"));
  EXPECT_EQ(first_->text(), QStringLiteral("BC12"));
}

TEST_F(Typing, APreEditLeavesAMaskedTextAlone) {
  first_->setMascara(QStringLiteral("0000"));
  show();
  type(*window_, QStringLiteral("1234"));
  box().selectAll();
  QInputMethodEvent event(QStringLiteral("~"), {});
  QCoreApplication::sendEvent(&box(), &event);
  EXPECT_EQ(box().displayText(), QStringLiteral("1234"));
  EXPECT_EQ(first_->text(), QStringLiteral("1234"));
}

TEST_F(Typing, TheOrderIsKeyDownKeyPressChangeKeyUp) {
  QStringList order;
  QObject::connect(first_, &TsText::keyDown, [&](qint16& code, qint16& shift) {
    order << QStringLiteral("down %1 %2").arg(code).arg(shift);
  });
  QObject::connect(first_, &TsText::keyPress,
                   [&](qint16& code) { order << QStringLiteral("press %1").arg(code); });
  QObject::connect(first_, &TsText::changed, [&] { order << QStringLiteral("change"); });
  QObject::connect(first_, &TsText::keyUp,
                   [&](qint16& code) { order << QStringLiteral("up %1").arg(code); });
  first_->setMascara(QStringLiteral("00"));
  show();
  order.clear();
  type(*window_, QStringLiteral("7"));
  EXPECT_EQ(order, QStringList({"down 55 0", "press 55", "change", "up 55"}));
}

TEST_F(Typing, AHandlerChangesAKey) {
  QObject::connect(first_, &TsText::keyPress, [](qint16& code) {
    if (code == 'a') code = 'B';
  });
  show();
  type(*window_, QStringLiteral("ab"));
  EXPECT_EQ(first_->text(), QStringLiteral("Bb"));
}

TEST_F(Typing, AHandlerDiscardsAKey) {
  QObject::connect(first_, &TsText::keyDown, [](qint16& code, qint16&) {
    if (code == 'A') code = 0;
  });
  show();
  type(*window_, QStringLiteral("abc"));
  EXPECT_EQ(first_->text(), QStringLiteral("bc"));
}

TEST_F(Typing, AutoRepeatPressesRepeatedlyAndReleasesOnce) {
  int presses = 0;
  int ups = 0;
  QObject::connect(first_, &TsText::keyPress, [&] { ++presses; });
  QObject::connect(first_, &TsText::keyUp, [&] { ++ups; });
  show();
  const auto send = [&](QEvent::Type kind, bool repeated) {
    QKeyEvent event(kind, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"), repeated);
    QCoreApplication::sendEvent(&box(), &event);
  };
  send(QEvent::KeyPress, false);
  for (int i = 0; i < 3; ++i) {
    send(QEvent::KeyRelease, true);
    send(QEvent::KeyPress, true);
  }
  send(QEvent::KeyRelease, false);
  EXPECT_EQ(presses, 4);
  EXPECT_EQ(ups, 1);
  EXPECT_EQ(first_->text(), QStringLiteral("aaaa"));
}

TEST_F(Typing, OnlyTheReleaseOfATabReachesTheFieldThatItMovesTo) {
  std::vector<int> keys;
  QObject::connect(second_, &TsText::keyDown, [&] { keys.push_back(0); });
  QObject::connect(second_, &TsText::keyUp, [&](qint16& code) { keys.push_back(code); });
  show();
  press(*window_, Qt::Key_Tab);
  EXPECT_EQ(focusedField(), second_);
  EXPECT_THAT(keys, testing::ElementsAre(9));
}

TEST_F(Typing, AReleaseWhosePressWasElsewhereIsAnEventOfTheFieldButNotOfItsBox) {
  int ups = 0;
  QObject::connect(first_, &TsText::keyUp, [&] { ++ups; });
  show();
  first_->setTipoControle(TsText::Descricao);
  boxes_.takeTexts();
  QTest::sendKeyEvent(QTest::Release, &box(), Qt::Key_Return, QString(), Qt::NoModifier);
  EXPECT_EQ(ups, 1);
  EXPECT_EQ(boxes_.takeTexts(), QStringList()) << "a search was started";
}

TEST_F(Typing, BackspaceAndDeleteKeepTheMask) {
  first_->setMascara(QStringLiteral("00/00"));
  show();
  type(*window_, QStringLiteral("1234"));
  press(*window_, Qt::Key_Backspace);
  EXPECT_EQ(first_->text(), QStringLiteral("12/3_"));
  press(*window_, Qt::Key_Home);
  press(*window_, Qt::Key_Delete);
  EXPECT_EQ(first_->text(), QStringLiteral("_2/3_"));
}

TEST_F(Typing, ClipboardKeysAreRefusedInAMaskedField) {
  first_->setMascara(QStringLiteral("0000"));
  show();
  type(*window_, QStringLiteral("1234"));
  QGuiApplication::clipboard()->setText(QStringLiteral("5555"));
  box().selectAll();
  for (const int key : {Qt::Key_C, Qt::Key_X, Qt::Key_V}) {
    press(*window_, key, Qt::ControlModifier);
    EXPECT_EQ(first_->text(), QStringLiteral("1234")) << key;
  }
  press(*window_, Qt::Key_Insert, Qt::ShiftModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("1234"));
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("5555"));
}

// It has no character that the filter could refuse.
TEST_F(Typing, ControlInsertAlsoCopiesFromAMaskedField) {
  first_->setMascara(QStringLiteral("0000"));
  show();
  type(*window_, QStringLiteral("1234"));
  box().selectAll();
  press(*window_, Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("1234"));
  EXPECT_EQ(first_->text(), QStringLiteral("1234"));
}

// Its character is 1, which no slot takes: Home and Shift+End select all instead.
TEST_F(Typing, ControlASelectsNothingInAMaskedField) {
  first_->setMascara(QStringLiteral("0000"));
  show();
  type(*window_, QStringLiteral("1234"));
  press(*window_, Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(first_->selLength(), 0);
  press(*window_, Qt::Key_Home);
  press(*window_, Qt::Key_End, Qt::ShiftModifier);
  EXPECT_EQ(first_->selStart(), 0);
  EXPECT_EQ(first_->selLength(), 4);
}

// Only the letters type a character that the filter can refuse.
TEST_F(Typing, ControlInsertCopiesFromAMaskedFieldAndControlCDoesNot) {
  first_->setMascara(QStringLiteral("0000"));
  show();
  type(*window_, QStringLiteral("1234"));
  box().selectAll();
  QApplication::clipboard()->setText(QStringLiteral("antes"));
  press(*window_, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("antes"));
  press(*window_, Qt::Key_Insert, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("1234"));
  EXPECT_EQ(first_->text(), QStringLiteral("1234"));
}

TEST_F(Typing, UndoTakesBackAPasteAndADrop) {
  show();
  type(*window_, QStringLiteral("abc"));
  pasteByMenu(box(), QStringLiteral("XY"));
  press(*window_, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("abc"));
  drop(box(), QStringLiteral("12"), 0);
  EXPECT_EQ(first_->text(), QStringLiteral("12abc"));
  press(*window_, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("abc"));
}

// AltGr with Q types a slash on the Brazilian layout; AltGr is released before the key.
TEST_F(Typing, AKeyUpHasTheCodeOfItsKeyDown) {
  std::vector<std::string> keys;
  QObject::connect(first_, &TsText::keyDown,
                   [&](qint16& code) { keys.push_back("down " + std::to_string(code)); });
  QObject::connect(first_, &TsText::keyUp,
                   [&](qint16& code) { keys.push_back("up " + std::to_string(code)); });
  show();
  constexpr quint32 kScanCodeOfQ = 24;
  const auto send = [&](QEvent::Type type, Qt::Key key, const char* text) {
    QKeyEvent event(type, key, Qt::NoModifier, kScanCodeOfQ, 0, 0, QLatin1String(text));
    QApplication::sendEvent(&box(), &event);
  };
  send(QEvent::KeyPress, Qt::Key_Slash, "/");
  send(QEvent::KeyRelease, Qt::Key_Q, "q");
  EXPECT_EQ(keys, std::vector<std::string>({"down 193", "up 193"}));
}

TEST_F(Typing, UndoAndRedoWorkWithoutAMask) {
  show();
  type(*window_, QStringLiteral("abc"));
  press(*window_, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QString());
  press(*window_, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("abc"));
}

TEST_F(Typing, NoUndoReachesAMaskedText) {
  for (const char* mask : {"0000", "$$$$.$$"}) {
    first_->setMascara(QLatin1String(mask));
    show();
    type(*window_, QStringLiteral("12"));
    const QString before = first_->text();
    press(*window_, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(first_->text(), before) << "key";
    press(*window_, Qt::Key_Undo);
    EXPECT_EQ(first_->text(), before) << "undo key";
    QMetaObject::invokeMethod(&box(), "undo");
    EXPECT_EQ(first_->text(), before) << "by name";
    box().undo();
    EXPECT_EQ(first_->text(), before) << "past the control";
    EXPECT_FALSE(menuOf(box()).join(QString()).contains(QLatin1String("Desfazer")));
    leave();
  }
}

TEST_F(Typing, MaxLengthHoldsForKeysPasteAndDrop) {
  first_->setMaxLength(3);
  show();
  type(*window_, QStringLiteral("abcd"));
  EXPECT_EQ(first_->text(), QStringLiteral("abc"));
  box().clear();
  pasteByMenu(box(), QStringLiteral("wxyz"));
  EXPECT_EQ(first_->text(), QStringLiteral("wxy"));
}

// The letter stays, the error is shown, and the program continues.
TEST_F(Typing, ALetterInAPathFieldWithoutASeparatorShowsAnErrorAndIsKept) {
  int number = 0;
  QObject::connect(first_, &TsText::unhandledError, [&](int n, const QString&) { number = n; });
  first_->setTipoControle(TsText::Diretorio);
  show();
  type(*window_, QStringLiteral("a"));
  settleEvents();
  EXPECT_EQ(first_->text(), QStringLiteral("a"));
  EXPECT_EQ(number, 5);
  ASSERT_EQ(boxes_.takeTexts().size(), 1);
  boxes_.takeTexts();
  first_->setText(QStringLiteral("/tmp/a.txt"));
  EXPECT_EQ(first_->dirFilePath(), QStringLiteral("/tmp"));
  EXPECT_EQ(first_->dirFileName(), QStringLiteral("a.txt"));
}

TEST_F(Typing, PageDownPressesTheButton) {
  int settled = 0;
  QObject::connect(first_, &TsText::browseReturn, [&] { ++settled; });
  first_->setTipoControle(TsText::Normal);
  show();
  press(*window_, Qt::Key_PageDown);
  EXPECT_EQ(settled, 0);
}

}  // namespace
}  // namespace tessaria::qt::tests

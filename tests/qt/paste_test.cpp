// Text without a key: by menu, drop, middle mouse button.
#include <QApplication>
#include <QClipboard>
#include <QTest>

#include "hosts/qt/keys/line_edit.h"
#include "tessaria/tstext.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

struct Pasted {
  const char* name;
  const char* mask;
  const char* text;
  const char* box;
  int maxLength = 0;
  bool negative = false;
};

void PrintTo(const Pasted& row, std::ostream* out) { *out << row.name; }

class PasteIntoMask : public FieldFixture, public testing::WithParamInterface<Pasted> {
 protected:
  void Start() {
    first_->setMascara(QString::fromUtf8(GetParam().mask));
    first_->setMaxLength(GetParam().maxLength);
    first_->setValorNegativo(GetParam().negative);
    show();
    QObject::connect(first_, &TsText::keyUp, [this](qint16& code) { ups_.push_back(code); });
  }
  std::vector<int> ups_;
};

TEST_P(PasteIntoMask, ByMenu) {
  Start();
  pasteByMenu(box(), QString::fromUtf8(GetParam().text));
  EXPECT_EQ(first_->text(), QString::fromUtf8(GetParam().box));
  EXPECT_THAT(ups_, testing::ElementsAre(0));
}

TEST_P(PasteIntoMask, ByDrop) {
  Start();
  drop(box(), QString::fromUtf8(GetParam().text), 0);
  EXPECT_EQ(first_->text(), QString::fromUtf8(GetParam().box));
  EXPECT_THAT(ups_, testing::ElementsAre(0));
}

INSTANTIATE_TEST_SUITE_P(
    Pasting, PasteIntoMask,
    testing::Values(
        Pasted{"CPF with punctuation", "000.000.000-00", "123.456.789-09", "123.456.789-09"},
        Pasted{"CPF without punctuation", "000.000.000-00", "12345678909", "123.456.789-09"},
        Pasted{"CPF with blanks around", "000.000.000-00", "  123.456.789-09\n", "123.456.789-09"},
        Pasted{"CPF with its points only", "000.000.000-00", "123.456.78909", "123.456.789-09"},
        Pasted{"CNPJ with punctuation", "00.000.000/0000-00", "12.345.678/0001-95",
               "12.345.678/0001-95"},
        Pasted{"CNPJ without punctuation", "00.000.000/0000-00", "12345678000195",
               "12.345.678/0001-95"},
        Pasted{"telephone with punctuation", "(00) 0000-0000", "(11) 3333-4444", "(11) 3333-4444"},
        Pasted{"telephone without punctuation", "(00) 0000-0000", "1133334444", "(11) 3333-4444"},
        Pasted{"postcode", "00000-000", "01310-100", "01310-100"},
        Pasted{"more than the mask holds", "00000-000", "01310-100999", "01310-100"},
        Pasted{"date of short parts", "00/00/0000", "1/2/2017", "1_/2_/2017"},
        Pasted{"masked text with its fill", "00/00/0000", "12/__/2017", "12/__/2017"},
        Pasted{"letters are refused", "00000", "a1x2", "12___"},
        Pasted{"text slots fold", "AAA-0000", "abc-1234", "ABC-1234"},
        Pasted{"text slots take x", "AAAA", "xis", "XIS_"},
        Pasted{"accents are refused", "AAAA", "ação", "AO__"},
        Pasted{"number with points", "$$$$$$$.$$", "1.234,56", "1234,56", 10},
        Pasted{"number with a decimal point", "$$$$$$$.$$", "1234.56", "1234,56", 10},
        Pasted{"number in thousands", "$$$$$$$.$$", "R$ 1.234", "1234", 10},
        Pasted{"number with a sign", "$$$$$$$.$$", "-12,50", "-12,50", 10, true},
        Pasted{"number with its suffix", "$$$.$$ kg", "12,50 kg", "12,50", 10}));

class Pasting : public FieldFixture {};

struct Refused {
  const char* name;
  const char* mask;
  const char* text;
  int maxLength;
};

void PrintTo(const Refused& row, std::ostream* out) { *out << row.name; }

class PasteOfTheSameText : public FieldFixture, public testing::WithParamInterface<const char*> {
 protected:
  /// Shows 7 in a field with the mask, and selects all of it.
  void start() {
    first_->setMascara(QLatin1String(GetParam()));
    first_->setTipoDado(5);
    show();
    first_->setValue(7.0);
    enterAgain();
  }
  bool isTouched() { return first_->control().CurrentTyping().Touches; }
};

INSTANTIATE_TEST_SUITE_P(Masks, PasteOfTheSameText,
                         testing::Values("", "0", "$", "$$$.$$", "X", "A"));

TEST_P(PasteOfTheSameText, CountsAsTyped) {
  start();
  const QString before = box().text();
  ASSERT_FALSE(isTouched());
  pasteByMenu(box(), before);
  EXPECT_EQ(box().text(), before);
  EXPECT_TRUE(isTouched());
}

TEST_F(Pasting, TheSameTextByKeyCountsAsTyped) {
  show();
  first_->setValue(QStringLiteral("Ana"));
  enterAgain();
  ASSERT_EQ(first_->selLength(), 3);
  QApplication::clipboard()->setText(QStringLiteral("Ana"));
  press(*window_, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("Ana"));
  EXPECT_TRUE(first_->control().CurrentTyping().Touches);
}

class NumberThatDoesNotFit : public FieldFixture, public testing::WithParamInterface<Refused> {};

TEST_P(NumberThatDoesNotFit, LeavesTheTextAndBeeps) {
  first_->setMascara(QLatin1String(GetParam().mask));
  first_->setMaxLength(GetParam().maxLength);
  show();
  type(*window_, QStringLiteral("7"));
  for (const bool replacing : {true, false}) {
    box().setSelection(0, replacing ? 1 : 0);
    const int beeps = boxes_.beeps();
    pasteByMenu(box(), QString::fromUtf8(GetParam().text));
    EXPECT_EQ(first_->text(), QStringLiteral("7"));
    EXPECT_EQ(first_->selLength(), replacing ? 1 : 0);
    EXPECT_GT(boxes_.beeps(), beeps);
  }
}

TEST_P(NumberThatDoesNotFit, TouchesNothing) {
  first_->setMascara(QLatin1String(GetParam().mask));
  first_->setMaxLength(GetParam().maxLength);
  first_->setTipoDado(5);
  show();
  first_->setValue(1.239);
  enterAgain();
  pasteByMenu(box(), QString::fromUtf8(GetParam().text));
  EXPECT_FALSE(first_->control().CurrentTyping().Touches);
  leave();
  EXPECT_EQ(first_->value().toDouble(), 1.239);
}

INSTANTIATE_TEST_SUITE_P(
    Pasting, NumberThatDoesNotFit,
    testing::Values(Refused{"too many digits", "$$$$$$$.$$", "1.234.567.890,00", 12},
                    Refused{"a sign where none is allowed", "$$$$$.$$", "-12,50", 9},
                    Refused{"two commas", "$$$$$$$.$$", "12,50,3", 12}));

TEST_F(Pasting, ADropEntersAFieldWithoutTheFocus) {
  for (const char* mask : {"", "0000"}) {
    second_->setMascara(QLatin1String(mask));
    second_->setText(QString());
    bool changed = false;
    const auto link =
        QObject::connect(second_, &TsText::browseReturn, [&](bool& differs) { changed = differs; });
    show();
    drop(*editOf(*second_), QStringLiteral("1234"), 0);
    EXPECT_EQ(focusedField(), second_);
    EXPECT_EQ(second_->text(), QStringLiteral("1234"));
    first_->setFocus();
    settleEvents();
    EXPECT_TRUE(changed) << mask;
    EXPECT_EQ(second_->value().toString(), QStringLiteral("1234"));
    QObject::disconnect(link);
    second_->setValue(QStringLiteral("1"));
  }
}

TEST_F(Pasting, ADropIsRefusedWhileAnotherFieldKeepsTheFocus) {
  first_->setMascara(QStringLiteral("dd/mm/yyyy"));
  show();
  type(*window_, QStringLiteral("31022017"));
  drop(*editOf(*second_), QStringLiteral("1234"), 0);
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(second_->text(), QString());
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(Pasting, ReplacesTheSelectedSlots) {
  first_->setMascara(QStringLiteral("000.000.000-00"));
  show();
  type(*window_, QStringLiteral("99999999999"));
  box().selectAll();
  pasteByMenu(box(), QStringLiteral("123.456"));
  EXPECT_EQ(first_->text(), QStringLiteral("123.456.___-__"));
}

TEST_F(Pasting, KeepsTheTextWhenNothingFits) {
  first_->setMascara(QStringLiteral("00000"));
  show();
  type(*window_, QStringLiteral("12345"));
  box().selectAll();
  pasteByMenu(box(), QStringLiteral("abc."));
  EXPECT_EQ(first_->text(), QStringLiteral("12345"));
}

TEST_F(Pasting, ReplacesASelectedNumber) {
  first_->setMascara(QStringLiteral("$$$$$.$$"));
  first_->setMaxLength(9);
  show();
  type(*window_, QStringLiteral("99,5"));
  box().selectAll();
  pasteByMenu(box(), QStringLiteral("1,25"));
  EXPECT_EQ(first_->text(), QStringLiteral("1,25"));
}

TEST_F(Pasting, IsSettledLikeTypedText) {
  bool changed = false;
  QObject::connect(first_, &TsText::browseReturn, [&](bool& differs) { changed = differs; });
  first_->setMascara(QStringLiteral("000.000.000-00"));
  show();
  pasteByMenu(box(), QStringLiteral("123.456.789-09"));
  leave();
  EXPECT_TRUE(changed);
  EXPECT_EQ(first_->value().toString(), QStringLiteral("12345678909"));
}

TEST_F(Pasting, APasteThatBypassesTheMenuIsUndone) {
  first_->setMascara(QStringLiteral("0000"));
  show();
  type(*window_, QStringLiteral("12"));
  QApplication::clipboard()->setText(QStringLiteral("xyz"));
  static_cast<QLineEdit&>(box()).QLineEdit::paste();
  EXPECT_EQ(first_->text(), QStringLiteral("12__"));
  static_cast<QLineEdit&>(box()).QLineEdit::insert(QStringLiteral("zz"));
  EXPECT_EQ(first_->text(), QStringLiteral("12__"));
}

TEST_F(Pasting, APasteByNameGoesThroughTheFilter) {
  first_->setMascara(QStringLiteral("00/00"));
  show();
  QApplication::clipboard()->setText(QStringLiteral("1/23"));
  QMetaObject::invokeMethod(&box(), "paste");
  EXPECT_EQ(first_->text(), QStringLiteral("1_/23"));
}

TEST_F(Pasting, TheMiddleButtonPastesWhereTheSystemHasASelection) {
  if (!QApplication::clipboard()->supportsSelection())
    GTEST_SKIP() << "this platform has no selection clipboard";
  first_->setMascara(QStringLiteral("00/00"));
  show();
  QApplication::clipboard()->setText(QStringLiteral("12/34"), QClipboard::Selection);
  QTest::mouseClick(&box(), Qt::MiddleButton, {}, QPoint(2, box().height() / 2));
  EXPECT_EQ(first_->text(), QStringLiteral("12/34"));
}

TEST_F(Pasting, AnUnmaskedFieldAcceptsEverything) {
  show();
  pasteByMenu(box(), QStringLiteral("a.b/x-ção"));
  EXPECT_EQ(first_->text(), QStringLiteral("a.b/x-ção"));
  drop(box(), QStringLiteral("12"), 0);
  EXPECT_EQ(first_->text(), QStringLiteral("12a.b/x-ção"));
}

TEST_F(Pasting, TypedClipboardKeysWorkInAnUnmaskedField) {
  show();
  type(*window_, QStringLiteral("abc"));
  press(*window_, Qt::Key_A, Qt::ControlModifier);
  press(*window_, Qt::Key_X, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QString());
  press(*window_, Qt::Key_V, Qt::ControlModifier);
  press(*window_, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("abcabc"));
}

/// The ways to insert text into an unmasked field, which stop at its limit.
class FullField : public FieldFixture {
 protected:
  /// A field of six characters that already holds more.
  void ShowFull() {
    show();
    first_->setMaxLength(6);
    first_->setText(QStringLiteral("abcdefgh"));
    box().setSelection(1, 6);
  }
};

TEST_F(FullField, IsFilledByThePasteKeyUpToItsLimit) {
  ShowFull();
  QApplication::clipboard()->setText(QStringLiteral("123456"));
  press(*window_, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("a1234h"));
  press(*window_, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("a1234h"));
}

TEST_F(FullField, AcceptsTheTextOfAnInputMethodAsFarAsThereIsRoom) {
  ShowFull();
  commit(*window_, QStringLiteral("日本語日本語"));
  EXPECT_EQ(first_->text(), QStringLiteral("a日本語日h"));
  commit(*window_, QStringLiteral("日"));
  EXPECT_EQ(first_->text(), QStringLiteral("a日本語日h"));
}

TEST_F(FullField, AcceptsADropAsFarAsThereIsRoom) {
  show();
  first_->setMaxLength(6);
  first_->setText(QStringLiteral("abcd"));
  std::vector<int> ups;
  QObject::connect(first_, &TsText::keyUp, [&](qint16& code) { ups.push_back(code); });
  drop(box(), QStringLiteral("1234"), 0);
  EXPECT_EQ(first_->text(), QStringLiteral("12abcd"));
  EXPECT_THAT(ups, testing::ElementsAre(0));
  drop(box(), QStringLiteral("5"), 0);
  EXPECT_EQ(first_->text(), QStringLiteral("12abcd"));
}

TEST_F(FullField, AcceptsTheTextOfTheMiddleButtonAsFarAsThereIsRoom) {
  if (!QApplication::clipboard()->supportsSelection())
    GTEST_SKIP() << "this platform has no selection clipboard";
  show();
  first_->setMaxLength(6);
  first_->setText(QStringLiteral("abcd"));
  QApplication::clipboard()->setText(QStringLiteral("1234"), QClipboard::Selection);
  QTest::mouseClick(&box(), Qt::MiddleButton, {}, QPoint(2, box().height() / 2));
  EXPECT_EQ(first_->text(), QStringLiteral("12abcd"));
}

TEST_F(FullField, UndoesATextThatBypassesTheKeysAndHasNoRoom) {
  ShowFull();
  static_cast<QLineEdit&>(box()).QLineEdit::setText(QStringLiteral("123456789"));
  EXPECT_EQ(first_->text(), QStringLiteral("abcdefgh"));
  static_cast<QLineEdit&>(box()).QLineEdit::setText(QStringLiteral("123456"));
  EXPECT_EQ(first_->text(), QStringLiteral("123456"));
}

TEST_F(FullField, RestoresADeletionInATextLongerThanItsLimit) {
  ShowFull();
  press(*window_, Qt::Key_Delete);
  EXPECT_EQ(first_->text(), QStringLiteral("ah"));
  press(*window_, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("abcdefgh"));
}

TEST_F(Pasting, TheMenuOfAMaskedFieldCopiesTheSelection) {
  first_->setMascara(QStringLiteral("00/00"));
  show();
  type(*window_, QStringLiteral("1234"));
  box().deselect();
  QApplication::clipboard()->clear();
  EXPECT_EQ(menuOf(box()),
            QStringList({"-Recortar", "-Copiar", "-Colar", "-Excluir", "Selecionar tudo"}));
  box().selectAll();
  box().copy();
  EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("12/34"));
  static_cast<LineEdit&>(box()).cut();
  EXPECT_EQ(first_->text(), QStringLiteral("__/__"));
}

TEST_F(Pasting, APasswordIsNotCopiedOut) {
  first_->setMascara(QStringLiteral("XXXXXX"));
  first_->setPasswordChar(QStringLiteral("*"));
  show();
  type(*window_, QStringLiteral("abc"));
  box().selectAll();
  EXPECT_TRUE(menuOf(box()).contains(QStringLiteral("-Copiar")));
  EXPECT_EQ(first_->texto(), QStringLiteral("abc"));
}

}  // namespace
}  // namespace tessaria::qt::tests

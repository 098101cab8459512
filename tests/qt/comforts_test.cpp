// Comforts of the Qt host: keys of the clipboard and undo, whole pastes, dark palettes.
#include <QApplication>
#include <QClipboard>
#include <QTest>
#include <QToolButton>
#include <QToolTip>

#include "hosts/qt/keys/line_edit.h"
#include "tessaria/comforts.h"
#include "tessaria/tstext.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

class WithComforts : public FieldFixture {
 protected:
  explicit WithComforts(const Comforts& wanted) { setComforts(wanted); }
  ~WithComforts() override { setComforts({}); }
  void start(const char* mask, const char* text = "", int maxLength = 0) {
    first_->setMascara(QLatin1String(mask));
    first_->setMaxLength(maxLength);
    show();
    type(*window_, QLatin1String(text));
  }
  LineEdit& edit() { return static_cast<LineEdit&>(box()); }
  QString typed() { return QString::fromStdU16String(first_->control().Texto()); }
  void keys(int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    press(*window_, key, modifiers);
  }
  QString clipboard() { return QApplication::clipboard()->text(); }
};

// --- Enter

class EnterMovesOn : public WithComforts {
 protected:
  EnterMovesOn() : WithComforts({.EnterMovesOn = true}) {}
  void enter() {
    press(*window_, Qt::Key_Return);
    settleEvents();
  }
};

TEST_F(EnterMovesOn, ToTheNextFieldWhichSettlesTheOneThatIsLeft) {
  start("dd/mm/yyyy", "25122017");
  enter();
  EXPECT_EQ(focusedField(), second_);
  EXPECT_EQ(first_->value(), QVariant(QStringLiteral("25122017")));
  press(*window_, Qt::Key_Enter, Qt::KeypadModifier);
  settleEvents();
  EXPECT_EQ(focusOf(*window_), button_);
}

TEST_F(EnterMovesOn, NotOutOfARefusedField) {
  start("dd/mm/yyyy", "31022017");
  enter();
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(EnterMovesOn, AKeyThatIsHeldSinceADialogMovesNowhere) {
  start("", "a");
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
  QApplication::sendEvent(focusOf(*window_), &held);
  settleEvents();
  EXPECT_EQ(focusedField(), first_);
}

TEST_F(EnterMovesOn, WhereADefaultButtonIsItIsPressed) {
  int clicks = 0;
  button_->setDefault(true);
  QObject::connect(button_, &QPushButton::clicked, [&] { ++clicks; });
  start("", "a");
  enter();
  EXPECT_EQ(clicks, 1);
}

TEST_F(EnterMovesOn, ALineEndsInSeveralLines) {
  first_->setMultiLineText(true);
  show();
  enter();
  EXPECT_EQ(focusedField(), first_);
  EXPECT_EQ(first_->text(), QStringLiteral("\r\n"));
}

TEST_F(EnterMovesOn, OnlyWithTheComfort) {
  setComforts({});
  start("", "a");
  enter();
  EXPECT_EQ(focusedField(), first_);
}

// --- Keys of the clipboard

class ClipboardKeys : public WithComforts {
 protected:
  ClipboardKeys() : WithComforts({.ClipboardKeys = true}) {}
};

struct Pair {
  int key;
  Qt::KeyboardModifiers modifiers;
};

TEST_F(ClipboardKeys, SelectAndCopy) {
  for (const Pair& copy :
       {Pair{Qt::Key_C, Qt::ControlModifier}, Pair{Qt::Key_Insert, Qt::ControlModifier}}) {
    QApplication::clipboard()->setText(QStringLiteral("antes"));
    start("000-0", "1234");
    keys(Qt::Key_A);
    EXPECT_EQ(first_->selLength(), 5);
    keys(copy.key, copy.modifiers);
    EXPECT_EQ(clipboard(), QStringLiteral("123-4"));
    EXPECT_EQ(first_->text(), QStringLiteral("123-4"));
    leave();
  }
}

TEST_F(ClipboardKeys, CutEmptiesTheSlots) {
  for (const Pair& cut :
       {Pair{Qt::Key_X, Qt::ControlModifier}, Pair{Qt::Key_Delete, Qt::ShiftModifier}}) {
    first_->setText(QString());
    start("000-0", "1234");
    edit().setSelection(1, 4);
    keys(cut.key, cut.modifiers);
    EXPECT_EQ(clipboard(), QStringLiteral("23-4"));
    EXPECT_EQ(first_->text(), QStringLiteral("1__-_"));
    leave();
  }
}

TEST_F(ClipboardKeys, PasteGoesThroughTheFilter) {
  for (const Pair& paste :
       {Pair{Qt::Key_V, Qt::ControlModifier}, Pair{Qt::Key_Insert, Qt::ShiftModifier}}) {
    first_->setText(QString());
    QApplication::clipboard()->setText(QStringLiteral("1a23-45"));
    start("000-0");
    std::vector<int> ups;
    const auto link =
        QObject::connect(first_, &TsText::keyUp, [&](qint16& code) { ups.push_back(code); });
    keys(paste.key, paste.modifiers);
    EXPECT_EQ(first_->text(), QStringLiteral("123-4"));
    // The modifier's own key is released after it.
    ASSERT_EQ(ups.size(), 2u);
    EXPECT_EQ(ups[0], paste.key == Qt::Key_V ? 86 : 45);
    QObject::disconnect(link);
    leave();
  }
}

TEST_F(ClipboardKeys, AProgramMayDiscardThem) {
  QObject::connect(first_, &TsText::keyDown, [](qint16& code) {
    if (code == 'V') code = 0;
  });
  QApplication::clipboard()->setText(QStringLiteral("123"));
  start("0000");
  keys(Qt::Key_V);
  EXPECT_EQ(first_->text().count(QLatin1Char('_')) + first_->text().isEmpty() * 4, 4);
}

TEST_F(ClipboardKeys, UndoAndRedoOfTheMenuAreTextWithoutAKey) {
  start("00/00", "12");
  std::vector<int> ups;
  QObject::connect(first_, &TsText::keyUp, [&](qint16& code) { ups.push_back(code); });
  edit().undo();
  edit().redo();
  EXPECT_EQ(ups, std::vector<int>({0, 0}));
  ups.clear();
  keys(Qt::Key_Z);
  EXPECT_EQ(std::count(ups.begin(), ups.end(), 0), 0);
}

TEST_F(ClipboardKeys, UndoTakesOneEditBack) {
  start("00/00", "123");
  keys(Qt::Key_Z);
  EXPECT_EQ(first_->text(), QStringLiteral("12/__"));
  EXPECT_EQ(typed(), first_->text());
  EXPECT_EQ(first_->selStart(), 3);
  keys(Qt::Key_Z);
  EXPECT_EQ(first_->text(), QStringLiteral("1_/__"));
  keys(Qt::Key_Y);
  keys(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(first_->text(), QStringLiteral("12/3_"));
  EXPECT_EQ(typed(), first_->text());
  keys(Qt::Key_Y);
  EXPECT_EQ(first_->text(), QStringLiteral("12/3_"));
}

TEST_F(ClipboardKeys, OnePasteIsOneEdit) {
  start("00/00", "9");
  keys(Qt::Key_A);
  QApplication::clipboard()->setText(QStringLiteral("12/34"));
  keys(Qt::Key_V);
  EXPECT_EQ(first_->text(), QStringLiteral("12/34"));
  keys(Qt::Key_Z);
  EXPECT_EQ(first_->text(), QStringLiteral("9_/__"));
  EXPECT_EQ(first_->selLength(), 5);
}

TEST_F(ClipboardKeys, UndoOfANumberRestoresItsSign) {
  first_->setValorNegativo(true);
  start("$$$$$.$$", "12,5", 10);
  press(*window_, Qt::Key_Minus);
  type(*window_, QStringLiteral("-"));
  EXPECT_EQ(first_->text(), QStringLiteral("-12,5"));
  keys(Qt::Key_Z);
  EXPECT_EQ(first_->text(), QStringLiteral("12,5"));
  keys(Qt::Key_Y);
  EXPECT_EQ(first_->text(), QStringLiteral("-12,5"));
}

TEST_F(ClipboardKeys, UndoOfAPasswordRestoresTheTextBehindIt) {
  first_->setPasswordChar(QStringLiteral("*"));
  start("XXXX", "ab");
  keys(Qt::Key_Z);
  EXPECT_EQ(typed(), QStringLiteral("a"));
  EXPECT_EQ(first_->text(), QStringLiteral("*"));
}

TEST_F(ClipboardKeys, AnAssignmentOfTheProgramIsNotAnEdit) {
  start("0000", "12");
  first_->setValue(QStringLiteral("7777"));
  keys(Qt::Key_Z);
  EXPECT_EQ(first_->text(), QStringLiteral("7777"));
}

TEST_F(ClipboardKeys, UndoEndsWhereTheFieldWasEntered) {
  start("####", "12");
  leave();
  first_->setFocus();
  settleEvents();
  const QString entered = first_->text();
  keys(Qt::Key_Z);
  EXPECT_EQ(first_->text(), entered);
}

TEST_F(ClipboardKeys, TheMenuOffersUndo) {
  start("0000", "12");
  EXPECT_EQ(menuOf(box()).mid(0, 2), QStringList({"Desfazer", "-Refazer"}));
}

// --- Whole pastes

class WholePaste : public WithComforts {
 protected:
  WholePaste() : WithComforts({.PasteWholeOrNothing = true}) {}
  void expectRefused(const QString& before) {
    EXPECT_EQ(first_->text(), before);
    EXPECT_GE(boxes_.beeps(), 1);
    EXPECT_EQ(box().accessibleDescription(),
              QStringLiteral("O texto não cabe neste campo e não foi colado."));
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
  }
};

struct Refused {
  const char* name;
  const char* mask;
  const char* typed;
  const char* pasted;
  int maxLength = 0;
};
void PrintTo(const Refused& row, std::ostream* out) { *out << row.name; }

class RefusedPaste : public WholePaste, public testing::WithParamInterface<Refused> {};

TEST_P(RefusedPaste, LeavesTheFieldUnchangedAndReportsIt) {
  const Refused& row = GetParam();
  start(row.mask, row.typed, row.maxLength);
  const QString before = first_->text();
  const QString typedBefore = typed();
  int changes = 0;
  QObject::connect(first_, &TsText::changed, [&] { ++changes; });
  pasteByMenu(box(), QString::fromUtf8(row.pasted));
  expectRefused(before);
  EXPECT_EQ(typed(), typedBefore);
  EXPECT_EQ(changes, 0);
}

TEST_P(RefusedPaste, TouchesNothing) {
  const Refused& row = GetParam();
  start(row.mask, row.typed, row.maxLength);
  enterAgain();
  box().setCursorPosition(int(qstrlen(row.typed)));
  ASSERT_FALSE(first_->control().CurrentTyping().Touches);
  pasteByMenu(box(), QString::fromUtf8(row.pasted));
  EXPECT_FALSE(first_->control().CurrentTyping().Touches);
}

INSTANTIATE_TEST_SUITE_P(
    Comforts, RefusedPaste,
    testing::Values(Refused{"a letter in a slot of digits", "00000", "12", "3a"},
                    Refused{"more than the mask holds", "00000-000", "", "01310-1009"},
                    Refused{"an accent", "AAAA", "", "ação"},
                    Refused{"two lines", "AAAA", "", "ab\ncd"},
                    Refused{"a number with letters", "$$$$$.$$", "", "12kg", 9},
                    Refused{"a number that is too long", "$$$$$.$$", "7", "123456789,00", 9},
                    Refused{"more than MaxLength", "", "ab", "cde", 4}));

TEST_F(WholePaste, ATextThatFitsIsPasted) {
  start("000.000.000-00");
  pasteByMenu(box(), QStringLiteral(" 123.456.789-09\n"));
  EXPECT_EQ(first_->text(), QStringLiteral("123.456.789-09"));
  EXPECT_EQ(boxes_.beeps(), 0);
}

TEST_F(WholePaste, ANumberMayHaveItsCurrency) {
  start("$$$$$$$.$$", "", 12);
  pasteByMenu(box(), QStringLiteral("R$ 1.234,56"));
  EXPECT_EQ(first_->text(), QStringLiteral("1234,56"));
}

TEST_F(WholePaste, WithoutAMaskByKeyAndDrop) {
  start("", "ab", 4);
  QApplication::clipboard()->setText(QStringLiteral("cde"));
  keys(Qt::Key_V);
  expectRefused(QStringLiteral("ab"));
  EXPECT_EQ(QToolTip::text(), box().accessibleDescription());
  drop(box(), QStringLiteral("cde"), 0);
  EXPECT_EQ(first_->text(), QStringLiteral("ab"));
  EXPECT_EQ(boxes_.beeps(), 2);
  QApplication::clipboard()->setText(QStringLiteral("cd"));
  keys(Qt::Key_V);
  EXPECT_EQ(first_->text(), QStringLiteral("cdab"));
  EXPECT_EQ(box().accessibleDescription(), QString());
}

// The part that would fit is not pasted either.
TEST_F(WholePaste, IntoAMaskByDrop) {
  start("00000", "12");
  const QString before = first_->text();
  drop(box(), QStringLiteral("3a"), 2);
  expectRefused(before);
}

TEST_F(WholePaste, IntoAMaskByTheMiddleButton) {
  if (!QApplication::clipboard()->supportsSelection()) GTEST_SKIP() << "no selection to paste";
  start("00000", "12");
  const QString before = first_->text();
  QApplication::clipboard()->setText(QStringLiteral("3a"), QClipboard::Selection);
  QTest::mouseClick(&box(), Qt::MiddleButton);
  settleEvents();
  expectRefused(before);
}

TEST_F(WholePaste, ASelectionProvidesRoom) {
  start("", "abcd", 4);
  box().selectAll();
  QApplication::clipboard()->setText(QStringLiteral("wxyz"));
  keys(Qt::Key_V);
  EXPECT_EQ(first_->text(), QStringLiteral("wxyz"));
}

// --- Dark palettes

QPalette darkPalette() {
  QPalette dark;
  dark.setColor(QPalette::Window, QColor(40, 40, 40));
  dark.setColor(QPalette::WindowText, Qt::white);
  dark.setColor(QPalette::Base, QColor(25, 25, 25));
  dark.setColor(QPalette::Text, Qt::white);
  return dark;
}

class DarkPalette : public WithComforts {
 protected:
  DarkPalette() : WithComforts({.DarkPalette = true}) {}
  QColor boxColour(QPalette::ColorRole role) {
    return box().palette().color(QPalette::Active, role);
  }
  QImage iconImage() {
    auto* button = first_->findChild<QToolButton*>(QStringLiteral("btnBrowse"));
    return button->icon().pixmap(16, 16).toImage();
  }
  int iconLightness() {
    const QImage image = iconImage();
    int lightness = 0;
    int seen = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        if (image.pixelColor(x, y).alpha() > 200)
          lightness += image.pixelColor(x, y).lightness(), ++seen;
    return seen == 0 ? -1 : lightness / seen;
  }
};

TEST_F(DarkPalette, TheBoxTakesTheThemesBase) {
  window_->setPalette(darkPalette());
  show();
  EXPECT_EQ(boxColour(QPalette::Base), QColor(25, 25, 25));
  EXPECT_EQ(boxColour(QPalette::Text), QColor(Qt::white));
  window_->setPalette(QPalette());
  EXPECT_GT(boxColour(QPalette::Base).lightness(), 200);
}

TEST_F(DarkPalette, BlueIsALighterBlue) {
  window_->setPalette(darkPalette());
  show();
  first_->setTipoControle(TsText::Descricao);
  const QColor text = boxColour(QPalette::Text);
  EXPECT_GT(text.lightness(), 130);
  EXPECT_GT(text.blue(), text.red());
}

TEST_F(DarkPalette, IconsAreLight) {
  first_->setTipoControle(TsText::Calendario);
  show();
  const int before = iconLightness();
  window_->setPalette(darkPalette());
  EXPECT_GT(iconLightness(), before);
}

TEST_F(DarkPalette, WithoutTheComfortBoxesStayWhiteOnly) {
  setComforts({});
  first_->setTipoControle(TsText::Calendario);
  show();
  const int before = iconLightness();
  window_->setPalette(darkPalette());
  settleEvents();
  EXPECT_EQ(boxColour(QPalette::Base), QColor(Qt::white));
  EXPECT_GT(iconLightness(), before) << "the button is dark";
}

}  // namespace
}  // namespace tessaria::qt::tests

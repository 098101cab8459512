// Completion of a description while it is typed: the selected tail after each key.
#include <QInputMethodEvent>

#include "tests/qt/completion_fixture.h"

namespace tessaria::qt::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Completion : public CompletionFixture {
 protected:
  void SetUp() override {
    CompletionFixture::SetUp();
    if (!IsSkipped()) showCity();
  }
  void TearDown() override {
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
    CompletionFixture::TearDown();
  }
  QString code() const { return city_.key->value().toString(); }
};

struct Step {
  const char* typed;
  const char* inFront;
  const char* selected;
  const char* code;
};

TEST_F(Completion, EachKeyCompletesAndSelectsTheTail) {
  const Step steps[] = {
      {"S", "S", "antos", "00001"},     {"ã", "Sã", "o Carlos", "00002"},
      {"o", "São", " Carlos", "00002"}, {" ", "São ", "Carlos", "00002"},
      {"X", "São X", "", "00002"},  // no row: text and code stay
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.typed);
    type(*window_, QString::fromUtf8(step.typed));
    expectBox(QString::fromUtf8(step.inFront), QString::fromUtf8(step.selected));
    EXPECT_EQ(code(), QLatin1String(step.code));
  }
}

TEST_F(Completion, TheTypedCaseIsReplacedByThatOfTheRow) {
  type(*window_, QStringLiteral("uBE"));
  expectBox(QStringLiteral("Ube"), QStringLiteral("raba"));
  type(*window_, QStringLiteral("R"));
  expectBox(QStringLiteral("Uber"), QStringLiteral("aba"));
}

TEST_F(Completion, AKeyUpSendsOneSearchAndTheCheckOfTheKey) {
  type(*window_, QStringLiteral("U"));
  const auto sent = connection_->takeStatements();
  EXPECT_EQ(sent.front(), u"Select nome, codigo From cidades Where nome ilike 'U%' Limit 1");
  EXPECT_EQ(sent.back(),
            u"Select nome From cidades Where cast(codigo as varchar) = cast('00004' as varchar) "
            u"Limit 1");
  EXPECT_THAT(sent, SizeIs(2));
}

TEST_F(Completion, TheKeyReportsEachCompletionOnce) {
  int reports = 0;
  QObject::connect(city_.key, &TsText::browseReturn, [&] { ++reports; });
  type(*window_, QStringLiteral("Ub"));
  EXPECT_EQ(reports, 2);
}

TEST_F(Completion, CapitalsByShiftSearchOnceForTheLetter) {
  QTest::sendKeyEvent(QTest::Press, &box(), Qt::Key_Shift, QString(), Qt::ShiftModifier);
  QTest::sendKeyEvent(QTest::Click, &box(), Qt::Key_U, QStringLiteral("U"), Qt::ShiftModifier);
  connection_->takeStatements();
  QTest::sendKeyEvent(QTest::Release, &box(), Qt::Key_Shift, QString(), Qt::NoModifier);
  EXPECT_THAT(connection_->takeStatements(), IsEmpty());
  expectBox(QStringLiteral("U"), QStringLiteral("beraba"));
}

TEST_F(Completion, AHeldKeyRepeatsAndSearchesWhenItIsReleased) {
  queue(QEvent::KeyPress, Qt::Key_U, QStringLiteral("u"));
  for (int i = 0; i < 2; ++i) {
    queue(QEvent::KeyRelease, Qt::Key_U, QStringLiteral("u"), true);
    queue(QEvent::KeyPress, Qt::Key_U, QStringLiteral("u"), true);
  }
  settleAll();
  EXPECT_THAT(connection_->takeStatements(), IsEmpty());
  expectBox(QStringLiteral("uuu"), QString());
  queue(QEvent::KeyRelease, Qt::Key_U, QStringLiteral("u"));
  settleAll();
  EXPECT_THAT(connection_->takeStatements(), SizeIs(1));
  expectBox(QStringLiteral("uuu"), QString());
}

TEST_F(Completion, AHeldBackspaceEmptiesTheSelectionThenTheText) {
  type(*window_, QStringLiteral("Uber"));
  queue(QEvent::KeyPress, Qt::Key_Backspace);
  for (int i = 0; i < 2; ++i) {
    queue(QEvent::KeyRelease, Qt::Key_Backspace, {}, true);
    queue(QEvent::KeyPress, Qt::Key_Backspace, {}, true);
  }
  queue(QEvent::KeyRelease, Qt::Key_Backspace);
  settleAll();
  // "Uber" minus two characters by the box and one by the search.
  expectBox(QStringLiteral("U"), QStringLiteral("beraba"));
}

TEST_F(Completion, BackspaceShortensTheTypedPart) {
  type(*window_, QStringLiteral("Uba"));
  expectBox(QStringLiteral("Uba"), QStringLiteral("tuba"));
  press(*window_, Qt::Key_Backspace);
  expectBox(QStringLiteral("Ub"), QStringLiteral("eraba"));
  EXPECT_EQ(code(), QStringLiteral("00004"));
  press(*window_, Qt::Key_Backspace);
  expectBox(QStringLiteral("U"), QStringLiteral("beraba"));
}

// The box is emptied, and every row begins with the empty text.
TEST_F(Completion, BackspaceOnTheLastCharacterFindsTheFirstRow) {
  type(*window_, QStringLiteral("U"));
  press(*window_, Qt::Key_Backspace);
  expectBox(QString(), QStringLiteral("Santos"));
  EXPECT_EQ(code(), QStringLiteral("00001"));
}

TEST_F(Completion, HomeSearchesNothingAndKeepsTheText) {
  type(*window_, QStringLiteral("Ub"));
  connection_->takeStatements();
  press(*window_, Qt::Key_Home);
  EXPECT_THAT(connection_->takeStatements(), IsEmpty());
  EXPECT_EQ(box().text(), QStringLiteral("Uberaba"));
  EXPECT_EQ(box().cursorPosition(), 0);
}

// Their key-up searches for the whole text, so that the caret ends behind it.
TEST_F(Completion, EveryOtherKeyWithoutATextSearchesForTheWholeText) {
  for (int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down, Qt::Key_End,
                  Qt::Key_Control, Qt::Key_F2}) {
    SCOPED_TRACE(key);
    box().clear();
    type(*window_, QStringLiteral("Ub"));
    connection_->takeStatements();
    press(*window_, key);
    const auto sent = connection_->takeStatements();
    ASSERT_FALSE(sent.empty());
    EXPECT_EQ(sent.front(),
              u"Select nome, codigo From cidades Where nome ilike 'Uberaba%' Limit 1");
    expectBox(QStringLiteral("Uberaba"), QString());
  }
}

TEST_F(Completion, EndAcceptsTheTailAndTheNextKeyIsTypedAfterIt) {
  type(*window_, QStringLiteral("Ma"));
  expectBox(QStringLiteral("Ma"), QStringLiteral("ria da Fé"));
  press(*window_, Qt::Key_End);
  type(*window_, QStringLiteral("!"));
  expectBox(QStringLiteral("Maria da Fé!"), QString());
}

TEST_F(Completion, DeleteRemovesTheSelectedTailAndItIsCompletedAgain) {
  type(*window_, QStringLiteral("Ube"));
  press(*window_, Qt::Key_Delete);
  expectBox(QStringLiteral("Ube"), QStringLiteral("raba"));
}

TEST_F(Completion, AnAccentFromADeadKeyCompletesOnce) {
  QTest::sendKeyEvent(QTest::Release, &box(), Qt::Key_Dead_Acute, QString(), Qt::NoModifier);
  EXPECT_THAT(connection_->takeStatements(), IsEmpty());
  commit(*window_, QStringLiteral("Á"));
  expectBox(QStringLiteral("Á"), QStringLiteral("gua Funda"));
  EXPECT_EQ(code(), QStringLiteral("00003"));
  // The letter's release arrives without a press.
  connection_->takeStatements();
  QTest::sendKeyEvent(QTest::Release, &box(), Qt::Key_A, QString(), Qt::NoModifier);
  EXPECT_THAT(connection_->takeStatements(), IsEmpty());
}

TEST_F(Completion, AnAccentKeyAloneSearchesNothing) {
  type(*window_, QStringLiteral("Ub"));
  connection_->takeStatements();
  for (int key : {Qt::Key_Dead_Acute, Qt::Key_Dead_Tilde}) press(*window_, key);
  EXPECT_THAT(connection_->takeStatements(), IsEmpty());
  expectBox(QStringLiteral("Ub"), QStringLiteral("eraba"));
}

TEST_F(Completion, APreEditWaitsForItsCommit) {
  QInputMethodEvent compose(QStringLiteral("´"), {});
  QCoreApplication::sendEvent(&box(), &compose);
  EXPECT_THAT(connection_->takeStatements(), IsEmpty());
  commit(*window_, QStringLiteral("á"));
  expectBox(QStringLiteral("Á"), QStringLiteral("gua Funda"));
}

TEST_F(Completion, SeveralCharactersOfOneCommitCompleteOnce) {
  commit(*window_, QStringLiteral("São"));
  EXPECT_THAT(connection_->takeStatements(), SizeIs(2));
  expectBox(QStringLiteral("São"), QStringLiteral(" Carlos"));
}

TEST_F(Completion, PastedTextCompletes) {
  pasteByMenu(box(), QStringLiteral("Uba"));
  expectBox(QStringLiteral("Uba"), QStringLiteral("tuba"));
}

TEST_F(Completion, QueuedKeysAreHandledOneAfterTheOther) {
  queueText(QStringLiteral("São C"));
  EXPECT_EQ(box().text(), QString());
  settleAll();
  expectBox(QStringLiteral("São C"), QStringLiteral("arlos"));
  EXPECT_EQ(code(), QStringLiteral("00002"));
}

// A key-up searches for what the box then holds, including the tail of the search before it.
TEST_F(Completion, AKeyReleasedAfterTheNextWasPressedIncludesTheTail) {
  for (const char* c : {"u", "b", "a"})
    queue(QEvent::KeyPress, keyOf(QLatin1Char(*c)), QLatin1String(c));
  settleAll();
  EXPECT_THAT(connection_->takeStatements(), IsEmpty());
  expectBox(QStringLiteral("uba"), QString());
  queue(QEvent::KeyRelease, Qt::Key_U);
  settleAll();
  expectBox(QStringLiteral("Uba"), QStringLiteral("tuba"));
  queue(QEvent::KeyRelease, Qt::Key_B);
  settleAll();
  expectBox(QStringLiteral("Ubatuba"), QString());
  queue(QEvent::KeyRelease, Qt::Key_A);
  settleAll();
  expectBox(QStringLiteral("Ubatuba"), QString());
  EXPECT_EQ(code(), QStringLiteral("00013"));
}

TEST_F(Completion, MaxLengthLimitsTypedTextAndNotFoundText) {
  city_.name->setMaxLength(5);
  type(*window_, QStringLiteral("Ub"));
  expectBox(QStringLiteral("Ub"), QStringLiteral("eraba"));
}

TEST_F(Completion, APercentSignIsAPlaceholderAndATypedOneFindsItsRow) {
  type(*window_, QStringLiteral("100%"));
  expectBox(QStringLiteral("100%"), QStringLiteral(" Rural"));
  EXPECT_EQ(code(), QStringLiteral("00008"));
}

// The sibling's code at the time of entering narrows the search.
TEST_F(Completion, ADescriptionEnteredWithACodeIsSearchedOnlyInTheRowsOfThatCode) {
  type(*window_, QStringLiteral("Uba"));
  enter(city_.key);
  enter(city_.name);
  connection_->takeStatements();
  type(*window_, QStringLiteral("S"));
  EXPECT_EQ(connection_->takeStatements().front(),
            u"Select nome, codigo From cidades Where codigo = '00013' And nome ilike 'S%' Limit 1");
  expectBox(QStringLiteral("S"), QString());
}

TEST_F(Completion, TabbingOverAFilledPairFetchesNothingAndTheDescriptionStaysSelected) {
  type(*window_, QStringLiteral("Uba"));
  for (TsText* field : {city_.key, city_.name}) field->setUsaChecaRelacao(false);
  enter(button_);
  enter(city_.key);
  connection_->takeStatements();
  const std::pair<int, const char*> steps[] = {{Qt::Key_Tab, "desCidade"},
                                               {Qt::Key_Tab, "btnGravar"},
                                               {Qt::Key_Backtab, "desCidade"},
                                               {Qt::Key_Backtab, "codCidade"}};
  for (const auto& [key, reached] : steps) {
    queueKey(key);
    settleAll();
    EXPECT_EQ(focusName(), QLatin1String(reached));
    EXPECT_THAT(connection_->takeStatements(), IsEmpty()) << reached;
    EXPECT_EQ(box().text(), QStringLiteral("Ubatuba"));
    if (focusName() == QLatin1String("desCidade")) {
      EXPECT_EQ(box().selectedText(), QStringLiteral("Ubatuba"));
    }
  }
  EXPECT_EQ(code(), QStringLiteral("00013"));
}

}  // namespace
}  // namespace tessaria::qt::tests

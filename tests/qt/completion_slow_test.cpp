// Keys that are typed while the database is busy: none is lost, and their order is kept.
#include <QElapsedTimer>
#include <QInputMethodEvent>

#include "tests/qt/completion_fixture.h"

namespace tessaria::qt::tests {
namespace {

using testing::Gt;
using testing::SizeIs;

class SlowCompletion : public CompletionFixture {
 protected:
  void SetUp() override {
    CompletionFixture::SetUp();
    if (!IsSkipped()) showCity();
  }
  void TearDown() override {
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
    CompletionFixture::TearDown();
  }

  /// What the operator sees of the pair, and where the focus is.
  QStringList state() const {
    return {city_.name->text(), city_.key->text(), city_.name->value().toString(),
            city_.key->value().toString(), focusName()};
  }
  /// Runs once, while the statement with that number, counted from 0 from now on, is executed.
  void duringStatement(int number, std::function<void()> act) {
    remaining_ = number;
    connection_->during = [this, act = std::move(act)](const String&) {
      if (remaining_-- == 0) act();
    };
  }

  int remaining_ = 0;
};

// Keys that arrive during any statement of a key's search are handled after the whole search.
TEST_F(SlowCompletion, KeysFromTheWindowSystemComeAfterTheSearch) {
  for (int statement : {0, 1}) {
    SCOPED_TRACE(statement);
    newWindow();
    showCity();
    duringStatement(statement, [this] { queueText(QStringLiteral("ba")); });
    type(*window_, QStringLiteral("U"));
    expectBox(QStringLiteral("U"), QStringLiteral("beraba"));
    settleAll();
    expectBox(QStringLiteral("Uba"), QStringLiteral("tuba"));
    EXPECT_EQ(city_.key->value().toString(), QStringLiteral("00013"));
  }
}

TEST_F(SlowCompletion, PostedKeysComeAfterTheSearch) {
  duringStatement(1, [this] {
    for (const char* c : {"b", "a"})
      for (auto type : {QEvent::KeyPress, QEvent::KeyRelease})
        QCoreApplication::postEvent(
            &box(), new QKeyEvent(type, keyOf(QLatin1Char(*c)), Qt::NoModifier, QLatin1String(c)));
  });
  type(*window_, QStringLiteral("U"));
  expectBox(QStringLiteral("U"), QStringLiteral("beraba"));
  settleAll();
  expectBox(QStringLiteral("Uba"), QStringLiteral("tuba"));
}

TEST_F(SlowCompletion, PostedTextOfAnInputMethodComesAfterTheSearch) {
  duringStatement(1, [this] {
    auto* event = new QInputMethodEvent;
    event->setCommitString(QStringLiteral("ã"));
    QCoreApplication::postEvent(&box(), event);
    QCoreApplication::postEvent(
        &box(), new QKeyEvent(QEvent::KeyPress, Qt::Key_O, Qt::NoModifier, QStringLiteral("o")));
  });
  type(*window_, QStringLiteral("S"));
  expectBox(QStringLiteral("S"), QStringLiteral("antos"));
  settleAll();
  EXPECT_EQ(box().text(), QStringLiteral("São"));
}

TEST_F(SlowCompletion, BackspaceAndArrowsAlsoWait) {
  duringStatement(1, [this] {
    queueText(QStringLiteral("ba"));
    queueKey(Qt::Key_Backspace);
    queueKey(Qt::Key_Home);
  });
  type(*window_, QStringLiteral("U"));
  settleAll();
  EXPECT_EQ(box().text(), QStringLiteral("Uberaba"));
  EXPECT_EQ(box().cursorPosition(), 0);
}

TEST_F(SlowCompletion, AHeldKeyWaitsAndItsAutoRepeatReleasesAreIgnored) {
  duringStatement(0, [this] {
    queue(QEvent::KeyPress, Qt::Key_X, QStringLiteral("x"));
    for (int i = 0; i < 3; ++i) {
      queue(QEvent::KeyRelease, Qt::Key_X, QStringLiteral("x"), true);
      queue(QEvent::KeyPress, Qt::Key_X, QStringLiteral("x"), true);
    }
    queue(QEvent::KeyRelease, Qt::Key_X, QStringLiteral("x"));
  });
  type(*window_, QStringLiteral("U"));
  connection_->takeStatements();
  settleAll();
  EXPECT_THAT(connection_->takeStatements(), SizeIs(1));
  expectBox(QStringLiteral("Uxxxx"), QString());
}

TEST_F(SlowCompletion, ATabTypedMeanwhileMovesTheFocusAfterwards) {
  duringStatement(1, [this] { queueKey(Qt::Key_Tab); });
  type(*window_, QStringLiteral("Uba"));
  settleAll();
  EXPECT_EQ(focusName(), QStringLiteral("btnGravar"));
  EXPECT_EQ(city_.name->value().toString(), QStringLiteral("Ubatuba"));
  EXPECT_EQ(city_.key->value().toString(), QStringLiteral("00013"));
}

// The check of the code and its description both wait for the server.
TEST_F(SlowCompletion, KeysTypedWhileACodeIsCheckedGoToTheNextField) {
  enter(city_.key);
  queueText(QStringLiteral("00013"));
  queueKey(Qt::Key_Tab);
  bool queued = false;
  connection_->during = [&](const String&) {
    if (std::exchange(queued, true)) return;
    queueText(QStringLiteral("Ma"));
  };
  settleAll();
  EXPECT_TRUE(queued);
  EXPECT_EQ(focusName(), QStringLiteral("desCidade"));
  // The Tab starts no search: the description that the code has fetched is selected and
  // overwritten.
  EXPECT_EQ(box().text(), QStringLiteral("Ma"));
  EXPECT_EQ(city_.key->value().toString(), QStringLiteral("00013"));
}

struct Typed {
  const char* keys;
  int focus;  ///< 0 the code, 1 the description
  int tabs;
};

// All keys wait in the queue, and every statement is slow.
TEST_F(SlowCompletion, TypingAndTabAtFullSpeedHaveTheSameResultAsSlowly) {
  const Typed rows[] = {{"Uba", 1, 1},   {"São C", 1, 1}, {"Santa", 1, 1},
                        {"maria", 1, 1}, {"Xyz", 1, 1},   {"Ág", 1, 1},
                        {"00004", 0, 2}, {"00013", 0, 2}, {"100%", 1, 1}};
  for (const Typed& row : rows) {
    SCOPED_TRACE(row.keys);
    QStringList results[2];
    for (bool fast : {false, true}) {
      newWindow();
      showCity();
      enter(row.focus == 0 ? city_.key : city_.name);
      connection_->delay = fast ? 15 : 0;
      const QString keys = QString::fromUtf8(row.keys);
      if (fast) {
        queueText(keys);
        for (int i = 0; i < row.tabs; ++i) queueKey(Qt::Key_Tab);
        settleAll();
      } else {
        for (QChar c : keys) {
          queueText(QString(c));
          settleAll();
        }
        for (int i = 0; i < row.tabs; ++i) {
          queueKey(Qt::Key_Tab);
          settleAll();
        }
      }
      connection_->delay = 0;
      results[fast] = state() + boxes_.takeTexts();
    }
    EXPECT_EQ(results[0], results[1]);
  }
}

TEST_F(SlowCompletion, ASlowTableKeepsEveryKey) {
  newWindow();
  showCity(QStringLiteral("cidades_lentas"));
  QElapsedTimer clock;
  clock.start();
  queueText(QStringLiteral("São C"));
  queueKey(Qt::Key_Tab);
  settleAll();
  EXPECT_THAT(clock.elapsed(), Gt(5 * 60));
  EXPECT_EQ(state(), QStringList({QStringLiteral("São Carlos"), QStringLiteral("00002"),
                                  QStringLiteral("São Carlos"), QStringLiteral("00002"),
                                  QStringLiteral("btnGravar")}));
}

TEST_F(SlowCompletion, AFormThatAHandlerDestroysDuringTheSearchDiscardsTheKeys) {
  QObject::connect(city_.key, &TsText::browseReturn, [this] { window_.reset(); });
  duringStatement(1, [this] {
    QCoreApplication::postEvent(
        &box(), new QKeyEvent(QEvent::KeyPress, Qt::Key_B, Qt::NoModifier, QStringLiteral("b")));
    queueText(QStringLiteral("a"));
  });
  type(*window_, QStringLiteral("u"));
  settleAll();
  EXPECT_FALSE(window_);
}

}  // namespace
}  // namespace tessaria::qt::tests

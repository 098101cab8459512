// What the operator is asked, and what stays, when the connection was lost.
#include <QTimer>

#include "tessaria/conversion.h"
#include "tests/qt/completion_fixture.h"

namespace tessaria::qt::tests {
namespace {

const QString kQuestion =
    QStringLiteral("A conexão com o banco de dados foi perdida. Conectar novamente?");

class ReconnectWindow : public CompletionFixture {
 protected:
  void SetUp() override {
    CompletionFixture::SetUp();
    if (IsSkipped()) return;
    showCity();
    other_ = test::NewConnectionOfTheDriver();
    other_->ConnectionString(cluster().ConnectionString());
    other_->Open();
  }
  void TearDown() override {
    window_.reset();
    cluster().EnsureRunning();
    CompletionFixture::TearDown();
  }

  // The session is killed, and the statement of a timer finds out.
  void lose() {
    kill();
    bool isOver = false;
    QTimer::singleShot(1, window_.get(), [&] {
      EXPECT_ANY_THROW(connection_->Execute(u"select 1"));
      isOver = true;
    });
    while (!isOver) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(connection_->State(), host::state::Closed);
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
  }
  void kill() {
    other_->Execute(
        u"select pg_terminate_backend(pid) from pg_stat_activity where backend_type = "
        u"'client backend' and pid <> pg_backend_pid()");
  }
  // Types a city's code and leaves the field.
  void typeCode(const QString& code) {
    city_.key->setFocus();
    settleEvents();
    editOf(*city_.key)->selectAll();
    type(*window_, code);
    press(*window_, Qt::Key_Tab);
    settleEvents();
  }
  QString name() { return box().text(); }
  String stored(const String& statement) {
    return CStr(other_->Execute(statement)->Fields().Item(0)->Value());
  }

  host::ConnectionPtr other_;
};

TEST_F(ReconnectWindow, LookupAsksOverItsWindowAndGoesOn) {
  lose();
  boxes_.willPress(QStringLiteral("Sim"));
  typeCode(QStringLiteral("00004"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kQuestion));
  EXPECT_EQ(boxes_.boxes().back().owner, QStringLiteral("frmPedido"));
  EXPECT_EQ(boxes_.boxes().back().buttons, QStringList({"Sim", "Não"}));
  EXPECT_EQ(name(), QStringLiteral("Uberaba"));
}

TEST_F(ReconnectWindow, NoKeepsWhatIsTypedAndTheNextActionAsksAgain) {
  lose();
  boxes_.willPress(QStringLiteral("Não"));
  typeCode(QStringLiteral("00004"));
  EXPECT_EQ(boxes_.takeTexts().count(kQuestion), 1);
  EXPECT_EQ(editOf(*city_.key)->text(), QStringLiteral("00004"));
  EXPECT_EQ(connection_->State(), host::state::Closed);
  boxes_.willPress(QStringLiteral("Sim"));
  typeCode(QStringLiteral("00005"));
  EXPECT_EQ(boxes_.takeTexts().count(kQuestion), 1);
  EXPECT_EQ(name(), QStringLiteral("Maria da Fé"));
}

TEST_F(ReconnectWindow, FailedAttemptAsksAgainInTheNextAction) {
  other_->Close();
  cluster().Stop();
  EXPECT_ANY_THROW(connection_->Execute(u"select 1"));
  boxes_.takeTexts();
  boxes_.willPress(QStringLiteral("Sim"));
  typeCode(QStringLiteral("00004"));
  EXPECT_EQ(boxes_.takeTexts().count(kQuestion), 1);
  EXPECT_EQ(editOf(*city_.key)->text(), QStringLiteral("00004"));
  cluster().Start();
  boxes_.willPress(QStringLiteral("Sim"));
  typeCode(QStringLiteral("00005"));
  EXPECT_EQ(boxes_.takeTexts().count(kQuestion), 1);
  EXPECT_EQ(name(), QStringLiteral("Maria da Fé"));
  other_->Open();
}

TEST_F(ReconnectWindow, CompletionAsksAndCompletes) {
  lose();
  boxes_.willPress(QStringLiteral("Sim"));
  type(*window_, QStringLiteral("Ub"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kQuestion));
  EXPECT_EQ(connection_->State(), host::state::Open);
  type(*window_, QStringLiteral("e"));
  expectBox(QStringLiteral("Ube"), QStringLiteral("raba"));
}

TEST_F(ReconnectWindow, PendingEditIsSavedByTheButtonThatAsks) {
  const auto rows =
      connection_->OpenRecordset(u"select * from cidades order by codigo", host::CursorType::Static,
                                 host::LockType::Optimistic, -1);
  rows->Fields().Item(u"nome")->Value(u"Santos Dumont");
  Long number = 0;
  QObject::connect(button_, &QPushButton::clicked, [&] {
    try {
      number = 0;
      rows->Update();
    } catch (const HostError& error) {
      number = error.Number();
    }
  });
  lose();
  boxes_.willPress(QStringLiteral("Não"));
  click(*button_);
  EXPECT_EQ(number, errors::InvalidConnection);
  EXPECT_EQ(CStr(rows->Fields().Item(u"nome")->Value()), u"Santos Dumont");
  boxes_.willPress(QStringLiteral("Sim"));
  click(*button_);
  EXPECT_EQ(number, 0);
  EXPECT_EQ(boxes_.takeTexts(), QStringList({kQuestion, kQuestion}));
  EXPECT_EQ(stored(u"select nome from cidades where codigo = '00001'"), u"Santos Dumont");
}

TEST_F(ReconnectWindow, ActionThatMeetsTheLossDoesNotAsk) {
  QObject::connect(button_, &QPushButton::clicked, [this] {
    kill();
    EXPECT_ANY_THROW(connection_->Execute(u"select 1"));
    EXPECT_ANY_THROW(connection_->Execute(u"select 1"));
  });
  click(*button_);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(ReconnectWindow, TimersNeverAsk) {
  lose();
  press(*window_, Qt::Key_Shift);  // an action that needs no server
  int tries = 0;
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, [&] {
    ++tries;
    EXPECT_ANY_THROW(connection_->Execute(u"select 1"));
  });
  timer.start(5);
  while (tries < 3) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(ReconnectWindow, TwoConnectionsAskOnce) {
  const auto second = test::NewConnectionOfTheDriver();
  second->ConnectionString(cluster().ConnectionString());
  second->Open();
  QObject::connect(button_, &QPushButton::clicked, [&] {
    connection_->Execute(u"select 1");
    second->Execute(u"select 1");
  });
  lose();
  QTimer::singleShot(1, window_.get(), [&] { EXPECT_ANY_THROW(second->Execute(u"select 1")); });
  QTest::qWait(20);
  click(*button_);
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kQuestion));
  EXPECT_EQ(second->State(), host::state::Open);
}

TEST_F(ReconnectWindow, TimerWhileTheOperatorIsAskedIsRefused) {
  lose();
  Long number = 0;
  boxes_.whileOpen = [&] {
    try {
      connection_->Execute(u"select 1");
    } catch (const HostError& error) {
      number = error.Number();
    }
  };
  boxes_.willPress(QStringLiteral("Sim"));
  typeCode(QStringLiteral("00004"));
  EXPECT_EQ(number, errors::StillExecuting);
  EXPECT_EQ(name(), QStringLiteral("Uberaba"));
}

TEST_F(ReconnectWindow, ClosingTheFormUnderTheBoxEndsTheAction) {
  lose();
  boxes_.whileOpen = [this] { window_.reset(); };
  const QPointer<QWidget> window(window_.get());
  typeCode(QStringLiteral("00004"));
  EXPECT_FALSE(window);
}

}  // namespace
}  // namespace tessaria::qt::tests

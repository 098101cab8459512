// Windows while a statement waits for what somebody else has locked.
#include <QElapsedTimer>
#include <QLabel>
#include <QTimer>

#include "tessaria/conversion.h"
#include "tessaria/host/waiting.h"
#include "tests/qt/completion_fixture.h"
#include "tests/support/cutting_proxy.h"

namespace tessaria::qt::tests {
namespace {

// Counts how often it is painted.
class Painted final : public QWidget {
 public:
  int times = 0;

 protected:
  void paintEvent(QPaintEvent*) override { ++times; }
};

class WaitingWindow : public CompletionFixture {
 protected:
  void SetUp() override {
    CompletionFixture::SetUp();
    if (IsSkipped()) return;
    showCity();
    rows_ = connection_->OpenRecordset(u"select * from cidades order by codigo",
                                       host::CursorType::Static, host::LockType::Optimistic, -1);
    rows_->Fields().Item(u"nome")->Value(u"Santos Dumont");
    other_ = test::NewConnectionOfTheDriver();
    other_->ConnectionString(cluster().ConnectionString());
    other_->Open();
    other_->BeginTrans();
    other_->Execute(u"update cidades set uf = 'XX' where codigo = '00001'");
  }
  void TearDown() override {
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    if (other_) other_->Close();
    rows_.reset();
    CompletionFixture::TearDown();
  }

  // Acts so many milliseconds after the wait began.
  void after(int milliseconds, const std::function<void()>& act) {
    QTimer::singleShot(milliseconds, window_.get(), act);
  }
  void escapeAfter(int milliseconds) {
    after(milliseconds, [this] { queueKey(Qt::Key_Escape); });
  }
  // Into a field that has the focus.
  void typeRefusedDate() {
    auto* date = add(new TsText, QStringLiteral("txtData"));
    date->setMascara(QStringLiteral("dd/mm/yyyy"));
    date->show();
    date->setFocus();
    settleAll();
    type(*window_, QStringLiteral("31022017"));
  }
  QLabel* line() const { return window_->findChild<QLabel*>(QStringLiteral("tessariaWait")); }
  // Writes the edit, which waits, and returns the number of its error; 0 for none.
  Long write() {
    return numberOf([this] { rows_->Update(); });
  }
  static Long numberOf(const std::function<void()>& act) {
    try {
      act();
      return 0;
    } catch (const HostError& error) {
      return error.Number();
    }
  }

  host::ConnectionPtr other_;
  host::RecordsetPtr rows_;
};

TEST_F(WaitingWindow, RepaintsAndEscapeGivesUp) {
  auto* painted = add(new Painted, QStringLiteral("pintado"));
  painted->setMinimumSize(20, 20);
  painted->show();
  settleAll();
  int before = 0;
  after(300, [&] {
    before = painted->times;
    painted->update();
  });
  after(600, [&] {
    EXPECT_GT(painted->times, before);
    ASSERT_TRUE(QGuiApplication::overrideCursor());
    EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
  });
  escapeAfter(700);
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(write(), errors::Cancelled);
  EXPECT_LT(timer.elapsed(), 3000);
  EXPECT_EQ(rows_->EditMode(), host::EditMode::InProgress);
  EXPECT_EQ(CStr(rows_->Fields().Item(u"nome")->Value()), u"Santos Dumont");
  other_->RollbackTrans();
  EXPECT_EQ(write(), 0);
}

TEST_F(WaitingWindow, LineTellsWhatIsAwaitedAndForHowLong) {
  after(2300, [this] {
    ASSERT_TRUE(line());
    EXPECT_TRUE(line()->isVisible());
    EXPECT_THAT(line()->text().toStdString(),
                testing::MatchesRegex("Gravando... há [0-9]+ s. Esc cancela."));
    EXPECT_EQ(line()->accessibleName(), line()->text());
    EXPECT_TRUE(window_->rect().contains(line()->geometry()));
  });
  escapeAfter(2400);
  EXPECT_EQ(write(), errors::Cancelled);
  EXPECT_FALSE(line());
}

TEST_F(WaitingWindow, LineTellsHowManyRowsHaveCome) {
  using namespace std::chrono_literals;
  host::WaitView& view = *State().waiting;
  view.Pass({2500ms, 1});
  EXPECT_EQ(line()->text(),
            QStringLiteral("Aguardando o banco de dados... 1 lido, há 2 s. Esc cancela."));
  view.Pass({3100ms, 18432, host::Awaited::Rows});
  EXPECT_EQ(line()->text(),
            QStringLiteral("Lendo registros... 18.432 lidos, há 3 s. Esc cancela."));
  view.Over();
  EXPECT_FALSE(line());
}

TEST_F(WaitingWindow, LineHasATextForEachThingThatIsAwaited) {
  using host::Awaited;
  const std::pair<Awaited, const char*> texts[] = {
      {Awaited::Answer, "Aguardando o banco de dados... há 2 s. Esc cancela."},
      {Awaited::Connection, "Conectando ao banco de dados... há 2 s. Esc cancela."},
      {Awaited::Rows, "Lendo registros... há 2 s. Esc cancela."},
      {Awaited::Count, "Contando os registros... há 2 s. Esc cancela."},
      {Awaited::LastRow, "Indo para o último registro... há 2 s. Esc cancela."},
      {Awaited::Match, "Procurando... há 2 s. Esc cancela."},
      {Awaited::Order, "Ordenando... há 2 s. Esc cancela."},
      {Awaited::Write, "Gravando... há 2 s. Esc cancela."},
      {Awaited::Deletion, "Excluindo... há 2 s. Esc cancela."},
  };
  host::WaitView& view = *State().waiting;
  for (const auto& [what, text] : texts) {
    view.Pass({std::chrono::milliseconds(2500), 0, what});
    EXPECT_EQ(line()->text(), QString::fromUtf8(text));
  }
  view.Over();
}

TEST_F(WaitingWindow, EscapeGivesUpConnectingToAServerThatDoesNotAnswer) {
  test::CuttingProxy proxy(cluster().Socket());
  proxy.Swallow();
  const auto silent = test::NewConnectionOfTheDriver();
  silent->ConnectionString(cluster().ConnectionString(proxy.Port()));
  after(2300, [this] {
    ASSERT_TRUE(line());
    EXPECT_THAT(line()->text().toStdString(),
                testing::MatchesRegex("Conectando ao banco de dados... há [0-9]+ s. Esc cancela."));
  });
  escapeAfter(2400);
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(numberOf([&] { silent->Open(); }), errors::Cancelled);
  EXPECT_LT(timer.elapsed(), 5000);
  EXPECT_FALSE(line());
  proxy.CancelCut();
  silent->Open();
  EXPECT_EQ(silent->State(), host::state::Open);
}

TEST_F(WaitingWindow, KeysTypedMeanwhileComeAfterwards) {
  after(300, [this] { queueText(QStringLiteral("Ub")); });
  after(400, [this] { EXPECT_EQ(box().text(), QString()); });
  escapeAfter(500);
  EXPECT_EQ(write(), errors::Cancelled);
  settleAll();
  expectBox(QStringLiteral("Ub"), QStringLiteral("eraba"));
}

TEST_F(WaitingWindow, MouseDoesNothing) {
  int clicks = 0;
  QObject::connect(button_, &QPushButton::clicked, [&] { ++clicks; });
  after(300, [this] { QTest::mouseClick(button_, Qt::LeftButton); });
  escapeAfter(400);
  EXPECT_EQ(write(), errors::Cancelled);
  settleAll();
  EXPECT_EQ(clicks, 0);
}

TEST_F(WaitingWindow, ClosingWaits) {
  after(300, [this] { EXPECT_FALSE(window_->close()); });
  after(400, [this] { EXPECT_TRUE(window_->isVisible()); });
  escapeAfter(500);
  EXPECT_EQ(write(), errors::Cancelled);
  EXPECT_TRUE(window_->isVisible());
  settleAll();
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(WaitingWindow, ClosingByTheFrameSettlesTheFieldAfterTheWait) {
  typeRefusedDate();
  after(300, [this] { closeByFrame(*window_); });
  escapeAfter(500);
  EXPECT_EQ(write(), errors::Cancelled);
  settleAll();
  EXPECT_TRUE(window_->isVisible()) << "the date is refused";
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(WaitingWindow, FieldThatTheProgramHasLeftIsSettledAfterTheWait) {
  typeRefusedDate();
  button_->setFocus();
  after(400, [this] { EXPECT_EQ(boxes_.takeTexts(), QStringList()); });
  escapeAfter(500);
  EXPECT_EQ(write(), errors::Cancelled);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  settleAll();
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(WaitingWindow, FormThatIsShownBeforeAWaitShowsItsFieldsAfterIt) {
  QWidget form;
  auto* field = new TsText(&form);
  int shown = 0;
  QObject::connect(field, &TsText::shown, &form, [&] { ++shown; });
  after(100, [&] { form.show(); });
  after(400, [&] { EXPECT_EQ(shown, 0); });
  escapeAfter(500);
  EXPECT_EQ(write(), errors::Cancelled);
  settleAll();
  EXPECT_EQ(shown, 1);
}

TEST_F(WaitingWindow, WaitOnAnotherConnectionLeavesTheOuterOneAsItIs) {
  host::ConnectionPtr third = test::NewConnectionOfTheDriver();
  third->ConnectionString(cluster().ConnectionString());
  third->Open();
  after(300, [this] { queueText(QStringLiteral("Ub")); });
  after(400, [&] { third->Execute(u"select pg_sleep(0.5)"); });
  after(1000, [this] {
    EXPECT_EQ(box().text(), QString());
    EXPECT_TRUE(QGuiApplication::overrideCursor());
  });
  escapeAfter(1100);
  EXPECT_EQ(write(), errors::Cancelled);
  settleAll();
  expectBox(QStringLiteral("Ub"), QStringLiteral("eraba"));
}

TEST_F(WaitingWindow, ButtonPressedBeforeTheWaitIsReleasedAfterIt) {
  QTest::mousePress(button_, Qt::LeftButton);
  after(300, [this] { QTest::mouseRelease(button_, Qt::LeftButton); });
  after(400, [this] { EXPECT_TRUE(button_->isDown()); });
  escapeAfter(500);
  EXPECT_EQ(write(), errors::Cancelled);
  settleAll();
  EXPECT_FALSE(button_->isDown());
}

TEST_F(WaitingWindow, StatementOfATimerIsRefused) {
  Long number = 0;
  after(300, [&] {
    try {
      connection_->Execute(u"select 1");
    } catch (const HostError& error) {
      number = error.Number();
    }
  });
  escapeAfter(400);
  EXPECT_EQ(write(), errors::Cancelled);
  EXPECT_EQ(number, errors::StillExecuting);
}

TEST_F(WaitingWindow, WindowThatATimerOpensHasItsInput) {
  BoxKeeper boxes;
  after(300, [] { App().ShowMessageBox(0, u"Aviso", 0, u"Teste"); });
  escapeAfter(800);
  EXPECT_EQ(write(), errors::Cancelled);
  EXPECT_EQ(boxes.takeTexts(), QStringList(QStringLiteral("Aviso")));
}

TEST_F(WaitingWindow, RowThatComesFreeIsWritten) {
  after(500, [this] { other_->Execute(u"rollback"); });
  EXPECT_EQ(write(), 0);
  const auto stored = other_->Execute(u"select nome from cidades where codigo = '00001'");
  EXPECT_EQ(CStr(stored->Fields().Item(0)->Value()), u"Santos Dumont");
}

}  // namespace
}  // namespace tessaria::qt::tests

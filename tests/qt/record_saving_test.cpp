// A row and the program's statements in one transaction: all of it is stored, once, or nothing is
// and nothing typed is lost.
#include <stdexcept>

#include "tests/qt/record_fixture.h"

namespace tessaria::qt::tests {
namespace {

const QString kQuestion =
    QStringLiteral("A conexão com o banco de dados foi perdida. Conectar novamente?");

class WholeRow : public RecordFixture {
 protected:
  void SetUp() override {
    RecordFixture::SetUp();
    if (IsSkipped()) return;
    addAnItemAtEachSave();
    QObject::connect(record_, &RecordForm::notSaved,
                     [this](const QString& reason) { reasons_ << reason; });
  }
  void addCustomer() {
    record_->addRow();
    enter(code_, QStringLiteral("4"));
    enter(name_, QStringLiteral("Davi"));
  }
  /// Runs the hook, and then something more in its transaction.
  void afterTheHook(const std::function<void()>& act) {
    record_->setTransactionHook([this, act](host::Connection& connection) {
      ++hooks_;
      connection.Execute(u"insert into itens values (" +
                         CStr(data_->recordSet()->Fields().Item(u"codigo")->Value()) + u", 'a')");
      act();
    });
  }
  QString firstLine() {
    const QStringList texts = boxes_.takeTexts();
    return texts.isEmpty() ? QString() : texts.last().section(QLatin1Char('\n'), 0, 0);
  }

  QStringList reasons_;
};

TEST_F(WholeRow, BothAreStored) {
  enter(name_, QStringLiteral("Zilda"));
  save();
  EXPECT_EQ(names(), "Zilda Bia Caio");
  EXPECT_EQ(items(), "1a");
}

TEST_F(WholeRow, TheHookOfANewRowRunsAfterItIsWritten) {
  addCustomer();
  save();
  EXPECT_EQ(names(), "Ana Bia Caio Davi");
  EXPECT_EQ(items(), "4a");
  EXPECT_FALSE(record_->isNew());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(WholeRow, WhatTheHookThrowsUndoesTheRow) {
  addCustomer();
  afterTheHook([] { throw std::runtime_error("sem saldo"); });
  save();
  EXPECT_EQ(firstLine(), QStringLiteral("O cliente não foi salvo: o programa recusou."));
  EXPECT_EQ(reasons_, QStringList(QStringLiteral("Não salvo: o programa recusou.")));
  EXPECT_EQ(names(), "Ana Bia Caio");
  EXPECT_EQ(items(), "");
  EXPECT_TRUE(record_->isNew());
  EXPECT_EQ(textOf(name_), QStringLiteral("Davi"));
  afterTheHook([] {});
  save();
  EXPECT_EQ(names(), "Ana Bia Caio Davi");
  EXPECT_EQ(items(), "4a");
}

TEST_F(WholeRow, WhatTheDatabaseRefusesInTheHookUndoesTheRow) {
  asAnotherUser(u"alter table itens add constraint nenhum check (texto <> 'a')");
  enter(name_, QStringLiteral("Zilda"));
  save();
  EXPECT_EQ(firstLine(), QStringLiteral("O cliente não foi salvo: o banco de dados recusou."));
  EXPECT_EQ(names(), "Ana Bia Caio");
  EXPECT_TRUE(record_->isChanged());
  EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
  asAnotherUser(u"alter table itens drop constraint nenhum");
  save();
  EXPECT_EQ(names(), "Zilda Bia Caio");
  EXPECT_EQ(items(), "1a");
}

TEST_F(WholeRow, WhatIsRefusedAtTheCommitIsPendingAgain) {
  asAnotherUser(
      u"create function recusa() returns trigger language plpgsql as "
      u"'begin raise exception ''recusado no fim''; end'");
  asAnotherUser(
      u"create constraint trigger fim after insert on clientes deferrable initially deferred "
      u"for each row execute function recusa()");
  addCustomer();
  save();
  EXPECT_EQ(firstLine(), QStringLiteral("O cliente não foi salvo: o banco de dados recusou."));
  EXPECT_TRUE(record_->isNew());
  asAnotherUser(u"drop trigger fim on clientes");
  save();
  EXPECT_EQ(names(), "Ana Bia Caio Davi");
  EXPECT_EQ(items(), "4a");
}

TEST_F(WholeRow, ATransactionOfTheProgramIsLeftAlone) {
  connection_->BeginTrans();
  enter(name_, QStringLiteral("Zilda"));
  save();
  EXPECT_EQ(firstLine(), QStringLiteral("O cliente não foi salvo: o banco de dados recusou."));
  EXPECT_EQ(hooks_, 0);
  connection_->RollbackTrans();
  save();
  EXPECT_EQ(items(), "1a");
}

// --- Lost connections

TEST_F(WholeRow, ALineThatIsCutBeforeTheCommitStoresNothing) {
  enter(name_, QStringLiteral("Zilda"));
  afterTheHook([this] { proxy_->CutNow(); });
  save();
  const QString told = firstLine();
  EXPECT_TRUE(told ==
                  QStringLiteral("O cliente não foi salvo: a conexão com o banco de dados caiu.") ||
              told == QStringLiteral("Não se sabe se o cliente foi salvo."))
      << told.toStdString();
  EXPECT_EQ(names(), "Ana Bia Caio");
  EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
  addAnItemAtEachSave();
  boxes_.willPress(QStringLiteral("Sim"));
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kQuestion));
  EXPECT_EQ(names(), "Zilda Bia Caio");
  EXPECT_EQ(items(), "1a");
}

TEST_F(WholeRow, ACommitThatWasStoredIsSavedOnce) {
  addCustomer();
  afterTheHook([this] { proxy_->CutAt(Side::Server, {"COMMIT"}); });
  save();
  EXPECT_EQ(firstLine(), QStringLiteral("Não se sabe se o cliente foi salvo."));
  EXPECT_EQ(reasons_, QStringList(QStringLiteral("Não se sabe se o cliente foi salvo.")));
  EXPECT_EQ(names(), "Ana Bia Caio Davi");
  EXPECT_TRUE(record_->isChanged());
  addAnItemAtEachSave();
  boxes_.willPress(QStringLiteral("Sim"));
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kQuestion));
  EXPECT_FALSE(record_->isChanged());
  EXPECT_EQ(names(), "Ana Bia Caio Davi");
  EXPECT_EQ(items(), "4a");
  EXPECT_EQ(hooks_, 1);
}

TEST_F(WholeRow, WhatIsTypedAfterALostCommitIsSavedOnTop) {
  enter(name_, QStringLiteral("Zilda"));
  afterTheHook([this] { proxy_->CutAt(Side::Server, {"COMMIT"}); });
  save();
  boxes_.takeTexts();
  addAnItemAtEachSave();
  enter(name_, QStringLiteral("Zilda Maria"));
  boxes_.willPress(QStringLiteral("Sim"));
  save();
  EXPECT_EQ(names(), "Zilda Maria Bia Caio");
  EXPECT_EQ(hooks_, 2);
}

TEST_F(WholeRow, WhatIsNotedAfterALostCommitIsNotForgotten) {
  enter(name_, QStringLiteral("Zilda"));
  afterTheHook([this] { proxy_->CutAt(Side::Server, {"COMMIT"}); });
  save();
  addAnItemAtEachSave();
  record_->markChanged();
  asAnotherUser(u"update clientes set nome = 'Alice' where codigo = 1");
  boxes_.takeTexts();
  boxes_.willPress(QStringLiteral("Sim"));
  save();  // nobody can tell
  EXPECT_EQ(firstLine(), QStringLiteral("Não se sabe se o cliente foi salvo."));
  asAnotherUser(u"update clientes set nome = 'Zilda' where codigo = 1");
  save();
  EXPECT_EQ(items(), "1a 1a");
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(WholeRow, ANewRowWhoseKeyIsGeneratedIsLookedForAmongTheRows) {
  asAnotherUser(u"create sequence codigos start 50");
  asAnotherUser(u"alter table clientes alter codigo set default nextval('codigos')");
  EXPECT_TRUE(data_->refresh());
  record_->addRow();
  enter(name_, QStringLiteral("Davi"));
  afterTheHook([this] { proxy_->CutAt(Side::Server, {"COMMIT"}); });
  save();
  boxes_.takeTexts();
  addAnItemAtEachSave();
  boxes_.willPress(QStringLiteral("Sim"));
  save();
  EXPECT_TRUE(boxes_.takeTexts().last().contains(
      QStringLiteral("o registro 4 tem os mesmos valores. Se for ele, cancele o novo")));
  EXPECT_EQ(names(), "Ana Bia Caio Davi");
  EXPECT_EQ(items(), "50a");
  boxes_.willPress(QStringLiteral("Sim"));
  click(*undo_);
  EXPECT_EQ(data_->recordSet()->RecordCount(), 4);
}

TEST_F(WholeRow, ACommitThatDidNotArriveIsSavedTheSecondTime) {
  addCustomer();
  afterTheHook([this] { proxy_->CutAt(Side::Client, {"COMMIT"}); });
  save();
  EXPECT_EQ(firstLine(), QStringLiteral("Não se sabe se o cliente foi salvo."));
  EXPECT_EQ(names(), "Ana Bia Caio");
  addAnItemAtEachSave();
  boxes_.willPress(QStringLiteral("Sim"));
  save();
  EXPECT_EQ(names(), "Ana Bia Caio Davi");
  EXPECT_EQ(items(), "4a");
}

TEST_F(WholeRow, WhatNoRowShowsIsAskedBeforeItIsSavedTwice) {
  afterTheHook([this] { proxy_->CutAt(Side::Server, {"COMMIT"}); });
  record_->markChanged();
  save();
  boxes_.takeTexts();
  addAnItemAtEachSave();
  save();  // no is the default
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_EQ(items(), "1a");
}

TEST_F(WholeRow, TheVersionShowsWhetherMarkedChangesWereStored) {
  record_->setVersionColumn(QStringLiteral("versao"));
  afterTheHook([this] { proxy_->CutAt(Side::Server, {"COMMIT"}); });
  record_->markChanged();
  save();
  boxes_.takeTexts();
  addAnItemAtEachSave();
  boxes_.willPress(QStringLiteral("Sim"));
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kQuestion));
  EXPECT_EQ(items(), "1a");
  EXPECT_EQ(stored(u"string_agg(versao::text, ' ' order by codigo)"), "2 1 1");
  record_->markChanged();
  save();
  EXPECT_EQ(items(), "1a 1a");
}

TEST_F(WholeRow, TheVersionIsRaisedByEachSave) {
  record_->setVersionColumn(QStringLiteral("versao"));
  enter(name_, QStringLiteral("Zilda"));
  save();
  addCustomer();
  save();
  EXPECT_EQ(stored(u"string_agg(versao::text, ' ' order by codigo)"), "2 1 1 1");
}

TEST_F(WholeRow, WithoutAHookALostAnswerIsFoundOutToo) {
  record_->setTransactionHook({});
  addCustomer();
  proxy_->CutAt(Side::Server, {"INSERT 0 1"});
  save();
  EXPECT_EQ(firstLine(), QStringLiteral("Não se sabe se o cliente foi salvo."));
  boxes_.willPress(QStringLiteral("Sim"));
  save();
  EXPECT_EQ(names(), "Ana Bia Caio Davi");
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(WholeRow, ANewRowInDoubtThatIsUndoneIsLookedForAmongTheRows) {
  addCustomer();
  afterTheHook([this] { proxy_->CutAt(Side::Server, {"COMMIT"}); });
  save();
  boxes_.takeTexts();
  boxes_.willPress(QStringLiteral("Sim"));  // drop
  boxes_.willPress(QStringLiteral("OK"));   // it may be stored
  boxes_.willPress(QStringLiteral("Sim"));  // connect again
  click(*undo_);
  EXPECT_EQ(boxes_.takeTexts().size(), 3);
  EXPECT_EQ(data_->recordSet()->RecordCount(), 4);
  EXPECT_FALSE(record_->isChanged());
}

}  // namespace
}  // namespace tessaria::qt::tests

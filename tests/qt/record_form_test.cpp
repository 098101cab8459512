// A form as a whole: its changes, its checks, its commands, and what it asks when it is closed.
#include <QTest>
#include <QToolButton>
#include <stdexcept>

#include "tests/qt/record_fixture.h"

namespace tessaria::qt::tests {
namespace {

const QString kDrop = QStringLiteral("O cliente não foi salvo. Desfazer o que foi digitado?");
const QString kClose = QStringLiteral("O cliente não foi salvo. Salvar antes de fechar?");
const QString kBlankName = QStringLiteral("Nome: Não Pode Ser Branco, Verifique Por Favor");

class WholeForm : public RecordFixture {
 protected:
  void SetUp() override {
    RecordFixture::SetUp();
    if (IsSkipped()) return;
    QObject::connect(record_, &RecordForm::changedStateChanged,
                     [this](bool changed) { changes_ << changed; });
    QObject::connect(record_, &RecordForm::saved, [this] { ++saves_; });
    QObject::connect(record_, &RecordForm::notSaved,
                     [this](const QString& reason) { reasons_ << reason; });
  }
  QToolButton& navigation(const char* name) {
    for (QToolButton* button : data_->findChildren<QToolButton*>())
      if (button->accessibleName() == QString::fromUtf8(name)) return *button;
    throw std::logic_error(name);
  }

  QList<bool> changes_;
  QStringList reasons_;
  int saves_ = 0;
};

// --- Changes

TEST_F(WholeForm, TellsWhetherAnythingWasChanged) {
  EXPECT_FALSE(record_->isChanged());
  type(*window_, QStringLiteral("Z"));
  EXPECT_TRUE(record_->isChanged());
  settleEvents();
  EXPECT_THAT(changes_, testing::ElementsAre(true));
  go(code_);  // the row holds it now
  EXPECT_TRUE(record_->isChanged());
  save();
  EXPECT_FALSE(record_->isChanged());
  EXPECT_THAT(changes_, testing::ElementsAre(true, false));
  EXPECT_EQ(names(), "Z Bia Caio");
}

TEST_F(WholeForm, TheSameTextTypedOnceMoreIsNoChangeOnceTheFieldIsLeft) {
  enter(name_, QStringLiteral("Ana"));
  EXPECT_TRUE(record_->isChanged());
  go(code_);
  EXPECT_FALSE(record_->isChanged());
  EXPECT_THAT(changes_, testing::ElementsAre(true, false));
}

TEST_F(WholeForm, ANewRowIsAChange) {
  EXPECT_TRUE(record_->addRow());
  settleEvents();
  EXPECT_TRUE(record_->isNew());
  EXPECT_THAT(changes_, testing::ElementsAre(true));
}

class EmptyForm : public WholeForm {
 protected:
  void SetUp() override {
    WholeForm::SetUp();
    if (IsSkipped()) return;
    asAnotherUser(u"delete from clientes");
    data_->refresh();
    settleEvents();
    changes_.clear();
  }
};

TEST_F(EmptyForm, IsNotChangedAndAsksNothing) {
  go(phone_);
  go(code_);
  EXPECT_FALSE(record_->isChanged());
  EXPECT_TRUE(record_->save());
  EXPECT_TRUE(record_->undo());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(names(), "");
}

TEST_F(EmptyForm, WhatIsTypedBeginsTheFirstRow) {
  enter(code_, QStringLiteral("7"));
  settleEvents();
  EXPECT_TRUE(record_->isNew());
  enter(name_, QStringLiteral("Zilda"));
  go(phone_);
  EXPECT_TRUE(record_->isChanged());
  EXPECT_THAT(changes_, testing::ElementsAre(true));
  EXPECT_TRUE(record_->save());
  EXPECT_EQ(names(), "Zilda");
  EXPECT_EQ(stored(u"codigo"), "7");
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(EmptyForm, WhatWasTypedAtOnceAndLeftIsKept) {
  go(code_);
  type(*window_, QStringLiteral("7"));
  press(*window_, Qt::Key_Tab);
  type(*window_, QStringLiteral("Zilda"));
  press(*window_, Qt::Key_Tab);
  save();
  EXPECT_EQ(names(), "Zilda");
}

TEST_F(EmptyForm, AValueThatWasPickedBeginsItToo) {
  birth_->setValue(QDate(1980, 2, 29));
  settleEvents();
  EXPECT_TRUE(record_->isNew());
  enter(code_, QStringLiteral("7"));
  enter(name_, QStringLiteral("Zilda"));
  save();
  EXPECT_EQ(stored(u"nascimento"), "1980-02-29");
}

TEST_F(EmptyForm, UndoGivesItUpAndTheNextTextBeginsAnother) {
  enter(name_, QStringLiteral("Zilda"));
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_TRUE(record_->undo());
  EXPECT_EQ(textOf(name_), QString());
  EXPECT_FALSE(record_->isChanged());
  enter(code_, QStringLiteral("8"));
  enter(name_, QStringLiteral("Yara"));
  save();
  EXPECT_EQ(names(), "Yara");
}

TEST_F(EmptyForm, AnUnboundFieldBeginsNothing) {
  enter(search_, QStringLiteral("x"));
  go(name_);
  EXPECT_FALSE(record_->isNew());
}

TEST_F(EmptyForm, RowsThatCannotBeWrittenStayAsTheyAre) {
  data_->setRecordSource(QStringLiteral("select upper(nome) as nome from clientes"));
  data_->refresh();
  settleEvents();
  boxes_.takeTexts();
  enter(name_, QStringLiteral("x"));
  EXPECT_FALSE(record_->isNew());
}

TEST_F(WholeForm, AfterTheLastRowIsDeletedATextBeginsANewOne) {
  asAnotherUser(u"delete from clientes where codigo > 1");
  data_->refresh();
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_TRUE(record_->deleteRow());
  enter(code_, QStringLiteral("9"));
  enter(name_, QStringLiteral("Zilda"));
  save();
  EXPECT_EQ(names(), "Zilda");
}

TEST_F(WholeForm, TheProgramHasItsOwnWordsForAConstraint) {
  record_->setRefusalWords([](const QString& details) {
    return details.contains(QStringLiteral("clientes_pkey"))
               ? QStringLiteral("Já há um cliente com este código.")
               : QString();
  });
  record_->addRow();
  enter(code_, QStringLiteral("2"));
  enter(name_, QStringLiteral("Zilda"));
  EXPECT_FALSE(record_->save());
  const std::string told = boxes_.takeTexts().join(QString()).toStdString();
  EXPECT_THAT(told, testing::HasSubstr("Já há um cliente com este código."));
  EXPECT_THAT(told, testing::Not(testing::HasSubstr("clientes_pkey")));
  EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
  record_->setRefusalWords([](const QString&) -> QString { throw std::runtime_error("falhou"); });
  EXPECT_FALSE(record_->save());
  EXPECT_THAT(boxes_.takeTexts().join(QString()).toStdString(),
              testing::HasSubstr("clientes_pkey"));
}

TEST_F(WholeForm, AVersionColumnThatTheSourceLacksIsNamed) {
  record_->setVersionColumn(QStringLiteral("revisao"));
  enter(name_, QStringLiteral("Zilda"));
  EXPECT_FALSE(record_->save());
  EXPECT_THAT(boxes_.takeTexts().join(QString()).toStdString(),
              testing::HasSubstr("A origem dos registros não tem a coluna de versão \"revisao\"."));
  EXPECT_TRUE(record_->isChanged());
}

TEST_F(WholeForm, AnIgnoredFieldIsNeitherAChangeNorChecked) {
  search_->setPodeSerBranco(false);
  enter(search_, QStringLiteral("x"));
  EXPECT_FALSE(record_->isChanged());
  enter(search_, QStringLiteral(" "));
  enter(name_, QStringLiteral("Zilda"));
  EXPECT_TRUE(record_->save());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(WholeForm, WithoutItsDataControlEachCommandTellsSo) {
  RecordForm record(window_.get(), QStringLiteral("dcOutro"));
  EXPECT_FALSE(record.save());
  EXPECT_FALSE(record.moveNext());
  const QString text = QStringLiteral("O formulário não tem o controle de dados \"dcOutro\".");
  EXPECT_EQ(boxes_.takeTexts(), QStringList({text, text}));
}

// --- Checks

TEST_F(WholeForm, SavingWithoutChangesChecksNothing) {
  EXPECT_TRUE(record_->save());
  EXPECT_EQ(saves_, 0);
}

TEST_F(WholeForm, TheFirstFieldInTabOrderThatRefusesIsShown) {
  record_->addRow();
  enter(code_, QStringLiteral("4"));
  pages_->setCurrentIndex(1);
  enter(value_, QStringLiteral("5"));
  bool isInFront = false;
  boxes_.whileOpen = [&] { isInFront = name_->isVisible(); };
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kBlankName));
  EXPECT_TRUE(isInFront);
  EXPECT_EQ(focusedField(), name_);
  EXPECT_EQ(names(), "Ana Bia Caio");
}

TEST_F(WholeForm, TheFieldWithTheFocusIsSettledFirst) {
  pages_->setCurrentIndex(1);
  enter(birth_, QStringLiteral("31022000"));
  EXPECT_FALSE(record_->save());
  EXPECT_EQ(boxes_.takeTexts(),
            QStringList(QStringLiteral("Nascimento: Invalido(a), Corrija Por Favor")));
  EXPECT_EQ(focusedField(), birth_);
}

TEST_F(WholeForm, TheProgramsCheckComesLastAndNamesItsField) {
  record_->setCheck([this]() -> std::optional<RecordForm::Refusal> {
    if (value_->value().toDouble() < 100)
      return RecordForm::Refusal{value_, QStringLiteral("Pouco")};
    return {};
  });
  enter(name_, QStringLiteral("Zilda"));
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList(QStringLiteral("Pouco")));
  EXPECT_EQ(focusedField(), value_);
  EXPECT_TRUE(value_->isVisible());
  enter(value_, QStringLiteral("100"));
  save();
  EXPECT_EQ(names(), "Zilda Bia Caio");
}

TEST_F(WholeForm, AHandlerMayRefuseBeforeAnythingIsChecked) {
  const auto watch =
      QObject::connect(record_, &RecordForm::saving, [](bool& refused) { refused = true; });
  enter(name_, QStringLiteral(" "));
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  QObject::disconnect(watch);
}

// --- Commands

TEST_F(WholeForm, UndoAsksAndNoIsTheDefault) {
  enter(name_, QStringLiteral("Quase"));
  EXPECT_FALSE(record_->undo());
  EXPECT_EQ(textOf(name_), QStringLiteral("Quase"));
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_TRUE(record_->undo());
  EXPECT_EQ(textOf(name_), QStringLiteral("Ana"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList({kDrop, kDrop}));
  EXPECT_TRUE(record_->undo());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(WholeForm, AMoveSavesFirst) {
  enter(name_, QStringLiteral("Zilda"));
  EXPECT_TRUE(record_->moveNext());
  EXPECT_EQ(textOf(name_), QStringLiteral("Bia"));
  EXPECT_EQ(names(), "Zilda Bia Caio");
  EXPECT_EQ(saves_, 1);
}

TEST_F(WholeForm, ARefusedFieldStopsEveryWayToLeaveTheRow) {
  enter(name_, QStringLiteral(" "));
  EXPECT_FALSE(record_->moveLast());
  EXPECT_FALSE(record_->addRow());
  click(navigation("Próximo"));
  press(*window_, Qt::Key_End, Qt::AltModifier);
  EXPECT_EQ(data_->recordSet()->AbsolutePosition(), 1);
  EXPECT_EQ(boxes_.takeTexts(), QStringList({kBlankName, kBlankName, kBlankName, kBlankName}));
}

TEST_F(WholeForm, WhatTheProgramHasNotedIsSavedByTheDataControlsButtonsToo) {
  addAnItemAtEachSave();
  record_->markChanged();
  EXPECT_TRUE(record_->isChanged());
  click(navigation("Próximo"));
  EXPECT_EQ(items(), "1a");
  EXPECT_FALSE(record_->isChanged());
  click(navigation("Próximo"));
  EXPECT_EQ(hooks_, 1);
}

TEST_F(WholeForm, DeletingAsksWithTheDescriptionOfTheRow) {
  record_->setDescription([this] { return textOf(code_) + QStringLiteral(", ") + textOf(name_); });
  EXPECT_FALSE(record_->deleteRow());
  EXPECT_EQ(boxes_.takeTexts(), QStringList(QStringLiteral("Excluir o cliente 1, Ana?")));
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_TRUE(record_->deleteRow());
  EXPECT_EQ(names(), "Bia Caio");
  EXPECT_EQ(textOf(name_), QStringLiteral("Bia"));
}

TEST_F(WholeForm, DeletingANewRowUndoesIt) {
  record_->addRow();
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_TRUE(record_->deleteRow());
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kDrop));
  EXPECT_EQ(textOf(name_), QStringLiteral("Ana"));
}

TEST_F(WholeForm, ARowThatOthersChangedIsNotDeletedButShown) {
  asAnotherUser(u"update clientes set nome = 'Alice' where codigo = 1");
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_FALSE(record_->deleteRow());
  EXPECT_EQ(boxes_.takeTexts().size(), 2);
  EXPECT_EQ(textOf(name_), QStringLiteral("Alice"));
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_TRUE(record_->deleteRow());
  EXPECT_EQ(names(), "Bia Caio");
}

TEST_F(WholeForm, TheNameOfTheRowDecidesTheEndings) {
  record_->setRecordName(QStringLiteral("a nota fiscal"));
  enter(name_, QStringLiteral("Zilda"));
  record_->undo();
  EXPECT_EQ(
      boxes_.takeTexts(),
      QStringList(QStringLiteral("A nota fiscal não foi salva. Desfazer o que foi digitado?")));
}

// --- Functions of the program

TEST_F(WholeForm, WhatAHandlerThrowsIsShownAndRefuses) {
  enter(name_, QStringLiteral("Zilda"));
  const auto watch = QObject::connect(record_, &RecordForm::saving,
                                      [](bool&) { throw std::runtime_error("antes"); });
  EXPECT_FALSE(record_->save());
  QObject::disconnect(watch);
  record_->setCheck(
      []() -> std::optional<RecordForm::Refusal> { throw std::runtime_error("teste"); });
  EXPECT_FALSE(record_->save());
  record_->setCheck({});
  record_->setDescription([]() -> QString { throw std::runtime_error("nome"); });
  EXPECT_FALSE(record_->deleteRow());
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"antes", "teste", "nome"}));
  EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
  EXPECT_TRUE(record_->save());
}

TEST_F(WholeForm, AHandlerThatThrowsAfterTheSaveLosesNothing) {
  QObject::connect(record_, &RecordForm::saved, [] { throw std::runtime_error("depois"); });
  enter(name_, QStringLiteral("Zilda"));
  EXPECT_TRUE(record_->save());
  EXPECT_EQ(boxes_.takeTexts(), QStringList(QStringLiteral("depois")));
  EXPECT_EQ(names(), "Zilda Bia Caio");
}

TEST_F(WholeForm, WhatTheOtherHandlersThrowIsShownToo) {
  QObject::connect(record_, &RecordForm::changedStateChanged,
                   [](bool) { throw std::runtime_error("mudou"); });
  QObject::connect(record_, &RecordForm::notSaved,
                   [](const QString&) { throw std::runtime_error("recusado"); });
  asAnotherUser(u"alter table clientes add constraint nenhum check (nome <> 'Zilda')");
  enter(name_, QStringLiteral("Zilda"));
  settleEvents();
  EXPECT_FALSE(record_->save());
  const QStringList texts = boxes_.takeTexts();
  EXPECT_EQ(texts.first(), QStringLiteral("mudou"));
  EXPECT_EQ(texts.last(), QStringLiteral("recusado"));
  EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
}

TEST_F(WholeForm, AFunctionMayDestroyTheForm) {
  for (const bool byHook : {false, true}) {
    TearDown();
    SetUp();
    const auto destroy = [this] {
      record_ = nullptr;
      window_.reset();
    };
    if (byHook)
      record_->setTransactionHook([destroy](host::Connection&) { destroy(); });
    else
      record_->setCheck([destroy]() -> std::optional<RecordForm::Refusal> {
        destroy();
        return {};
      });
    enter(name_, QStringLiteral("Zilda"));
    EXPECT_FALSE(record_->save());
    EXPECT_EQ(window_, nullptr);
  }
}

TEST_F(WholeForm, ASaveInsideASaveIsRefused) {
  record_->setTransactionHook([this](host::Connection&) {
    EXPECT_FALSE(record_->save());
    EXPECT_FALSE(data_->moveNext());
  });
  enter(name_, QStringLiteral("Zilda"));
  EXPECT_TRUE(record_->save());
  EXPECT_EQ(data_->recordSet()->AbsolutePosition(), 1);
}

// --- Closing

class ClosingForm : public WholeForm {
 protected:
  void SetUp() override {
    WholeForm::SetUp();
    if (!IsSkipped()) record_->setAsksOnClose(true);
  }
};

TEST_F(ClosingForm, WithoutChangesNothingIsAsked) {
  closeByFrame(*window_);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(ClosingForm, ToStayIsTheDefault) {
  enter(name_, QStringLiteral("Zilda"));
  closeByFrame(*window_);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kClose));
  EXPECT_EQ(boxes_.boxes().back().buttons,
            QStringList({"Salvar", "Descartar", "Continuar editando"}));
  EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
  EXPECT_EQ(names(), "Ana Bia Caio");
}

TEST_F(ClosingForm, EscapeStaysToo) {
  enter(name_, QStringLiteral("Zilda"));
  boxes_.whileOpen = [] {
    settleEvents();
    press(*QApplication::activeModalWidget(), Qt::Key_Escape);
  };
  EXPECT_FALSE(window_->close());
  EXPECT_EQ(textOf(name_), QStringLiteral("Zilda"));
}

TEST_F(ClosingForm, TheAnswersHaveKeys) {
  enter(name_, QStringLiteral("Zilda"));
  boxes_.whileOpen = [] {
    settleEvents();
    press(*QApplication::activeModalWidget(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([] { return !QApplication::activeModalWidget(); }));
  };
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(names(), "Zilda Bia Caio");
}

TEST_F(ClosingForm, SavesAndCloses) {
  enter(name_, QStringLiteral("Zilda"));
  boxes_.willPress(QStringLiteral("Salvar"));
  closeByFrame(*window_);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(names(), "Zilda Bia Caio");
}

TEST_F(ClosingForm, ASaveThatIsRefusedKeepsItOpen) {
  enter(name_, QStringLiteral(" "));
  go(code_);
  boxes_.willPress(QStringLiteral("Salvar"));
  closeByFrame(*window_);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(boxes_.takeTexts(), QStringList({kClose, kBlankName}));
}

TEST_F(ClosingForm, DiscardsAndShowsTheStoredRowNextTime) {
  enter(name_, QStringLiteral("Zilda"));
  boxes_.willPress(QStringLiteral("Descartar"));
  closeByFrame(*window_);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_FALSE(record_->isChanged());
  EXPECT_EQ(names(), "Ana Bia Caio");
  showActive(*window_);
  EXPECT_EQ(textOf(name_), QStringLiteral("Ana"));
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(ClosingForm, DiscardsWithoutAServer) {
  enter(name_, QStringLiteral("Zilda"));
  proxy_->Swallow();
  boxes_.willPress(QStringLiteral("Descartar"));
  closeByFrame(*window_);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kClose));
  proxy_->CancelCut();
}

class ClosingDialog : public ClosingForm {
 protected:
  QWidget* newWindow() override { return new QDialog; }
};

TEST_F(ClosingDialog, EscapeAsks) {
  enter(name_, QStringLiteral("Zilda"));
  press(*window_, Qt::Key_Escape);
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kClose));
  EXPECT_TRUE(window_->isVisible());
  boxes_.willPress(QStringLiteral("Salvar"));
  press(*window_, Qt::Key_Escape);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(names(), "Zilda Bia Caio");
}

TEST_F(ClosingDialog, ItsFrameAsksOnce) {
  enter(name_, QStringLiteral("Zilda"));
  boxes_.willPress(QStringLiteral("Descartar"));
  closeByFrame(*window_);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(boxes_.takeTexts(), QStringList(kClose));
}

TEST_F(ClosingForm, AFormThatNoLongerAsksCloses) {
  record_->setAsksOnClose(false);
  enter(name_, QStringLiteral("Zilda"));
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

}  // namespace
}  // namespace tessaria::qt::tests

// Contract of every host's rows for update when the answer to a write is lost.
#pragma once

#include "tests/ports/record_set_contract.h"

namespace tessaria::contract {

class WriteInDoubtContract : public RecordSetContract {
 protected:
  void Reconnect() {
    if (driver_->Connection()->State() == host::state::Closed) driver_->Connection()->Open();
  }
  /// Runs a call that writes, and loses its answer.
  template <class Call>
  void Lose(bool stored, Call&& call) {
    driver_->LoseNextAnswer(stored);
    EXPECT_EQ(ErrorOf(call), errors::WriteInDoubt);
    EXPECT_EQ(driver_->Connection()->State(), host::state::Closed);
  }
  host::RecordsetPtr WithNewRow() {
    const auto rows = Writable();
    rows->AddNew();
    Field(rows, u"Codigo")->Value(4);
    Field(rows, u"Nome")->Value(u"Davi");
    return rows;
  }
};

TEST_P(WriteInDoubtContract, TheRowsReportThatTheirRowIsInDoubt) {
  const auto rows = WithNewRow();
  EXPECT_FALSE(rows->IsInDoubt());
  Lose(true, [&] { rows->Update(); });
  EXPECT_TRUE(rows->IsInDoubt());
  Reconnect();
  rows->Update();
  EXPECT_FALSE(rows->IsInDoubt());
  Lose(false, [&] { rows->Delete(); });
  EXPECT_TRUE(rows->IsInDoubt());
  rows->CancelUpdate();
  EXPECT_FALSE(rows->IsInDoubt());
}

TEST_P(WriteInDoubtContract, TheEditStaysAsItWasTypedAndIsNotSentByItself) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  Lose(false, [&] { rows->MoveNext(); });
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(rows->AbsolutePosition(), 1);
    EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
    EXPECT_EQ(NameOf(rows), u"Alice");
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::InvalidConnection);
  }
  Reconnect();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla"));
  rows->MoveNext();
  EXPECT_EQ(NameOf(rows), u"Bruno");
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Alice", u"Bruno", u"Carla"));
}

TEST_P(WriteInDoubtContract, AnEditThatWasStoredIsOver) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  Lose(true, [&] { rows->Update(); });
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  Reconnect();
  rows->Update();
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Alice", u"Bruno", u"Carla"));
  Field(rows, u"Nome")->Value(u"Amanda");  // and the stored row is the original of the next edit
  rows->Update();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Amanda", u"Bruno", u"Carla"));
}

TEST_P(WriteInDoubtContract, WhatWasTypedSinceThenIsWrittenToo) {
  for (const bool stored : {true, false}) {
    driver_ = GetParam().make();
    const auto rows = Writable();
    Field(rows, u"Nome")->Value(u"Alice");
    Field(rows, u"Valor")->Value(5);
    Lose(stored, [&] { rows->Update(); });
    Field(rows, u"Nome")->Value(u"Ana");  // as it was at first
    Reconnect();
    rows->Update();
    EXPECT_EQ(rows->EditMode(), host::EditMode::None);
    rows->Requery();
    EXPECT_EQ(NameOf(rows), u"Ana");
    EXPECT_EQ(CDbl(Field(rows, u"Valor")->Value()), 5);
  }
}

// The row is neither as it was read nor as it was written: it is unknown who changed it.
TEST_P(WriteInDoubtContract, AnotherUsersChangeIsNotOverwritten) {
  for (const bool stored : {true, false}) {
    driver_ = GetParam().make();
    const auto rows = Writable();
    Field(rows, u"Nome")->Value(u"Alice");
    Lose(stored, [&] { rows->Update(); });
    driver_->ChangeName(1, u"Amanda");
    Reconnect();
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::WriteInDoubt);
    EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), errors::WriteInDoubt);
    EXPECT_EQ(NameOf(rows), u"Alice");
    EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Amanda", u"Bruno", u"Carla"));
    rows->CancelUpdate();
    rows->Requery();
    EXPECT_EQ(NameOf(rows), u"Amanda");
  }
}

TEST_P(WriteInDoubtContract, AnEditThatTheDatabaseChangedIsNotWrittenAgain) {
  const auto rows = Writable();
  driver_->StoreNamesInCapitals();
  Field(rows, u"Nome")->Value(u"Alice");
  Lose(true, [&] { rows->Update(); });
  Reconnect();
  for (int i = 0; i < 2; ++i) EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::WriteInDoubt);
  EXPECT_TRUE(rows->IsInDoubt());
  EXPECT_EQ(NameOf(rows), u"Alice");
  rows->CancelUpdate();
  rows->Requery();
  EXPECT_EQ(NameOf(rows), u"ALICE");
}

TEST_P(WriteInDoubtContract, AnEditIsFoundAsItsColumnStoresIt) {
  for (const bool stored : {true, false}) {
    driver_ = GetParam().make();
    const auto rows = Writable();
    Field(rows, u"Valor")->Value(u"1,239");
    Lose(stored, [&] { rows->Update(); });
    Reconnect();
    rows->Update();
    EXPECT_EQ(rows->EditMode(), host::EditMode::None);
    EXPECT_EQ(CStr(Field(rows, u"Valor")->Value()), u"1,24");
  }
}

TEST_P(WriteInDoubtContract, ANewRowIsFoundAsItsColumnsStoreIt) {
  for (const bool stored : {true, false}) {
    driver_ = GetParam().make();
    const auto rows = WithNewRow();
    Field(rows, u"Valor")->Value(u"1,235");
    Lose(stored, [&] { rows->Update(); });
    Reconnect();
    rows->Update();
    EXPECT_EQ(rows->RecordCount(), 4);
    EXPECT_EQ(CStr(Field(rows, u"Valor")->Value()), u"1,24");
    EXPECT_EQ(driver_->StoredNames().size(), 4U);
  }
}

TEST_P(WriteInDoubtContract, ANewRowIsStoredOnceHoweverOftenItIsSaved) {
  for (const bool stored : {true, false}) {
    driver_ = GetParam().make();
    const auto rows = WithNewRow();
    Lose(stored, [&] { rows->Update(); });
    EXPECT_EQ(rows->EditMode(), host::EditMode::Add);
    EXPECT_EQ(NameOf(rows), u"Davi");
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::InvalidConnection);
    Reconnect();
    for (int i = 0; i < 4; ++i) rows->Update();
    EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla", u"Davi"));
    EXPECT_EQ(rows->RecordCount(), 4);
    EXPECT_EQ(rows->AbsolutePosition(), 4);
    EXPECT_EQ(NameOf(rows), u"Davi");
  }
}

TEST_P(WriteInDoubtContract, ANewRowThatGotAnotherKeySinceThenIsStillOneRow) {
  const auto rows = WithNewRow();
  Lose(true, [&] { rows->Update(); });
  Field(rows, u"Codigo")->Value(5);
  Reconnect();
  rows->Update();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla", u"Davi"));
  EXPECT_EQ(CodeOf(rows), 5);
}

TEST_P(WriteInDoubtContract, ANewRowWhoseKeyHoldsSomethingElseIsLeftToTheProgram) {
  const auto rows = WithNewRow();
  Lose(true, [&] { rows->Update(); });
  driver_->ChangeName(4, u"Daniel");
  Reconnect();
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::WriteInDoubt);
  EXPECT_EQ(ErrorOf([&] { rows->MoveFirst(); }), errors::WriteInDoubt);
  EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }), errors::WriteInDoubt);
  rows->Requery();
  EXPECT_EQ(rows->EditMode(), host::EditMode::Add);
  EXPECT_EQ(NameOf(rows), u"Davi");
  EXPECT_EQ(CStr(rows->ValueAt(4, 1)), u"Daniel");
  EXPECT_EQ(ErrorOf([&] { rows->Requery(); }), 3219);
  rows->CancelUpdate();
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(rows->RecordCount(), 4);
}

TEST_P(WriteInDoubtContract, ADeletionIsLookedUpToo) {
  for (const bool stored : {true, false}) {
    driver_ = GetParam().make();
    const auto rows = Writable();
    rows->MoveNext();
    Lose(stored, [&] { rows->Delete(); });
    EXPECT_EQ(NameOf(rows), u"Bruno");
    Reconnect();
    rows->Delete();
    EXPECT_EQ(rows->EditMode(), host::EditMode::Delete);
    EXPECT_EQ(rows->RecordCount(), 2);
    EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Carla"));
  }
}

TEST_P(WriteInDoubtContract, ARowInDoubtThatWasDeletedCannotBeEdited) {
  const auto rows = Writable();
  Lose(true, [&] { rows->Delete(); });
  Reconnect();
  Field(rows, u"Nome")->Value(u"Alice");
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::RowChanged);
  rows->CancelUpdate();
  rows->MoveNext();
  EXPECT_EQ(NameOf(rows), u"Bruno");
}

TEST_P(WriteInDoubtContract, AStatementThatWritesIsInDoubtToo) {
  for (const bool stored : {true, false}) {
    driver_ = GetParam().make();
    const String statement = driver_->Renaming(1, u"Alice");
    Lose(stored, [&] { driver_->Connection()->Execute(statement); });
    Reconnect();
    EXPECT_EQ(driver_->StoredNames().front(), stored ? u"Alice" : u"Ana");
  }
}

TEST_P(WriteInDoubtContract, AStatementInsideATransactionIsUndone) {
  const auto connection = driver_->Connection();
  const String statement = driver_->Renaming(1, u"Alice");
  connection->BeginTrans();
  driver_->LoseNextAnswer(true);
  EXPECT_EQ(ErrorOf([&] { connection->Execute(statement); }), errors::ProviderError);
  Reconnect();
  EXPECT_EQ(driver_->StoredNames().front(), u"Ana");
}

TEST_P(WriteInDoubtContract, CancelUpdateDropsTheEdit) {
  const auto rows = WithNewRow();
  Lose(true, [&] { rows->Update(); });
  rows->CancelUpdate();
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(NameOf(rows), u"Ana");
  Reconnect();
  rows->Requery();
  EXPECT_EQ(rows->RecordCount(), 4);
}

TEST_P(WriteInDoubtContract, InsideATransactionNothingIsInDoubt) {
  const auto connection = driver_->Connection();
  connection->BeginTrans();
  const auto rows = WithNewRow();
  driver_->LoseNextAnswer(true);
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::ProviderError);
  Reconnect();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla"));
  rows->Update();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla", u"Davi"));
}

}  // namespace tessaria::contract

// Contract of every host's rows for update: transactions that are undone, and rows that another
// user has changed meanwhile.
#pragma once

#include "tests/ports/record_set_contract.h"

namespace tessaria::contract {

class RowRecoveryContract : public RecordSetContract {
 protected:
  static host::RowRecovery& RecoveryOf(const host::RecordsetPtr& rows) { return *rows->Recovery(); }
  host::RecordsetPtr WithNewRow() {
    const auto rows = Writable();
    rows->MoveNext();
    rows->AddNew();
    Field(rows, u"Codigo")->Value(4);
    Field(rows, u"Nome")->Value(u"Davi");
    return rows;
  }
  /// Bruno, renamed by the operator and by another user.
  host::RecordsetPtr InConflict() {
    const auto rows = Writable();
    rows->MoveNext();
    Field(rows, u"Nome")->Value(u"Bia");
    driver_->ChangeName(2, u"Bento");
    EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::RowChanged);
    return rows;
  }
  host::Connection& Transaction() { return *driver_->Connection(); }
};

TEST_P(RowRecoveryContract, RowsThatCannotBeWrittenHaveNone) {
  EXPECT_EQ(ReadOnly()->Recovery(), nullptr);
  EXPECT_NE(Writable()->Recovery(), nullptr);
}

TEST_P(RowRecoveryContract, TheFormerValueIsThatBeforeTheEdit) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  EXPECT_EQ(CStr(RecoveryOf(rows).Former(1)), u"Ana");
  rows->CancelUpdate();
  EXPECT_EQ(CStr(RecoveryOf(rows).Former(1)), u"Ana");
  rows->AddNew();
  EXPECT_TRUE(RecoveryOf(rows).Former(1).IsNull());
  EXPECT_EQ(ErrorOf([&] { RecoveryOf(rows).Former(4); }), errors::ItemNotFound);
}

TEST_P(RowRecoveryContract, AnEditWhoseTransactionWasUndoneIsPendingAgain) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  Transaction().BeginTrans();
  rows->Update();
  Transaction().RollbackTrans();
  RecoveryOf(rows).TakeBack(false);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  EXPECT_EQ(NameOf(rows), u"Alice");
  EXPECT_EQ(CStr(RecoveryOf(rows).Former(1)), u"Ana");
  EXPECT_FALSE(rows->IsInDoubt());
  rows->Update();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Alice", u"Bruno", u"Carla"));
}

TEST_P(RowRecoveryContract, SeveralUpdatesOfATransactionComeBackAsOneEdit) {
  const auto rows = Writable();
  Transaction().BeginTrans();
  Field(rows, u"Nome")->Value(u"Alice");
  rows->Update();
  Field(rows, u"Valor")->Value(99);
  rows->Update();
  Transaction().RollbackTrans();
  RecoveryOf(rows).TakeBack(false);
  EXPECT_EQ(CDbl(Field(rows, u"Valor")->Value()), 99);
  rows->CancelUpdate();
  EXPECT_EQ(NameOf(rows), u"Ana");
  EXPECT_EQ(CDbl(Field(rows, u"Valor")->Value()), 10.5);
}

TEST_P(RowRecoveryContract, ANewRowWhoseTransactionWasUndoneIsNewAgain) {
  const auto rows = WithNewRow();
  Transaction().BeginTrans();
  rows->Update();
  EXPECT_EQ(rows->RecordCount(), 4);
  Transaction().RollbackTrans();
  RecoveryOf(rows).TakeBack(false);
  EXPECT_EQ(rows->RecordCount(), 3);
  EXPECT_EQ(rows->EditMode(), host::EditMode::Add);
  EXPECT_EQ(NameOf(rows), u"Davi");
  rows->Update();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla", u"Davi"));
  EXPECT_EQ(rows->RecordCount(), 4);
}

TEST_P(RowRecoveryContract, ANewRowThatIsGivenUpShowsTheRowBeforeIt) {
  const auto rows = WithNewRow();
  Transaction().BeginTrans();
  rows->Update();
  Transaction().RollbackTrans();
  RecoveryOf(rows).TakeBack(false);
  rows->CancelUpdate();
  EXPECT_EQ(NameOf(rows), u"Bruno");
}

TEST_P(RowRecoveryContract, WhatWasWrittenBeforeTheTransactionIsNotTakenBack) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  rows->Update();
  Transaction().BeginTrans();
  Transaction().RollbackTrans();
  RecoveryOf(rows).TakeBack(false);
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(NameOf(rows), u"Alice");
}

TEST_P(RowRecoveryContract, ATransactionOfUnknownOutcomeThatWasStoredIsOver) {
  const auto rows = WithNewRow();
  Transaction().BeginTrans();
  rows->Update();
  Transaction().CommitTrans();
  RecoveryOf(rows).TakeBack(true);
  EXPECT_TRUE(rows->IsInDoubt());
  Field(rows, u"Valor")->Value(5);  // typed since then
  EXPECT_TRUE(RecoveryOf(rows).FindOut());
  EXPECT_FALSE(rows->IsInDoubt());
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  rows->Update();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla", u"Davi"));
  EXPECT_FALSE(RecoveryOf(rows).FindOut());
}

TEST_P(RowRecoveryContract, ATransactionOfUnknownOutcomeThatWasNotStoredIsPending) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  Transaction().BeginTrans();
  rows->Update();
  Transaction().RollbackTrans();
  RecoveryOf(rows).TakeBack(true);
  EXPECT_FALSE(RecoveryOf(rows).FindOut());
  EXPECT_FALSE(rows->IsInDoubt());
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla"));
}

TEST_P(RowRecoveryContract, TheStoredRowIsReadBesideTheEdit) {
  const auto rows = InConflict();
  const auto stored = RecoveryOf(rows).ReadStored();
  ASSERT_NE(stored, nullptr);
  EXPECT_EQ(CStr(stored->Value(1)), u"Bento");
  EXPECT_EQ(ErrorOf([&] { stored->Value(4); }), errors::ItemNotFound);
  EXPECT_EQ(NameOf(rows), u"Bia");
  EXPECT_EQ(CStr(RecoveryOf(rows).Former(1)), u"Bruno");
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::RowChanged);
}

TEST_P(RowRecoveryContract, AnEditOfTheStoredRowIsWrittenOverIt) {
  const auto rows = InConflict();
  RecoveryOf(rows).Rebase(RecoveryOf(rows).ReadStored());
  EXPECT_EQ(CStr(RecoveryOf(rows).Former(1)), u"Bento");
  EXPECT_EQ(NameOf(rows), u"Bia");
  rows->Update();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bia", u"Carla"));
}

TEST_P(RowRecoveryContract, AThirdChangeIsMetToo) {
  const auto rows = InConflict();
  const auto stored = RecoveryOf(rows).ReadStored();
  driver_->ChangeName(2, u"Benedita");
  RecoveryOf(rows).Rebase(stored);
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::RowChanged);
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Benedita", u"Carla"));
}

TEST_P(RowRecoveryContract, WhatIsAlreadyStoredIsNoEdit) {
  const auto rows = InConflict();
  Field(rows, u"Nome")->Value(u"Bento");
  RecoveryOf(rows).Rebase(RecoveryOf(rows).ReadStored());
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(NameOf(rows), u"Bento");
}

TEST_P(RowRecoveryContract, ARowWithoutAnEditIsReadAgain) {
  const auto rows = Writable();
  driver_->ChangeName(1, u"Alice");
  RecoveryOf(rows).Rebase(RecoveryOf(rows).ReadStored());
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(NameOf(rows), u"Alice");
}

TEST_P(RowRecoveryContract, AnEditOfADeletedRowBecomesANewRow) {
  const auto rows = Writable();
  rows->MoveNext();
  Field(rows, u"Nome")->Value(u"Bia");
  driver_->DeleteRow(2);
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::RowChanged);
  EXPECT_EQ(RecoveryOf(rows).ReadStored(), nullptr);
  RecoveryOf(rows).Rebase(nullptr);
  EXPECT_EQ(rows->EditMode(), host::EditMode::Add);
  EXPECT_EQ(CodeOf(rows), 2);
  rows->Update();
  EXPECT_THAT(driver_->StoredNames(), testing::UnorderedElementsAre(u"Ana", u"Bia", u"Carla"));
  EXPECT_EQ(rows->RecordCount(), 3);
}

TEST_P(RowRecoveryContract, ADeletedRowWithoutAnEditLeavesTheRows) {
  const auto rows = Writable();
  rows->MoveNext();
  driver_->DeleteRow(2);
  RecoveryOf(rows).Rebase(RecoveryOf(rows).ReadStored());
  EXPECT_EQ(rows->EditMode(), host::EditMode::Delete);
  rows->MoveNext();
  EXPECT_EQ(NameOf(rows), u"Carla");
  EXPECT_EQ(rows->RecordCount(), 2);
}

TEST_P(RowRecoveryContract, ANewRowHasNoStoredOne) {
  const auto rows = WithNewRow();
  EXPECT_EQ(ErrorOf([&] { RecoveryOf(rows).ReadStored(); }), errors::NoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { RecoveryOf(rows).Rebase(nullptr); }), errors::NoCurrentRecord);
}

}  // namespace tessaria::contract

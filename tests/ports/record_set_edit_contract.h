// Contract of every host's rows for update: edits, new rows, deleted rows.
#pragma once

#include "tests/ports/record_set_contract.h"

namespace tessaria::contract {

TEST_P(RecordSetContract, AnEditIsSeenAtOnceAndWrittenByUpdate) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  EXPECT_EQ(NameOf(rows), u"Alice");
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla"));
  rows->Update();
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(NameOf(rows), u"Alice");
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Alice", u"Bruno", u"Carla"));
}

TEST_P(RecordSetContract, ValuesAreConvertedToTheTypeOfTheirField) {
  const auto rows = Writable();
  Field(rows, u"Valor")->Value(u"1.234,50");
  Field(rows, u"Data")->Value(u"31/12/2022");
  rows->Update();
  EXPECT_EQ(CDbl(Field(rows, u"Valor")->Value()), 1234.5);
  EXPECT_EQ(CStr(Field(rows, u"Data")->Value()), u"31/12/2022");
}

TEST_P(RecordSetContract, NullIsWrittenAsNull) {
  const auto rows = Writable();
  Field(rows, u"Valor")->Value(Variant::Null());
  rows->Update();
  rows->Requery();
  EXPECT_TRUE(Field(rows, u"Valor")->Value().IsNull());
}

TEST_P(RecordSetContract, ABlankInAFieldThatIsNoTextIsNull) {
  const auto rows = Writable();
  Field(rows, u"Valor")->Value(u"");
  EXPECT_TRUE(Field(rows, u"Valor")->Value().IsNull());
}

TEST_P(RecordSetContract, MovingOffAnEditedRowWritesIt) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  rows->MoveNext();
  EXPECT_EQ(NameOf(rows), u"Bruno");
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Alice", u"Bruno", u"Carla"));
}

TEST_P(RecordSetContract, CancelUpdateDropsTheEdit) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  rows->CancelUpdate();
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(NameOf(rows), u"Ana");
  rows->MoveNext();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla"));
}

TEST_P(RecordSetContract, AnEqualValueIsNoEdit) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Ana");
  Field(rows, u"Codigo")->Value(1.0);
  Field(rows, u"Valor")->Value(10.5);
  Field(rows, u"Data")->Value(CDate(u"15/03/2021"));
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
}

TEST_P(RecordSetContract, AnExactFieldComparesExactly) {
  const auto rows = Writable();
  Field(rows, u"Valor")->Value(u"10,50");
  Field(rows, u"Valor")->Value(DecimalFromText(u"10.500"));
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  Field(rows, u"Valor")->Value(u"10,50000000000000000001");
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
}

TEST_P(RecordSetContract, AReadOnlySetRefusesEdits) {
  const auto rows = ReadOnly();
  EXPECT_EQ(ErrorOf([&] { Field(rows, u"Nome")->Value(u"Alice"); }), errors::NotUpdatable);
  EXPECT_EQ(ErrorOf([&] { rows->AddNew(); }), errors::NotUpdatable);
  EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), errors::NotUpdatable);
  EXPECT_EQ(NameOf(rows), u"Ana");
}

TEST_P(RecordSetContract, AReadOnlySetTakesAnEqualValue) {
  const auto rows = ReadOnly();
  EXPECT_EQ(ErrorOf([&] { Field(rows, u"Nome")->Value(u"Ana"); }), 0);
  EXPECT_EQ(ErrorOf([&] { Field(rows, u"Valor")->Value(10.5); }), 0);
  rows->MoveNext();
  EXPECT_EQ(ErrorOf([&] { Field(rows, u"Valor")->Value(Variant::Null()); }), 0);
}

TEST_P(RecordSetContract, AValueThatTheTypeRefusesLeavesTheRow) {
  const auto rows = Writable();
  EXPECT_THAT(ErrorOf([&] { Field(rows, u"Valor")->Value(u"abc"); }),
              testing::AnyOf(13, -2147217887));
  EXPECT_THAT(ErrorOf([&] { Field(rows, u"Data")->Value(u"31/02/2020"); }),
              testing::AnyOf(13, -2147217887));
  EXPECT_EQ(CDbl(Field(rows, u"Valor")->Value()), 10.5);
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
}

TEST_P(RecordSetContract, ATextThatNoDatabaseTakesWholeIsRefusedBeforeItIsStored) {
  const auto rows = Writable();
  for (const String& text : {String(u"Ali\0ce", 6), String(u"Alice") + String(1, char16_t{0xD83D}),
                             String(1, char16_t{0xDE00}) + u"Alice"}) {
    EXPECT_EQ(ErrorOf([&] { Field(rows, u"Nome")->Value(text); }), errors::InvalidArgument);
    EXPECT_EQ(NameOf(rows), u"Ana");
    EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  }
  rows->AddNew();
  EXPECT_EQ(ErrorOf([&] { Field(rows, u"Nome")->Value(String(u"\0", 1)); }),
            errors::InvalidArgument);
  rows->CancelUpdate();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla"));
}

TEST_P(RecordSetContract, ARefusedWriteStaysOnTheRowWithTheEdit) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  driver_->ChangeName(1, u"Amanda");
  EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), errors::RowChanged);
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  EXPECT_EQ(NameOf(rows), u"Alice");
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Amanda", u"Bruno", u"Carla"));
  rows->CancelUpdate();
  rows->MoveNext();
  EXPECT_EQ(NameOf(rows), u"Bruno");
}

TEST_P(RecordSetContract, ARowThatAnotherUserDeletedIsNotWritten) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  driver_->DeleteRow(1);
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::RowChanged);
  EXPECT_EQ(ErrorOf([&] { rows->Update(); }), errors::RowChanged);
}

TEST_P(RecordSetContract, ANewRowReadsAsNullUntilItIsAssigned) {
  const auto rows = Writable();
  rows->AddNew();
  EXPECT_EQ(rows->EditMode(), host::EditMode::Add);
  EXPECT_FALSE(rows->Bof());
  EXPECT_FALSE(rows->Eof());
  EXPECT_TRUE(Field(rows, u"Nome")->Value().IsNull());
  Field(rows, u"Codigo")->Value(4);
  Field(rows, u"Nome")->Value(u"Davi");
  rows->Update();
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(NameOf(rows), u"Davi");
  EXPECT_EQ(rows->RecordCount(), 4);
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla", u"Davi"));
}

TEST_P(RecordSetContract, CancelUpdateRemovesANewRow) {
  const auto rows = Writable();
  rows->MoveNext();
  rows->AddNew();
  Field(rows, u"Codigo")->Value(4);
  rows->CancelUpdate();
  EXPECT_EQ(rows->RecordCount(), 3);
  EXPECT_EQ(NameOf(rows), u"Bruno");
}

TEST_P(RecordSetContract, ANewRowMayBeTheFirst) {
  for (Long codigo = 1; codigo <= 3; ++codigo) driver_->DeleteRow(codigo);
  const auto rows = Writable();
  ASSERT_TRUE(rows->Eof());
  rows->AddNew();
  Field(rows, u"Codigo")->Value(1);
  Field(rows, u"Nome")->Value(u"Eva");
  rows->Update();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Eva"));
}

TEST_P(RecordSetContract, DeleteRemovesTheCurrentRow) {
  const auto rows = Writable();
  rows->MoveNext();
  rows->Delete();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Carla"));
  EXPECT_EQ(rows->RecordCount(), 2);
  EXPECT_EQ(ErrorOf([&] { NameOf(rows); }), errors::NoCurrentRecord);
  rows->MoveNext();
  EXPECT_EQ(NameOf(rows), u"Carla");
}

TEST_P(RecordSetContract, TheEditModeReportsADeletedRowUntilTheNextMove) {
  const auto rows = Writable();
  rows->Delete();
  EXPECT_EQ(rows->EditMode(), host::EditMode::Delete);
  EXPECT_FALSE(rows->Bof());
  EXPECT_FALSE(rows->Eof());
  rows->MoveNext();
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(NameOf(rows), u"Bruno");
  rows->Delete();
  rows->AddNew();
  EXPECT_EQ(rows->EditMode(), host::EditMode::Add);
  rows->CancelUpdate();
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
}

TEST_P(RecordSetContract, DeletingANewRowDropsIt) {
  const auto rows = Writable();
  rows->MoveNext();
  rows->AddNew();
  rows->Delete();
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_EQ(NameOf(rows), u"Bruno");
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla"));
}

TEST_P(RecordSetContract, ASetEmptiedByDeletesHasNoRowToMoveTo) {
  const auto rows = Writable();
  for (int i = 0; i < 3; ++i) {
    rows->MoveFirst();
    rows->Delete();
  }
  EXPECT_EQ(rows->EditMode(), host::EditMode::Delete);
  EXPECT_EQ(ErrorOf([&] { rows->MoveFirst(); }), errors::NoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { rows->MoveLast(); }), errors::NoCurrentRecord);
  rows->MoveNext();
  EXPECT_TRUE(rows->Bof());
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
}

TEST_P(RecordSetContract, DeleteRefusesARowThatAnotherUserChanged) {
  const auto rows = Writable();
  driver_->ChangeName(1, u"Amanda");
  EXPECT_EQ(ErrorOf([&] { rows->Delete(); }), errors::RowChanged);
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Amanda", u"Bruno", u"Carla"));
}

}  // namespace tessaria::contract

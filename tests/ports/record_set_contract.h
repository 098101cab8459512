// Contract of every data host's record set. See text_box_contract.h for how a host joins in.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/data.h"
#include "tessaria/text.h"

namespace tessaria::contract {

/// A database with one table of these columns and rows:
///
///   Codigo  integer, key   Nome  text of up to 20, not null   Valor  number 10.2   Data  date
///   1                      Ana                                10.50                15/03/2021
///   2                      Bruno                              Null                 Null
///   3                      Carla                              7                    01/02/2020
class DataDriver {
 public:
  DataDriver() = default;
  DataDriver(const DataDriver&) = delete;
  DataDriver& operator=(const DataDriver&) = delete;
  virtual ~DataDriver() = default;

  /// An open connection.
  virtual host::ConnectionPtr Connection() = 0;
  /// The table's rows in the order of Codigo.
  virtual host::RecordsetPtr Open(host::LockType lock) = 0;
  /// A statement that finds no row of the table.
  virtual host::RecordsetPtr OpenEmpty() = 0;
  /// Changes by another user to the row of a Codigo, which the table shows.
  virtual void ChangeName(Long code, const String& name) = 0;
  virtual void DeleteRow(Long code) = 0;
  /// A statement that changes the Nome of the row of a Codigo.
  virtual String Renaming(Long code, const String& name) = 0;
  /// The connection breaks with the next write, before or after it is stored.
  virtual void LoseNextAnswer(bool stored) = 0;
  /// From now on the database stores Nome in capitals, whoever writes it.
  virtual void StoreNamesInCapitals() = 0;
  /// The column Nome as it is stored now, in the order of Codigo.
  virtual std::vector<String> StoredNames() = 0;
};

struct DataHost {
  const char* name;
  std::function<std::unique_ptr<DataDriver>()> make;
  friend void PrintTo(const DataHost& host, std::ostream* out) { *out << host.name; }
};

class RecordSetContract : public testing::TestWithParam<DataHost> {
 protected:
  void SetUp() override {
    driver_ = GetParam().make();
    ASSERT_NE(driver_, nullptr);
  }

  host::RecordsetPtr ReadOnly() { return driver_->Open(host::LockType::ReadOnly); }
  host::RecordsetPtr Writable() { return driver_->Open(host::LockType::Optimistic); }

  static host::FieldPtr Field(const host::RecordsetPtr& rows, const String& name) {
    return rows->Fields().Item(name);
  }
  static String NameOf(const host::RecordsetPtr& rows) {
    return CStr(Field(rows, u"Nome")->Value());
  }
  static Long CodeOf(const host::RecordsetPtr& rows) {
    return CLng(Field(rows, u"Codigo")->Value());
  }
  template <class Call>
  static Long ErrorOf(Call&& call) {
    try {
      call();
    } catch (const HostError& error) {
      return error.Number();
    }
    return 0;
  }

  std::unique_ptr<DataDriver> driver_;
};

// --- Columns ----------------------------------------------------------------------------------

TEST_P(RecordSetContract, ColumnsAreInTheOrderOfTheStatement) {
  const auto rows = ReadOnly();
  ASSERT_EQ(rows->Fields().Count(), 4);
  const char16_t* const names[] = {u"Codigo", u"Nome", u"Valor", u"Data"};
  for (Long i = 0; i < 4; ++i) EXPECT_TRUE(EqualNoCase(rows->Fields().Item(i)->Name(), names[i]));
}

TEST_P(RecordSetContract, ColumnsAreFoundWithoutRegardToCase) {
  const auto rows = ReadOnly();
  EXPECT_EQ(CStr(rows->Fields().Item(u"NOME")->Value()), u"Ana");
  EXPECT_EQ(CStr(rows->Fields().Item(u"nome")->Value()), u"Ana");
}

TEST_P(RecordSetContract, AnUnknownColumnIsError3265) {
  const auto rows = ReadOnly();
  EXPECT_EQ(ErrorOf([&] { rows->Fields().Item(u"Nada"); }), errors::ItemNotFound);
  EXPECT_EQ(ErrorOf([&] { rows->Fields().Item(4); }), errors::ItemNotFound);
  EXPECT_EQ(ErrorOf([&] { rows->Fields().Item(-1); }), errors::ItemNotFound);
}

TEST_P(RecordSetContract, ColumnsReportTheirTypes) {
  const auto rows = ReadOnly();
  EXPECT_EQ(Field(rows, u"Codigo")->Type(), host::type::Integer);
  EXPECT_THAT(Field(rows, u"Nome")->Type(),
              testing::AnyOf(host::type::VarChar, host::type::VarWChar));
  EXPECT_EQ(Field(rows, u"Valor")->Type(), host::type::Numeric);
  EXPECT_THAT(Field(rows, u"Data")->Type(),
              testing::AnyOf(host::type::Date, host::type::DBDate, host::type::DBTimeStamp));
}

TEST_P(RecordSetContract, ColumnsReportTheirSizes) {
  const auto rows = ReadOnly();
  EXPECT_EQ(Field(rows, u"Nome")->DefinedSize(), 20);
  EXPECT_EQ(Field(rows, u"Valor")->Precision(), 10);
  EXPECT_EQ(Field(rows, u"Valor")->NumericScale(), 2);
}

TEST_P(RecordSetContract, ColumnsReportWhetherTheyAcceptNull) {
  const auto rows = Writable();
  EXPECT_EQ(Field(rows, u"Nome")->Attributes() & host::attribute::IsNullable, 0);
  EXPECT_NE(Field(rows, u"Valor")->Attributes() & host::attribute::IsNullable, 0);
  EXPECT_NE(Field(rows, u"Nome")->Attributes() & host::attribute::Updatable, 0);
}

// --- Values -----------------------------------------------------------------------------------

TEST_P(RecordSetContract, ValuesComeInTheirKinds) {
  const auto rows = ReadOnly();
  EXPECT_TRUE(Field(rows, u"Codigo")->Value().IsNumeric());
  EXPECT_TRUE(Field(rows, u"Nome")->Value().IsString());
  EXPECT_EQ(CDbl(Field(rows, u"Valor")->Value()), 10.5);
  const Variant date = Field(rows, u"Data")->Value();
  ASSERT_NE(date.TryGet<Date>(), nullptr);
  EXPECT_EQ(CStr(date), u"15/03/2021");
}

TEST_P(RecordSetContract, NullReadsAsNull) {
  const auto rows = ReadOnly();
  rows->MoveNext();
  EXPECT_TRUE(Field(rows, u"Valor")->Value().IsNull());
  EXPECT_TRUE(Field(rows, u"Data")->Value().IsNull());
}

TEST_P(RecordSetContract, AFieldFollowsTheCurrentRow) {
  const auto rows = ReadOnly();
  const auto field = Field(rows, u"Nome");
  rows->MoveNext();
  EXPECT_EQ(CStr(field->Value()), u"Bruno");
}

// --- Moves ------------------------------------------------------------------------------------

TEST_P(RecordSetContract, AnOpenedSetStandsOnTheFirstRow) {
  const auto rows = ReadOnly();
  EXPECT_EQ(rows->State(), host::state::Open);
  EXPECT_FALSE(rows->Bof());
  EXPECT_FALSE(rows->Eof());
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  EXPECT_EQ(rows->RecordCount(), 3);
  EXPECT_EQ(CodeOf(rows), 1);
}

TEST_P(RecordSetContract, MoveNextEndsAfterTheLastRow) {
  const auto rows = ReadOnly();
  std::vector<String> names;
  for (; !rows->Eof(); rows->MoveNext()) names.push_back(NameOf(rows));
  EXPECT_THAT(names, testing::ElementsAre(u"Ana", u"Bruno", u"Carla"));
  EXPECT_FALSE(rows->Bof());
  EXPECT_EQ(rows->AbsolutePosition(), -3);
  EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), errors::NoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { NameOf(rows); }), errors::NoCurrentRecord);
}

TEST_P(RecordSetContract, MovePreviousEndsBeforeTheFirstRow) {
  const auto rows = ReadOnly();
  rows->MovePrevious();
  EXPECT_TRUE(rows->Bof());
  EXPECT_FALSE(rows->Eof());
  EXPECT_EQ(rows->AbsolutePosition(), -1);
  EXPECT_EQ(ErrorOf([&] { rows->MovePrevious(); }), errors::NoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { NameOf(rows); }), errors::NoCurrentRecord);
  rows->MoveNext();
  EXPECT_EQ(NameOf(rows), u"Ana");
}

TEST_P(RecordSetContract, MoveFirstAndMoveLastGoToTheEnds) {
  const auto rows = ReadOnly();
  rows->MoveLast();
  EXPECT_EQ(NameOf(rows), u"Carla");
  EXPECT_EQ(rows->AbsolutePosition(), 3);
  rows->MoveNext();
  rows->MoveFirst();
  EXPECT_EQ(NameOf(rows), u"Ana");
}

TEST_P(RecordSetContract, APositionCountsFrom1) {
  const auto rows = ReadOnly();
  rows->AbsolutePosition(2);
  EXPECT_EQ(NameOf(rows), u"Bruno");
  EXPECT_EQ(ErrorOf([&] { rows->AbsolutePosition(0); }), errors::NoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { rows->AbsolutePosition(4); }), errors::NoCurrentRecord);
}

TEST_P(RecordSetContract, AnEmptySetStandsAtBothEnds) {
  const auto rows = driver_->OpenEmpty();
  EXPECT_EQ(rows->State(), host::state::Open);
  EXPECT_TRUE(rows->Bof());
  EXPECT_TRUE(rows->Eof());
  EXPECT_EQ(rows->RecordCount(), 0);
  EXPECT_EQ(rows->AbsolutePosition(), -1);
  EXPECT_EQ(rows->Fields().Count(), 4);
  EXPECT_EQ(ErrorOf([&] { rows->MoveNext(); }), errors::NoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { rows->MovePrevious(); }), errors::NoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { NameOf(rows); }), errors::NoCurrentRecord);
}

TEST_P(RecordSetContract, AListReadsValuesOfAnyRowWithoutMoving) {
  const auto rows = Writable();
  rows->MoveNext();
  while (rows->FetchMore(1)) continue;
  EXPECT_TRUE(rows->Complete());
  EXPECT_EQ(rows->RowsRead(), 3);
  const char16_t* const names[] = {u"Ana", u"Bruno", u"Carla"};
  for (Long i = 0; i < 3; ++i) EXPECT_EQ(CStr(rows->ValueAt(i + 1, 1)), names[i]);
  EXPECT_EQ(rows->AbsolutePosition(), 2);
  EXPECT_EQ(ErrorOf([&] { rows->ValueAt(0, 1); }), errors::NoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { rows->ValueAt(4, 1); }), errors::NoCurrentRecord);
  EXPECT_EQ(ErrorOf([&] { rows->ValueAt(1, 4); }), errors::ItemNotFound);
  EXPECT_EQ(ErrorOf([&] { rows->ValueAt(1, -1); }), errors::ItemNotFound);
}

TEST_P(RecordSetContract, AListSeesTheOrderOfTheRowsAndNoPendingEdit) {
  const auto rows = Writable();
  rows->Sort(u"Nome DESC");
  Field(rows, u"Nome")->Value(u"Zilda");
  EXPECT_EQ(CStr(rows->ValueAt(1, 1)), u"Carla");
  EXPECT_EQ(CStr(rows->ValueAt(3, 1)), u"Ana");
  rows->CancelUpdate();
}

// --- Find and Sort ----------------------------------------------------------------------------

TEST_P(RecordSetContract, FindSearchesForwardFromTheCurrentRow) {
  struct {
    const char16_t* criteria;
    const char16_t* found;  ///< Nome; "" for EOF
  } const cases[] = {
      {u"Nome = 'Bruno'", u"Bruno"},
      {u"Nome <> 'Ana'", u"Bruno"},
      {u"Nome > 'Bruno'", u"Carla"},
      {u"Nome >= 'Bruno'", u"Bruno"},
      {u"Nome < 'Bruno'", u"Ana"},
      {u"Codigo = 3", u"Carla"},
      {u"Codigo > 1", u"Bruno"},
      {u"Codigo <= 1", u"Ana"},
      {u"nome like 'Br%'", u"Bruno"},
      {u"Nome LIKE 'C*'", u"Carla"},
      {u"Nome like '%un%'", u"Bruno"},
      {u"Nome like '*la'", u"Carla"},
      {u"Nome like 'Ana'", u"Ana"},
      {u"Valor = 10.5", u"Ana"},
      {u"Nome = 'Zilda'", u""},
      {u"Codigo = 9", u""},
      {u"Data = 01/02/2020", u"Carla"},
      {u"Data = '01/02/2020'", u"Carla"},
      {u"Data = #01/02/2020#", u"Carla"},
      {u"Data > 01/02/2020", u"Ana"},
      {u"Valor = 10,5", u"Ana"},
      {u"Valor = '10,50'", u"Ana"},
      {u"Valor = '10.5'", u"Ana"},
      {u"Valor = 10,50000000000000000001", u""},
      {u"Codigo = 2.5", u""},
      {u"Codigo = 2.0", u"Bruno"},
  };
  for (const auto& [criteria, found] : cases) {
    const auto rows = ReadOnly();
    rows->Find(criteria);
    EXPECT_EQ(rows->Eof() ? u"" : NameOf(rows), found) << testing::PrintToString(String(criteria));
  }
}

TEST_P(RecordSetContract, FindSearchesTheCurrentRowToo) {
  const auto rows = ReadOnly();
  rows->MoveNext();
  rows->Find(u"Codigo >= 1");
  EXPECT_EQ(CodeOf(rows), 2);
  rows->Find(u"Codigo = 1");
  EXPECT_TRUE(rows->Eof());
}

TEST_P(RecordSetContract, FindReadsDoubledQuotes) {
  driver_->ChangeName(2, u"D'Ávila");
  const auto rows = ReadOnly();
  rows->Find(u"Nome = 'D''Ávila'");
  EXPECT_EQ(CodeOf(rows), 2);
}

TEST_P(RecordSetContract, FindRefusesWhatItCannotRead) {
  const auto rows = ReadOnly();
  for (const char16_t* criteria : {u"Nome", u"Nome ~ 'A'", u"Nome = ", u"Nome = 'A", u"Nome = Ana",
                                   u"Codigo = x", u"Codigo = 01/02/2020", u"Data = x"}) {
    EXPECT_EQ(ErrorOf([&] { rows->Find(criteria); }), 3001)
        << testing::PrintToString(String(criteria));
    EXPECT_EQ(CodeOf(rows), 1);
  }
}

TEST_P(RecordSetContract, FindRefusesAPatternOnANumber) {
  const auto rows = ReadOnly();
  EXPECT_NE(ErrorOf([&] { rows->Find(u"Codigo like '1%'"); }), 0);
}

TEST_P(RecordSetContract, SortOrdersTheRowsAndStandsOnTheFirst) {
  const auto rows = ReadOnly();
  rows->MoveLast();
  rows->Sort(u"Nome DESC");
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  EXPECT_EQ(NameOf(rows), u"Carla");
  EXPECT_EQ(rows->Sort(), u"Nome DESC");
  rows->Sort(u"Codigo");
  EXPECT_EQ(NameOf(rows), u"Ana");
  rows->Sort(u"Data, Nome");
  rows->MoveLast();
  EXPECT_EQ(NameOf(rows), u"Ana");
}

TEST_P(RecordSetContract, SortComparesNumbersAsNumbers) {
  const auto rows = ReadOnly();
  rows->Sort(u"Valor desc");
  EXPECT_EQ(NameOf(rows), u"Ana");
  rows->MoveNext();
  EXPECT_EQ(NameOf(rows), u"Carla");
}

TEST_P(RecordSetContract, AnEmptySortRestoresTheOrderOfTheStatement) {
  const auto rows = ReadOnly();
  rows->Sort(u"Nome DESC");
  rows->Sort(u"");
  EXPECT_EQ(rows->Sort(), u"");
  EXPECT_EQ(NameOf(rows), u"Ana");
}

TEST_P(RecordSetContract, SortRefusesAnUnknownField) {
  const auto rows = ReadOnly();
  EXPECT_EQ(ErrorOf([&] { rows->Sort(u"Nada"); }), errors::ItemNotFound);
}

// --- Requery and close ------------------------------------------------------------------------

TEST_P(RecordSetContract, RowsAreStaticUntilTheRequery) {
  const auto rows = ReadOnly();
  rows->MoveLast();
  driver_->ChangeName(3, u"Cecília");
  driver_->DeleteRow(2);
  EXPECT_EQ(NameOf(rows), u"Carla");
  EXPECT_EQ(rows->RecordCount(), 3);
  rows->Requery();
  EXPECT_EQ(rows->AbsolutePosition(), 1);
  EXPECT_EQ(rows->RecordCount(), 2);
  rows->MoveLast();
  EXPECT_EQ(NameOf(rows), u"Cecília");
}

TEST_P(RecordSetContract, FieldsOutliveARequery) {
  const auto rows = ReadOnly();
  const auto field = Field(rows, u"Nome");
  driver_->ChangeName(1, u"Amanda");
  rows->Requery();
  EXPECT_EQ(CStr(field->Value()), u"Amanda");
}

TEST_P(RecordSetContract, APendingEditRefusesTheRequery) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  EXPECT_EQ(ErrorOf([&] { rows->Requery(); }), 3219);
  EXPECT_EQ(NameOf(rows), u"Alice");
}

TEST_P(RecordSetContract, AClosedSetRaises3704) {
  const auto rows = Writable();
  const auto field = Field(rows, u"Nome");
  rows->Close();
  EXPECT_EQ(rows->State(), host::state::Closed);
  const std::function<void()> calls[] = {
      [&] { rows->Bof(); },          [&] { rows->Eof(); },
      [&] { rows->MoveFirst(); },    [&] { rows->MoveLast(); },
      [&] { rows->MoveNext(); },     [&] { rows->MovePrevious(); },
      [&] { rows->RecordCount(); },  [&] { rows->AddNew(); },
      [&] { rows->Update(); },       [&] { rows->Find(u"Nome = 1"); },
      [&] { rows->Requery(); },      [&] { field->Value(); },
      [&] { field->Value(u"x"); },   [&] { field->Name(); },
      [&] { field->Type(); },        [&] { field->Attributes(); },
      [&] { field->DefinedSize(); },
  };
  for (const auto& call : calls) EXPECT_EQ(ErrorOf(call), errors::ObjectClosed);
}

TEST_P(RecordSetContract, CloseDropsAPendingEdit) {
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  rows->Close();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla"));
}

// --- The connection ---------------------------------------------------------------------------

TEST_P(RecordSetContract, AnUnknownConnectionPropertyIsError3265) {
  const auto connection = driver_->Connection();
  EXPECT_FALSE(CStr(connection->Properties(u"DBMS Name")).empty());
  EXPECT_FALSE(CStr(connection->Properties(u"DBMS Version")).empty());
  EXPECT_EQ(ErrorOf([&] { connection->Properties(u"Nada"); }), errors::ItemNotFound);
}

TEST_P(RecordSetContract, AConnectionReportsHowItsServerReadsBackslashes) {
  EXPECT_FALSE(CBool(driver_->Connection()->Properties(u"Backslash Escapes")));
}

TEST_P(RecordSetContract, AStatementThatWouldBeCutIsRefusedWhole) {
  const auto connection = driver_->Connection();
  for (const String& text : {String(u"Select 1\0", 9), u"Select '" + String(1, char16_t{0xD83D})}) {
    EXPECT_EQ(ErrorOf([&] { connection->Execute(text); }), errors::InvalidArgument);
    EXPECT_EQ(ErrorOf([&] {
                connection->OpenRecordset(text, host::CursorType::Static, host::LockType::ReadOnly);
              }),
              errors::InvalidArgument);
  }
}

TEST_P(RecordSetContract, AClosedConnectionRaises3709) {
  const auto connection = driver_->Connection();
  EXPECT_EQ(connection->State(), host::state::Open);
  connection->Close();
  EXPECT_EQ(connection->State(), host::state::Closed);
  EXPECT_EQ(ErrorOf([&] { connection->Properties(u"DBMS Name"); }), errors::InvalidConnection);
  EXPECT_EQ(ErrorOf([&] { connection->Execute(u"Select 1"); }), errors::InvalidConnection);
}

TEST_P(RecordSetContract, ARolledBackEditIsGone) {
  const auto connection = driver_->Connection();
  connection->BeginTrans();
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  rows->Update();
  connection->RollbackTrans();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Ana", u"Bruno", u"Carla"));
}

TEST_P(RecordSetContract, ACommittedEditStays) {
  const auto connection = driver_->Connection();
  connection->BeginTrans();
  const auto rows = Writable();
  Field(rows, u"Nome")->Value(u"Alice");
  rows->Update();
  connection->CommitTrans();
  EXPECT_THAT(driver_->StoredNames(), testing::ElementsAre(u"Alice", u"Bruno", u"Carla"));
}

TEST_P(RecordSetContract, ATextWithASecondStatementIsRefused) {
  const auto connection = driver_->Connection();
  EXPECT_NE(ErrorOf([&] { connection->Execute(u"Select 1; Select 2"); }), 0);
}

}  // namespace tessaria::contract

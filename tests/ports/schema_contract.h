// Contract of every data host's schema. See text_box_contract.h for how a host joins in.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/schema.h"
#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria::contract {

/// Opens a database with these and nothing else of type TABLE or VIEW; null when there is none on
/// this machine:
///
///   table cliente  codigo  integer, key   nome  text of up to 20, not null   valor  number 10.2
///   table item_1   pedido integer, item integer, qtde integer; key: item, pedido
///   table itemx1   outra integer; no key
///   view  ativos   codigo integer
struct SchemaHost {
  const char* name;
  std::function<host::ConnectionPtr()> open;
  friend void PrintTo(const SchemaHost& host, std::ostream* out) { *out << host.name; }
};

class SchemaContract : public testing::TestWithParam<SchemaHost> {
 protected:
  void SetUp() override {
    connection_ = GetParam().open();
    if (connection_ == nullptr) GTEST_SKIP() << "no database here";
  }

  host::RecordsetPtr Schema(host::SchemaKind kind, const String& table = {}) {
    host::SchemaRestrictions restrictions;
    restrictions.Table = table;
    return connection_->OpenSchema(kind, restrictions);
  }
  static Variant Get(const host::RecordsetPtr& rows, const String& field) {
    return rows->Fields().Item(field)->Value();
  }
  static String Text(const host::RecordsetPtr& rows, const String& field) {
    const Variant value = Get(rows, field);
    return value.IsNull() ? u"Null" : CStr(value);
  }
  /// The named fields of each row, with blanks between them.
  static std::vector<String> Lines(const host::RecordsetPtr& rows,
                                   const std::vector<String>& fields) {
    std::vector<String> lines;
    for (; !rows->Eof(); rows->MoveNext()) {
      String line;
      for (const String& field : fields) line += (line.empty() ? u"" : u" ") + Text(rows, field);
      lines.push_back(line);
    }
    return lines;
  }
  static std::vector<String> FieldNames(const host::RecordsetPtr& rows) {
    std::vector<String> names;
    names.reserve(static_cast<std::size_t>(rows->Fields().Count()));
    for (Long i = 0; i < rows->Fields().Count(); ++i) {
      names.push_back(rows->Fields().Item(i)->Name());
    }
    return names;
  }

  host::ConnectionPtr connection_;
};

using host::SchemaKind;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_P(SchemaContract, ColumnsOfEachKindAreThoseOfTheTable) {
  for (const SchemaKind kind : {SchemaKind::Tables, SchemaKind::Columns, SchemaKind::PrimaryKeys}) {
    const auto rows = Schema(kind, u"cliente");
    const auto columns = host::SchemaColumns(kind);
    ASSERT_EQ(rows->Fields().Count(), static_cast<Long>(columns.size()));
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const auto field = rows->Fields().Item(static_cast<Long>(i));
      SCOPED_TRACE(ToUtf8(columns[i].Name));
      EXPECT_EQ(field->Name(), columns[i].Name);
      EXPECT_EQ(field->Type(), columns[i].Type);
      EXPECT_EQ(field->DefinedSize(), columns[i].DefinedSize);
      EXPECT_EQ((field->Attributes() & host::attribute::IsNullable) != 0, columns[i].Nullable);
    }
  }
}

// Programs read name and type of a table by these ordinals.
TEST_P(SchemaContract, NameIsTheThirdFieldOfATableAndTypeTheFourth) {
  const auto rows = Schema(SchemaKind::Tables);
  EXPECT_THAT(FieldNames(rows),
              ElementsAre(u"TABLE_CATALOG", u"TABLE_SCHEMA", u"TABLE_NAME", u"TABLE_TYPE"));
  std::vector<String> tables, views;
  for (rows->MoveFirst(); !rows->Eof(); rows->MoveNext()) {
    const String type = CStr(rows->Fields().Item(3)->Value());
    if (type == u"TABLE") tables.push_back(CStr(rows->Fields().Item(2)->Value()));
    if (type == u"VIEW") views.push_back(CStr(rows->Fields().Item(2)->Value()));
  }
  EXPECT_THAT(tables, ElementsAre(u"cliente", u"item_1", u"itemx1"));
  EXPECT_THAT(views, ElementsAre(u"ativos"));
}

TEST_P(SchemaContract, ColumnsComeInTheOrderOfTheTableWithTheirTypes) {
  EXPECT_THAT(Lines(Schema(SchemaKind::Columns, u"cliente"),
                    {u"TABLE_NAME", u"COLUMN_NAME", u"ORDINAL_POSITION", u"DATA_TYPE",
                     u"CHARACTER_MAXIMUM_LENGTH"}),
              ElementsAre(u"cliente codigo 1 3 Null", u"cliente nome 2 202 20",
                          u"cliente valor 3 131 Null"));
  const auto rows = Schema(SchemaKind::Columns, u"cliente");
  std::vector<bool> nullable;
  for (; !rows->Eof(); rows->MoveNext()) nullable.push_back(CBool(Get(rows, u"IS_NULLABLE")));
  EXPECT_THAT(nullable, ElementsAre(false, false, true));
}

TEST_P(SchemaContract, KeyComesInItsOwnOrder) {
  const std::vector<String> fields = {u"TABLE_NAME", u"COLUMN_NAME", u"ORDINAL"};
  EXPECT_THAT(Lines(Schema(SchemaKind::PrimaryKeys, u"item_1"), fields),
              ElementsAre(u"item_1 item 1", u"item_1 pedido 2"));
  EXPECT_THAT(Lines(Schema(SchemaKind::PrimaryKeys, u"itemx1"), fields), IsEmpty());
}

// "_" and "%" are letters of a name here, not marks of a pattern; capitals count.
TEST_P(SchemaContract, NameMatchesExactly) {
  EXPECT_THAT(Lines(Schema(SchemaKind::Tables, u"item_1"), {u"TABLE_NAME"}),
              ElementsAre(u"item_1"));
  EXPECT_THAT(Lines(Schema(SchemaKind::Columns, u"item_1"), {u"COLUMN_NAME"}),
              ElementsAre(u"pedido", u"item", u"qtde"));
  for (const StringView other : {u"item%", u"CLIENTE", u"nenhuma", u"item_", u"' or ''='"}) {
    SCOPED_TRACE(ToUtf8(other));
    EXPECT_TRUE(Schema(SchemaKind::Tables, String(other))->Eof());
    EXPECT_TRUE(Schema(SchemaKind::Columns, String(other))->Eof());
    EXPECT_TRUE(Schema(SchemaKind::PrimaryKeys, String(other))->Eof());
  }
}

TEST_P(SchemaContract, UnknownSchemaHasNoRows) {
  host::SchemaRestrictions restrictions;
  restrictions.Table = u"cliente";
  restrictions.Schema = u"nenhum";
  for (const SchemaKind kind : {SchemaKind::Tables, SchemaKind::Columns, SchemaKind::PrimaryKeys}) {
    EXPECT_TRUE(connection_->OpenSchema(kind, restrictions)->Eof());
  }
}

TEST_P(SchemaContract, RowsAreReadOnlyAndCanBeReadAgain) {
  const auto rows = Schema(SchemaKind::Tables, u"cliente");
  EXPECT_EQ(rows->RecordCount(), 1);
  EXPECT_HOST_ERROR(rows->AddNew(), errors::NotUpdatable);
  EXPECT_HOST_ERROR(rows->Fields().Item(2)->Value(u"x"), errors::NotUpdatable);
  EXPECT_HOST_ERROR(rows->Delete(), errors::NotUpdatable);
  rows->Sort(u"TABLE_NAME DESC");
  rows->Find(u"TABLE_NAME = 'cliente'");
  EXPECT_EQ(Text(rows, u"TABLE_TYPE"), u"TABLE");
  rows->Requery();
  EXPECT_EQ(rows->RecordCount(), 1);
}

TEST_P(SchemaContract, KeyWithoutATableIsRefused) {
  EXPECT_HOST_ERROR(Schema(SchemaKind::PrimaryKeys), 3001);
}

TEST_P(SchemaContract, ClosedConnectionIsAnError) {
  connection_->Close();
  EXPECT_HOST_ERROR(Schema(SchemaKind::Tables), errors::InvalidConnection);
  EXPECT_HOST_ERROR(Schema(SchemaKind::Columns), errors::InvalidConnection);
  EXPECT_HOST_ERROR(Schema(SchemaKind::PrimaryKeys, u"cliente"), errors::InvalidConnection);
}

TEST_P(SchemaContract, TimeOutIsSetWhileClosed) {
  EXPECT_EQ(connection_->ConnectionTimeout(), 15);
  EXPECT_HOST_ERROR(connection_->ConnectionTimeout(5), 3705);
  connection_->Close();
  EXPECT_HOST_ERROR(connection_->ConnectionTimeout(-1), 3001);
  connection_->ConnectionTimeout(5);
  EXPECT_EQ(connection_->ConnectionTimeout(), 5);
  connection_->Open();
  EXPECT_EQ(connection_->State(), host::state::Open);
}

TEST_P(SchemaContract, BoundsOfStatementsAreSetAtAnyTime) {
  EXPECT_EQ(connection_->CommandTimeout(), 30);
  EXPECT_EQ(connection_->LockTimeout(), 10);
  EXPECT_HOST_ERROR(connection_->CommandTimeout(-1), 3001);
  EXPECT_HOST_ERROR(connection_->LockTimeout(-1), 3001);
  connection_->CommandTimeout(0);
  connection_->LockTimeout(2);
  connection_->Close();
  EXPECT_EQ(connection_->CommandTimeout(), 0);
  EXPECT_EQ(connection_->LockTimeout(), 2);
  connection_->Open();
  EXPECT_EQ(connection_->CommandTimeout(), 0);
  EXPECT_EQ(connection_->LockTimeout(), 2);
}

}  // namespace tessaria::contract

#include "hosts/postgres/pg_statement.h"

#include <charconv>

#include "hosts/postgres/describe.h"
#include "hosts/postgres/numbered_text.h"
#include "hosts/postgres/pg_types.h"
#include "hosts/postgres/text_cells.h"
#include "tessaria/utf8.h"

namespace tessaria::postgres {
namespace {

std::int64_t ChangedRows(PGresult* result) {
  const std::string_view text = PQcmdTuples(result);
  std::int64_t rows = -1;
  std::from_chars(text.data(), text.data() + text.size(), rows);
  return rows;
}

bool ReadsBackslashes(const PGconn* connection) {
  const char* const standard = PQparameterStatus(connection, "standard_conforming_strings");
  return standard == nullptr || std::string_view(standard) != "on";
}

}  // namespace

void PgStatement::StandOn(Result result) {
  result_ = std::move(result);
  isFetched_ = false;
}

void PgStatement::Run(const String& text) {
  StandOn(nullptr);
  batch_.Send(ToUtf8(text));
  StandOn(batch_.Next());
}

std::int64_t PgStatement::RunWith(const String& text, const std::vector<sql::Parameter>& values) {
  StandOn(nullptr);
  batch_.Drop();
  Values texts;
  for (const sql::Parameter& value : values) texts.emplace_back(ToUtf8(value.text));
  StandOn(wire_->Ask(NumberedText(text, ReadsBackslashes(wire_->Get())), texts));
  return ChangedRows(result_.get());
}

sql::Columns PgStatement::Describe() { return DescribeColumns(*wire_, result_.get()); }

void PgStatement::Bind(const sql::Columns& columns) {
  forms_.clear();
  for (const sql::Column& column : columns) {
    forms_.push_back({column.storage, column.padded, column.lowerCase});
  }
}

// The rows have arrived with their result.
std::uint32_t PgStatement::Fetch() {
  if (isFetched_) return 0;
  isFetched_ = true;
  return static_cast<std::uint32_t>(PQntuples(result_.get()));
}

void PgStatement::Take(sql::ColumnStore& store) {
  for (int column = 0; column < PQnfields(result_.get()); ++column) AppendColumn(store, column);
  store.EndRows(static_cast<std::uint32_t>(PQntuples(result_.get())));
}

// A column that was asked for as a text arrives with the type of texts.
void PgStatement::AppendColumn(sql::ColumnStore& store, int column) const {
  const PGresult* const result = result_.get();
  const auto place = static_cast<std::size_t>(column);
  const sql::ArrivingForm& form = forms_[place];
  const Oid type = PQftype(result, column);
  const bool isText = PQfformat(result, column) == 0 || type == kTextType;
  const AppendBinary append = BinaryReaderOf(type);
  for (int row = 0; row < PQntuples(result); ++row) {
    if (PQgetisnull(result, row, column) != 0) {
      store.AppendNull(place);
    } else if (isText) {
      AppendTextCell(store, place, form, type, CellOf(result, row, column));
    } else {
      append(store, place, CellOf(result, row, column));
    }
  }
}

bool PgStatement::NextResult() {
  StandOn(nullptr);
  StandOn(batch_.Next());
  return result_ != nullptr;
}

}  // namespace tessaria::postgres

#include "hosts/odbc/row_writer.h"

#include <algorithm>

#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/key_columns.h"
#include "tessaria/host/data.h"

namespace tessaria::odbc {

/// A text with its parameter values.
struct RowWriter::Command {
  String text;
  std::vector<Parameter> values;
  int conditions = 0;
};

namespace {

[[noreturn]] void ThrowRowChanged() {
  throw HostError(errors::RowChanged,
                  u"O registro foi alterado ou excluído por outro usuário desde que foi lido. "
                  u"Nada foi gravado.");
}

String Joined(const std::vector<String>& parts) {
  String text;
  for (const String& part : parts) text += (text.empty() ? u"" : u", ") + part;
  return text;
}

}  // namespace

RowWriter::RowWriter(SessionPtr session, const Columns& columns, KeyTable table, String source)
    : session_(std::move(session)),
      columns_(columns),
      table_(std::move(table)),
      source_(std::move(source)) {
  hasExpressions_ = std::any_of(columns.begin(), columns.end(),
                                [](const Column& column) { return column.baseColumn.empty(); });
}

String RowWriter::NameOf(std::size_t column) const {
  return QuoteName(session_->ServerInfo(), columns_[column].baseColumn);
}

// Nothing is added for a value that the database cannot compare.
void RowWriter::AddCondition(Command& command, std::size_t column, const String& name,
                             const std::optional<String>& value) const {
  const Dialect dialect = session_->ServerInfo().dialect;
  const auto condition = value ? ConditionOf(columns_[column], name, dialect) : name + u" IS NULL";
  if (!condition) return;
  command.text += (command.conditions++ == 0 ? u" WHERE " : u" AND ") + *condition;
  if (value) command.values.push_back(ParameterOf(columns_[column], *value, dialect));
}

void RowWriter::AddValue(Command& command, std::size_t column, const Variant& value) const {
  if (value.IsNull()) {
    command.text += u"NULL";
    return;
  }
  const Dialect dialect = session_->ServerInfo().dialect;
  command.text += ValueSlot(columns_[column], dialect);
  command.values.push_back(
      ParameterOf(columns_[column], ValueParameter(columns_[column], value), dialect));
}

void RowWriter::AddKeyCondition(Command& command, const RowTable& table, RowId row) const {
  for (std::size_t i = 0; i < table_.keys.size(); ++i) {
    const std::size_t key = table_.keys[i];
    AddCondition(command, key, NameOf(key), table.Parameter(row, key));
  }
}

ColumnStore RowWriter::Update(const RowTable& table, RowId row, const Changes& changes) const {
  Command command{u"UPDATE " + table_.name + u" SET ", {}, 0};
  const char16_t* separator = u"";
  for (const auto& [column, value] : changes) {
    command.text += separator + NameOf(column) + u" = ";
    AddValue(command, column, value);
    separator = u", ";
  }
  AddKeyCondition(command, table, row);
  for (const auto& change : changes) {
    const std::size_t column = change.first;
    if (std::count(table_.keys.begin(), table_.keys.end(), column) > 0) continue;
    AddCondition(command, column, NameOf(column), table.Parameter(row, column));
  }
  const bool told = ExecuteOnRow(command);
  auto now = ReadBack(KeysAfter(table, row, changes));
  if (!told && !(now && Holds(*now, changes))) ThrowRowChanged();
  if (now) return std::move(*now);
  ColumnStore written(columns_);
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    const auto change = changes.find(column);
    AppendValue(written, columns_, column,
                change == changes.end() ? table.Value(row, column) : change->second);
  }
  written.EndRows(1);
  return written;
}

void RowWriter::Delete(const RowTable& table, RowId row) const {
  Command command{u"DELETE FROM " + table_.name, {}, 0};
  AddKeyCondition(command, table, row);
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    const bool isKey = std::count(table_.keys.begin(), table_.keys.end(), column) > 0;
    if (isKey || !IsWritable(column)) continue;
    AddCondition(command, column, NameOf(column), table.Parameter(row, column));
  }
  const bool told = ExecuteOnRow(command);
  if (!told && ReadBack(KeysAfter(table, row, {}))) ThrowRowChanged();
}

// False when the server does not tell whether it changed the row.
bool RowWriter::ExecuteOnRow(const Command& command) const {
  const Statement statement = session_->NewStatement();
  const SQLLEN rows = session_->ExecuteWith(statement, command.text, command.values);
  const Outcome outcome = OutcomeOf(rows);
  if (outcome == Outcome::Refused) ThrowRowChanged();
  return outcome == Outcome::Written;
}

bool RowWriter::Holds(const ColumnStore& row, const Changes& changes) const {
  return std::all_of(changes.begin(), changes.end(), [&](const auto& change) {
    return IsSame(CellValue(row, columns_, 0, change.first), change.second);
  });
}

RowWriter::Command RowWriter::InsertCommand(const Changes& changes) const {
  Command command{u"INSERT INTO " + table_.name, {}, 0};
  std::vector<String> names;
  for (const auto& change : changes) names.push_back(NameOf(change.first));
  if (names.empty()) {
    command.text += u" DEFAULT VALUES";
  } else {
    command.text += u" (" + Joined(names) + u") VALUES (";
    const char16_t* separator = u"";
    for (const auto& [column, value] : changes) {
      command.text += separator;
      AddValue(command, column, value);
      separator = u", ";
    }
    command.text += u")";
  }
  const Dialect dialect = session_->ServerInfo().dialect;
  if (GivenKeyOf(dialect) == GivenKey::Returned) {
    std::vector<String> keys;
    for (const std::size_t key : table_.keys) keys.push_back(NameOf(key));
    command.text += u" RETURNING " + Joined(keys);
  } else if (GivenKeyOf(dialect) == GivenKey::SameBatch && MissingKeys(changes) == 1) {
    command.text += u"; " + String(IdentityQuestion(dialect));
  }
  return command;
}

std::ptrdiff_t RowWriter::MissingKeys(const Changes& changes) const {
  return std::count_if(table_.keys.begin(), table_.keys.end(), [&](std::size_t key) {
    const auto change = changes.find(key);
    return change == changes.end() || change->second.IsNull();
  });
}

ColumnStore RowWriter::Insert(const Changes& changes) const {
  const Command command = InsertCommand(changes);
  Keys keys;
  {
    const Statement statement = session_->NewStatement();
    session_->ExecuteWith(statement, command.text, command.values);
    keys = InsertedKeys(statement, changes);
  }
  if (auto written = ReadBack(keys)) return std::move(*written);
  ColumnStore written(columns_);
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    const auto change = changes.find(column);
    AppendValue(written, columns_, column,
                change == changes.end() ? Variant::Null() : change->second);
  }
  written.EndRows(1);
  return written;
}

RowWriter::Keys RowWriter::ReturnedKeys(const Statement& statement) const {
  Keys keys;
  session_->Check(SQLFetch(statement.get()), statement);
  for (std::size_t i = 0; i < table_.keys.size(); ++i) {
    keys.push_back(ReadText(*session_, statement, static_cast<SQLUSMALLINT>(i + 1)));
  }
  return keys;
}

// The number that the server counted up for the new row. Nothing when it cannot tell: the row is
// written, and shows what was assigned.
std::optional<String> RowWriter::GivenNumber(const Statement& statement) const {
  const Dialect dialect = session_->ServerInfo().dialect;
  try {
    if (GivenKeyOf(dialect) == GivenKey::SameBatch) return LastText(*session_, statement);
    if (GivenKeyOf(dialect) == GivenKey::Unknown) return std::nullopt;
    SQLFreeStmt(statement.get(), SQL_CLOSE);
    const Statement question = session_->NewStatement();
    session_->ExecuteWith(question, String(IdentityQuestion(dialect)), {});
    return LastText(*session_, question);
  } catch (const HostError&) {
    return std::nullopt;
  }
}

// A key is known when the program set it; else the server is asked.
RowWriter::Keys RowWriter::InsertedKeys(const Statement& statement, const Changes& changes) const {
  if (GivenKeyOf(session_->ServerInfo().dialect) == GivenKey::Returned) {
    return ReturnedKeys(statement);
  }
  Keys keys;
  for (const std::size_t key : table_.keys) {
    const auto change = changes.find(key);
    const bool known = change != changes.end() && !change->second.IsNull();
    keys.push_back(known ? std::optional(ValueParameter(columns_[key], change->second))
                         : std::nullopt);
  }
  if (MissingKeys(changes) == 1) {
    *std::find(keys.begin(), keys.end(), std::nullopt) = GivenNumber(statement);
  }
  return keys;
}

RowWriter::Keys RowWriter::KeysAfter(const RowTable& table, RowId row,
                                     const Changes& changes) const {
  Keys keys;
  for (const std::size_t key : table_.keys) {
    const auto change = changes.find(key);
    keys.push_back(change == changes.end() ? table.Parameter(row, key)
                                           : ValueParameter(columns_[key], change->second));
  }
  return keys;
}

// Expressions are computed by the statement itself, cut down to the one row.
RowWriter::Command RowWriter::ReadBackCommand(const Keys& keys) const {
  Command command;
  if (hasExpressions_) {
    command.text = u"SELECT * FROM (" + source_ + u"\n) AS tessaria_row";
  } else {
    std::vector<String> names;
    for (std::size_t i = 0; i < columns_.size(); ++i) names.push_back(NameOf(i));
    command.text = u"SELECT " + Joined(names) + u" FROM " + table_.name;
  }
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const std::size_t key = table_.keys[i];
    const String name =
        hasExpressions_ ? QuoteName(session_->ServerInfo(), columns_[key].name) : NameOf(key);
    AddCondition(command, key, name, keys[i]);
  }
  return command;
}

// The write is done whatever becomes of this: a row that cannot be read again shows what was
// written, and the next call meets the error.
std::optional<ColumnStore> RowWriter::ReadBack(const Keys& keys) const {
  if (std::count(keys.begin(), keys.end(), std::nullopt) > 0) return std::nullopt;
  try {
    const Command command = ReadBackCommand(keys);
    const Statement statement = session_->NewStatement();
    session_->ExecuteWith(statement, command.text, command.values);
    BlockReader reader(statement, columns_, session_->ServerInfo().rereads);
    ColumnStore row(columns_);
    if (reader.Read(row) == 1) return row;
  } catch (const HostError&) {
  }
  return std::nullopt;
}

}  // namespace tessaria::odbc

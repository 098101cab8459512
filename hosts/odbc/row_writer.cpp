#include "hosts/odbc/row_writer.h"

#include <algorithm>

#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/key_columns.h"
#include "tessaria/host/data.h"

namespace tessaria::odbc {

/// A text with its parameter values.
struct RowWriter::Command {
  String text;
  std::vector<String> values;
};

namespace {

// What stands for a value: types whose text PostgreSQL would read by the server's locale, or
// that have no plain text of their own, go through one that is the same everywhere.
String SlotOf(const Column& column, bool postgres) {
  if (postgres && column.storage == Storage::Money) return u"cast(cast(? as numeric) as money)";
  if (postgres && column.type == host::type::Binary) return u"decode(?, 'hex')";
  return u"?";
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

void RowWriter::AddCondition(Command& command, std::size_t column, const String& name,
                             const std::optional<String>& value) const {
  if (!value) {
    command.text += name + u" IS NULL";
    return;
  }
  const bool postgres = session_->ServerInfo().IsPostgres();
  const bool asText = postgres && !columns_[column].comparable;
  command.text += (asText ? u"cast(" + name + u" as text)" : name) + u" = " +
                  SlotOf(columns_[column], postgres);
  command.values.push_back(*value);
}

void RowWriter::AddValue(Command& command, std::size_t column, const Variant& value) const {
  if (value.IsNull()) {
    command.text += u"NULL";
    return;
  }
  command.text += SlotOf(columns_[column], session_->ServerInfo().IsPostgres());
  command.values.push_back(ValueParameter(columns_[column], value));
}

void RowWriter::AddKeyCondition(Command& command, const RowTable& table, RowId row) const {
  for (std::size_t i = 0; i < table_.keys.size(); ++i) {
    const std::size_t key = table_.keys[i];
    command.text += i == 0 ? u" WHERE " : u" AND ";
    AddCondition(command, key, NameOf(key), table.Parameter(row, key));
  }
}

ColumnStore RowWriter::Update(const RowTable& table, RowId row, const Changes& changes) const {
  Command command{u"UPDATE " + table_.name + u" SET ", {}};
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
    command.text += u" AND ";
    AddCondition(command, column, NameOf(column), table.Parameter(row, column));
  }
  ExecuteOnRow(command);
  if (auto written = ReadBack(KeysAfter(table, row, changes))) return std::move(*written);
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
  Command command{u"DELETE FROM " + table_.name, {}};
  AddKeyCondition(command, table, row);
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    const bool isKey = std::count(table_.keys.begin(), table_.keys.end(), column) > 0;
    if (isKey || !IsWritable(column)) continue;
    command.text += u" AND ";
    AddCondition(command, column, NameOf(column), table.Parameter(row, column));
  }
  ExecuteOnRow(command);
}

void RowWriter::ExecuteOnRow(const Command& command) const {
  const Statement statement = session_->NewStatement();
  if (session_->ExecuteWith(statement, command.text, command.values) > 0) return;
  throw HostError(errors::RowChanged,
                  u"O registro foi alterado ou excluído por outro usuário desde que foi lido. "
                  u"Nada foi gravado.");
}

RowWriter::Command RowWriter::InsertCommand(const Changes& changes) const {
  Command command{u"INSERT INTO " + table_.name, {}};
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
  if (!session_->ServerInfo().IsPostgres()) return command;
  std::vector<String> keys;
  for (const std::size_t key : table_.keys) keys.push_back(NameOf(key));
  command.text += u" RETURNING " + Joined(keys);
  return command;
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

// PostgreSQL tells the key that it gave; elsewhere it is known when the program set it.
RowWriter::Keys RowWriter::InsertedKeys(const Statement& statement, const Changes& changes) const {
  Keys keys;
  if (session_->ServerInfo().IsPostgres()) {
    session_->Check(SQLFetch(statement.get()), statement);
    for (std::size_t i = 0; i < table_.keys.size(); ++i) {
      keys.push_back(ReadText(*session_, statement, static_cast<SQLUSMALLINT>(i + 1)));
    }
    return keys;
  }
  for (const std::size_t key : table_.keys) {
    const auto change = changes.find(key);
    const bool known = change != changes.end() && !change->second.IsNull();
    keys.push_back(known ? std::optional(ValueParameter(columns_[key], change->second))
                         : std::nullopt);
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
    command.text += i == 0 ? u" WHERE " : u" AND ";
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

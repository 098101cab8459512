#include "hosts/sql/rows/row_writer.h"

#include <algorithm>

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/session/first_row.h"
#include "hosts/sql/statements/column_texts.h"
#include "tessaria/host/data.h"
#include "tessaria/stored_match.h"

namespace tessaria::sql {

/// A statement with its parameter values.
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

constexpr StringView kMayBeDeleted =
    u"O registro pode ter sido excluído ou não: a conexão com o servidor caiu antes da resposta. "
    u"Confira antes de excluir outra vez.";

[[noreturn]] void ThrowCannotTell() {
  throw HostError(errors::WriteInDoubt,
                  u"Não se sabe se o registro novo foi gravado quando a conexão caiu. Leia os "
                  u"dados outra vez e confira antes de gravar.");
}

// The database may have changed the values that it received, or another user the row.
[[noreturn]] void ThrowCannotTellEdit() {
  throw HostError(errors::WriteInDoubt,
                  u"Não se sabe se a alteração foi gravada quando a conexão caiu: o registro não "
                  u"está como foi lido nem como foi digitado. Nada foi gravado agora. Cancele a "
                  u"alteração, leia os dados outra vez e confira.");
}

String Joined(const std::vector<String>& parts) {
  String text;
  for (const String& part : parts) text += (text.empty() ? u"" : u", ") + part;
  return text;
}

std::optional<String> KeyParameter(const Column& column, const Variant& value) {
  if (value.IsNull()) return std::nullopt;
  return ValueParameter(column, value);
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

// Adds nothing for a value that the database cannot compare.
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
  const bool told = ExecuteOnRow(command, ErrorDescription(errors::WriteInDoubt));
  auto now = ReadBack(KeysAfter(table, row, changes));
  if (!told && !(now && MissingIn(*now, changes).empty())) ThrowRowChanged();
  if (now) return std::move(*now);
  ColumnStore written(columns_);
  for (std::size_t column = 0; column < columns_.size(); ++column) {
    const auto change = changes.find(column);
    if (change == changes.end()) {
      table.CopyCell(row, column, written);
    } else {
      AppendValue(written, columns_, column, change->second);
    }
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
  const bool told = ExecuteOnRow(command, kMayBeDeleted);
  if (!told && ReadBack(KeysAfter(table, row, {}))) ThrowRowChanged();
}

// Once the statement is sent, only the answer shows whether it was executed.
std::int64_t RowWriter::Send(Statement& statement, const Command& command, StringView doubt) const {
  return InDoubtWhenLost(*session_, doubt, [&] {
    return session_->ExecuteWith(statement, command.text, command.values);
  });
}

// Returns false when the server does not report whether it changed the row.
bool RowWriter::ExecuteOnRow(const Command& command, StringView doubt) const {
  const StatementPtr statement = session_->NewStatement();
  const Outcome outcome = OutcomeOf(Send(*statement, command, doubt));
  if (outcome == Outcome::Refused) ThrowRowChanged();
  return outcome == Outcome::Written;
}

Changes RowWriter::MissingIn(const ColumnStore& row, const Changes& changes) const {
  Changes missing;
  for (const auto& [column, value] : changes) {
    const ColumnShape shape{columns_[column].type, columns_[column].definedSize,
                            columns_[column].scale};
    if (!IsStoredFrom(value, CellValue(row, columns_, 0, column), shape))
      missing.emplace(column, value);
  }
  return missing;
}

std::optional<ColumnStore> RowWriter::FindUpdated(const RowTable& table, RowId row,
                                                  const Changes& sent) const {
  // While the row with the old key exists, a row with the new key is a different one.
  if (IsKeyChanged(sent) && IsThere(table, row)) return std::nullopt;
  auto now = Look(KeysAfter(table, row, sent));
  if (!now || MissingIn(*now, sent).empty()) return now;
  if (!IsAsRead(*now, table, row, sent)) ThrowCannotTellEdit();
  return std::nullopt;
}

bool RowWriter::IsKeyChanged(const Changes& changes) const {
  return std::any_of(table_.keys.begin(), table_.keys.end(),
                     [&](std::size_t key) { return changes.count(key) > 0; });
}

bool RowWriter::IsAsRead(const ColumnStore& now, const RowTable& table, RowId row,
                         const Changes& sent) const {
  return std::all_of(sent.begin(), sent.end(), [&](const auto& change) {
    return IsSame(CellValue(now, columns_, 0, change.first), table.Value(row, change.first));
  });
}

std::optional<ColumnStore> RowWriter::FindInserted(const Changes& sent) const {
  const Keys keys = KnownKeys(sent);
  if (std::count(keys.begin(), keys.end(), std::nullopt) > 0) ThrowCannotTell();
  auto now = Look(keys);
  if (now && !MissingIn(*now, sent).empty()) ThrowCannotTell();
  return now;
}

std::optional<ColumnStore> RowWriter::Read(const RowTable& table, RowId row) const {
  return Look(KeysAfter(table, row, {}));
}

bool RowWriter::IsThere(const RowTable& table, RowId row) const {
  return Read(table, row).has_value();
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
    for (const std::size_t key : table_.keys) {
      keys.push_back(AsArrivingText(columns_[key], NameOf(key)));
    }
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
    const StatementPtr statement = session_->NewStatement();
    const Dialect dialect = session_->ServerInfo().dialect;  // it can be asked no more after a loss
    Send(*statement, command, ErrorDescription(errors::WriteInDoubt));
    keys = InsertedKeys(*statement, changes, dialect);
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

// A key that cannot be read stays unknown: the row is written, and shows what was assigned.
RowWriter::Keys RowWriter::ReturnedKeys(Statement& statement) const {
  Keys keys;
  try {
    keys = FirstRow(statement);
  } catch (const HostError&) {
    // Below.
  }
  keys.resize(table_.keys.size());
  return keys;
}

// The number that the server generated for the new row; nothing when it cannot report it.
std::optional<String> RowWriter::GivenNumber(Statement& statement, Dialect dialect) const {
  try {
    if (GivenKeyOf(dialect) == GivenKey::SameBatch) return LastText(statement);
    if (GivenKeyOf(dialect) == GivenKey::Unknown) return std::nullopt;
    const StatementPtr question = session_->NewStatement();
    session_->ExecuteWith(*question, String(IdentityQuestion(dialect)), {});
    return LastText(*question);
  } catch (const HostError&) {
    return std::nullopt;
  }
}

// A key is known when the program set it; otherwise the server is asked.
RowWriter::Keys RowWriter::InsertedKeys(Statement& statement, const Changes& changes,
                                        Dialect dialect) const {
  if (GivenKeyOf(dialect) == GivenKey::Returned) return ReturnedKeys(statement);
  Keys keys = KnownKeys(changes);
  if (MissingKeys(changes) == 1) {
    *std::find(keys.begin(), keys.end(), std::nullopt) = GivenNumber(statement, dialect);
  }
  return keys;
}

RowWriter::Keys RowWriter::KnownKeys(const Changes& changes) const {
  Keys keys;
  for (const std::size_t key : table_.keys) {
    const auto change = changes.find(key);
    keys.push_back(change == changes.end() ? std::nullopt
                                           : KeyParameter(columns_[key], change->second));
  }
  return keys;
}

RowWriter::Keys RowWriter::KeysAfter(const RowTable& table, RowId row,
                                     const Changes& changes) const {
  Keys keys;
  for (const std::size_t key : table_.keys) {
    const auto change = changes.find(key);
    keys.push_back(change == changes.end() ? table.Parameter(row, key)
                                           : KeyParameter(columns_[key], change->second));
  }
  return keys;
}

// Expressions are computed by the statement itself, restricted to the one row.
RowWriter::Command RowWriter::ReadBackCommand(const Keys& keys) const {
  const Server& server = session_->ServerInfo();
  const bool asTexts = AnyAsText(columns_);
  Command command;
  if (hasExpressions_) {
    command.text = asTexts ? WithColumnsAsTexts(columns_, source_)
                           : u"SELECT * FROM (" + source_ + u"\n) AS tessaria_row";
  } else {
    std::vector<String> names;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      names.push_back(asTexts ? AsArrivingText(columns_[i], NameOf(i)) : NameOf(i));
    }
    command.text = u"SELECT " + Joined(names) + u" FROM " + table_.name;
  }
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const std::size_t key = table_.keys[i];
    const String name = !hasExpressions_ ? NameOf(key)
                        : asTexts        ? TextColumnName(key)
                                         : QuoteName(server, columns_[key].name);
    AddCondition(command, key, name, keys[i]);
  }
  return command;
}

std::optional<ColumnStore> RowWriter::Look(const Keys& keys) const {
  const Command command = ReadBackCommand(keys);
  const StatementPtr statement = session_->NewStatement();
  session_->ExecuteWith(*statement, command.text, command.values);
  statement->Bind(columns_);
  ColumnStore row(columns_);
  if (session_->Fetch(*statement) == 1) {
    statement->Take(row);
    return row;
  }
  return std::nullopt;
}

// The write is complete even if this fails: a row that cannot be read again shows what was written,
// and the next call raises the error.
std::optional<ColumnStore> RowWriter::ReadBack(const Keys& keys) const noexcept {
  if (std::count(keys.begin(), keys.end(), std::nullopt) > 0) return std::nullopt;
  try {
    return Look(keys);
  } catch (...) {
    return std::nullopt;
  }
}

}  // namespace tessaria::sql

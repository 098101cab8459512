#include "tessaria/memory/connection.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "hosts/memory/second_statement.h"
#include "lookup/sql_family.h"
#include "lookup/sql_scanner.h"
#include "runtime/well_formed.h"
#include "tessaria/conversion.h"
#include "tessaria/host/schema.h"
#include "tessaria/text.h"

namespace tessaria::memory {
namespace {

constexpr Long kTransactionOpen = -2147168237;
constexpr Long kNoTransaction = -2147168242;
constexpr Long kObjectOpen = 3705;
constexpr Long kInvalidArgument = 3001;
constexpr StringView kLineLost = u"A conexão com o servidor foi perdida.";

std::vector<Table::Stored> Numbered(std::vector<Row> cells, const std::vector<Column>& columns) {
  return Table(columns, std::move(cells)).Rows();
}

/// The table that a source names, in lower case.
String TableName(StringView source) {
  const String text = LCase(Trim(source));
  constexpr StringView kSelect = u"select * from ";
  return StartsWith(text, kSelect) ? Trim(StringView(text).substr(kSelect.size())) : text;
}

// The rows that the schema returns for each table. They start with catalogue and schema, which are
// Null.
void AddColumnRows(std::vector<Row>& rows, const String& table, const Table& contents) {
  Long ordinal = 0;
  for (const Column& column : contents.Columns()) {
    const bool sized = IsTextType(column.Type) || column.Type == host::type::Binary;
    rows.push_back({Variant::Null(), Variant::Null(), table, column.Name, ++ordinal, column.Type,
                    sized ? Variant(column.DefinedSize) : Variant::Null(), column.Nullable});
  }
}

void AddKeyRows(std::vector<Row>& rows, const String& table, const std::vector<String>& key) {
  Long ordinal = 0;
  for (const String& column : key) {
    rows.push_back({Variant::Null(), Variant::Null(), table, column, ++ordinal, Variant::Null()});
  }
}

std::vector<Column> ColumnsOfSchema(host::SchemaKind kind) {
  std::vector<Column> columns;
  for (const host::SchemaColumn& column : host::SchemaColumns(kind)) {
    columns.push_back({.Name = String(column.Name),
                       .Type = column.Type,
                       .DefinedSize = column.DefinedSize,
                       .Nullable = column.Nullable});
  }
  return columns;
}

/// Whether a text only reads: it starts as a query does, or is the name of a table.
bool IsQuery(StringView text, SqlRules rules) {
  SqlScanner scanner(text, rules);
  const String first = UCase(scanner.TextOf(scanner.Next()));
  const bool isName = scanner.Next().Is(SqlToken::Kind::End);
  constexpr StringView kQueries[] = {u"SELECT", u"VALUES", u"TABLE", u"WITH", u"SHOW"};
  return isName || std::find(std::begin(kQueries), std::end(kQueries), first) != std::end(kQueries);
}

}  // namespace

/// One statement on one connection, which can be run again.
class StatementRows final : public RowSource {
 public:
  StatementRows(std::shared_ptr<Connection> connection, String statement, bool writable)
      : connection_(std::move(connection)), statement_(std::move(statement)), writable_(writable) {}

  Answer Run() override { return connection_->Run(statement_, writable_); }
  void Write(const std::function<void()>& change) override { connection_->Write(change); }
  bool InTransaction() const override { return connection_->savedTables_.has_value(); }
  Long Transactions() const override { return connection_->transactions_; }

 private:
  std::shared_ptr<Connection> connection_;
  String statement_;
  bool writable_;
};

/// One query of the schema, which can be run again.
class SchemaRows final : public RowSource {
 public:
  SchemaRows(std::shared_ptr<Connection> connection, host::SchemaKind kind,
             host::SchemaRestrictions restrictions)
      : connection_(std::move(connection)), kind_(kind), restrictions_(std::move(restrictions)) {}

  Answer Run() override { return connection_->Schema(kind_, restrictions_); }
  void Write(const std::function<void()>& change) override { connection_->Write(change); }
  bool InTransaction() const override { return connection_->savedTables_.has_value(); }
  Long Transactions() const override { return connection_->transactions_; }

 private:
  std::shared_ptr<Connection> connection_;
  host::SchemaKind kind_;
  host::SchemaRestrictions restrictions_;
};

Connection::Connection() {
  SetProperty(u"DBMS Name", u"PostgreSQL");
  SetProperty(u"DBMS Version", u"PostgreSQL 15.0.0");
  SetProperty(u"Backslash Escapes", false);
}

Connection::~Connection() = default;

std::shared_ptr<Connection> Connection::Create() {
  return std::shared_ptr<Connection>(new Connection);
}

std::shared_ptr<Connection> Connection::CreateOpen() {
  auto connection = Create();
  connection->Open();
  return connection;
}

void Connection::Open() {
  RequireWellFormed(connectionString_);
  RaiseFault();
  open_ = true;
  dropped_ = false;
}

void Connection::Close() {
  RequireOpen();
  savedTables_.reset();
  CloseRecordsets();
  open_ = false;
}

void Connection::CloseRecordsets() {
  for (const auto& weak : std::exchange(recordsets_, {})) {
    if (const auto rows = weak.lock()) rows->Drop();
  }
}

void Connection::ConnectionTimeout(Long seconds) {
  if (open_) throw HostError(kObjectOpen);
  if (seconds < 0) throw HostError(kInvalidArgument);
  timeout_ = seconds;
}

void Connection::CommandTimeout(Long seconds) {
  if (seconds < 0) throw HostError(kInvalidArgument);
  commandTimeout_ = seconds;
}

void Connection::LockTimeout(Long seconds) {
  if (seconds < 0) throw HostError(kInvalidArgument);
  lockTimeout_ = seconds;
}

void Connection::RequireOpen() {
  if (!open_) throw HostError(errors::InvalidConnection);
  if (!dropped_) return;
  open_ = false;
  throw HostError(errors::ProviderError, String(kLineLost));
}

void Connection::RaiseFault() {
  if (faults_.empty()) return;
  const HostError error = faults_.front();
  faults_.pop_front();
  throw error;
}

void Connection::Write(const std::function<void()>& change) {
  RequireOpen();
  const auto stored = std::exchange(lostAnswer_, std::nullopt);
  if (!stored || *stored) change();
  if (!stored) return;
  const bool isUndone = savedTables_.has_value();
  if (isUndone) RollbackTrans();
  open_ = false;
  if (!isUndone) throw HostError(errors::WriteInDoubt);
  throw HostError(errors::ProviderError, String(kLineLost));
}

Variant Connection::Properties(const String& name) const {
  if (!open_) throw HostError(errors::InvalidConnection);
  const auto property = properties_.find(LCase(name));
  if (property == properties_.end()) throw HostError(errors::ItemNotFound);
  return property->second;
}

void Connection::SetProperty(const String& name, const Variant& value) {
  properties_[LCase(name)] = value;
}

TablePtr Connection::AddTable(const String& name, std::vector<Column> columns,
                              std::vector<Row> rows) {
  auto table = std::make_shared<Table>(std::move(columns), std::move(rows));
  tables_.insert_or_assign(LCase(name), NamedTable{name, table, u"TABLE", {}});
  return table;
}

Connection::NamedTable& Connection::Named(const String& name) {
  const auto table = tables_.find(LCase(name));
  if (table == tables_.end()) throw HostError(errors::ItemNotFound);
  return table->second;
}

void Connection::SetTableType(const String& name, const String& type) { Named(name).Type = type; }

void Connection::SetPrimaryKey(const String& name, std::vector<String> columns) {
  Named(name).Key = std::move(columns);
}

TablePtr Connection::TableNamed(const String& name) const {
  const auto table = tables_.find(LCase(name));
  if (table == tables_.end()) throw HostError(errors::ItemNotFound);
  return table->second.Rows;
}

void Connection::Answer(const String& statement, Rows rows) {
  answers_.insert_or_assign(statement, std::move(rows));
}

std::vector<String> Connection::TakeStatements() { return std::exchange(statements_, {}); }

host::RecordsetPtr Connection::Execute(const String& statement) {
  return OpenRows(std::make_unique<StatementRows>(shared_from_this(), statement, false), statement);
}

host::RecordsetPtr Connection::OpenRecordset(const String& source, host::CursorType,
                                             host::LockType lock, Long) {
  const bool writable = lock != host::LockType::ReadOnly;
  return OpenRows(std::make_unique<StatementRows>(shared_from_this(), source, writable), source);
}

host::RecordsetPtr Connection::OpenSchema(host::SchemaKind kind,
                                          const host::SchemaRestrictions& restrictions) {
  return OpenRows(std::make_unique<SchemaRows>(shared_from_this(), kind, restrictions), {});
}

RowSource::Answer Connection::Schema(host::SchemaKind kind,
                                     const host::SchemaRestrictions& restrictions) {
  RequireOpen();
  RaiseFault();
  const bool ofKeys = kind == host::SchemaKind::PrimaryKeys;
  if (ofKeys && restrictions.Table.empty()) throw HostError(kInvalidArgument);
  std::vector<Row> rows;
  // Nothing here has a catalogue or a schema.
  const bool none = !restrictions.Catalog.empty() || !restrictions.Schema.empty();
  for (const auto& [key, table] : tables_) {
    if (none || (!restrictions.Table.empty() && restrictions.Table != table.Name)) continue;
    if (ofKeys) {
      AddKeyRows(rows, table.Name, table.Key);
    } else if (kind == host::SchemaKind::Columns) {
      AddColumnRows(rows, table.Name, *table.Rows);
    } else {
      rows.push_back({Variant::Null(), Variant::Null(), table.Name, table.Type});
    }
  }
  if (kind == host::SchemaKind::Tables) {
    std::stable_sort(rows.begin(), rows.end(), [](const Row& a, const Row& b) {
      return *a[3].TryGet<String>() < *b[3].TryGet<String>();
    });
  }
  const std::vector<Column> columns = ColumnsOfSchema(kind);
  return {columns, Numbered(std::move(rows), columns), nullptr};
}

host::RecordsetPtr Connection::OpenRows(std::unique_ptr<RowSource> source, const String& text) {
  auto rows = Recordset::Open(std::move(source), text);
  recordsets_.push_back(rows);
  return rows;
}

namespace {

SqlRules StatementRules(const host::Connection& connection) {
  const Variant escapes = connection.Properties(u"Backslash Escapes");
  return {FamilyOfDialect(UCase(CStr(connection.Properties(u"DBMS Name")))),
          !escapes.IsNull() && CBool(escapes)};
}

}  // namespace

RowSource::Answer Connection::Run(const String& statement, bool writable) {
  RequireOpen();
  RequireWellFormed(statement);
  statements_.push_back(statement);
  RaiseFault();
  if (HoldsSecondStatement(statement, StatementRules(*this))) {
    throw HostError(errors::ProviderError, u"O texto contém mais de um comando.");
  }
  if (IsQuery(statement, StatementRules(*this))) return AnswerTo(statement, writable);
  RowSource::Answer answer;
  Write([&] { answer = AnswerTo(statement, writable); });
  return answer;
}

RowSource::Answer Connection::AnswerTo(const String& statement, bool writable) {
  std::optional<Rows> rows;
  if (const auto fixed = answers_.find(statement); fixed != answers_.end()) rows = fixed->second;
  if (!rows && OnStatement) rows = std::function(OnStatement)(statement);
  if (!rows) return TableRows(statement, writable);
  return {rows->Columns, Numbered(std::move(rows->Cells), rows->Columns), nullptr};
}

RowSource::Answer Connection::TableRows(const String& statement, bool writable) const {
  const auto table = tables_.find(TableName(statement));
  if (table == tables_.end()) {
    throw HostError(errors::ProviderError, u"O servidor não conhece: " + statement);
  }
  const TablePtr& rows = table->second.Rows;
  if (!writable) return {rows->Columns(), rows->Rows(), nullptr};
  std::vector<std::size_t> key;
  for (const String& name : table->second.Key) {
    if (const auto column = ColumnByName(rows->Columns(), name)) key.push_back(*column);
  }
  return {rows->Columns(), rows->Rows(), rows, std::move(key)};
}

void Connection::BeginTrans() {
  RequireOpen();
  if (savedTables_) throw HostError(kTransactionOpen, u"Já existe uma transação ativa.");
  savedTables_.emplace();
  ++transactions_;
  for (const auto& [name, table] : tables_) savedTables_->emplace(name, *table.Rows);
}

void Connection::CommitTrans() {
  RequireOpen();
  if (!savedTables_) throw HostError(kNoTransaction, u"Nenhuma transação ativa.");
  savedTables_.reset();
}

void Connection::RollbackTrans() {
  RequireOpen();
  if (!savedTables_) throw HostError(kNoTransaction, u"Nenhuma transação ativa.");
  const auto saved = std::exchange(savedTables_, std::nullopt);
  for (const auto& [name, table] : *saved) *tables_.at(name).Rows = table;
}

}  // namespace tessaria::memory

#include "hosts/memory/connection.h"

#include <utility>

#include "runtime/text.h"

namespace tessaria::memory {
namespace {

constexpr Long kTransactionOpen = -2147168237;
constexpr Long kNoTransaction = -2147168242;

std::vector<Table::Stored> Numbered(std::vector<Row> cells, const std::vector<Column>& columns) {
  return Table(columns, std::move(cells)).Rows();
}

/// The table that a source names, in lower case.
String TableName(StringView source) {
  const String text = LCase(Trim(source));
  constexpr StringView kSelect = u"select * from ";
  return StartsWith(text, kSelect) ? Trim(StringView(text).substr(kSelect.size())) : text;
}

}  // namespace

/// One statement on one connection, to be run again.
class StatementRows final : public RowSource {
 public:
  StatementRows(std::shared_ptr<Connection> connection, String statement, bool writable)
      : connection_(std::move(connection)), statement_(std::move(statement)), writable_(writable) {}

  Answer Run() override { return connection_->Run(statement_, writable_); }
  void CheckConnection() const override { connection_->RequireOpen(); }

 private:
  std::shared_ptr<Connection> connection_;
  String statement_;
  bool writable_;
};

bool HoldsSecondStatement(StringView text) {
  char16_t quote = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char16_t c = text[i];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (c == u'\'' || c == u'"') {
      quote = c;
    } else if (c == u';') {
      return text.find_first_not_of(u" \t\r\n;", i) != StringView::npos;
    }
  }
  return false;
}

Connection::Connection() {
  SetProperty(u"DBMS Name", u"PostgreSQL");
  SetProperty(u"DBMS Version", u"PostgreSQL 15.0.0");
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

void Connection::RequireOpen() {
  if (!open_) throw HostError(errors::InvalidConnection);
  if (!dropped_) return;
  open_ = false;
  throw HostError(errors::ProviderError, u"A conexão com o servidor foi perdida.");
}

void Connection::RaiseFault() {
  if (faults_.empty()) return;
  const HostError error = faults_.front();
  faults_.pop_front();
  throw error;
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
  return tables_[LCase(name)] = std::make_shared<Table>(std::move(columns), std::move(rows));
}

TablePtr Connection::TableNamed(const String& name) const {
  const auto table = tables_.find(LCase(name));
  if (table == tables_.end()) throw HostError(errors::ItemNotFound);
  return table->second;
}

void Connection::Answer(const String& statement, Rows rows) {
  answers_.insert_or_assign(statement, std::move(rows));
}

std::vector<String> Connection::TakeStatements() { return std::exchange(statements_, {}); }

host::RecordsetPtr Connection::Execute(const String& statement) {
  return OpenRows(statement, false);
}

host::RecordsetPtr Connection::OpenRecordset(const String& source, host::CursorType,
                                             host::LockType lock, Long) {
  return OpenRows(source, lock != host::LockType::ReadOnly);
}

host::RecordsetPtr Connection::OpenRows(const String& statement, bool writable) {
  auto rows = Recordset::Open(
      std::make_unique<StatementRows>(shared_from_this(), statement, writable), statement);
  recordsets_.push_back(rows);
  return rows;
}

RowSource::Answer Connection::Run(const String& statement, bool writable) {
  RequireOpen();
  statements_.push_back(statement);
  RaiseFault();
  if (HoldsSecondStatement(statement)) {
    throw HostError(errors::ProviderError, u"O texto contém mais de um comando.");
  }
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
  return {table->second->Columns(), table->second->Rows(), writable ? table->second : nullptr};
}

void Connection::BeginTrans() {
  RequireOpen();
  if (savedTables_) throw HostError(kTransactionOpen, u"Já existe uma transação ativa.");
  savedTables_.emplace();
  for (const auto& [name, table] : tables_) savedTables_->emplace(name, *table);
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
  for (const auto& [name, table] : *saved) *tables_[name] = table;
}

}  // namespace tessaria::memory

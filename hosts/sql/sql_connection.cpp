#include "hosts/sql/sql_connection.h"

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/recordset/catalogue.h"
#include "hosts/sql/recordset/recordset.h"
#include "runtime/well_formed.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

using Control = StatementFacts::Control;

// Lookups take a connection without a text for none at all.
constexpr char16_t kOfTheProgram[] = u"(conexão do programa)";

bool IsPlainName(const StatementFacts& facts) {
  return facts.isName && facts.control == Control::None;
}

StatementFacts Read(Session& session, const String& statement) {
  const bool escapes = session.BackslashesEscape(statement).value_or(false);
  return RequireSingleStatement(statement, session.ServerInfo().dialect, escapes);
}

// A transaction that the application begins with a statement is managed by this layer, with its
// savepoints; the driver alone would abort it at the first failed statement.
bool RunControl(Session& session, const StatementFacts& facts) {
  if (!session.ServerInfo().IsPostgres()) return false;
  switch (facts.control) {
    case Control::None:
      return false;
    case Control::Begin:
      session.BeginTrans(facts.modes);
      break;
    case Control::Commit:
      session.CommitTrans();
      break;
    case Control::Rollback:
      session.RollbackTrans();
      break;
    case Control::Savepoint:
      session.ExecuteSavepoint(facts.text);
      break;
  }
  return true;
}

}  // namespace

host::ConnectionPtr CreateConnection(Connector connect) {
  return std::make_shared<SqlConnection>(std::move(connect));
}

host::ConnectionPtr AdoptConnection(LinkPtr adopted) {
  return std::make_shared<SqlConnection>(std::move(adopted));
}

SqlConnection::SqlConnection(LinkPtr adopted)
    : SqlConnection([](const String&, Long, SettingsScope) -> LinkPtr {
        throw HostError(errors::InvalidConnection,
                        u"Esta conexão pertence ao programa e não pode ser aberta aqui. Abra-a no "
                        u"programa e adote-a outra vez.");
      }) {
  session_->Adopt(std::move(adopted));
  text_ = kOfTheProgram;
}

Long SqlConnection::State() const {
  return session_->IsOpen() ? host::state::Open : host::state::Closed;
}

void SqlConnection::ConnectionTimeout(Long seconds) {
  if (session_->IsOpen()) throw HostError(errors::ObjectOpen);
  if (seconds < 0) throw HostError(errors::InvalidCriteria);
  timeout_ = seconds;
}

Variant SqlConnection::Properties(const String& name) const {
  const SessionPtr session = Kept();
  const Server& server = session->ServerInfo();
  if (EqualNoCase(name, u"DBMS Name")) return server.name;
  if (EqualNoCase(name, u"DBMS Version")) return server.version;
  if (EqualNoCase(name, u"Backslash Escapes")) {
    const auto escapes = session->BackslashesEscape(u"\\");
    return escapes ? Variant(*escapes) : Variant::Null();
  }
  throw HostError(errors::ItemNotFound, u"Propriedade não encontrada: " + name);
}

host::RecordsetPtr SqlConnection::Execute(const String& statement) {
  const SessionPtr session = Kept();
  String source = statement;  // what runs meanwhile may change the caller's
  StatementFacts facts = Read(*session, source);
  if (RunControl(*session, facts)) return std::make_shared<SqlRecordset>(session, source);
  return std::make_shared<SqlRecordset>(session, std::move(facts), std::move(source),
                                        host::LockType::ReadOnly);
}

host::RecordsetPtr SqlConnection::OpenRecordset(const String& source, host::CursorType,
                                                host::LockType lock, Long) {
  const SessionPtr session = Kept();
  String text = source;
  StatementFacts facts = Read(*session, text);
  if (IsPlainName(facts)) facts = Read(*session, u"SELECT * FROM " + facts.text);
  if (RunControl(*session, facts)) return std::make_shared<SqlRecordset>(session, text);
  return std::make_shared<SqlRecordset>(session, std::move(facts), std::move(text), lock);
}

host::RecordsetPtr SqlConnection::OpenSchema(host::SchemaKind kind,
                                             const host::SchemaRestrictions& restrictions) {
  for (const String* name : {&restrictions.Catalog, &restrictions.Schema, &restrictions.Table})
    RequireWellFormed(*name);
  const auto open = [session = session_, kind, restrictions] {
    return std::make_shared<RowTable>(session, SchemaResultColumns(kind),
                                      ReadSchema(*session, kind, restrictions));
  };
  return std::make_shared<SqlRecordset>(session_, open);
}

}  // namespace tessaria::sql

#include "hosts/odbc/lent_connection.h"

#include <sqlext.h>

#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/odbc_statement.h"

namespace tessaria::odbc {
namespace {

[[noreturn]] void Refuse(StringView reason) {
  throw HostError(errors::InvalidConnection,
                  u"A conexão do programa não pode ser adotada: " + String(reason));
}

constexpr StringView kTransactionOpen =
    u"há uma transação aberta nela, e não se pode verificar sem risco o que o driver faz com ela "
    u"depois de um erro. Adote a conexão antes de começar a transação.";
constexpr StringView kUndoesAll =
    u"com Protocol=7.4-1 o driver desfaz a transação inteira depois de um erro. Use Protocol=7.4-0 "
    u"ou 7.4-2.";
constexpr StringView kChangesLineEnds =
    u"com LFConversion=1 o driver altera os fins de linha. Use LFConversion=0.";

constexpr StringView kCommitsByItself =
    u"com UseDeclareFetch=1 o driver abre e confirma transações por conta própria. Use "
    u"UseDeclareFetch=0.";

// The first text of an answer.
String Asked(const std::shared_ptr<Line>& line, const String& question) {
  OdbcStatement statement(line);
  statement.Run(question);
  return statement.FirstText();
}

bool Works(const std::shared_ptr<Line>& line, const String& text) {
  try {
    OdbcStatement(line).Run(text);
    return true;
  } catch (const DriverError&) {
    if (line->IsLost()) throw;
    return false;
  }
}

// Only queries are read through cursors of the driver, and such a query sees its own.
bool DeclaresCursors(const std::shared_ptr<Line>& line) {
  return Asked(line, u"SELECT count(*) FROM pg_catalog.pg_cursors WHERE name LIKE 'SQL_CUR%'") !=
         u"0";
}

// A transaction of this function alone; by the driver's mode if that begins one by itself.
class Trial {
 public:
  explicit Trial(const std::shared_ptr<Line>& line)
      : line_(line), byMode_(StandingOf(*line) == sql::Standing::InTransaction) {
    const String began = Asked(line,
                               u"VALUES (CASE WHEN now() <> statement_timestamp() THEN 1 "
                               u"ELSE 0 END)");
    if (began != u"0") Refuse(kTransactionOpen);
    if (!byMode_) OdbcStatement(line).Run(u"BEGIN");
  }
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;
  ~Trial() {
    if (byMode_) {
      SQLEndTran(SQL_HANDLE_DBC, line_->Get(), SQL_ROLLBACK);
    } else if (!line_->IsLost()) {
      try {
        OdbcStatement(line_).Run(u"ROLLBACK");
      } catch (...) {
        // The connection is gone; its next use raises the error.
      }
    }
  }

 private:
  std::shared_ptr<Line> line_;
  bool byMode_;
};

}  // namespace

sql::Standing StandingOf(Line& line) {
  line.RequireConnected();
  SQLULEN mode = SQL_AUTOCOMMIT_ON;
  const SQLHDBC handle = line.Get();
  line.Check(SQLGetConnectAttrW(handle, SQL_ATTR_AUTOCOMMIT, &mode, SQL_IS_UINTEGER, nullptr),
             SQL_HANDLE_DBC, handle);
  return static_cast<SQLUINTEGER>(mode) == SQL_AUTOCOMMIT_OFF ? sql::Standing::InTransaction
                                                              : sql::Standing::Unknown;
}

void RequireHarmlessDriver(const std::shared_ptr<Line>& line) {
  const Trial trial(line);
  if (Asked(line, u"VALUES ('a' || chr(10))") != u"a\n") Refuse(kChangesLineEnds);
  if (DeclaresCursors(line)) Refuse(kCommitsByItself);
  OdbcStatement(line).Run(u"SAVEPOINT tessaria_trial");
  Works(line, u"VALUES (1 / 0)");
  if (!Works(line, u"ROLLBACK TO SAVEPOINT tessaria_trial")) Refuse(kUndoesAll);
}

}  // namespace tessaria::odbc

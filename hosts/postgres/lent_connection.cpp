#include "hosts/postgres/lent_connection.h"

#include "hosts/sql/errors/driver_error.h"
#include "tessaria/utf8.h"

namespace tessaria::postgres {
namespace {

[[noreturn]] void Refuse(StringView reason) {
  throw HostError(errors::InvalidConnection,
                  u"A conexão do programa não pode ser usada aqui: " + String(reason));
}

void RequireUtf8(const PGconn* connection) {
  const int encoding = PQclientEncoding(connection);  // however the program has spelt it
  if (encoding == pg_char_to_encoding("UTF8")) return;
  const char* const name = pg_encoding_to_char(encoding);
  Refuse(u"client_encoding é " + FromUtf8(name == nullptr ? "" : name) + u", e precisa ser UTF8.");
}

}  // namespace

void RequireUsable(PGconn* connection) {
  if (PQtransactionStatus(connection) == PQTRANS_ACTIVE) {
    throw HostError(errors::StillExecuting,
                    u"Um comando do programa ainda está em andamento nesta conexão. Leia os "
                    u"resultados dele até o fim, ou descarte-os, e tente outra vez.");
  }
  if (PQisnonblocking(connection) != 0)
    Refuse(u"ela está em modo não bloqueante (PQsetnonblocking).");
#ifdef LIBPQ_HAS_PIPELINING
  if (PQpipelineStatus(connection) != PQ_PIPELINE_OFF)
    Refuse(u"ela está em modo pipeline (PQenterPipelineMode).");
#endif
  RequireUtf8(connection);
}

sql::Standing StandingOf(const PGconn* connection) {
  switch (PQtransactionStatus(connection)) {
    case PQTRANS_IDLE:
      return sql::Standing::Idle;
    case PQTRANS_INTRANS:
      return sql::Standing::InTransaction;
    case PQTRANS_INERROR:
      return sql::Standing::Failed;
    case PQTRANS_ACTIVE:
    case PQTRANS_UNKNOWN:
      break;
  }
  return sql::Standing::Unknown;
}

}  // namespace tessaria::postgres

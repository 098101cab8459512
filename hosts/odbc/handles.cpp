#include "hosts/odbc/handles.h"

#include "hosts/odbc/diagnostics.h"

namespace tessaria::odbc {

// The version must be set before a connection handle can be made.
Environment::Environment() : Handle(SQL_NULL_HANDLE) {
  Check(SQLSetEnvAttr(get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0),
        SQL_HANDLE_ENV, get());
}

ConnectionHandle::ConnectionHandle() : connection_(environment_.get()) {}

}  // namespace tessaria::odbc

#include "hosts/odbc/handles.h"

#include "hosts/odbc/diagnostics.h"

namespace tessaria::odbc {

ConnectionHandle::ConnectionHandle() : environment_(SQL_NULL_HANDLE) {
  // The version must be set before a connection handle can be made.
  Check(SQLSetEnvAttr(environment_.get(), SQL_ATTR_ODBC_VERSION,
                      reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0),
        SQL_HANDLE_ENV, environment_.get());
  connection_ = Handle<SQL_HANDLE_DBC>(environment_.get());
}

}  // namespace tessaria::odbc

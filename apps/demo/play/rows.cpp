#include "apps/demo/play/rows.h"

#include <cstdio>

#include "apps/demo/field_helpers.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/qt/text.h"

namespace tessaria::demo {
namespace {

Row currentRow(host::Recordset& rows) {
  Row row;
  for (Long i = 0; i < rows.Fields().Count(); ++i) {
    const auto field = rows.Fields().Item(i);
    row << std::pair(qt::toQt(field->Name()), textOf(field->Value()));
  }
  return row;
}

}  // namespace

QList<Row> readRows(const QString& connectionString, const QString& statement) {
  const auto connection = odbc::CreateConnection();
  connection->ConnectionString(qt::fromQt(connectionString));
  connection->Open();
  const auto rows = connection->Execute(qt::fromQt(statement));
  if (rows->State() == host::state::Closed) return {};
  QList<Row> read;
  for (; !rows->Eof(); rows->MoveNext()) read << currentRow(*rows);
  return read;
}

QStringList compareAndPrint(const Row& row, const Row& expected) {
  QStringList wrong;
  for (const auto& [column, value] : row) {
    std::printf("  %-15s %s\n", qPrintable(column), qPrintable(value));
    for (const auto& [name, wanted] : expected)
      if (name == column && wanted != value)
        wrong << QStringLiteral("%1 contém \"%2\", e não \"%3\"").arg(column, value, wanted);
  }
  std::fflush(stdout);
  return wrong;
}

}  // namespace tessaria::demo

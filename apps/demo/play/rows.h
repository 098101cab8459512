// What the database holds, read through a connection of its own.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <utility>

namespace tessaria::demo {

/// Column and text of a row, in the columns' order; Null is an empty text.
using Row = QList<std::pair<QString, QString>>;

/// A row that a session leaves, by the statement that reads it.
struct ExpectedRow {
  QString title;
  QString statement;
  Row row;
};

/// The rows of a statement; none of one that has no rows to give. Raises `HostError`.
QList<Row> readRows(const QString& connectionString, const QString& statement);

/// Prints a row, one column a line, and says which columns are not as expected.
QStringList compareAndPrint(const Row& row, const Row& expected);

}  // namespace tessaria::demo

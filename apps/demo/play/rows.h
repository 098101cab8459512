// The contents of the database, read through a connection of their own.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <utility>

namespace tessaria::demo {

/// Column and text of a row, in the columns' order; Null is an empty text.
using Row = QList<std::pair<QString, QString>>;

/// A row that must be stored after a session, with the statement that reads it.
struct ExpectedRow {
  QString title;
  QString statement;
  Row row;
};

/// The rows of a statement; none for a statement without result rows. Raises `HostError`.
QList<Row> readRows(const QString& connectionString, const QString& statement);

/// Prints a row, one column on each line, and returns which columns are not as expected.
QStringList compareAndPrint(const Row& row, const Row& expected);

}  // namespace tessaria::demo

// A database of the test's server that is opened with Qt's SQL module.
#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <stdexcept>
#include <string>

#include "tessaria/field_settings.h"
#include "tests/qt/operator.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {

class QtDatabase {
 public:
  QtDatabase() = default;
  QtDatabase(const QtDatabase&) = delete;
  QtDatabase& operator=(const QtDatabase&) = delete;
  ~QtDatabase() {
    database_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(name());
  }

  static QString name() { return QStringLiteral("loja"); }
  /// Why there is no server; empty when there is one.
  static std::string missing() { return test::PostgresCluster::Missing(); }
  /// With Qt's driver of that name. False without a server.
  bool open(const char* driver) {
    if (!missing().empty()) return false;
    auto& cluster = test::PostgresCluster::Shared();
    cluster.EnsureRunning();
    database_ = QSqlDatabase::addDatabase(QString::fromLatin1(driver), name());
    if (QByteArray(driver) == "QPSQL") {
      database_.setHostName(QString::fromStdString(cluster.Folder()));
      database_.setDatabaseName(QStringLiteral("postgres"));
      database_.setUserName(QStringLiteral("postgres"));
    } else {
      database_.setDatabaseName(QString::fromStdU16String(cluster.ConnectionString()));
    }
    if (!database_.open()) throw std::runtime_error(database_.lastError().text().toStdString());
    return true;
  }
  QSqlDatabase& get() { return database_; }
  /// Runs a statement and returns the first value of its answer.
  std::string ask(const char* statement) {
    QSqlQuery query(database_);
    if (!query.exec(QString::fromUtf8(statement)))
      throw std::runtime_error(query.lastError().text().toStdString());
    return query.next() ? query.value(0).toString().toStdString() : std::string();
  }

 private:
  QSqlDatabase database_;
};

}  // namespace tessaria::qt::tests

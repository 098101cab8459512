// Shared by the tests against a real server: an open connection and its helpers.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "hosts/sql/errors/driver_error.h"
#include "tessaria/host/data.h"
#include "tessaria/text.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"
#include "tests/support/printers.h"

namespace tessaria::sql::test {

using host::CursorType;
using host::LockType;
using tessaria::test::PostgresCluster;

/// An open connection to an empty schema.
class DatabaseTest : public ::testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    Cluster().EnsureRunning();
    connection_ = NewConnection();
    Run(u"drop schema public cascade");
    Run(u"create schema public");
  }

  static PostgresCluster& Cluster() { return PostgresCluster::Shared(); }

  static host::ConnectionPtr NewConnection(const String& more = {}) {
    auto connection = tessaria::test::NewConnectionOfTheDriver();
    connection->ConnectionString(Cluster().ConnectionString() + more);
    connection->Open();
    return connection;
  }

  void Run(const String& statement) { connection_->Execute(statement); }

  /// Creates a table of the keys from 1 (codigo) with a name each (nome), "nome 1" and so on.
  void CreateNames(const String& table, Long rows) {
    Run(u"create table " + table + u" (codigo int primary key, nome text)");
    Run(u"insert into " + table + u" select n, 'nome ' || n from generate_series(1, " +
        FromUtf8(std::to_string(rows)) + u") n");
  }

  host::RecordsetPtr Read(const String& statement) {
    return connection_->OpenRecordset(statement, CursorType::Static, LockType::ReadOnly);
  }
  host::RecordsetPtr Edit(const String& statement) {
    return connection_->OpenRecordset(statement, CursorType::Static, LockType::Optimistic);
  }

  /// The first field of the statement's first row.
  Variant Scalar(const String& statement) { return Get(Read(statement), 0); }

  static Variant Get(const host::RecordsetPtr& rows, Long ordinal) {
    return rows->Fields().Item(ordinal)->Value();
  }
  static Variant Get(const host::RecordsetPtr& rows, const String& name) {
    return rows->Fields().Item(name)->Value();
  }
  static void Set(const host::RecordsetPtr& rows, const String& name, const Variant& value) {
    rows->Fields().Item(name)->Value(value);
  }

  host::ConnectionPtr connection_;
};

}  // namespace tessaria::sql::test

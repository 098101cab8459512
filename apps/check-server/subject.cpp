#include "apps/check-server/subject.h"

#include <algorithm>
#include <iostream>
#include <utility>

#include <tessaria/conversion.h>
#include <tessaria/error.h>
#include <tessaria/utf8.h>

namespace tessaria::check {

std::string TextOf(const std::exception& error) {
  std::string text = error.what();
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n' || c == '\t'; }, ' ');
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

Subject::Subject(Factory create, String connectionString, const std::string& schema)
    : create_(std::move(create)),
      connectionString_(std::move(connectionString)),
      schema_(FromUtf8(schema)) {
  try {
    one_ = NewSession();
    other_ = NewSession();
    isPostgres_ = CStr(one_->Properties(u"DBMS Name")) == u"PostgreSQL";
  } catch (const HostError& error) {
    throw CannotCheck("the server cannot be reached: " + TextOf(error));
  }
  RequireWritable();
  CreateSchema();
}

Subject::~Subject() {
  try {
    NewSession()->Execute(u"drop schema " + schema_ + (isPostgres_ ? u" cascade" : u""));
  } catch (const HostError& error) {
    std::cerr << "tessaria-check-server: the schema " << ToUtf8(schema_)
              << " could not be dropped: " << TextOf(error) << "\n";
  }
}

void Subject::RequireWritable() {
  if (!isPostgres_ || Scalar(*one_, u"show transaction_read_only") != u"on") return;
  throw CannotCheck("the server takes no writes: it is a standby, or is set to be read-only");
}

void Subject::CreateSchema() {
  const String name = u"'" + schema_ + u"'";
  bool isThere = false;
  try {
    isThere =
        Scalar(*one_, u"select count(*) from information_schema.schemata where schema_name = " +
                          name) != u"0";
    if (!isThere) one_->Execute(u"create schema " + schema_);
  } catch (const HostError& error) {
    throw CannotCheck("the schema cannot be created: " + TextOf(error));
  }
  if (isThere) throw CannotCheck("the schema " + ToUtf8(schema_) + " exists; name another one");
}

host::ConnectionPtr Subject::NewSession() const {
  auto connection = create_();
  connection->ConnectionString(connectionString_);
  connection->Open();
  return connection;
}

void Subject::Restore() {
  for (host::ConnectionPtr& connection : {std::ref(one_), std::ref(other_)}) {
    connection = nullptr;
    connection = NewSession();
  }
}

std::string Subject::ServerName() const {
  const String name = CStr(one_->Properties(u"DBMS Name"));
  const String version = CStr(one_->Properties(u"DBMS Version"));
  return ToUtf8(version.find(name) == 0 ? version : name + u" " + version);
}

String Subject::Table(const char16_t* name) const { return schema_ + u"." + name; }

void Subject::Create(const char16_t* name, const char16_t* columns) {
  one_->Execute(u"create table " + Table(name) + u" (" + columns + u")");
}

String Subject::Scalar(host::Connection& connection, const String& statement) {
  const auto rows = connection.Execute(statement);
  return rows->Eof() ? String() : CStr(rows->Fields().Item(0)->Value());
}

host::RecordsetPtr Subject::Edit(host::Connection& connection, const String& statement) {
  return connection.OpenRecordset(statement, host::CursorType::Static, host::LockType::Optimistic);
}

}  // namespace tessaria::check

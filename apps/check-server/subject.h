// The server that is checked, with two sessions on it and a schema of the check's own.
#pragma once

#include <functional>
#include <string>

#include <tessaria/host/data.h>

namespace tessaria::check {

/// The check cannot be made; the text says why.
class CannotCheck : public std::exception {
 public:
  explicit CannotCheck(std::string why) : why_(std::move(why)) {}
  const char* what() const noexcept override { return why_.c_str(); }

 private:
  std::string why_;
};

/// The text of an error on one line.
std::string TextOf(const std::exception& error);

class Subject {
 public:
  using Factory = std::function<host::ConnectionPtr()>;

  /// Opens both sessions and creates the schema. Throws CannotCheck.
  Subject(Factory create, String connectionString, const std::string& schema);
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;
  /// Drops the schema.
  ~Subject();

  host::Connection& One() { return *one_; }
  host::Connection& Other() { return *other_; }
  /// A further session.
  host::ConnectionPtr NewSession() const;
  /// Opens again what a check has left closed or in a transaction.
  void Restore();
  bool IsPostgres() const { return isPostgres_; }
  /// "PostgreSQL 15.0.18", or what the driver reports.
  std::string ServerName() const;

  /// The name of a table with its schema.
  String Table(const char16_t* name) const;
  /// Creates a table anew.
  void Create(const char16_t* name, const char16_t* columns);
  /// The first field of the first row, as a text.
  static String Scalar(host::Connection& connection, const String& statement);
  static host::RecordsetPtr Edit(host::Connection& connection, const String& statement);

 private:
  void RequireWritable();
  void CreateSchema();

  Factory create_;
  String connectionString_;
  String schema_;
  host::ConnectionPtr one_, other_;
  bool isPostgres_ = false;
};

}  // namespace tessaria::check

// Names of tables and fields as a statement takes them.
#pragma once

#include <vector>

#include "lookup/sql_family.h"
#include "tessaria/host/data.h"
#include "tessaria/string.h"

namespace tessaria::wizard {

/// A table or view as the catalogue has it.
struct CatalogueRow {
  String schema;
  String name;
  String type;
};

/// What one database takes without quotes, and where it looks for tables.
class SqlNames {
 public:
  SqlNames() = default;
  /// As the database of an open connection has it. Errors are the provider's.
  explicit SqlNames(host::Connection& connection);

  /// In quotes when the database would read the bare name otherwise.
  String Name(const String& bare) const;
  /// The table with its schema when the database does not find it without, or finds another one.
  /// `all` is the whole catalogue.
  std::vector<String> Tables(const std::vector<CatalogueRow>& all) const;
  /// The last part of a name, without quotes.
  static String Bare(const String& name);

 private:
  bool NeedsQuotes(const String& bare) const;
  std::size_t PlaceOf(const String& schema) const;

  SqlFamily family_ = SqlFamily::Unknown;
  std::vector<String> searchPath_;  ///< empty where the database has none
};

}  // namespace tessaria::wizard

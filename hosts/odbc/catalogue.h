// The tables of a database, their columns and keys.
#pragma once

#include <vector>

#include "tessaria/host/data.h"

namespace tessaria::odbc {

struct CatalogueTable {
  String Catalogue, Schema, Name;
  String Type;  ///< "TABLE", "VIEW", "SYSTEM TABLE", ...
};

struct CatalogueColumn {
  String Name;
  String TypeName;  ///< as the database calls it
  Long Size = 0;    ///< characters or digits
  bool IsNullable = true;
};

/// Reads the catalogue through a connection of this host. Errors of all: 3709 when it is closed,
/// else the driver's own.
class Catalogue {
 public:
  /// Error 3001 for a connection of another host.
  explicit Catalogue(host::ConnectionPtr connection);

  /// In the driver's order: by type, schema and name.
  std::vector<CatalogueTable> Tables() const;
  /// In the order of the table. Names must agree exactly; an empty schema stands for all.
  std::vector<CatalogueColumn> Columns(const String& table, const String& schema = {}) const;
  /// Column names in the order of the key; empty when the table has none.
  std::vector<String> PrimaryKey(const String& table, const String& schema = {}) const;

 private:
  host::ConnectionPtr connection_;
};

}  // namespace tessaria::odbc

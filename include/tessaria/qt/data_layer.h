// What a program tells the library about its data layer.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/data.h"

namespace tessaria::qt {

/// The library's screens are apart from its databases: the program that links both puts them
/// together. Either function may be empty, and may raise errors.
struct TESSARIA_QT_API DataLayer {
  /// The names of the data sources of this system, in any order.
  std::function<std::vector<String>()> DataSourceNames;
  /// A new closed connection.
  std::function<std::shared_ptr<host::Connection>()> NewConnection;
};

/// Sets the data layer of the calling thread, whose host is installed if it is not yet. Without
/// one, the library knows of no data sources, and opens no connections of its own.
TESSARIA_QT_API void setDataLayer(DataLayer layer);

}  // namespace tessaria::qt

// The command line.
#pragma once

#include <QString>
#include <QStringList>

#include "apps/demo/database.h"

namespace tessaria::demo {

struct Options {
  QString dataFolder;        ///< of the private server
  QString connectionString;  ///< empty for the private server
  QString playFolder;        ///< folder of the pictures; empty unless a session is to be played
  Driver driver = Driver::Odbc;
  bool isDark = false;  ///< light texts on dark windows, whatever the system's colours
};

/// Raises `Failure` for options that cannot be read or do not go together. Options that only print
/// information end the program.
Options readOptions(const QStringList& arguments);

}  // namespace tessaria::demo

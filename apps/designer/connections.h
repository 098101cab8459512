// How data controls and the library's own windows in Designer connect to databases.
#pragma once

#include <tessaria/qt/adodc.h>
#include <tessaria/qt/data_layer.h>

namespace tessaria::designer {

/// Empty when the library was built without a host for data sources: data controls then say that
/// they have no connection.
qt::Adodc::ConnectionFactory connections();

/// Without functions in such a build: there are no data sources then.
qt::DataLayer dataLayer();

}  // namespace tessaria::designer

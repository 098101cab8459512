// For a build without ODBC.
#include "apps/designer/connections.h"

namespace tessaria::designer {

qt::Adodc::ConnectionFactory connections() { return {}; }

qt::DataLayer dataLayer() { return {}; }

}  // namespace tessaria::designer

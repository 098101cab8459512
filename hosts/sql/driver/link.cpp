#include "hosts/sql/driver/link.h"

namespace tessaria::sql {

// Here, so that the type information of both stands in one library.
Statement::~Statement() = default;
Link::~Link() = default;

}  // namespace tessaria::sql

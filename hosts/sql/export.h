// What the library of the record-set engine shows to the libraries of its drivers.
#pragma once

#include "tessaria/export.h"

#ifdef TESSARIA_BUILDS_SQL
#define TESSARIA_SQL_API TESSARIA_EXPORT
#else
#define TESSARIA_SQL_API TESSARIA_IMPORT
#endif

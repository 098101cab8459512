// Export macros: what each library makes visible to programs and to the other libraries.
#pragma once

// TESSARIA_<LIBRARY>_API marks every class and function that a library exports. Classes that cross
// libraries (ports, errors) carry it too, so that casts and catch clauses recognise them
// everywhere.
#if defined(_WIN32)
#define TESSARIA_EXPORT __declspec(dllexport)
#define TESSARIA_IMPORT __declspec(dllimport)
#else
#define TESSARIA_EXPORT __attribute__((visibility("default")))
#define TESSARIA_IMPORT __attribute__((visibility("default")))
#endif

#ifdef TESSARIA_BUILDS_CORE
#define TESSARIA_CORE_API TESSARIA_EXPORT
#else
#define TESSARIA_CORE_API TESSARIA_IMPORT
#endif

#ifdef TESSARIA_BUILDS_QT
#define TESSARIA_QT_API TESSARIA_EXPORT
#else
#define TESSARIA_QT_API TESSARIA_IMPORT
#endif

// Of the record-set engine, which has no headers for programs: what its drivers use.
#ifdef TESSARIA_BUILDS_SQL
#define TESSARIA_SQL_API TESSARIA_EXPORT
#else
#define TESSARIA_SQL_API TESSARIA_IMPORT
#endif

#ifdef TESSARIA_BUILDS_ODBC
#define TESSARIA_ODBC_API TESSARIA_EXPORT
#else
#define TESSARIA_ODBC_API TESSARIA_IMPORT
#endif

#ifdef TESSARIA_BUILDS_POSTGRES
#define TESSARIA_POSTGRES_API TESSARIA_EXPORT
#else
#define TESSARIA_POSTGRES_API TESSARIA_IMPORT
#endif

#ifdef TESSARIA_BUILDS_QTSQL
#define TESSARIA_QTSQL_API TESSARIA_EXPORT
#else
#define TESSARIA_QTSQL_API TESSARIA_IMPORT
#endif

#ifdef TESSARIA_BUILDS_MEMORY
#define TESSARIA_MEMORY_API TESSARIA_EXPORT
#else
#define TESSARIA_MEMORY_API TESSARIA_IMPORT
#endif

// Marks the core functions that the library's own hosts use and that no installed header declares.
#define TESSARIA_HOST_API TESSARIA_CORE_API

# What `cmake --install` installs, and the package that find_package(Tessaria) reads.
#
# Programs write #include <tessaria/...>; the tree's include/tessaria is installed for that.

include(CMakePackageConfigHelpers)

set(tessaria_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Tessaria)

# tessaria_install_component(NAME): the library Tessaria<NAME>.
function(tessaria_install_component name)
  set_target_properties(Tessaria${name} PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS Tessaria${name} EXPORT Tessaria${name}Targets
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(EXPORT Tessaria${name}Targets NAMESPACE Tessaria:: DESTINATION ${tessaria_package_dir})
endfunction()

# tessaria_install_host(NAME): the library Tessaria<NAME>, when it was built, and the headers of its
# own folder below include/tessaria.
function(tessaria_install_host name)
  if(NOT TARGET Tessaria${name})
    return()
  endif()
  tessaria_install_component(${name})
  string(TOLOWER ${name} folder)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/tessaria/${folder}
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessaria FILES_MATCHING PATTERN "*.h")
endfunction()

tessaria_install_component(Core)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/tessaria DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h"
        PATTERN memory EXCLUDE PATTERN odbc EXCLUDE PATTERN postgres EXCLUDE PATTERN qt EXCLUDE
        PATTERN qtsql EXCLUDE)
tessaria_install_host(Memory)
if(TARGET TessariaSql)
  tessaria_install_component(Sql)  # what the drivers share; it has no headers for programs
endif()
tessaria_install_host(Odbc)
tessaria_install_host(Postgres)
tessaria_install_host(Qt)
tessaria_install_host(QtSql)

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/TessariaConfig.cmake.in
  ${PROJECT_BINARY_DIR}/TessariaConfig.cmake
  INSTALL_DESTINATION ${tessaria_package_dir})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/TessariaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TessariaConfig.cmake
              ${PROJECT_BINARY_DIR}/TessariaConfigVersion.cmake
        DESTINATION ${tessaria_package_dir})
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/README.md
              ${PROJECT_SOURCE_DIR}/README.pt-BR.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
# What an administrator of a database runs by hand.
install(FILES ${PROJECT_SOURCE_DIR}/wizard/sql/cdate_str.sql
        DESTINATION ${CMAKE_INSTALL_DATADIR}/tessaria/sql)

# What `cmake --install` installs, and the package that find_package(Tessaria) reads. Each file belongs
# to the component of the Debian package that it is in.
#
# Programs write #include <tessaria/...>; the tree's include/tessaria is installed for that.

include(CMakePackageConfigHelpers)

set(tessaria_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Tessaria)

# tessaria_install_component(NAME COMPONENT component REQUIRES package...): the library
# Tessaria<NAME>, and tessaria-<name>.pc for programs that are built without CMake.
function(tessaria_install_component name)
  cmake_parse_arguments(arg "" "COMPONENT" "REQUIRES" ${ARGN})
  set_target_properties(Tessaria${name} PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS Tessaria${name} EXPORT Tessaria${name}Targets
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT ${arg_COMPONENT}
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT ${arg_COMPONENT}
                  NAMELINK_COMPONENT development
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  install(EXPORT Tessaria${name}Targets NAMESPACE Tessaria:: DESTINATION ${tessaria_package_dir}
          COMPONENT development)
  string(TOLOWER ${name} lower)
  list(JOIN arg_REQUIRES ", " requires)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/tessaria.pc.in
                 ${PROJECT_BINARY_DIR}/tessaria-${lower}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/tessaria-${lower}.pc
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()

# tessaria_install_host(NAME COMPONENT component REQUIRES package...): the library Tessaria<NAME>,
# when it was built, and the headers of its own folder below include/tessaria.
function(tessaria_install_host name)
  if(NOT TARGET Tessaria${name})
    return()
  endif()
  tessaria_install_component(${name} ${ARGN})
  string(TOLOWER ${name} folder)
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/tessaria/${folder}
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessaria COMPONENT development
          FILES_MATCHING PATTERN "*.h")
endfunction()

file(RELATIVE_PATH prefix_from_pc /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
tessaria_install_component(Core COMPONENT libraries)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/tessaria DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        COMPONENT development FILES_MATCHING PATTERN "*.h"
        PATTERN memory EXCLUDE PATTERN odbc EXCLUDE PATTERN postgres EXCLUDE PATTERN qt EXCLUDE
        PATTERN qtsql EXCLUDE)
tessaria_install_host(Memory COMPONENT libraries REQUIRES tessaria-core)
if(TARGET TessariaSql)
  # What the drivers share; it has no headers for programs.
  tessaria_install_component(Sql COMPONENT libraries REQUIRES tessaria-core)
endif()
tessaria_install_host(Odbc COMPONENT libraries REQUIRES tessaria-core)
tessaria_install_host(Postgres COMPONENT libraries REQUIRES tessaria-core)
tessaria_install_host(Qt COMPONENT qt REQUIRES tessaria-core Qt6Widgets)
tessaria_install_host(QtSql COMPONENT qt REQUIRES tessaria-core Qt6Sql)

configure_package_config_file(
  ${PROJECT_SOURCE_DIR}/cmake/TessariaConfig.cmake.in
  ${PROJECT_BINARY_DIR}/TessariaConfig.cmake
  INSTALL_DESTINATION ${tessaria_package_dir})
write_basic_package_version_file(
  ${PROJECT_BINARY_DIR}/TessariaConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/TessariaConfig.cmake
              ${PROJECT_BINARY_DIR}/TessariaConfigVersion.cmake
        DESTINATION ${tessaria_package_dir} COMPONENT development)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/README.md
              ${PROJECT_SOURCE_DIR}/README.pt-BR.md ${PROJECT_SOURCE_DIR}/CHANGELOG.md
              ${PROJECT_SOURCE_DIR}/CONTRIBUTING.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documentation)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs DESTINATION ${CMAKE_INSTALL_DOCDIR}
        COMPONENT documentation
        FILES_MATCHING PATTERN "*.md" PATTERN "*.png" PATTERN "*.svg")
# What an administrator of a database runs by hand.
install(FILES ${PROJECT_SOURCE_DIR}/wizard/sql/cdate_str.sql
        DESTINATION ${CMAKE_INSTALL_DATADIR}/tessaria/sql COMPONENT designer)

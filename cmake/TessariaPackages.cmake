# The Debian packages that `cpack` makes of the build: libraries, development files, Designer's plugin,
# programs, the demo and the documentation.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "Tessaria developers")
set(CPACK_PACKAGE_CONTACT "Tessaria developers <tessaria@localhost>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# The libraries of other packages come from what the programs are linked with.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Packages of programs find ours by what they are linked with.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
foreach(name Core Memory Sql Odbc Postgres Qt QtSql)
  if(TARGET Tessaria${name})
    get_target_property(folder Tessaria${name} BINARY_DIR)
    list(APPEND CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${folder})
  endif()
endforeach()
set(CPACK_COMPONENTS_ALL)

# tessaria_package(COMPONENT NAME name SECTION section OURS package... DEPENDS package... ABOUT text):
# one package. Packages of ours that it depends on are of the same version.
function(tessaria_package component)
  cmake_parse_arguments(arg "" "NAME;SECTION;ABOUT" "DEPENDS;OURS" ${ARGN})
  string(TOUPPER ${component} key)
  list(TRANSFORM arg_OURS APPEND " (= ${PROJECT_VERSION})")
  set(depends ${arg_OURS} ${arg_DEPENDS})
  list(JOIN depends ", " depends)
  set(CPACK_COMPONENTS_ALL ${CPACK_COMPONENTS_ALL} ${component} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_NAME ${arg_NAME} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_SECTION ${arg_SECTION} PARENT_SCOPE)
  set(CPACK_DEBIAN_${key}_PACKAGE_DEPENDS "${depends}" PARENT_SCOPE)
  set(CPACK_COMPONENT_${key}_DESCRIPTION "${PROJECT_DESCRIPTION}\n${arg_ABOUT}" PARENT_SCOPE)
endfunction()

# A minor version may change what the libraries export, so it is part of their packages' names.
set(tessaria_minor ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set(tessaria_core_package libtessaria${tessaria_minor})
set(tessaria_qt_package libtessaria-qt${tessaria_minor})
set(tessaria_development ${tessaria_core_package})

tessaria_package(libraries NAME ${tessaria_core_package} SECTION libs
  ABOUT "The core, its host without a screen, and the record sets over ODBC and PostgreSQL's own library.")
if(TARGET TessariaQt)
  tessaria_package(qt NAME ${tessaria_qt_package} SECTION libs OURS ${tessaria_core_package}
    ABOUT "The widgets for Qt 6, and the adoption of Qt's SQL connections.")
  list(APPEND tessaria_development ${tessaria_qt_package})
  set(tessaria_qt_headers qt6-base-dev)
endif()
tessaria_package(development NAME libtessaria-dev SECTION libdevel
  OURS ${tessaria_development} DEPENDS ${tessaria_qt_headers}
  ABOUT "Headers, the package for CMake and the files for pkg-config.")
if(TARGET TessariaDesigner)
  tessaria_package(designer NAME tessaria-designer SECTION devel
    OURS ${tessaria_core_package} ${tessaria_qt_package} DEPENDS designer-qt6
    ABOUT "The plugin for Qt Designer with its property page and SQL wizard, and the command that starts Designer with it.")
endif()
if(TARGET tessaria-check-server)
  tessaria_package(programs NAME tessaria-tools SECTION devel OURS ${tessaria_core_package}
    ABOUT "Commands that check form files and database servers.")
endif()
if(TARGET tessaria-demo)
  tessaria_package(demo NAME tessaria-demo SECTION misc
    OURS ${tessaria_core_package} ${tessaria_qt_package}
    DEPENDS postgresql odbc-postgresql qt6-translations-l10n
    ABOUT "The order desk of a small trading company, on a private database.")
endif()
tessaria_package(documentation NAME tessaria-doc SECTION doc
  ABOUT "Guides and reference, in English and Portuguese.")
# These hold no programs and fit every machine.
set(CPACK_DEBIAN_DOCUMENTATION_PACKAGE_ARCHITECTURE all)

include(CPack)

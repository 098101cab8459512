# What `cmake --install` lays down, and the package that find_package(Tessaria) reads.
#
# Headers keep the tree's own folders below <prefix>/include/tessaria, because that is how they
# include one another: "tessaria/variant.h", "control/tstext.h".

include(CMakePackageConfigHelpers)

set(tessaria_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/Tessaria)

# tessaria_install_headers(folder...): the public headers, those that are not in a "detail" folder.
function(tessaria_install_headers)
  foreach(folder ${ARGN})
    if(IS_DIRECTORY ${PROJECT_SOURCE_DIR}/${folder})
      install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder}/
              DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessaria/${folder}
              FILES_MATCHING PATTERN "*.h" PATTERN detail EXCLUDE)
    endif()
  endforeach()
endfunction()

# tessaria_install_component(NAME folder...): the library Tessaria<NAME> with its headers.
function(tessaria_install_component name)
  if(NOT TARGET Tessaria${name})
    return()
  endif()
  set_target_properties(Tessaria${name} PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS Tessaria${name} EXPORT Tessaria${name}Targets
          RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  install(EXPORT Tessaria${name}Targets NAMESPACE Tessaria:: DESTINATION ${tessaria_package_dir})
  tessaria_install_headers(${ARGN})
endfunction()

tessaria_install_component(Core include ${TESSARIA_CORE_FOLDERS})
tessaria_install_component(Odbc hosts/odbc)
tessaria_install_component(Qt hosts/qt)

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

# What `cmake --install` lays down, and the package that find_package(Tessaria) reads.
#
# Headers keep the tree's own folders below <prefix>/include/tessaria, because that is how they
# include one another: "tessaria/variant.h", "control/tstext.h".

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

# All headers of the core are public. A host's are those that its target names, without their
# endings, in TESSARIA_PUBLIC_HEADERS.
function(tessaria_install_host name folder)
  if(NOT TARGET Tessaria${name})
    return()
  endif()
  tessaria_install_component(${name})
  get_target_property(headers Tessaria${name} TESSARIA_PUBLIC_HEADERS)
  foreach(header ${headers})
    cmake_path(GET header PARENT_PATH room)
    install(FILES ${PROJECT_SOURCE_DIR}/${folder}/${header}.h
            DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessaria/${folder}/${room})
  endforeach()
endfunction()

tessaria_install_component(Core)
foreach(folder include ${TESSARIA_CORE_FOLDERS})
  install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder}/
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tessaria/${folder} FILES_MATCHING PATTERN "*.h")
endforeach()
tessaria_install_host(Odbc hosts/odbc)
tessaria_install_host(Qt hosts/qt)

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

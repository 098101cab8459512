# Functions that create the targets of this project.

# Compiler settings that every target of ours shares.
add_library(tessaria_settings INTERFACE)
target_compile_features(tessaria_settings INTERFACE cxx_std_20)
# Includes are written from the root of the tree; programs see only include/.
target_include_directories(tessaria_settings INTERFACE
  ${PROJECT_SOURCE_DIR} ${PROJECT_SOURCE_DIR}/include)
if(MSVC)
  target_compile_options(tessaria_settings INTERFACE /W4 /WX /utf-8)
else()
  target_compile_options(tessaria_settings INTERFACE -Wall -Wextra -Wpedantic -Werror)
  # g++ 12 warns falsely of overlaps in optimised string concatenation.
  target_compile_options(tessaria_settings INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local> $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
endif()

# tessaria_objects(NAME source...): the objects tessaria_NAME. They see all headers of the tree, and
# export only what a header marks for export.
function(tessaria_objects name)
  add_library(tessaria_${name} OBJECT ${ARGN})
  set_target_properties(tessaria_${name} PROPERTIES
    POSITION_INDEPENDENT_CODE ON CXX_VISIBILITY_PRESET hidden VISIBILITY_INLINES_HIDDEN ON)
  target_link_libraries(tessaria_${name} PRIVATE tessaria_settings)
endfunction()

set(TESSARIA_CORE_FOLDERS "" CACHE INTERNAL "")

# tessaria_core_folder(NAME source...): one folder of the core.
function(tessaria_core_folder name)
  tessaria_objects(${name} ${ARGN})
  set(TESSARIA_CORE_FOLDERS ${TESSARIA_CORE_FOLDERS} ${name} CACHE INTERNAL "")
endfunction()

# tessaria_library(NAME objects...): the shared library TessariaNAME of the objects with these
# names. All but the core itself link TessariaCore. Programs see only include/. The libraries are
# shared, because the state of a thread must exist once.
#
# Tests of internals link tessaria_all_NAME, the same objects, instead of the library.
function(tessaria_library name)
  list(TRANSFORM ARGN REPLACE "(.+)" "$<TARGET_OBJECTS:tessaria_\\1>" OUTPUT_VARIABLE objects)
  string(TOUPPER TESSARIA_BUILDS_${name} builds)
  foreach(object ${ARGN})
    target_compile_definitions(tessaria_${object} PRIVATE ${builds})
  endforeach()
  add_library(Tessaria${name} SHARED ${objects})
  add_library(Tessaria::${name} ALIAS Tessaria${name})
  set_target_properties(Tessaria${name} PROPERTIES EXPORT_NAME ${name}
    # A minor version may change the exported symbols, as the package's version file says.
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
  target_compile_features(Tessaria${name} PUBLIC cxx_std_20)
  # A symbol that another library does not export fails here, and not in a program.
  target_link_options(Tessaria${name} PRIVATE
    $<$<AND:$<PLATFORM_ID:Linux>,$<CONFIG:Release>>:LINKER:--no-undefined>)
  target_include_directories(Tessaria${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

  string(TOLOWER tessaria_all_${name} all)
  add_library(${all} INTERFACE)
  target_sources(${all} INTERFACE ${objects})
  if(NOT name STREQUAL Core)
    target_link_libraries(Tessaria${name} PUBLIC TessariaCore)
    target_link_libraries(${all} INTERFACE tessaria_all_core)
  endif()
endfunction()

# The headers that every test program reads are precompiled once for the programs of the core, and
# once for those with windows.
function(tessaria_test_headers name)
  if(TARGET ${name})
    return()
  endif()
  set(headers <gmock/gmock.h> <gtest/gtest.h> <functional> <map> <memory> <optional> <regex>
              <sstream> <string> <thread> <vector>)
  set(source ${PROJECT_BINARY_DIR}/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "// Nothing but the headers.\n")
  add_library(${name} OBJECT ${source})
  target_link_libraries(${name} PRIVATE tessaria_settings GTest::gmock GTest::gtest)
  if(name MATCHES qt)
    list(APPEND headers <QtTest/QtTest> <QtWidgets/QtWidgets>)
    target_link_libraries(${name} PRIVATE Qt6::Test Qt6::Widgets)
  endif()
  tessaria_test_options(${name})
  target_precompile_headers(${name} PRIVATE ${headers})
  # The tests specialise the printer of texts after these headers.
  set_target_properties(${name} PROPERTIES PCH_INSTANTIATE_TEMPLATES OFF)
endfunction()

# The libraries are tested as they are built; only the test code is not optimised, so that it
# compiles twice as fast. Qt's definitions with a folder's name would prevent the shared headers.
function(tessaria_test_options name)
  if(NOT MSVC)
    target_compile_options(${name} PRIVATE
      -O0 -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
  endif()
endfunction()

# tessaria_test_support(NAME SOURCES source... LIBRARIES library...): code that several test programs
# share, compiled once. A program names it among its LIBRARIES.
function(tessaria_test_support name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES" ${ARGN})
  add_library(${name} OBJECT ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE tessaria_settings ${arg_LIBRARIES})
  tessaria_test_options(${name})
endfunction()

# tessaria_test(NAME SOURCES source... LIBRARIES library... [DRIVERS driver...]): one test program,
# run once, or once with each driver of databases as the test NAME_<driver>.
function(tessaria_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES;ENVIRONMENT;DRIVERS" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE tessaria_settings ${arg_LIBRARIES} GTest::gtest GTest::gmock)
  tessaria_test_options(${name})
  if(arg_LIBRARIES MATCHES Qt6::Test)
    set(headers tessaria_test_headers_qt)
  else()
    set(headers tessaria_test_headers)
  endif()
  tessaria_test_headers(${headers})
  target_precompile_headers(${name} REUSE_FROM ${headers})
  if(NOT arg_DRIVERS)
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 600 ENVIRONMENT "${arg_ENVIRONMENT}")
  endif()
  foreach(driver ${arg_DRIVERS})
    add_test(NAME ${name}_${driver} COMMAND ${name})
    set_tests_properties(${name}_${driver} PROPERTIES
      TIMEOUT 600 ENVIRONMENT "TESSARIA_DRIVER=${driver};${arg_ENVIRONMENT}")
  endforeach()
endfunction()

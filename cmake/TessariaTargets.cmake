# How the targets of this project are made.

# Compiler settings that every target of ours shares.
add_library(tessaria_settings INTERFACE)
target_compile_features(tessaria_settings INTERFACE cxx_std_20)
if(MSVC)
  target_compile_options(tessaria_settings INTERFACE /W4 /WX /utf-8)
else()
  target_compile_options(tessaria_settings INTERFACE -Wall -Wextra -Wpedantic -Werror)
  # g++ 12 sees overlaps in optimised string concatenation that are none.
  target_compile_options(tessaria_settings INTERFACE
    $<$<CXX_COMPILER_ID:GNU>:-Wshadow=local> $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
endif()

set(TESSARIA_CORE_FOLDERS "" CACHE INTERNAL "")

# tessaria_core_folder(NAME source...): one folder of the core, as objects.
function(tessaria_core_folder name)
  add_library(tessaria_${name} OBJECT ${ARGN})
  set_target_properties(tessaria_${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_include_directories(tessaria_${name} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>)
  target_link_libraries(tessaria_${name} PRIVATE tessaria_settings)
  set(TESSARIA_CORE_FOLDERS ${TESSARIA_CORE_FOLDERS} ${name} CACHE INTERNAL "")
endfunction()

# The shared core library, of all folders. Shared, because its per-thread state must exist once.
function(tessaria_add_core_library)
  set(objects)
  foreach(folder ${TESSARIA_CORE_FOLDERS})
    list(APPEND objects $<TARGET_OBJECTS:tessaria_${folder}>)
  endforeach()
  add_library(TessariaCore SHARED ${objects})
  add_library(Tessaria::Core ALIAS TessariaCore)
  tessaria_shared_library(TessariaCore)
  target_include_directories(TessariaCore PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/tessaria>)
endfunction()

# What all shared libraries of the project have in common.
function(tessaria_shared_library target)
  string(REPLACE "Tessaria" "" export_name ${target})
  set_target_properties(${target} PROPERTIES
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR}
    WINDOWS_EXPORT_ALL_SYMBOLS ON EXPORT_NAME ${export_name})
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:tessaria_settings>)
  target_compile_features(${target} PUBLIC cxx_std_20)
endfunction()

# The headers that every test program reads are compiled once: for the programs of the core, and
# for those with windows.
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

# The libraries are tested as they are built; the test code itself compiles twice as fast so. Qt's
# definitions with a folder's name would give each program headers of its own.
function(tessaria_test_options name)
  if(NOT MSVC)
    target_compile_options(${name} PRIVATE
      -O0 -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR)
  endif()
endfunction()

# tessaria_test(NAME SOURCES source... LIBRARIES library...): one test program.
function(tessaria_test name)
  cmake_parse_arguments(arg "" "" "SOURCES;LIBRARIES;ENVIRONMENT" ${ARGN})
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
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 600 ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()

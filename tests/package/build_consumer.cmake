# Builds and runs tests/package/consumer from an empty folder.
# SOURCE, BUILD: the project. WORK: the folder to work in. COMPONENTS: what was built, separated by
# commas.
# PYTHON: runs the scripts for the documentation; without it the documentation is not tried.
# DESIGNER: whether the plugin for Qt Designer was built, with the program that starts Designer.
# SUBDIRECTORY: adds the project as a subdirectory, its core alone, instead of as a package.

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ECHO STDOUT COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})

if(SUBDIRECTORY)
  set(COMPONENTS Core)
  # Only the build is tested here, not how the result runs.
  set(where -DTESSARIA_SUBDIRECTORY=${SOURCE} -DTESSARIA_QT=OFF -DTESSARIA_ODBC=OFF -DTESSARIA_POSTGRES=OFF
      -DCMAKE_BUILD_TYPE=Debug -DCMAKE_UNITY_BUILD=ON)
else()
  run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/stage)
  if(NOT EXISTS ${WORK}/stage/share/tessaria/sql/cdate_str.sql)
    message(FATAL_ERROR "the functions for PostgreSQL are not installed")
  endif()
  set(where -DCMAKE_PREFIX_PATH=${WORK}/stage -DHEADERS=${WORK}/stage/include
      -DDESIGNER=${DESIGNER})
  if(COMPONENTS MATCHES "Odbc.*Qt")
    list(APPEND where -DREADME=${SOURCE}/README.md -DDEMO=${SOURCE}/apps/demo)
  endif()
endif()

run(${CMAKE_COMMAND} -S ${SOURCE}/tests/package/consumer -B ${WORK}/build -G ${GENERATOR}
    -DCMAKE_CXX_COMPILER=${COMPILER} -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER}
    -DCOMPONENTS=${COMPONENTS} ${where})
run(${CMAKE_COMMAND} --build ${WORK}/build)
string(TOLOWER "${COMPONENTS}" programs)
string(REPLACE "," ";" programs "${programs}")
if(COMPONENTS MATCHES "(^|,)Qt(,|$)")
  list(APPEND programs qt_moc)
endif()
foreach(program ${programs})
  run(${WORK}/build/use_${program})
endforeach()

# There is one plugin, and the installed program makes Designer find it.
if(DESIGNER)
  file(GLOB_RECURSE plugins ${WORK}/stage/*TessariaDesigner*)
  list(LENGTH plugins count)
  if(NOT count EQUAL 1)
    message(FATAL_ERROR "installed plugins for Designer: ${plugins}")
  endif()
  run(${CMAKE_COMMAND} -E env DESIGNER=${WORK}/build/load_designer ${WORK}/stage/bin/tessaria-designer)
endif()

if(PYTHON AND NOT SUBDIRECTORY AND COMPONENTS MATCHES "Odbc.*Qt")
  include(${CMAKE_CURRENT_LIST_DIR}/documented.cmake)
endif()

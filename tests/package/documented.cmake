# What the installed package's documentation shows is tried with the package: its links, its lines for
# CMake, its projects with their tests. Included by build_consumer.cmake.

run(${PYTHON} ${SOURCE}/scripts/links.py ${WORK}/stage/share/doc/Tessaria)
run(${PYTHON} ${SOURCE}/scripts/documentation.py ${WORK}/blocks)
set(with_package -G ${GENERATOR} -DCMAKE_CXX_COMPILER=${COMPILER}
    -DCMAKE_CXX_COMPILER_LAUNCHER=${LAUNCHER} -DCMAKE_PREFIX_PATH=${WORK}/stage)

file(GLOB pages LIST_DIRECTORIES ON ${WORK}/blocks/cmake/*)
foreach(page ${pages})
  run(${CMAKE_COMMAND} -S ${page} -B ${page}/build ${with_package})
endforeach()

file(GLOB projects LIST_DIRECTORIES ON ${WORK}/blocks/project/*)
foreach(project ${projects})
  run(${CMAKE_COMMAND} -S ${project} -B ${project}/build ${with_package})
  run(${CMAKE_COMMAND} --build ${project}/build)
  run(${CMAKE_CTEST_COMMAND} --test-dir ${project}/build --output-on-failure --no-tests=error)
endforeach()
if(NOT pages OR NOT projects)
  message(FATAL_ERROR "the documentation shows no lines for CMake, or no project")
endif()

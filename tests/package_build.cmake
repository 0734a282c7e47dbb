# Builds the Debian package from the build folder into a folder of the
# tests' own, as `cpack -G DEB` does in the build folder.
#
#   cmake -DCPACK=<cpack> -DBUILD=<build folder> -DOUT=<folder> -P package_build.cmake

cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${OUT})
file(MAKE_DIRECTORY ${OUT})
execute_process(
  COMMAND ${CPACK} -G DEB --config ${BUILD}/CPackConfig.cmake -B ${OUT}
  WORKING_DIRECTORY ${OUT}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output
  ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "cpack failed:\n${output}")
endif()
file(GLOB packages ${OUT}/*.deb)
message(STATUS "Built ${packages}")

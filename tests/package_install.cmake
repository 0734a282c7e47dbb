# Installs the package with dpkg into a throw-away root, runs the installed
# command, removes the package again and checks that nothing of it is left.
# dpkg needs root for that; elsewhere the check says so and is skipped.
#
#   cmake -DDEB=<package> -DVERSION=<x.y.z> -DWORK=<folder> -P package_install.cmake

cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/version_answer.cmake)
execute_process(COMMAND id -u OUTPUT_VARIABLE user OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT user STREQUAL "0")
  message(STATUS "SKIPPED: dpkg installs into a root of its own only when run by root")
  return()
endif()

set(root ${WORK}/root)
file(REMOVE_RECURSE ${root})
# An empty package database: the game's dependencies are not in this root,
# and its files are all that should land and leave.
file(MAKE_DIRECTORY ${root}/var/lib/dpkg/info ${root}/var/lib/dpkg/updates)
file(TOUCH ${root}/var/lib/dpkg/status ${root}/var/lib/dpkg/available)
set(dpkg dpkg --root=${root} --log=${WORK}/dpkg.log --force-depends)
function(run output)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "'${ARGN}' failed:\n${out}")
  endif()
  set(${output} "${out}" PARENT_SCOPE)
endfunction()

set(failures)
run(ignored ${dpkg} --install ${DEB})
run(listed ${dpkg} --listfiles trickhaven)
foreach(file /usr/games/trickhaven /usr/lib/trickhaven/Data.dat /usr/share/man/man6/trickhaven.6.gz)
  if(NOT listed MATCHES "\n${file}\n")
    list(APPEND failures "dpkg does not list ${file} as the package's")
  endif()
endforeach()
check_version_answer(${root}/usr/games/trickhaven ${VERSION})
if(complaint)
  list(APPEND failures "the installed command: ${complaint}")
endif()

run(ignored ${dpkg} --remove trickhaven)
file(GLOB_RECURSE left LIST_DIRECTORIES false RELATIVE ${root} ${root}/usr/* ${root}/etc/*)
if(left)
  list(APPEND failures "removing the package leaves ${left}")
endif()
if(IS_DIRECTORY ${root}/usr/lib/trickhaven OR IS_DIRECTORY ${root}/usr/share/doc/trickhaven)
  list(APPEND failures "removing the package leaves its folders")
endif()

if(failures)
  list(JOIN failures "\n  " text)
  message(FATAL_ERROR "The package does not install and leave cleanly:\n  ${text}")
endif()
message(STATUS "Installed into ${root}, answered, and removed without a trace")

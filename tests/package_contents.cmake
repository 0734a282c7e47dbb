# Reads the Debian package as apt would meet it: its control fields, its
# file list with owners and modes, and the files themselves unpacked into a
# folder, where the unpacked command must answer --version.
#
#   cmake -DDEB=<package> -DSOURCE=<source folder> -DVERSION=<x.y.z>
#         -DWORK=<folder> -P package_contents.cmake

cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/version_answer.cmake)
set(app_id org.trickhaven.Trickhaven)
set(failures)
macro(fail text)
  list(APPEND failures "${text}")
endmacro()
function(run output)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "'${ARGN}' failed: ${err}")
  endif()
  set(${output} "${out}" PARENT_SCOPE)
endfunction()

if(NOT EXISTS "${DEB}")
  message(FATAL_ERROR "No package at ${DEB}")
endif()

# The control fields: name, version, section, and the dependencies that
# dpkg-shlibdeps computed from the libraries the program links.
foreach(field_and_pattern
    "Package|^trickhaven$"
    "Version|^${VERSION}$"
    "Section|^games$"
    "Depends|libc6.*libqt6core6|libqt6core6.*libc6"
    "Depends|libqt6widgets6"
    "Depends|libqt6multimedia6"
    "Depends|libqt6svg6"
    "Recommends|^gnome-cards-data, fonts-liberation$")
  string(REPLACE "|" ";" parts "${field_and_pattern}")
  list(POP_FRONT parts field)
  list(JOIN parts "|" pattern)
  run(value dpkg-deb --field ${DEB} ${field})
  string(STRIP "${value}" value)
  if(NOT value MATCHES "${pattern}")
    fail("the field ${field} is '${value}', which does not match '${pattern}'")
  endif()
endforeach()

# Every file of the package: the command, the program with its data, and
# the desktop's and Debian's files, each with its mode; nothing else.
set(program "-rwxr-xr-x")
set(plain "-rw-r--r--")
set(expected
  "lrwxrwxrwx ./usr/games/trickhaven -> ../lib/trickhaven/trickhaven"
  "${program} ./usr/lib/trickhaven/trickhaven"
  "${plain} ./usr/lib/trickhaven/Data.dat"
  "${plain} ./usr/lib/trickhaven/carddeal1.wav"
  "${plain} ./usr/lib/trickhaven/knock.wav"
  "${plain} ./usr/lib/trickhaven/riffle.wav"
  "${plain} ./usr/lib/trickhaven/ringout.wav"
  "${plain} ./usr/share/applications/${app_id}.desktop"
  "${plain} ./usr/share/doc/trickhaven/changelog.gz"
  "${plain} ./usr/share/doc/trickhaven/copyright"
  "${plain} ./usr/share/icons/hicolor/128x128/apps/${app_id}.png"
  "${plain} ./usr/share/icons/hicolor/256x256/apps/${app_id}.png"
  "${plain} ./usr/share/icons/hicolor/48x48/apps/${app_id}.png"
  "${plain} ./usr/share/icons/hicolor/scalable/apps/${app_id}.svg"
  "${plain} ./usr/share/man/man6/trickhaven.6.gz"
  "${plain} ./usr/share/metainfo/${app_id}.metainfo.xml")
list(SORT expected)
run(listing dpkg-deb --contents ${DEB})
string(REGEX REPLACE "\n$" "" listing "${listing}")
string(REPLACE "\n" ";" lines "${listing}")
set(files)
foreach(line IN LISTS lines)
  # mode owner/group size date time path[ -> target]
  if(NOT line MATCHES "^([-dlrwxst]+) ([^ ]+) +[0-9]+ [-0-9]+ [:0-9]+ (.*)$")
    fail("unreadable line in the file list: ${line}")
    continue()
  endif()
  set(mode ${CMAKE_MATCH_1})
  set(owner ${CMAKE_MATCH_2})
  set(path "${CMAKE_MATCH_3}")
  if(NOT owner STREQUAL "root/root")
    fail("${path} belongs to ${owner}")
  endif()
  if(mode MATCHES "^d")
    if(NOT mode STREQUAL "drwxr-xr-x")
      fail("the folder ${path} has the mode ${mode}")
    endif()
  else()
    list(APPEND files "${mode} ${path}")
  endif()
endforeach()
list(SORT files)
if(NOT files STREQUAL expected)
  list(JOIN files "\n    " got)
  list(JOIN expected "\n    " want)
  fail("the package holds\n    ${got}\n  and not\n    ${want}")
endif()

# The files themselves, unpacked where no package manager looks.
set(root ${WORK}/root)
file(REMOVE_RECURSE ${root})
file(MAKE_DIRECTORY ${root})
run(ignored dpkg-deb --extract ${DEB} ${root})
file(READ ${SOURCE}/assets/Data.dat shipped)
if(EXISTS ${root}/usr/lib/trickhaven/Data.dat)
  file(READ ${root}/usr/lib/trickhaven/Data.dat packed)
  if(NOT packed STREQUAL shipped)
    fail("the packed Data.dat is not the default one")
  endif()
endif()
foreach(compressed usr/share/man/man6/trickhaven.6.gz usr/share/doc/trickhaven/changelog.gz)
  execute_process(COMMAND gzip --test ${root}/${compressed} RESULT_VARIABLE result)
  if(NOT result EQUAL 0)
    fail("${compressed} is not a gzip file")
  endif()
endforeach()
if(EXISTS ${root}/usr/share/doc/trickhaven/changelog.gz)
  run(changes gzip --decompress --stdout ${root}/usr/share/doc/trickhaven/changelog.gz)
  string(REPLACE "." "\\." version "${VERSION}")
  if(NOT changes MATCHES "^trickhaven \\(${version}\\) ")
    fail("the changelog's latest entry is not for ${VERSION}")
  endif()
endif()
check_version_answer(${root}/usr/games/trickhaven ${VERSION})
if(complaint)
  fail("the unpacked command: ${complaint}")
endif()

if(failures)
  list(JOIN failures "\n  " text)
  message(FATAL_ERROR "The package is not as apt should meet it:\n  ${text}")
endif()
message(STATUS "The package holds what it should")

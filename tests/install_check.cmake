# Installs the build into a fresh folder and checks that the game lands
# where a desktop looks for it: the program in a folder of its own with its
# Data.dat and sounds and nothing else, a relative link to it among the
# commands, the menu entry, the icons, the description and the manual.
#
#   cmake -DBUILD=<build folder> -DSOURCE=<source folder> -DPREFIX=<folder>
#         -DBINDIR=bin -DLIBDIR=lib -DDATADIR=share -P install_check.cmake

cmake_minimum_required(VERSION 3.25)
set(app_id org.trickhaven.Trickhaven)
set(failures)
macro(fail text)
  list(APPEND failures "${text}")
endmacro()

file(REMOVE_RECURSE ${PREFIX})
execute_process(
  COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
  RESULT_VARIABLE result
  OUTPUT_VARIABLE output
  ERROR_VARIABLE output)
if(NOT result EQUAL 0)
  message(FATAL_ERROR "cmake --install failed:\n${output}")
endif()

# The program's folder holds exactly the program and what it reads.
set(program_folder ${PREFIX}/${LIBDIR}/trickhaven)
file(GLOB installed RELATIVE ${program_folder} ${program_folder}/*)
list(SORT installed)
set(expected Data.dat carddeal1.wav knock.wav riffle.wav ringout.wav trickhaven)
if(NOT installed STREQUAL expected)
  fail("${program_folder} holds '${installed}', not '${expected}'")
endif()
execute_process(COMMAND test -x ${program_folder}/trickhaven RESULT_VARIABLE runnable)
if(NOT runnable EQUAL 0)
  fail("${program_folder}/trickhaven is not executable")
endif()
file(READ ${SOURCE}/assets/Data.dat shipped)
if(EXISTS ${program_folder}/Data.dat)
  file(READ ${program_folder}/Data.dat installed_data)
  if(NOT installed_data STREQUAL shipped)
    fail("the installed Data.dat is not the default one")
  endif()
endif()

# The command is a relative link to the program.
set(command ${PREFIX}/${BINDIR}/trickhaven)
if(NOT IS_SYMLINK ${command})
  fail("${command} is not a link")
else()
  file(READ_SYMLINK ${command} target)
  if(IS_ABSOLUTE "${target}")
    fail("${command} points at the absolute path ${target}")
  endif()
  file(REAL_PATH ${command} resolved)
  file(REAL_PATH ${program_folder}/trickhaven program)
  if(NOT resolved STREQUAL program)
    fail("${command} leads to ${resolved}, not to ${program}")
  endif()
endif()

# The desktop's files and the manual, each where its kind belongs.
set(share ${PREFIX}/${DATADIR})
foreach(file
    applications/${app_id}.desktop
    metainfo/${app_id}.metainfo.xml
    icons/hicolor/scalable/apps/${app_id}.svg
    man/man6/trickhaven.6.gz
    doc/trickhaven/copyright
    doc/trickhaven/changelog.gz)
  if(NOT EXISTS ${share}/${file})
    fail("${share}/${file} is missing")
  endif()
endforeach()

# Each PNG icon is as wide and as high as the folder it lies in says.
foreach(size 48 128 256)
  set(png ${share}/icons/hicolor/${size}x${size}/apps/${app_id}.png)
  if(NOT EXISTS ${png})
    fail("${png} is missing")
    continue()
  endif()
  file(READ ${png} signature HEX LIMIT 8)
  file(READ ${png} header HEX OFFSET 16 LIMIT 8)
  string(SUBSTRING "${header}" 0 8 width)
  string(SUBSTRING "${header}" 8 8 height)
  math(EXPR width "0x${width}")
  math(EXPR height "0x${height}")
  if(NOT signature STREQUAL "89504e470d0a1a0a" OR NOT width EQUAL size OR NOT height EQUAL size)
    fail("${png} is not a ${size} by ${size} PNG picture")
  endif()
endforeach()

# The menu entry starts the installed command and shows the installed icon.
if(EXISTS ${share}/applications/${app_id}.desktop)
  file(STRINGS ${share}/applications/${app_id}.desktop entry)
  if(NOT "Exec=trickhaven" IN_LIST entry OR NOT "Icon=${app_id}" IN_LIST entry)
    fail("the menu entry does not start 'trickhaven' with the icon ${app_id}")
  endif()
endif()

if(failures)
  list(JOIN failures "\n  " text)
  message(FATAL_ERROR "The installation is not as a desktop expects:\n  ${text}")
endif()
message(STATUS "Installed as expected into ${PREFIX}")

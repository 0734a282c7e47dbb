# Runs the program with the command lines a terminal user tries and checks
# each answer: what it prints, where, and its exit code. It runs with no
# display at all, so an answer that opened a window would fail here.
#
#   cmake -DPROGRAM=<trickhaven> -DVERSION=<x.y.z> -P command_line_check.cmake

cmake_minimum_required(VERSION 3.25)
string(REPLACE "." "\\." version "${VERSION}")
set(usage "^Usage: trickhaven \\[options\\]\n.*-h, --help.*-v, --version")
set(no_output "^$")

# arguments (split on ~) | exit code | standard output | standard error
set(cases
  "--version|0|^Trickhaven ${version}\n$|${no_output}"
  "-v|0|^Trickhaven ${version}\n$|${no_output}"
  "--help|0|${usage}|${no_output}"
  "-h|0|${usage}|${no_output}"
  "-style~fusion~--version|0|^Trickhaven ${version}\n$|${no_output}"
  "--bogus|2|${no_output}|^trickhaven: Unknown option 'bogus'\\.\nTry 'trickhaven --help'"
  "--version~--bogus|2|${no_output}|Unknown option 'bogus'"
  "deal|2|${no_output}|^trickhaven: Unexpected argument 'deal'\\."
  "-platform|2|${no_output}|Missing value after '-platform'"
)

set(failures)
foreach(case IN LISTS cases)
  string(REPLACE "|" ";" fields "${case}")
  list(GET fields 0 arguments)
  list(GET fields 1 expected_code)
  list(GET fields 2 expected_out)
  list(GET fields 3 expected_err)
  string(REPLACE "~" ";" arguments "${arguments}")
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env --unset=DISPLAY --unset=WAYLAND_DISPLAY
            --unset=QT_QPA_PLATFORM ${PROGRAM} ${arguments}
    RESULT_VARIABLE code
    OUTPUT_VARIABLE out
    ERROR_VARIABLE err
    TIMEOUT 20)
  string(REPLACE ";" " " shown "${arguments}")
  if(NOT code STREQUAL expected_code)
    list(APPEND failures "'${shown}' exits with ${code}, not ${expected_code} (stderr: ${err})")
  endif()
  if(NOT out MATCHES "${expected_out}")
    list(APPEND failures "'${shown}' prints on standard output:\n${out}")
  endif()
  if(NOT err MATCHES "${expected_err}")
    list(APPEND failures "'${shown}' prints on standard error:\n${err}")
  endif()
endforeach()

if(failures)
  list(JOIN failures "\n  " text)
  message(FATAL_ERROR "The command line is not answered as expected:\n  ${text}")
endif()
message(STATUS "Every command line answered as expected")

# What a player at a terminal sees of the toolkit: nothing of its warnings
# unless QT_LOGGING_RULES asks for them, and always a real fault.
#
#   cmake -DPROBE=<quiet_toolkit_probe> -P quiet_check.cmake

cmake_minimum_required(VERSION 3.25)

# QT_LOGGING_RULES | must be shown | must be hidden
set(cases
  "|a real fault|No audio device detected,no sound server"
  "*.warning=true|a real fault,No audio device detected,no sound server|"
  "qt.multimedia.*=true|a real fault,no sound server|No audio device detected"
  "*=false||a real fault,No audio device detected,no sound server")

set(failures)
foreach(case IN LISTS cases)
  string(REPLACE "|" ";" fields "${case}")
  list(GET fields 0 rules)
  list(GET fields 1 shown)
  list(GET fields 2 hidden)
  string(REPLACE "," ";" shown "${shown}")
  string(REPLACE "," ";" hidden "${hidden}")
  if(rules STREQUAL "")
    set(environment --unset=QT_LOGGING_RULES)
  else()
    set(environment QT_LOGGING_RULES=${rules})
  endif()
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env --unset=QT_LOGGING_CONF ${environment} ${PROBE}
    RESULT_VARIABLE result
    OUTPUT_VARIABLE out
    ERROR_VARIABLE err
    TIMEOUT 20)
  if(NOT result EQUAL 0)
    list(APPEND failures "the probe failed (${result}) with QT_LOGGING_RULES '${rules}'")
  endif()
  foreach(text IN LISTS shown)
    string(FIND "${err}" "${text}" at)
    if(at EQUAL -1)
      list(APPEND failures "with QT_LOGGING_RULES '${rules}', '${text}' is not shown")
    endif()
  endforeach()
  foreach(text IN LISTS hidden)
    string(FIND "${err}" "${text}" at)
    if(NOT at EQUAL -1)
      list(APPEND failures "with QT_LOGGING_RULES '${rules}', '${text}' is shown")
    endif()
  endforeach()
endforeach()

if(failures)
  list(JOIN failures "\n  " text)
  message(FATAL_ERROR "The toolkit's messages are not kept as a player expects:\n  ${text}")
endif()
message(STATUS "Warnings hidden unless asked for; faults shown")

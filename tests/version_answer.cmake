# The command's answer to --version without a display, as a player meets it
# at a terminal: sets `complaint` in the caller to what was wrong, or empty.
function(check_version_answer command version)
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env --unset=DISPLAY --unset=WAYLAND_DISPLAY ${command} --version
    RESULT_VARIABLE result
    OUTPUT_VARIABLE answer
    ERROR_VARIABLE err
    TIMEOUT 20)
  set(complaint "" PARENT_SCOPE)
  if(NOT result EQUAL 0 OR NOT answer STREQUAL "Trickhaven ${version}\n")
    set(complaint "${command} answers --version with ${result}: ${answer}${err}" PARENT_SCOPE)
  endif()
endfunction()

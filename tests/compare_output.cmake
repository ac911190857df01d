# Runs COMMAND; fails unless it prints what FILE holds.
execute_process(COMMAND ${COMMAND} RESULT_VARIABLE status OUTPUT_VARIABLE output)
file(READ ${FILE} expected)
string(REPLACE "\r" "" output "${output}")
if(NOT status EQUAL 0 OR NOT output STREQUAL expected)
  message(FATAL_ERROR "${FILE} is not what ${COMMAND} prints")
endif()

# Runs COMMAND; fails unless its exit status is STATUS and its output matches EXPECT, in which
# SHA256(FILE) stands for the checksum of a file.
if(EXPECT MATCHES "SHA256\\(([^)]*)\\)")
  file(SHA256 ${CMAKE_MATCH_1} sum)
  string(REPLACE "${CMAKE_MATCH_0}" "${sum}" EXPECT "${EXPECT}")
endif()
execute_process(COMMAND ${COMMAND} RESULT_VARIABLE status OUTPUT_VARIABLE output
                ERROR_VARIABLE output)
message("${output}")
if(NOT status STREQUAL STATUS)
  message(FATAL_ERROR "status ${status}, expected ${STATUS}")
endif()
if(NOT output MATCHES "${EXPECT}")
  message(FATAL_ERROR "the output does not match ${EXPECT}")
endif()

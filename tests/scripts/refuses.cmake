# cmake -DMESSAGE=<regular expression> -P refuses.cmake -- <script> <argument...>: fails unless the
# script ends with an error and its message matches.

cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/BriselArguments.cmake)

execute_process(COMMAND ${ARGUMENTS}
  RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE error)
message("${output}${error}")
if(status STREQUAL "0")
  message(FATAL_ERROR "It ended without an error")
endif()
if(NOT error MATCHES "${MESSAGE}")
  message(FATAL_ERROR "Its message does not match ${MESSAGE}")
endif()

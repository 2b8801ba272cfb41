# Has UPDATE make the desktop's database of file types from a copy of SHARE's, in WORK.

cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${WORK})
file(COPY ${SHARE}/mime DESTINATION ${WORK})
execute_process(COMMAND ${UPDATE} -V ${WORK}/mime
  RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE said)
if(NOT result EQUAL 0 OR said MATCHES "[Ee]rror|[Ww]arning|[Uu]nknown")
  message(FATAL_ERROR "${said}")
endif()
foreach(type IN ITEMS zb3 zb4 zb5)
  file(STRINGS ${WORK}/mime/globs2 glob REGEX "application/x-brisel-${type}:\\*[.]${type}$")
  if(NOT glob)
    message(SEND_ERROR "*.${type} is not in the database")
  endif()
endforeach()

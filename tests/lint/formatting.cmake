# cmake -DTREE=<folder> -DCLANG_FORMAT=<program> -P formatting.cmake: fails if a source of the tree is
# not formatted by the rules of .clang-format.

cmake_minimum_required(VERSION 3.25)

file(GLOB_RECURSE sources RELATIVE ${TREE} ${TREE}/*.cpp ${TREE}/*.h)
list(FILTER sources EXCLUDE REGEX "^build")
if(NOT sources)
  message(FATAL_ERROR "${TREE} has no sources")
endif()
execute_process(COMMAND ${CLANG_FORMAT} --dry-run --Werror ${sources}
  WORKING_DIRECTORY ${TREE} RESULT_VARIABLE result)
if(NOT result STREQUAL "0")
  message(FATAL_ERROR "Some sources are not formatted: clang-format-14 -i <source>")
endif()

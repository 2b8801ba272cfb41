# cmake -DFOLDERS=<a,b> -P scratch.cmake: makes the folders anew. With -DEMPTY=ON it removes them
# instead, or fails and leaves them to be looked at when they hold anything.

cmake_minimum_required(VERSION 3.25)

string(REPLACE "," ";" FOLDERS "${FOLDERS}")
if(NOT EMPTY)
  file(REMOVE_RECURSE ${FOLDERS})
  file(MAKE_DIRECTORY ${FOLDERS})
  return()
endif()

set(left)
foreach(folder IN LISTS FOLDERS)
  file(GLOB entries LIST_DIRECTORIES true ${folder}/* ${folder}/.*)
  list(FILTER entries EXCLUDE REGEX "/[.][.]?$")
  list(APPEND left ${entries})
endforeach()
if(left)
  list(JOIN left "\n" left)
  message(FATAL_ERROR "Tests left these behind:\n${left}")
endif()
file(REMOVE_RECURSE ${FOLDERS})

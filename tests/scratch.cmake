# cmake -DFOLDERS=<a,b> [-DEMPTY=ON] -P scratch.cmake: makes the folders anew; with EMPTY fails when
# one of them holds anything, and removes them.

cmake_minimum_required(VERSION 3.25)

string(REPLACE "," ";" FOLDERS "${FOLDERS}")
set(left)
foreach(folder IN LISTS FOLDERS)
  file(GLOB entries LIST_DIRECTORIES true RELATIVE ${folder} ${folder}/* ${folder}/.*)
  list(FILTER entries EXCLUDE REGEX "^[.][.]?$")
  foreach(entry IN LISTS entries)
    list(APPEND left ${folder}/${entry})
  endforeach()
  file(REMOVE_RECURSE ${folder})
  if(NOT EMPTY)
    file(MAKE_DIRECTORY ${folder})
  endif()
endforeach()
if(EMPTY AND left)
  list(JOIN left "\n" left)
  message(FATAL_ERROR "Tests left these behind:\n${left}")
endif()

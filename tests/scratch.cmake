# cmake -P scratch.cmake -- <folder...>: makes the folders again, empty. With -DEMPTY=ON it
# removes them instead, or fails and keeps them for inspection if they are not empty.

cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/../cmake/BriselArguments.cmake)

if(NOT EMPTY)
  file(REMOVE_RECURSE ${ARGUMENTS})
  file(MAKE_DIRECTORY ${ARGUMENTS})
  # Some tests drop root's rights and must still reach their files.
  file(CHMOD ${ARGUMENTS} DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  return()
endif()

set(left)
foreach(folder IN LISTS ARGUMENTS)
  file(GLOB entries LIST_DIRECTORIES true ${folder}/* ${folder}/.*)
  list(FILTER entries EXCLUDE REGEX "/[.][.]?$")
  list(APPEND left ${entries})
endforeach()
if(left)
  list(JOIN left "\n" left)
  message(FATAL_ERROR "Tests left these behind:\n${left}")
endif()
file(REMOVE_RECURSE ${ARGUMENTS})

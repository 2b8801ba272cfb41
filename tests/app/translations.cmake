# cmake -DLUPDATE=<program> -DTREE=<root> -DWORK=<folder> -P translations.cmake
#
# Brings copies of the .ts files up to date with the sources and fails when a text of either
# language is missing, unfinished, empty or no longer used.

cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})
foreach(language IN ITEMS it en)
  set(name brisel2pc_${language}.ts)
  file(READ ${TREE}/resources/translations/${name} landed)
  file(COPY ${TREE}/resources/translations/${name} DESTINATION ${WORK})
  execute_process(
    COMMAND ${LUPDATE} -silent -locations none -I . app base db history index library memory player songfile forms
      -ts ${WORK}/${name}
    WORKING_DIRECTORY ${TREE} RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE said)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "lupdate failed: ${said}")
  endif()
  file(READ ${WORK}/${name} updated)
  # Semicolons would cut a CMake list.
  string(REPLACE ";" " " updated "${updated}")
  string(REGEX MATCHALL "<message>" messages "${updated}")
  list(LENGTH messages count)
  if(count LESS 50)
    message(SEND_ERROR "${name}: only ${count} texts were found")
  endif()
  string(REGEX MATCHALL "<source>[^<]*</source>\n *<translation( type=\"[a-z]+\"|></)[^\n]*"
    wanting "${updated}")
  foreach(text IN LISTS wanting)
    message(SEND_ERROR "${name}: ${text}")
  endforeach()
  string(REGEX MATCHALL "<translation/>|<translation></translation>" empty "${updated}")
  if(empty)
    message(SEND_ERROR "${name}: empty texts")
  endif()
endforeach()

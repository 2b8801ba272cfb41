# cmake -DTREE=<folder> -P layers.cmake: fails if a source of the tree includes a higher layer.

cmake_minimum_required(VERSION 3.25)

# The folders that the sources of each folder may include besides their own.
set(below_base)
set(below_id3 base)
set(below_songfile base id3)
set(below_db base songfile)
set(below_index base id3 library/dialogs/nocopyrightdialog.h)
set(below_library base songfile db index)
set(below_library/dialogs base songfile db index library)
set(below_index/dialogs base index library/dialogs)
set(below_app base songfile db index library library/dialogs index/dialogs)
set(everything base id3 songfile db index library library/dialogs index/dialogs app tests tools)
foreach(folder IN ITEMS tests tools bench fuzz)
  set(below_${folder} ${everything})
endforeach()
set(longest_file 500) # lines
set_property(GLOBAL PROPERTY breaches 0)

function(breach text)
  get_property(breaches GLOBAL PROPERTY breaches)
  math(EXPR breaches "${breaches} + 1")
  set_property(GLOBAL PROPERTY breaches ${breaches})
  message("${file}: ${text}")
endfunction()

# The folder of the product that a path of its tree belongs to.
function(find_layer path result)
  string(REGEX MATCH "^(index/dialogs|library/dialogs|[^/]+)/" layer "${path}")
  set(${result} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

function(check_quoted_include path)
  get_filename_component(target_folder "${path}" DIRECTORY)
  if(path MATCHES "^(ui_.*\\.h|.*\\.moc)$")
    # Generated in the build folder.
  elseif(path MATCHES "\\.\\./" OR target_folder STREQUAL "")
    breach("includes \"${path}\": include from the root of the tree")
  else()
    find_layer("${path}" target_folder)
    if(NOT target_folder STREQUAL folder AND NOT target_folder IN_LIST below_${folder}
       AND NOT path IN_LIST below_${folder})
      breach("includes \"${path}\", which ${folder}/ may not see")
    endif()
  endif()
endfunction()

function(check_file)
  find_layer("${file}" folder)
  file(STRINGS "${TREE}/${file}" includes REGEX "^[ \t]*#[ \t]*include")
  foreach(line IN LISTS includes)
    if(line MATCHES "#[ \t]*include[ \t]*\"([^\"]*)\"")
      check_quoted_include("${CMAKE_MATCH_1}")
    elseif(line MATCHES "<Qt[A-Z][A-Za-z0-9]*/")
      # Qt's folders are siblings: such a path finds modules that are not linked.
      breach("${line}: include the class alone")
    endif()
  endforeach()

  file(STRINGS "${TREE}/${file}" guard REGEX "^#pragma once$" LIMIT_COUNT 1)
  if(file MATCHES "\\.h$" AND guard STREQUAL "")
    breach("has no #pragma once")
  endif()

  file(READ "${TREE}/${file}" text)
  string(REGEX MATCHALL "\n" line_ends "${text}")
  list(LENGTH line_ends lines)
  if(lines GREATER longest_file)
    breach("has ${lines} lines: ${longest_file} are the most")
  endif()
endfunction()

foreach(top_folder IN ITEMS base id3 songfile db index library app tests tools bench fuzz)
  file(GLOB_RECURSE files RELATIVE "${TREE}" "${TREE}/${top_folder}/*.cpp" "${TREE}/${top_folder}/*.h")
  list(FILTER files EXCLUDE REGEX "^tests/tree/breaches/")
  foreach(file IN LISTS files)
    check_file()
  endforeach()
endforeach()

get_property(breaches GLOBAL PROPERTY breaches)
if(breaches)
  message(FATAL_ERROR "${breaches} breach(es)")
endif()

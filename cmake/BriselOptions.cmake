# What every target of the project is built with.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOUIC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_AUTOUIC_SEARCH_PATHS ${PROJECT_SOURCE_DIR}/forms)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

option(BRISEL_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(BRISEL_FUZZ "Build the fuzz targets with the fuzzer; needs clang" OFF)
option(BRISEL_TIDY "Run clang-tidy on every source that is compiled" OFF)
option(BRISEL_BENCH "Build the programs that measure, see bench/run" OFF)
set(BRISEL_CATALOGUE "" CACHE FILEPATH "A full SQLite catalogue to embed instead of the sample")

add_library(brisel_options INTERFACE)
target_include_directories(brisel_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(brisel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Werror
  -fstack-protector-strong)
target_compile_definitions(brisel_options INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_FOREACH)
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT BRISEL_SANITIZE AND NOT BRISEL_FUZZ)
  target_compile_options(brisel_options INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()
if(UNIX AND NOT APPLE)
  target_link_options(brisel_options INTERFACE -Wl,-z,relro,-z,now)
endif()
if(BRISEL_SANITIZE)
  target_compile_options(brisel_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(brisel_options INTERFACE -fsanitize=address,undefined)
endif()

if(BRISEL_FUZZ)
  target_compile_options(brisel_options INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(brisel_options INTERFACE -fsanitize=address,undefined)
endif()

if(BRISEL_TIDY)
  find_program(BRISEL_CLANG_TIDY NAMES clang-tidy-14 clang-tidy REQUIRED)
  # Generated sources lie below the build folder: one check that never fires keeps them out.
  file(WRITE ${PROJECT_BINARY_DIR}/.clang-tidy "Checks: '-*,misc-definitions-in-headers'\n")
endif()

# A static library of the product: the common options, and clang-tidy where asked for.
function(brisel_library name)
  add_library(${name} STATIC ${ARGN})
  target_link_libraries(${name} PUBLIC brisel_options)
  # Ninja learns of a form's new header one build too late: each source names the form of its class.
  foreach(source IN LISTS ARGN)
    string(REGEX REPLACE "(_[a-z]+)?[.]cpp$" ".ui" form ${PROJECT_SOURCE_DIR}/forms/${source})
    if(form MATCHES "[.]ui$" AND EXISTS ${form})
      set_property(SOURCE ${source} APPEND PROPERTY OBJECT_DEPENDS ${form})
    endif()
  endforeach()
  brisel_lint(${name})
endfunction()

# Has clang-tidy look at a target's sources while they are compiled.
function(brisel_lint name)
  if(BRISEL_TIDY)
    set_target_properties(${name} PROPERTIES CXX_CLANG_TIDY "${BRISEL_CLANG_TIDY};--quiet")
  endif()
endfunction()

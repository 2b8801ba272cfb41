# Options of all targets of the project. CMakePresets.json has the builds in use.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

option(BRISEL_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
option(BRISEL_FUZZ "Build the fuzz targets with the fuzzer; needs clang" OFF)
option(BRISEL_LINT "Run clang-tidy on every source of the product; add the tests of formatting, scripts and documents" OFF)
option(BRISEL_BENCH "Build the benchmarks, see bench/run" OFF)
option(BRISEL_UNITY_TESTS "Build the tests, and no other target, as unity builds" OFF)
option(BRISEL_ALL_TOOLS "Fail if a program that tests use for comparison is missing" OFF)
option(BRISEL_FLUIDSYNTH "Play MIDI songs, if FluidSynth is found" ON)
option(BRISEL_MULTIMEDIA "Play MP3s, if Qt Multimedia is found" ON)
set(BRISEL_CATALOGUE "" CACHE FILEPATH "A full SQLite catalogue to embed instead of the sample")

find_program(BRISEL_CCACHE ccache)
if(BRISEL_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${BRISEL_CCACHE})
endif()

add_library(brisel_options INTERFACE)
target_include_directories(brisel_options INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(brisel_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
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

if(BRISEL_LINT)
  find_program(BRISEL_CLANG_TIDY NAMES clang-tidy-14 clang-tidy REQUIRED)
  # Generated sources are below the build folder: a check that never matches excludes them.
  file(WRITE ${PROJECT_BINARY_DIR}/.clang-tidy "Checks: '-*,misc-definitions-in-headers'\n")
  add_custom_target(lint)
endif()

# brisel_library(<name> <source...> [FORMS <form...>]): a static library of the product, with the
# common options, the headers of its designer forms (forms/<form>.ui) and clang-tidy if requested.
function(brisel_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" FORMS)
  add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
  target_link_libraries(${name} PUBLIC brisel_options)
  if(arg_FORMS)
    list(TRANSFORM arg_FORMS REPLACE "(.+)" "${PROJECT_SOURCE_DIR}/forms/\\1.ui")
    qt_wrap_ui(headers ${arg_FORMS})
    target_sources(${name} PRIVATE ${headers})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_BINARY_DIR})
  endif()
  brisel_lint(${name})
endfunction()

# Runs clang-tidy on a target's sources while they are compiled.
function(brisel_lint name)
  if(BRISEL_LINT)
    add_dependencies(lint ${name})
    set_target_properties(${name} PROPERTIES CXX_CLANG_TIDY "${BRISEL_CLANG_TIDY};--quiet")
  endif()
endfunction()

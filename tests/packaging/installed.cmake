# Installs BUILD for the prefix /usr below the folder ROOT and checks every file there. READELF and
# the script HARDENING, if given, check the program.

cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${ROOT})
set(ENV{DESTDIR} ${ROOT})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix /usr
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

set(sizes 16 22 24 32 48 64 128 256 512)
set(expected
  bin/brisel2pc
  share/applications/brisel2pc.desktop
  share/doc/brisel2pc/changelog.gz
  share/doc/brisel2pc/copyright
  share/icons/hicolor/scalable/apps/brisel2pc.svg
  share/man/it/man1/brisel2pc.1.gz
  share/man/man1/brisel2pc.1.gz
  share/metainfo/example.kordia.brisel2pc.metainfo.xml
  share/mime/packages/brisel2pc.xml)
foreach(size IN LISTS sizes)
  list(APPEND expected share/icons/hicolor/${size}x${size}/apps/brisel2pc.png)
endforeach()

file(GLOB_RECURSE installed LIST_DIRECTORIES false RELATIVE ${ROOT}/usr ${ROOT}/*)
foreach(file IN LISTS expected)
  if(NOT file IN_LIST installed)
    message(SEND_ERROR "${file} is not installed")
  endif()
endforeach()
foreach(file IN LISTS installed)
  if(NOT file IN_LIST expected)
    message(SEND_ERROR "${file} is installed, but not expected")
  endif()
endforeach()

# expect_in(<file> <regular expression>)
function(expect_in file pattern)
  file(READ ${ROOT}/usr/${file} text)
  if(NOT text MATCHES "${pattern}")
    message(SEND_ERROR "${file} lacks \"${pattern}\"")
  endif()
endfunction()

expect_in(share/applications/brisel2pc.desktop "\nExec=brisel2pc %F\n")
expect_in(share/applications/brisel2pc.desktop "\nIcon=brisel2pc\n")
expect_in(share/applications/brisel2pc.desktop "\nComment\\[it\\]=.*\nComment\\[de\\]=")
expect_in(share/metainfo/example.kordia.brisel2pc.metainfo.xml
  "<launchable type=\"desktop-id\">brisel2pc.desktop</launchable>")
expect_in(share/metainfo/example.kordia.brisel2pc.metainfo.xml
  "<releases>\n    <release version=\"${VERSION}\" date=")
expect_in(share/icons/hicolor/scalable/apps/brisel2pc.svg "<svg ")
expect_in(share/doc/brisel2pc/copyright "^Format: ")

# A PNG has its width and height directly after its first chunk's name.
foreach(size IN LISTS sizes)
  file(READ ${ROOT}/usr/share/icons/hicolor/${size}x${size}/apps/brisel2pc.png head LIMIT 24 HEX)
  math(EXPR hex "${size}" OUTPUT_FORMAT HEXADECIMAL)
  string(REGEX REPLACE "^0x" "0000000" hex "${hex}")
  string(REGEX MATCH "........$" hex "${hex}")
  if(NOT head MATCHES "^89504e470d0a1a0a........49484452${hex}${hex}$")
    message(SEND_ERROR "The icon of ${size} dots has another size: ${head}")
  endif()
endforeach()

# expect_packed(<file> <regular expression>): the same for a compressed file.
function(expect_packed file pattern)
  execute_process(COMMAND gzip -dc ${ROOT}/usr/${file}
    OUTPUT_VARIABLE text COMMAND_ERROR_IS_FATAL ANY)
  if(NOT text MATCHES "${pattern}")
    message(SEND_ERROR "${file} lacks \"${pattern}\"")
  endif()
endfunction()

expect_packed(share/doc/brisel2pc/changelog.gz "^brisel2pc \\(${VERSION}\\) ")
expect_packed(share/man/man1/brisel2pc.1.gz "^\\.TH BRISEL2PC 1 .*Brisel2 PC ${VERSION}")
expect_packed(share/man/it/man1/brisel2pc.1.gz "^\\.TH BRISEL2PC 1 .*Brisel2 PC ${VERSION}")

# All users can run programs and read everything else.
execute_process(COMMAND find ${ROOT}/usr -type f -perm -o=x -printf "%P "
  OUTPUT_VARIABLE programs COMMAND_ERROR_IS_FATAL ANY)
if(NOT programs STREQUAL "bin/brisel2pc ")
  message(SEND_ERROR "Not the program alone can be started: ${programs}")
endif()
execute_process(COMMAND find ${ROOT}/usr -type f ! -perm -444 -printf "%P "
  OUTPUT_VARIABLE hidden COMMAND_ERROR_IS_FATAL ANY)
if(hidden)
  message(SEND_ERROR "Not everybody may read ${hidden}")
endif()

if(READELF)
  execute_process(COMMAND ${READELF} --dynamic --wide ${ROOT}/usr/bin/brisel2pc
    OUTPUT_VARIABLE dynamic COMMAND_ERROR_IS_FATAL ANY)
  if(dynamic MATCHES "RPATH|RUNPATH")
    message(SEND_ERROR "The installed program looks for libraries in the build folder")
  endif()
endif()
if(HARDENING)
  execute_process(COMMAND ${CMAKE_COMMAND} -DREADELF=${READELF}
    -DPROGRAM=${ROOT}/usr/bin/brisel2pc -P ${HARDENING} COMMAND_ERROR_IS_FATAL ANY)
endif()

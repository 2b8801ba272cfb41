# The program's files for desktops on Linux and similar systems.

set(metainfo ${CMAKE_CURRENT_BINARY_DIR}/example.kordia.brisel2pc.metainfo.xml)
configure_file(example.kordia.brisel2pc.metainfo.xml.in ${metainfo} @ONLY)

# Manual pages and the list of changes are installed compressed.
find_program(BRISEL_GZIP gzip REQUIRED)
set(compressed)

# compress(<source> <name>): makes <name>, a compressed copy, in the build folder.
function(compress source name)
  set(target ${CMAKE_CURRENT_BINARY_DIR}/${name})
  cmake_path(GET target PARENT_PATH folder)
  file(MAKE_DIRECTORY ${folder})
  add_custom_command(OUTPUT ${target}
    COMMAND ${BRISEL_GZIP} -9nc ${source} > ${target}
    DEPENDS ${source}
    COMMENT "Compressing ${name}"
    VERBATIM)
  set(compressed ${compressed} ${target} PARENT_SCOPE)
endfunction()

file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/changelog
  CONTENT "@BRISEL_DEBIAN_CHANGELOG@" @ONLY)
compress(${CMAKE_CURRENT_BINARY_DIR}/changelog changelog.gz)
foreach(page IN ITEMS brisel2pc.1 brisel2pc.it.1)
  configure_file(${page}.in ${page} @ONLY)
endforeach()
compress(${CMAKE_CURRENT_BINARY_DIR}/brisel2pc.1 man1/brisel2pc.1.gz)
compress(${CMAKE_CURRENT_BINARY_DIR}/brisel2pc.it.1 it/man1/brisel2pc.1.gz)

add_custom_target(package_files ALL DEPENDS ${icons} ${compressed})

install(TARGETS brisel2pc)
foreach(size IN LISTS BRISEL_ICON_SIZES)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/icons/${size}x${size}/brisel2pc.png
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()
install(FILES ${BRISEL_ICON} DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES brisel2pc.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES brisel2pc.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${metainfo} DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/man1/brisel2pc.1.gz
  DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/it/man1/brisel2pc.1.gz
  DESTINATION ${CMAKE_INSTALL_MANDIR}/it/man1)
install(FILES copyright ${CMAKE_CURRENT_BINARY_DIR}/changelog.gz
  DESTINATION ${CMAKE_INSTALL_DOCDIR})

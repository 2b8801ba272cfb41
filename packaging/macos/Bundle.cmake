# The application bundle and its disk image. Not yet tried on macOS.

set(property_list ${CMAKE_CURRENT_SOURCE_DIR}/macos/Info.plist.in)
set_target_properties(brisel2pc PROPERTIES
  MACOSX_BUNDLE ON
  OUTPUT_NAME "Brisel2 PC"
  MACOSX_BUNDLE_INFO_PLIST ${property_list}
  MACOSX_BUNDLE_BUNDLE_NAME "Brisel2 PC"
  MACOSX_BUNDLE_GUI_IDENTIFIER example.kordia.brisel2pc
  MACOSX_BUNDLE_BUNDLE_VERSION ${PROJECT_VERSION}
  MACOSX_BUNDLE_SHORT_VERSION_STRING ${PROJECT_VERSION})

# An icon set needs each size also drawn double, under another name.
find_program(BRISEL_ICONUTIL iconutil)
if(BRISEL_ICONUTIL)
  set(iconset ${CMAKE_CURRENT_BINARY_DIR}/brisel2pc.iconset)
  set(bundle_icon ${CMAKE_CURRENT_BINARY_DIR}/brisel2pc.icns)
  set(drawing COMMAND ${CMAKE_COMMAND} -E make_directory ${iconset})
  foreach(size IN ITEMS 16 32 128 256 512)
    math(EXPR double "2 * ${size}")
    list(APPEND drawing
      COMMAND rendersvg ${BRISEL_ICON} ${iconset}/icon_${size}x${size}.png ${size}px
      COMMAND rendersvg ${BRISEL_ICON} ${iconset}/icon_${size}x${size}@2x.png ${double}px)
  endforeach()
  add_custom_command(OUTPUT ${bundle_icon}
    ${drawing}
    COMMAND ${BRISEL_ICONUTIL} --convert icns --output ${bundle_icon} ${iconset}
    DEPENDS ${BRISEL_ICON} rendersvg
    COMMENT "Making the bundle's icon"
    VERBATIM)
  # The program's own folder does not see this rule, so a target connects them.
  add_custom_target(bundle_icon DEPENDS ${bundle_icon})
  add_dependencies(brisel2pc bundle_icon)
  target_sources(brisel2pc PRIVATE ${bundle_icon})
  set_source_files_properties(${bundle_icon} TARGET_DIRECTORY brisel2pc
    PROPERTIES GENERATED ON MACOSX_PACKAGE_LOCATION Resources)
  set_target_properties(brisel2pc PROPERTIES MACOSX_BUNDLE_ICON_FILE brisel2pc.icns)
endif()

install(TARGETS brisel2pc BUNDLE DESTINATION .)
qt_generate_deploy_app_script(TARGET brisel2pc FILENAME_VARIABLE deploy_script
  NO_UNSUPPORTED_PLATFORM_ERROR)
install(SCRIPT ${deploy_script})

set(CPACK_GENERATOR DragNDrop)
set(CPACK_PACKAGE_NAME "Brisel2 PC")
set(CPACK_PACKAGE_VENDOR Kordia)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR})
include(CPack)

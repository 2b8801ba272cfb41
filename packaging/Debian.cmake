# The Debian package, made by ./package.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME brisel2pc)
set(CPACK_PACKAGE_VENDOR Kordia)
set(CPACK_PACKAGE_CONTACT "${BRISEL_MAINTAINER}")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION sound)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "prepare backing tracks for the Brisel song player")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Reads the data inside a musician's song files (MIDI, karaoke, MP3, and the
ZB3, ZB4 and ZB5 containers), brings them in line with a catalogue and writes
them back in each format's own way.

Then it copies the songs to the memory of the Brisel, a hardware song player,
and builds there the index through which the player finds them.")

# The libraries are found by reading the program. It opens its catalogue through a plugin, which can't
# be found like that, and so is the sound font for MIDI songs. Its images and Qt's Italian texts are embedded, and fontconfig brings a font.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS libqt6sql6-sqlite)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, timgm6mb-soundfont | fluid-soundfont-gm")
include(CPack)

# How every test of the build is run.

# Where tests make their files, so that nothing stays in the system's temporary folder whatever becomes
# of a test; the next run empties both. The first is for tests of what a disk's file system can do,
# the second is a RAM disk where there is one with room.
set(BRISEL_SCRATCH ${PROJECT_BINARY_DIR}/scratch)
set(BRISEL_RAM_SCRATCH ${BRISEL_SCRATCH})
execute_process(COMMAND sh -c "test -w /dev/shm && df -kP /dev/shm | awk 'NR == 2 { print $4 }'"
  OUTPUT_VARIABLE kilobytes OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(kilobytes MATCHES "^[0-9]+$" AND kilobytes GREATER 500000)
  string(MD5 hash ${PROJECT_BINARY_DIR})
  string(SUBSTRING ${hash} 0 8 hash)
  set(BRISEL_RAM_SCRATCH /dev/shm/brisel2pc-tests-${hash})
endif()

# brisel_test_environment(<test...>): offscreen, in one locale and time zone, and with temporary
# files in the scratch folder, which must be empty when all tests are done.
function(brisel_test_environment)
  set_property(TEST ${ARGN} PROPERTY TIMEOUT 600)
  set_property(TEST ${ARGN} PROPERTY ENVIRONMENT
    QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC TMPDIR=${BRISEL_SCRATCH})
  set_property(TEST ${ARGN} APPEND PROPERTY FIXTURES_REQUIRED scratch)
endfunction()

# Has tests make their temporary files on the RAM disk.
function(brisel_test_on_ram_disk)
  set_property(TEST ${ARGN} APPEND PROPERTY ENVIRONMENT TMPDIR=${BRISEL_RAM_SCRATCH})
endfunction()

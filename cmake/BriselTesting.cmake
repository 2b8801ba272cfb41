# How all tests of the build are run.

# The folders in which tests make their files, so that not even a crashed test leaves files in the
# system's temporary folder; the next run empties both. The first is for tests that need a disk's file
# system, the second is on a RAM disk if there is one with enough room.
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
# files in the scratch folder, which must be empty when all tests have run.
function(brisel_test_environment)
  set_property(TEST ${ARGN} PROPERTY TIMEOUT 600)
  set_property(TEST ${ARGN} PROPERTY ENVIRONMENT
    QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC TMPDIR=${BRISEL_SCRATCH})
  set_property(TEST ${ARGN} APPEND PROPERTY FIXTURES_REQUIRED scratch)
endfunction()

# Makes tests put their temporary files on the RAM disk.
function(brisel_test_on_ram_disk)
  set_property(TEST ${ARGN} APPEND PROPERTY ENVIRONMENT TMPDIR=${BRISEL_RAM_SCRATCH})
endfunction()

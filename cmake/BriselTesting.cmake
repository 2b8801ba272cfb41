# How every test of the build is run.

# Where tests make their files: in folders of the build, so that nothing stays in the system's
# temporary folder whatever becomes of a test. In the second no disk is waited for; the first is for
# tests of what a disk's file system can do.
set(BRISEL_SCRATCH ${PROJECT_BINARY_DIR}/scratch)
set(BRISEL_QUICK_SCRATCH ${BRISEL_SCRATCH})
if(EXISTS /dev/shm)
  string(MD5 hash ${PROJECT_BINARY_DIR})
  string(SUBSTRING ${hash} 0 8 hash)
  set(BRISEL_QUICK_SCRATCH /dev/shm/brisel2pc-tests-${hash})
endif()

# brisel_test_environment(<test...>): offscreen, in one locale and time zone, and with temporary
# files in the scratch folder, which must be empty when all tests are done.
function(brisel_test_environment)
  set_property(TEST ${ARGN} PROPERTY TIMEOUT 600)
  set_property(TEST ${ARGN} PROPERTY ENVIRONMENT
    QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 TZ=UTC TMPDIR=${BRISEL_SCRATCH})
  set_property(TEST ${ARGN} APPEND PROPERTY FIXTURES_REQUIRED scratch)
endfunction()

# Has tests make their temporary files where no disk is waited for.
function(brisel_test_in_memory)
  set_property(TEST ${ARGN} APPEND PROPERTY ENVIRONMENT TMPDIR=${BRISEL_QUICK_SCRATCH})
endfunction()

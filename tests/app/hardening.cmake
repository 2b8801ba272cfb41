# Fails when PROGRAM lacks one of the protections that it is linked and compiled with. Asks
# READELF; READELF and PROGRAM are set by the caller, and so is COMMANDS, the build's list of compile
# commands, where the build optimises: FORTIFY leaves no trace in a program that calls none of the
# functions that it guards.
function(ask result)
  execute_process(COMMAND ${READELF} ${ARGN} ${PROGRAM}
    OUTPUT_VARIABLE output COMMAND_ERROR_IS_FATAL ANY)
  set(${result} "${output}" PARENT_SCOPE)
endfunction()

ask(header --file-header)
ask(segments --program-headers --wide)
ask(dynamic --dynamic --wide)
ask(symbols --dyn-syms --wide)

set(missing)
if(NOT header MATCHES "Type: +DYN")
  list(APPEND missing "a position independent executable")
endif()
if(NOT segments MATCHES "GNU_RELRO" OR NOT dynamic MATCHES "BIND_NOW|FLAGS_1[^\n]*NOW")
  list(APPEND missing "full RELRO")
endif()
if(NOT segments MATCHES "GNU_STACK[^\n]*RW +0x" OR segments MATCHES "GNU_STACK[^\n]*RWE")
  list(APPEND missing "a stack that can't be executed")
endif()
if(NOT symbols MATCHES "__stack_chk_fail")
  list(APPEND missing "the stack protector")
endif()
if(COMMANDS)
  file(READ ${COMMANDS} commands)
  if(NOT commands MATCHES "-D_FORTIFY_SOURCE=[23][^\n]*/app/main[.]cpp")
    list(APPEND missing "FORTIFY")
  endif()
endif()
if(missing)
  list(JOIN missing ", " missing)
  message(FATAL_ERROR "${PROGRAM} lacks ${missing}")
endif()

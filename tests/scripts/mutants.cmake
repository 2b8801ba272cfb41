# cmake -DPYTHON=<program> -DMUTANTS=<mutants.py> -DFIXTURE=<folder> -DCOPY=<folder> -P mutants.cmake: tries
# the slips of a small project, of which one is noticed and each other one stands for something else
# that can come of a slip.

cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${COPY})
file(COPY ${FIXTURE}/ DESTINATION ${COPY})

# try_slips(<status> <regular expression>... WITH <argument>...): fails unless the tool ends so and its
# output matches all.
function(try_slips expected)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "WITH")
  execute_process(COMMAND ${PYTHON} -B ${MUTANTS} ${COPY} ${arg_WITH}
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  message("${output}")
  if(NOT status STREQUAL expected)
    message(FATAL_ERROR "It ended with ${status} instead of ${expected}")
  endif()
  foreach(wanted IN LISTS arg_UNPARSED_ARGUMENTS)
    if(NOT output MATCHES "${wanted}")
      message(FATAL_ERROR "Its output does not match ${wanted}")
    endif()
  endforeach()
endfunction()

try_slips(1
  "base/noticed: noticed, tst_sum: tst_sum::addsTwoAndTwo\n"
  "base/explained: explained, nobody reads the unit\n"
  "base/not-noticed: survived, the unit is wrong\n"
  "base/no-script: unfit, it does not compile\n.*sum.sh: "
  "base/text-is-gone: unfit, its text was found 0 times in sum.sh\n"
  "base/text-stands-twice: unfit, its text was found 2 times in sum.sh\n"
  "\nsurvived: base/not-noticed\n"
  "\n6 slips: 1 noticed, 1 explained, 1 survived, 3 unfit\n"
  WITH --run)
try_slips(0 "\n2 slips: 1 noticed, 1 explained, 0 survived, 0 unfit\n"
  WITH --run base/noticed base/explained)
try_slips(1 "\n2 slips, 2 of them unfit\n" WITH --fit 5-6)
try_slips(1 "^There is no slip bas\n$" WITH --run bas)

file(READ ${COPY}/sum.sh product)
file(WRITE ${COPY}/sum.sh "${product}sum=5\n")
try_slips(1 "\nTests fail without a slip:\ntst_sum: tst_sum::addsTwoAndTwo\n$" WITH --run base/noticed)
file(WRITE ${COPY}/sum.sh "sum=((2\n")
try_slips(1 "\nThe unchanged project does not build:\n" WITH --run base/noticed)

# cmake -DTREE=<folder> -DPRESET=<name> -DBUILD=<folder> -P preset.cmake -- <target...>: configures the
# preset in a separate build folder and fails if one of the targets is missing.

cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/../../cmake/BriselArguments.cmake)

execute_process(COMMAND ${CMAKE_COMMAND} --preset ${PRESET} -B ${BUILD} --log-level=WARNING
    -DBRISEL_ALL_TOOLS=OFF
  WORKING_DIRECTORY ${TREE} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD} --target ${ARGUMENTS} -- -n
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

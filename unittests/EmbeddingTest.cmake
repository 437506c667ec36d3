# Installs the project, builds the host of docs/embedding against it with find_package, and runs it.
#   cmake -DBUILD=... -DSOURCE=... -DWORK=... -DGENERATOR=... -P EmbeddingTest.cmake
function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGV}: ${status}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -S ${SOURCE}/docs/embedding -B ${WORK}/build -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${WORK}/prefix -DCMAKE_BUILD_TYPE=Debug)
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${WORK}/build/host)
if(NOT output MATCHES "\"hasPoorSignal\":true" OR NOT output MATCHES "\"RSSI\":-81")
  message(FATAL_ERROR "The host printed: ${output}")
endif()
foreach(installed bin/wifi-profile share/man/man1/wifi-profile.1 share/doc/wifi-profile/SETTINGS.md
        share/wifi-profile/scenario.schema.json)
  if(NOT EXISTS ${WORK}/prefix/${installed})
    message(FATAL_ERROR "Not installed: ${installed}")
  endif()
endforeach()

# Installs the build into a scratch prefix, then builds and runs the consumer host against it:
#   cmake -DBUILD_DIR=... -DCONSUMER_DIR=... -DWORK_DIR=... [-DCONFIG=...] -P checkinstalled.cmake
# Fails when the package cannot be found by version, when a generic header name reaches the
# include directory, or when the consumer does not build or run.
set(prefix ${WORK_DIR}/prefix)
file(REMOVE_RECURSE ${WORK_DIR})
file(MAKE_DIRECTORY ${WORK_DIR})

function(run what)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE err)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${what} failed (${result}):\n${out}${err}")
    endif()
    set(output "${out}" PARENT_SCOPE)
endfunction()

set(config_args)
if(CONFIG)
    set(config_args --config ${CONFIG})
endif()
run("installing" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix} ${config_args})

# The headers sit under the package's own prefixes; no generic name lands on the include path.
foreach(header dialogprogrammer.h records.h helper.h algorithm.h character.h stopwatch.h)
    if(EXISTS ${prefix}/include/${header})
        message(FATAL_ERROR "${header} is installed straight on the include path")
    endif()
endforeach()
foreach(header tarn2_specific/dialogprogrammer.h tarn2_specific/records.h
        tarn2_specific/tarn2_specific_export.h tarn2_util/character.h tarn_core/algorithm.h)
    if(NOT EXISTS ${prefix}/include/${header})
        message(FATAL_ERROR "${header} is not installed")
    endif()
endforeach()

set(generator)
if(CMAKE_GENERATOR)
    set(generator -G ${CMAKE_GENERATOR})
endif()
run("configuring the consumer" ${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/build
    ${generator} -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH=${prefix})
run("building the consumer" ${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run("running the consumer" ${CMAKE_COMMAND} -E env QT_QPA_PLATFORM=offscreen
    XDG_CONFIG_HOME=${WORK_DIR}/config ${WORK_DIR}/build/consumer)
if(NOT output MATCHES "^steps [1-9][0-9]* midpoint 15\n$")
    message(FATAL_ERROR "the consumer printed: ${output}")
endif()
message(STATUS "consumer: ${output}")

# A newer major version than the one installed is refused.
execute_process(COMMAND ${CMAKE_COMMAND} -S ${CONSUMER_DIR} -B ${WORK_DIR}/build2
    ${generator} -DTARN_VERSION=2.0 -DCMAKE_PREFIX_PATH=${prefix}
    RESULT_VARIABLE result OUTPUT_QUIET ERROR_VARIABLE out)
if(result EQUAL 0 OR NOT out MATCHES "tarn2_specific")
    message(FATAL_ERROR "find_package(tarn2_specific 2.0) succeeded against 1.x:\n${out}")
endif()

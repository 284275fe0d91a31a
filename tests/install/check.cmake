function(step)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
endfunction()

set(prefix ${BUILD}/install-test)
file(REMOVE_RECURSE ${prefix})
step(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix})
step(${CMAKE_COMMAND} -S ${SOURCE} -B ${prefix}/build -G Ninja -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}
     -Dkirovanteo_DIR=${prefix}/lib/cmake/kirovanteo)
step(${CMAKE_COMMAND} --build ${prefix}/build)
# Beside the installed DLLs, as it would lie on the host's machine.
file(COPY ${prefix}/build/host.exe DESTINATION ${prefix}/bin)
step(${EMULATOR} ${prefix}/bin/host.exe)

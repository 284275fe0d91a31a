# Installs the package, moves it, builds host programs with it and runs them.
cmake_minimum_required(VERSION 3.21)

function(step)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGN}\n${output}")
    endif()
    set(output "${output}" PARENT_SCOPE)
endfunction()

# The page shows the host that is built here, word for word.
file(READ ${PAGE} page)
foreach(file host.c CMakeLists.txt)
    file(READ ${SOURCE}/host/${file} text)
    string(FIND "${page}" "\n${text}```\n" place)
    if(place EQUAL -1)
        message(FATAL_ERROR "${PAGE} shows another ${file} than ${SOURCE}/host")
    endif()
endforeach()

set(work ${BUILD}/install-test)
file(REMOVE_RECURSE ${work})
step(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/first)
file(RENAME ${work}/first ${work}/moved)
step(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/library --component library)

# build(NAME PREFIX): the program beside all the DLLs, as it would lie on the host's machine.
function(build name prefix)
    step(${CMAKE_COMMAND} -S ${SOURCE}/${name} -B ${work}/${name} -G Ninja -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}
         -DCMAKE_PREFIX_PATH=${prefix} "-DCMAKE_C_FLAGS=-Wall -Wextra -Wpedantic -Wconversion -Werror")
    step(${CMAKE_COMMAND} --build ${work}/${name})
    file(COPY ${work}/${name}/${name}.exe DESTINATION ${work}/moved/bin)
endfunction()

file(GLOB files RELATIVE ${work}/library ${work}/library/*/*.a)
if(NOT files STREQUAL "lib/libkirovanteo.dll.a")
    message(FATAL_ERROR "the library's component has ${files}")
endif()
build(linked ${work}/library)
step(${EMULATOR} ${work}/moved/bin/linked.exe)
# What the host has of its own goes beside the library, and the whole elsewhere.
step(${CMAKE_COMMAND} --install ${BUILD} --prefix ${work}/library --component standalone-host)
file(RENAME ${work}/library ${work}/both)
build(host ${work}/both)
step(${EMULATOR} ${work}/moved/bin/host.exe --close)
if(NOT output MATCHES "pressing cancel")
    message(FATAL_ERROR "host.exe has shown no dialog: ${output}")
endif()

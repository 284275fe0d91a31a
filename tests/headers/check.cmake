# Every public header by itself, as its first lines promise it, with all the warnings of one compiler. And in ASCII: a
# compiler on a Japanese system reads it as code page 932.
cmake_minimum_required(VERSION 3.21)

set(cxx_only FixedText.h KrListControl.h KrUtility.h)
if(CC MATCHES "clang")
    # Not of the headers' choosing: padding between the records' fields, the tag behind HWND, C++ older than C++17.
    set(c_flags -Weverything -Wno-padded -Wno-reserved-identifier)
    set(cxx_flags ${c_flags} -Wno-c++98-compat -Wno-c++98-compat-pedantic)
else()
    set(flags -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Wcast-align -Wundef -Wredundant-decls)
    set(c_flags ${flags} -Wstrict-prototypes -Wold-style-definition -Wc++-compat)
    set(cxx_flags ${flags} -Wold-style-cast -Wuseless-cast -Wzero-as-null-pointer-constant)
endif()

function(compile header)
    execute_process(COMMAND ${ARGN} -Werror -fsyntax-only -I ${SOURCE} -include ${header} ${WORK}/empty
                    RESULT_VARIABLE result ERROR_VARIABLE output)
    if(NOT result EQUAL 0)
        message(SEND_ERROR "${ARGN} ${header}\n${output}")
    endif()
endfunction()

file(WRITE ${WORK}/empty "")
file(GLOB headers ${SOURCE}/entry/host/*.h ${SOURCE}/hostlayer/include/*.h)
foreach(header IN LISTS headers)
    cmake_path(GET header FILENAME name)
    if(NOT name IN_LIST cxx_only)
        compile(${header} ${CC} -std=c11 ${c_flags} -x c)
    endif()
    compile(${header} ${CXX} -std=c++17 ${cxx_flags} -x c++)
    file(READ ${header} text)
    if(text MATCHES "[^\t\n -~]")
        message(SEND_ERROR "${header} is not in ASCII")
    endif()
endforeach()

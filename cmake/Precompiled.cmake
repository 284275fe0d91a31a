# What nearly every file includes is parsed once per kind of target. Sources do not count on it: with
# -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON (which a compiler cache wants) nothing of this is seen.
set(KIRO_COMMON_HEADERS <algorithm> <array> <cstdint> <filesystem> <fstream> <functional> <map>
    <memory> <optional> <ranges> <string> <string_view> <utility> <vector>)
if(WIN32)
    list(PREPEND KIRO_COMMON_HEADERS <windows.h> <commctrl.h>)
endif()

# kiro_precompiled(NAME OPTION [HEADER...]): the headers as targets with this option can use them.
function(kiro_precompiled name option)
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/${name}.cpp CONTENT "")
    add_library(${name} OBJECT ${CMAKE_BINARY_DIR}/${name}.cpp)
    target_compile_features(${name} PRIVATE cxx_std_20)
    target_compile_definitions(${name} PRIVATE $<TARGET_PROPERTY:kiro_options,INTERFACE_COMPILE_DEFINITIONS>)
    target_compile_options(${name} PRIVATE $<TARGET_PROPERTY:kiro_options,INTERFACE_COMPILE_OPTIONS> ${option})
    target_precompile_headers(${name} PRIVATE ${KIRO_COMMON_HEADERS} ${ARGN})
endfunction()

# GCC 12 warns of overflows inside of std::string that cannot be, once its header is a precompiled one.
if(NOT CMAKE_DISABLE_PRECOMPILE_HEADERS)
    set(KIRO_PRECOMPILED_WARNINGS -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()

# kiro_reuse(NAME FOLDER [OPTION]): what is built below the folder takes the headers from NAME, and the option.
# What has headers already keeps them, and a target without GoogleTest does not get it.
function(kiro_reuse name folder)
    get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
    foreach(below IN LISTS folders)
        kiro_reuse(${name} ${below} ${ARGN})
    endforeach()
    get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
    list(FILTER targets EXCLUDE REGEX "^(gtest|gmock|kiro_headers)")
    foreach(target IN LISTS targets)
        get_target_property(type ${target} TYPE)
        get_target_property(taken ${target} PRECOMPILE_HEADERS_REUSE_FROM)
        get_target_property(libraries ${target} LINK_LIBRARIES)
        if(NOT type MATCHES "^(STATIC_LIBRARY|SHARED_LIBRARY|EXECUTABLE)$" OR taken)
            continue()
        endif()
        if(name STREQUAL "kiro_headers_test" AND NOT libraries MATCHES "gtest|kiro_test_main")
            continue()
        endif()
        target_compile_options(${target} PRIVATE ${ARGN} ${KIRO_PRECOMPILED_WARNINGS})
        target_precompile_headers(${target} REUSE_FROM ${name})
    endforeach()
endfunction()

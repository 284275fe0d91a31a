# For host programs: find_package(kirovanteo 1.0) gives the target kirovanteo::kirovanteo, whose headers are included as
# "kirovanteo/kirovanteo.h". The host links nothing else; the seven libraries that the DLL itself needs are the host's.
# The component standalone-host gives seven stand-ins for them, for a machine without the host.
get_filename_component(_kirovanteo_prefix "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)

# The DLL bin/NAME.dll with the headers and the import library of this package.
function(_kirovanteo_library name)
    if(NOT TARGET kirovanteo::${name})
        add_library(kirovanteo::${name} SHARED IMPORTED)
        set_target_properties(kirovanteo::${name} PROPERTIES
            IMPORTED_LOCATION "${_kirovanteo_prefix}/bin/${name}.dll"
            IMPORTED_IMPLIB "${_kirovanteo_prefix}/lib/lib${name}.dll.a"
            INTERFACE_INCLUDE_DIRECTORIES "${_kirovanteo_prefix}/include")
    endif()
endfunction()

_kirovanteo_library(kirovanteo)

foreach(_component IN LISTS kirovanteo_FIND_COMPONENTS)
    include("${CMAKE_CURRENT_LIST_DIR}/kirovanteo-${_component}.cmake" OPTIONAL RESULT_VARIABLE _kirovanteo_file)
    if(_kirovanteo_file)
        set(kirovanteo_${_component}_FOUND TRUE)
    elseif(kirovanteo_FIND_REQUIRED_${_component})
        set(kirovanteo_FOUND FALSE)
        set(kirovanteo_NOT_FOUND_MESSAGE "kirovanteo is installed without the component ${_component}")
    endif()
endforeach()

# For host programs: find_package(kirovanteo) gives the target kirovanteo::kirovanteo, whose headers are included as
# "kirovanteo/kirovanteo.h". The host links nothing else; the seven libraries that the DLL itself needs are the host's.
get_filename_component(_kirovanteo_prefix "${CMAKE_CURRENT_LIST_DIR}/../../.." ABSOLUTE)
if(NOT TARGET kirovanteo::kirovanteo)
    add_library(kirovanteo::kirovanteo SHARED IMPORTED)
    set_target_properties(kirovanteo::kirovanteo PROPERTIES
        IMPORTED_LOCATION "${_kirovanteo_prefix}/bin/kirovanteo.dll"
        IMPORTED_IMPLIB "${_kirovanteo_prefix}/lib/libkirovanteo.dll.a"
        INTERFACE_INCLUDE_DIRECTORIES "${_kirovanteo_prefix}/include")
endif()

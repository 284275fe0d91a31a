# find_package(kirovanteo COMPONENTS standalone-host): the target kirovanteo::standalone-host, whose header is included
# as "kirovanteo/KiroHost.h", and the seven libraries behind it one by one, such as kirovanteo::kirogr.
set(_kirovanteo_host kirobc kirocontrol kiromdl kirodxf kirogr kirodlg kirodlglib)
foreach(_library IN LISTS _kirovanteo_host)
    _kirovanteo_library(${_library})
endforeach()
if(NOT TARGET kirovanteo::standalone-host)
    add_library(kirovanteo::standalone-host INTERFACE IMPORTED)
    list(TRANSFORM _kirovanteo_host PREPEND kirovanteo:: OUTPUT_VARIABLE _kirovanteo_targets)
    set_target_properties(kirovanteo::standalone-host PROPERTIES INTERFACE_LINK_LIBRARIES "${_kirovanteo_targets}")
endif()

# Debian ships GoogleTest as sources (package googletest); it is compiled with the toolchain at hand.
if(NOT TARGET gtest)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
endif()

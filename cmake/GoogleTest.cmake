# Debian ships GoogleTest as sources (package googletest); it is compiled with the toolchain at hand, soon rather than
# quick, and without the sanitizers that ours is under.
if(NOT TARGET gtest)
    add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
    target_compile_options(gtest PRIVATE -Og -fno-sanitize=all)
endif()

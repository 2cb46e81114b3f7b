# What the programs for Windows take beyond the rest: the numbers' routines and, since Debian has no
# library of it for Windows, GoogleTest's source.
include(cmake/windows_numbers.cmake)

if(VELMORA_TESTS)
    add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL)
endif()

# What the programs for Windows take beyond the rest: the numbers' routines, the toolkit that
# packaging/windows/qt.sh has built and, since Debian has no library of it for Windows, GoogleTest's
# source.
include(cmake/windows_numbers.cmake)

if(VELMORA_TESTS)
    add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL)
endif()

if(VELMORA_QT)
    set(VELMORA_WINDOWS_QT "" CACHE PATH "Folder of the static toolkit for Windows")
    set(VELMORA_DRAWINGS "" CACHE PATH "Folder of the recorded drawings")
    list(APPEND CMAKE_FIND_ROOT_PATH ${VELMORA_WINDOWS_QT})
    list(APPEND CMAKE_PREFIX_PATH ${VELMORA_WINDOWS_QT})
    # The toolkit's own tools, such as moc, are those of Debian.
    set(QT_HOST_PATH /usr)
    set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
endif()

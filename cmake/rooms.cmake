# velmora_room(<name> [FOLDER <folder>] SOURCES ... [LINKS ...]): one room of the house, a static
# library with the alias velmora::<name>; its folder in src bears its name unless told otherwise.
#
# Headers are included by their room, "core/record.h", and never from src itself: a room is seen
# through a folder that holds nothing but a link to it, and that folder is what a link to the room
# brings. So a header of a room that isn't linked, directly or by way of another, doesn't compile.
function(velmora_room name)
    cmake_parse_arguments(ROOM "" "FOLDER" "SOURCES;LINKS" ${ARGN})
    if(NOT ROOM_FOLDER)
        set(ROOM_FOLDER ${name})
    endif()
    set(seen_through ${PROJECT_BINARY_DIR}/rooms/${name})
    file(MAKE_DIRECTORY ${seen_through})
    file(CREATE_LINK
        ${PROJECT_SOURCE_DIR}/src/${ROOM_FOLDER} ${seen_through}/${ROOM_FOLDER} SYMBOLIC)

    add_library(velmora_${name} STATIC ${ROOM_SOURCES})
    add_library(velmora::${name} ALIAS velmora_${name})
    target_include_directories(velmora_${name} PUBLIC ${seen_through})
    target_link_libraries(velmora_${name} PUBLIC ${ROOM_LINKS}
        PRIVATE velmora_options velmora_hardening)
endfunction()

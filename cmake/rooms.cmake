# velmora_room(<name> SOURCES ... [LINKS ...]): one room of the house, a static library with the
# alias velmora::<name>. The rooms that it links are the only ones whose headers it may include.
function(velmora_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS" ${ARGN})
    add_library(velmora_${name} STATIC ${ROOM_SOURCES})
    add_library(velmora::${name} ALIAS velmora_${name})
    target_include_directories(velmora_${name} PUBLIC ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(velmora_${name} PUBLIC ${ROOM_LINKS}
        PRIVATE velmora_options velmora_hardening)
endfunction()

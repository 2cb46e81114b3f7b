# Most of a build's time goes into reading the same headers for each source. The presets that build
# everything (CMAKE_UNITY_BUILD) compile the sources of a target a dozen at a time.
#
# velmora_alone(<source>...): sources of this folder that are compiled one by one there, too, since a
# name of their own means something else in a neighbour.
set(CMAKE_UNITY_BUILD_BATCH_SIZE 12)
function(velmora_alone)
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

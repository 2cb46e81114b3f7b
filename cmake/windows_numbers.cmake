# velmora_numbers: exp, log and pow of Debian's C library for the programs for Windows, whose own C
# library rounds some last digits otherwise. musl has the same routines, and VELMORA_MUSL is the
# folder of its source.
set(VELMORA_MUSL "$ENV{VELMORA_MUSL}" CACHE PATH "Source folder of musl")
set(math ${VELMORA_MUSL}/src/math)
if(NOT EXISTS ${math}/exp.c)
    message(FATAL_ERROR "VELMORA_MUSL must name musl's source: packaging/windows/sources.sh musl")
endif()
enable_language(C)

# What musl's sources look for and this compiler hasn't.
set(shims ${PROJECT_BINARY_DIR}/musl-headers)
file(WRITE ${shims}/features.h "")
file(WRITE ${shims}/endian.h "")

# velmora_numbers_part(<name> SOURCES ... OPTIONS ...): optimized in every build, since the
# optimizer is what fuses a product and a sum.
function(velmora_numbers_part name)
    cmake_parse_arguments(PART "" "" "SOURCES;OPTIONS" ${ARGN})
    list(TRANSFORM PART_SOURCES PREPEND ${math}/)
    add_library(${name} OBJECT ${PART_SOURCES})
    set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)  # local names repeat in them
    target_include_directories(${name} PRIVATE
        ${shims} ${VELMORA_MUSL}/src/internal ${VELMORA_MUSL}/arch/generic)
    target_compile_options(${name} PRIVATE -std=gnu11 -O2 -fno-builtin -w -Dhidden= ${PART_OPTIONS})
endfunction()

# velmora_numbers_way(<way> <option>...): the three functions, their names ending in _<way>.
function(velmora_numbers_way way)
    velmora_numbers_part(velmora_numbers_${way} SOURCES exp.c log.c pow.c
        OPTIONS -Dexp=exp_${way} -Dlog=log_${way} -Dpow=pow_${way} ${ARGN})
endfunction()

velmora_numbers_way(plain)
velmora_numbers_way(fused -mfma -mavx2 -ffp-contract=fast)
velmora_numbers_part(velmora_numbers_data SOURCES
    exp_data.c log_data.c pow_data.c __math_divzero.c __math_invalid.c __math_oflow.c
    __math_uflow.c __math_xflow.c)

add_library(velmora_numbers STATIC ${PROJECT_SOURCE_DIR}/src/windows/numbers.c
    $<TARGET_OBJECTS:velmora_numbers_plain> $<TARGET_OBJECTS:velmora_numbers_fused>
    $<TARGET_OBJECTS:velmora_numbers_data>)
target_include_directories(velmora_numbers PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_compile_options(velmora_numbers PRIVATE -O2 -fno-builtin)

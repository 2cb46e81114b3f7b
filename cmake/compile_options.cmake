# What every target is compiled with: velmora_options, linked privately.
add_library(velmora_options INTERFACE)

# No fused operations: the figures are those of plain Doubles, one operation at a time.
target_compile_options(velmora_options INTERFACE
    -ffp-contract=off
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough
    -Wcast-qual)
# A subscript out of bounds or an empty optional in the standard library's own types stops the
# program; it never reads on.
target_compile_definitions(velmora_options INTERFACE _GLIBCXX_ASSERTIONS)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # GCC 12 sees overlaps in std::string's own code that aren't there (GCC bug 105651).
    target_compile_options(velmora_options INTERFACE -Wno-restrict)
endif()
if(VELMORA_WARNINGS_AS_ERRORS)
    target_compile_options(velmora_options INTERFACE -Werror)
endif()
if(VELMORA_COVERAGE)
    target_compile_options(velmora_options INTERFACE --coverage -O0)
    target_link_options(velmora_options INTERFACE --coverage)
endif()

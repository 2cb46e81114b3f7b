# What a distribution hardens its programs with, for the release builds: velmora_hardening, linked
# by everything that is shipped. tests/hardening looks at what came of it.
include(CheckPIESupported)
check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

add_library(velmora_hardening INTERFACE)
target_compile_options(velmora_hardening INTERFACE -fstack-protector-strong -Werror=format-security)
if(WIN32)
    # No data that runs, any address, one out of 64 bits; the stack's guard is a library there.
    target_link_options(velmora_hardening INTERFACE
        -Wl,--nxcompat -Wl,--dynamicbase -Wl,--high-entropy-va)
    target_link_libraries(velmora_hardening INTERFACE ssp)
else()
    target_link_options(velmora_hardening INTERFACE -Wl,-z,relro -Wl,-z,now)
endif()
# The checked string functions take an optimizer, and the sanitizers have checks of their own.
if(CMAKE_BUILD_TYPE STREQUAL "Release")
    target_compile_options(velmora_hardening INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
endif()

/* exp, log and pow with the bits that the C library of Debian gives.
 *
 * That library holds each of them twice, from one source: with fused multiply and add for
 * processors that have it, and without. cmake/windows_numbers.cmake compiles musl's copy of the
 * same source both ways; here the processor chooses, by the rule that the other library goes by. */
#include "windows/numbers.h"

int HasFusedOperations(void) {
    __builtin_cpu_init();
    return __builtin_cpu_supports("fma") && __builtin_cpu_supports("avx2");
}

double exp(double x) { return HasFusedOperations() ? exp_fused(x) : exp_plain(x); }

double log(double x) { return HasFusedOperations() ? log_fused(x) : log_plain(x); }

double pow(double x, double y) { return HasFusedOperations() ? pow_fused(x, y) : pow_plain(x, y); }

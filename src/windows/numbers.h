#pragma once

#ifdef __cplusplus
extern "C" {
#endif

/// Whether the processor and the system have FMA and AVX2 both.
int HasFusedOperations(void);

/// The two ways of each function: with fused multiply and add, and with every product rounded.
double exp_fused(double x);
double exp_plain(double x);
double log_fused(double x);
double log_plain(double x);
double pow_fused(double x, double y);
double pow_plain(double x, double y);

#ifdef __cplusplus
}
#endif

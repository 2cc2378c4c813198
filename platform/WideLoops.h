#pragma once

/// On a function whose loops pay for wider registers than every processor has: it is compiled for several kinds, and
/// the widest that the machine knows runs. As products and sums stay apart (no contraction), all kinds give the same
/// bits. What the function calls keeps the narrow form unless it is inlined.
#if defined(__x86_64__) && defined(__linux__) && defined(__GNUC__)
#define PLP_WIDE_LOOPS __attribute__((target_clones("avx512f", "avx2", "default")))
#else
#define PLP_WIDE_LOOPS
#endif

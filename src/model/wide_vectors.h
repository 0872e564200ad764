// For the plain loops over whole grids that the compiler makes vectors of.
#pragma once

// Before a function: compiled a second time for 256-bit vectors, which the loader picks where the
// processor has them. The results are the same to the bit.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define WIDE_VECTORS [[gnu::target_clones("avx2", "default")]]
#else
#define WIDE_VECTORS
#endif

// Marks for plain loops over whole grids, which the compiler vectorises.
#pragma once

#include <cstddef>

// Defined under AddressSanitizer; g++ and clang announce it differently.
#if defined(__SANITIZE_ADDRESS__)
#define WATCHED_ACCESS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define WATCHED_ACCESS
#endif
#endif

// Before a function: compiled a second time for 256-bit vectors, which the loader picks if the
// processor has them. The results are the same to the bit. 512-bit vectors gained little in
// measurements, and slow down schemes that do not use them.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(WATCHED_ACCESS)
#define WIDE_VECTORS [[gnu::target_clones("avx2", "default")]]
#else
#define WIDE_VECTORS
#endif

// Alignment of arrays, in bytes. None under AddressSanitizer: an overrun into the padding would go
// unnoticed.
#if defined(WATCHED_ACCESS)
constexpr std::size_t CacheLine = 1;
#else
constexpr std::size_t CacheLine = 64;
#endif

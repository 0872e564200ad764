// For the plain loops over whole grids that the compiler makes vectors of.
#pragma once

#include <cstddef>

// Defined where AddressSanitizer watches every access; g++ says so by one mark, clang by another.
#if defined(__SANITIZE_ADDRESS__)
#define WATCHED_ACCESS
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define WATCHED_ACCESS
#endif
#endif

// Before a function: compiled a second time for 256-bit vectors, which the loader picks where the
// processor has them. The results are the same to the bit. Wider ones were measured to gain nothing
// to speak of, and to cost some beside schemes that do not use them.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(WATCHED_ACCESS)
#define WIDE_VECTORS [[gnu::target_clones("avx2", "default")]]
#else
#define WIDE_VECTORS
#endif

// What an array is lined up with, in bytes. Nothing under AddressSanitizer: it takes room, in which
// an overrun would go unnoticed.
#if defined(WATCHED_ACCESS)
constexpr std::size_t CacheLine = 1;
#else
constexpr std::size_t CacheLine = 64;
#endif

// The few operations that the kernels are made of besides + - * /. Each works on plain floats as
// one or two instructions without a branch; a type that counts operations overloads them.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>

template <typename Float>
inline Float Select(bool condition, Float a, Float b) {
    return condition ? a : b;
}
template <typename Float>
inline Float Min(Float a, Float b) {
    return a < b ? a : b;
}
template <typename Float>
inline Float Max(Float a, Float b) {
    return a > b ? a : b;
}
template <typename Float>
inline Float Clamp(Float low, Float a, Float high) {
    return Min(Max(a, low), high);
}
template <typename Float>
inline Float Abs(Float a) {
    return std::abs(a);
}
template <typename Float>
inline Float Sqrt(Float a) {
    return std::sqrt(a);
}
// The magnitude of a with the sign of b.
template <typename Float>
inline Float CopySign(Float a, Float b) {
    return std::copysign(a, b);
}
// a, negated if b's sign bit is set. Unlike a product it never makes a subnormal number.
inline double Along(double a, double b) {
    constexpr std::uint64_t signBit = std::uint64_t{1} << 63;
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(a) ^
                                 (std::bit_cast<std::uint64_t>(b) & signBit));
}
inline float Along(float a, float b) {
    constexpr std::uint32_t signBit = std::uint32_t{1} << 31;
    return std::bit_cast<float>(std::bit_cast<std::uint32_t>(a) ^
                                (std::bit_cast<std::uint32_t>(b) & signBit));
}

// A number as a value that the compiler does not know. GCC 12 makes two to five instructions of a
// minimum or maximum with a constant and one of a minimum or maximum with a variable, so constant
// arguments of Min, Max and Clamp go through this function.
extern const float OpaqueOneSingle;  // both are 1, defined in opaque.cpp
extern const double OpaqueOneDouble;
inline float Opaque(float number) {
    return number * OpaqueOneSingle;
}
inline double Opaque(double number) {
    return number * OpaqueOneDouble;
}

// Far below every density, pressure and speed, yet a normal number.
template <typename Float>
constexpr Float Tiny = Float(1e-30);
template <typename Float>
constexpr Float LargestFinite = std::numeric_limits<Float>::max();

template <typename Float>
inline Float NonNegative(Float a) {
    return Max(a, Opaque(Float(0)));
}
template <typename Float>
inline Float Clamp01(Float a) {
    return Clamp(Opaque(Float(0)), a, Opaque(Float(1)));
}
// A magnitude that can be divided by.
template <typename Float>
inline Float Divisor(Float magnitude) {
    return Max(magnitude, Opaque(Tiny<Float>));
}

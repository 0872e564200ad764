// The few operations that the kernels are made of besides + - * /. Each works on plain floats as
// one or two instructions without a branch; a type that counts operations overloads them.
#pragma once

#include <cmath>
#include <limits>

template <typename Float>
inline Float Choose(bool condition, Float a, Float b) {
    return condition ? a : b;
}
template <typename Float>
inline Float Least(Float a, Float b) {
    return a < b ? a : b;
}
template <typename Float>
inline Float Most(Float a, Float b) {
    return a > b ? a : b;
}
template <typename Float>
inline Float Size(Float a) {
    return std::abs(a);
}
template <typename Float>
inline Float Root(Float a) {
    return std::sqrt(a);
}
// The size of a with the sign of b.
template <typename Float>
inline Float Signed(Float a, Float b) {
    return std::copysign(a, b);
}
// a for b above or equal to 0, else -a. Unlike a product, it never makes a subnormal number.
template <typename Float>
inline Float Along(Float a, Float b) {
    return a * Signed(Float(1), b);
}
template <typename Float>
inline Float Between(Float low, Float a, Float high) {
    return Least(Most(a, low), high);
}
// Far below every density, pressure and speed, and far above the smallest normal number.
template <typename Float>
inline Float Tiny() {
    return Float(1e-30);
}
template <typename Float>
inline Float LargestFinite() {
    return std::numeric_limits<Float>::max();
}

// The few operations that the kernels are made of besides + - * /. Each works on plain floats as
// one or two instructions without a branch; a type that counts operations overloads them.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
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
// a for b above or equal to 0, else -a: the sign of b on top of a's own. Unlike a product, it never
// makes a subnormal number.
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
template <typename Float>
inline Float Between(Float low, Float a, Float high) {
    return Least(Most(a, low), high);
}
// Numbers that values are held against by Least, Most and Between. They are defined in a file of
// their own (bounds.cpp), so that no kernel's compiler knows them: where GCC 12 knows one side of a
// minimum or maximum it makes two to five instructions of what is one.
template <typename Float>
struct Bound {
    static const Float Zero;
    static const Float One;
    static const Float Tiny;  // far below every density, pressure and speed, yet a normal number
    static const Float LargestFinite;

    // Any other number, no better known after its product with one.
    static Float Of(Float number) { return number * One; }
};
extern template struct Bound<float>;
extern template struct Bound<double>;

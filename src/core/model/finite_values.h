// Whether numbers are finite.
#pragma once

#include <bit>
#include <cstdint>
#include <limits>
#include <type_traits>

// Checks numbers one after the other by their bits, without branches, float sums or changes of
// width, so that the loop around it vectorises.
template <typename Float>
class FiniteCheck {
public:
    void Look(Float value) { seen_ |= (std::bit_cast<Bits>(value) & Exponent) + Unit; }
    bool AllWereFinite() const { return (seen_ & Sign) == 0; }

private:
    // Adding one to the largest exponent, that of infinity and NaN, carries into the sign bit.
    using Bits = std::conditional_t<sizeof(Float) == 4, std::uint32_t, std::uint64_t>;
    static constexpr Bits Exponent = std::bit_cast<Bits>(std::numeric_limits<Float>::infinity());
    static constexpr Bits Sign = std::bit_cast<Bits>(-Float(0));
    static constexpr Bits Unit = Sign - Exponent;
    Bits seen_ = 0;
};

template <typename Float>
bool AllFinite(const Float* values, int count) {
    FiniteCheck<Float> check;
    for (int i = 0; i < count; ++i) check.Look(values[i]);
    return check.AllWereFinite();
}

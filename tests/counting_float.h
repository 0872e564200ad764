// A float that counts what is done with it, to check what the schemes say of their cost.
#pragma once

#include <cmath>
#include <compare>
#include <limits>

#include "schemes/arithmetic.h"
#include "schemes/operation_counts.h"

struct CountingFloat {
    double Value;

    CountingFloat() = default;
    CountingFloat(double value) : Value(value) {}  // as plain floats convert
    // The result of an operation of that kind.
    CountingFloat(double value, int CellCost::*kind) : Value(value) { ++(Counted().*kind); }

    static CellCost& Counted() {
        static CellCost counted = {};
        return counted;
    }

    using C = CountingFloat;
    auto operator<=>(const C&) const = default;
    C operator-() const { return -Value; }
    friend C operator+(C a, C b) { return {a.Value + b.Value, &CellCost::Adds}; }
    friend C operator-(C a, C b) { return {a.Value - b.Value, &CellCost::Adds}; }
    friend C operator*(C a, C b) { return {a.Value * b.Value, &CellCost::Mults}; }
    friend C operator/(C a, C b) { return {a.Value / b.Value, &CellCost::Recips}; }
    friend C Root(C a) { return {std::sqrt(a.Value), &CellCost::Roots}; }
    friend C Choose(bool condition, C a, C b) {
        return {condition ? a.Value : b.Value, &CellCost::Selects};
    }
    friend C Least(C a, C b) { return Choose(a < b, a, b); }
    friend C Most(C a, C b) { return Choose(a > b, a, b); }
    friend C Signed(C a, C b) { return std::copysign(a.Value, b.Value); }
    friend C Along(C a, C b) { return std::signbit(b.Value) ? -a.Value : a.Value; }
};

inline CountingFloat Size(CountingFloat a) {
    return std::abs(a.Value);
}

template <>
struct std::numeric_limits<CountingFloat> : std::numeric_limits<double> {
    static CountingFloat max() { return std::numeric_limits<double>::max(); }
};

// Bounds cost nothing in a loop.
template <>
inline CountingFloat Bound<CountingFloat>::Of(CountingFloat number) {
    return number;
}
template <>
inline const CountingFloat Bound<CountingFloat>::Zero = 0.0;
template <>
inline const CountingFloat Bound<CountingFloat>::One = 1.0;
template <>
inline const CountingFloat Bound<CountingFloat>::Tiny = 1e-30;
template <>
inline const CountingFloat Bound<CountingFloat>::LargestFinite = std::numeric_limits<double>::max();

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
    constexpr CountingFloat(double value) : Value(value) {}  // as plain floats convert
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
    friend C Sqrt(C a) { return {std::sqrt(a.Value), &CellCost::Roots}; }
    friend C Select(bool condition, C a, C b) {
        return {condition ? a.Value : b.Value, &CellCost::Selects};
    }
    friend C Min(C a, C b) { return Select(a < b, a, b); }
    friend C Max(C a, C b) { return Select(a > b, a, b); }
    friend C CopySign(C a, C b) { return std::copysign(a.Value, b.Value); }
    friend C Along(C a, C b) { return std::signbit(b.Value) ? -a.Value : a.Value; }
};

inline CountingFloat Abs(CountingFloat a) {
    return std::abs(a.Value);
}

template <>
struct std::numeric_limits<CountingFloat> : std::numeric_limits<double> {
    static constexpr CountingFloat max() { return std::numeric_limits<double>::max(); }
};

// Costs nothing in a loop.
inline CountingFloat Opaque(CountingFloat number) {
    return number;
}

// A float that counts what is done with it, to check what the schemes say of their cost.
#pragma once

#include <cmath>
#include <limits>

#include "schemes/operation_counts.h"

struct CountingFloat {
    double Value;

    CountingFloat() = default;
    CountingFloat(double value) : Value(value) {}  // as plain floats convert

    // Since the program began; a test takes differences.
    static CellCost& Counted() {
        static CellCost counted = {};
        return counted;
    }
};

inline CountingFloat operator+(CountingFloat a, CountingFloat b) {
    ++CountingFloat::Counted().Adds;
    return a.Value + b.Value;
}
inline CountingFloat operator-(CountingFloat a, CountingFloat b) {
    ++CountingFloat::Counted().Adds;
    return a.Value - b.Value;
}
inline CountingFloat operator*(CountingFloat a, CountingFloat b) {
    ++CountingFloat::Counted().Mults;
    return a.Value * b.Value;
}
inline CountingFloat operator/(CountingFloat a, CountingFloat b) {
    ++CountingFloat::Counted().Recips;
    return a.Value / b.Value;
}
inline CountingFloat operator-(CountingFloat a) {
    return -a.Value;
}
inline bool operator<(CountingFloat a, CountingFloat b) {
    return a.Value < b.Value;
}
inline bool operator>(CountingFloat a, CountingFloat b) {
    return a.Value > b.Value;
}
inline bool operator<=(CountingFloat a, CountingFloat b) {
    return a.Value <= b.Value;
}
inline bool operator>=(CountingFloat a, CountingFloat b) {
    return a.Value >= b.Value;
}
inline bool operator==(CountingFloat a, CountingFloat b) {
    return a.Value == b.Value;
}

inline CountingFloat Choose(bool condition, CountingFloat a, CountingFloat b) {
    ++CountingFloat::Counted().Selects;
    return condition ? a : b;
}
inline CountingFloat Least(CountingFloat a, CountingFloat b) {
    return Choose(a < b, a, b);
}
inline CountingFloat Most(CountingFloat a, CountingFloat b) {
    return Choose(a > b, a, b);
}
inline CountingFloat Size(CountingFloat a) {
    return std::abs(a.Value);
}
inline CountingFloat Root(CountingFloat a) {
    ++CountingFloat::Counted().Roots;
    return std::sqrt(a.Value);
}
inline CountingFloat Signed(CountingFloat a, CountingFloat b) {
    return std::copysign(a.Value, b.Value);
}
inline CountingFloat Along(CountingFloat a, CountingFloat b) {
    return std::signbit(b.Value) ? -a.Value : a.Value;
}

template <>
struct std::numeric_limits<CountingFloat> : std::numeric_limits<double> {
    static CountingFloat max() { return std::numeric_limits<double>::max(); }
};

// From stored values to gray levels.
#pragma once

#include <algorithm>
#include <cmath>

// A value v has the raw level (v - Lo) * Scale, from 0 to 245, and is shown LevelLift above that.
struct GrayScale {
    double Lo = 0.0;
    double Scale = 0.0;

    bool operator==(const GrayScale&) const = default;
};

constexpr double LevelLift = 5.0;

// Parts of a pixel and weights up to this are rounding errors of repeated addition and are ignored.
constexpr double Negligible = 1e-05;

// The scale for values from Lo to Hi. If both are equal, a small margin above them keeps the scale
// finite.
inline GrayScale FindGrayScale(double Lo, double Hi) {
    const double margin = std::abs(Lo) * 1e-08 + 1e-10;
    const double top = Hi == Lo ? Lo + margin : std::max(Hi, Lo * 1.00000001 + 1e-10);
    return {Lo, 245.0 / (top - Lo)};
}

// The nearest integer, ties to even, for magnitudes far below 2^51: the sum has no bits left for a
// fraction. Unlike a call of the library this becomes two vector instructions.
inline double RoundHalfEven(double value) {
    constexpr double shift = 6755399441055744.0;  // 1.5 * 2^52
    return (value + shift) - shift;
}

// The value clamped to two bounds; the lower one for a NaN, which std::clamp would return.
inline double Clamped(double value, double lowest, double highest) {
    const double raised = value > lowest ? value : lowest;
    return raised < highest ? raised : highest;
}

// The raw level of a finite value. Between the extremes of its table none leaves 0..245 by more
// than a rounding error.
inline double FiniteRawLevel(float value, const GrayScale& gray) {
    return (static_cast<double>(value) - gray.Lo) * gray.Scale;
}

// The raw level of any stored value. Only values that are not finite are clamped.
inline double RawLevel(float value, const GrayScale& gray) {
    return Clamped(FiniteRawLevel(value, gray), 0.0, 245.25);
}

// From stored values to gray levels.
#pragma once

#include <algorithm>
#include <cmath>

// A value v has the raw level (v - Lo) * Scale, from 0 to 245, and is shown five levels above that.
struct GrayScale {
    double Lo = 0.0;
    double Scale = 0.0;

    bool operator==(const GrayScale&) const = default;
};

constexpr double LevelLift = 5.0;

// Parts of a pixel or weights up to this are the dust of repeated additions and touch nothing.
constexpr double Dust = 1e-05;

// The scale for values from Lo to Hi. Values that are all alike get a small margin above them, so
// that the scale stays finite.
inline GrayScale FindGrayScale(double Lo, double Hi) {
    const double margin = std::abs(Lo) * 1e-08 + 1e-10;
    const double top = Hi == Lo ? Lo + margin : std::max(Hi, Lo * 1.00000001 + 1e-10);
    return {Lo, 245.0 / (top - Lo)};
}

// The nearest whole number, ties to even, for sizes far below 2^51. The sum has no digit left
// behind the point; unlike a call of the library this turns into two vector instructions.
inline double NearestWhole(double value) {
    constexpr double shift = 6755399441055744.0;  // 1.5 * 2^52
    return (value + shift) - shift;
}

// The value held between two bounds, the lower one for a NaN.
inline double Held(double value, double lowest, double highest) {
    const double raised = value > lowest ? value : lowest;
    return raised < highest ? raised : highest;
}

// The raw level of a finite value: between the extremes of its table none leaves 0..245 by more
// than a rounding.
inline double FiniteRawLevel(float value, const GrayScale& gray) {
    return (static_cast<double>(value) - gray.Lo) * gray.Scale;
}

// The raw level of any stored value. The bounds hold back only what is not finite.
inline double RawLevel(float value, const GrayScale& gray) {
    return Held(FiniteRawLevel(value, gray), 0.0, 245.25);
}

// The axes of the three line plots, which follow the data outward by five per cent.
#pragma once

struct ExperimentState;

// The share of its span, or of the value itself, by which an axis reaches past the data.
constexpr double AxisMargin = 0.05;

// The margin around the single value v of an axis. In a fast flow of very cold gas the share of the
// sound speed would be lost in the rounding of the velocity, and the axis would have no length.
double VisibleMargin(double margin, double v);

// Moves a bound of lo..hi to v if v lies past it, without a margin.
void TakeIntoRange(double v, double& lo, double& hi);

// Widens one variable's axis to take in the value v.
//   v            the value, in the units of the axis
//   lo, hi       the axis, lo <= hi; may come back equal only if v equals both
//   clampAtZero  true for density and pressure: lo stops at 0
// A value on or past a bound moves that bound out by 5 per cent of its distance from the other one.
// hi is tried first, and lo then measures from the new hi. If lo == v == hi both stay exactly as
// they are: no rounding opens the range.
void GrowAxisRange(double v, double& lo, double& hi, bool clampAtZero);

// Rebuilds RhoMin to VXMax from cells 0..N+1. A uniform field gets 5 per cent of its value to
// either side; a uniform velocity gets 5 per cent of the sound speed of cell 1.
void ResetAxisRanges(ExperimentState& state);

// Widens RhoMin to VXMax over cells 1..N; they never shrink.
void SweepAxisRanges(ExperimentState& state);

// The numbers that kernels hold values against.
#include "schemes/arithmetic.h"

template <typename Float>
const Float Bound<Float>::Zero = Float(0);
template <typename Float>
const Float Bound<Float>::One = Float(1);
template <typename Float>
const Float Bound<Float>::Tiny = Float(1e-30);
template <typename Float>
const Float Bound<Float>::LargestFinite = std::numeric_limits<Float>::max();

template struct Bound<float>;
template struct Bound<double>;

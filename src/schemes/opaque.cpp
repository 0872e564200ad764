// In a file of its own, so that the kernels' compiler cannot know the values.
#include "schemes/arithmetic.h"

const float OpaqueOneSingle = 1.0F;
const double OpaqueOneDouble = 1.0;

// The two places of the space-time picture on the panel, in twips.
#pragma once

#include <QRect>

constexpr QRect SmallSpaceTime(7920, 6240, 6800, 2895);
constexpr QRect BigSpaceTime(120, 2520, 14600, 6615);

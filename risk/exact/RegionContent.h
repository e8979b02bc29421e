// The content of a region of subject parameters that a measurement accepts or rejects.
#pragma once

#include "risk/exact/BiasShape.h"
#include "risk/exact/BoundedFigure.h"

namespace metrisk {

/// Where a walk through a region begins and which way it goes.
struct RegionWalk {
    double startU;
    int direction; // 1 towards larger u, -1 towards smaller
    double length; // in u, may be infinite
};

/// Beyond which a measurement no longer counts, on the scale of x: seen from the walk, `near` lies behind all
/// that counts and `far`, which may be infinite, before it.
struct MeasuredWithin {
    double near;
    double far;
};

/// The integral, along the walk, of the density times the probability of such a measurement. A walk best
/// starts where that is largest: it ends where what remains counts no more, which is told in the bound.
BoundedFigure regionContent(const BiasShape& shape, const RegionWalk& walk, const MeasuredWithin& edges);

} // namespace metrisk

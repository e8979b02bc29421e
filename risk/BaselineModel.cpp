#include "risk/BaselineModel.h"

#include "base/Real.h"
#include "numerics/AcceptanceIntegral.h"
#include "numerics/mathlib/InvNorm.h"
#include "numerics/mathlib/Normal.h"

#include <cmath>

namespace metrisk {

namespace {

/// Not 0: a content too small for the arithmetic is none.
double twoSidedLimit(double content) {
    const double z = isProbability(content) ? InvNorm((content + 1) / 2) : 0;
    if (!(z > 0)) throw RuntimeFault(FaultKind::Argument, "BaselineModel", content);
    return z;
}

} // namespace

BaselineModel::BaselineModel(double subjectInTol, double measuringInTol)
    : zSubject_(twoSidedLimit(subjectInTol)), zMeasuring_(twoSidedLimit(measuringInTol)),
      inTolerance_(2 * Normal(zSubject_) - 1) {}

Probabilities BaselineModel::at(double ratio) const {
    return {joint(ratio), accepted(ratio), inTolerance_};
}

double BaselineModel::joint(double ratio) const {
    return std::fabs(BaselineJointProbability(ratio, zSubject_, zMeasuring_));
}

double BaselineModel::accepted(double ratio) const {
    const double spread = std::hypot(zSubject_ / zMeasuring_, ratio);
    return 2 * Normal(checked(zSubject_ * ratio / spread)) - 1;
}

} // namespace metrisk

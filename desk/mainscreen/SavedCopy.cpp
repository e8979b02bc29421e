#include "desk/mainscreen/SavedCopy.h"

#include "base/SameNumber.h"

namespace metrisk {

bool SavedCopy::differs(const Analysis& r) const {
    return fields_.differ(r) || !sameDerived(uncertainty_, r.MTE_StdUncertainty);
}

} // namespace metrisk

#include "risk/PublishRisks.h"

#include "base/DisplayRule.h"
#include "record/Analysis.h"

namespace metrisk {

void publishRisks(Analysis& record, double falseAccept, double falseReject) {
    const ShownRisk accept = shownRisk(falseAccept);
    record.FalseAcceptRisk = accept.value;
    record.FalseAcceptUnits = accept.units;
    record.FalseAccept_fmt = riskPicture(accept.units);
    const ShownRisk reject = shownRisk(falseReject);
    record.FalseRejectRisk = reject.value;
    record.FalseRejectUnits = reject.units;
    record.FalseReject_fmt = riskPicture(reject.units);
}

} // namespace metrisk

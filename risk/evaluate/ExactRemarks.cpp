#include "risk/evaluate/ExactRemarks.h"

#include "base/NumberText.h"
#include "base/RelativeUnits.h"
#include "base/RiskText.h"
#include "record/Analysis.h"
#include "risk/evaluate/CurrentFigures.h"
#include "risk/exact/ExactRatio.h"
#include "risk/exact/Verified.h"

namespace metrisk {

namespace {

constexpr const char* ratioPicture = "#,##0.00";

std::string baselineShown(std::string_view units) {
    return units == ppmUnits ? "##0.0" : "##0.0000";
}

} // namespace

bool everComputed(const Analysis& r) {
    return r.Last_PctInTol != 0 || r.FalseAcceptRisk != 0 || r.FalseRejectRisk != 0;
}

std::string ratioText(const Analysis& r, const Regional& regional) {
    const bool searched = r.EqAccRat != 0 || (everComputed(r) && r.ComputeEqRatio && !r.EqAccRatDen.empty());
    return searched ? FormatNumber(r.EqAccRat, ratioPicture, regional) : "";
}

ExactRemarks exactRemarksOf(const Analysis& r, const Regional& regional) {
    Verified verified = verifyRisks(r);
    if (!everComputed(r) || !risksAreCurrent(r)) verified.falseAccept = verified.falseReject = {};
    ExactRemarks remarks;
    remarks.falseAccept = exactRemark(verified.falseAccept, riskPicture, regional);
    remarks.falseReject = exactRemark(verified.falseReject, riskPicture, regional);
    if (ratioIsCurrent(r) && verified.falseReject)
        remarks.ratio =
            exactRatioRemark(r.EqAccRat, ratioText(r, regional), exactRatio(r, verified), regional);
    remarks.baselineFalseAccept = exactRemark(verified.baselineFalseAccept, baselineShown, regional);
    remarks.baselineFalseReject = exactRemark(verified.baselineFalseReject, baselineShown, regional);
    return remarks;
}

} // namespace metrisk

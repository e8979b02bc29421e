// Record groups of what a compute gives and what its next press is compared with.
#pragma once

#include "base/Flag.h"

#include <string>

namespace metrisk {

struct RiskResults {
    double FalseAcceptRisk = 0;         // shown value, in FalseAcceptUnits
    std::string FalseAcceptUnits = "%"; // "%" or "ppm"
    std::string FalseAccept_fmt = "##0.00";
    double FalseRejectRisk = 0;
    std::string FalseRejectUnits = "%";
    std::string FalseReject_fmt = "##0.00";
    double EqAccRat = 0; // left figure of the ratio, 0 when not computed
    std::string EqAccRatDen = "1.00";
    int FalseAcceptOption = 0;        // 0 Consumer, 1 Producer
    std::string UserOption = "User";  // "User" or "Z540"
    Flag EqRatioOnFalseAccept = true; // search on false accept risk, else on false reject risk
    Flag ComputeEqRatio = true;
    Flag BeepWhenFinished;
};

/// The reference case that the risks are judged against. New values come from the settings.
struct Baseline {
    double Base_AccRatNum = 4;
    double Base_AccRatDen = 1;
    double Base_MTEPctInTol = 85;
    double Base_SUPctInTol = 72;
    double Base_EqRatioTarget = 4; // Base_AccRatNum / Base_AccRatDen
    double Base_FalseAccept = 4.1;
    std::string Base_AcceptUnits = "%";
    std::string Base_Accept_fmt = "##0.0000";
    double Base_FalseReject = 3.75;
    std::string Base_RejectUnits = "%";
    std::string Base_Reject_fmt = "##0.0000";
};

/// The inputs of the last compute.
struct Snapshot {
    double Last_Mode = 0;
    double Last_UpperLimit = 0;
    double Last_LowerLimit = 0;
    double Last_PctInTol = 0;
    double Last_PhysicalLimit = 0;
    double Last_MTEMode = 0;
    double Last_MTEUpperLimit = 0;
    double Last_MTELowerLimit = 0;
    double Last_MTEPctInTol = 0;
    double Last_MTESigma = 0;
    Flag Last_IncludeUncertainty;
    double Last_MTEDegFreedom = 0;
    double Last_MTEStdUncertainty = 0;
    Flag Last_OptTwoSided;
    Flag Last_OptSingleUpper;
    Flag Last_OptSingleLower;
    Flag Last_PhysLimitRequired;
    Flag Last_IncludeGuardbands;
    double Last_GBUpper = 0;
    double Last_GBLower = 0;
    int Last_Base1 = 0; // baseline figures cut to whole numbers
    int Last_Base2 = 0;
    int Last_Base3 = 0;
    int Last_Base4 = 0;
};

} // namespace metrisk

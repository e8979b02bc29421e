#include "risk/EquivalentRatio.h"

#include "model/Session.h"
#include "model/SubjectSide.h"
#include "numerics/FaultMessages.h"
#include "risk/BaselineRisks.h"
#include "risk/ComputingScreen.h"
#include "risk/RiskMessages.h"

#include <cmath>
#include <numbers>
#include <string>

namespace metrisk {

namespace {

constexpr const char* solvingText = "Solving for Equivalent Accuracy Ratio";

constexpr int maxPasses = 10000;
constexpr double ceiling = 1000000;
constexpr double toleranceDivisor = 5000;
constexpr double minStepDivisor = 20000;
constexpr double growth = 1.5;

int signOf(double x) {
    return x > 0 ? 1 : x < 0 ? -1 : 0;
}

/// The tolerances themselves give the ratio when the analysis is its own baseline.
bool isOwnBaseline(const Analysis& r) {
    return r.GB_UpperMult == 1 && r.GB_LowerMult == 1 &&
           (r.ProcessUncertainty == 0 || !r.IncludeUncertainty) && r.SU_PctInTol == r.Base_SUPctInTol &&
           r.MTE_PctInTol == r.Base_MTEPctInTol && r.SU_CaseCode == 6 && !r.MTEPlot_IncludeUncertainty;
}

class RatioSearch {
  public:
    RatioSearch(Session& session, ComputingScreen& screen, const Risks& targets)
        : session_(session), r_(session.record), screen_(screen),
          model_(r_.Base_SUPctInTol / 100, r_.Base_MTEPctInTol / 100) {
        if (r_.SU_CaseCode == 9) r_.EqRatioOnFalseAccept = false;
        target_ = r_.EqRatioOnFalseAccept ? targets.falseAccept : targets.falseReject;
    }

    /// False when the step became too small.
    bool run(double& ratio) {
        const double tolerance = target_ / toleranceDivisor;
        ratio = checked(ratioTolerance(r_) / r_.MTE_Offset);
        int direction = 1;
        double step = ratio / 2;
        const double minStep = step / minStepDivisor;
        const double floor = std::exp(-30 * model_.inTolerance());
        int good = 0;
        int count = 0;
        double error = errorAt(ratio);
        ShowSearchProgress(session_, screen_, {solvingText, 0, ratio, error, tolerance});
        while (std::fabs(error) > tolerance && count < maxPasses && !r_.AbortFlag) {
            if (step < minStep) return false;
            ++count;
            ratio += step * direction;
            if (ratio > ceiling) ratio = ceiling;
            if (ratio < floor) ratio = floor;
            const double oldSize = std::fabs(error);
            const int oldSign = signOf(error);
            error = errorAt(ratio);
            ShowSearchProgress(session_, screen_, {solvingText, count, ratio, error, tolerance});
            const int sign = signOf(error);
            const double size = std::fabs(error);
            if (sign == oldSign && size < oldSize) {
                if (++good > 3) step *= growth;
            } else if ((sign == oldSign && size > oldSize) || (sign != 0 && sign == -oldSign)) {
                direction = -direction;
                good = 0;
                step /= std::sqrt(std::numbers::pi);
            }
        }
        return true;
    }

  private:
    double errorAt(double ratio) const {
        const Probabilities p = model_.at(ratio);
        const double risk =
            r_.EqRatioOnFalseAccept ? falseAcceptOf(p, r_.FalseAcceptOption) : falseRejectOf(p);
        return checked(risk - target_);
    }

    Session& session_;
    Analysis& r_;
    ComputingScreen& screen_;
    BaselineModel model_;
    double target_ = 0;
};

} // namespace

bool ratioAttained(double ratio) {
    return ratio >= 0.01 && ratio <= 10000;
}

double ratioTolerance(const Analysis& r) {
    if (r.OptTwoSided) return (r.SU_LowerOffset + r.SU_UpperOffset) / 2;
    return r.*presentSide(r).offset;
}

void ShowSearchProgress(Session& session, ComputingScreen& screen, const SearchProgress& progress) {
    screen.setProgress(progress);
    session.ui.refresh(screen);
    session.ui.yield();
}

bool SolveEquivalentRatio(Session& session, ComputingScreen& screen, const Risks& targets, double& ratio) {
    Analysis& r = session.record;
    try {
        if (!(r.MTE_Offset > 0)) return true;
        if (isOwnBaseline(r)) {
            ratio = checked(r.SU_UpperOffset / r.MTE_Offset);
            return true;
        }
        screen.startSearch(solvingText);
        session.ui.refresh(screen);
        return RatioSearch(session, screen, targets).run(ratio);
    } catch (const RuntimeFault& fault) {
        r.AbortFlag = true;
        tell(session.ui, fault.kind == FaultKind::Argument ? baselineUnrealistic : integrationFault);
        return true;
    }
}

} // namespace metrisk

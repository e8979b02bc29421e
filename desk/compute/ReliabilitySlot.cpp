#include "desk/compute/ReliabilitySlot.h"

#include "base/DecimalForm.h"
#include "desk/compute/Reliability.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "reliability/TimeUnits.h"

namespace metrisk {

namespace {

constexpr Message noPercentage{"The reliability must be greater than 0 and less than or equal to 100%.",
                               "Illegal In-Tolerance Probability"};
constexpr Message notCertain{"The reliability must be greater than 0 and less than 100%.",
                             noPercentage.title};
constexpr const char* computedPicture = "##0.0000"; // of a percentage that nobody typed
constexpr const char* userPicture = "#,##0.0000";

struct Chosen {
    double reliability; // a fraction
    std::string picture;
};

/// What the bias option asks for; none if the user has been told why there is none.
std::optional<Chosen> chosenReliability(Session& session, int number) {
    Analysis& r = session.record;
    ReliabilitySlot slot(r, number);
    const auto i = static_cast<std::size_t>(number);
    const std::string& option = r.Rel_BiasOption[i];
    const Chosen eop{slot.eop(), slot.eopPicture()};
    const Chosen aop{slot.aop(), slot.aopPicture()};
    if (option == "EOP") return eop;
    if (option == "AOP") return aop;
    if (option != "User") return number == subjectSlot ? eop : aop;
    if (r.Rel_UserTime[i] == 0) return Chosen{slot.bop(), slot.bopPicture()};
    const ReliabilityModel* model = slot.model();
    if (!model || slot.theta().allZero()) return Chosen{0, ""};
    const double time = convertedTime(r.Rel_UserTime[i], r.Rel_UserTimeUnits[i], slot.units());
    const auto found = ReliabilityAt(session, model->number, slot.theta(), time);
    if (!found) return std::nullopt;
    return Chosen{*found, userPicture};
}

} // namespace

void ReliabilitySlot::setModel(const ReliabilityModel& model) {
    r_.Rel_Model[slot_] = model.name;
    r_.Rel_ModelIndex[slot_] = model.number;
}

Coefficients ReliabilitySlot::theta() const {
    return {r_.Rel_Theta[1][slot_], r_.Rel_Theta[2][slot_], r_.Rel_Theta[3][slot_]};
}

void ReliabilitySlot::setTheta(const Coefficients& theta) {
    r_.Rel_Theta[1][slot_] = theta.a;
    r_.Rel_Theta[2][slot_] = theta.b;
    r_.Rel_Theta[3][slot_] = theta.c;
}

void ReliabilitySlot::setPeriod(const PeriodReliability& period) {
    const auto take = [](double& held, std::string& picture, double value) {
        if (held == value) return;
        held = value;
        picture.clear(); // it was that of the digits typed
    };
    take(bop(), bopPicture(), period.bop);
    take(aop(), aopPicture(), period.aop);
    take(eop(), eopPicture(), period.eop);
}

bool ReliabilitySlot::dataComplete() const {
    const ReliabilityModel* chosen = model();
    const auto [bop, aop, eop] = period();
    return chosen && r_.Rel_Interval[slot_] > 0 && (bop > 0 || !chosen->takesBOP) && eop >= 0 &&
           (aop > 0 || !chosen->needsAOP);
}

bool ReliabilitySlot::questionable() const {
    const ReliabilityModel* chosen = model();
    return chosen && !theta().allZero() &&
           !solutionAgrees(chosen->number, theta(), r_.Rel_Interval[slot_], period());
}

bool CommitReliability(Session& session, int slot) {
    Analysis& r = session.record;
    const bool subject = slot == subjectSlot;
    const std::optional<Chosen> chosen = chosenReliability(session, slot);
    r.AbortFlag = false;
    if (!chosen) return false;
    if (chosen->reliability == 0) return true;
    const double pct = DecimalForm::of(100 * chosen->reliability).value();
    const bool below100 = !subject && !r.MTE_EntryByUncertainty;
    if (!(pct > 0) || (below100 ? pct >= 100 : pct > 100)) {
        tell(session.ui, below100 ? notCertain : noPercentage);
        return false;
    }
    double& held = subject ? r.SU_PctInTol : r.MTE_PctInTol;
    if (held == pct) return true;
    const Analysis before = r;
    held = pct;
    (subject ? r.SU_PctInTol_fmt : r.MTE_PctInTol_fmt) =
        chosen->picture.empty() ? computedPicture : chosen->picture;
    r.markChanged(subject ? "SU" : "MTE");
    const bool entered = subject ? r.SU_UpperOffset != 0 || r.SU_LowerOffset != 0 : r.MTE_Offset > 0;
    if (entered) ValidateAndFit(session);
    if (r.AbortFlag) {
        r = before;
        r.AbortFlag = false;
        return false;
    }
    return true;
}

} // namespace metrisk

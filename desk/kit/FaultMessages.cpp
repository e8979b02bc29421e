#include "desk/kit/FaultMessages.h"

#include "base/NumberText.h"

namespace metrisk {

namespace {

constexpr Message badBeta{"Bad argument in the incomplete beta function (BetaI).", "Bad Ju-Ju"};
constexpr Message badGamma{"Error in Incomplete Gamma Function Argument", "Illegal Math Operation"};
constexpr Message driftFault{"A fatal math error occurred during function integration.  "
                             "Please try a different set of inputs.",
                             integrationFault.title};
constexpr Message reliabilityFault{
    "A fatal error has occurred in computing the selected reliability function.  "
    "Please try again with different input parameters.",
    "Reliability Function Error"};
// The two differ by a letter, each in its place.
constexpr Message solutionFault{
    "A fatal math error ocurred while solving for reliability model coefficients.  "
    "Please try another combination of inputs.",
    reliabilityFault.title};
constexpr Message integrandFault{
    "A fatal math error occurred while solving for reliability model coefficients.  "
    "Please try another combination of inputs.",
    reliabilityFault.title};

} // namespace

const Message* messageOf(const RuntimeFault& fault) {
    if (fault.routine == "IntegrateAcceptance" || fault.routine == "BaselineJointProbability")
        return &integrationFault;
    if (fault.routine == "IntegrateDriftFunction") return &driftFault;
    if (fault.routine == "BetaI") return &badBeta;
    if (fault.routine == "LowerGammaSeries" && fault.kind == FaultKind::Argument) return &badGamma;
    if (fault.routine == "ReliabilityAt" || fault.routine == "ReliabilityOverPeriod")
        return &reliabilityFault;
    if (fault.routine == "SolveReliabilityCoefficients") return &solutionFault;
    if (fault.routine == "ReliabilityIntegrand") return &integrandFault;
    return nullptr;
}

std::string describe(const RuntimeFault& fault) {
    std::string routine = fault.routine.empty() ? "" : std::string(fault.routine) + ": ";
    switch (fault.kind) {
    case FaultKind::NotFinite: return routine + "a result that is no finite number";
    case FaultKind::Argument: return routine + "no answer for the argument " + GeneralText(fault.number, {});
    case FaultKind::Endless: return routine + "no end within its count of steps";
    }
    return routine;
}

void tellFault(Talk& ui, const RuntimeFault& fault) {
    if (const Message* message = messageOf(fault)) tell(ui, *message);
}

} // namespace metrisk

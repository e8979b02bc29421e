#include "risk/RiskModel.h"
#include "risk/FittedSubject.h"
#include "risk/SubjectFit.h"
#include "risk/exact/ExactRisks.h"
#include "tests/support/Cases.h"

#include <gtest/gtest.h>

#include <cmath>

namespace metrisk::testing {
namespace {

/// What the probabilities of a test follow from, in some unit of measurement.
struct Fitted {
    SubjectBias subject;
    double mteSigma;
    AcceptanceRange range;

    Fitted(Entry entry, double unit, double shift = 0) : mteSigma(0.11 * unit) {
        for (double* v :
             {&entry.mode, &entry.upperOffset, &entry.lowerOffset, &entry.mteOffset, &entry.physicalLimit})
            *v *= unit;
        entry.mode += shift;
        Analysis r;
        enter(r, entry);
        subject = subjectBiasOf(fitSubject(r, {}));
        range = {-0.9 * r.SU_LowerOffset, 0.9 * r.SU_UpperOffset};
    }
    Probabilities probabilities() const { return RiskModel(subject, mteSigma).at(range).value(); }
    ExactRisks exact() const { return exactRisks(subject, mteSigma, range).value(); }
};

void expectSame(const Fitted& a, const Fitted& b) {
    EXPECT_EQ(a.probabilities().joint, b.probabilities().joint);
    EXPECT_EQ(a.probabilities().accepted, b.probabilities().accepted);
    EXPECT_EQ(a.probabilities().inTolerance, b.probabilities().inTolerance);
    EXPECT_EQ(a.exact().acceptedBad.value, b.exact().acceptedBad.value);
    EXPECT_EQ(a.exact().rejectedGood.value, b.exact().rejectedGood.value);
}

TEST(RiskModel, AUnitOfMeasurementByPowersOfTwoChangesNoBit) {
    const Entry kinds[] = {twoSided(0.5, 0.5, 95),
                           single(Kind::SingleUpper, 95),
                           single(Kind::SingleLower, 80),
                           twoSided(1, 0.5, 90),
                           withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 9.25, 95),
                           withPhysicalLimit(Kind::SingleLower, 10, 0.5, 10.75, 95),
                           withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 10, 95),
                           twoSided(0.5, 0.5, 100)};
    for (const Entry& entry : kinds)
        for (const int power : {-30, -1, 13, 50}) {
            SCOPED_TRACE(power);
            if (entry.pctInTol == 100) { // its density bears the unit, by a product that rounds
                const double at1 = Fitted(entry, 1).probabilities().joint;
                EXPECT_NEAR(Fitted(entry, std::exp2(power)).probabilities().joint / at1, 1, 1e-15);
            } else {
                expectSame(Fitted(entry, std::exp2(power)), Fitted(entry, 1));
            }
        }
}

TEST(RiskModel, AShiftOfTheModeChangesNoBitOfANormalOrUniformTest) {
    for (const Entry& entry :
         {twoSided(0.5, 0.5, 95), single(Kind::SingleUpper, 90), twoSided(0.5, 0.5, 100)})
        for (const double shift : {-1e6, 0.3, 12345.678})
            expectSame(Fitted(entry, 1, shift), Fitted(entry, 1));
}

} // namespace
} // namespace metrisk::testing

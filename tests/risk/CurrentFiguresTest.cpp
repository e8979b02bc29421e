// Which figures belong to the present entries, and what a file may carry of the others.
#include "risk/evaluate/CurrentFigures.h"
#include "desk/compute/ComputeGuardbands.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/ObservedPct.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/AnalysisFile.h"
#include "desk/files/OpenAnalysis.h"
#include "tests/support/Cases.h"
#include "tests/support/SilentSession.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>

namespace metrisk::testing {
namespace {

/// Computed with guardbands and a baseline that has a fraction; the observed share is that of the entries.
struct Computed : SilentSession {
    Analysis& r = session.record;

    Computed() {
        enter(r, {});
        r.IncludeGuardbands = true;
        r.GB_UpperMult = r.GB_LowerMult = 0.9;
        r.GB_IncludeEqAccRat = true;
        r.Base_SUPctInTol = 72.5;
        ComputeResults_Click(session);
        EXPECT_TRUE(ObservedFromTrue(session, GuardbandUse::Use, "95"));
        r.Obs_TruePct = r.SU_PctInTol;
        r.Obs_ObservingUnitOption = 1;
    }
    std::string flags() const {
        const CurrentFigures c = currentFigures(session.record, session.regional);
        std::string text;
        for (const auto& [flag, name] : {std::pair{c.risks, "risks "},
                                         {c.ratio, "ratio "},
                                         {c.noSuchRatio, "none "},
                                         {c.guardbands, "guardbands "},
                                         {c.guardbandRatio, "its-ratio "},
                                         {c.observed, "observed "}})
            if (flag) text += name;
        return text;
    }
};

TEST(CurrentFigures, FollowTheEntries) {
    struct Row {
        const char* what;
        std::function<void(Analysis&)> change;
        const char* current;
    };
    const Row rows[] = {
        {"nothing", [](Analysis&) {}, "risks ratio guardbands its-ratio observed "},
        {"mode", [](Analysis& r) { r.SU_Mode += 1e-9; }, "guardbands its-ratio observed "},
        {"tolerance", [](Analysis& r) { r.SU_UpperOffset = 0.6, r.SU_UpperLimit = 10.6; }, ""},
        {"% in-tolerance", [](Analysis& r) { r.SU_PctInTol = 94; }, ""},
        {"multiplier", [](Analysis& r) { r.GB_UpperMult = 0.89; }, ""},
        {"typed target", [](Analysis& r) { r.GB_FARisk = 2; }, "risks ratio observed "},
        {"convention", [](Analysis& r) { r.FalseAcceptOption = 1, r.RisksNeedCompute = true; }, "observed "},
        {"baseline", [](Analysis& r) { r.Base_MTEPctInTol = 90; }, "risks guardbands observed "},
        {"no search", [](Analysis& r) { r.ComputeEqRatio = false; }, "risks guardbands its-ratio observed "},
        {"search in vain", [](Analysis& r) { r.EqAccRat = 0; },
         "risks ratio none guardbands its-ratio observed "},
        {"true share", [](Analysis& r) { r.Obs_TruePct = 94; }, "risks ratio guardbands its-ratio "},
        {"observing unit",
         [](Analysis& r) { r.Obs_ObservingUnitOption = 0, r.Obs_AOP = 0.95, r.Obs_Offset = 0.2; },
         "risks ratio guardbands its-ratio "},
        {"the same unit",
         [](Analysis& r) { r.Obs_ObservingUnitOption = 0, r.Obs_AOP = 0.95, r.Obs_Offset = 0.125; },
         "risks ratio guardbands its-ratio observed "},
        {"figures of an unknown origin", [](Analysis& r) { static_cast<Snapshot&>(r) = {}; },
         "guardbands observed "},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Computed computed;
        row.change(computed.r);
        EXPECT_EQ(computed.flags(), row.current);
    }
}

TEST(CurrentFigures, AFileCarriesNoStaleOnes) {
    const TemporaryFolder folder;
    const auto saved = [&](const std::function<void(Analysis&)>& change) {
        Computed before;
        change(before.r);
        dropStaleFigures(before.session.record, before.session.regional);
        SilentSession after;
        OpenAnalysis(after.session, folder.write("saved.mrk", AnalysisText(before.r)).string());
        EXPECT_FALSE(after.session.record.AbortFlag);
        const CurrentFigures current = currentFigures(after.session.record, after.session.regional);
        return std::tuple(bool(current.risks), bool(current.guardbands), after.session.record.GB_FARisk != 0);
    };
    EXPECT_EQ(saved([](Analysis&) {}), std::tuple(true, true, true));
    EXPECT_EQ(saved([](Analysis& r) { r.GB_FRRisk = 1; }), std::tuple(true, false, false));
    EXPECT_EQ(saved([](Analysis& r) { r.FalseAcceptOption = 1, r.RisksNeedCompute = true; }),
              std::tuple(false, false, false));
}

/// What is derived is rounded by the file, in any unit.
TEST(CurrentFigures, StandInUnitsOfAnySize) {
    const TemporaryFolder folder;
    for (const double unit : {1e-12, 1e-3, 1 / 25.4, 1e3, 1e9}) {
        for (int i = 0; i < 20; ++i) {
            SilentSession before;
            enter(before.session.record, {.mode = 100 * unit,
                                          .upperOffset = unit,
                                          .lowerOffset = unit,
                                          .pctInTol = 90,
                                          .mteOffset = unit * (0.25 + 0.0137 * i),
                                          .mtePctInTol = 90});
            ComputeResults_Click(before.session);
            ASSERT_TRUE(risksAreCurrent(before.session.record));
            SilentSession after;
            OpenAnalysis(after.session,
                         folder.write("saved.mrk", AnalysisText(before.session.record)).string());
            EXPECT_TRUE(risksAreCurrent(after.session.record)) << "unit " << unit << ", row " << i;
            after.session.record.MTE_StdUncertainty *= 1 + 1e-11;
            EXPECT_FALSE(risksAreCurrent(after.session.record)) << "unit " << unit << ", row " << i;
        }
    }
}

} // namespace
} // namespace metrisk::testing

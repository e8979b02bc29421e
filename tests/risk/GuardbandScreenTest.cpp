// The guardband worksheet, its k-factors and texts.
#include "desk/guardband/GuardbandScreen.h"
#include "base/NumberText.h"
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/ComputeSteps.h"
#include "desk/compute/KFactors.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/AnalysisFile.h"
#include "record/SubjectSide.h"
#include "risk/FittedSubject.h"
#include "risk/Snapshot.h"
#include "risk/guardband/GuardbandTexts.h"
#include "tests/support/Cases.h"
#include "tests/support/Hand.h"
#include "tests/support/TestSession.h"

#include <gtest/gtest.h>

namespace metrisk::testing {
namespace {

struct Guardbands : TestSession {
    std::optional<GuardbandScreen> screen;

    explicit Guardbands(
        const Entry& entry = {}, void (*change)(Analysis&) = [](Analysis&) {}) {
        enter(record, entry);
        record.SU_Mode_fmt = "#,##0.0";
        record.SU_UpperOffset_fmt = record.SU_LowerOffset_fmt = "#,##0.00";
        record.NominalUnits = "V";
        record.SU_ToleranceUnits = "mV";
        record.SU_TolUnitsFactor = 1000;
        record.SU_TolDecimalShift = 3;
        ValidateAndFit(session);
        change(record);
        screen.emplace(session);
    }
    void press(const char* name) { testing::press(*screen, name); }
    FieldResult type(const char* name, const char* text) { return testing::type(*screen, name, text); }
    std::string text(const char* name) { return textOf(*screen, name); }
    std::string texts(std::initializer_list<const char*> names) {
        std::string all;
        for (const char* name : names) all += text(name) + (name == *(names.end() - 1) ? "" : " | ");
        return all;
    }
};

TEST(GuardbandScreen, OpensWithTheRecord) {
    Guardbands w;
    EXPECT_EQ(w.texts({"ModeBox", "UpperTolLimitBox", "LowerTolLimitBox"}), "10.0 V | 500 mV | -500 mV");
    EXPECT_EQ(w.texts({"UpperMultiplierBox", "txt_kFactor_0", "txt_kFactor_1"}), "1 | 0.0000 | ");
    EXPECT_EQ(w.texts({"Lbl_UpperTolerance", "Lbl_LowerGuardband"}), "Upper Tolerance: | Lower Guardband:");
    w.press("LimitsOptionButton");
    EXPECT_EQ(w.texts({"UpperTolLimitBox", "LowerTolLimitBox", "Lbl_UpperTolerance"}),
              "10.50 V | 9.50 V | Upper Tolerance:");
    w.press("OffsetsOptionButton");
    EXPECT_EQ(w.texts({"Lbl_UpperTolerance", "Lbl_LowerGuardband"}), "Upper Limit: | Lower Guardband Limit:");
    EXPECT_EQ(w.text("pnl_RiskKey"), "False Accept Risk - Consumer Option");
    w.press("opt_EqualizeRisks");
    EXPECT_EQ(w.text("pnl_RiskKey"), "Equalizing Risks");
    EXPECT_TRUE(w.record.GB_ScreenOpen);
    w.ui.expectBox("Changes Made", "Do you want to retain changes?", Answer::No, yesNoCancel);
    EXPECT_TRUE(w.screen->close(Way::Cancel));
    EXPECT_FALSE(w.record.GB_ShowLimits);
    EXPECT_EQ(w.record.GB_KeyOn, 0);
    w.screen.reset();
    EXPECT_FALSE(w.record.GB_ScreenOpen);

    Guardbands loaded({}, [](Analysis& r) { r.GB_ShowLimits = true; });
    EXPECT_EQ(loaded.text("Lbl_UpperTolerance"), "Upper Limit:") << "the words as they load";
    EXPECT_TRUE(loaded.screen->close(Way::Cancel)) << "nothing was changed, so nothing is asked";
}

TEST(GuardbandScreen, MultipliersAndKFactorsFollowEachOther) {
    Guardbands w;
    const double sigma = w.record.MTE_Sigma;
    w.type("UpperMultiplierBox", ".9");
    EXPECT_EQ(w.text("UpperMultiplierBox"), "0.9000");
    EXPECT_DOUBLE_EQ(w.record.GB_UpperK, 0.1 * 0.5 / sigma);
    EXPECT_EQ(w.text("UpperGuardbandBox"), "450.0 mV");
    EXPECT_EQ(w.record.GB_LowerMult, 1);
    w.press("SymmetryCheckBox");
    EXPECT_EQ(w.texts({"LowerMultiplierBox", "LowerGuardbandBox"}), "0.9000 | -450.0 mV");
    EXPECT_TRUE(w.screen->LowerMultiplierBox.locked);
    w.type("UpperMultiplierBox", "0.8");
    EXPECT_EQ(w.record.GB_LowerMult, 0.8);

    w.press("chk_SymmetricK");
    EXPECT_FALSE(w.screen->SymmetryCheckBox.checked);
    w.type("txt_kFactor_0", "1.5");
    EXPECT_EQ(w.texts({"txt_kFactor_0", "txt_kFactor_1"}), "1.5000 | 1.5000");
    EXPECT_DOUBLE_EQ(w.record.GB_UpperMult, 1 - sigma * 1.5 / 0.5);
    EXPECT_DOUBLE_EQ(w.record.GB_LowerMult, w.record.GB_UpperMult);
    w.ui.expectBox("Invalid k-Factor",
                   "Using 99 for the upper k-factor value sets the upper test limit below the mode value.");
    const FieldResult refused = w.type("txt_kFactor_0", "99");
    EXPECT_TRUE(refused.stay);
    EXPECT_EQ(refused.text, "1.5000");
    EXPECT_EQ(w.record.GB_UpperK, 1.5);
}

TEST(GuardbandScreen, ATextThatIsNoNumberIsRefused) {
    Guardbands w;
    w.type("UpperMultiplierBox", "0.9");
    for (const auto& [box, shown] :
         {std::pair{"UpperMultiplierBox", "0.9000"}, {"txt_kFactor_0", "0.78398559"}})
        for (const char* text : {"abc", "", "-"}) {
            const FieldResult refused = w.type(box, text);
            EXPECT_TRUE(refused.stay) << box << " " << text;
            EXPECT_EQ(refused.text, shown);
        }
    EXPECT_EQ(w.record.GB_UpperMult, 0.9);
}

TEST(GuardbandScreen, ASingleSideLeavesTheOtherBlank) {
    Guardbands w(single(Kind::SingleUpper, 95));
    EXPECT_EQ(w.texts({"LowerTolLimitBox", "LowerMultiplierBox", "txt_kFactor_1", "LowerGuardbandBox"}),
              " |  |  | ");
    EXPECT_FALSE(w.screen->LowerMultiplierBox.enabled);
    EXPECT_FALSE(w.screen->SymmetryCheckBox.enabled);
}

TEST(GuardbandScreen, ComputesRisksOnceForTheSameGuardbands) {
    Guardbands w;
    w.type("UpperMultiplierBox", "0.9");
    w.type("LowerMultiplierBox", "0.9");
    w.press("CmdCompute");
    Risks expected{};
    ASSERT_TRUE(risksAtLimits(w.session, true, expected));
    EXPECT_NEAR(w.record.GB_FARisk, expected.falseAccept * 100, 1e-12);
    EXPECT_EQ(w.record.GB_FARiskUnits, "%");
    EXPECT_EQ(w.text("FARiskBox"),
              FormatNumber(expected.falseAccept * 100, "#,##0.0000", w.session.regional));
    EXPECT_EQ(w.text("EqAccRatBox"), "");
    TakeSnapshot(w.record); // as after a compute of the main screen
    w.ui.expectBox("Compute Not Required", "No changes have been made to guardband limits.", note);
    w.press("CmdCompute");
    w.press("IncludeEqAccRatBox");
    w.press("CmdCompute");
    EXPECT_GT(w.record.GB_EqAccRat, 1);
    EXPECT_EQ(w.text("EqAccRat2Box"), "1");
    EXPECT_NEAR(w.record.GB_FARisk, expected.falseAccept * 100, 1e-12) << "the search borrows the field only";
    w.ui.expectBox("Compute Not Required", "No changes have been made to guardband limits.", note);
    w.press("CmdCompute");
    w.type("FARiskBox", "2");
    w.press("CmdCompute");
    EXPECT_NE(w.text("FARiskBox"), "2") << "a typed risk is no result";
}

TEST(GuardbandScreen, CrossedLimitsEmptyTheRisks) {
    Guardbands w;
    w.type("UpperMultiplierBox", "-1");
    w.type("LowerMultiplierBox", "-1");
    w.ui.expectBox("Compute Failed", "Unable to compute risks.  Guardband may be unrealistic.");
    w.press("CmdCompute");
    EXPECT_EQ(w.texts({"FARiskBox", "FRRiskBox"}), " | ");
    EXPECT_TRUE(w.record.GB_RisksStale);
}

TEST(GuardbandScreen, SolvesWhatTheOptionsSay) {
    Guardbands w;
    w.press("SymmetryCheckBox");
    w.type("FARiskBox", "0.5");
    w.press("cmdComputeGuardbands");
    Risks at{};
    ASSERT_TRUE(risksAtLimits(w.session, true, at));
    EXPECT_NEAR(at.falseAccept, 0.005, 1e-7);
    EXPECT_EQ(w.record.GB_LowerMult, w.record.GB_UpperMult);
    EXPECT_EQ(w.record.GB_UpperMult_fmt, "#,##0.00000000");
    EXPECT_FALSE(w.record.AbortFlag);

    w.press("opt_EqualizeRisks");
    w.press("cmdComputeGuardbands");
    ASSERT_TRUE(risksAtLimits(w.session, true, at));
    EXPECT_NEAR(at.falseAccept, at.falseReject, 1e-7);
    const double before = w.record.GB_UpperMult;
    w.press("opt_FRRisk");
    w.type("FRRiskBox", "0");
    w.press("cmdComputeGuardbands"); // ends without a word
    EXPECT_EQ(w.record.GB_UpperMult, before);

    w.press("SymmetryCheckBox");
    w.ui.expectBox("Guardband Calculation", "Only works for symmetric multipliers or k-Factors.");
    w.press("cmdComputeGuardbands");
    w.ui.expectBox("Guardband Plot Function", "Only works for symmetric multipliers or k-Factors.");
    w.press("CmdPlot");
    w.press("opt_EqualizeRisks");
    w.press("cmdComputeGuardbands");
    EXPECT_EQ(w.record.GB_UpperMult, 0) << "nothing to equalise by: both test limits on the mode";
    w.record.GB_UpperMult = w.record.GB_LowerMult = 1;
    w.press("chk_SymmetricK");
    w.press("opt_FARisk");
    w.type("FARiskBox", "5000");
    EXPECT_EQ(w.screen->FARiskUnitsBox.index, 1) << "100 and more is meant in ppm";
    w.press("cmdComputeGuardbands");
    ASSERT_TRUE(risksAtLimits(w.session, true, at));
    EXPECT_NEAR(at.falseAccept, 0.005, 1e-7);
    EXPECT_EQ(w.record.GB_LowerK, w.record.GB_UpperK);
}

TEST(GuardbandScreen, RoundsToTheDisplayedResolution) {
    Guardbands w;
    w.press("SymmetryCheckBox");
    w.type("UpperMultiplierBox", "0.87654321");
    w.type("txt_DisplayedResolution", "2");
    w.press("cmd_RoundOff");
    EXPECT_EQ(w.record.GB_UpperMult, 0.88);
    EXPECT_EQ(w.text("UpperMultiplierBox"), "0.88");
    EXPECT_GT(w.record.GB_FARisk, 0) << "risks are computed again";
    w.type("txt_kFactor_0", "1.2345");
    w.type("txt_DisplayedResolution", "1");
    w.press("cmd_RoundOff");
    EXPECT_EQ(w.record.GB_UpperK, 1.2);
    EXPECT_EQ(w.record.GB_UpperMult, 1 - w.record.MTE_Sigma * 1.2 / 0.5) << "as the next load derives it";
    w.type("UpperMultiplierBox", "0.9");
    w.type("txt_DisplayedResolution", "");
    w.press("cmd_RoundOff");
    EXPECT_EQ(w.record.GB_UpperMult, 1);
    EXPECT_EQ(w.record.GB_UpperK, 0);
}

TEST(GuardbandScreen, TheProcedureActs) {
    Guardbands w;
    auto& procedure = control<Hypertext>(*w.screen, "txt_Procedure");
    for (const auto& [word, name] : {std::pair{"False Reject", "opt_FRRisk"},
                                     {"Equalize Risks", "opt_EqualizeRisks"},
                                     {"Symmetric Multipliers", "SymmetryCheckBox"},
                                     {"Symmetric k-Factors", "chk_SymmetricK"}}) {
        EXPECT_NE(procedure.text.find(std::string("\\J") + word + "\\j"), std::string::npos);
        w.screen->jump(procedure, word);
        EXPECT_TRUE(control<Button>(*w.screen, name).checked) << word;
    }
    w.screen->jump(procedure, "Displayed Resolution");
    EXPECT_EQ(w.ui.focusMoves.back(), "GuardbandAnalysis.txt_DisplayedResolution");
    w.screen->jump(procedure, "Compute Risks");
    EXPECT_GT(w.record.GB_FRRisk, 0);
    w.screen->run(*findItem(w.screen->menus, "mnu_Procedure"));
    EXPECT_FALSE(w.screen->pnl_Procedure.visible);
    EXPECT_EQ(findItem(w.screen->menus, "mnu_Procedure")->caption, "Show &Procedure");
}

TEST(GuardbandScreen, OkHandsFiguresOfTheseGuardbandsToTheMainResults) {
    for (const bool computed : {true, false}) {
        Guardbands w({}, [](Analysis& r) {
            r.IncludeGuardbands = true;
            r.ComputeEqRatio = false;
            TakeSnapshot(r);
        });
        w.type("UpperMultiplierBox", "0.9");
        if (computed) w.press("CmdCompute");
        EXPECT_TRUE(w.screen->close(Way::Ok));
        EXPECT_EQ(w.record.RisksNeedCompute, !computed);
        EXPECT_EQ(w.record.FalseAcceptRisk != 0, computed);
        EXPECT_EQ(w.record.Last_GBUpper, computed ? 0.9 : 1);
        EXPECT_TRUE(w.record.FileChanged);
    }
    // With a ratio to search, the main screen has something left to compute.
    Guardbands w({}, [](Analysis& r) {
        r.IncludeGuardbands = true;
        TakeSnapshot(r);
    });
    w.type("UpperMultiplierBox", "0.9");
    w.press("CmdCompute");
    EXPECT_TRUE(w.screen->close(Way::Ok));
    EXPECT_NE(w.record.FalseAcceptRisk, 0);
    EXPECT_EQ(w.record.Last_GBUpper, 1);
    Guardbands withRatio({}, [](Analysis& r) {
        r.IncludeGuardbands = r.GB_IncludeEqAccRat = true;
        TakeSnapshot(r);
    });
    withRatio.type("UpperMultiplierBox", "0.9");
    withRatio.press("CmdCompute");
    EXPECT_TRUE(withRatio.screen->close(Way::Ok));
    EXPECT_GT(withRatio.record.EqAccRat, 1);
    EXPECT_EQ(withRatio.record.Last_GBUpper, 0.9);
}

/// Which side was typed and which flag is ticked: both screens and the record agree.
TEST(GuardbandScreen, SymmetricSidesStaySo) {
    const auto sides = [](Guardbands& w) {
        return w.texts({"UpperMultiplierBox", "LowerMultiplierBox", "txt_kFactor_0", "txt_kFactor_1"});
    };
    Guardbands multipliers(twoSided(0.5, 0.4, 95));
    multipliers.press("SymmetryCheckBox");
    multipliers.type("txt_kFactor_0", "1");
    Analysis& m = multipliers.record;
    EXPECT_EQ(m.GB_LowerMult, m.GB_UpperMult);
    EXPECT_NEAR(m.GB_LowerK, 0.8, 1e-12) << "of its own offset";
    EXPECT_EQ(sides(multipliers), "0.87244664 | 0.87244664 | 1.0000 | 0.800000");
    m.MTE_Sigma *= 2;
    RevalidateKFactors(multipliers.session);
    EXPECT_EQ(m.GB_LowerMult, m.GB_UpperMult) << "the typed k moves both";
    EXPECT_EQ(m.GB_UpperK, 1);

    Guardbands factors(twoSided(0.5, 0.4, 95));
    Analysis& k = factors.record;
    factors.press("chk_SymmetricK");
    factors.type("UpperMultiplierBox", "0.9");
    EXPECT_EQ(k.GB_LowerK, k.GB_UpperK);
    EXPECT_NEAR(k.GB_LowerMult, 0.875, 1e-12);
    k.MTE_Sigma *= 2;
    RevalidateKFactors(factors.session);
    EXPECT_EQ(k.GB_LowerK, k.GB_UpperK);
    EXPECT_NEAR(k.GB_LowerMult, 0.875, 1e-12);
    EXPECT_EQ(k.GB_UpperMult, 0.9);
    // A k that the narrower side cannot have.
    factors.type("UpperMultiplierBox", "0.1");
    EXPECT_FALSE(factors.screen->chk_SymmetricK.checked);
    EXPECT_EQ(k.GB_UpperMult, 0.1);
    EXPECT_NEAR(k.GB_LowerMult, 0.875, 1e-12);
}

TEST(GuardbandScreen, ShowsNoRisksOfOtherGuardbands) {
    const auto computed = [](Analysis& r) { // as the worksheet leaves a record
        r.GB_UpperMult = r.GB_LowerMult = 0.9;
        r.GB_FARisk = 0.4796;
        r.GB_FRRisk = 2.7;
    };
    struct Row {
        const char* name;
        void (*change)(Analysis&);
        bool shown;
    };
    const Row rows[] = {{"of these", [](Analysis&) {}, true},
                        {"another sigma observes", [](Analysis& r) { r.MTE_Sigma *= 1.5; }, false},
                        {"a typed target", [](Analysis& r) { r.GB_FARisk = 2; }, false},
                        {"multipliers rounded since", [](Analysis& r) { r.GB_UpperMult = 0.91; }, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Guardbands first({}, computed);
        first.press("CmdCompute");
        first.screen->close(Way::Ok);
        row.change(first.record);
        const Analysis before = first.record;
        first.screen.emplace(first.session);
        EXPECT_EQ(first.text("FARiskBox") != "", row.shown);
        EXPECT_EQ(first.text("FRRiskBox") != "", row.shown);
        EXPECT_TRUE(first.screen->close(Way::Cancel));
        EXPECT_EQ(AnalysisText(first.record), AnalysisText(before)) << "a look changes nothing";
        EXPECT_EQ(first.record.GB_RisksStale, before.GB_RisksStale);
    }
    // What stands needs no compute; what does not is faded beside the target typed.
    Guardbands w({}, [](Analysis& r) {
        r.GB_UpperMult = r.GB_LowerMult = 0.9;
        TakeSnapshot(r);
    });
    w.press("CmdCompute");
    w.screen->close(Way::Ok);
    w.screen.emplace(w.session);
    w.ui.expectBox("Compute Not Required", "No changes have been made to guardband limits.", note);
    w.press("CmdCompute");
    EXPECT_FALSE(w.screen->FARiskBox.faded || w.screen->FRRiskBox.faded);
    w.type("FARiskBox", "0.5");
    EXPECT_FALSE(w.screen->FARiskBox.faded);
    EXPECT_TRUE(w.screen->FRRiskBox.faded);
    EXPECT_EQ(w.screen->FRRiskBox.toolTip, "Not computed for these entries");
    w.press("CmdCompute");
    EXPECT_FALSE(w.screen->FRRiskBox.faded);
}

TEST(GuardbandScreen, CancelAfterALookPutsEverythingBack) {
    Guardbands w({}, [](Analysis& r) {
        r.GB_UpperKEntered = true;
        r.GB_UpperK = 1.2345;
        r.GB_UpperK_fmt = "#,##0.00000000";
        r.GB_UpperMult = 0.9;
    });
    EXPECT_NE(w.record.GB_UpperMult, 0.9) << "derived from the k";
    EXPECT_TRUE(w.screen->close(Way::Cancel));
    EXPECT_EQ(w.record.GB_UpperMult, 0.9);
    EXPECT_EQ(w.record.GB_UpperK_fmt, "#,##0.00000000");
}

/// Rounding leaves a risk slightly below 0 where nothing can be accepted wrongly; here it is 0.
TEST(GuardbandScreen, ANegativeRiskIsNone) {
    Guardbands w(twoSided(0.5, 0.5, 95, 0.5 / 5000));
    w.type("UpperMultiplierBox", "0.9");
    w.type("LowerMultiplierBox", "0.9");
    w.press("IncludeEqAccRatBox");
    w.press("CmdCompute");
    EXPECT_EQ(w.record.GB_FARisk, 0);
    EXPECT_EQ(w.text("FARiskBox"), "0.0");
    EXPECT_EQ(w.text("EqAccRatBox"), "0.00") << "no ratio has a risk of 0";
    EXPECT_EQ(w.text("EqAccRat2Box"), "");
}

TEST(GuardbandScreen, OffersTheGuardbandOfExactIntegration) {
    Guardbands w(twoSided(0.5, 0.5, 95, 0.5 / 400));
    w.press("SymmetryCheckBox");
    w.type("FARiskBox", "10");
    w.screen->choose(w.screen->FARiskUnitsBox, 1);
    w.press("cmdComputeGuardbands");
    ASSERT_TRUE(w.screen->Lbl_ExactSolve.visible);
    EXPECT_TRUE(w.text("Lbl_ExactSolve").ends_with(" meets the target.")) << w.text("Lbl_ExactSolve");
    w.press("cmd_UseExact");
    EXPECT_FALSE(w.screen->Lbl_ExactSolve.visible);
    const auto risks = exactRisks(subjectBiasOf(w.record), w.record.MTE_Sigma,
                                  {-w.record.GB_LowerMult * 0.5, w.record.GB_UpperMult * 0.5});
    EXPECT_NEAR(risks->falseAccept(0).value / 1e-5, 1, 1e-6);
    EXPECT_TRUE(w.record.GuardbandsChanged);
}

} // namespace
} // namespace metrisk::testing

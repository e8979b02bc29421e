#include "desk/files/Summary.h"

#include "base/AtomicFile.h"
#include "base/NumberText.h"
#include "base/RiskText.h"
#include "base/Text.h"
#include "desk/compute/EquivalentRatio.h"
#include "desk/compute/ObservingUnits.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/AnalysisFile.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "persistence/AnalysisName.h"
#include "persistence/SummaryText.h"
#include "record/SubjectSide.h"
#include "record/ToleranceUnits.h"
#include "risk/Snapshot.h"
#include "risk/decision/RecordDecision.h"
#include "risk/decision/TestRatios.h"
#include "risk/evaluate/CurrentFigures.h"
#include "uncertainty/BiasAnalysis.h"
#include "uncertainty/ErrorRows.h"
#include "uncertainty/ErrorTable.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace metrisk {

namespace {

namespace fs = std::filesystem;

constexpr const char* writeError = "Error Writing Summary Data";
constexpr const char* ownFile = "This is the file of the analysis itself.";
constexpr const char* noRegularFile = "No regular file of that name can be written.";
constexpr const char* summaryEnd = ".sum";
constexpr const char* saveTitle = "Save Data to Summary File";
constexpr const char* saveFilter = "Summary Files Files (*.sum)|*.sum|";
constexpr Message notSaved{"Cannot save analysis results to summary data file.\n"
                           "Computed False Accept and False Reject risks\n"
                           "were not generated from these entries.",
                           "Invalid Save"};
constexpr const char* percentPicture = "##0.00";
constexpr const char* ratioPicture = "##0.00";
constexpr const char* aopPicture = "#0.0000";
constexpr const char* confidencePicture = "##0.00";
constexpr const char* factorPicture = "##0.0000";
constexpr int figureDecimals = 4; // of samples and biases

class Summary {
  public:
    explicit Summary(const Session& session)
        : session_(session), r_(session.record), regional_(session.regional),
          current_(currentFigures(session.record, session.regional)),
          text_(r_.Delimiter == "Comma" ? ',' : '\t') {
        regional_.ThousandSeparator.clear(); // a spreadsheet would take grouped digits for a text
    }

    std::string compose() {
        subjectUnit();
        measuringSystem();
        results();
        baseline();
        reportFormat();
        if (r_.IncludeUncertainty) uncertainty();
        statistics(1, "Measuring Parameter Statistics");
        statistics(2, "Subject Parameter Statistics");
        if (r_.SMPC_Computed) biasAnalysis();
        if (r_.IncludeGuardbands || r_.GB_UpperMult != 1 || r_.GB_LowerMult != 1) guardbands();
        if (r_.Obs_PctInTol != 0 || r_.Obs_Offset != 0) observed();
        bothConventions();
        return text_.text();
    }

  private:
    const Session& session_;
    const Analysis& r_;
    Regional regional_;
    CurrentFigures current_;
    SummaryText text_;

    void row(std::string_view label, std::string_view value) { text_.row({label, value}); }
    std::string number(double value, std::string_view picture) const {
        return FormatNumber(value, picture, regional_);
    }
    std::string risk(double value, const std::string& units, std::string_view picture) const {
        return riskText({value, units}, picture, regional_) + " " + units;
    }
    /// In its picture, however small.
    std::string plainRisk(double value, const std::string& units, std::string_view picture) const {
        return number(value, WidenPicture(value, picture)) + " " + units;
    }

    void subjectUnit() {
        const ToleranceUnits units = subjectUnits(r_);
        const auto offset = [&](const SubjectSide& side, const std::string& picture) {
            return r_.*side.absent ? "" : number(units.shown(r_.*side.offset), units.shownPicture(picture));
        };
        text_.heading("Subject Unit Data");
        row("Manufacturer", r_.SU_Manufacturer);
        row("Model Number", r_.SU_ModelNumber);
        row("Description", r_.SU_Description);
        row("Parameter Name", r_.SU_ParameterName);
        row("Qualifier 1", r_.SU_Qualifier1);
        row("Qualifier 2", r_.SU_Qualifier2);
        row("Measurement Area", r_.MeasurementArea);
        row("Mode or Reading Value", number(r_.SU_Mode, r_.SU_Mode_fmt));
        row("Physical Limit", hasPhysicalLimit() ? number(r_.PhysicalLimit, r_.PhysicalLimit_fmt) : "");
        row("Nominal Units", r_.NominalUnits);
        row("Upper Tolerance Offset", offset(upperSide, r_.SU_UpperOffset_fmt));
        row("Lower Tolerance Offset", offset(lowerSide, r_.SU_LowerOffset_fmt));
        row("Tolerance Units", r_.SU_ToleranceUnits);
        row("Percent In-Tolerance", number(r_.SU_PctInTol, r_.SU_PctInTol_fmt));
    }

    /// Two limits have one where their distribution ends; a single one has that which was entered.
    bool hasPhysicalLimit() const {
        return r_.OptTwoSided ? r_.SU_Distribution == "LogNormal" : bool(r_.PhysLimitRequired);
    }

    void measuringSystem() {
        const ToleranceUnits units = measuringUnits(r_);
        text_.heading("Measuring System Data");
        row("Manufacturer", r_.MTE_Manufacturer);
        row("Model Number", r_.MTE_ModelNumber);
        row("Description", r_.MTE_Description);
        row("Parameter Name", r_.MTE_ParameterName);
        row("Qualifier 1", r_.MTE_Qualifier1);
        row("Qualifier 2", r_.MTE_Qualifier2);
        row("Tolerance Offset", number(units.shown(r_.MTE_Offset), units.shownPicture(r_.MTE_Offset_fmt)));
        row("Tolerance Units", r_.MTE_ToleranceUnits);
        row("Percent In-Tolerance", number(r_.MTE_PctInTol, r_.MTE_PctInTol_fmt));
    }

    void results() {
        const auto figure = [&](double value, const std::string& units, const std::string& picture) {
            return current_.risks ? risk(value, units, picture) : notComputedText;
        };
        text_.heading("Risk Analysis Results");
        row("False Accept Risk", figure(r_.FalseAcceptRisk, r_.FalseAcceptUnits, r_.FalseAccept_fmt));
        row("False Reject Risk", figure(r_.FalseRejectRisk, r_.FalseRejectUnits, r_.FalseReject_fmt));
        row("Equivalent Accuracy Ratio", !current_.ratio ? notComputedText
                                         : current_.noSuchRatio
                                             ? noSuchRatioText
                                             : number(r_.EqAccRat, ratioPicture) + ":1.00");
    }

    void baseline() {
        text_.heading("Baseline Risk Analysis");
        row("Subject Parameter % In-Tolerance", number(r_.Base_SUPctInTol, percentPicture));
        row("Measuring Parameter % In-Tolerance:", number(r_.Base_MTEPctInTol, percentPicture));
        const auto risk = [&](double value, const std::string& units, const std::string& picture) {
            return current_.baseline ? plainRisk(value, units, picture) : std::string(notComputedText);
        };
        row("False Accept Risk", risk(r_.Base_FalseAccept, r_.Base_AcceptUnits, r_.Base_Accept_fmt));
        row("False Reject Risk", risk(r_.Base_FalseReject, r_.Base_RejectUnits, r_.Base_Reject_fmt));
    }

    void reportFormat() {
        const Moment now = session_.clock.now();
        text_.heading("Report Format");
        row("Report Submitter", r_.Submitter);
        row("Report Approver", r_.Approver);
        row("Report Date", longDate(now));
        row("Time of Report", number(now.time, "h:mm AM/PM"));
    }

    void uncertainty() {
        text_.heading("Uncertainty Analysis Results");
        row("Uncertainty Units", r_.MTE_ToleranceUnits);
        text_.row({"Error Source", "Std Uncertainty", "Confidence Level", "Deg Freedom", "Error Limits",
                   "Include"});
        for (int source = 0; source < errorRowCount; ++source) {
            const ErrorTableRow error = readErrorTableRow(r_, source, regional_);
            const std::string& freedom = error.degFreedom.shown;
            text_.row({error.name, error.uncertainty.shown, error.confidence.shown,
                       freedom == infinitySign ? "inf" : freedom, error.limit.shown,
                       error.included ? "True" : "False"});
        }
    }

    void statistics(int slot, const char* heading) {
        if (r_.Stat_SampleSize[slot] == 0) return;
        text_.heading(heading);
        row("Sample Size", std::to_string(r_.Stat_SampleSize[slot]));
        row("Sample Mean", ErrorCell::readable(r_.Stat_SampleMean[slot], figureDecimals, regional_));
        row("t-Statistic", ErrorCell::readable(r_.Stat_tStatistic[slot], figureDecimals, regional_));
    }

    void biasAnalysis() {
        const ToleranceUnits units = measuringUnits(r_);
        const auto figure = [&](double nominal) {
            return current_.bias ? ErrorCell::readable(units.shown(nominal), figureDecimals, regional_)
                                 : notComputedText;
        };
        const auto held = [&](double value, const std::string& picture, const char* otherwise) {
            return number(value, WidenPicture(value, picture.empty() ? otherwise : picture));
        };
        text_.heading("Bayesian (SMPC) Analysis Results");
        row("Uncertainty Units", r_.MTE_ToleranceUnits);
        row("Confidence Level", held(100 * r_.SMPC_Confidence, r_.SMPC_Confidence_fmt, confidencePicture));
        row("Coverage Factor", held(r_.SMPC_CoverageFactor, r_.SMPC_CoverageFactor_fmt, factorPicture));
        row("Measuring Parameter Bias", figure(r_.SMPC_Bias[1]));
        row("Bias Uncertaint", figure(r_.SMPC_MTEUncertainty));
        row("Confidence Limits", figure(r_.SMPC_Limits[1]));
        row("Estimated True Value", current_.bias ? estimatedTrueValue(r_, regional_) : notComputedText);
        row("Subject Parameter Bias", figure(r_.SMPC_Bias[2]));
        row("Bias Uncertainty", figure(r_.SMPC_SUUncertainty));
        row("Confidence Limits", figure(r_.SMPC_Limits[2]));
    }

    void guardbands() {
        const auto figure = [&](double value, const std::string& units) {
            return current_.guardbands ? plainRisk(value, units, riskPicture(units)) : notComputedText;
        };
        const auto multiplier = [&](const SubjectSide& side) {
            return r_.*side.absent ? "" : number(r_.*side.multiplier, r_.*side.multiplierPicture);
        };
        text_.heading("Guardband Analysis");
        row("Upper Limit Multiplier", multiplier(upperSide));
        row("Lower Limit Multiplier", multiplier(lowerSide));
        row("False Accept Risk", figure(r_.GB_FARisk, r_.GB_FARiskUnits));
        row("False Reject Risk", figure(r_.GB_FRRisk, r_.GB_FRRiskUnits));
        row("Equivalent Accuracy Ratio",
            current_.guardbandRatio ? number(r_.GB_EqAccRat, ratioPicture) + ":1.00" : notComputedText);
    }

    void observed() {
        const double offset = r_.Obs_Offset * observingFactor(session_);
        const auto share = [&](double pct, const std::string& picture) {
            return current_.observed ? number(pct, picture) : notComputedText;
        };
        text_.heading("Observed vs. True % In-Tolerance");
        row("Observing Parameter Tolerance Offset",
            number(offset, PictureForDecimals(DecimalsOfValue(offset, 0))));
        row("AOP", number(100 * r_.Obs_AOP, aopPicture));
        row("Tolerance Units", r_.Obs_Units);
        row("Manufacturer", r_.Obs_Manufacturer);
        row("Model Number", r_.Obs_ModelNumber);
        row("Description", r_.Obs_Description);
        row("Parameter Name", r_.Obs_ParameterName);
        row("Observed Subject Parameter % In-Tolerance", share(r_.Obs_PctInTol, r_.Obs_PctInTol_fmt));
        row("True % In-Tolerance", share(r_.Obs_TruePct, r_.Obs_TruePct_fmt));
    }

    /// By exact integration, of the entries; with the risks above, or none.
    void bothConventions() {
        if (!current_.risks) return;
        const auto basis = decisionBasis(r_, session_.regional);
        if (!basis) return;
        const auto risks = risksOf(*basis);
        if (!risks) return;
        const TestRatios ratios = ratiosOf(*basis);
        const auto ratio = [&](double value) {
            return number(value, WidenPicture(value, ratioPicture)) + ":1.00";
        };
        const auto exact = [&](double fraction) {
            const ShownRisk shown = shownRisk(fraction);
            return plainRisk(shown.value, shown.units, riskPicture(shown.units));
        };
        text_.heading("Both Conventions");
        row("Test Uncertainty Ratio", ratio(ratios.tur));
        row("Coverage Factor", number(basis->coverage, factorPicture));
        row("Expanded Uncertainty", decisionTexts(r_, regional_, basis->expanded()).width(basis->expanded()));
        row("Tolerance to Expanded Uncertainty", ratio(ratios.toleranceToUncertainty));
        row("False Accept Risk, Conditional (Consumer)", exact(risks->consumer));
        row("False Accept Risk, Joint (Producer)", exact(risks->producer));
        row("False Reject Risk", exact(risks->falseReject));
        row("Share Accepted", exact(risks->accepted));
    }
};

std::string nameOf(const std::string& path) {
    return fs::path(path).filename().string();
}

bool isFileOf(const Analysis& r, const std::string& path) {
    std::error_code none;
    return path == r.AnalysisFileName || fs::equivalent(path, r.AnalysisFileName, none);
}

bool refuse(Session& session, const std::string& path, const std::string& cause) {
    tell(session.ui, {std::string(writeError) + "\n\n" + cause, nameOf(path)});
    return false;
}

std::string withEnd(const std::string& path) {
    const std::string extension = fs::path(path).extension().string();
    return equalCaseBlind(extension, summaryEnd) ? path : path + summaryEnd;
}

} // namespace

std::string summaryText(const Session& session) {
    return Summary(session).compose();
}

bool WriteSummary(Session& session, const std::string& path) {
    if (isFileOf(session.record, path)) return refuse(session, path, ownFile);
    try {
        const std::string text = summaryText(session);
        errno = 0;
        if (replaceFile(path, text)) return true;
        return refuse(session, path, errno == 0 ? noRegularFile : std::generic_category().message(errno));
    } catch (const std::exception& fault) { // memory
        return refuse(session, path, fault.what());
    }
}

bool summaryAllowed(Session& session) {
    Analysis& r = session.record;
    r.ComputeScope = "Both";
    r.ComputeNeeded = true;
    r.AbortFlag = false;
    ValidateAndFit(session);
    if (r.AbortFlag) return false;
    CompareWithSnapshot(session.record);
    if (risksAreCurrent(session.record)) return true;
    tell(session.ui, notSaved);
    r.AbortFlag = false;
    return false;
}

void SaveSummary(Session& session) {
    if (!session.desktop || !summaryAllowed(session)) return;
    const std::string& analysis = session.record.AnalysisFileName;
    const auto chosen = session.desktop->files.chooseToSave(
        {.title = saveTitle,
         .filter = saveFilter,
         .filterIndex = 1,
         .initialName = isUntitled(analysis) ? "" : fs::path(analysis).stem().string() + ".sum",
         .initialFolder = session.places.HomeDirectory});
    if (!chosen) return;
    if (isFileOf(session.record, *chosen)) {
        refuse(session, *chosen, ownFile);
        return;
    }
    const std::string path = withEnd(*chosen);
    if (path != *chosen && !mayReplace(session.ui, path, saveTitle)) return;
    WriteSummary(session, path);
}

} // namespace metrisk

// The risk analysis report.
#include "base/DisplayRule.h"
#include "base/NumberText.h"
#include "record/AnalysisTexts.h"
#include "record/ToleranceParts.h"
#include "record/ToleranceUnits.h"
#include "reports/Compose.h"
#include "reports/ReportFigures.h"
#include "reports/TableMarkup.h"
#include "risk/RatioSearch.h"
#include "risk/evaluate/CurrentFigures.h"
#include "risk/evaluate/ExactRemarks.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr double normalTop = 1440; // margin with which the body starts at firstLine
constexpr double firstLine = 1080;
constexpr double indent = 360;
constexpr double belowHeading = 68; // with a row of 262 it is 330
constexpr const char* twoColumns = "<5200|<3600;";
constexpr double resultsHeight = 2300; // with the rule and the heading
constexpr double signerHeight = 360 + 4 * 280;
constexpr const char* resultColumns = "<5000|^1800|^1800;";

/// Rows of a label and a value; those without a value are left out.
class Rows {
  public:
    explicit Rows(const char* format) : markup_(format) {}
    void add(const std::string& label, const std::string& value) {
        if (!value.empty()) markup_ += label + "|" + oneLine(value) + ";";
    }
    const std::string& markup() const { return markup_; }

  private:
    std::string markup_;
};

void table(Composition& c, const Rows& rows) {
    c.document.Table(rows.markup());
}

void title(Composition& c) {
    ReportDocument& d = c.document;
    const Analysis& r = c.record;
    c.running("Measurement Decision Risk Analysis||Summary Report");
    c.style(10, false);
    d.CurrentY = std::max(firstLine + d.MarginTop - normalTop, d.headerBottom());
    if (r.IncludeOrganization && !r.Organization.empty()) {
        c.style(12, true);
        d.Text(r.Organization);
        c.lineFeed();
        d.CurrentY += 90;
    }
    c.style(14, true);
    d.Text("Risk Analysis Report");
    c.style(10, false);
    c.lineFeed();
    if (r.IncludeFileName) {
        c.style(10, true);
        d.Text("Analysis File Name:  " + r.AnalysisFileName);
    }
    c.style(10, false);
    d.Text(longDate(c.now));
    c.rule();
    c.lineFeed();
}

/// The heading of a block, and the font of its table.
void block(Composition& c, double size, const char* heading) {
    c.style(size, true);
    c.document.Text(heading);
    c.style(10, false);
    c.document.IndentLeft = indent;
    c.document.CurrentY += belowHeading;
}

/// That of a unit under test or in use.
void unitBlock(Composition& c, void (Composition::*line)()) {
    c.style(11, true);
    (c.*line)();
    c.style(11, false);
    c.lineFeed();
    c.style(10, false);
    c.document.IndentLeft = indent;
}

std::string physicalLimit(const Composition& c) {
    const Analysis& r = c.record;
    if (r.OptTwoSided) {
        if (r.SU_Distribution == "Normal") return "Unlimited";
        // No other two-sided distribution than the LogNormal has one.
        if (r.SU_Distribution != "LogNormal") return "";
        return withUnits(
            FormatNumber(r.PhysicalLimit, WidenPicture(r.PhysicalLimit, r.PhysicalLimit_fmt), c.regional),
            r.NominalUnits);
    }
    if (!r.PhysLimitRequired || !r.PhysicalLimitEntered) return "";
    return r.OptSingleUpper ? c.shown.lowerLimit : c.shown.upperLimit;
}

void subjectUnit(Composition& c) {
    const Analysis& r = c.record;
    unitBlock(c, &Composition::subjectUnitLine);
    Rows rows(twoColumns);
    rows.add("Parameter:", r.SU_ParameterName);
    rows.add("Qualifier 1:", r.SU_Qualifier1);
    rows.add("Qualifier 2:", r.SU_Qualifier2);
    rows.add("Measurement Area:", r.MeasurementArea);
    rows.add("Distribution:", r.SU_Distribution == "LogNormal" ? "Lognormal" : r.SU_Distribution);
    if (r.SU_PctInTol != 0) rows.add("Percent In-Tolerance:", shortFigure(r.SU_PctInTol, c.regional));
    rows.add("Physical Limit:", physicalLimit(c));
    rows.add("Nominal or Reading Value:", c.shown.mode);
    const std::string suffix = r.ShowLimits ? " Limit:" : ":";
    if (!r.OptSingleLower) rows.add("Upper Tolerance" + suffix, c.shown.upperLimit);
    if (!r.OptSingleUpper) rows.add("Lower Tolerance" + suffix, c.shown.lowerLimit);
    table(c, rows);
    c.document.IndentLeft = 0;
    c.lineFeed();
}

void measuringSystem(Composition& c) {
    const Analysis& r = c.record;
    const Regional& regional = c.regional;
    unitBlock(c, &Composition::measuringUnitLine);
    Rows rows(twoColumns);
    rows.add("Parameter:", r.MTE_ParameterName);
    rows.add("Qualifier 1:", r.MTE_Qualifier1);
    rows.add("Qualifier 2:", r.MTE_Qualifier2);
    rows.add("Measurement Area:", r.MeasurementArea);
    const auto amount = [&](double value, const std::string& text) {
        return value == 0 ? withUnits("0", r.MTE_ToleranceUnits) : withUnits(text, r.MTE_ToleranceUnits);
    };
    if (r.MTE_EntryByUncertainty) {
        rows.add("Standard Uncertainty:", amount(r.MTE_StdUncertainty, c.shown.measuringFixed));
        rows.add("Expanded Uncertainty:", amount(r.MTE_Offset, c.shown.measuringOffset));
        rows.add("Confidence Level:", pctEntryText(r.MTE_PctInTol, regional) + " %");
        rows.add("Degrees of Freedom:", freedomText(r.MTE_DegFreedom, "General Number", regional));
        rows.add("Coverage Factor:", FormatNumber(r.MTE_kFactor, "##0.####", regional));
    } else {
        if (!measuringPartsAreOthers(r)) {
            rows.add("Fixed Limit:", amount(r.MTE_FixedOffset, c.shown.measuringFixed));
            rows.add("Percent of Reading:", shortFigure(r.MTE_PctReading, regional));
        }
        rows.add("Percent In-Tolerance:", shortFigure(r.MTE_PctInTol, regional));
        rows.add("Tolerance Limit:", amount(r.MTE_Offset, c.shown.measuringOffset));
    }
    table(c, rows);
    c.document.IndentLeft = 0;
    c.lineFeed();
}

void baseline(Composition& c) {
    const Analysis& r = c.record;
    const Regional& regional = c.regional;
    block(c, 11, "Analysis Baseline:");
    Rows rows(twoColumns);
    if (r.UserOption == "Z540") {
        rows.add("Baseline Option:", "Z540.3");
        rows.add("False Accept Risk:", "2.0000%");
        rows.add(c.signatureTable ? "Accuracy Ratio:" : "Test Uncertainty Ratio:", "4 : 1");
    } else {
        rows.add("Subject Parameter % In-Tolerance:", figureText(r.Base_SUPctInTol, 4, regional));
        rows.add("Measuring Parameter % In-Tolerance:", figureText(r.Base_MTEPctInTol, 4, regional));
        rows.add("Accuracy Ratio:", FormatNumber(r.Base_AccRatNum, "##0.00", regional) + " : 1");
    }
    table(c, rows);
    c.document.IndentLeft = 0;
}

void guardbands(Composition& c) {
    const Analysis& r = c.record;
    if (!r.IncludeGuardbands) return;
    c.lineFeed();
    block(c, 12, r.OptTwoSided ? "Tolerance Guardbands:" : "Tolerance Guardband:");
    Rows rows(twoColumns);
    if (!r.OptSingleUpper) rows.add("Lower Limit Multiplier:", c.shown.lowerMultiplier);
    if (!r.OptSingleLower) rows.add("Upper Limit Multiplier:", c.shown.upperMultiplier);
    table(c, rows);
    c.document.IndentLeft = 0;
}

std::string figureCell(double value, const std::string& units, const std::string& picture,
                       const Regional& regional) {
    return FormatNumber(value, WidenPicture(value, picture), regional) + (units == ppmUnits ? " ppm" : "%");
}

std::string riskCell(double value, const std::string& units, const std::string& picture,
                     const Regional& regional) {
    if (units == ppmUnits && value != 0 && value < 1) return "< 1 ppm";
    return figureCell(value, units, picture, regional);
}

std::string withoutGroups(double ratio, const Regional& regional) {
    return FormatNumber(ratio, "0.00", regional) + ":1";
}

/// A figure of other entries must not be taken for one of these.
void results(Composition& c) {
    const Analysis& r = c.record;
    const Regional& regional = c.regional;
    const CurrentFigures current = currentFigures(r, regional);
    const bool risks = current.risks && (r.FalseAcceptRisk != 0 || r.FalseRejectRisk != 0);
    const bool ratio = current.ratio && (r.EqAccRat != 0 || current.noSuchRatio);
    c.document.BeginBlock(resultsHeight);
    c.rule();
    c.lineFeed();
    c.style(14, true);
    c.document.Text("Analysis Results");
    c.document.IndentLeft = indent;
    c.style(10, true);
    c.document.Table(std::string(resultColumns) + " |Acceptable|Computed; |Baseline|Values;");
    c.style(10, false);
    const auto cell = [&](double value, const std::string& units, const std::string& picture) {
        return risks ? riskCell(value, units, picture, regional) : notComputedText;
    };
    const auto baseline = [&](double value, const std::string& units, const std::string& picture) {
        return current.baseline ? figureCell(value, units, picture, regional) : notComputedText;
    };
    std::string rows = resultColumns;
    rows += "False Accept Risk:|" + baseline(r.Base_FalseAccept, r.Base_AcceptUnits, r.Base_Accept_fmt) +
            "|" + cell(r.FalseAcceptRisk, r.FalseAcceptUnits, r.FalseAccept_fmt) + (risks ? " *;" : ";");
    rows += "False Reject Risk:|" + baseline(r.Base_FalseReject, r.Base_RejectUnits, r.Base_Reject_fmt) +
            "|" + cell(r.FalseRejectRisk, r.FalseRejectUnits, r.FalseReject_fmt) + ";";
    rows += "Equivalent Accuracy Ratio:|" + withoutGroups(r.Base_AccRatNum, regional) + "|" +
            (!ratio                ? notComputedText
             : current.noSuchRatio ? noSuchRatioText
                                   : withoutGroups(r.EqAccRat, regional)) +
            (ratio ? " **;" : ";");
    c.document.Table(rows);
    c.document.EndBlock();
    if (risks && r.FalseAcceptRisk != 0)
        c.document.Text(std::string("*   Based on False Accept Risk ") +
                        (r.FalseAcceptOption == 0 ? "Option 1 (Consumer's Perspective)"
                                                  : "Option 2 (Producer's Perspective)"));
    if (ratio)
        c.document.Text(r.EqRatioOnFalseAccept ? "**  Keyed to False Accept Risk"
                                               : "**  Keyed to False Reject Risk");
    // Where exact integration would show another figure, the reader is told as the user is.
    const ExactRemarks exact = exactRemarksOf(r, regional);
    const auto remark = [&](const char* figure, const std::string& text) {
        if (!text.empty()) c.document.Text(std::string(figure) + ": " + text);
    };
    if (risks) {
        remark("False Accept Risk", exact.falseAccept);
        remark("False Reject Risk", exact.falseReject);
    }
    if (ratio) remark("Equivalent Accuracy Ratio", exact.ratio);
    c.document.IndentLeft = 0;
    c.document.CurrentY += 90;
}

void remarks(Composition& c) {
    const Analysis& r = c.record;
    if (!r.IncludeRemarks || r.Remarks.empty()) return;
    c.style(10, true);
    c.document.Text("Remarks:  ");
    c.style(10, false);
    c.document.Text(r.Remarks);
}

struct SignOff {
    const char* label;
    std::string name;
};

std::string nameAndDepartment(const std::string& name, bool withDepartment, const std::string& department) {
    return withDepartment && !department.empty() ? name + ", " + department : name;
}

void signatureTable(Composition& c, const std::vector<SignOff>& lines) {
    constexpr double nameWidth = 5300, dateWidth = 2200, gap = 100;
    c.style(10, false);
    // To write on: as long as the cell has room for in this font.
    const auto underscores = [&](double width, std::size_t most) {
        const double fit = (width - gap) / c.document.lengthOf("_");
        return std::string(std::min(most, static_cast<std::size_t>(fit)), '_');
    };
    const std::string below = "; |" + underscores(nameWidth, 45) + "|" + underscores(dateWidth, 16) + ";";
    std::string rows = "<1600|<5300|<2200;";
    for (const SignOff& line : lines)
        rows += std::string(line.label) + " |" + oneLine(line.name) + "| Date" + below;
    c.document.Table(rows);
}

void signatureLines(Composition& c, const std::vector<SignOff>& lines) {
    constexpr double dateX = 8820;
    constexpr double gap = 120;
    ReportDocument& d = c.document;
    const double nameX = d.MarginLeft + 1600; // as in the table
    for (const SignOff& line : lines) {
        d.CurrentY += 360;
        c.style(11, true);
        d.Text(std::string(line.label));
        c.style(10, false);
        const double y = d.CurrentY;
        d.DrawLine(nameX, y, d.PageWidth - d.MarginRight, y);
        const double margin = d.MarginRight;
        d.CurrentX = nameX;
        d.MarginRight = d.PageWidth - dateX + gap; // a long name does not run into the date
        d.Text(oneLine(line.name));
        d.MarginRight = margin;
        const double below = d.CurrentY;
        d.CurrentX = dateX;
        d.CurrentY = y;
        d.Text("Date");
        d.CurrentY = std::max(below, d.CurrentY);
    }
}

void signOff(Composition& c) {
    const Analysis& r = c.record;
    std::vector<SignOff> lines;
    if (r.IncludeSubmitter)
        lines.push_back({"Submitted By:", nameAndDepartment(r.Submitter, r.IncludeDepartment, r.Department)});
    if (r.IncludeApprover)
        lines.push_back({"Approved By:",
                         nameAndDepartment(r.Approver, r.IncludeApprovingDepartment, r.ApprovingDepartment)});
    if (lines.empty()) return;
    c.document.BeginBlock(180 + signerHeight * static_cast<double>(lines.size()));
    c.document.CurrentY += 180 - 90; // the rule's own space makes it 180
    c.rule();
    if (c.signatureTable)
        signatureTable(c, lines);
    else
        signatureLines(c, lines);
    c.document.EndBlock();
}

} // namespace

bool ComposeRiskReport(Composition& composition) {
    title(composition);
    subjectUnit(composition);
    measuringSystem(composition);
    baseline(composition);
    guardbands(composition);
    results(composition);
    remarks(composition);
    signOff(composition);
    return true;
}

} // namespace metrisk

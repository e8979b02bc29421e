// The uncertainty analysis report. Its figures are in tolerance units of the measuring parameter.
#include "base/NumberText.h"
#include "base/Real.h"
#include "record/ToleranceUnits.h"
#include "reports/Compose.h"
#include "reports/ReportFigures.h"
#include "reports/TableMarkup.h"
#include "risk/evaluate/CurrentFigures.h"
#include "uncertainty/BiasAnalysis.h"
#include "uncertainty/Budget.h"
#include "uncertainty/ErrorTable.h"
#include "uncertainty/ProcessTotals.h"

namespace metrisk {

namespace {

constexpr const char* none = "-";
constexpr const char* defaultPicture = "#,##0.00";
constexpr int leastDecimals = 4;
constexpr int firstCorrelated = 2; // indices of CorrelationMatrix
constexpr int lastCorrelated = 10;

struct Uncertainties {
    Composition& c;
    const Analysis& r = c.record;
    const Regional& regional = c.regional;
    const ToleranceUnits units = measuringUnits(r);

    void heading(const char* text) {
        c.lineFeed();
        c.style(11, true);
        c.document.Text(text);
        c.style(10, false);
    }

    void headedTable(const std::string& columns, const std::string& headings, const std::string& rows) {
        c.style(10, true);
        c.document.Table(columns + headings);
        c.style(10, false);
        c.document.Table(columns + rows);
    }

    std::string figure(double nominal, int decimals = leastDecimals) const {
        return ErrorCell::readable(units.shown(nominal), decimals, regional);
    }
    /// In the picture of its field, brought to the units shown and widened.
    std::string inPicture(double nominal, const std::string& held) const {
        const double shown = units.shown(nominal);
        return FormatNumber(shown, WidenPicture(shown, units.shownPicture(held)), regional);
    }
    std::string measured(double nominal) const { return withUnits(figure(nominal), units.name); }

    void head() {
        c.running("Measurement Decision Risk Analysis||Uncertainty Analysis Results");
        c.style(14, true);
        c.document.Text("Metrisk Risk Analysis System");
        c.style(12, true);
        c.document.Text("Measurement Uncertainty Analysis");
        c.style(10, false);
        c.document.Text(longDate(c.now));
        c.rule();
        c.lineFeed();
        c.style(11, true);
        c.subjectUnitLine();
        c.measuringUnitLine();
    }

    double measuringSigma() const {
        return r.IncludeUncertainty ? CombinedUncertainty(r, regional).uncertainty : r.MTE_StdUncertainty;
    }

    void biasUncertainties(bool postTest) {
        heading(postTest ? "Pre-Test Bias Uncertainty Estimates" : "Bias Uncertainties");
        const std::string end = "|" + std::string(units.name) + ";";
        const auto limit = [&](double offset, const std::string& picture, bool exists) {
            return exists ? inPicture(offset, picture) : "";
        };
        std::string rows =
            "Subject Parameter|" + limit(r.SU_LowerOffset, r.SU_LowerOffset_fmt, !r.OptSingleUpper) + "|" +
            limit(r.SU_UpperOffset, r.SU_UpperOffset_fmt, !r.OptSingleLower) + "|" + c.shown.subjectPct +
            "|" + (r.SubjectFitValid ? figure(r.SU_Sigma) : notComputedText) + end;
        rows += "Measuring Parameter|" + c.shown.measuringOffset + "|" + c.shown.measuringOffset + "|" +
                c.shown.measuringPct + "|" +
                (r.MTE_StdUncertainty > 0 ? figure(measuringSigma()) : notComputedText) + end;
        headedTable("<3240|^1440|^1440|^1440|^1440|^770;",
                    "|Lower|Upper|% In-|Bias| ;Parameter|Limit|Limit|Tolerance|Uncertainty|Units;", rows);
    }

    /// A source that does not count says so: the reader could not tell otherwise why the total is smaller.
    std::string sourceRow(int row, const OneBased<std::string, 6>& cells) const {
        const auto cell = [&](int column) { return cells[column].empty() ? none : oneLine(cells[column]); };
        const ErrorTableRow stands = readErrorTableRow(r, row, regional);
        const bool left = stands.uncertainty.present() && !stands.included;
        std::string freedom = cell(errorColumn::degFreedom);
        if (freedom == infinitySign) freedom = "Infinite";
        return cell(errorColumn::name) + (left ? " (not included)" : "") + "|" +
               cell(errorColumn::uncertainty) + "|" + cell(errorColumn::confidence) + "|" +
               cell(errorColumn::limit) + "|" + freedom + "|" +
               (stands.uncertainty.present() ? std::string(units.name) : none) + ";";
    }

    void processUncertainties() {
        heading("Process Uncertainties");
        Analysis shown = r;
        ShowErrorTable(shown, regional);
        std::string rows;
        for (int row = 0; row < errorRowCount; ++row) rows += sourceRow(row, shown.ErrTableDisplay[row + 1]);
        headedTable("<2520|^1440|^1440|^1440|^1800|^1440;",
                    "Description|Uncertainty|Confidence|Error Limits|Deg Freedom|Units;", rows);
        const Totals totals = ComputeTotals(readErrorRows(r, regional), r.CorrelationMatrix);
        const bool withBias = r.IncludeMTEBias;
        double total = withBias ? totals.total : totals.process; // in tolerance units already
        const std::string held = units.shownPicture(r.ProcessUncertainty_fmt);
        const int decimals = std::max({PictureDecimals(held), PictureDecimals(defaultPicture),
                                       withBias ? totals.totalDecimals : totals.processDecimals});
        double freedom = withBias ? totals.totalFreedom : totals.processFreedom;
        if (!totals.anyProcess && r.ProcessUncertainty != 0) { // a total without a table counts as well
            const Combined whole = withBias ? CombinedUncertainty(r, regional)
                                            : Combined{r.ProcessUncertainty, r.Process_DegFreedom};
            total = units.shown(whole.uncertainty);
            freedom = whole.degFreedom;
        }
        c.lineFeed();
        c.document.Table("<3960|<3960;Total Process Uncertainty:|" +
                         withUnits(ErrorCell::readable(total, decimals, regional), units.name) +
                         ";Degrees of Freedom:|" + freedomText(freedom, "#,##0", regional) + ";");
    }

    void biasAnalysis(bool stands) {
        heading("Post-Test Parameter Bias Analysis");
        if (!stands) {
            c.document.Text("Measurement Data Not Available");
            return;
        }
        const auto probability = [&](int slot) {
            return figureTextBelow100(100 * r.SMPC_InTolProb[slot]) + " %";
        };
        c.document.Table("<5040|<2880;Estimated True Value:|" + estimatedTrueValue(r, regional) +
                         ";Estimated Measurand Deviation:|" + measured(r.SMPC_TrueOffset) +
                         ";Estimated Subject Parameter Bias:|" + measured(r.SMPC_Bias[2]) +
                         ";Subject Parameter Bias Uncertainty:|" + measured(r.SMPC_SUUncertainty) +
                         ";Subject Parameter In-Tolerance Probability:|" + probability(2) +
                         ";Estimated Measuring Parameter Bias:|" + measured(r.SMPC_Bias[1]) +
                         ";Measuring Parameter Bias Uncertainty:|" + measured(r.SMPC_MTEUncertainty) +
                         ";Measuring Parameter In-Tolerance Probability:|" + probability(1) + ";");
    }

    /// A probability below 1 does not read 100.00.
    std::string figureTextBelow100(double percent) const {
        const std::string text = FormatNumber(percent, defaultPicture, regional);
        return percent < 100 && ParseValue(text, regional) >= 100 ? "> 99.99" : text;
    }

    std::string sourceName(int index) const {
        return oneLine(readErrorTableRow(r, index - correlationIndex(0), regional).name);
    }

    void correlations() {
        std::string rows;
        for (int i = firstCorrelated; i <= lastCorrelated; ++i)
            for (int j = i + 1; j <= lastCorrelated; ++j)
                if (const double rho = r.CorrelationMatrix[i][j]; rho != 0)
                    rows += sourceName(i) + "|" + sourceName(j) + "|" +
                            FormatNumber(rho, WidenPicture(rho, "#,##0.000"), regional) + ";";
        if (rows.empty()) return;
        heading("Correlations");
        headedTable("<2520|<2520|^3240;", "Variable 1|Variable 2|Correlation Coefficient;", rows);
    }
};

} // namespace

bool ComposeUncertaintyReport(Composition& composition) {
    Uncertainties report{composition};
    const bool bias = report.r.SMPC_Computed && BiasResultsStand(report.r, report.regional);
    report.head();
    report.biasUncertainties(bias);
    report.processUncertainties();
    report.biasAnalysis(bias);
    report.correlations();
    return true;
}

} // namespace metrisk

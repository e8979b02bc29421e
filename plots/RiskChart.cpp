#include "plots/RiskChart.h"

#include "base/NumberFormat.h"
#include "base/NumberText.h"
#include "base/Picture.h"
#include "base/RiskText.h"
#include "record/ToleranceUnits.h"

#include <algorithm>

namespace metrisk {

namespace {

constexpr int presentDecimals = 2;
constexpr double ppmBelow = 0.1; // percent
constexpr double ppmFactor = 10000;
constexpr const char* uncertaintyPicture = "#,##0.0000";
constexpr const char* figurePicture = "#.##0";

constexpr const char* partedLegend = ", \u25a0 not the exact figure";

constexpr const char* accept = "False Accept Risk ";
constexpr const char* reject = "False Reject Risk ";
constexpr const char* decision = "Decision Risk ";

struct Unit {
    double factor;
    const char* name;

    friend bool operator==(const Unit& a, const Unit& b) { return a.factor == b.factor; }
};

struct Curve {
    const char* legend;
    PlotColour colour;
    double RiskPoint::*risk;
    bool RiskPoint::*parts;
    double least = 0, greatest = 0; // percent

    Curve(const char* itsLegend, PlotColour itsColour, double RiskPoint::*itsRisk, bool RiskPoint::*itsParts,
          std::span<const RiskPoint> points)
        : legend(itsLegend), colour(itsColour), risk(itsRisk), parts(itsParts) {
        const auto [low, high] =
            std::minmax_element(points.begin(), points.end(),
                                [&](const auto& a, const auto& b) { return a.*itsRisk < b.*itsRisk; });
        least = (*low).*risk;
        greatest = (*high).*risk;
    }
};

Unit unitFor(double greatest) {
    return greatest < ppmBelow ? Unit{ppmFactor, "ppm"} : Unit{1, "%"};
}

/// Room below the least and above the greatest risk; risks that are all 0 have an axis as well.
Axis riskAxis(const std::string& name, double least, double greatest) {
    const Unit unit = unitFor(greatest);
    const std::string title = name + " (" + unit.name + ")";
    if (!(greatest > 0)) return roundAxisOver(title, 0, 1);
    return roundAxisOver(title, 0.9 * least * unit.factor, 1.1 * greatest * unit.factor);
}

Series seriesOf(const Curve& curve, std::span<const RiskPoint> points, Unit unit, bool onRight) {
    Series series{curve.legend, curve.colour, onRight};
    series.points.reserve(points.size());
    for (const RiskPoint& point : points) series.points.push_back({point.x, point.*curve.risk * unit.factor});
    return series;
}

/// Points whose shown digits are not those of the exact figure.
void markParted(Series& series, const Curve& curve, std::span<const RiskPoint> points) {
    for (std::size_t i = 0; i < points.size(); ++i)
        if (points[i].*curve.parts) series.marks.push_back({series.points[i], ""});
    if (!series.marks.empty()) series.name += partedLegend;
}

/// The first of the least and of the greatest points, if the curve is not level.
void markExtremes(Series& series, const Curve& curve, int xDecimals, const Regional& regional) {
    const auto [low, high] = std::minmax_element(series.points.begin(), series.points.end(),
                                                 [](Point a, Point b) { return a.y < b.y; });
    if (!(low->y < high->y)) return;
    const auto mark = [&](Point at, const char* word, double percent, bool above) {
        const ShownRisk risk = shownRisk(percent / 100);
        const std::string value = FormatNumber(risk.value, WidenPicture(risk.value, "#,##0.00"), regional);
        const std::string place = FormatNumber(at.x, PictureForDecimals(xDecimals + 2), regional);
        series.marks.push_back(
            {at, std::string(word) + curve.legend + " " + value + " " + risk.units + " at " + place, above});
    };
    mark(*low, "Least ", curve.least, false);
    mark(*high, "Greatest ", curve.greatest, true);
}

std::string figureOf(double shown, Unit unit, const Regional& regional) {
    return FormatNumber(shown, WidenPicture(shown, unit.factor == 1 ? "#,##0.00" : "#,##0.0"), regional) +
           " " + unit.name;
}

/// The first place at which both risks are the same, on the straight line between two points.
std::optional<RiskPoint> crossingOf(std::span<const RiskPoint> points) {
    for (std::size_t i = 1; i < points.size(); ++i) {
        const RiskPoint &a = points[i - 1], &b = points[i];
        const double before = a.falseAccept - a.falseReject, after = b.falseAccept - b.falseReject;
        if (before == 0 || (before < 0) == (after < 0)) continue;
        const double part = before / (before - after);
        const double risk = a.falseAccept + (b.falseAccept - a.falseAccept) * part;
        return RiskPoint{a.x + (b.x - a.x) * part, risk, risk};
    }
    return {};
}

std::string titleOf(ShownRisks shown) {
    return shown == ShownRisks::FalseAccept ? accept : shown == ShownRisks::FalseReject ? reject : decision;
}

std::string uncertaintyText(double shown, std::string_view units, const Regional& regional) {
    return withUnits(FormatNumber(shown, WidenPicture(shown, uncertaintyPicture), regional), units);
}

std::string subjectLine(const Analysis& r, const Regional& regional) {
    const ToleranceUnits units = subjectUnits(r);
    return "Subject Parameter Standard Uncertainty:  " +
           uncertaintyText(units.shown(r.SU_Sigma), units.name, regional) + "\n";
}

std::string measuringText(const Analysis& r, double nominal, const Regional& regional) {
    const ToleranceUnits units = measuringUnits(r);
    return uncertaintyText(units.shown(nominal), units.name, regional);
}

std::string heading(const Analysis& r, const SweepText& text, const Regional& regional) {
    switch (text.swept) {
    case Swept::Multiplier:
    case Swept::KFactor:
        return text.words.label + "\n" + subjectLine(r, regional) +
               "Measurement Uncertainty:  " + measuringText(r, r.MTE_Sigma, regional) + "\n";
    case Swept::SubjectPct:
    case Swept::MeasuringPct: {
        const std::string name =
            text.swept == Swept::SubjectPct ? "SU Pct In-tolerance\n" : "MTE Pct In-tolerance\n";
        return name + (text.processIncluded ? "Measurement Process Uncertainty Included\n" : "") +
               subjectLine(r, regional);
    }
    case Swept::BaselineRatio: break;
    }
    return "Baseline Accuracy Ratio\n";
}

} // namespace

SweepWords wordsOf(Swept swept, bool byUncertainty) {
    switch (swept) {
    case Swept::Multiplier: return {"Guardbands", "Guardband Multiplier", "Guardband Multiplier"};
    case Swept::KFactor: return {"kFactors", "k-Factor Multiplier", "k-Factor Multiplier"};
    case Swept::SubjectPct:
        return {"SUPctInTol", "Subject Parameter Percent In-Tolerance", "Percent In-Tolerance"};
    case Swept::MeasuringPct:
        if (byUncertainty)
            return {"MTEPctInTol", "Measuring Parameter Confidence Level (%)", "Confidence Level"};
        return {"MTEPctInTol", "Measuring Parameter Percent In-Tolerance", "Percent In-Tolerance"};
    case Swept::BaselineRatio: break;
    }
    return {"Metrisk", "Baseline Accuracy Ratio", "Accuracy Ratio"};
}

SweepWords sigmaWords(const Analysis& record) {
    const std::string_view units = subjectUnits(record).name;
    std::string label = "Subject Parameter Standard Uncertainty";
    if (!units.empty()) label.append(" (").append(units).append(")");
    return {"SUPctInTol", std::move(label), "Standard Uncertainty"};
}

const char* optionTag(int falseAcceptOption) {
    return falseAcceptOption == 1 ? "(Producer Option)" : "(Consumer Option)";
}

Chart riskChart(std::span<const RiskPoint> points, const SweepWords& words, const RiskChartOptions& options,
                const Regional& regional) {
    Chart chart;
    if (points.size() < 2) return chart;
    const auto [left, right] = std::minmax_element(points.begin(), points.end(),
                                                   [](const auto& a, const auto& b) { return a.x < b.x; });
    chart.title = titleOf(options.shown) + "vs. " + words.label + " " + optionTag(options.falseAcceptOption);
    chart.x = axisOver(words.label, left->x, right->x, options.xDecimals);
    chart.thick = options.thick;
    std::vector<Curve> curves;
    if (options.shown != ShownRisks::FalseReject)
        curves.emplace_back("FA", plotColours::falseAccept, &RiskPoint::falseAccept, &RiskPoint::acceptParts,
                            points);
    if (options.shown != ShownRisks::FalseAccept)
        curves.emplace_back("FR", plotColours::falseReject, &RiskPoint::falseReject, &RiskPoint::rejectParts,
                            points);
    const Curve& first = curves.front();
    const Curve& last = curves.back();
    const bool twoAxes = !(unitFor(first.greatest) == unitFor(last.greatest));
    if (twoAxes) {
        chart.left = riskAxis("FA Risk", first.least, first.greatest);
        chart.right = riskAxis("FR Risk", last.least, last.greatest);
        chart.left.colour = first.colour;
        chart.right->colour = last.colour;
    } else {
        chart.left =
            riskAxis("Risk", std::min(first.least, last.least), std::max(first.greatest, last.greatest));
    }
    for (const Curve& curve : curves) {
        const bool onRight = twoAxes && &curve == &last;
        chart.series.push_back(seriesOf(curve, points, unitFor(curve.greatest), onRight));
        chart.series.back().dashed = curve.risk == &RiskPoint::falseReject;
        if (!twoAxes) chart.series.back().atEnd = curve.legend;
        markParted(chart.series.back(), curve, points);
        if (options.extremes) markExtremes(chart.series.back(), curve, chart.x.decimals, regional);
    }
    const Unit unit = unitFor(std::max(first.greatest, last.greatest));
    const auto figure = [&](double risk) { return figureOf(risk * unit.factor, unit, regional); };
    if (options.present) {
        ChartLine line;
        line.x = options.present->x;
        line.told = "present " + FormatNumber(line.x, PictureForDecimals(presentDecimals), regional) + ": ";
        for (const Curve& curve : curves) {
            const double risk = (*options.present).*curve.risk;
            line.heights.push_back(risk * unitFor(curve.greatest).factor);
            line.told +=
                std::string(" ") + curve.legend + " " +
                (twoAxes ? figureOf(risk * unitFor(curve.greatest).factor, unitFor(curve.greatest), regional)
                         : figure(risk)) +
                (&curve == &last ? "" : ", ");
        }
        chart.present = std::move(line);
    }
    if (curves.size() == 2 && !twoAxes)
        if (const auto at = crossingOf(points))
            chart.crossing = ChartMark{
                {at->x, at->falseAccept * unit.factor},
                "equal at " + FormatNumber(at->x, PictureForDecimals(chart.x.decimals + 2), regional) + ": " +
                    figure(at->falseAccept)};
    return chart;
}

std::string sweepText(const Analysis& r, const SweepText& text, std::span<const RiskPoint> points,
                      const Regional& regional) {
    const char* tag = optionTag(r.FalseAcceptOption);
    const auto figure = [&](double value) {
        return FormatNumber(value, WidenPicture(value, figurePicture), regional);
    };
    std::string lines = heading(r, text, regional) + tag + "\n";
    lines += text.words.label + "\t" + accept + tag + "\tFalse Reject Risk\n";
    for (const RiskPoint& point : points)
        lines += figure(point.x) + "\t" + figure(point.falseAccept) + "\t" + figure(point.falseReject) + "\n";
    return lines;
}

std::string uncertaintyLines(const Analysis& r, const Regional& regional) {
    return "Measuring Parameter Bias Uncertainty:  " + measuringText(r, r.MTE_StdUncertainty, regional) +
           "\n" + subjectLine(r, regional) +
           "Measurement Process Uncertainty:  " + measuringText(r, r.ProcessUncertainty, regional);
}

} // namespace metrisk

// What a plot draws: every line and label of golden recordings, and the curve against the fit.
#include "desk/compute/ComputePipeline.h"
#include "desk/compute/RunBiasAnalysis.h"
#include "desk/compute/ValidateAndFit.h"
#include "drawing/Drawing.h"
#include "plots/DistributionPlots.h"
#include "plots/PlotLabels.h"
#include "tests/plots/TextBoxes.h"
#include "tests/support/Cases.h"
#include "tests/support/Recording.h"
#include "tests/support/TestSession.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numbers>
#include <sstream>

namespace metrisk::testing {
namespace {

struct Fitted : TestSession {
    explicit Fitted(
        const Entry& entry, const std::function<void(Analysis&)>& change = [](Analysis&) {}) {
        enter(record, entry);
        record.NominalUnits = record.SU_ToleranceUnits = record.MTE_ToleranceUnits = "V";
        record.SU_Mode_fmt = record.SU_UpperOffset_fmt = record.SU_LowerOffset_fmt = "#,##0.000000";
        record.MTE_Offset_fmt = "#,##0.000000";
        record.AckPhysLimitHigh = record.AckPhysLimitLow = record.Ack100Pct = true;
        change(record);
        ValidateAndFit(session);
    }
};

/// The recording without the curve and what is under it, which have tests of their own.
std::string labelsOf(const DistributionPlot& plot) {
    Drawing drawing(800, 600);
    EXPECT_FALSE(DrawDistributionPlot(drawing, plot, {}));
    std::istringstream all(drawing.text());
    std::string kept;
    for (std::string line; std::getline(all, line);)
        if (!line.starts_with("box") && line.find("#33383e") == std::string::npos) kept += line + "\n";
    return kept;
}

void compareWithGolden(const std::string& name, const std::string& got) {
    compareWithRecording("plots/data/" + name + ".txt", got);
}

TEST(DistributionPlot, GoldenRecordings) {
    const Entry above = withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 10, 90);
    compareWithGolden("normal-offsets", labelsOf(subjectPlot(Fitted(twoSided(0.5, 0.5, 95)).record, {})));
    compareWithGolden(
        "lognormal-limits",
        labelsOf(subjectPlot(
            Fitted(twoSided(1, 0.5, 90), [](Analysis& r) { r.SUPlot_ShowTolerances = false; }).record, {})));
    compareWithGolden("exponential-at-its-limit", labelsOf(subjectPlot(Fitted(above).record, {})));
    compareWithGolden("uniform-steep", labelsOf(subjectPlot(Fitted(twoSided(5e-5, 5e-5, 100)).record, {})));
    compareWithGolden("measuring-bounds", labelsOf(measuringPlot(Fitted(Entry{},
                                                                        [](Analysis& r) {
                                                                            r.MTE_EntryByUncertainty = true;
                                                                            r.MTEPlot_ShowOffsets = false;
                                                                            r.MTE_DegFreedom = 12;
                                                                        })
                                                                     .record,
                                                                 {})));
    compareWithGolden("error-in-millivolts", labelsOf(errorPlot(Fitted(Entry{},
                                                                       [](Analysis& r) {
                                                                           r.ProcessUncertainty = 0.01;
                                                                           r.MTE_ToleranceUnits = "mV";
                                                                           r.MTE_TolUnitsFactor = 1000;
                                                                           r.Stat_Include[2] = 1;
                                                                           r.Stat_SampleSize[2] = 5;
                                                                           r.Stat_SampleMean[2] = 20;
                                                                           r.ErrorPlot_Param = "Error";
                                                                       })
                                                                    .record,
                                                                {})));
}

TEST(DistributionPlot, LabelsTellTheirValues) {
    struct Row {
        const char* name;
        std::vector<double> values;
        double tolerance;
        std::vector<std::string> texts;
    };
    for (const Row& row : {
             Row{"four decimals", {10, 8.979591, 0.5}, 0.005, {"10.0", "8.9796", "0.5"}},
             Row{"an end near a limit", {9.99992, 9.99995}, 1e-6, {"9.99992", "9.99995"}},
             Row{"within one percent", {9.9999989796, 10}, 5e-9, {"9.99999898", "10.0"}},
             Row{"alike", {9.99991, 9.99994, 9.99991}, 1, {"9.99991", "9.99994", "9.99991"}},
             Row{"no decimals left",
                 {1e15, 1e15 + 0.125},
                 1e-3,
                 {"1,000,000,000,000,000.0", "1,000,000,000,000,000.0"}},
             Row{"small", {0, 2e-9}, 2e-11, {"0.0", "0.000000002"}},
         })
        EXPECT_EQ(labelTexts(row.values, row.tolerance, {}), row.texts) << row.name;
    for (const auto& [sigma, text] :
         {std::pair{0.0000289, "0.0000289"}, {0.209, "0.209"}, {12.3456, "12.346"}})
        EXPECT_EQ(sigmaText(sigma, {}), text);

    DistributionPlot plot = subjectPlot(Fitted(twoSided(5e-7, 5e-7, 95)).record, {});
    plot.showOffsets = false;
    const std::string labels = labelsOf(plot);
    for (const char* label : {"\"10.0 V\"", "\"9.99999898\"", "\"10.00000102\"", "\"9.9999995\""})
        EXPECT_NE(labels.find(label), std::string::npos) << label << labels;
    plot = subjectPlot(
        Fitted({.mode = 0, .upperOffset = 2e-9, .lowerOffset = 2e-9, .mteOffset = 5e-10}).record, {});
    EXPECT_NE(labelsOf(plot).find("\"+0.000000002 V\""), std::string::npos) << "a limit is not shown as 0";
}

TEST(DistributionPlot, TextsKeepToThePictureAndApart) {
    const auto plots = [](bool offsets) {
        std::vector<std::pair<std::string, DistributionPlot>> all;
        for (const Entry& entry :
             {twoSided(0.5, 0.5, 95), twoSided(1, 0.5, 90), twoSided(5e-5, 5e-5, 100), twoSided(1e3, 1e3, 60),
              withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 10, 90)}) {
            const Fitted fitted(entry, [=](Analysis& r) {
                r.SUPlot_ShowTolerances = r.ErrorPlot_Flag = offsets;
                r.ProcessUncertainty = 0.01;
                r.IncludeMTEBias = true;
            });
            const std::string name = std::to_string(entry.upperOffset) + (offsets ? " offsets" : "");
            all.emplace_back("subject " + name, subjectPlot(fitted.record, {}));
            all.emplace_back("measuring " + name, measuringPlot(fitted.record, {}));
            all.emplace_back("error " + name, errorPlot(fitted.record, {}));
        }
        return all;
    };
    std::vector<std::pair<double, double>> sizes{{300, 200}, {400, 300}, {480, 540}};
    for (int i = 0; i < 60; ++i) sizes.emplace_back(400 + 3.7 * i, 300 + 2.3 * i);
    for (const bool offsets : {false, true})
        for (const auto& [name, plot] : plots(offsets))
            for (const auto& [width, height] : sizes) {
                TextBoxes drawn(width, height);
                DrawDistributionPlot(drawn, plot, {});
                drawn.expectReadable(name);
                const bool told = std::ranges::any_of(drawn.boxes(), [](const auto& box) {
                    return box.text.starts_with("Standard Deviation");
                });
                EXPECT_EQ(told, width >= 400) << name;
                EXPECT_TRUE(drawn.boxes().front().text.starts_with("Probability Density")) << name;
            }
}

/// The shaded areas are the shares that their key tells.
TEST(DistributionPlots, ShadesWhatIsDecidedFalsely) {
    for (const Kind kind : {Kind::TwoSided, Kind::SingleUpper}) {
        Entry entry = twoSided(0.5, 0.5, 90);
        entry.kind = kind;
        Fitted fitted(entry);
        EXPECT_FALSE(subjectPlot(fitted.record, {}).falseDecisions) << "no risks of these entries";
        ComputeResults_Click(fitted.session);
        const DistributionPlot plot = subjectPlot(fitted.record, {});
        ASSERT_TRUE(plot.falseDecisions);
        const FalseDecisions& f = *plot.falseDecisions;
        double falselyAccepted = 0, falselyRejected = 0;
        const double width = plot.rightValue - plot.leftValue;
        for (std::size_t i = 1; i < plot.line.size(); ++i) {
            const PlotPoint &a = plot.line[i - 1], &b = plot.line[i];
            const double content = (a.density + b.density) / 2 * static_cast<double>(b.x - a.x) * width;
            const double accepted = (f.accepted[i - 1] + f.accepted[i]) / 2;
            const float x = (a.x + b.x) / 2;
            const bool in = x <= plot.positions.upper && (!plot.lowerExists || x >= plot.positions.lower);
            (in ? falselyRejected : falselyAccepted) += content * (in ? 1 - accepted : accepted);
        }
        EXPECT_NEAR(falselyAccepted / f.falselyAccepted, 1, 0.04) << "trapezoids between the plot's points";
        EXPECT_NEAR(falselyRejected / f.falselyRejected, 1, 0.04);
        for (const auto& [across, down] : {std::pair{640, 560}, {640, 300}, {480, 360}}) {
            TextBoxes drawn(across, down);
            DrawDistributionPlot(drawn, plot, {});
            drawn.expectReadable("shaded");
            EXPECT_TRUE(std::ranges::any_of(
                drawn.boxes(), [](const auto& box) { return box.text == "of all units tested"; }))
                << across << " x " << down;
        }
    }
}

/// A wall of a uniform distribution stands upright, and a peak that is seen from afar is round.
TEST(DistributionPlots, TheLineTakesMorePointsThanTheCurveHas) {
    const DistributionPlot uniform = subjectPlot(Fitted(twoSided(0.5, 0.5, 100)).record, {});
    float wall = 1;
    for (std::size_t i = 1; i < uniform.line.size(); ++i)
        if (uniform.line[i].density > 0 && uniform.line[i - 1].density == 0)
            wall = uniform.line[i].x - uniform.line[i - 1].x;
    EXPECT_LT(wall, 1e-4);
    EXPECT_EQ(uniform.points.size(), 101u);
    const DistributionPlot far =
        subjectPlot(Fitted(twoSided(0.5, 0.5, 95), [](Analysis& r) { r.SUPlot_Zoom = 4; }).record, {});
    double bend = 0; // by which the line misses the curve between two of its points
    for (std::size_t i = 1; i < far.line.size(); ++i) {
        const double x = far.leftValue + (far.rightValue - far.leftValue) *
                                             (static_cast<double>(far.line[i].x) + far.line[i - 1].x) / 2;
        const double z = (x - 10) / far.sigma;
        const double density = std::exp(-z * z / 2) / (far.sigma * std::sqrt(2 * std::numbers::pi));
        bend = std::max(bend, std::abs(density - (far.line[i].density + far.line[i - 1].density) / 2));
    }
    EXPECT_LT(bend, far.peak / 500);
}

TEST(DistributionPlot, LabelsGiveWayToTheCentre) {
    DistributionPlot plot = subjectPlot(Fitted(twoSided(0.5, 0.5, 95)).record, {});
    plot.positions.lower = plot.positions.central - 0.01F;
    plot.positions.upper = 1.01F;
    const std::string labels = labelsOf(plot);
    EXPECT_EQ(labels.find("\"Lower\""), std::string::npos) << "the line stands alone";
    EXPECT_EQ(labels.find("\"Upper\""), std::string::npos) << "outside there is no line either";
    EXPECT_NE(labels.find("line 0.49 0"), std::string::npos);
}

TEST(DistributionPlot, AnUnknownDistributionStopsBeforeTheCurve) {
    DistributionPlot plot = subjectPlot(Fitted(Entry{}).record, {});
    plot.distribution = "Cauchy";
    Drawing drawing;
    EXPECT_EQ(DrawDistributionPlot(drawing, plot, {}), "Cauchy");
    EXPECT_NE(drawing.text().find("Distribution: Cauchy"), std::string::npos);
    EXPECT_EQ(drawing.text().find("#33383e"), std::string::npos);
}

/// Area under the curve, by the trapezoidal rule.
double area(const DistributionPlot& plot) {
    double sum = 0;
    for (std::size_t i = 1; i < plot.points.size(); ++i)
        sum += (plot.points[i].density + plot.points[i - 1].density) / 2;
    return sum * (plot.rightValue - plot.leftValue) / (curvePoints - 1);
}

TEST(DistributionPlots, TheCurveHoldsTheWholeProbabilityInAnyUnit) {
    struct Row {
        const char* name;
        Entry entry;
        double held; // of the probability within the range shown
    };
    const Row rows[] = {{"normal", twoSided(0.5, 0.5, 95), 0.99994},
                        {"lognormal", twoSided(1, 0.5, 90), 0.999},
                        {"exponential", withPhysicalLimit(Kind::SingleUpper, 10, 0.5, 10, 90), 0.99},
                        {"uniform", twoSided(0.5, 0.5, 100), 1.0}};
    for (const Row& row : rows) {
        DistributionPlot whole;
        for (const double size : {1.0, 1e-6, 1e9}) {
            Entry entry = row.entry;
            for (double* length : {&entry.mode, &entry.upperOffset, &entry.lowerOffset, &entry.mteOffset,
                                   &entry.physicalLimit})
                *length *= size;
            const Fitted fitted(
                entry, [](Analysis& r) { r.SU_UpperOffset_fmt = r.SU_LowerOffset_fmt = "#,##0.0000000000"; });
            const DistributionPlot plot = subjectPlot(fitted.record, {});
            ASSERT_EQ(plot.points.size(), 101u) << row.name << size;
            EXPECT_NEAR(area(plot), row.held, 0.01) << row.name << size;
            if (size == 1) whole = plot;
            EXPECT_NEAR(plot.positions.upper, whole.positions.upper, 1e-5) << row.name << size;
            EXPECT_NEAR(plot.positions.central, whole.positions.central, 1e-5) << row.name << size;
            EXPECT_NEAR(plot.peak * size / whole.peak, 1, 1e-9) << row.name << size;
        }
    }
}

TEST(DistributionPlots, DegreesOfFreedomChooseTheCurve) {
    for (const auto& [freedom, name] :
         {std::pair{5000.0, "Normal"}, {4999.0, "Student's t"}, {0.0, "Normal"}, {1.0, "Student's t"}}) {
        const Fitted fitted(Entry{}, [f = freedom](Analysis& r) { r.MTE_DegFreedom = f; });
        EXPECT_EQ(measuringPlot(fitted.record, {}).distribution, name) << freedom;
    }
}

TEST(DistributionPlots, ZoomAndReferences) {
    Fitted f(Entry{}, [](Analysis& r) { r.ProcessUncertainty = 0.03; });
    const DistributionPlot full = subjectPlot(f.record, {});
    f.record.SUPlot_Zoom = zoomFactors[0];
    EXPECT_NEAR(10 - subjectPlot(f.record, {}).leftValue, (10 - full.leftValue) / 4, 1e-12);

    f.record.SUPlot_UseMTETols = f.record.MTEPlot_UseSUTols = true;
    EXPECT_DOUBLE_EQ(subjectPlot(f.record, {}).upperValue, 10.125);
    EXPECT_DOUBLE_EQ(measuringPlot(f.record, {}).lowerValue, 9.5);
    const double bias = f.record.MTE_StdUncertainty;
    EXPECT_DOUBLE_EQ(measuringPlot(f.record, {}).sigma, bias);
    f.record.MTEPlot_IncludeUncertainty = true;
    EXPECT_DOUBLE_EQ(measuringPlot(f.record, {}).sigma, std::hypot(bias, 0.03));

    const auto limits = [&](const char* reference) {
        f.record.ErrorPlot_Param = reference;
        const DistributionPlot plot = errorPlot(f.record, {});
        return std::pair{plot.lowerValue, plot.upperValue};
    };
    f.record.Stat_Include[1] = 1;
    f.record.Stat_SampleSize[1] = 4;
    f.record.Stat_SampleMean[1] = 0.2; // a deviation
    f.record.Stat_SampleStdDev[1] = 0.01;
    RunBiasAnalysis(f.session);
    const double centre = f.record.SMPC_Bias[2];
    ASSERT_NE(centre, 0);
    EXPECT_EQ(limits("SU"), (std::pair{-0.5, 0.5})) << "about 0";
    EXPECT_EQ(limits("MTE"), (std::pair{-0.125, 0.125}));
    EXPECT_DOUBLE_EQ(limits("Error").second, centre + 2 * std::hypot(bias, 0.03)) << "about the centre";
    EXPECT_EQ(errorPlot(f.record, {}).secondCaption, "Bias");
    f.record.Stat_SampleMean[1] = 0.1;
    EXPECT_EQ(errorPlot(f.record, {}).secondCaption, "Mean") << "the analysis was of other samples";
    f.record.IncludeMTEBias = false;
    EXPECT_DOUBLE_EQ(errorPlot(f.record, {}).sigma, 0.03);
    f.record.ProcessUncertainty = 0;
    EXPECT_FALSE(errorPlot(f.record, {}).holdsData());
}

} // namespace
} // namespace metrisk::testing

// Statistics of samples against published data sets, and what a row takes from them.
#include "uncertainty/Samples.h"
#include "tests/support/TemporaryFolder.h"
#include "uncertainty/ErrorTable.h"
#include "uncertainty/SampleColumn.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace metrisk {
namespace {

/// NIST StRD NumAcc: base + 0.2 once, then 500 pairs of base + 0.1 and base + 0.3.
std::vector<double> numAcc(double base) {
    std::vector<double> values{base + 0.2};
    for (int i = 0; i < 500; ++i) values.insert(values.end(), {base + 0.1, base + 0.3});
    return values;
}

std::vector<double> dataSet(const std::string& name) {
    const std::string path = METRISK_SOURCE_DIR "/tests/uncertainty/data/" + name + ".txt";
    return readSampleColumn(testing::fileContent(path), {}).values;
}

TEST(Samples, PublishedStatistics) {
    const struct {
        const char* source;
        std::vector<double> values;
        double mean, meanWithin, stdDev, stdDevWithin, ofMean, ofMeanWithin;
    } cases[] = {
        {"GUM 4.4.3, table 1",
         {96.9,   98.18,  98.25,  98.61,  99.03,  99.49, 99.56,  99.74,  99.89,  100.07,
          100.33, 100.42, 100.68, 100.95, 101.11, 101.2, 101.57, 101.84, 102.36, 102.72},
         100.145,
         1e-12,
         1.489,
         5e-4,
         0.333,
         5e-4},
        {"GUM H.2 table H.2 (mA)",
         {19.663, 19.639, 19.64, 19.685, 19.678},
         19.6610,
         1e-12,
         0.0212,
         5e-5,
         0.0095,
         5e-5},
        {"GUM H.5 table H.9",
         {10.000172, 10.000116, 10.000013, 10.000144, 10.000106, 10.000031, 10.00006, 10.000125, 10.000163,
          10.000041},
         10.000097,
         5e-7,
         0.000057,
         5e-7,
         1.8053e-5,
         1e-8},
        // Certified values. Decimals are rounded to doubles before any sum is made, which costs most where
        // the values have most in common.
        {"NIST StRD Michelso", dataSet("michelso"), 299.8524, 1e-13, 0.0790105478190518, 2e-15,
         0.0790105478190518 / 10, 2e-16},
        {"NIST StRD Lew", dataSet("lew"), -177.435, 1e-13, 277.332168044316, 1e-12,
         277.332168044316 / std::sqrt(200), 1e-13},
        {"NIST StRD NumAcc2", numAcc(1), 1.2, 1e-15, 0.1, 1e-15, 0.1 / std::sqrt(1001), 1e-15},
        {"NIST StRD NumAcc3", numAcc(1000000), 1000000.2, 1e-9, 0.1, 2e-10, 0.1 / std::sqrt(1001), 1e-11},
        {"NIST StRD NumAcc4", numAcc(10000000), 10000000.2, 1e-8, 0.1, 2e-9, 0.1 / std::sqrt(1001), 1e-10},
    };
    for (const auto& c : cases) {
        const SampleFigures f = sampleFigures(c.values);
        EXPECT_NEAR(f.mean, c.mean, c.meanWithin) << c.source;
        EXPECT_NEAR(f.stdDeviation, c.stdDev, c.stdDevWithin) << c.source;
        EXPECT_NEAR(f.inTheMean, c.ofMean, c.ofMeanWithin) << c.source;
    }
}

TEST(Samples, FillTheirRow) {
    const Regional regional;
    Analysis r;
    r.MTE_TolUnitsFactor = 1000; // V and mV
    r.Stat_Flag1[2] = 1;         // measured values
    const double values[] = {10.001, 10.003, 10.002, 10.004};
    StoreSamples(r, 2, values, 3, regional);
    const double s = std::sqrt(5.0 / 3) / 1000, t = 3.182446305284263; // t of 95 % with 3 degrees of freedom
    EXPECT_EQ(r.Stat_Include[2], 1);
    EXPECT_NEAR(r.Stat_SampleMean[2], 10.0025, 1e-14);
    EXPECT_NEAR(r.Stat_SampleStdDev[2], 1000 * s, 1e-11);
    EXPECT_NEAR(r.Stat_Value8[2], t * s, 1e-14);
    const ErrorTableRow row = readErrorTableRow(r, 7, regional);
    EXPECT_NEAR(row.uncertainty.value, 1000 * s, 1e-11);
    EXPECT_NEAR(row.limit.value, 1000 * t * s, 1e-11);
    EXPECT_EQ(row.uncertainty.shown, "1.291") << "with the decimals of the samples";
    EXPECT_EQ(row.degFreedom.shown, "3.00");
    EXPECT_EQ(row.confidence.shown, "95");
    EXPECT_TRUE(row.included);

    r.Stat_Flag2[2] = -1; // the deviation of the mean
    StoreSamples(r, 2, values, 3, regional);
    EXPECT_NEAR(r.Stat_Value8[2], t * s / 2, 1e-14);
    StoreSamples(r, 2, std::span(values).first(1), 3, regional);
    EXPECT_EQ(r.Stat_SampleMean[2], 10.001);
    EXPECT_EQ(r.Stat_SampleStdDev[2], 0);
    EXPECT_FALSE(readErrorTableRow(r, 7, regional).included) << "one value has no spread";
}

} // namespace
} // namespace metrisk

#include "base/DecimalForm.h"
#include "base/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using namespace metrisk;

namespace {

const Regional american;
constexpr double infinity = std::numeric_limits<double>::infinity();

struct FormatRow {
    double value;
    std::string picture, text;
};

} // namespace

TEST(Picture, ShowsValues) {
    const FormatRow rows[] = {
        {1234.5, "#,##0.0000", "1,234.5000"},
        {-1234567.891, "#,##0.00", "-1,234,567.89"},
        {0.5, "##0", "1"}, // half away from zero, not to even
        {2.5, "##0", "3"},
        {-2.5, "##0", "-3"},
        {1.005, "0.00", "1.01"}, // on the decimal form, not on the binary one
        {0.285, "0.00", "0.29"},
        {9.995, "0.00", "10.00"},
        {-0.001, "#,##0.00", "-0.00"},
        {-0.0, "0.0", "0.0"},
        {0, "#", ""},
        {0.4, "#", ""},
        {7, "#", "7"},
        {0, "#,###", ""},
        {1, "#,###", "1"},
        {12345, "###,##0.00", "12,345.00"},
        {1, "##0.####", "1"},
        {1.25, "##0.####", "1.25"},
        {1, "#,##0.0###", "1.0"},
        {0.5, "###.00", ".50"},
        {0.5, "#.##0", ".500"},
        {0, "#.##", ""},
        {3, "#,##0.", "3"},
        {5, "000", "005"},
        {123, "0,000", "0123"}, // grouped it would read as a fraction
        {1e21, "#,##0", "1,000,000,000,000,000,000,000"},
        {1e-300, "0.00", "0.00"},
        {0.1, "0.00000000000000000000", "0.10000000000000000000"},
        {123.456, "", "123.456"},
        {123.456, "text", "123.456"},
        {1234.5, "Standard", "1,234.50"},
        {1234.5, "fixed", "1234.50"},
        {0.125, "Percent", "12.50%"},
        {-0.00012345, "Scientific", "-1.23E-04"},
        {0, "Scientific", "0.00E+00"},
        {0.5 + 5.0 / 1440, "h:mm AM/PM", "12:05 PM"},
        {infinity, "0.00", ""},
        {-infinity, "Percent", ""},
        {std::nan(""), "h:mm AM/PM", ""},
        {std::numeric_limits<double>::max(), "Percent", ""},
    };
    for (const FormatRow& row : rows)
        EXPECT_EQ(FormatNumber(row.value, row.picture, american), row.text)
            << row.value << " in " << row.picture;
}

TEST(Picture, RoundsHalfAwayFromZeroOnFifteenDigits) {
    const struct {
        double value, expected;
    } rows[] = {{0, 0},
                {1.00005, 1.0001},   // a little below the half in binary
                {-1.00005, -1.0001}, //
                {2.000049999999, 2},
                {0.00005, 0.0001},
                {0.0000499999999999999, 0},
                {0.000049999999999999999, 0.0001}, // 5.00000000000000e-05 in 15 digits
                {1e-20, 0},
                {123456.78905, 123456.7891},
                {12345678901.2345, 12345678901.2345},
                {1234567890123456.7, 1234567890123460.0},
                {9.99995, 10},
                {1e300, 1e300}};
    for (const auto& row : rows) EXPECT_EQ(roundedToDecimals(row.value, 4), row.expected) << row.value;
}

TEST(Picture, GeneralTextIsTheShortestOfFifteenDigits) {
    const std::pair<double, std::string> rows[] = {
        {0, "0"},
        {0.5, "0.5"},
        {-12, "-12"},
        {1e15, "1E+15"},
        {123456789012345, "123456789012345"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {1e-7 / 3, "3.33333333333333E-08"},
        {1e-5, "0.00001"},
        {1e300, "1E+300"},
        {-1.5e-200, "-1.5E-200"},
        {std::nan(""), ""},
    };
    for (const auto& [value, text] : rows) EXPECT_EQ(GeneralText(value, american), text);
    EXPECT_EQ(GeneralText(-0.5, Regional{";", ",", ".", "\u2212"}), "\u22120,5");
}

TEST(Picture, IsMadeForDecimals) {
    EXPECT_EQ(PictureForDecimals(-3), "#,##0");
    EXPECT_EQ(PictureForDecimals(0), "#,##0");
    EXPECT_EQ(PictureForDecimals(3), "#,##0.000");
    EXPECT_EQ(PictureForDecimals(std::numeric_limits<int>::max()).size(), 6u + maxPictureDecimals);
    EXPECT_EQ(PictureDecimals("#,##0.00"), 2);
    EXPECT_EQ(PictureDecimals("##0"), 0);
    EXPECT_EQ(PictureDecimals(".##0"), 3);
    EXPECT_EQ(HeldOffsetPicture(2, 3), "#,##0.00000");
    EXPECT_EQ(ShownOffsetPicture("#,##0.00000", 3), "#,##0.00");
    EXPECT_EQ(ShownOffsetPicture("#,##0.0000", 6), "#,##0");
}

TEST(Picture, WidensUntilTheValueShows) {
    const FormatRow rows[] = {
        {0.00002, "##0.00", "#,##0.00000"}, {0, "##0.00", "##0.00"},
        {0.02, "##0.00", "##0.00"},         {1.00002, "##0.00", "##0.00"},
        {-0.0003, "0.0", "#,##0.0000"},     {1e-30, "##0", "#,##0.00000000000"},
        {infinity, "##0", "##0"},           {0.001, "##0.00", "#,##0.000"},
    };
    for (const FormatRow& row : rows) EXPECT_EQ(WidenPicture(row.value, row.picture), row.text) << row.value;
}

TEST(Picture, CountsTheDecimalsOfAValue) {
    EXPECT_EQ(DecimalsOfValue(0.125, 0), 3);
    EXPECT_EQ(DecimalsOfValue(0.125, 5), 5);
    EXPECT_EQ(DecimalsOfValue(100, 0), 0);
    EXPECT_EQ(DecimalsOfValue(0.1 + 0.2, 0), 1);
    EXPECT_EQ(DecimalsOfValue(1e-20, 20), 20);
    EXPECT_EQ(DecimalsOfValue(1e-20, 0), 0);
    EXPECT_EQ(DecimalsOfValue(std::nan(""), -4), 0);
}

TEST(Picture, RatioShowsWithinItsTolerance) {
    const std::pair<double, std::string> rows[] = {
        {0, "###"},        {4, "#,##0"},   {4.003, "#,##0"},       {4.01, "#,##0.00"},
        {-2.5, "#,##0.0"}, {1e-20, "##0"}, {0.0123, "#,##0.0000"}, {std::nan(""), "###"},
    };
    for (const auto& [value, picture] : rows) EXPECT_EQ(RatioPicture(value, 0.001), picture) << value;
}

// What a user sees and commits again must be the number he saw, wherever he lives.
TEST(Picture, ShownTextReadsBackAsTheRoundedNumber) {
    const Regional regionals[] = {
        american,
        {";", ",", ".", "-"},
        {";", ",", "\u202F", "-"},
        {";", ",", "\u00A0", "\u2212"},
        {";", ",", " ", "-"},
        {",", ".", "\u2019", "-"},
        {",", ".", "", "-"},
        {";", "\u066B", "\u066C", "\u200E-"},
        {";", ",", ",", "-"}, // badly set by the user
        {";", "", "5", "7"},
    };
    std::mt19937_64 random(20240501);
    std::uniform_real_distribution<double> mantissa(-1, 1);
    std::uniform_int_distribution<int> exponent(-20, 20), decimals(0, 12);
    for (const Regional& regional : regionals) {
        for (int i = 0; i < 2000; ++i) {
            const double value = mantissa(random) * std::pow(10, exponent(random));
            const int n = decimals(random);
            const std::string text = FormatNumber(value, PictureForDecimals(n), regional);
            ASSERT_EQ(ParseValue(text, regional), roundedToDecimals(value, n))
                << value << " with " << n << " decimals shown as " << text;
            ASSERT_EQ(CountDecimals(text, regional), n) << text;
            const std::string general = GeneralText(value, regional);
            ASSERT_NEAR(ParseValue(general, regional), value, std::fabs(value) * 1e-14) << general;
        }
    }
}

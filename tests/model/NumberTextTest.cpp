#include "model/NumberText.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

using namespace metrisk;

const Regional english;
const Regional german{";", ",", ".", "-"};
const Regional french{";", ",", "\u202F", "-"};
const Regional swiss{",", ".", "'", "-"};
const Regional swedish{";", ",", "\u00A0", "\u2212"};

struct ParseRow {
    const Regional& regional;
    std::string text;
    double value;
    int decimals;
};

TEST(NumberText, ParsesLooseText) {
    const ParseRow rows[] = {
        {english, "", 0, 0},
        {english, "   ", 0, 0},
        {english, "10.50", 10.5, 2},
        {english, "10.50 V", 10.5, 2},
        {english, "approx. 10.50 V dc", 10.5, 2},
        {english, "V 2.5", 2.5, 1},
        {english, "$1,234.5", 1234.5, 1},
        {english, "95 %", 95, 0},
        {english, "95.00%", 95, 2},
        {english, "-.5", -0.5, 1},
        {english, "+3", 3, 0},
        {english, "1.5E-3", 0.0015, 1},
        {english, "1e400", 0, 0},
        {english, "1e-400", 0, 0},
        {english, "12abc", 12, 0},
        {english, "abc", 0, 0},
        {english, "--5", 0, 0},
        {english, "nan", 0, 0},
        {english, "inf", 0, 0},
        {english, "1.2.3", 1.2, 1},
        {english, "7\r\n", 7, 0},
        {english, "\u2212" "4.0", -4, 1},
        {english, "\u202E" "5", 0, 0},
        {english, std::string(400, '9'), 0, 0},
        {english, "0." + std::string(400, '3'), 1.0 / 3, 400},
        {german, "1,5", 1.5, 1},
        {german, "1.5", 1.5, 1},
        {german, "1.234,5 mV", 1234.5, 1},
        {german, "1.234.567", 1234567, 0},
        {french, "1\u202F" "234,50", 1234.5, 2},
        {french, "1 234,50 V", 1234.5, 2},
        {french, "12 34", 12, 0},
        {swiss, "1'234.5", 1234.5, 1},
        {swedish, "\u2212" "1\u00A0" "234,5", -1234.5, 1},
    };
    for (const ParseRow& row : rows) {
        EXPECT_DOUBLE_EQ(ParseValue(row.text, row.regional), row.value) << row.text.substr(0, 40);
        EXPECT_EQ(CountDecimals(row.text, row.regional), row.decimals) << row.text.substr(0, 40);
    }
    EXPECT_EQ(CountSignificantDecimals("1.2500", english), 2);
    EXPECT_EQ(CountSignificantDecimals("1.000", english), 0);
    EXPECT_EQ(CountSignificantDecimals("17", english), 0);
}

TEST(NumberText, TellsNumbersFromOtherText) {
    for (const char* text : {"1", "-1", "+1.5", ".5", "5.", "1,234.5", "1e5", "1E-05", "12%", "$3", " 4 "})
        EXPECT_TRUE(isNumeric(text, english)) << text;
    for (const char* text : {"", " ", "a", "1a", "1 V", "--1", "1-", ".", "e5", "1e", "%", "1 2"})
        EXPECT_FALSE(isNumeric(text, english)) << text;
}

struct FormatRow {
    double value;
    const char* picture;
    const char* text;
};

TEST(NumberText, FormatsByPictures) {
    const FormatRow rows[] = {
        {10.5, "#,##0.0000", "10.5000"},
        {1234567.891, "#,##0.00", "1,234,567.89"},
        {999.5, "#,##0", "1,000"},
        {0.5, "##0", "1"},
        {2.5, "##0", "3"},
        {-2.5, "##0", "-3"},
        {1.005, "##0.00", "1.01"}, // half by its 15 digits, whatever the binary fraction
        {0.4, "##0", "0"},
        {-0.4, "##0", "-0"},
        {0, "#", ""},
        {0.3, "#", ""},
        {7, "#", "7"},
        {1, "#,###", "1"},
        {1234, "#,###", "1,234"},
        {0.25, "#.##", ".25"},
        {0.2, "0.0##", "0.2"},
        {0.23456, "0.0##", "0.235"},
        {5, "000", "005"},
        {12, "#0.00", "12.00"},
        {0.123, "0.00%", "12.30%"},
        {0.123, "Percent", "12.30%"},
        {12345.678, "Scientific", "1.23E+04"},
        {0.000999999, "Scientific", "1.00E-03"},
        {0, "Scientific", "0.00E+00"},
        {1234.5, "Standard", "1,234.50"},
        {1234.5, "Fixed", "1234.50"},
        {0.25, "General Number", "0.25"},
        {0.5, "h:mm AM/PM", "12:00 PM"},
        {0.0, "h:mm AM/PM", "12:00 AM"},
        {0.99999, "h:mm AM/PM", "12:00 AM"},
        {1e22, "#,##0", "10,000,000,000,000,000,000,000"},
        {std::nan(""), "##0", ""},
        {HUGE_VAL, "##0", ""},
    };
    for (const FormatRow& row : rows)
        EXPECT_EQ(FormatNumber(row.value, row.picture, english), row.text) << row.value << " in " << row.picture;
    EXPECT_EQ(FormatNumber(1234.5, "#,##0.00", german), "1234,50") << "no marks that read back as a decimal";
    EXPECT_EQ(FormatNumber(-1234.5, "#,##0.00", swedish), "\u2212" "1\u00A0" "234,50");
}

TEST(NumberText, GeneralTextIsShortAndReadsBack) {
    const std::pair<double, const char*> rows[] = {
        {0, "0"}, {0.5, "0.5"}, {-0.25, "-0.25"}, {1e15, "1E+15"}, {123456789012345, "123456789012345"},
        {1e-16, "1E-16"}, {0.00001, "0.00001"}, {0.1 + 0.2, "0.3"}, {1.0 / 3, "0.333333333333333"},
        {2e-300, "2E-300"}, {0.000123456789012345, "1.23456789012345E-04"}};
    for (const auto& [value, text] : rows) EXPECT_EQ(GeneralText(value, english), text);
    EXPECT_EQ(GeneralText(-0.5, swedish), "\u2212" "0,5");
}

TEST(NumberText, ShownTextReadsBackAsTheRoundedNumber) {
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> mantissa(-10, 10);
    std::uniform_int_distribution<int> power(-6, 9), decimals(0, 9);
    for (int i = 0; i < 20000; ++i) {
        const double value = mantissa(random) * std::pow(10.0, power(random));
        const int n = decimals(random);
        for (const Regional* regional : {&english, &german, &french, &swiss, &swedish}) {
            const std::string text = FormatNumber(value, PictureForDecimals(n), *regional);
            const double back = ParseValue(text, *regional);
            ASSERT_NEAR(back, value, 0.5000001 * std::pow(10.0, -n) + std::fabs(value) * 1e-14)
                << text << " with " << n << " decimals, decimal symbol " << regional->DecimalSymbol;
            ASSERT_TRUE(back == 0 || FormatNumber(back, PictureForDecimals(n), *regional) == text) << text;
            ASSERT_EQ(CountDecimals(text, *regional), n) << text;
        }
    }
}

TEST(NumberText, BuildsPictures) {
    EXPECT_EQ(PictureForDecimals(-3), "#,##0");
    EXPECT_EQ(PictureForDecimals(0), "#,##0");
    EXPECT_EQ(PictureForDecimals(3), "#,##0.000");
    EXPECT_EQ(WidenPicture(0.00002, "##0.00"), "#,##0.00000");
    EXPECT_EQ(WidenPicture(0, "##0.00"), "##0.00");
    EXPECT_EQ(WidenPicture(12.5, "##0"), "##0");
    EXPECT_EQ(WidenPicture(0.02, "##0.00"), "##0.00");
    EXPECT_EQ(WidenPicture(1e-30, "##0.00"), PictureForDecimals(11));
    EXPECT_EQ(DecimalsOfValue(0.125, 0), 3);
    EXPECT_EQ(DecimalsOfValue(0.125, 5), 5);
    EXPECT_EQ(DecimalsOfValue(1.0 / 3, 0), 14);
    EXPECT_EQ(RatioPicture(0, 0.001, english), "###");
    EXPECT_EQ(RatioPicture(1e-20, 0.001, english), "##0");
    EXPECT_EQ(RatioPicture(4, 0.001, english), "#,##0");
    EXPECT_EQ(RatioPicture(-4.5, 0.001, english), "#,##0.0");
    EXPECT_EQ(RatioPicture(1.23456, 0.001, english), "#,##0.000");
}

TEST(NumberText, WritesEntriesOut) {
    const std::tuple<const char*, const char*, int> rows[] = {
        {"10.50 V", "10.50", 2}, {"1.5E-3", "0.0015", 4}, {"1.50e2", "150", 0},   {"12.5%", "12.5", 1},
        {"", "", 0},             {"V", "", 0},            {"1E-30", "1E-30", 30}, {"2e", "2", 0}};
    for (const auto& [text, plain, digits] : rows) {
        EXPECT_EQ(NormalizeBoxText(text, english), plain) << text;
        EXPECT_EQ(DigitsForEntry(text, english), digits) << text;
    }
    EXPECT_EQ(DisplayValueText("95.0 %", english), "95.0 ");
    EXPECT_EQ(DisplayValueText("1.5E-3", german), "0,0015");
}

TEST(NumberText, OffsetPicturesLoseNoDigitsBetweenUnits) {
    // 0.25 mV of a volt: two decimals typed, three more in nominal units.
    const std::string held = heldPicture("0.25", 3, english);
    EXPECT_EQ(held, "#,##0.00000");
    EXPECT_EQ(shownPicture(held, 3), "#,##0.00");
    EXPECT_EQ(shownPicture("#,##0.0", 3), "#,##0");
}

} // namespace

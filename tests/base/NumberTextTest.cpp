#include "base/NumberText.h"

#include <gtest/gtest.h>

using namespace metrisk;

namespace {

const Regional american;
const Regional german{";", ",", ".", "-"};
const Regional french{";", ",", "\u202F", "-"};
const Regional swedish{";", ",", "\u00A0", "\u2212"};
const Regional swiss{";", ".", "\u2019", "-"};

std::string nameOf(const Regional& regional) {
    return "decimal '" + regional.DecimalSymbol + "' thousands '" + regional.ThousandSeparator + "'";
}

struct ParseRow {
    const Regional& regional;
    std::string text;
    double value;
    int decimals;
};

} // namespace

TEST(NumberText, ReadsLooseText) {
    const ParseRow rows[] = {
        {american, "", 0, 0},
        {american, "   ", 0, 0},
        {american, "10.50", 10.5, 2},
        {american, "10.50 mV", 10.5, 2},
        {american, "mV 10.50", 10.5, 2},
        {american, "DC mV 10.50", 10.5, 2},
        {american, "10.50V", 10.5, 2},
        {american, "12V max", 0, 0}, // neither part is a number
        {american, "95.0 %", 95, 1},
        {american, "95.0%", 95, 1},
        {american, "$1,234.50", 1234.5, 2},
        {american, "-$5", -5, 0},
        {american, "1,234", 1234, 0},
        {american, "-1,234,567", -1234567, 0},
        {american, "12,34,567", 1234567, 0},
        {american, "1,5", 1.5, 1}, // a lone comma that cannot group
        {american, "0,500", 0.5, 3},
        {american, "1234,567 V", 1234.567, 3},
        {american, ",25", 0.25, 2},
        {american, "1,5E-3", 0.0015, 1},
        {american, "1.234,5", 1234.5, 1},
        {american, "1.234.567,5", 1234567.5, 1},
        {american, "1.2,5", 1.2, 1},
        {american, "12,", 12, 0},
        {american, ".5", 0.5, 1},
        {american, "5.", 5, 0},
        {american, "-.25", -0.25, 2},
        {american, "+7", 7, 0},
        {american, "\u22125.5", -5.5, 1},
        {american, "1.5E-3", 0.0015, 1},
        {american, "1e3 ohm", 1000, 0},
        {american, "1 E3", 1, 0},
        {american, "2E", 2, 0},
        {american, "1.2.3", 1.2, 1},
        {american, "1\u202F234.5", 1234.5, 1},
        {american, "10.5\u00A0V", 10.5, 1},
        {american, "10.5\r\n", 10.5, 1},
        {american, "\u200E-5\u200F", -5, 0},
        {american, "\uFEFF42", 42, 0},
        {american, "5\u0301", 5, 0},
        {american, std::string("7\0007", 3), 7, 0},
        {american, "nan", 0, 0},
        {american, "-inf", 0, 0},
        {american, "0x10", 0, 0},
        {american, "1E400", 0, 0},
        {american, "1E-400", 0, 0},
        {american, "1E99999999999999999999", 0, 0},
        {american, std::string(400, '9'), 0, 0},
        {american, "0." + std::string(400, '0') + "1", 0, 401},
        {american, std::string(100000, '1'), 0, 0},
        {german, "10,50", 10.5, 2},
        {german, "10.50", 10.5, 2},
        {german, "1.234,50", 1234.5, 2},
        {german, "1.234.567", 1234567, 0},
        {german, "1.234", 1.234, 3},
        {german, "10,5 mV", 10.5, 1},
        {french, "1\u202F234\u202F567,5", 1234567.5, 1},
        {french, "1 234,5", 1234.5, 1},
        {french, "0,5 100", 0.5, 1},
        {french, "1234,5 m", 1234.5, 1},
        {french, "12 34", 12, 0}, // no group of three: a blank before units
        {swedish, "\u22121\u00A0234,5", -1234.5, 1},
        {swiss, "1\u2019234.5", 1234.5, 1},
        {swiss, "1'234.5", 1234.5, 1},
        {swiss, "1,234", 1.234, 3}, // groups with an apostrophe only
    };
    for (const ParseRow& row : rows) {
        const std::string shown = row.text.substr(0, 60) + " in " + nameOf(row.regional);
        EXPECT_EQ(ParseValue(row.text, row.regional), row.value) << shown;
        EXPECT_EQ(CountDecimals(row.text, row.regional), row.decimals) << shown;
    }
}

TEST(NumberText, CleansToPeriodForm) {
    EXPECT_EQ(CleanNumberText(" V 1.234,50 ", german), "1234.50");
    EXPECT_EQ(CleanNumberText("-1,234.5E+03 V", american), "-1234.5E+03");
    EXPECT_EQ(CleanNumberText("none", american), "none");
    EXPECT_EQ(CountSignificantDecimals("1.2300 V", american), 2);
    EXPECT_EQ(CountSignificantDecimals("1.000", american), 0);
    EXPECT_EQ(CountSignificantDecimals("12", american), 0);
}

TEST(NumberText, CommittedTextIsPlainAndKeepsItsDigits) {
    struct Row {
        const Regional& regional;
        std::string text, shown;
        int digits;
    };
    const Row rows[] = {
        {american, "10.50", "10.50", 2},
        {american, "1234.5", "1,234.5", 1},
        {american, "1.50E-3", "0.00150", 5},
        {american, "1.5E3", "1,500", 0},
        {american, "1E-9", "0.000000001", 9},
        {american, "95.0%", "95.0", 1},
        {american, "10.5 mV", "10.5", 1},
        {american, "", "0", 0},
        {american, "1E400", "0", 0},
        {german, "1.234,50", "1234,50", 2},
        {german, "2.5", "2,5", 1},
        {french, "1234567,5", "1\u202F234\u202F567,5", 1},
        {swedish, "-1,50", "\u22121,50", 2},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(NormalizeBoxText(row.text, row.regional), row.shown)
            << row.text << " " << nameOf(row.regional);
        EXPECT_EQ(DigitsForEntry(row.text, row.regional), row.digits)
            << row.text << " " << nameOf(row.regional);
    }
}

namespace {

TEST(NumberText, TellsNumbersFromOtherText) {
    const metrisk::Regional english;
    for (const char* text : {"1", "-1", "+1.5", ".5", "5.", "1,234.5", "1e5", "1E-05", "12%", "$3", " 4 "})
        EXPECT_TRUE(metrisk::isNumeric(text, english)) << text;
    for (const char* text : {"", " ", "a", "1a", "1 V", "--1", "1-", ".", "e5", "1e", "%", "1 2"})
        EXPECT_FALSE(metrisk::isNumeric(text, english)) << text;
}

} // namespace

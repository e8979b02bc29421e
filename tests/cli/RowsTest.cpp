// Tables of test points: figures as those of single files, forms, bad tables, splits and stopped runs.
#include "base/NumberText.h"
#include "persistence/AnalysisContent.h"
#include "record/Analysis.h"
#include "tests/cli/Cli.h"
#include "units/database/UnitsDatabase.h"

#include <random>
#include <regex>
#include <sys/stat.h>

namespace metrisk::testing {

namespace {

/// Of the digits that a file holds, and one that it gives back to the bit.
bool survives(double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.15g", value);
    return std::strtod(text, nullptr) == value;
}

double decimal(std::mt19937& random, double from, double to, int decimals) {
    char text[40];
    std::snprintf(text, sizeof text, "%.*f", decimals, std::uniform_real_distribution(from, to)(random));
    return std::strtod(text, nullptr);
}

/// A test as a record, entered as a user would leave it, and as a line of a table.
struct Point {
    Analysis record;
    json row;
};

/// None where a sum does not survive a file.
std::optional<Point> pointOf(std::mt19937& random, int kind) {
    Point p;
    Analysis& r = p.record;
    const auto put = [&](const char* name, double value) { return p.row[name] = value, value; };
    r.SU_Mode = r.MTE_Mode = put("nominal", decimal(random, -20, 20, 2));
    r.OptTwoSided = kind % 4 < 2;
    r.OptSingleUpper = kind % 4 == 2;
    r.OptSingleLower = kind % 4 == 3;
    if (!r.OptTwoSided) p.row["sided"] = r.OptSingleUpper ? "upper" : "lower";
    const double upper = decimal(random, 0.2, 2, 2);
    const double lower = kind % 4 == 1 ? decimal(random, 0.2, 2, 2) : upper;
    if (kind % 4 == 1)
        put("tol_upper", upper), put("tol_lower", lower);
    else
        put("tol", upper);
    if (!r.OptSingleLower) r.SU_UpperOffset = r.SU_UpperFixed = upper;
    if (!r.OptSingleUpper) r.SU_LowerOffset = r.SU_LowerFixed = lower;
    r.SU_UpperLimit = r.SU_Mode + r.SU_UpperOffset;
    r.SU_LowerLimit = r.SU_Mode - r.SU_LowerOffset;
    r.SU_PctInTol = put("su_pct", kind == 4 ? 100 : decimal(random, 40, 99.9, 1));
    if (!r.OptTwoSided && kind % 3 == 0) {
        r.PhysLimitRequired = r.PhysicalLimitEntered = true;
        const double away = decimal(random, -3, 3, 1);
        r.PhysicalLimit =
            put("phys", kind % 5 == 0 ? r.SU_Mode : decimal(random, r.SU_Mode + away, r.SU_Mode + away, 2));
    }
    r.MTE_EntryByUncertainty = kind % 2 == 1;
    r.MTE_Offset = put(r.MTE_EntryByUncertainty ? "mte_expanded" : "mte_tol", decimal(random, 0.02, 0.8, 3));
    if (!r.MTE_EntryByUncertainty) r.MTE_FixedOffset = r.MTE_Offset;
    r.MTE_PctInTol = put(r.MTE_EntryByUncertainty ? "mte_conf" : "mte_pct", decimal(random, 60, 99.5, 1));
    if (kind % 6 == 1) r.MTE_DegFreedom = put("mte_dof", decimal(random, 3, 60, 0));
    r.MTE_UpperLimit = r.MTE_Mode + r.MTE_Offset;
    r.MTE_LowerLimit = r.MTE_Mode - r.MTE_Offset;
    if (kind % 5 == 1) {
        r.IncludeUncertainty = true;
        r.ProcessUncertainty = put("process_u", decimal(random, 0.01, 0.2, 3));
    }
    if (kind % 7 == 2) {
        r.IncludeGuardbands = true;
        r.GB_UpperMult = put("gb_upper", decimal(random, 0.5, 1.2, 2));
        r.GB_LowerMult = put("gb_lower", decimal(random, 0.5, 1.2, 2));
    }
    if (kind % 2 == 0) r.FalseAcceptOption = 1, p.row["convention"] = "producer";
    if (kind % 9 == 3) r.EqRatioOnFalseAccept = false, p.row["eq_on"] = "fr";
    const bool whole = survives(r.SU_UpperLimit) && survives(r.SU_LowerLimit) && survives(r.MTE_UpperLimit) &&
                       survives(r.MTE_LowerLimit);
    return whole ? std::optional(p) : std::nullopt;
}

class Rows : public Cli {
  protected:
    std::string table(int rows) {
        std::string text = "id,nominal[V],tol[mV],su_pct,mte_u,note\n";
        std::mt19937 random(7);
        for (int i = 0; i < rows; ++i) {
            text += std::to_string(i) + "," + std::to_string(decimal(random, 1, 9, 2)) + "," +
                    std::to_string(decimal(random, -5, 500, 1)) + ",";
            text += i % 17 == 3 ? "95 %%," : i % 11 == 4 ? "-1," : "95,";
            text += "20 mV,";
            text += i % 13 == 5   ? "\"two\nlines\"\n"
                    : i % 19 == 6 ? "a\"b\n"
                    : i % 23 == 7 ? "x\r\n\n"
                                  : "x\n";
        }
        return text;
    }
};

} // namespace

TEST_F(Rows, AreSingleFilesToTheBit) {
    std::mt19937 random(20);
    std::string lines, files;
    for (int kind = 0, found = 0; found < 240; ++kind) {
        const auto point = pointOf(random, kind);
        if (!point) continue;
        const std::string name = "p" + std::to_string(found++) + ".mrk";
        write(name.c_str(), AnalysisText(point->record));
        files += name + " ";
        lines += point->row.dump() + "\n";
    }
    write("points.jsonl", lines);
    const std::vector<json> rows =
        run("rows points.jsonl --want risks,tur,ratio,exact,baseline,fit,uncertainty").lines();
    const std::vector<json> single = run("compute --json " + files).lines();
    ASSERT_EQ(rows.size(), single.size());
    int computed = 0;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const json &row = rows[i], &file = single[i];
        const bool refused = file["status"] == "refused";
        EXPECT_EQ(row["status"] == "refused", refused) << row << file;
        if (refused) {
            const json message = file["messages"].back();
            const std::string title = message["title"].get<std::string>() + ": ";
            EXPECT_EQ(row["message"].get<std::string>().substr(0, title.size()), title) << row << file;
            continue;
        }
        ++computed;
        const char* names[][2] = {{"FalseAccept", ""},
                                  {"FalseReject", ""},
                                  {"FalseAcceptConsumer", ""},
                                  {"FalseAcceptProducer", ""},
                                  {"TUR", ""},
                                  {"SigmaRatio", "UncertaintyRatio"},
                                  {"EqAccRat", ""},
                                  {"EqAccRatAttained", ""},
                                  {"BaselineFalseAccept", ""},
                                  {"BaselineFalseReject", ""},
                                  {"SU_Distribution", ""},
                                  {"SU_CaseCode", ""},
                                  {"SU_Sigma", ""},
                                  {"FitPhysicalLimit", "PhysicalLimit"},
                                  {"MTE_Sigma", ""},
                                  {"MTE_kFactor", ""},
                                  {"AgreeingDigits", ""},
                                  {"CoverageFactor", ""},
                                  {"ExpandedUncertainty", ""},
                                  {"ToleranceToUncertainty", ""},
                                  {"Accepted", ""},
                                  {"InTolerance", ""}};
        for (const auto& [name, other] : names)
            EXPECT_EQ(row[name], file[*other ? other : name]) << name << row << file;
        EXPECT_EQ(row["ExactFalseReject"], file["Verified"]["FalseReject"]["value"]);
        EXPECT_EQ(row["status"] == "note", !file["messages"].empty()) << row << file["messages"];
    }
    EXPECT_GT(computed, 150);
}

TEST_F(Rows, HaveTheFiguresOfTheirTemplate) {
    write("one.csv", "id,su_pct\n1,\n");
    for (const char* file :
         {"multimeter-dc-volts", "thermometer-process-uncertainty", "battery-capacity-minimum"}) {
        const std::string path = std::string("ex/") + file + ".mrk";
        const json single = run("compute --json " + path).lines().at(0);
        const std::string out =
            run("rows one.csv -q --no-header --header 'id,su_pct' --template " + path + " --want risks").out;
        const std::string last = out.substr(out.find('\n') + 1);
        double fa = 0;
        ASSERT_EQ(std::sscanf(last.c_str(), "1,,%*[a-z],%lf", &fa), 1) << out;
        EXPECT_EQ(fa, single["FalseAccept"].get<double>()) << file;
    }
}

TEST_F(Rows, ReadFormsAndTellWhatIsWrong) {
    const struct {
        const char *header, *row, *status, *message;
    } cases[] = {
        {"nominal[V],tol[mV],su_pct,tur", "10,500,95,4:1", "ok", ""},
        {"nominal,tol,su_pct,tur", "10 V,0.5,95%,4", "ok", ""},
        {"nominal[V],tol,su_pct,tur", "10,5 %,95,4", "ok", ""},
        {"nominal[V],tol,su_pct,tur", "0,5 ppm,95,4", "refused", "cannot be zero"},
        {"nominal[V],upper,lower,su_pct,tur", "10,11,none,95,4", "ok", ""},
        {"nominal[V],upper,lower,su_pct,tur", "10,11,,95,4", "refused",
         "lower is empty: none, or sided=upper"},
        {"nominal,tol,su_pct,mte_u,tur", "10,1,95,0.1,4", "refused", "mte_u and tur both given"},
        {"nominal,tol,su_pct,tur", "10,-1,95,4", "refused", "greater than or equal to zero"},
        {"nominal,tol,su_pct,tur", "10,1,95,\"4,1\"", "bad", "use --decimal-comma"},
        {"nominal,tol,su_pct,tur", "0x10,1,95,4", "bad", "0x10 is no number"},
        {"nominal,tol,su_pct,tur", "1'000,1,95,4", "bad", "is no number"},
        {"nominal,tol,su_pct,tur", "1\u202f000 V,1,95,4", "bad", "is no number"},
        {"nominal,tol,su_pct,tur", "10,1,#N/A,4", "bad", "column su_pct: #N/A is no percentage"},
        {"nominal,tol,su_pct,tur", "10,1 mV,95,4", "bad", "needs a unit of the nominal"},
        {"nominal[V],tol,su_pct,tur", "10,1 min,95,4", "bad", "min is no unit"},
        {"nominal,tol,su_pct,tur", "10,1,95", "bad", "3 cells, wanted 4"},
        {"nominal,tol,su_pct,tur", "10,1,9\"5,4", "bad", "a quote inside a cell"},
        {"nominal,tol,passed,tested,tur", "10,1,19,20,4", "note", "observed"},
        {"nominal,tol,passed,tested,tur", "10,1,20,20,4", "refused", "86.09 %"},
        {"nominal,tol,su_pct,mte_expanded,mte_k,mte_conf", "10,1,95,0.2,2,95", "note", "mte_k counts"},
        {"nominal,tol,su_pct,mte_expanded,mte_k,mte_conf", "10,1,95,0.2,3,95", "refused", "both given"},
        {"nominal,tol,su_pct,mte_tol", "10,1,95,0.2", "refused", "MTE % In-Tolerance"},
        {"nominal,tol,su_pct,mte_expanded,mte_dof", "10,1,95,0.2,inf", "ok", ""},
        {"nominal,tol,su_pct,mte_expanded,mte_dof", "10,1,95,0.2,-5", "bad", "column mte_dof: below 0"},
        {"nominal,tol,su_pct,mte_expanded,mte_dof", "10,1,95,0.2,-inf", "bad", "column mte_dof: below 0"},
        {"nominal,tol,su_pct,tur,phys", "10,1,95,4,1", "refused", "single-sided"},
        {"nominal,tol,su_pct,tur,gb_k", "10,1,95,4,99", "refused", "below the mode value"},
        {"nominal[\xc2\xb0\x43],upper,lower,su_pct,tur", "10,20 K,5 K,95,4", "bad", "temperature"},
        {"nominal,tol,sided,phys,su_pct,tur", "7,2,lower,4.9,90,4", "refused", "1.0608 to 7."},
        {"nominal,tol,sided,phys,su_pct,tur", "7e-6,2e-6,lower,4.9e-6,90,4", "refused",
         "1.0608E-06 to 7E-06."},
        {"nominal,tol,sided,phys,su_pct,tur", "10000,2e-6,lower,9999.9999979,90,4", "refused", " to 10000."},
    };
    for (const auto& one : cases) {
        write("in.csv", std::string(one.header) + "\n" + one.row + "\n");
        const Result result = run("rows in.csv -q --want risks -o - --write-header");
        const std::string row = result.out.substr(result.out.find('\n') + 1);
        EXPECT_NE(row.find(std::string(",") + one.status + ","), std::string::npos) << one.row << ": " << row;
        EXPECT_NE(row.find(one.message), std::string::npos) << one.row << ": " << row;
        EXPECT_EQ(result.status,
                  std::string(one.status) == "ok" || std::string(one.status) == "note" ? 0 : 1);
    }
}

TEST_F(Rows, WhatIsSaidOfBadRowsIsListed) {
    std::string any;
    for (const json& line : run("rows --columns --json").lines()) {
        if (!line.contains("reading")) continue;
        std::string one =
            std::regex_replace(line["reading"].get<std::string>(), std::regex("[A-Z]{3,}"), ".*");
        any += (any.empty() ? "" : "|") + one;
    }
    const std::regex listed(any);
    const char* lines[] = {R"({"nominal":"1,5"})",
                           R"({"su_pct":"a lot"})",
                           R"({"tur":"4:0"})",
                           R"({"mte_dof":"1e999"})",
                           R"({"mte_dof":-5})",
                           R"({"nominal":1,"tol":"1 mV"})",
                           R"({"nominal":"1 V","tol":"1 min"})",
                           R"({"nominal":"1 V","tol":"1 mV","area":"None"})",
                           R"({"sided":"both"})",
                           R"({"convention":"mine"})",
                           R"({"eq_on":"x"})",
                           R"({"nominal":1,"tol":1,"su_pct":95,"tur":4,"rule":"none"})",
                           R"({"tol":1,"tol":2})",
                           R"({"nominal":1,"SU_Mode":2})",
                           R"({"tol":[1]})",
                           R"({"status":"ok"})",
                           R"({"tol":1)",
                           "{\"tol\":1,\"x\":\"a\x04\"}",
                           R"({"nominal":"1 degC","phys":"1 K","sided":"upper"})"};
    std::string content;
    for (const char* line : lines) content += std::string(line) + "\n";
    write("bad.jsonl", content);
    for (const json& row : run("rows bad.jsonl -q --want risks,decide").lines()) {
        EXPECT_EQ(row["status"], "bad") << row;
        EXPECT_TRUE(std::regex_match(row["message"].get<std::string>(), listed)) << row;
    }
    write("bad.csv", "tol,x\n1\n1,a\"b\n1,\"a\"b\n1,\"a\n");
    std::istringstream out(run("rows bad.csv -q --want tur").out);
    std::string row;
    for (std::getline(out, row); std::getline(out, row);) {
        const std::string status = ",bad,,,,";
        const auto at = row.find(status);
        ASSERT_NE(at, std::string::npos) << row;
        std::string message = row.substr(at + status.size());
        std::erase(message, '"');
        EXPECT_TRUE(std::regex_match(message, listed)) << row;
    }
}

TEST_F(Rows, ConvertWidthsOfTemperaturesAndNoPlaces) {
    const std::string_view refused = "column nominal: a temperature must be in the unit of the header";
    const struct {
        const char *header, *nominal, *tol, *want, *column;
        double value; // none where the row is refused
    } cases[] = {{"nominal[°C]", "50 °C", "1", "entries", "SU_Mode[°C]", 50},
                 {"nominal[°C]", "50 °F", "1", "entries", "", 0},
                 {"nominal[°C]", "300 K", "1", "entries", "", 0},
                 {"nominal[K]", "300 °C", "1", "guardband:equal", "", 0},
                 {"nominal[°C]", "50 °F", "1", "decide", "", 0},
                 {"nominal[°C]", "50 °F", "1", "fit", "", 0},
                 {"nominal[K]", "300 mK", "1", "entries", "SU_Mode[K]", 0.3},
                 {"nominal[°C]", "50 °F", "0.9 °F", "uncertainty", "ExpandedUncertainty[°C]",
                  0.25 / 1.8 * 2 / 1.959963984540054},
                 {"nominal[°C]", "50 °F", "0.9 °F", "tur", "TUR", 3.6}};
    for (const auto& one : cases) {
        SCOPED_TRACE(std::string(one.header) + one.nominal + one.want);
        write("t.csv", std::string(one.header) + ",tol,su_pct,mte_expanded,mte_conf,reading\n" + one.nominal +
                           "," + one.tol + ",95,0.25,95," + one.nominal + "\n");
        std::istringstream out(run(std::string("rows t.csv -q --want ") + one.want).out);
        std::string header, row;
        std::getline(out, header), std::getline(out, row);
        EXPECT_EQ(row.find(refused) != row.npos, one.value == 0) << row;
        if (one.value == 0) continue;
        std::istringstream names(header), cells(row);
        std::string name, cell;
        while (name != one.column && std::getline(names, name, ',')) std::getline(cells, cell, ',');
        ASSERT_EQ(name, one.column) << header;
        EXPECT_NEAR(std::stod(cell), one.value, 1e-6 * one.value) << row;
    }
}

TEST_F(Rows, SayInSentencesWhatIsNoJson) {
    const struct {
        const char *line, *message;
    } cases[] = {{R"({tol:1})", "the line has a key without quotes"},
                 {R"({"tol" 1})", "the line lacks a colon"},
                 {R"({"tol":1)", "the line lacks a comma or a brace"},
                 {R"({"x":[1 2]})", "the line lacks a comma or a bracket"},
                 {R"({"tol":})", "the line has a value that is none"},
                 {R"({"tol":01})", "the line has a number that begins with 0"},
                 {R"({"tol":-00.5})", "the line has a number that begins with 0"},
                 {R"({"tol":1}x)", "the line has text behind the object"}};
    std::string content;
    for (const auto& one : cases) content += std::string(one.line) + "\n";
    write("bad.jsonl", content + "{\"tol\":0,\"x\":[-0.5,0e1]}\n");
    const auto rows = run("rows bad.jsonl -q --want tur").lines();
    for (std::size_t i = 0; i < std::size(cases); ++i) EXPECT_EQ(rows.at(i)["message"], cases[i].message);
    EXPECT_TRUE(rows.back().contains("tol")) << "0 is a number";
}

TEST_F(Rows, GiveNoFormulaToASpreadsheet) {
    const struct {
        const char *row, *written;
    } cases[] = {{"=cmd,1,95,4", "'=cmd,1,95,4,ok,"},
                 {"-1,1,95,4", "-1,1,95,4,ok,"},
                 {"\"=a,b\",1,95,4", "\"'=a,b\",1,95,4,ok,"},
                 {"=cmd,1,95", "'=cmd,1,95,,bad,"},
                 {"=cmd,1,9\"5,4", "'=cmd,,,,bad,"}};
    for (const auto& one : cases) {
        write("in.csv", std::string("note,tol,su_pct,tur\n") + one.row + "\n");
        const std::string out = run("rows in.csv -q --safe-cells --want tur").out;
        EXPECT_EQ(out.substr(out.find('\n') + 1).find(one.written), 0U) << out;
    }
}

TEST_F(Rows, RefuseHeadersThatMayMeanAnother) {
    const struct {
        const char *content, *arguments;
        int status;
        const char* told;
    } cases[] = {{"Tol Upper\n1\n", "", 2, "did you mean tol_upper?"},
                 {"tol,u\n1,2\n", "", 2, "mte_u or mte_expanded"},
                 {"tol,tol [mV]\n1,2\n", "", 2, "one entry"},
                 {"SU_Mode,nominal\n1,2\n", "", 2, "one entry"},
                 {"a,b\n1,2\n", "", 2, "no column is known"},
                 {"tol,status\n1,2\n", "", 2, "--prefix"},
                 {"tol,status\n", "--prefix m_", 0, ""},
                 {"tol,x\n", "--only-known", 2, "not known"},
                 {"", "", 3, "is empty"},
                 {"tol,nominal", "", 0, "0 rows"},
                 {"tol,nominal\r1,2\r", "", 3, "lines with CR alone"},
                 {"\xff\xfet\0", "", 3, "UTF-8"},
                 {"tol\n", "--no-header", 2, "--header"},
                 {"tol\n", "--want nothing", 2, "nothing"},
                 {"tol\n", "-o in.csv --force", 2, "not written over"},
                 {"tol\n", "-o pipe --force", 2, "no regular file"},
                 {"tol\n", "-o ex --force", 2, "no regular file"}};
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    for (const auto& one : cases) {
        write("in.csv", one.content);
        const Result result = run(std::string("rows in.csv ") + one.arguments);
        EXPECT_EQ(result.status, one.status) << one.content << result.err;
        EXPECT_NE(result.err.find(one.told), std::string::npos) << one.content << result.err;
    }
}

TEST_F(Rows, AreTheSameInPartsAndByAnyThreads) {
    const std::string all = table(9000);
    write("all.csv", all);
    const std::string header = all.substr(0, all.find('\n'));
    const Result whole = run("rows all.csv -q --threads 1");
    ASSERT_EQ(whole.status, 1);
    EXPECT_EQ(run("rows all.csv -q --threads 5").out, whole.out);
    std::string joined = whole.out.substr(0, whole.out.find('\n') + 1);
    const std::size_t cuts[] = {header.size() + 1, all.find("\n1000,") + 1, all.find("\n1000,") + 1,
                                all.find("\n1005,") + 1, all.size()};
    for (std::size_t i = 1; i < std::size(cuts); ++i) {
        write("part.csv", all.substr(cuts[i - 1], cuts[i] - cuts[i - 1]));
        joined += run("rows part.csv -q --no-header --header '" + header + "'").out;
    }
    EXPECT_EQ(joined, whole.out);
}

TEST_F(Rows, GoOnWhereTheyWereStopped) {
    write("all.csv", table(40000));
    ASSERT_EQ(run("rows all.csv -q -o whole.csv").status, 1);
    const std::string whole = fileContent(folder / "whole.csv");
    int stopped = 0;
    for (int i = 1; i <= 6; ++i) {
        fs::remove(folder / "out.csv");
        const std::string wait = std::to_string(0.015 * i);
        const char* signal = i % 2 ? "KILL" : "TERM";
        run("rows all.csv -q -o out.csv & sleep " + wait + "; kill -" + signal + " $! 2>/dev/null; wait");
        if (fs::exists(folder / "out.csv")) continue;
        ++stopped;
        EXPECT_EQ(run("rows all.csv -q -o out.csv --resume").status, 1);
        EXPECT_EQ(fileContent(folder / "out.csv"), whole) << wait;
        EXPECT_FALSE(fs::exists(folder / "out.csv.part"));
        EXPECT_FALSE(fs::exists(folder / "out.csv.part.options"));
    }
    EXPECT_GT(stopped, 2);
    EXPECT_EQ(run("rows all.csv -q -o whole.csv --resume").status, 1) << "complete, with its refused rows";

    // Half a record, and other options.
    for (const std::size_t cut : {whole.size() / 2, whole.size() / 3, std::size_t{20}}) {
        fs::remove(folder / "out.csv");
        run("rows all.csv -q -o out.csv & sleep 0.05; kill -KILL $!; wait");
        if (fs::exists(folder / "out.csv") || !fs::exists(folder / "out.csv.part.options")) continue;
        write("out.csv.part", whole.substr(0, cut));
        EXPECT_EQ(run("rows all.csv -q -o out.csv --resume --want tur").status, 2);
        EXPECT_EQ(run("rows all.csv -q -o out.csv --resume").status, 1);
        EXPECT_EQ(fileContent(folder / "out.csv"), whole) << cut;
    }
}

TEST_F(Rows, GoOnWithNothingButWhatTheyWereBegunWith) {
    const auto unitsOf = [](const fs::path& path, double multiplier) {
        makeUnitsDatabase(path);
        auto units = openUnitsDatabase(path);
        units->addUnit(units->addArea("Small", {.symbol = "V"}), {.symbol = "nV", .multiplier = multiplier});
        return path;
    };
    unitsOf(folder / "nano.mdb", 1e-9), unitsOf(folder / "two.mdb", 2e-9);
    std::string rows = "note,nominal[V],tol[nV],su_pct,tur\n";
    for (int i = 0; i < 500; ++i) rows += "=row " + std::to_string(i) + ",1,5,95,4\n";
    write("in.csv", rows);
    write("other.csv", std::regex_replace(rows, std::regex("=row 7,"), "=row seven,"));
    const struct {
        const char *begun, *options, *told;
    } cases[] = {{"in.csv --units nano.mdb", "in.csv --units two.mdb", "with other options"},
                 {"in.csv --safe-cells", "other.csv --safe-cells", "is of another input"},
                 {"in.csv --safe-cells", "in.csv", "with other options"},
                 {"in.csv", "other.csv", "is of another input"}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.options);
        const std::string begun = std::string(" rows -q -o out.csv ") + one.begun;
        run(begun + " --force");
        const std::string whole = fileContent(folder / "out.csv");
        fs::remove(folder / "out.csv");
        // Stopped in the middle of a record by a file that may grow no further.
        run("--version; ulimit -f 8; exec 2>/dev/null " METRISK_CLI + begun);
        ASSERT_TRUE(fs::exists(folder / "out.csv.part"));
        ASSERT_LT(fs::file_size(folder / "out.csv.part"), whole.size());
        const Result other = run(std::string("rows -q -o out.csv --resume ") + one.options);
        EXPECT_EQ(other.status, 2);
        EXPECT_NE(other.err.find(one.told), std::string::npos) << other.err;
        EXPECT_EQ(run(begun + " --resume").status, 0);
        EXPECT_EQ(fileContent(folder / "out.csv"), whole);
    }
}

TEST_F(Rows, AreWhatNewMakesOfTheSameEntries) {
    const struct {
        const char *header, *row, *options;
    } cases[] = {
        {"nominal,tol,su_pct,mte_expanded,mte_k", "10V,0.5mV,95,0.1mV,2",
         "--nominal 10V --tol 0.5mV --su-pct 95 --mte-expanded 0.1mV --mte-k 2"},
        {"nominal,upper,lower,su_pct,tur,gb", "10,11,none,95,4:1,0.9",
         "--nominal 10 --upper 11 --lower none --su-pct 95 --tur 4:1 --gb 0.9"},
        {"nominal,tol,su_pct,mte_tol,mte_pct,process_u,convention", "1,0.2,90,0.05,99,0.01,producer",
         "--nominal 1 --tol 0.2 --su-pct 90 --mte-tol 0.05 --mte-pct 99 --process-u 0.01 --convention "
         "producer"},
    };
    for (const auto& one : cases) {
        const std::string table = std::string(one.header) + "\n" + one.row + "\n";
        write("in.csv", table);
        const std::string out = run("rows in.csv -q --want risks").out;
        const std::string figures = out.substr(out.find(",ok,") + 4);
        ASSERT_EQ(run(std::string("new n.mrk --force ") + one.options).status, 0) << one.row;
        const json file = run("compute --json n.mrk").lines().at(0);
        EXPECT_NEAR(std::strtod(figures.c_str(), nullptr), file["FalseAccept"], 1e-12) << one.row;
        EXPECT_TRUE(json::parse(run("show --json n.mrk").out)["FalseAcceptRisk"] == 0)
            << "no figures are stored";
    }
    EXPECT_EQ(run("new n.mrk --nominal 1").status, 2) << "exists";
    const Result refused = run("new none.mrk --tol 1 --su-pct 101");
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.err.find("Illegal Entry"), std::string::npos);
    EXPECT_FALSE(fs::exists(folder / "none.mrk"));
}

TEST_F(Rows, WriteWhatSpreadsheetsWant) {
    write("in.csv", "\xef\xbb\xbfnominal;tol;su_pct;tur\r\n10;0,5;95;4\r\n");
    const Result result = run("rows in.csv -q --decimal-comma --crlf --bom --want tur");
    EXPECT_EQ(result.out, "\xef\xbb\xbfnominal;tol;su_pct;tur;status;TUR;AccuracyRatio;SigmaRatio;message\r\n"
                          "10;0,5;95;4;ok;4;4,000000031551491;4,00000003155149;\r\n");
}

} // namespace metrisk::testing

// Analyses made and changed without a window: new, set, convert, given guardbands, lists of files.
#include "record/FieldAccess.h"
#include "rows/SettableFields.h"
#include "tests/cli/Cli.h"

#include <map>
#include <set>
#include <vector>

namespace metrisk::testing {

namespace {

class SingleAnalyses : public Cli {
  protected:
    json shown(const std::string& file) { return run("show --json " + file).lines().at(0); }

    /// The names of the fields that differ, but for those of the program that read them.
    std::set<std::string> differing(const json& a, const json& b) {
        std::set<std::string> names;
        for (const auto& [key, value] : a.items())
            if (value != b.at(key)) names.insert(key);
        for (const char* own : {"file", "AnalysisFileName", "LastAnalysisName"}) names.erase(own);
        return names;
    }
};

using Names = std::set<std::string>;

} // namespace

TEST_F(SingleAnalyses, SetChangesWhatIsNamedAndWhatFollowsFromIt) {
    const struct {
        const char* arguments;
        Names changed;
    } cases[] = {
        {"SU_Description=Other", {"SU_Description"}},
        {"SU_PctInTol=19/20", {"SU_PctInTol"}},
        {"--su-pct 19/20", {"SU_PctInTol"}},
        {"Rel_BOP[1]=0.5 'CorrelationMatrix[5][3]=0.25'", {"Rel_BOP", "CorrelationMatrix"}},
        {"SU_Mode=50", {"SU_Mode_fmt"}},
        {"--nominal 52.0",
         {"SU_Mode", "SU_UpperLimit", "SU_LowerLimit", "MTE_Mode", "MTE_UpperLimit", "MTE_LowerLimit"}},
        {"SU_UpperFixed=3", {"SU_UpperFixed", "SU_UpperFixed_fmt", "SU_UpperOffset", "SU_UpperLimit"}},
        {"--gb 0.90",
         {"IncludeGuardbands", "GB_UpperMult", "GB_LowerMult", "GB_UpperMult_fmt", "GB_LowerMult_fmt"}}};
    const json before = shown(good);
    for (const auto& one : cases) {
        const Result done = run(std::string("set ") + good + " " + one.arguments + " -o set.mrk --force");
        ASSERT_EQ(done.status, 0) << one.arguments << done.err;
        Names changed = differing(before, shown("set.mrk"));
        for (const char* picture : {"SU_UpperOffset_fmt", "SU_LowerOffset_fmt", "SU_UpperFixed_fmt"})
            if (!one.changed.contains(picture)) changed.erase(picture);
        Names wanted = one.changed;
        wanted.erase("SU_UpperFixed_fmt"), changed.erase("SU_UpperFixed_fmt");
        EXPECT_EQ(changed, wanted) << one.arguments;
    }
}

TEST_F(SingleAnalyses, SetLeavesWhatStandsBesideIt) {
    const struct {
        std::vector<const char*> acts;
        std::map<std::string, double> wanted;
    } cases[] = {
        {{"--tol-upper 3 --tol-lower 2", "--tol-upper 4"}, {{"SU_UpperOffset", 4}, {"SU_LowerOffset", 2}}},
        {{"--tol 3 SymmetricTolerances=true", "SU_UpperOffset=4"},
         {{"SU_UpperOffset", 4}, {"SU_LowerOffset", 4}}},
        {{"--tol-upper 3 --tol-lower 2", "SymmetricTolerances=true SU_LowerOffset=1"},
         {{"SU_UpperOffset", 1}, {"SU_LowerOffset", 1}}},
        {{"--nominal 50 --tol 3 --tol-pct 1", "--tol-pct 2"}, {{"SU_UpperFixed", 3}, {"SU_LowerOffset", 4}}},
        {{"--nominal 50 --mte-tol 1 --mte-pct 95", "--mte-tol-pct 2"},
         {{"MTE_FixedOffset", 1}, {"MTE_Offset", 2}}},
        {{"--gb-upper 0.9", "--gb-lower 0.8"}, {{"GB_UpperMult", 0.9}, {"GB_LowerMult", 0.8}}},
        {{"--gb 0.9", "GB_SymmetricMult=true", "--gb-upper 0.7"},
         {{"GB_UpperMult", 0.7}, {"GB_LowerMult", 0.7}}},
    };
    for (const auto& one : cases) {
        ASSERT_EQ(run(std::string("set ") + good + " SU_Qualifier2=x -o set.mrk --force").status, 0);
        for (const char* act : one.acts) ASSERT_EQ(run(std::string("set set.mrk ") + act).status, 0) << act;
        const json after = shown("set.mrk");
        for (const auto& [field, value] : one.wanted)
            EXPECT_DOUBLE_EQ(after.at(field).get<double>(), value) << one.acts.back() << " " << field;
    }
}

TEST_F(SingleAnalyses, TypedKFactorsHoldWhateverMoves) {
    ASSERT_EQ(
        run(std::string("set ") + good + " --tol-upper 3 --tol-lower 2 --gb-k 0.5 -o k.mrk --compute").status,
        0);
    for (const char* act : {"--mte-u 0.4", "--mte-tol 1 --mte-pct 95", "--tol-upper 5", "--process-u 0.3",
                            "'ErrTableText[1][3]=0.4' 'ErrTableText[1][6]=True' IncludeUncertainty=true"}) {
        ASSERT_EQ(run(std::string("set k.mrk ") + act + " -o moved.mrk --force --compute").status, 0) << act;
        const json moved = shown("moved.mrk");
        for (const std::string side : {"Upper", "Lower"})
            EXPECT_NEAR(moved.at("GB_" + side + "Mult").get<double>(),
                        1 - 0.5 * moved.at("MTE_Sigma").get<double>() /
                                moved.at("SU_" + side + "Offset").get<double>(),
                        1e-14)
                << act << side;
        // As a template for rows, and as one typed anew.
        ASSERT_EQ(run("set moved.mrk --gb-k 0.5 -o anew.mrk --force --compute").status, 0);
        EXPECT_EQ(shown("anew.mrk").at("FalseAcceptRisk"), moved.at("FalseAcceptRisk")) << act;
    }
    const json before = shown("k.mrk");
    ASSERT_EQ(run("set k.mrk SU_Qualifier2=x").status, 0);
    EXPECT_EQ(shown("k.mrk").at("GB_UpperMult"), before.at("GB_UpperMult"));
    const Result beyond = run("set k.mrk --mte-u 40");
    EXPECT_EQ(beyond.status, 1);
    EXPECT_NE(beyond.err.find("Invalid k-Factor: Using 0.5 for the upper k-factor"), std::string::npos)
        << beyond.err;
}

TEST_F(SingleAnalyses, SetRefusesAndLeavesTheFile) {
    const struct {
        const char* arguments;
        int status;
        const char* told;
    } cases[] = {{"SU_Sigma=3", 2, "SU_Sigma is computed"},
                 {"SU_Mode_fmt=#", 2, "SU_Mode_fmt is a picture"},
                 {"AbortFlag=1", 2, "AbortFlag is of a running program"},
                 {"SU_Sigmma=3", 2, "did you mean SU_Sigma?"},
                 {"Rel_BOP[2]=1", 2, "no element of Rel_BOP[0..1]"},
                 {"--nominal 5 SU_Mode=5", 2, "one entry"},
                 {"--tol 1 SU_UpperFixed=1", 2, "one entry"},
                 {"SU_Description=a SU_Description=b", 2, "one entry"},
                 {"'SU_Description=a\"b'", 1, "double quote"},
                 {"'Stat_Sample[9][1]=1'", 1, "would keep"},
                 {"SU_Description=kept --su-pct 120", 1, "less than or equal to 100"},
                 {"Rel_BOP[0]=half", 1, "half is no number"},
                 {"Rel_ModelIndex[0]=1.5", 1, "no whole number"},
                 {"--su-pct 20/20", 1, "86.09 %"}};
    const std::string before = fileContent(folder / good);
    for (const auto& one : cases) {
        const Result done = run(std::string("set ") + good + " " + one.arguments);
        EXPECT_EQ(done.status, one.status) << one.arguments << done.err;
        EXPECT_NE(done.err.find(one.told), std::string::npos) << one.arguments << done.err;
        EXPECT_EQ(fileContent(folder / good), before) << one.arguments;
    }
}

TEST_F(SingleAnalyses, SetTakesEveryFieldThatItLists) {
    for (const NamedField* field : plainFields()) {
        std::string name = field->field.name == "CorrelationMatrix" ? "CorrelationMatrix[1][2]" : "";
        if (name.empty()) name = field->field.name;
        for (const FieldRange& range : field->ranges)
            if (name.find('[') == name.npos || !name.starts_with("CorrelationMatrix"))
                name += "[" + std::to_string(range.first) + "]";
        const bool isUnit = name.ends_with("_ToleranceUnits");
        const char* value = isUnit                            ? "N·m"
                            : field->kind == FieldKind::Text  ? "abc"
                            : field->kind == FieldKind::Flag  ? "true"
                            : field->kind == FieldKind::Whole ? "1"
                                                              : "0.5";
        const std::string size = name.starts_with("Stat_Sample") && !name.starts_with("Stat_SampleSize")
                                     ? " 'Stat_SampleSize[1]=1'"
                                     : "";
        const Result done =
            run("set " + std::string(good) + " '" + name + "=" + value + "'" + size + " -o s.mrk --force");
        EXPECT_EQ(done.status, 0) << name << done.err;
    }
}

TEST_F(SingleAnalyses, StoredResultsStayUntilComputed) {
    const json before = shown(good);
    ASSERT_EQ(run(std::string("set ") + good + " --su-pct 91").status, 0);
    EXPECT_EQ(shown(good)["FalseAcceptRisk"], before["FalseAcceptRisk"]);
    ASSERT_EQ(run(std::string("set ") + good + " --su-pct 92 --compute").status, 0);
    const json computed = run(std::string("compute --json ") + good).lines().at(0);
    EXPECT_NEAR(shown(good)["FalseAcceptRisk"].get<double>() / computed["FalseAcceptRisk"].get<double>(), 1,
                1e-13);
}

TEST_F(SingleAnalyses, BaselineRisksFollowTheirEntries) {
    for (const char* act :
         {"--base-ratio 10 --base-su-pct 90", "--convention producer", "Base_MTEPctInTol=60"}) {
        ASSERT_EQ(run(std::string("set ") + good + " " + act + " -o base.mrk --force --compute").status, 0);
        const json computed = run("compute --json base.mrk").lines().at(0);
        const json stored = shown("base.mrk");
        for (const char* risk : {"FalseAccept", "FalseReject"})
            EXPECT_NEAR(stored.at(std::string("Base_") + risk).get<double>() / 100,
                        computed.at(std::string("Baseline") + risk).get<double>(), 1e-14)
                << act;
    }
}

TEST_F(SingleAnalyses, SampleFiguresFollowTheirValues) {
    const auto mean = [&](const std::string& values) {
        EXPECT_EQ(run(std::string("set ") + good + " " + values).status, 0);
        return shown(good).at("Stat_SampleMean").at(1).get<double>();
    };
    EXPECT_NEAR(
        mean("'Stat_SampleSize[2]=3' 'Stat_Sample[1][2]=1' 'Stat_Sample[2][2]=2' 'Stat_Sample[3][2]=6'"), 3,
        1e-15);
    EXPECT_NEAR(mean("'Stat_Sample[1][2]=4'"), 4, 1e-15);
    const json after = shown(good);
    EXPECT_NEAR(after.at("Stat_SampleStdDev").at(1).get<double>(), 2, 1e-14);
    EXPECT_EQ(after.at("SMPC_Computed"), false);
}

TEST_F(SingleAnalyses, SurviveJson) {
    for (const auto& file : fs::directory_iterator(folder / "ex")) {
        const std::string name = "ex/" + file.path().filename().string();
        ASSERT_EQ(run("convert " + name + " a.json --force").status, 0);
        ASSERT_EQ(run("convert a.json b.mrk --force").status, 0);
        EXPECT_EQ(differing(shown(name), shown("b.mrk")), Names{}) << name;
        json shownJson = json::parse(fileContent(folder / "a.json"));
        EXPECT_EQ(differing(shown(name), shownJson), Names{}) << name;
    }
}

TEST_F(SingleAnalyses, JsonThatIsNoAnalysisIsUnreadable) {
    const char* wrong[][2] = {{R"({"SU_Mode":1,"SU_Mode":2})", "stands twice"},
                              {R"({"SU_Modes":1})", "SU_Modes is no field"},
                              {R"({"SU_Mode":"1"})", "SU_Mode is no number"},
                              {R"({"Rel_BOP":[1]})", "Rel_BOP is no array of 2"},
                              {R"({"SU_CaseCode":1.5})", "no whole number"},
                              {R"({"SU_Description":"a\"b"})", "double quote"},
                              {R"({"SU_Mode":1)", "is no JSON"}};
    for (const auto& [content, told] : wrong) {
        write("w.json", content);
        const Result done = run("convert w.json w.mrk");
        EXPECT_EQ(done.status, 3) << content;
        EXPECT_NE(done.err.find(told), std::string::npos) << content << done.err;
        EXPECT_FALSE(fs::exists(folder / "w.mrk"));
    }
    write("w.json", R"({"SU_Mode":2.5,"AbortFlag":"anything"})");
    ASSERT_EQ(run("convert - w.mrk <w.json").status, 0);
    EXPECT_EQ(shown("w.mrk")["SU_Mode"], 2.5);
}

TEST_F(SingleAnalyses, NewShowsTheDigitsTyped) {
    ASSERT_EQ(run("new n.mrk --nominal 10.00V --tol 0.50mV --su-pct 95 --mte-u 1.0e-4 --gb-upper 0.90 --set "
                  "SU_ModelNumber=M-1")
                  .status,
              0);
    const json n = shown("n.mrk");
    EXPECT_EQ(n["SU_Mode_fmt"], "#,##0.00");
    EXPECT_EQ(n["SU_UpperOffset_fmt"], "#,##0.00000");
    EXPECT_EQ(n["MTE_StdUncertainty_fmt"], "#,##0.00000");
    EXPECT_EQ(n["GB_UpperMult_fmt"], "#,##0.00");
    EXPECT_EQ(n["GB_SymmetricMult"], false);
    EXPECT_EQ(n["SU_ModelNumber"], "M-1");
}

TEST_F(SingleAnalyses, NewTakesNoFiguresOfItsTemplate) {
    ASSERT_EQ(run(std::string("compute --save ") + good).status, 0);
    ASSERT_EQ(run(std::string("new n.mrk --template ") + good + " --convention consumer").status, 0);
    EXPECT_EQ(shown("n.mrk")["FalseAcceptRisk"], 0);
    EXPECT_EQ(run("audit n.mrk --json -q").lines().at(0)["Agreement"], "never computed");
}

TEST_F(SingleAnalyses, GivenGuardbandsHaveTheRisksOfACompute) {
    for (const char* given : {"--mult 0.9", "--mult-upper 0.8 --mult-lower 0.95", "--k 0.5", "--k-upper 0.25",
                              "--accept-upper 51.5 --accept-lower 48.2", "--off"}) {
        fs::copy_file(folder / good, folder / "g.mrk", fs::copy_options::overwrite_existing);
        const Result done = run(std::string("guardband g.mrk --json --save ") + given);
        ASSERT_EQ(done.status, 0) << given << done.err;
        const json solved = done.lines().at(0), computed = run("compute --json g.mrk").lines().at(0);
        EXPECT_NEAR(solved["FalseAccept"].get<double>() / computed["FalseAccept"].get<double>(), 1, 1e-12)
            << given;
        EXPECT_EQ(shown("g.mrk")["IncludeGuardbands"], std::string(given) != "--off");
    }
    EXPECT_EQ(run(std::string("guardband --k 99 ") + good).status, 1);
    EXPECT_EQ(run(std::string("guardband --mult 0.9 --off ") + good).status, 2);
    EXPECT_EQ(run(std::string("guardband ") + good).status, 2);
}

TEST_F(SingleAnalyses, ListsNameFiles) {
    write("list.txt", std::string(good) + "\n\nex/gauge-block-25mm.mrk\n");
    write("null.txt", std::string("ex/gauge-block-25mm.mrk\0", 24));
    EXPECT_EQ(run("compute --json --files-from list.txt").lines().size(), 2U);
    const auto lines = run(std::string("show --json --null --files-from - ") + good + " <null.txt").lines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0]["file"], good);
    EXPECT_EQ(run("summary --out-dir . --files-from list.txt").status, 0);
    EXPECT_TRUE(fs::exists(folder / "gauge-block-25mm.sum"));
    EXPECT_EQ(run("compute --files-from missing.txt").status, 3);
    write("list.txt", std::string("\xef\xbb\xbf") + good + "\r\n\r\nex/gauge-block-25mm.mrk\r\n");
    const Result windows = run("compute --json --files-from list.txt");
    EXPECT_EQ(windows.status, 0) << windows.err;
    EXPECT_EQ(windows.lines().size(), 2U);
    write("list.txt", "\r\n");
    const Result none = run("compute --files-from list.txt");
    EXPECT_EQ(none.status, 0);
    EXPECT_EQ(none.err, "list.txt: names no file\n");
    EXPECT_EQ(run("compute").status, 2);
}

TEST_F(SingleAnalyses, TemplatesGiveRowsTheFiguresOfNew) {
    const struct {
        const char *set, *row;
    } cases[] = {{"--unit V --area 'DC Voltage'", "--nominal 12V"},
                 {"", "--nominal 0.01kV"},
                 {"", "--nominal 9000mV --su-pct 80"},
                 // Held guardbands that do not count keep the test from being its own reference.
                 {"--su-pct 72 --base-su-pct 72 --base-mte-pct 85 --mte-tol 0.0001 --mte-pct 85 --gb 0.9 "
                  "SU_Description=own",
                  "--su-pct 72"}};
    for (const auto& one : cases) {
        const std::string file = "ex/multimeter-dc-volts.mrk";
        ASSERT_EQ(
            run("set " + file + " " + (*one.set ? one.set : "SU_Qualifier1=x") + " -o t.mrk --force").status,
            0);
        ASSERT_EQ(run("set t.mrk IncludeGuardbands=false").status, 0);
        std::string header, cells;
        std::istringstream words(one.row);
        for (std::string name, value; words >> name >> value;) {
            name = name.substr(2);
            std::replace(name.begin(), name.end(), '-', '_');
            header += (header.empty() ? "" : ",") + name, cells += (cells.empty() ? "" : ",") + value;
        }
        write("r.csv", header + "\n" + cells + "\n");
        ASSERT_EQ(run("rows r.csv --template t.mrk --want ratio,risks -o o.csv --force").status, 0);
        ASSERT_EQ(run(std::string("new n.mrk --template t.mrk --force ") + one.row).status, 0);
        const json n = run("compute --json n.mrk").lines().at(0);
        std::istringstream out(fileContent(folder / "o.csv"));
        std::string line, cell;
        std::getline(out, line), std::getline(out, line);
        std::istringstream row(line.substr(line.find(",ok,") + 4));
        for (const char* name : {"FalseAccept", "", "", "FalseReject", "EqAccRat"}) {
            std::getline(row, cell, ',');
            if (!*name) continue;
            EXPECT_NEAR(std::stod(cell) / n[name].get<double>(), 1, 1e-12) << name << one.row << line;
        }
    }
}

TEST_F(SingleAnalyses, OutputsOfRowsAreWrittenThroughLinks) {
    write("one.csv", "nominal,tol,su_pct,tur\n1,1,95,4\n");
    write("real.csv", "old");
    fs::permissions(folder / "real.csv", fs::perms::owner_read | fs::perms::owner_write);
    fs::create_symlink("real.csv", folder / "link.csv");
    ASSERT_EQ(run("rows one.csv -o link.csv --force").status, 0);
    EXPECT_TRUE(fs::is_symlink(folder / "link.csv"));
    EXPECT_NE(fileContent(folder / "real.csv").find("FalseAccept"), std::string::npos);
    EXPECT_EQ(fs::status(folder / "real.csv").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

} // namespace metrisk::testing

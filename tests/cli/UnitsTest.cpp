// Units databases and tolerances composed in their units.
#include "tests/cli/Cli.h"
#include "units/database/UnitsDatabase.h"

#include <gtest/gtest.h>
#include <map>
#include <string>

namespace metrisk::testing {

TEST_F(Cli, ComposesTolerances) {
    const auto path = folder / "units.mdb";
    makeUnitsDatabase(path);
    auto units = openUnitsDatabase(path);
    units->addUnit(units->addArea("DC Voltage", {.symbol = "V"}), {.symbol = "mV", .multiplier = 0.001});
    const std::string volts =
        "offset --json --file units.mdb --area 'DC Voltage' --unit V --fixed 5 --percent 0.01 ";
    const json composed = json::parse(run(volts + "--mode -10 --tolerance-unit mV").out);
    EXPECT_NEAR(composed["SU_UpperOffset"].get<double>(), 0.006, 1e-17);
    EXPECT_EQ(composed["SU_TolUnitsFactor"], 1000);
    EXPECT_EQ(composed["Tolerance"], "6.0 mV");
    const json ppm = json::parse(run(volts + "--mode 2 --tolerance-unit ppm --for mte").out);
    EXPECT_NEAR(ppm["MTE_Offset"].get<double>(), 0.00021, 1e-18);
    EXPECT_EQ(run(volts + "--mode 0 --tolerance-unit ppm").status, 1);
    EXPECT_EQ(run(volts + "--mode 1 --tolerance-unit kV").status, 1);
    EXPECT_EQ(run("offset --mode 1 --fixed 0.1 --file none").status, 0) << "no units, no database";
    EXPECT_EQ(run("offset --mode 1 --area A --file none").status, 3);
    EXPECT_EQ(run("offset --mode x --fixed 1").status, 2);
}

TEST_F(Cli, TheExamplesTakeUnitsThatComeWithTheProgram) {
    for (const auto& entry : fs::directory_iterator(folder / "ex")) {
        const json file = json::parse(run("show --json ex/" + entry.path().filename().string()).out);
        SCOPED_TRACE(file["file"]);
        const std::string area = file["MeasurementArea"];
        const Result listed = run("units list --json '" + area + "'");
        ASSERT_EQ(listed.status, 0) << listed.err;
        std::map<std::string, double> multipliers;
        const json areas = json::parse(listed.out)["areas"];
        for (const json& unit : areas.at(0)["units"]) multipliers[unit["unit"]] = unit["multiplier"];
        const double nominal = multipliers[file["NominalUnits"]];
        EXPECT_GT(nominal, 0) << file["NominalUnits"];
        for (const std::string parameter : {"SU", "MTE"}) {
            const std::string unit = file[parameter + "_ToleranceUnits"];
            EXPECT_NEAR(file[parameter + "_TolUnitsFactor"], nominal / multipliers[unit],
                        1e-12 * nominal / multipliers[unit])
                << unit;
        }
    }
}

TEST_F(Cli, ExchangesUnits) {
    const std::string foreign = METRISK_SOURCE_DIR "/tests/units/data/units-jet3.mdb ";
    EXPECT_EQ(run("units check " + foreign).out.substr(foreign.size() - 1),
              ": 4 measurement areas, 11 units\n");
    EXPECT_NE(run("units convert " + foreign + "ours.mdb").err.find("left out: 1;"), std::string::npos);
    EXPECT_EQ(run("units convert " + foreign + "ours.mdb").status, 2) << "never over another file";
    EXPECT_EQ(run("units convert --force ours.mdb ours.mdb").status, 2);
    EXPECT_EQ(run("units import " + foreign + "x").status, 3);
    write("more.csv", "area,unit,multiplier\nvoltage,MV,1e6\nvoltage,mV,0.002\nNew,x,1\n");
    EXPECT_NE(run("units import ours.mdb more.csv").out.find("Units added                 2\n"),
              std::string::npos);
    EXPECT_EQ(run("units import " + foreign + "more.csv").status, 1) << "read only";
    const json listed = json::parse(run("units list VOLTAGE --file ours.mdb --json").out);
    EXPECT_EQ(listed["areas"][0]["area"], "Voltage");
    EXPECT_EQ(listed["areas"][0]["units"].size(), 6u);
    EXPECT_EQ(listed["areas"][0]["units"][1]["multiplier"], 0.002);

    const std::string table = run("units export --file ours.mdb").out;
    write("all.csv", table);
    EXPECT_EQ(run("units import --replace copy.mdb all.csv").status, 0);
    EXPECT_EQ(run("units export --file copy.mdb").out, table);
    write("bad.csv", "area,unit,multiplier\nVoltage,V,1\nVoltage,V,2\n");
    EXPECT_EQ(run("units import --replace copy.mdb bad.csv").err,
              "bad.csv: line 3: V stands twice in Voltage\n");
    EXPECT_EQ(run("units export --file copy.mdb").out, table) << "nothing is half done";

    // Two that make the same database at once both get their units into it.
    write("a.csv", "area,unit,multiplier\nA,a,1\n");
    write("b.csv", "area,unit,multiplier\nB,b,1\n");
    for (int round = 0; round < 20; ++round) {
        fs::remove(folder / "both.mdb");
        EXPECT_EQ(run("units import both.mdb a.csv & cd '" + folder.string() +
                      "' && " METRISK_CLI " units import both.mdb b.csv >b.txt && wait $!")
                      .status,
                  0);
        EXPECT_EQ(json::parse(run("units check both.mdb --json").out)["units"], 2) << round;
    }

    EXPECT_EQ(run("units list None --file ours.mdb").status, 1);
    EXPECT_EQ(run("units list --file all.csv").status, 3);
    EXPECT_EQ(run("units list --file none.mdb").err,
              "none.mdb: there is no such units database; name one with --file\n");
    EXPECT_EQ(run("units check none.mdb").status, 3);
    EXPECT_EQ(run("units").status, 2);
    EXPECT_NE(run("units list").out.find("DC Voltage"), std::string::npos)
        << "the units that come with the program";
}

} // namespace metrisk::testing

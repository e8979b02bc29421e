// metrisk-cli offset: a tolerance composed of a fixed part and a part in percent of the reading.
#include "base/NumberFormat.h"
#include "base/NumberText.h"
#include "base/Real.h"
#include "base/RelativeUnits.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "cli/Readers.h"
#include "desk/files/UnitSelection.h"
#include "record/ComposedOffset.h"
#include "record/ToleranceUnits.h"
#include "unattended/AnalysisRun.h"
#include "unattended/Json.h"
#include "units/ToleranceDecimals.h"
#include "units/UnitFactor.h"
#include "units/database/UnitsDatabase.h"

namespace metrisk::cli {

namespace {

struct Options {
    std::string area;
    std::string mode; // numbers stay texts: their digits say how many decimals to show
    std::string unit;
    std::string fixed = "0";
    std::string percent = "0";
    std::string toleranceUnit;
    std::string parameter = "su";
    std::string database;
    std::string settings;
    bool json = false;
};

/// What is refused, in words.
struct Refusal {
    std::string text;
};

double multiplierOf(UnitsDatabase& units, const std::string& area, const std::string& unit) {
    if (!units.AreaExists(area)) throw Refusal{"There is no measurement area " + area + " in the database."};
    for (const MeasurementUnit& each : units.unitsOf(area))
        if (each.symbol == unit) return each.multiplier;
    if (unit == ppmUnits) return 1;
    throw Refusal{"There is no unit " + unit + " in the measurement area " + area + "."};
}

struct Composed {
    double offset; // nominal units
    double factor;
    std::string shown;   // in tolerance units
    std::string nominal; // in nominal units
};

Composed compose(const Options& options, UnitsDatabase* units) {
    const auto number = [](const std::string& text) { return NumberEntry::read(text, {}); };
    const double mode = number(options.mode).value;
    const bool relative = options.unit == ppmUnits || options.toleranceUnit == ppmUnits;
    if (relative && mode == 0) throw Refusal{"ppm has no meaning where the nominal value is 0."};
    Analysis record;
    record.SU_Mode = mode;
    record.MeasurementArea = options.area;
    record.NominalUnits = options.unit;
    record.SU_ToleranceUnits = options.toleranceUnit;
    if (units)
        record.SU_TolUnitsFactor =
            unitFactor(mode, options.unit, multiplierOf(*units, options.area, options.unit),
                       options.toleranceUnit, multiplierOf(*units, options.area, options.toleranceUnit));
    UpdateToleranceDecimals(record);
    const ToleranceUnits tolerance = subjectUnits(record);
    const NumberEntry fixed = number(options.fixed);
    const NumberEntry percent = number(withoutPercentSign(options.percent));
    if (fixed.value < 0 || percent.value < 0)
        throw Refusal{"Both parts must be greater than or equal to zero."};
    const auto [value, picture] = composeOffset(
        {tolerance.toNominal(fixed.value), percent.value, tolerance.heldPicture(fixed), percent.picture()},
        mode);
    const double shown = tolerance.shown(value);
    return {value, tolerance.factor,
            withUnits(FormatNumber(shown, fullPicture(shown, tolerance.shownPicture(picture)), {}),
                      tolerance.name),
            withUnits(FormatNumber(value, fullPicture(value, picture), {}), options.unit)};
}

/// The same keys as of a composed tolerance, without figures.
Json refusedJson(const Options& options, const Output& output, const std::string& fault) {
    Json result = resultJson("", statusWord(output.status, ""), {{"", fault, "", false}});
    const bool subject = options.parameter == "su";
    for (const char* key : {"SU_UpperOffset", "SU_LowerOffset", "SU_TolUnitsFactor"})
        if (subject) result[key] = Json();
    for (const char* key : {"MTE_Offset", "MTE_TolUnitsFactor"})
        if (!subject) result[key] = Json();
    result["Tolerance"] = result["Nominal"] = Json();
    return result;
}

int offset(Options options) {
    Output output;
    Workplace workplace(options.settings);
    if (options.toleranceUnit.empty()) options.toleranceUnit = options.unit;
    if (options.database.empty()) options.database = unitsDatabaseOf(workplace);
    Json result;
    std::string fault;
    try {
        std::unique_ptr<UnitsDatabase> units;
        if (!options.area.empty()) units = openUnitsDatabase(options.database);
        const Composed composed = compose(options, units.get());
        const bool subject = options.parameter == "su";
        result = resultJson("", "computed", {});
        if (subject) {
            result["SU_UpperOffset"] = result["SU_LowerOffset"] = composed.offset;
            result["SU_TolUnitsFactor"] = composed.factor;
        } else {
            result["MTE_Offset"] = composed.offset;
            result["MTE_TolUnitsFactor"] = composed.factor;
        }
        result["Tolerance"] = composed.shown;
        result["Nominal"] = composed.nominal;
        if (!options.json)
            output.results = tableRow("Tolerance", composed.shown) +
                             tableRow("In nominal units", composed.nominal) +
                             tableRow("Units factor", GeneralText(composed.factor, {})) + "\n";
    } catch (const Refusal& refusal) {
        fault = refusal.text;
        output.status = refused;
    } catch (const UnitsError& error) {
        fault = options.database + ": " + unitsFault(options.database, error);
        output.status = unreadable;
    } catch (const RuntimeFault&) {
        fault = "the tolerance is no number that can be held";
        output.status = refused;
    }
    if (!fault.empty()) output.diagnostics = diagnosticLine("offset", fault);
    if (options.json) {
        if (output.status != allDone) result = refusedJson(options, output, fault);
        output.results = jsonLine(result);
    }
    return finish(output);
}

} // namespace

void addOffset(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("offset", "Compose a tolerance of a fixed part and a percent of the reading");
    command.text("--mode", options->mode, "Nominal or reading value")
        .shownAs("VALUE")
        .check(isNumber)
        .required();
    command.text("--unit", options->unit, "Its units").shownAs("UNIT");
    command.text("--fixed", options->fixed, "Fixed part, in tolerance units")
        .shownAs("VALUE")
        .check(isNumber);
    command.text("--percent", options->percent, "Part in percent of the reading")
        .shownAs("VALUE")
        .check(isPercent);
    command.text("--tolerance-unit", options->toleranceUnit, "Tolerance units, if they are others")
        .shownAs("UNIT");
    command.text("--area", options->area, "Measurement area of the units; needed where they differ")
        .shownAs("AREA");
    command.text("--for", options->parameter, "su (subject, the default) or mte (measuring parameter)")
        .shownAs("PARAMETER")
        .oneOf({"su", "mte"});
    command.text("--file", options->database, "Units database to use instead of your own")
        .isPath()
        .shownAs("DATABASE");
    command.flag("--json", options->json, "Print one JSON object instead of text");
    addSettingsOption(command, options->settings);
    command.examples(
        {"offset --mode 10 --fixed 0.005 --percent 0.01",
         "offset --area 'DC Voltage' --mode 10 --unit V --fixed 5 --percent 0.01% --tolerance-unit mV"});
    command.then([options, &chosen] {
        if (options->area.empty() && !options->toleranceUnit.empty() &&
            options->toleranceUnit != options->unit)
            throw WrongUsage("--area: is needed where tolerance units differ from nominal units");
        chosen = [options] { return offset(*options); };
    });
}

} // namespace metrisk::cli

// metrisk-cli strategies: guardband strategies of an analysis side by side.
#include "base/DisplayRule.h"
#include "base/NumberFormat.h"
#include "base/Text.h"
#include "cli/Commands.h"
#include "cli/DecisionRun.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "cli/Readers.h"
#include "risk/decision/Refused.h"
#include "risk/decision/StrategyTable.h"

#include <memory>

namespace metrisk::cli {

namespace {

struct Options : DecisionOptions {
    std::optional<Strategy> only{};
    std::optional<std::string> targetAccept{}, targetReject{}, targetWorst{};
    bool csv = false;

    StrategyTargets targets() const {
        StrategyTargets targets;
        if (targetAccept) targets.falseAccept = *riskOf(*targetAccept);
        if (targetReject) targets.falseReject = *riskOf(*targetReject);
        if (targetWorst) targets.worst = *riskOf(*targetWorst);
        if (convention) targets.worstConvention = *convention;
        return targets;
    }
};

std::vector<StrategyLine> rowsOf(const DecisionBasis& basis, const Options& options) {
    if (options.only) return {strategyLine(basis, *options.only, options.targets())};
    return strategyTable(basis, options.targets());
}

void put(Json& object, const DecisionBasis& basis, const StrategyLine& row) {
    const auto& f = row.figures;
    object["Rule"] = nameOf(row.strategy);
    object["GuardBand"] = f ? Json(f->width) : Json();
    object["UpperMult"] = f ? Json(f->upperMult) : Json();
    object["LowerMult"] = f ? Json(f->lowerMult) : Json();
    object["AcceptLower"] = f ? limitJson(basis, f->testLimits.lower) : Json();
    object["AcceptUpper"] = f ? limitJson(basis, f->testLimits.upper) : Json();
    putRisks(object, f ? std::optional(f->risks) : std::nullopt);
    object["Note"] = row.text;
}

std::string padded(const std::string& text, std::size_t width, bool right = true) {
    const std::size_t size = countCharacters(text);
    const std::string blanks(size < width ? width - size : 1, ' ');
    return right ? blanks + text : text + blanks;
}

std::string asTable(const DecisionRun& run, const std::vector<StrategyLine>& rows, const Options& options) {
    const DecisionBasis& basis = *run.basis();
    const bool producer = basis.convention == Convention::Producer;
    std::string table =
        forResults(options.file) + "\n  U = " + forResults(run.texts().width(basis.expanded())) +
        " (k = " + GeneralText(basis.coverage, {}, 4) + "), ratio to U " + GeneralText(basis.ratio(), {}, 4) +
        " : 1; targets of the " + (producer ? "joint (Producer's)" : "conditional (Consumer's)") +
        " false accept risk\n";
    table += padded("  rule", 13, false) + padded("w", 14) + padded("x upper", 11) + padded("x lower", 11) +
             padded("lower limit", 18) + padded("upper limit", 18) + padded("FA cond.", 12) +
             padded("FA joint", 12) + padded("FR", 12) + padded("accepted", 12) + "  note\n";
    for (const StrategyLine& row : rows) {
        table += padded("  " + std::string(nameOf(row.strategy)), 13, false);
        if (!row.figures) {
            table += padded("-", 14) + "  " + row.text + "\n";
            continue;
        }
        const StrategyRow& f = *row.figures;
        const auto multiplier = [](const std::optional<double>& value) {
            return padded(value ? FormatNumber(*value, "0.000000", {}) : "-", 11);
        };
        const auto risk = [](double value) { return padded(riskCell(value, baselinePicture), 12); };
        table += padded(f.width == 0 ? "0" : forResults(run.texts().width(f.width)), 14) +
                 multiplier(f.upperMult) + multiplier(f.lowerMult) +
                 padded(run.limitCell(f.testLimits.lower, false), 18) +
                 padded(run.limitCell(f.testLimits.upper, true), 18) + risk(f.risks.consumer) +
                 risk(f.risks.producer) + risk(f.risks.falseReject) + risk(f.risks.accepted) +
                 (row.text.empty() ? "" : "  " + row.text) + "\n";
    }
    return table + "\n";
}

int strategies(const Options& options) {
    DecisionRun run(options);
    std::vector<StrategyLine> rows;
    if (const DecisionBasis* basis = run.basis()) {
        if (const auto refusal = refusedTargets(options.targets()))
            run.refuse(*refusal);
        else if (!basis->fit)
            run.refuse(basis->fit.refusal());
        else
            rows = rowsOf(*basis, options);
        if (options.only && !rows.empty() && !rows[0].figures)
            run.refuse(noFigureOf("Guardband Strategy", rows[0].text));
    }
    Json object = run.result();
    if (!rows.empty()) {
        putUncertainty(object, *run.basis());
        object["FalseAcceptOption"] = run.basis()->convention == Convention::Producer ? 1 : 0;
        if (options.only) {
            put(object, *run.basis(), rows[0]);
        } else {
            Json list = Json::array();
            for (const StrategyLine& row : rows) {
                Json item;
                put(item, *run.basis(), row);
                list.push_back(item);
            }
            object["rows"] = list;
        }
    }
    const std::string text = rows.empty()  ? ""
                             : options.csv ? strategyCsv(*run.basis(), rows)
                                           : asTable(run, rows, options);
    return run.finish(object, text);
}

} // namespace

void addStrategies(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command =
        program.command("strategies", "Compare guardband strategies of an analysis file");
    options->addTo(command);
    std::string words;
    for (const Strategy each : allStrategies)
        words += (words.empty() ? "" : ", ") + std::string(nameOf(each));
    command
        .read(
            "--rule",
            [options, words](const std::string& text) -> std::string {
                options->only = strategyNamed(text);
                return options->only ? "" : "\"" + text + "\" is none of " + words;
            },
            ("Only this one of " + words).c_str())
        .shownAs("NAME");
    command.text("--target-fa", options->targetAccept, "False accept risk of the row fa; otherwise 2%")
        .shownAs("RISK")
        .check(isRisk);
    command
        .text("--target-fr", options->targetReject, "False reject risk of a row fr; otherwise there is none")
        .shownAs("RISK")
        .check(isRisk);
    command
        .text("--target-worst", options->targetWorst,
              "Worst false accept risk of the row worst; otherwise 2%")
        .shownAs("RISK")
        .check(isRisk);
    command.flag("--csv", options->csv, "Print values separated by commas instead of text");
    command.examples({"strategies multimeter-dc-volts.mrk",
                      "strategies torque-wrench-50nm.mrk --rule m6 --json",
                      "strategies torque-wrench-50nm.mrk --target-fa 1% --target-fr 5% --csv"});
    command.then([options, &chosen] {
        if (options->csv && options->json) throw WrongUsage("--csv excludes --json");
        chosen = [options] { return strategies(*options); };
    });
}

} // namespace metrisk::cli

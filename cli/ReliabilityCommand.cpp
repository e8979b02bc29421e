// metrisk-cli reliability: coefficients of a reliability model from probabilities, and the way back.
#include "base/DecimalForm.h"
#include "base/NumberFormat.h"
#include "cli/Commands.h"
#include "cli/Figures.h"
#include "cli/Output.h"
#include "cli/Readers.h"
#include "desk/compute/Reliability.h"
#include "desk/kit/Session.h"
#include "persistence/SettingsFile.h"
#include "unattended/Json.h"
#include "unattended/UnattendedInteraction.h"

#include <algorithm>
#include <cctype>
#include <memory>
#include <optional>

namespace metrisk::cli {

namespace {

constexpr int shownDigits = 10; // of coefficients and times

struct Options {
    std::string model;
    double interval = 0;
    PeriodReliability pct; // percent
    Coefficients theta;
    std::optional<double> atTime;
    std::optional<double> atPct; // percent
    bool fromCoefficients = false;
    bool json = false;
};

/// What was found; figures that were not are none.
struct Found {
    SolveStatus status = SolveStatus::Refused;
    std::optional<PeriodReliability> period;
    Coefficients theta;
    std::optional<double> reliability;
    std::optional<double> time;
};

/// The model of the name in lower case, with blanks or dashes; null if there is none.
const ReliabilityModel* modelNamed(std::string_view asked) {
    for (const ReliabilityModel& model : reliabilityModels) {
        std::string name;
        for (const char letter : model.name)
            name += letter == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
        std::string plain(asked);
        std::ranges::replace(plain, ' ', '-');
        if (name == plain) return &model;
    }
    return nullptr;
}

std::string isModel(const std::string& text) {
    return modelNamed(text) ? "" : "\"" + text + "\" is not a reliability model; see --help";
}

std::string isInterval(const std::string& text) {
    const auto time = numberOf(text);
    return !time || *time > 0 ? isNumber(text) : "an interval above 0 is needed";
}

std::string isTime(const std::string& text) {
    const auto time = numberOf(text);
    return !time || *time >= 0 ? isNumber(text) : "a time must not be below 0";
}

Found find(Session& session, int model, const Options& options) {
    Found found;
    if (options.fromCoefficients) {
        found.theta = options.theta;
        found.period = ReliabilityOverPeriod(session, model, found.theta, options.interval);
        found.status = found.period ? SolveStatus::Computed : SolveStatus::Refused;
    } else {
        const auto [bop, aop, eop] = options.pct;
        PeriodReliability period{bop / 100, aop / 100, eop / 100};
        found.status = SolveReliabilityCoefficients(session, model, period, options.interval, found.theta);
        if (found.status != SolveStatus::Refused) found.period = period;
    }
    const bool curve = found.status == SolveStatus::Computed || !found.theta.allZero();
    if (!found.period || !curve) return found;
    if (options.atTime)
        found.reliability = *options.atTime == 0
                                ? found.period->bop
                                : ReliabilityAt(session, model, found.theta, *options.atTime);
    if (options.atPct) found.time = IntervalForReliability(session, model, found.theta, *options.atPct / 100);
    if ((options.atTime && !found.reliability) || (options.atPct && !found.time))
        found.status = SolveStatus::Refused;
    return found;
}

std::string asJson(const std::string& model, const char* status, const Options& options, const Found& found,
                   const std::vector<Told>& messages) {
    const auto given = [](bool there, const auto& value) { return there ? Json(value) : Json(); };
    const bool there = found.period.has_value();
    const auto [bop, aop, eop] = found.period.value_or(PeriodReliability{});
    const auto [a, b, c] = found.theta;
    Json object{{"Rel_Model", model},
                {"status", status},
                {"messages", messagesJson(messages)},
                {"Rel_Theta", given(there, Json::array({a, b, c}))},
                {"Rel_BOP", given(there, bop)},
                {"Rel_AOP", given(there, aop)},
                {"Rel_EOP", given(there, eop)},
                {"Rel_Interval", given(there, options.interval)}};
    if (options.atTime) object["R"] = given(found.reliability.has_value(), found.reliability.value_or(0));
    if (options.atPct) object["Time"] = given(found.time.has_value(), found.time.value_or(0));
    return jsonLine(object);
}

std::string asTable(const ReliabilityModel& model, const char* status, const Options& options,
                    const Found& found) {
    const auto pct = [](double fraction) { return FormatNumber(100 * fraction, "0.0000", {}) + " %"; };
    const auto number = [](double value) { return shortestText(value, shownDigits, true); };
    std::string table = std::string(model.name) + "\n" + tableRow("Status", status);
    if (found.period) {
        table += tableRow("a", number(found.theta.a)) + tableRow("b", number(found.theta.b));
        if (model.hasC) table += tableRow("c", number(found.theta.c));
        table += tableRow("Interval", number(options.interval));
        table += tableRow("Beginning of period", pct(found.period->bop));
        table += tableRow("Average over period", pct(found.period->aop));
        table += tableRow("End of period", pct(found.period->eop));
    }
    if (found.reliability) table += tableRow("Reliability at the time", pct(*found.reliability));
    if (found.time) table += tableRow("Time at the reliability", number(*found.time));
    return table;
}

int reliability(const Options& options) {
    SettingsFile settings(defaultSettingsPath());
    UnattendedInteraction ui;
    const SystemClock clock;
    Session session{settings, ui, clock};
    const ReliabilityModel& model = *modelNamed(options.model);
    const Found found = find(session, model.number, options);
    const char* status = found.status == SolveStatus::Computed       ? "computed"
                         : found.status == SolveStatus::Questionable ? "questionable"
                                                                     : "refused";
    return finish({.results = options.json
                                  ? asJson(std::string(model.name), status, options, found, ui.messages())
                                  : asTable(model, status, options, found),
                   .diagnostics = diagnosticLines("reliability", ui.messages()),
                   .status = found.status == SolveStatus::Refused ? refused : allDone});
}

} // namespace

void addReliability(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command("reliability", "Solve a reliability model, or evaluate it");
    command
        .text("--model", options->model,
              "exponential, mixed-exponential, weibull, gamma, mortality-drift, warranty, random-walk or "
              "restricted-random-walk")
        .shownAs("MODEL")
        .required()
        .check(isModel);
    command.number("--interval", options->interval, "Length of the period, in any unit")
        .shownAs("TIME")
        .check(isInterval)
        .required();
    const auto percent = [&](const char* name, double& value, const char* text) {
        return command.percent(name, value, text).shownAs("PERCENT");
    };
    const Argument bop = percent("--bop", options->pct.bop, "% in-tolerance at its beginning");
    const Argument aop = percent("--aop", options->pct.aop,
                                 "Mean % in-tolerance over it, where the model needs it to be solved");
    const Argument eop = percent("--eop", options->pct.eop, "% in-tolerance at its end");
    const auto coefficient = [&](const char* name, double& value, const char* text) {
        return command.number(name, value, text).shownAs("NUMBER");
    };
    const Argument a = coefficient("--a", options->theta.a, "Coefficient a");
    const Argument b = coefficient("--b", options->theta.b, "Coefficient b");
    const Argument c = coefficient("--c", options->theta.c, "Coefficient c");
    for (const Argument& probability : {bop, aop, eop})
        for (const Argument& theta : {a, b, c}) probability.excludes(theta);
    command.number("--at-time", options->atTime, "Also tell the reliability at this time")
        .shownAs("TIME")
        .check(isTime);
    command.percent("--at-reliability", options->atPct, "Also tell the time at which this is reached")
        .shownAs("PERCENT");
    command.flag("--json", options->json, "Print one JSON object instead of text");
    command.examples(
        {"reliability --model weibull --interval 12 --bop 99 --aop 95 --eop 90 --at-time 18",
         "reliability --model exponential --interval 12 --bop 98% --eop 90% --at-reliability 85 --json"});
    command.then([=, &chosen] {
        const ReliabilityModel& model = *modelNamed(options->model);
        options->fromCoefficients = a.given() || b.given() || c.given();
        const auto need = [](const Argument& option, const char* name, bool needed) {
            if (needed && !option.given()) throw WrongUsage(std::string(name) + " is required");
        };
        need(eop, "--eop", !options->fromCoefficients);
        need(bop, "--bop", !options->fromCoefficients && model.takesBOP);
        need(aop, "--aop", !options->fromCoefficients && model.needsAOP);
        chosen = [options] { return reliability(*options); };
    });
}

} // namespace metrisk::cli

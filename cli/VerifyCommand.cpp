// metrisk-cli verify: the program's own figures beside published ones, as a page that can be filed.
#include "base/Clock.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/OutputFile.h"
#include "files/PictureFile.h"
#include "selfcheck/CheckPage.h"
#include "unattended/Input.h"
#include "unattended/Json.h"

#include <stdexcept>

namespace metrisk::cli {

namespace {

struct Options {
    std::string page;
    bool force = false;
    std::string data;
    bool json = false;
};

Json asJson(const CheckHeading& heading, const std::vector<CheckedFigure>& figures, bool passed,
            const std::vector<Told>& messages) {
    Json cases = Json::array();
    for (const CheckedFigure& each : figures)
        cases.push_back({{"case", each.name},
                         {"figure", each.figure},
                         {"source", each.source},
                         {"printed", each.printed},
                         {"computed", each.computed ? Json(*each.computed) : Json()},
                         {"exact", each.exact ? Json(*each.exact) : Json()},
                         {"verdict", wordOf(each.verdict)}});
    Json about;
    for (const auto& [name, text] : heading) about[name] = text;
    Json object = resultJson("", passed ? "passed" : "failed", messages);
    object["about"] = about;
    object["cases"] = cases;
    return object;
}

bool writePage(const Options& options, const CheckHeading& heading, const std::vector<CheckedFigure>& figures,
               UnattendedInteraction& ui, Output& output) {
    try {
        const std::string bytes =
            documentBytes({794, 1123}, {.title = "Metrisk self-check"}, checkPages(heading, figures));
        return writeTarget(options.page, options.force, bytes, ui, output);
    } catch (const std::runtime_error& fault) {
        ui.note(options.page + " cannot be drawn: " + fault.what());
        return false;
    }
}

int verify(const Options& options) {
    constexpr std::size_t largest = 10'000'000;
    if (const std::string fault =
            options.page.empty() ? "" : targetFault(options.page, options.force, {options.data});
        !fault.empty())
        return finish(refusal("", "verify: " + fault, wrongUsage, options.json));
    Output output;
    UnattendedInteraction ui;
    const std::string own = options.data.empty() ? "" : readInput(options.data, largest);
    const std::string_view data = options.data.empty() ? publishedFigures() : own;
    const std::vector<CheckedFigure> figures = selfCheck(data);
    const CheckHeading heading = checkHeading(data, SystemClock().now(), {});
    const bool passed = allPassed(figures);
    if (!passed) ui.note(checkSummary(figures));
    const bool written = options.page.empty() || writePage(options, heading, figures, ui, output);
    output.status = passed && written ? allDone : refused;
    if (options.json)
        output.results = jsonLine(asJson(heading, figures, passed, ui.messages()));
    else if (options.page != standardStream)
        output.results = linesForResults(checkText(heading, figures));
    output.diagnostics = diagnosticLines("verify", ui.messages());
    return finish(output);
}

std::string isPage(const std::string& path) {
    return path == standardStream || pictureFormatOf(path) == PictureFormat::Pdf
               ? ""
               : "the name must end in .pdf";
}

} // namespace

void addVerify(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command("verify", "Check this program against published figures");
    command.flag("--json", options->json, "Print one JSON object instead of text");
    command.text("-o,--output", options->page, "Write the page as PDF")
        .shownAs("PAGE.pdf")
        .isPath()
        .check(isPage);
    addForceOption(command, options->force);
    command.text("--data", options->data, "Figures to check against instead of the program's own")
        .shownAs("TABLE")
        .isPath();
    command.examples({"verify", "verify -o selfcheck.pdf"});
    command.then([options, &chosen] {
        if (options->json && options->page == standardStream)
            throw WrongUsage("-o - and --json both take the standard output");
        chosen = [options] { return verify(*options); };
    });
}

} // namespace metrisk::cli

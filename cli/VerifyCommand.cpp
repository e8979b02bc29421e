// metrisk-cli verify: the program's own figures beside published ones, as a page that can be filed.
#include "cli/Commands.h"
#include "cli/Json.h"
#include "cli/Output.h"
#include "model/Clock.h"
#include "persistence/AtomicFile.h"
#include "plots/files/PictureFile.h"
#include "selfcheck/CheckPage.h"

#include <stdexcept>

namespace metrisk::cli {

namespace {

struct Options {
    std::string page;
    std::string data;
    bool json = false;
};

Json asJson(const CheckHeading& heading, const std::vector<CheckedFigure>& figures, bool passed) {
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
    return {{"status", passed ? "passed" : "failed"}, {"about", about}, {"cases", cases}};
}

int verify(const Options& options) {
    Output output;
    std::string own;
    std::string_view data = publishedFigures();
    if (!options.data.empty()) {
        const auto read = readWholeFile(options.data, 10'000'000);
        if (!read)
            return finish(
                {.diagnostics = diagnosticLine(options.data, "cannot be read"), .status = unreadable});
        data = own = *read;
    }
    const std::vector<CheckedFigure> figures = selfCheck(data);
    const CheckHeading heading = checkHeading(data, SystemClock().now(), {});
    const bool passed = allPassed(figures);
    output.status = passed ? allDone : refused;
    output.results = options.json ? jsonLine(asJson(heading, figures, passed)) : checkText(heading, figures);
    if (!options.page.empty()) {
        try {
            const auto pages = checkPages(heading, figures);
            if (!replaceFile(options.page,
                             documentBytes({794, 1123}, {.title = "Metrisk self-check"}, pages))) {
                output.diagnostics = diagnosticLine(options.page, "cannot be written");
                output.status = refused;
            }
        } catch (const std::runtime_error& fault) {
            output.diagnostics = diagnosticLine(options.page, fault.what());
            output.status = refused;
        }
    }
    return finish(output);
}

std::string isPage(const std::string& path) {
    return pictureFormatOf(path) == PictureFormat::Pdf ? "" : "the name must end in .pdf";
}

} // namespace

void addVerify(const Arguments& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    const Arguments command = program.command("verify", "Check this program against published figures");
    command.flag("--json", options->json, "Print one JSON object instead of text");
    command.text("-o,--output", options->page, "Write the page as PDF").shownAs("PAGE.pdf").check(isPage);
    command.text("--data", options->data, "Figures to check against instead of the program's own")
        .shownAs("TABLE");
    command.then([options, &chosen] { chosen = [options] { return verify(*options); }; });
}

} // namespace metrisk::cli

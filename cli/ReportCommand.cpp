// metrisk-cli report: the report of an analysis as a file, or of many analyses as many files.
#include "cli/AnalysisRun.h"
#include "cli/Commands.h"
#include "cli/OrderedBatch.h"
#include "persistence/AtomicFile.h"
#include "reports/ReportFiles.h"
#include "reports/files/CairoPress.h"
#include "shell/mainscreen/DataGate.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <set>

namespace metrisk::cli {

namespace {

constexpr const char* sectionNames[] = {"risk", "plots", "uncertainty", "error"};

struct Options {
    std::vector<std::string> files;
    std::string out;
    std::string folder;
    std::string format = "pdf";
    std::vector<std::string> sections{"risk"};
    std::string font;
    std::optional<std::string> organization;
    std::string paper = "letter";
    std::string settings;
    unsigned threads = 0;

    bool holds(const char* section) const {
        return std::find(sections.begin(), sections.end(), section) != sections.end();
    }
    ReportSelection selection() const {
        ReportSelection selection;
        selection.Report_IncludeRisk = holds(sectionNames[0]);
        selection.Report_IncludePlots = holds(sectionNames[1]);
        selection.Report_IncludeUncertainty = holds(sectionNames[2]);
        selection.Report_IncludeErrorPlot = holds(sectionNames[3]);
        if (!font.empty()) selection.Report_FontName = font;
        return selection;
    }
    PageSetup page() const { return paper == "a4" ? PageSetup::a4() : PageSetup{}; }
    std::string target(const std::string& file) const {
        namespace fs = std::filesystem;
        if (folder.empty()) return out;
        return (fs::path(folder) / fs::path(file).stem()).string() + "." + format;
    }
};

Output report(Workplace& workplace, const std::string& file, const Options& options) {
    AnalysisRun run(workplace);
    Output output;
    const std::string target = options.target(file);
    if (!run.open(file)) {
        output.status = unreadable;
    } else {
        if (options.organization) {
            run.record.Organization = *options.organization;
            run.record.IncludeOrganization = true;
        }
        output.status = refused;
        std::string problem;
        if (haveData(run.session, Needs::Both)) {
            const auto bytes =
                reportBytes(run.session, options.selection(), options.page(), target, CairoPress());
            if (bytes && replaceFile(target, *bytes))
                output.status = allDone;
            else if (bytes)
                problem = diagnosticLine(target, "cannot be written");
        }
        output.diagnostics = problem;
    }
    output.diagnostics = run.diagnostics(file) + output.diagnostics;
    return output;
}

/// The first file whose report another one would replace; empty if there is none.
std::string collision(const Options& options) {
    std::set<std::string> targets;
    for (const std::string& file : options.files)
        if (!targets.insert(options.target(file)).second) return file;
    return "";
}

int reportAll(const Options& options) {
    if (options.folder.empty()) {
        if (options.files.size() > 1)
            return finish({.diagnostics = "Several files need --out-dir.\n", .status = wrongUsage});
        if (reportFormatOf(options.out) == ReportFormat::None)
            return finish({.diagnostics = diagnosticLine(options.out, "The Report Type is not registered."),
                           .status = wrongUsage});
    }
    if (const std::string file = collision(options); !file.empty())
        return finish({.diagnostics = diagnosticLine(file, "another file's report has the same name"),
                       .status = wrongUsage});
    Workplace workplace(options.settings);
    Outlet outlet(options.files.size());
    runOrdered(
        options.files.size(), options.threads,
        [&](std::size_t i) -> Output {
            const std::string& file = options.files[i];
            try {
                return report(workplace, file, options);
            } catch (const std::exception& fault) {
                return {.diagnostics = diagnosticLine(file, fault.what()), .status = refused};
            }
        },
        [&](const Output& output) { outlet.put(output); });
    return outlet.status();
}

} // namespace

void addReport(CLI::App& program, Command& chosen) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = program.add_subcommand("report", "Write reports of analysis files");
    command->add_option("FILE", options->files, "Analysis files")->option_text("...")->required();
    auto* where = command->add_option_group("target");
    where->add_option("-o", options->out, "The file to write: .pdf, .doc (Rich Text) or .htm")
        ->option_text("OUT");
    where->add_option("--out-dir", options->folder, "A folder for the reports, each named after its file")
        ->option_text("DIR")
        ->check(CLI::ExistingDirectory);
    where->require_option(1);
    command->add_option("--format", options->format, "With --out-dir: pdf (the default), doc or htm")
        ->option_text("FORMAT")
        ->check(CLI::IsMember({"pdf", "doc", "htm"}));
    command
        ->add_option("--sections", options->sections,
                     "Any of risk (the default), plots, uncertainty, error, with commas between")
        ->option_text("LIST")
        ->delimiter(',')
        ->check(CLI::IsMember({"risk", "plots", "uncertainty", "error"}));
    command->add_option("--font", options->font, "Font family of the texts")->option_text("NAME");
    command->add_option("--organization", options->organization, "Organization at the head of the report")
        ->option_text("NAME");
    command->add_option("--paper", options->paper, "letter (the default) or a4")
        ->option_text("SIZE")
        ->check(CLI::IsMember({"letter", "a4"}));
    addSettingsOption(*command, options->settings);
    command->add_option("--threads", options->threads, "Threads to use; 0, the default, means one a core")
        ->option_text("N");
    command->callback([options, &chosen] { chosen = [options] { return reportAll(*options); }; });
}

} // namespace metrisk::cli

// metrisk-cli audit: every analysis of a folder recomputed as it is stored, for whoever answers for them.
#include "base/Digest.h"
#include "base/Text.h"
#include "cli/AuditFiles.h"
#include "cli/AuditPages.h"
#include "cli/Commands.h"
#include "cli/FileList.h"
#include "cli/OrderedBatch.h"
#include "cli/Output.h"
#include "cli/OutputFile.h"
#include "rows/AuditTable.h"
#include "unattended/AnalysisRun.h"
#include "unattended/Input.h"

#include <exception>
#include <filesystem>

namespace metrisk::cli {

namespace {

struct Options {
    FileList list;
    bool recursive = false;
    std::vector<std::string> limitTexts;
    AuditLimits limits;
    bool csv = false;
    bool json = false;
    std::string out;
    bool force = false;
    bool safeCells = false;
    bool quiet = false;
    unsigned threads = 0;
    std::string settings;
};

bool isPdf(const std::string& path) {
    return equalCaseBlind(std::filesystem::path(path).extension().string(), ".pdf");
}

AuditRow unreadableRow(const std::string& file, const std::string& cause) {
    return {.file = file, .status = AuditStatus::Unreadable, .message = cause};
}

AuditRow auditFile(Workplace& workplace, const std::string& file, const AuditLimits& limits) {
    try {
        const std::string bytes = readInput(file, largestAnalysis);
        AnalysisRun run(workplace);
        if (!run.openText(bytes, file)) return unreadableRow(file, run.ui.messages().back().text);
        AuditRow row = auditOf(run.record, run.session.regional, limits);
        row.file = file;
        row.sha256 = sha256(bytes);
        return row;
    } catch (const Unreadable& fault) {
        return unreadableRow(file, fault.what());
    } catch (const std::exception& fault) { // memory: the files behind it may need less
        return unreadableRow(file, faultText(fault));
    }
}

Json jsonOf(const AuditCell& cell) {
    switch (cell.kind) {
    case AuditCell::Kind::None: break;
    case AuditCell::Kind::Number: return cell.number;
    case AuditCell::Kind::Flag: return cell.number != 0;
    case AuditCell::Kind::Text: return cell.text;
    }
    return {};
}

std::string asJson(const AuditRow& row) {
    Json object;
    const std::vector<AuditCell> cells = auditCells(row);
    for (std::size_t i = 0; i < cells.size(); ++i) object[auditColumns()[i]] = jsonOf(cells[i]);
    return jsonLine(object);
}

std::string asCsv(const std::vector<AuditRow>& rows, bool safeCells) {
    std::string table = auditHeaderLine();
    for (const AuditRow& row : rows) table += auditLine(row, safeCells);
    return table;
}

int statusOf(const std::vector<AuditRow>& rows) {
    int status = allDone;
    for (const AuditRow& row : rows) {
        if (row.status == AuditStatus::Unreadable) return unreadable;
        if (row.needsAttention()) status = refused;
    }
    return status;
}

int audit(const Options& o) {
    const AuditFiles files = auditFiles(o.list.files, o.recursive);
    if (!o.out.empty())
        if (const std::string fault = targetFault(o.out, o.force, files.analyses); !fault.empty())
            return finish(refusal(o.out, fault, wrongUsage, o.json));
    Workplace workplace(o.settings);
    std::vector<AuditRow> rows(files.analyses.size());
    runOrdered(
        rows.size(), threadsFor(o.threads, false),
        [&](std::size_t i) {
            rows[i] = auditFile(workplace, files.analyses[i], o.limits);
            return Output{};
        },
        [](const Output&) {});
    Output output{.status = statusOf(rows)};
    if (o.json)
        for (const AuditRow& row : rows) output.results += asJson(row);
    if (!o.out.empty()) {
        UnattendedInteraction ui;
        const std::string bytes = isPdf(o.out) ? auditPdf(rows, files.others) : asCsv(rows, o.safeCells);
        if (!writeTarget(o.out, o.force, bytes, ui, output))
            output.status = std::max<int>(output.status, refused);
        output.diagnostics = diagnosticLines("", ui.messages());
    } else if (o.csv) {
        output.results = asCsv(rows, o.safeCells);
    } else if (!o.json) {
        for (const AuditRow& row : rows) output.results += auditText(row);
    }
    if (!o.json && !o.quiet)
        for (const AuditRow& row : rows)
            if (!row.message.empty()) output.diagnostics += diagnosticLine(row.file, row.message);
    if (!o.quiet)
        output.diagnostics += auditSummary(rows) + "; " + std::to_string(files.others) + " other " +
                              (files.others == 1 ? "file" : "files") + " passed over\n";
    return finish(output);
}

void checkUsage(Options& o) {
    o.list.check();
    for (const std::string& text : o.limitTexts)
        if (const std::string fault = readAuditLimit(text, o.limits); !fault.empty())
            throw WrongUsage("--limit " + fault);
    if (o.csv && o.json) throw WrongUsage("--csv and --json exclude each other");
    if (o.csv && !o.out.empty()) throw WrongUsage("--csv and -o exclude each other");
    if (o.json && o.out == standardStream) throw WrongUsage("-o - and --json both take the standard output");
}

} // namespace

void addAudit(const Arguments& program, Command& chosen) {
    const auto o = std::make_shared<Options>();
    const Arguments command =
        program.command("audit", "Recompute stored analyses and compare them with what their files hold");
    o->list.addTo(command, "Analysis files and folders of them");
    command.flag("--recursive", o->recursive, "Enter folders in folders");
    command
        .texts("--limit", o->limitTexts,
               "Bound that is watched: fa=2%, fr=500ppm (at most), tur=4 (at least)")
        .shownAs("NAME=VALUE")
        .oneEach();
    command.flag("--csv", o->csv, "Print a table for a spreadsheet");
    command.flag("--json", o->json, "Print one JSON object per analysis, each on one line");
    command
        .text("-o,--output", o->out, "File to write: pages where its name ends in .pdf, else a table as CSV")
        .shownAs("OUT.csv|pdf")
        .isPath();
    command.flag("--safe-cells", o->safeCells, "Texts that begin with = + - @ get an apostrophe");
    addForceOption(command, o->force);
    command.flag("-q,--quiet", o->quiet, "No messages and no summary");
    command.count("--jobs,--threads", o->threads, "Threads to use; 0, the default, means one a core")
        .shownAs("N");
    addSettingsOption(command, o->settings);
    command.examples({"audit torque-wrench-50nm.mrk gauge-block-25mm.mrk -o audit.pdf",
                      "audit --recursive --limit fa=5% --limit tur=1.5 gauge-block-25mm.mrk"});
    command.then([o, &chosen] {
        checkUsage(*o);
        chosen = [o] {
            o->list.read();
            return audit(*o);
        };
    });
}

} // namespace metrisk::cli

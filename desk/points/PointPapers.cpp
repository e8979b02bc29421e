#include "desk/points/PointPapers.h"

#include "base/Text.h"
#include "desk/kit/Message.h"
#include "desk/kit/Session.h"
#include "desk/points/PointComputing.h"
#include "desk/points/PointDocument.h"
#include "desk/points/PointFiles.h"
#include "desk/points/PointTexts.h"

#include <algorithm>
#include <filesystem>

namespace metrisk {

namespace {

constexpr const char* resultsTitle = "Save as CSV";
constexpr std::string_view paperTitle = "Test Points";
constexpr Message noRows{"There are no rows.", paperTitle};
constexpr Message tooManyRows{"More than 10,000 rows are no document: show fewer of them.", paperTitle};

} // namespace

std::optional<std::string> PointPapers::nameToSave(const char* title, const char* filter,
                                                   const char* proposed,
                                                   std::initializer_list<std::string_view> extensions) {
    if (!files_) return std::nullopt;
    auto path = files_->chooseToSave({.title = title, .filter = filter, .initialName = proposed});
    if (!path) return std::nullopt;
    const std::string extension = std::filesystem::path(*path).extension().string();
    const auto isIt = [&extension](std::string_view each) { return equalCaseBlind(extension, each); };
    if (std::ranges::any_of(extensions, isIt)) return path;
    // What is called a page and holds a table is opened by the wrong program.
    *path += *extensions.begin();
    return mayReplace(session_.ui, *path, title) ? path : std::nullopt;
}

std::string PointPapers::results() {
    answerAll(desk_.sheet, *view_.rules);
    std::string all = view_.rules->outputHeader();
    for (std::size_t row = 0; row < desk_.sheet.size(); ++row) {
        if (!desk_.sheet[row].record.empty()) all += *desk_.sheet[row].answer.record;
        all += '\n';
    }
    return all;
}

void PointPapers::saveResults() {
    if (!view_.rules) {
        tell(session_.ui, {view_.fault, resultsTitle});
        return;
    }
    const auto path = nameToSave(resultsTitle, tableFilter, "risks.csv", {".csv", ".tsv", ".txt"});
    if (!path) return;
    const WaitPointer wait(session_.ui);
    writeTable(session_.ui, *path, results());
}

std::optional<TableReport> PointPapers::report() {
    if (!view_.rules)
        tell(session_.ui, {view_.fault, paperTitle});
    else if (view_.rows.empty())
        tell(session_.ui, noRows);
    else if (view_.rows.size() > mostPrintedRows)
        tell(session_.ui, tooManyRows);
    else {
        const std::string all = results();
        const Regional marks = regionalOfTable(session_.regional, desk_.decimalComma);
        const PointTotals totals = totalsOf(desk_.sheet, view_.rules.get(), desk_.limit);
        return pointReport(desk_.sheet, *view_.rules, view_.rows,
                           {nameOfTable(desk_), desk_.filling->name(), totalsText(view_, totals, marks),
                            session_.clock.now()},
                           all, marks);
    }
    return std::nullopt;
}

void PointPapers::print() {
    const auto table = report();
    if (table && !(printTable && printTable(*table))) tell(session_.ui, notPrinted);
}

void PointPapers::savePdf() {
    const auto table = report();
    if (!table) return;
    const auto path = nameToSave("Save as PDF", "Pages (*.pdf)|*.pdf", "points.pdf", {".pdf"});
    if (!path) return;
    const WaitPointer wait(session_.ui);
    const auto pages = tablePdf ? tablePdf(*table) : std::nullopt;
    if (pages)
        writeTable(session_.ui, *path, *pages);
    else
        tell(session_.ui, notPrinted);
}

} // namespace metrisk

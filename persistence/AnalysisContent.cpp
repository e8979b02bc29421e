#include "persistence/AnalysisContent.h"

#include "base/Real.h"
#include "base/Text.h"
#include "persistence/AnalysisLayout.h"
#include "persistence/ItemReader.h"
#include "persistence/ItemWriter.h"
#include "record/Analysis.h"

#include <algorithm>
#include <array>

namespace metrisk {
namespace {

constexpr const char* fileMark = "MTRISK";
constexpr std::array<float, 13> readableVersions = {1.0F,  1.1F, 1.11F, 1.12F, 1.13F,  1.14F, 1.15F,
                                                    1.16F, 1.2F, 1.5F,  1.51F, 1.511F, 1.512F};

ReadOutcome readContent(Analysis& record, std::string_view content, const Regional& regional,
                        const ParseWatch& watch, LoadNotes& notes) {
    bool changed = false;
    ItemReader file(content, [&](LayoutPoint point) {
        changed |= settle(record, point, regional, notes);
        if (point == LayoutPoint::Options) watch.optionsRead();
    });
    try {
        std::string mark;
        file.item(mark);
        if (mark != fileMark) return {ReadFault::NotAnAnalysis};
        float version = 0;
        file.item(version);
        if (std::ranges::find(readableVersions, version) == readableVersions.end())
            return {ReadFault::UnknownVersion};
        file.setVersion(version);
        if (version == versionWithoutTable && !watch.convertOldest()) return {ReadFault::Declined};
        if (content.size() > largestAnalysis) return {ReadFault::TooLarge};

        record.Remarks.clear();
        record.BaselineComputed = false;
        layoutAnalysis(file, record);
        changed |= settleEnd(record, regional);
        record.FileChanged = changed || version <= versionWithoutWorksheets;
        record.ResultsStale = false;
        return {};
    } catch (const RuntimeFault&) {
        return {ReadFault::Damaged, file.lineNumber()};
    }
}

} // namespace

ParseResult parseAnalysis(Analysis& record, std::string content, const Regional& regional,
                          const ParseWatch& watch) {
    ParseResult result;
    try {
        content = toUtf8(std::move(content));
        result.outcome = readContent(record, withoutByteOrderMark(content), regional, watch, result.notes);
    } catch (const std::exception&) {
        result.outcome = {ReadFault::Unreadable};
    }
    return result;
}

std::string causeOf(const ReadOutcome& outcome) {
    switch (outcome.fault) {
    case ReadFault::None: return "";
    case ReadFault::Missing: return "no such file";
    case ReadFault::NotPermitted: return "no permission to read it";
    case ReadFault::NotAFile: return "not a regular file";
    case ReadFault::Unreadable: return "the system cannot read it";
    case ReadFault::NotAnAnalysis: return "not an analysis";
    case ReadFault::UnknownVersion: return "of a version that this program does not know";
    case ReadFault::TooLarge: return "larger than any analysis";
    case ReadFault::Declined: return "its conversion was declined";
    case ReadFault::Damaged: return "damaged at line " + std::to_string(outcome.line);
    }
    return "";
}

std::string AnalysisText(const Analysis& record) {
    ItemWriter file(newestVersion);
    file.line(std::string(fileMark), newestVersion);
    layoutAnalysis(file, record);
    return file.text();
}

} // namespace metrisk

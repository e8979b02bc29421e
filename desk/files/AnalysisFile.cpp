#include "desk/files/AnalysisFile.h"

#include "base/Real.h"
#include "base/Text.h"
#include "desk/files/LoadSteps.h"
#include "desk/kit/Message.h"
#include "persistence/AnalysisLayout.h"
#include "persistence/ItemReader.h"
#include "persistence/ItemWriter.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>
#include <system_error>

#include <unistd.h>

namespace metrisk {
namespace {

constexpr const char* untitledFile = "(UNTITLED).MRK";
constexpr const char* fileMark = "MTRISK";
constexpr std::array<float, 13> readableVersions = {1.0F,  1.1F, 1.11F, 1.12F, 1.13F,  1.14F, 1.15F,
                                                    1.16F, 1.2F, 1.5F,  1.51F, 1.511F, 1.512F};

constexpr const char* notAnAnalysis = "Not a valid Analysis file.";
constexpr const char* invalidStructure = "Invalid file structure.";
constexpr const char* writeError = "Error Writing Analysis Data";
constexpr const char* olderVersion =
    "This file is from an earlier version of Metrisk.  If saved, it will be converted to Metrisk 1.6 format";

/// Beyond any analysis: with 200 samples a parameter a file has some 20 thousand characters.
constexpr std::size_t largestFile = std::size_t{16} * 1024 * 1024;

void refuse(Session& session, const std::string& name, const char* text,
            BoxIcon icon = BoxIcon::Exclamation) {
    session.record.AbortFlag = true;
    tell(session.ui, {text, name, icon});
}

ReadOutcome refused(Session& session, const std::string& name, const ReadOutcome& outcome) {
    switch (outcome.fault) {
    case ReadFault::None: break;
    case ReadFault::Declined: session.record.AbortFlag = true; break;
    case ReadFault::NotAnAnalysis: refuse(session, name, notAnAnalysis, BoxIcon::Information); break;
    case ReadFault::UnknownVersion: refuse(session, name, invalidStructure, BoxIcon::Information); break;
    default: refuse(session, name, readErrorText);
    }
    return outcome;
}

/// Why there is no content.
ReadFault faultOf(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
        return error == std::errc::permission_denied ? ReadFault::NotPermitted : ReadFault::Missing;
    if (!std::filesystem::is_regular_file(status)) return ReadFault::NotAFile;
    return ::access(path.c_str(), R_OK) == 0 ? ReadFault::Unreadable : ReadFault::NotPermitted;
}

std::string nameOf(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

bool convertOlderVersion(Session& session) {
    Box box;
    box.text = olderVersion;
    box.buttons = BoxButtons::OkCancel;
    return session.ui.show(box) == Answer::Ok;
}

ReadOutcome readContent(Session& session, std::string_view content) {
    Analysis& record = session.record;
    bool changed = false;
    ItemReader file(content, [&](LayoutPoint point) { changed |= runLoadStep(session, point); });
    try {
        std::string mark;
        file.item(mark);
        if (mark != fileMark) return {ReadFault::NotAnAnalysis};
        float version = 0;
        file.item(version);
        if (std::ranges::find(readableVersions, version) == readableVersions.end())
            return {ReadFault::UnknownVersion};
        file.setVersion(version);
        if (version == versionWithoutTable && !convertOlderVersion(session)) return {ReadFault::Declined};
        if (content.size() > largestFile) return {ReadFault::TooLarge};

        record.Remarks.clear();
        record.BaselineComputed = false;
        layoutAnalysis(file, record);
        changed |= finishLoad(session);
        record.FileChanged = changed || version <= versionWithoutWorksheets;
        record.ResultsStale = false;
        return {};
    } catch (const RuntimeFault&) {
        return {ReadFault::Damaged, file.lineNumber()};
    }
}

/// Every other fault ends here, under the wait pointer; its box comes after it.
ReadOutcome tryContent(Session& session, std::string content) {
    const WaitPointer wait(session.ui);
    try {
        content = toUtf8(std::move(content));
        return readContent(session, withoutByteOrderMark(content));
    } catch (const std::exception&) {
        return {ReadFault::Unreadable};
    }
}

bool endsCaseBlind(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && equalCaseBlind(text.substr(text.size() - end.size()), end);
}

} // namespace

ReadOutcome ReadAnalysisText(Session& session, std::string content, const std::string& name) {
    session.record.AbortFlag = false;
    return refused(session, name, tryContent(session, std::move(content)));
}

ReadOutcome ReadAnalysis(Session& session, const std::string& path) {
    std::optional<std::string> content;
    try {
        // One byte more than can be an analysis tells a file that is too large from one that is not.
        content = readFileStart(path, largestFile + 1);
    } catch (const std::exception&) {
        content.reset(); // no memory for it
    }
    if (content) return ReadAnalysisText(session, std::move(*content), nameOf(path));
    return refused(session, nameOf(path), {faultOf(path)});
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

std::string WriteAnalysis(Session& session, const std::string& path, const DiskProbe& probe,
                          const Condition& holds) {
    Analysis& record = session.record;
    record.AbortFlag = false;
    std::string cause;
    try {
        const auto error = writeFile(path, AnalysisText(record), Existing::Replace, probe, holds);
        if (error) cause = error.message();
        record.AbortFlag = error == std::errc::operation_canceled;
    } catch (const std::exception& fault) { // memory, or a number that could not be read back
        cause = fault.what();
    }
    if (cause.empty()) {
        record.FileChanged = false;
        session.fileStamp = stampOf(path);
    } else if (!record.AbortFlag) {
        refuse(session, nameOf(path), writeError);
    }
    return cause;
}

bool isUntitled(std::string_view name) {
    return equalCaseBlind(name, untitledName) || equalCaseBlind(name, untitledFile);
}

std::string NormalizeAnalysisName(std::string_view path) {
    if (endsCaseBlind(path, ".mrk")) return std::string(path);
    if (endsCaseBlind(path, ".dat")) path.remove_suffix(4);
    return std::string(path) + ".mrk";
}

} // namespace metrisk

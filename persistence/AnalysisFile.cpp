#include "persistence/AnalysisFile.h"

#include "model/Message.h"
#include "model/Text.h"
#include "numerics/Real.h"
#include "persistence/AnalysisLayout.h"
#include "persistence/ItemReader.h"
#include "persistence/ItemWriter.h"
#include "persistence/LoadSteps.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>

namespace metrisk {
namespace {

constexpr const char* fileMark = "MTRISK";
constexpr std::array<float, 13> readableVersions = {1.0F,  1.1F, 1.11F, 1.12F, 1.13F,  1.14F, 1.15F,
                                                    1.16F, 1.2F, 1.5F,  1.51F, 1.511F, 1.512F};

constexpr const char* notAnAnalysis = "Not a valid Analysis file.";
constexpr const char* invalidStructure = "Invalid file structure.";
constexpr const char* readError = "Error Reading Analysis Data";
constexpr const char* writeError = "Error Writing Analysis Data";
constexpr const char* olderVersion =
    "This file is from an earlier version of Metrisk.  If saved, it will be converted to Metrisk 1.6 format";

/// Beyond any analysis: with 200 samples a parameter a file has some 20 thousand characters.
constexpr std::size_t largestFile = std::size_t{16} * 1024 * 1024;

/// Why an analysis could not be read or written.
struct Refusal {
    const char* text;
    BoxIcon icon;
};
constexpr Refusal unreadable{readError, BoxIcon::Exclamation};
constexpr Refusal unwritable{writeError, BoxIcon::Exclamation};

void refuse(Session& session, const Refusal& refusal, const std::string& name) {
    session.record.AbortFlag = true;
    tell(session.ui, {refusal.text, name, refusal.icon});
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

/// Raises RuntimeFault where the content is no analysis although it begins like one.
std::optional<Refusal> readContent(Session& session, std::string_view content) {
    Analysis& record = session.record;
    bool changed = false;
    ItemReader file(content, [&](LayoutPoint point) { changed |= runLoadStep(session, point); });

    std::string mark;
    file.item(mark);
    if (mark != fileMark) return Refusal{notAnAnalysis, BoxIcon::Information};
    float version = 0;
    file.item(version);
    if (std::ranges::find(readableVersions, version) == readableVersions.end())
        return Refusal{invalidStructure, BoxIcon::Information};
    file.setVersion(version);
    if (version == versionWithoutTable && !convertOlderVersion(session)) {
        record.AbortFlag = true;
        return std::nullopt;
    }
    if (content.size() > largestFile) return unreadable;

    record.Remarks.clear();
    record.BaselineComputed = false;
    layoutAnalysis(file, record);
    changed |= finishLoad(session);
    record.FileChanged = changed || version <= versionWithoutWorksheets;
    record.ResultsStale = false;
    return std::nullopt;
}

/// Every fault ends here, under the wait pointer; its box comes after it.
std::optional<Refusal> tryContent(Session& session, std::string content) noexcept {
    const WaitPointer wait(session.ui);
    try {
        content = toUtf8(std::move(content));
        std::string_view text = content;
        if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
        return readContent(session, text);
    } catch (const std::exception&) {
        return unreadable;
    }
}

bool endsCaseBlind(std::string_view text, std::string_view end) {
    return text.size() >= end.size() && equalCaseBlind(text.substr(text.size() - end.size()), end);
}

} // namespace

void ReadAnalysisText(Session& session, std::string content, const std::string& name) noexcept {
    session.record.AbortFlag = false;
    if (const auto refusal = tryContent(session, std::move(content))) refuse(session, *refusal, name);
}

void ReadAnalysis(Session& session, const std::string& path) noexcept {
    std::optional<std::string> content;
    try {
        // One byte more than can be an analysis tells a file that is too large from one that is not.
        content = readFileStart(path, largestFile + 1);
    } catch (const std::exception&) {
        content.reset(); // no memory for it
    }
    if (content) return ReadAnalysisText(session, std::move(*content), nameOf(path));
    refuse(session, unreadable, nameOf(path));
}

std::string AnalysisText(const Analysis& record) {
    ItemWriter file(newestVersion);
    file.line(std::string(fileMark), newestVersion);
    layoutAnalysis(file, record);
    return file.text();
}

void WriteAnalysis(Session& session, const std::string& path, const DiskProbe& probe) noexcept {
    Analysis& record = session.record;
    record.AbortFlag = false;
    bool written = false;
    try {
        written = replaceFile(path, AnalysisText(record), probe);
    } catch (const std::exception&) {
        written = false;
    }
    if (!written) return refuse(session, unwritable, nameOf(path));
    record.FileChanged = false;
}

std::string NormalizeAnalysisName(std::string_view path) {
    if (endsCaseBlind(path, ".mrk")) return std::string(path);
    if (endsCaseBlind(path, ".dat")) path.remove_suffix(4);
    return std::string(path) + ".mrk";
}

} // namespace metrisk

#include "desk/files/AnalysisFile.h"

#include "desk/kit/Message.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include <unistd.h>

namespace metrisk {
namespace {

constexpr const char* notAnAnalysis = "Not a valid Analysis file.";
constexpr const char* invalidStructure = "Invalid file structure.";
constexpr const char* writeError = "Error Writing Analysis Data";
constexpr const char* olderVersion =
    "This file is from an earlier version of Metrisk.  If saved, it will be converted to Metrisk 1.6 format";

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

/// The notes of the reading come after the wait pointer, and before what ended it.
ReadOutcome readContent(Session& session, std::string content) {
    const auto convert = [&session] { return convertOlderVersion(session); };
    const auto repaint = [&session] {
        session.ui.repaintMainScreen();
        session.ui.yield();
    };
    ParseResult result;
    {
        const WaitPointer wait(session.ui);
        result = parseAnalysis(session.record, std::move(content), session.regional, {convert, repaint});
    }
    for (const Message& note : result.notes) tell(session.ui, note);
    return result.outcome;
}

} // namespace

ReadOutcome ReadAnalysisText(Session& session, std::string content, const std::string& name) {
    session.record.AbortFlag = false;
    return refused(session, name, readContent(session, std::move(content)));
}

ReadOutcome ReadAnalysis(Session& session, const std::string& path) {
    std::optional<std::string> content;
    try {
        // One byte more than can be an analysis tells a file that is too large from one that is not.
        content = readFileStart(path, largestAnalysis + 1);
    } catch (const std::exception&) {
        content.reset(); // no memory for it
    }
    if (content) return ReadAnalysisText(session, std::move(*content), nameOf(path));
    return refused(session, nameOf(path), {faultOf(path)});
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

} // namespace metrisk

#include "desk/shell/Recovery.h"

#include "base/FlagGuard.h"
#include "base/Real.h"
#include "desk/files/AnalysisFile.h"
#include "desk/files/ClearAnalysis.h"
#include "desk/files/CopyQuestion.h"
#include "desk/kit/Session.h"
#include "risk/evaluate/CurrentFigures.h"

namespace metrisk {

Recovery::Recovery(Session& session, std::filesystem::path folder)
    : session_(session), folder_(folder), copy_(std::move(folder)) {}

/// As it would be saved; of a copy of the record, so that the session's own keeps its figures.
std::string Recovery::textOf(const Analysis& record) const {
    Session copy{session_.settings, session_.ui, session_.clock, session_.regional, record};
    dropStaleFigures(copy.record, copy.regional);
    return AnalysisText(copy.record);
}

void Recovery::hold() {
    held_ = session_.record;
}

void Recovery::update(bool changed) {
    if (!changed) {
        if (!held_) remove();
        return;
    }
    try {
        std::string text = textOf(held_.value_or(session_.record));
        if (text == written_) return;
        if (copy_.write({session_.record.AnalysisFileName, session_.fileStamp, text}))
            written_ = std::move(text);
    } catch (const RuntimeFault&) { // a number that no file can hold
    }
}

void Recovery::remove() {
    copy_.remove();
    written_.clear();
}

bool Recovery::open(const AbandonedCopy& copy) {
    Analysis& r = session_.record;
    ClearAnalysis(session_);
    ClearWorksheets(session_.record, session_.settings);
    {
        const FlagGuard loading(r.LoadInProgress);
        ReadAnalysisText(session_, copy.work.content,
                         std::filesystem::path(copy.work.name).filename().string());
    }
    r.AnalysisFileName = r.AbortFlag ? std::string(untitledName) : copy.work.name;
    if (r.AbortFlag) return false;
    session_.fileStamp = copy.work.stamp;
    r.LastAnalysisName = r.AnalysisFileName;
    r.RisksNeedCompute = r.BaselineComputed = false;
    r.FileChanged = true;
    return true;
}

bool Recovery::offer(const std::function<void()>& opened) {
    return offerCopies(
        session_.ui, folder_,
        [](const std::string& path) { return std::filesystem::path(path).filename().string(); },
        [&](const AbandonedCopy& copy) {
            if (!open(copy)) return false;
            opened();
            return true;
        },
        [this] {
            settled();
            update(true);
            return !copy_.path().empty();
        });
}

} // namespace metrisk

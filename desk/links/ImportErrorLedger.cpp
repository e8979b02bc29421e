#include "desk/links/ImportErrorLedger.h"

#include "base/Real.h"
#include "desk/compute/ValidateAndFit.h"
#include "desk/files/AnalysisFile.h"
#include "desk/kit/Message.h"
#include "desk/links/TakeExchange.h"
#include "links/ExchangeFile.h"
#include "links/PartnerFile.h"

#include <optional>

namespace metrisk {
namespace {

constexpr Question wanted{
    "Link to ErrorLedger successful.\n\nDo you want to import ErrorLedger data into Metrisk?",
    "Uncertainty Data Link", BoxButtons::YesNo, Answer::No};
constexpr Question alsoTolerances{"Do you want to import parameter tolerance data as well as\n"
                                  "process uncertainty data into Metrisk?",
                                  "Uncertainty Data Available", BoxButtons::YesNo, Answer::No};
constexpr Question clearFirst{"Do you want to clear the current entries?", "New Analysis", BoxButtons::YesNo,
                              Answer::No};
constexpr Question obsolete{"You are importing from an obsolete version of ErrorLedger.\n"
                            "Not all update parameters will be captured.  ",
                            "Obsolete Import", BoxButtons::OkCancel, Answer::Cancel};
constexpr Question reset{"No data were available from ErrorLedger.\n"
                         "Do you want to reset the uncertainty data in Metrisk?",
                         "Uncertainty Data Unavailable", BoxButtons::YesNo, Answer::No};

bool hasEntries(const Analysis& r) {
    return r.SU_Mode != 0 || r.SU_UpperOffset != 0 || r.SU_LowerOffset != 0 || r.MTE_Offset != 0 ||
           r.SU_PctInTol != 0 || r.MTE_PctInTol != 0 || r.ProcessUncertainty != 0;
}

/// Figures in other nominal units would be taken for something else.
bool agreeOnUnits(Talk& ui, const Analysis& r, const Exchange& data) {
    if (r.NominalUnits.empty() || data.NominalUnits.empty() || r.NominalUnits == data.NominalUnits)
        return true;
    return ask(ui, {"The nominal units of ErrorLedger (" + data.NominalUnits +
                        ") are not those of this analysis (" + r.NominalUnits +
                        ").\nDo you want to take its figures as they are?",
                    "Uncertainty Data Units", BoxButtons::YesNo, Answer::No}) == Answer::Yes;
}

std::optional<Exchange> read(const PartnerFile& file) {
    if (file.state != PartnerFile::State::Read) return std::nullopt;
    try {
        return readExchange(file.text);
    } catch (const RuntimeFault&) {
        return std::nullopt;
    }
}

struct Scope {
    bool goesOn = false;
    bool tolerances = false;
};

/// A new analysis has been begun, too, if the user wants that.
Scope AskImportScope(const ImportTarget& target, const Exchange& data) {
    Interaction& ui = target.session.ui;
    if (!data.hasData) return {ask(ui, reset) == Answer::Yes};
    if (data.isObsolete && ask(ui, obsolete) != Answer::Ok) return {};
    if (!target.takesTolerances || !data.hasTolerances || ask(ui, alsoTolerances) != Answer::Yes)
        return {agreeOnUnits(ui, target.session.record, data)};
    const bool clear = hasEntries(target.session.record) && ask(ui, clearFirst) == Answer::Yes;
    return {!clear || target.clearEntries(), true};
}

void take(const ImportTarget& target, const Exchange& data, bool tolerances) {
    Session& session = target.session;
    Analysis& r = session.record;
    if (!data.hasData)
        resetProcessErrors(session);
    else {
        if (tolerances) takeTolerances(session, data);
        takeProcessErrors(session, data);
    }
    if (target.taken) target.taken();
    if (tolerances) {
        r.markChanged("Both");
        ValidateAndFit(session);
    } else if (target.takesTolerances && r.IncludeUncertainty && r.MTE_Sigma > 0) {
        // The measuring parameter's spread contains the process uncertainty.
        r.markChanged("MTE");
        ValidateAndFit(session);
    }
    r.markChanged(tolerances ? "Both" : "MTE");
}

} // namespace

void ImportErrorLedgerData(const ImportTarget& target, const std::filesystem::path& path, std::time_t since) {
    Session& session = target.session;
    Analysis& r = session.record;
    const auto refuse = [&] {
        r.AbortFlag = true;
        tell(session.ui, {readErrorText, path.filename().string()});
    };
    r.AbortFlag = false;
    const PartnerFile file = readPartnerFile(path, since);
    if (file.state == PartnerFile::State::Missing) {
        r.AbortFlag = true;
        return;
    }
    if (ask(session.ui, wanted) != Answer::Yes) return;
    const std::optional<Exchange> data = read(file);
    if (!data) return refuse();
    const Scope scope = AskImportScope(target, *data);
    if (!scope.goesOn) return;
    const Analysis before = r;
    try {
        take(target, *data, scope.tolerances);
    } catch (const RuntimeFault&) {
        r = before;
        refuse();
    }
    session.ui.repaintMainScreen();
}

} // namespace metrisk

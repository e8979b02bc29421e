#include "desk/links/DDE_Form.h"

#include "base/Real.h"
#include "base/Text.h"
#include "desk/kit/Desktop.h"
#include "desk/kit/Message.h"
#include "links/ExchangeFile.h"
#include "links/PartnerFile.h"
#include "links/Programs.h"

#include <filesystem>

namespace metrisk {
namespace {

namespace fs = std::filesystem;

// The newer partner serves the topic of its own version.
constexpr const char* topics[] = {"ERLED2|DDE_Form", "ERLED3|DDE_Form"};
constexpr const char* requestItem = "txt_ReceiveRequest";
constexpr const char* answerItem = "txt_RequestAcknowledged";

constexpr Message linkFailed{"For the link to be successful, both Metrisk and\n"
                             "ErrorLedger need to be running on the same computer.",
                             "Link Failed"};
constexpr Message otherVersion{"Please locate Version 2 or 3 of ErrorLedger", "Metrisk"};
constexpr Message notErrorLedger{"The application you located is not ErrorLedger", "File Not Found"};
constexpr Message notAssociated{"Please associate the 'eld' file extension with ErrorLedger.exe", "Metrisk"};

constexpr const char* asked = "ErrorLedger has been asked for its data.";
constexpr const char* dropped =
    "ErrorLedger's data came too late, or while another screen was open, and were "
    "not taken.";

/// With or without the extension that programs have elsewhere.
bool isProgramName(std::string_view name, std::string_view wanted) {
    return equalCaseBlind(name, wanted) || equalCaseBlind(name, std::string(wanted) + ".exe");
}

std::string inFolder(std::string folder, const char* name) {
    while (folder.ends_with('/')) folder.pop_back();
    return folder + '/' + name;
}

} // namespace

DDE_Form::DDE_Form(Session& session, Carrier& carrier) : session_(session), carrier_(carrier) {
    carrier_.received = [this](const Poke& poke) { received(poke); };
}

DDE_Form::~DDE_Form() {
    carrier_.received = nullptr;
}

std::string DDE_Form::FileExchangeOut() const {
    return inFolder(session_.places.HomeDirectory, "MKTemp");
}

bool DDE_Form::pokePartner(std::span<const Poke> pokes) {
    for (const char* topic : topics)
        if (carrier_.poke(topic, pokes)) return true;
    return false;
}

void DDE_Form::request(const ImportTarget& target) {
    request_.emplace(Request{target, now(), fileTime()});
}

bool DDE_Form::LinkToErrorLedger(const ImportTarget& target) {
    // The text is a change for the partner even if it was the same before.
    const Poke pokes[] = {{requestItem, ""}, {requestItem, session_.places.HomeDirectory}};
    // Without an ear of its own this program would never get the answer.
    if (!carrier_.listen() || !pokePartner(pokes)) {
        tell(session_.ui, linkFailed);
        return false;
    }
    txt_SendRequest = session_.places.HomeDirectory;
    request(target);
    session_.ui.status(asked);
    return true;
}

void DDE_Form::importData(const ImportTarget& target, const char* version) {
    LinkVersion = version;
    if (LinkToErrorLedger(target) || !session_.desktop) return;
    const auto chosen = session_.desktop->files.chooseToOpen(
        {.title = "Open ErrorLedger File", .filter = "ErrorLedger Files (*.eld)|*.eld"});
    if (!chosen) return;
    ErrorLedgerFile = *chosen;
    ErrorLedgerHome = fs::path(*chosen).parent_path().string();
    if (!openFile(*chosen)) {
        tell(session_.ui, notAssociated);
        return;
    }
    request(target); // the program that has been started answers it
    session_.ui.status(asked);
}

/// Any text editor opens a plain text; that is not what the user wants.
bool DDE_Form::openFile(const std::string& path) {
    Launcher& programs = session_.desktop->programs;
    const Association known = programs.associationOf(path);
    if (!known.entry.empty() && known.type != "text/plain") return programs.openDocument(path).empty();
    const auto launch = program_.empty() ? std::nullopt : launchOf(program_, path);
    return launch && programs.start(*launch).empty();
}

void DDE_Form::LocateErrorLedger() {
    if (!session_.desktop) return;
    const auto chosen = session_.desktop->files.chooseToOpen({.title = "Locate ErrorLedger",
                                                              .filter = "ErrorLedger (*.exe)|*.exe|",
                                                              .initialName = "ErrorLedger.exe"});
    if (!chosen) return;
    const fs::path path(*chosen);
    const std::string name = path.filename().string();
    if (isProgramName(name, "erled1")) {
        tell(session_.ui, otherVersion);
    } else if (!isProgramName(name, "errorledger")) {
        tell(session_.ui, notErrorLedger);
    } else {
        ErrorLedgerPath = path.parent_path().string();
        program_ = *chosen;
    }
}

void DDE_Form::forget(const Worksheet& screen) {
    if (request_ && &request_->target.screen == &screen) request_.reset();
}

void DDE_Form::received(const Poke& poke) {
    // The text is a folder; an empty one comes before each to make it a change.
    if (!poke.text.starts_with('/')) return;
    if (poke.item == answerItem) {
        txt_RequestAcknowledged = poke.text;
        acknowledged();
    } else if (poke.item == requestItem) {
        txt_ReceiveRequest = poke.text;
        WriteExchangeOut();
    }
}

void DDE_Form::acknowledged() {
    if (!request_) return; // nobody has asked
    const Request request = *request_;
    request_.reset();
    ErrorLedgerHome = txt_RequestAcknowledged;
    session_.ui.status("");
    const bool inTime = now() - request.made <= answerCounts;
    const bool done = inTime && session_.ui.perform(request.target.screen, [&] {
        ImportErrorLedgerData(request.target, inFolder(ErrorLedgerHome, "ELDTEMP"), request.fileTime);
    });
    if (!done) session_.ui.status(dropped);
}

/// The partner is told of a file only once it is there.
void DDE_Form::WriteExchangeOut() {
    if (session_.places.HomeDirectory.empty()) return;
    try {
        if (!writePartnerFile(FileExchangeOut(), writeExchange(session_.record, session_.regional))) return;
    } catch (const RuntimeFault&) {
        return;
    }
    written_ = true;
    txt_Response = session_.places.HomeDirectory;
    const Poke answer[] = {{answerItem, ""}, {answerItem, txt_Response}};
    pokePartner(answer);
}

void DDE_Form::removeExchangeFile() {
    if (!written_) return;
    std::error_code none;
    fs::remove(FileExchangeOut(), none);
    written_ = false;
}

} // namespace metrisk

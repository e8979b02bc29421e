// The conversation with ErrorLedger: each side asks for the other's data, and answers.
#pragma once

#include "desk/kit/Session.h"
#include "desk/links/Carrier.h"
#include "desk/links/ImportErrorLedger.h"

#include <chrono>
#include <ctime>
#include <functional>
#include <optional>
#include <string>

namespace metrisk {

/// A request is a poke with the folder of who asks; the answer another one with the folder of who has written
/// his data there. Nothing waits: an answer comes when it comes, and counts for a minute after the request,
/// while the screen that asked is the one in front.
class DDE_Form {
  public:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::seconds answerCounts{60};

    /// Both must outlive the object.
    DDE_Form(Session& session, Carrier& carrier);
    ~DDE_Form();
    DDE_Form(const DDE_Form&) = delete;
    DDE_Form& operator=(const DDE_Form&) = delete;

    // The texts of the form, as poked last by either side.
    std::string txt_ReceiveRequest;      // ErrorLedger Home Directory
    std::string txt_Response;            // Metrisk Home Directory
    std::string txt_SendRequest;         // Metrisk Home Directory
    std::string txt_RequestAcknowledged; // ErrorLedger Home Directory

    std::string ErrorLedgerPath; // folder of the partner program
    std::string ErrorLedgerFile; // given in the import dialog
    std::string LinkVersion;     // "erled1" or "erled2": which import command asked
    std::string ErrorLedgerHome;

    /// Asks the partner for its data. False, the user having been told, if none is running.
    bool LinkToErrorLedger(const ImportTarget& target);
    /// The same, or else has the user choose a file for the partner to be started with.
    void importData(const ImportTarget& target, const char* version);
    void LocateErrorLedger();
    /// The screen is gone: what was asked for on it is no longer wanted.
    void forget(const Worksheet& screen);
    /// Deletes the file written for the partner.
    void removeExchangeFile();

    /// What time it is.
    std::function<Clock::time_point()> now = Clock::now;

  private:
    struct Request {
        ImportTarget target;
        Clock::time_point made;
        std::time_t fileTime;
    };

    void received(const Poke& poke);
    void acknowledged();
    void WriteExchangeOut();
    void request(const ImportTarget& target);
    bool pokePartner(std::span<const Poke> pokes);
    bool openFile(const std::string& path);
    std::string FileExchangeOut() const;

    Session& session_;
    Carrier& carrier_;
    std::optional<Request> request_;
    std::string program_; // the partner, once it has been located
    bool written_ = false;
};

} // namespace metrisk

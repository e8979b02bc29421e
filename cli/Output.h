// What a command has to say: results for stdout, diagnostics for stderr, and its exit status.
#pragma once

#include "unattended/UnattendedInteraction.h"

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace metrisk::cli {

enum ExitStatus { allDone = 0, refused = 1, wrongUsage = 2, unreadable = 3 };

/// "unreadable", "refused", or what is said where all is done.
const char* statusWord(int status, const char* done);

struct Output {
    std::string results{};
    std::string diagnostics{};
    int status = allDone;
};

/// What to say of a fault that nobody expected.
std::string faultText(const std::exception& fault);

/// The text with its steering characters written out ("\n", "\x1b", "\u202e"), so that no name or note can
/// steer a terminal.
std::string printable(std::string_view text);
/// The text for stdout or for stderr: printable where that is a terminal, else as it is.
std::string forResults(std::string_view text);
std::string forDiagnostics(std::string_view text);
/// Lines of text for stdout: line ends stay.
std::string linesForResults(const std::string& text);

/// "NAME: TEXT"; TEXT alone without a name.
std::string diagnosticLine(const std::string& name, const std::string& text);
/// One line for each message, "NAME: TITLE: TEXT [ANSWER]" or, of a note, "NAME: TEXT"; line breaks as
/// blanks.
std::string diagnosticLines(const std::string& name, const std::vector<Told>& messages);

/// Of a command that has only this to say.
Output refusal(const std::string& name, const std::string& text, int status, bool json);

/// Where the outputs of a command go, one after the other. With several to come a bar on stderr shows
/// how far it is, if that is a terminal.
class Outlet {
  public:
    explicit Outlet(std::size_t outputs = 1);

    void put(const Output& output);
    /// The highest of all outputs, `refused` at least if stdout could not take one.
    int status() const { return status_; }

  private:
    void clearBar();
    void showBar();

    std::size_t total_;
    std::size_t done_ = 0;
    bool hasBar_;
    int status_ = allDone;
    bool full_ = false;
};

/// Puts the only output of a command; its exit status.
int finish(const Output& output);

} // namespace metrisk::cli

// The reports of a session: what they are to hold, and the ways to screen and paper.
#pragma once

#include "desk/kit/Session.h"
#include "reports/ReportSelection.h"

#include <optional>
#include <string>

namespace metrisk {

struct TableReport;

/// Lives as long as the program's session; keeps the selection of the print dialog.
class ReportDesk {
  public:
    explicit ReportDesk(Session& session);

    ReportSelection selection;

    /// The print dialog. The user is told where there is no printer.
    void openPrintDialog();
    /// The report options; from there, the print dialog.
    void openOptions();
    /// The preview of what the origin asks for, of that session's record. Afterwards the selection is as it
    /// was, and the session's AbortFlag is cleared.
    void preview(Session& session, const char* origin);
    /// Prints without a dialog of its own. False if that failed; why has been told.
    bool print(Session& session, const char* origin);

    /// A table, on the paper of the printer. False if that failed; a user who thinks better of it is no
    /// failure.
    bool printTable(const TableReport& table);
    /// None where nothing can be printed. Raises std::runtime_error if the pages cannot be made.
    std::optional<std::string> tablePdf(const TableReport& table);

  private:
    Session& session_;
};

} // namespace metrisk

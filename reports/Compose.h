// The composition of a report: its sections, one after the other.
#pragma once

#include "desk/kit/Session.h"
#include "desk/reports/ReportSelection.h"
#include "reports/ReportDocument.h"

namespace metrisk {

class MainScreen;

/// What all sections of one report share. The session is a copy of the program's: fits and plots change its
/// record, not the analysis.
struct Composition {
    Session& session;
    const MainScreen& shown; // the main screen's texts, which a report repeats
    const ReportSelection& selection;
    ReportDocument& document;
    bool signatureTable; // the sign-off is a table: on screen and in files
    bool exportBegun = false;

    Composition(Session& itsSession, const MainScreen& screen, const ReportSelection& itsSelection,
                ReportDocument& itsDocument, bool table)
        : session(itsSession), shown(screen), selection(itsSelection), document(itsDocument),
          signatureTable(table) {}

    const Analysis& record() const { return session.record; }

    /// Font, size and weight of what follows.
    void style(double size, bool bold);
    void lineFeed() { document.Text("\n"); }
    /// Across the page, a little below the current position.
    void rule();
    /// Sets the running texts of a section, and takes them into an exported file.
    void running(const char* sectionHeader);
    /// "Subject Unit:  " and the names, parted by two blanks.
    void unitLine(const char* label, std::initializer_list<std::string> names);
};

/// Each appends its section. A numeric fault raises RuntimeFault.
void ComposeRiskReport(Composition& composition);
void ComposeParameterPlots(Composition& composition);
void ComposeUncertaintyReport(Composition& composition);
void ComposeErrorPlot(Composition& composition);

/// Where a report comes from, in small print at its end: program, convention, date, fingerprint of the
/// inputs.
void ComposeOrigin(Composition& composition);

/// Composes the whole document from StartDoc to EndDoc. False if that failed: the user has been told, and the
/// document is to be dropped. The session does not change.
bool ComposeReport(const Session& session, const ReportSelection& selection, ReportDocument& document,
                   bool signatureTable);

} // namespace metrisk

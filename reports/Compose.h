// The composition of a report: its sections, one after the other.
#pragma once

#include "base/Box.h"
#include "base/Clock.h"
#include "base/FunctionRef.h"
#include "base/Real.h"
#include "record/Analysis.h"
#include "record/AnalysisTexts.h"
#include "reports/ReportDocument.h"
#include "reports/ReportSelection.h"

namespace metrisk {

/// What a composition asks of whoever wants the report.
struct ComposeWatch {
    FunctionRef<bool()> fitSubject;         // in the record; false, the reason told, if there is no fit
    FunctionRef<bool()> fitMeasuring;       // the same
    FunctionRef<void(const Message&)> tell; // what is amiss
    FunctionRef<void(const RuntimeFault&)> failed; // a numeric fault ended the composition
};

/// What all sections of one report share.
struct Composition {
    Analysis& record; // a copy: fits and zooms change it
    const Regional& regional;
    const Moment now;
    const ReportSelection& selection;
    ReportDocument& document;
    const bool signatureTable; // the sign-off is a table: on screen and in files
    const ComposeWatch& watch;
    const AnalysisTexts shown = textsOf(record, regional); // as the main screen shows the entries
    bool exportBegun = false;

    /// Font, size and weight of what follows.
    void style(double size, bool bold);
    void lineFeed() { document.Text("\n"); }
    /// Across the page, a little below the current position.
    void rule();
    /// Sets the running texts of a section, and takes them into an exported file.
    void running(const char* sectionHeader);
    /// "Subject Unit:  " and the names, parted by two blanks.
    void unitLine(const char* label, std::initializer_list<std::string> names);
    void subjectUnitLine();
    void measuringUnitLine();
};

/// Each appends its section. A numeric fault raises RuntimeFault. False if a plot has no fit, or a section
/// nothing to say.
bool ComposeRiskReport(Composition& composition);
bool ComposeParameterPlots(Composition& composition);
bool ComposeUncertaintyReport(Composition& composition);
bool ComposeErrorPlot(Composition& composition);
/// Refused, which is told, without a reading.
bool ComposeDecision(Composition& composition);

/// Where a report comes from, in small print at its end: program, convention, date, fingerprint of the
/// inputs.
void ComposeOrigin(Composition& composition);

/// Composes the whole document from StartDoc to EndDoc. False if that failed, which has been told; the
/// document is to be dropped then.
bool compose(Composition& composition);

} // namespace metrisk

// What belongs to the running program rather than to the analysis; none of it is saved.
#pragma once

#include "base/Flag.h"

#include <string>

namespace metrisk {

inline constexpr const char* untitledName = "(Untitled)";

struct SessionState {
    std::string AnalysisFileName = untitledName;
    std::string LastAnalysisName;
    Flag FileChanged; // changed since the last save
    Flag FileReadOnly;
    Flag ComputeNeeded;                // an entry has changed: the next validation step must run
    std::string ComputeScope = "Both"; // "Both", "SU" or "MTE"
    Flag AbortFlag;       // the shared error return: set by any failure, cleared at the start of a step
    Flag SearchAbort;     // second failure flag of the risk computation
    Flag Computing;       // the compute button's handling is in progress
    Flag EntryBoxChanged; // a lost-focus rule is committing an entry
    Flag RisksNeedCompute;
    Flag RisksComputed;      // the last risk compute gave figures, or found that those shown stand
    Flag ResultsStale;       // the last compute gave none: the results shown belong to earlier entries
    std::string SilentFault; // of the last fit: what went wrong where no box tells
    Flag ComputeRequested;   // the progress screen is to compute when it becomes active
    Flag NothingChanged;     // results of the snapshot comparison
    Flag GuardbandsUnchanged;
    Flag BaselineUnchanged;
    Flag BaselineComputed;
    Flag LimitsReformed; // the file's limits contradicted its mode and offsets, which won
    Flag LoadInProgress; // no boxes for missing data, no focus moves
    Flag ObservedWorksheetOpen;
    Flag UncertaintyWorksheetOpen;
    Flag GB_ScreenOpen;
    Flag GB_RatioRequest; // the ratio search runs on behalf of the guardband worksheet
    Flag GB_MainStale;
    Flag GB_RisksStale;
    Flag ObservedIgnoresGuardbands;
    Flag MTE_KUsed;
    Flag OffsetFromUncertainty;
    Flag SymmetryChanged; // the main boxes need a repaint
    Flag FirstDisplay;
    int Rel_ActiveSlot = 0;
    Flag OffsetsInNominalUnits; // display of the tolerance offset worksheet, as chosen last

    // The user was asked and went on; cleared when one of the boxes concerned is entered again.
    Flag Ack100Pct;
    Flag AckPhysLimitLow;
    Flag AckPhysLimitHigh;

    /// An entry has changed.
    void markChanged() { ComputeNeeded = FileChanged = true; }
    void markChanged(const char* scope) {
        ComputeScope = scope;
        markChanged();
    }

    // Never set in ordinary use: the pipeline without a progress screen, and a forced compute.
    Flag DirectCompute;
    Flag DirectComputeChanged;
};

} // namespace metrisk

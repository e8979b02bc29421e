// Analyses to be reported.
#pragma once

#include "desk/compute/ComputePipeline.h"
#include "desk/compute/ValidateAndFit.h"
#include "tests/support/Cases.h"
#include "tests/support/TestDesktop.h"
#include "tests/support/TestPrinter.h"

namespace metrisk::testing {

/// A computed analysis with names.
struct Reported : TestDesktop {
    TestPrinter printer;

    explicit Reported(const Entry& entry = twoSided(0.5, 0.5, 90)) {
        desktop.printer = &printer;
        enter(record, entry);
        record.SU_Manufacturer = " Voltix ";
        record.SU_Description = "Meter";
        record.SU_ParameterName = "Volts";
        record.MTE_Manufacturer = "Source";
        record.MTE_ModelNumber = "S-1";
        record.MeasurementArea = "Voltage";
        record.NominalUnits = record.SU_ToleranceUnits = record.MTE_ToleranceUnits = "V";
        record.AnalysisFileName = "volts.mrk";
    }

    Reported& compute() {
        record.RisksNeedCompute = true;
        ComputeResults_Click(session);
        return *this;
    }
};

} // namespace metrisk::testing

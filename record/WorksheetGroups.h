// Record groups of the worksheets: samples, true versus observed, bias analysis, reliability,
// report and plot options. Carried whole through the analysis file.
#pragma once

#include "base/Flag.h"
#include "base/OneBased.h"

#include <array>
#include <string>

namespace metrisk {

inline constexpr int maxSampleSize = 200;

/// Index 1 is the measuring parameter, index 2 the subject parameter.
struct SampleStatistics {
    OneBased<int, 2> Stat_SampleSize; // at most maxSampleSize
    OneBased<double, 2> Stat_SampleMean;
    OneBased<double, 2> Stat_SampleStdDev;
    OneBased<std::string, 2> Stat_SampleFmt = defaultPictures();
    OneBased<double, 2> Stat_Value5; // confidence of the sample row, a fraction
    OneBased<double, 2> Stat_Value6; // standard deviation in the mean
    OneBased<double, 2> Stat_tStatistic;
    OneBased<double, 2> Stat_Value8;
    OneBased<int, 2> Stat_Include; // not negative
    OneBased<OneBased<double, 2>, maxSampleSize> Stat_Sample;
    OneBased<OneBased<int, 2>, maxSampleSize> Stat_SampleInclude;
    OneBased<int, 2> Stat_Flag1;
    OneBased<int, 2> Stat_Flag2;

  private:
    static OneBased<std::string, 2> defaultPictures() {
        OneBased<std::string, 2> pictures;
        pictures.fill("#");
        return pictures;
    }
};

struct ObservedPct {
    double Obs_PctInTol = 0;
    std::string Obs_PctInTol_fmt = "#,##0.000";
    double Obs_TruePct = 0;
    std::string Obs_TruePct_fmt = "#,##0.000";
    Flag Obs_Flag1; // read, kept and written only
    Flag Obs_Flag2;
    double Obs_Value1 = 0;
    double Obs_Value2 = 0;
    std::string RelWorksheetTarget = "SU"; // "SU" or "MTE"
    std::string Obs_Manufacturer;
    std::string Obs_ModelNumber;
    std::string Obs_Description;
    std::string Obs_ParameterName;
    double Obs_AOP = 0;
    double Obs_Offset = 0;
    std::string Obs_Units;
    int Obs_ObservingUnitOption = 0;
};

struct BiasAnalysis {
    OneBased<double, 2> SMPC_Sigma;
    OneBased<double, 2> SMPC_InTolProb; // fraction
    OneBased<double, 2> SMPC_Bias;      // nominal units
    OneBased<double, 2> SMPC_Limits;
    OneBased<double, 2> SMPC_Tolerance;
    OneBased<double, 2> SMPC_PctInTol; // percent
    double SMPC_TrueOffset = 0;
    Flag SMPC_Computed;
    double SMPC_SUUncertainty = 0;
    double SMPC_MTEUncertainty = 0;
    double SMPC_CoverageFactor = 1.96;
    std::string SMPC_CoverageFactor_fmt;
    double SMPC_Reserved = 0;      // carried through the file only
    double SMPC_Confidence = 0.95; // fraction
    std::string SMPC_Confidence_fmt;
    Flag SMPC_UseCoverageFactor;
};

/// Slot 0 is the subject parameter, slot 1 the measuring parameter. Probabilities are fractions,
/// Rel_UserPct is in percent.
struct Reliability {
    OneBased<std::array<double, 2>, 3> Rel_Theta{};
    std::array<std::string, 2> Rel_Model{};
    std::array<int, 2> Rel_ModelIndex{};
    std::array<double, 2> Rel_Interval{};
    std::array<std::string, 2> Rel_Interval_fmt{};
    std::array<std::string, 2> Rel_IntervalUnits{};
    std::array<double, 2> Rel_BOP{};
    std::array<std::string, 2> Rel_BOP_fmt{};
    std::array<double, 2> Rel_AOP{};
    std::array<std::string, 2> Rel_AOP_fmt{};
    std::array<double, 2> Rel_EOP{};
    std::array<std::string, 2> Rel_EOP_fmt{};
    std::array<double, 2> Rel_UserPct{};
    std::array<double, 2> Rel_UserTime{};
    std::array<std::string, 2> Rel_UserPct_fmt{};
    std::array<std::string, 2> Rel_UserTimeUnits{};
    std::array<std::string, 2> Rel_BiasOption{}; // "AOP", "EOP", "User" or none yet

    friend bool operator==(const Reliability&, const Reliability&) = default;
};

struct ReportFields {
    std::string Delimiter = "Tab"; // "Tab" or "Comma"
    bool IncludeOrganization = false;
    std::string Organization; // this and the four texts below: at most 60 characters in the file
    bool IncludeDepartment = false;
    std::string Department;
    std::string ApprovingDepartment;
    bool IncludeApprovingDepartment = false;
    std::string Submitter;
    bool IncludeSubmitter = false;
    bool IncludeApprover = false;
    std::string Approver;
    bool IncludeFileName = false;
    bool IncludeRemarks = false;
    bool IncludeDate = false; // carried through the file only
    bool IncludeTime = false;
    std::string Remarks; // not saved

    friend bool operator==(const ReportFields&, const ReportFields&) = default;
};

struct PlotOptions {
    Flag SUPlot_ShowTolerances = true;
    Flag MTEPlot_ShowOffsets = true;
    Flag ErrorPlot_Flag;
    Flag MTEPlot_IncludeUncertainty;
    std::string ErrorPlot_Param = "SU";
    std::string ErrorPlot_Units;
    std::string ErrorPlot_UnitName;
    // Not saved, here to the end.
    double ErrorPlot_UnitsFactor = 1.0;
    std::string MTEPlot_Title;
    double SUPlot_Zoom = 1; // multiplies the ranges shown about the centre
    double MTEPlot_Zoom = 1;
    double ErrorPlot_Zoom = 1;
    Flag SUPlot_UseMTETols; // limits of the other parameter
    Flag MTEPlot_UseSUTols;
};

} // namespace metrisk

// The order of the items in an analysis file: one description for reading and for writing.
#pragma once

#include "persistence/AnalysisItems.h"
#include "record/Analysis.h"

namespace metrisk {

inline constexpr float newestVersion = 1.512F;
inline constexpr float versionWithoutTable = 1.0F;
inline constexpr float versionWithoutWorksheets = 1.1F;

namespace layout {

template <class File, class Record>
void parameters(File& file, Record& r) {
    file.line(r.OptTwoSided, r.OptSingleUpper, r.OptSingleLower);
    file.line(AsLong{r.PhysLimitRequired}, UnusedItem{});
    file.reached(LayoutPoint::Options);
    file.line(r.PhysicalLimitEntered);
    file.each(r.SU_Manufacturer, r.SU_ModelNumber, r.SU_Description, r.SU_ParameterName, r.SU_Qualifier1,
              r.SU_Qualifier2);
    file.line(r.NominalUnits);
    file.line(r.SU_Mode, r.SU_UpperLimit, r.SU_LowerLimit, r.SU_PctInTol, r.PhysicalLimit);
    file.line(r.SU_ModeUnchanged);
    file.each(r.MTE_Manufacturer, r.MTE_ModelNumber, r.MTE_Description, r.MTE_ParameterName, r.MTE_Qualifier1,
              r.MTE_Qualifier2);
    file.line(r.MTE_ParameterUnits);
    file.line(r.MTE_Mode, r.MTE_UpperLimit, r.MTE_LowerLimit, r.MTE_PctInTol);
    file.line(r.MTE_Sigma);
}

template <class File, class Record>
void errorTable(File& file, Record& r) {
    if (!file.after(versionWithoutTable)) return;
    for (auto& row : r.ErrTableText) {
        if (file.after(1.14F))
            file.line(row[1], row[2], row[3], row[4], row[5], row[6]);
        else
            file.line(row[1], row[2], row[3], row[4]);
    }
    file.reached(LayoutPoint::ErrorTable);
    if (!file.after(1.14F)) return;
    for (int i = 1; i <= 10; ++i)
        for (int j = i + 1; j <= 10; ++j) file.line(r.CorrelationMatrix[i][j]);
}

template <class File, class Record>
void baselineAndResults(File& file, Record& r) {
    file.line(r.Base_AccRatNum, r.Base_AccRatDen);
    file.line(r.Base_MTEPctInTol, r.Base_SUPctInTol);
    file.line(r.Base_EqRatioTarget);
    file.line(r.Base_FalseAccept, r.Base_AcceptUnits);
    file.line(r.Base_FalseReject, r.Base_RejectUnits);
    file.line(r.FalseAcceptRisk, r.FalseAcceptUnits);
    file.line(r.FalseRejectRisk, r.FalseRejectUnits);
    file.line(r.EqAccRat, r.EqAccRatDen);
}

template <class File, class Record>
void snapshot(File& file, Record& r) {
    file.line(r.Last_Mode, r.Last_UpperLimit, r.Last_LowerLimit, r.Last_PctInTol, r.Last_PhysicalLimit);
    file.line(r.Last_MTEMode, r.Last_MTEUpperLimit, r.Last_MTELowerLimit, r.Last_MTEPctInTol);
    file.line(r.Last_OptTwoSided, r.Last_OptSingleUpper, r.Last_OptSingleLower, r.Last_PhysLimitRequired,
              r.Last_MTESigma);
    file.line(r.Last_Base1, r.Last_Base2, r.Last_Base3, r.Last_Base4);
    if (file.from(1.14F))
        file.line(r.Last_IncludeGuardbands, r.Last_GBUpper, r.Last_GBLower, r.Last_MTEDegFreedom,
                  r.Last_MTEStdUncertainty);
}

template <class File, class Record>
void options(File& file, Record& r) {
    file.line(r.BeepWhenFinished);
    file.line(r.ComputeEqRatio);
    file.line(r.EqRatioOnFalseAccept);
    file.line(r.ProcessUncertainty, r.IncludeUncertainty);
    if constexpr (File::reading) r.Last_IncludeUncertainty = r.IncludeUncertainty;
    if (file.after(1.15F)) {
        file.line(r.IncludeMTEBias);
        for (auto& name : r.ErrorSourceName) file.line(name);
        file.reached(LayoutPoint::SourceNames);
    }
    if (file.after(versionWithoutTable)) {
        file.line(r.MTEPlot_IncludeUncertainty, r.ErrorPlot_Param, r.ErrorPlot_Units, r.ErrorPlot_UnitName);
        file.line(r.SUPlot_ShowTolerances, r.MTEPlot_ShowOffsets, r.ErrorPlot_Flag);
    }
    file.line(r.FalseAcceptOption);
    if (file.from(1.512F))
        file.line(r.UserOption);
    else if constexpr (File::reading)
        r.UserOption = "User"; // whatever the settings' default is
}

template <class File, class Record>
void tolerances(File& file, Record& r) {
    file.line(r.MeasurementArea);
    file.line(r.SU_ToleranceUnits, r.SU_TolUnitsFactor, r.SU_UpperOffset_fmt, r.SU_LowerOffset_fmt,
              r.SU_Mode_fmt, r.PhysicalLimit_fmt);
    file.line(r.SU_UpperOffset, r.SU_UpperFixed, r.SU_UpperPctReading, r.SU_LowerOffset, r.SU_LowerFixed,
              r.SU_LowerPctReading);
    file.line(r.MTE_ToleranceUnits, r.MTE_TolUnitsFactor, r.MTE_Offset_fmt, r.MTE_FixedOffset_fmt);
    file.line(r.MTE_Offset, r.MTE_FixedOffset, r.MTE_PctReading);
    if (!file.after(versionWithoutTable)) {
        file.reached(LayoutPoint::Units);
        return;
    }
    file.line(r.OffsetWorksheetFlag);
    if (file.from(1.12F)) file.line(AsLong{r.SymmetricTolerances});
    if (file.from(1.14F)) {
        file.line(r.MTE_EntryByUncertainty, r.MTE_DegFreedom);
        file.line(r.MTE_StdUncertainty, r.MTE_StdUncertainty_fmt);
        file.line(r.MTE_BiasFromWorksheet);
        file.line(r.IncludeGuardbands);
        file.line(r.SU_TolDecimalShift);
    }
    if (file.from(1.511F)) file.line(r.GB_KeyOn);
    file.reached(LayoutPoint::Units);
    file.line(r.NominalUnits);
    file.line(r.SU_SigDigits);
}

template <class File, class Record>
void statistics(File& file, Record& r) {
    for (int i = 1; i <= 2; ++i) {
        file.each(AsSampleSize{r.Stat_SampleSize[i]}, r.Stat_SampleMean[i], r.Stat_SampleStdDev[i],
                  r.Stat_SampleFmt[i], r.Stat_Value5[i], r.Stat_Value6[i], r.Stat_tStatistic[i],
                  r.Stat_Value8[i], AsMagnitude{r.Stat_Include[i]});
        for (int k = 1; k <= r.Stat_SampleSize[i]; ++k)
            file.each(r.Stat_Sample[k][i], r.Stat_SampleInclude[k][i]);
        file.each(r.Stat_Flag1[i], r.Stat_Flag2[i]);
    }
    file.reached(LayoutPoint::Statistics);
}

template <class File, class Record>
void worksheets(File& file, Record& r) {
    file.each(r.Obs_PctInTol, r.Obs_PctInTol_fmt, r.Obs_TruePct, r.Obs_TruePct_fmt);
    file.each(r.Obs_Flag1, r.Obs_Flag2, r.Obs_Value1, r.Obs_Value2);
    file.each(r.RelWorksheetTarget, r.Obs_Manufacturer, r.Obs_ModelNumber, r.Obs_Description,
              r.Obs_ParameterName);
    file.each(r.Obs_AOP, r.Obs_Offset, r.Obs_Units, r.Obs_ObservingUnitOption);

    file.each(r.GB_UpperMult, r.GB_LowerMult, r.GB_ShowLimits, r.GB_SymmetricMult);
    file.each(r.GB_FARisk, r.GB_FRRisk, r.GB_FARiskUnits, r.GB_FRRiskUnits);
    file.each(r.GB_EqAccRat, r.GB_IncludeEqAccRat, r.GB_EqAccRatValid);
    if constexpr (File::reading) {
        r.GB_MainStale = false;
        r.GB_RisksStale = false;
        r.GB_AsymmetricMult = !r.GB_SymmetricMult;
    }

    for (int i = 1; i <= 2; ++i)
        file.each(r.SMPC_Sigma[i], r.SMPC_InTolProb[i], r.SMPC_Bias[i], r.SMPC_Limits[i], r.SMPC_Tolerance[i],
                  r.SMPC_PctInTol[i]);
    file.each(r.SMPC_TrueOffset, r.SMPC_Computed, r.SMPC_SUUncertainty, r.SMPC_MTEUncertainty,
              r.SMPC_CoverageFactor, r.SMPC_CoverageFactor_fmt, r.SMPC_Reserved, r.SMPC_Confidence,
              r.SMPC_Confidence_fmt, r.SMPC_UseCoverageFactor);

    if (file.from(1.14F))
        file.each(r.GB_UpperMult_fmt, r.GB_LowerMult_fmt, r.GB_UpperK, r.GB_UpperK_fmt, r.GB_UpperKEntered,
                  r.GB_LowerK, r.GB_LowerK_fmt, r.GB_LowerKEntered, r.GB_SymmetricK);
}

template <class File, class Record>
void reliability(File& file, Record& r) {
    if (!file.after(1.14F)) return;
    for (std::size_t i = 0; i < 2; ++i) {
        file.each(r.Rel_Theta[1][i], r.Rel_Theta[2][i], r.Rel_Theta[3][i], r.Rel_Model[i],
                  r.Rel_ModelIndex[i]);
        file.each(r.Rel_Interval[i], r.Rel_Interval_fmt[i], r.Rel_IntervalUnits[i]);
        file.each(r.Rel_BOP[i], r.Rel_BOP_fmt[i], r.Rel_AOP[i], r.Rel_AOP_fmt[i], r.Rel_EOP[i],
                  r.Rel_EOP_fmt[i]);
        file.each(r.Rel_UserPct[i], r.Rel_UserTime[i], r.Rel_UserPct_fmt[i], r.Rel_UserTimeUnits[i],
                  r.Rel_BiasOption[i]);
    }
}

template <class File, class Record>
void report(File& file, Record& r) {
    if (file.after(1.14F)) file.each(r.Delimiter);
    if (!file.from(1.5F)) return;
    file.each(r.IncludeOrganization, AsFixed{r.Organization}, r.IncludeDepartment, AsFixed{r.Department});
    if (file.after(1.5F)) file.each(AsFixed{r.ApprovingDepartment});
    file.each(r.IncludeApprovingDepartment, AsFixed{r.Submitter}, r.IncludeSubmitter);
    if (file.after(1.5F)) file.each(r.IncludeApprover);
    file.each(AsFixed{r.Approver}, r.IncludeFileName, r.IncludeRemarks, r.IncludeDate, r.IncludeTime);
}

} // namespace layout

/// Everything behind the first line, in the form of file.version(). `File` offers line() and each() for
/// items, from() and after() for versions, and reached() for the points at which more is to be done.
template <class File, class Record>
void layoutAnalysis(File& file, Record& record) {
    layout::parameters(file, record);
    layout::errorTable(file, record);
    layout::baselineAndResults(file, record);
    layout::snapshot(file, record);
    layout::options(file, record);
    layout::tolerances(file, record);
    if (!file.after(versionWithoutTable)) return;
    layout::statistics(file, record);
    if (!file.after(versionWithoutWorksheets)) return;
    layout::worksheets(file, record);
    layout::reliability(file, record);
    layout::report(file, record);
}

} // namespace metrisk

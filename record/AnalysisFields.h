// Every field of the analysis record: its name, where its value comes from, and its unit.
#pragma once

#include "record/Analysis.h"
#include "record/Field.h"

#include <array>
#include <string>
#include <string_view>
#include <type_traits>

namespace metrisk {
#define METRISK_FIELD(name, source, unit) visit(Field{#name, Source::source, Unit::unit}, &Group::name)

template <class Visit>
constexpr void eachIdentification(Visit&& visit) {
    using Group = Identification;
    METRISK_FIELD(SU_Manufacturer, Entered, Text);
    METRISK_FIELD(SU_ModelNumber, Entered, Text);
    METRISK_FIELD(SU_Description, Entered, Text);
    METRISK_FIELD(SU_ParameterName, Entered, Text);
    METRISK_FIELD(SU_Qualifier1, Entered, Text);
    METRISK_FIELD(SU_Qualifier2, Entered, Text);
    METRISK_FIELD(MTE_Manufacturer, Entered, Text);
    METRISK_FIELD(MTE_ModelNumber, Entered, Text);
    METRISK_FIELD(MTE_Description, Entered, Text);
    METRISK_FIELD(MTE_ParameterName, Entered, Text);
    METRISK_FIELD(MTE_Qualifier1, Entered, Text);
    METRISK_FIELD(MTE_Qualifier2, Entered, Text);
}

template <class Visit>
constexpr void eachSubjectParameter(Visit&& visit) {
    using Group = SubjectParameter;
    METRISK_FIELD(SU_Mode, Entered, Nominal);
    METRISK_FIELD(SU_Mode_fmt, Picture, Text);
    METRISK_FIELD(SU_UpperLimit, Settled, Nominal);
    METRISK_FIELD(SU_LowerLimit, Settled, Nominal);
    METRISK_FIELD(SU_UpperOffset, Entered, Nominal);
    METRISK_FIELD(SU_UpperOffset_fmt, Picture, Text);
    METRISK_FIELD(SU_LowerOffset, Entered, Nominal);
    METRISK_FIELD(SU_LowerOffset_fmt, Picture, Text);
    METRISK_FIELD(SU_UpperFixed, Entered, Nominal);
    METRISK_FIELD(SU_UpperFixed_fmt, Picture, Text);
    METRISK_FIELD(SU_UpperPctReading, Entered, Percent);
    METRISK_FIELD(SU_UpperPctReading_fmt, Picture, Text);
    METRISK_FIELD(SU_LowerFixed, Entered, Nominal);
    METRISK_FIELD(SU_LowerFixed_fmt, Picture, Text);
    METRISK_FIELD(SU_LowerPctReading, Entered, Percent);
    METRISK_FIELD(SU_LowerPctReading_fmt, Picture, Text);
    METRISK_FIELD(SU_PctInTol, Entered, Percent);
    METRISK_FIELD(SU_PctInTol_fmt, Picture, Text);
    METRISK_FIELD(PhysicalLimit, Entered, Nominal);
    METRISK_FIELD(PhysicalLimit_fmt, Picture, Text);
    METRISK_FIELD(PhysLimitRequired, Entered, None);
    METRISK_FIELD(PhysicalLimitEntered, Entered, None);
    METRISK_FIELD(OptTwoSided, Entered, None);
    METRISK_FIELD(OptSingleUpper, Entered, None);
    METRISK_FIELD(OptSingleLower, Entered, None);
    METRISK_FIELD(SymmetricTolerances, Entered, None);
    METRISK_FIELD(ShowLimits, Picture, None);
    METRISK_FIELD(SU_SigDigits, Settled, Count);
    METRISK_FIELD(SU_TolDecimalShift, Settled, Count);
    METRISK_FIELD(NominalUnits, Entered, Text);
    METRISK_FIELD(MeasurementArea, Entered, Text);
    METRISK_FIELD(SU_ToleranceUnits, Entered, Text);
    METRISK_FIELD(SU_TolUnitsFactor, Settled, Ratio);
    METRISK_FIELD(SU_ModeUnchanged, Kept, None);
    METRISK_FIELD(SU_Sigma, Derived, Nominal);
    METRISK_FIELD(SU_Distribution, Derived, Text);
    METRISK_FIELD(SU_CaseCode, Derived, Count);
    METRISK_FIELD(SU_LogSigma, Derived, Ratio);
    METRISK_FIELD(SU_LogOmega, Derived, Ratio);
    METRISK_FIELD(SU_ExpExponent, Derived, None);
    METRISK_FIELD(SU_ExpRate, Derived, None);
    METRISK_FIELD(PhysLimitBelow, Derived, None);
    METRISK_FIELD(PhysLimitAbove, Derived, None);
    METRISK_FIELD(ZTailLow, Derived, None);
    METRISK_FIELD(ZTailHigh, Derived, None);
    METRISK_FIELD(ZTwoSided, Derived, None);
    METRISK_FIELD(LimitRatioNear, Derived, Ratio);
    METRISK_FIELD(LimitRatioFar, Derived, Ratio);
    METRISK_FIELD(SubjectFitValid, Derived, None);
}

template <class Visit>
constexpr void eachMeasuringParameter(Visit&& visit) {
    using Group = MeasuringParameter;
    METRISK_FIELD(MTE_Mode, Settled, Nominal);
    METRISK_FIELD(MTE_UpperLimit, Settled, Nominal);
    METRISK_FIELD(MTE_LowerLimit, Settled, Nominal);
    METRISK_FIELD(MTE_Offset, Entered, Nominal);
    METRISK_FIELD(MTE_Offset_fmt, Picture, Text);
    METRISK_FIELD(MTE_FixedOffset, Entered, Nominal);
    METRISK_FIELD(MTE_FixedOffset_fmt, Picture, Text);
    METRISK_FIELD(MTE_PctReading, Entered, Percent);
    METRISK_FIELD(MTE_PctReading_fmt, Picture, Text);
    METRISK_FIELD(MTE_PctInTol, Entered, Percent);
    METRISK_FIELD(MTE_PctInTol_fmt, Picture, Text);
    METRISK_FIELD(MTE_ParameterUnits, Entered, Text);
    METRISK_FIELD(MTE_ToleranceUnits, Entered, Text);
    METRISK_FIELD(MTE_TolUnitsFactor, Settled, Ratio);
    METRISK_FIELD(MTE_Sigma, Derived, Nominal);
    METRISK_FIELD(MTE_EntryByUncertainty, Entered, None);
    METRISK_FIELD(MTE_kFactor, Derived, Ratio);
    METRISK_FIELD(MTE_DegFreedom, Entered, Count);
    METRISK_FIELD(MTE_StdUncertainty, Entered, Nominal);
    METRISK_FIELD(MTE_StdUncertainty_fmt, Picture, Text);
    METRISK_FIELD(MTE_BiasFromWorksheet, Entered, None);
    METRISK_FIELD(OffsetWorksheetFlag, Entered, None);
}

template <class Visit>
constexpr void eachRiskResults(Visit&& visit) {
    using Group = RiskResults;
    METRISK_FIELD(FalseAcceptRisk, Result, Risk);
    METRISK_FIELD(FalseAcceptUnits, Result, Text);
    METRISK_FIELD(FalseAccept_fmt, Result, Text);
    METRISK_FIELD(FalseRejectRisk, Result, Risk);
    METRISK_FIELD(FalseRejectUnits, Result, Text);
    METRISK_FIELD(FalseReject_fmt, Result, Text);
    METRISK_FIELD(EqAccRat, Result, Ratio);
    METRISK_FIELD(EqAccRatDen, Result, Text);
    METRISK_FIELD(FalseAcceptOption, Entered, Count);
    METRISK_FIELD(UserOption, Entered, Text);
    METRISK_FIELD(EqRatioOnFalseAccept, Entered, None);
    METRISK_FIELD(ComputeEqRatio, Option, None);
    METRISK_FIELD(BeepWhenFinished, Option, None);
}

template <class Visit>
constexpr void eachBaseline(Visit&& visit) {
    using Group = Baseline;
    METRISK_FIELD(Base_AccRatNum, Entered, Ratio);
    METRISK_FIELD(Base_AccRatDen, Entered, Ratio);
    METRISK_FIELD(Base_MTEPctInTol, Entered, Percent);
    METRISK_FIELD(Base_SUPctInTol, Entered, Percent);
    METRISK_FIELD(Base_EqRatioTarget, Settled, Ratio);
    METRISK_FIELD(Base_FalseAccept, Settled, Risk);
    METRISK_FIELD(Base_AcceptUnits, Settled, Text);
    METRISK_FIELD(Base_Accept_fmt, Picture, Text);
    METRISK_FIELD(Base_FalseReject, Settled, Risk);
    METRISK_FIELD(Base_RejectUnits, Settled, Text);
    METRISK_FIELD(Base_Reject_fmt, Picture, Text);
}

template <class Visit>
constexpr void eachGuardbands(Visit&& visit) {
    using Group = Guardbands;
    METRISK_FIELD(IncludeGuardbands, Entered, None);
    METRISK_FIELD(GuardbandsChanged, Session, None);
    METRISK_FIELD(GB_UpperMult, Entered, Ratio);
    METRISK_FIELD(GB_LowerMult, Entered, Ratio);
    METRISK_FIELD(GB_UpperMult_fmt, Picture, Text);
    METRISK_FIELD(GB_LowerMult_fmt, Picture, Text);
    METRISK_FIELD(GB_UpperK, Entered, Ratio);
    METRISK_FIELD(GB_LowerK, Entered, Ratio);
    METRISK_FIELD(GB_UpperK_fmt, Picture, Text);
    METRISK_FIELD(GB_LowerK_fmt, Picture, Text);
    METRISK_FIELD(GB_UpperKEntered, Entered, None);
    METRISK_FIELD(GB_LowerKEntered, Entered, None);
    METRISK_FIELD(GB_SymmetricK, Entered, None);
    METRISK_FIELD(GB_SymmetricMult, Entered, None);
    METRISK_FIELD(GB_AsymmetricMult, Settled, None);
    METRISK_FIELD(GB_ShowLimits, Picture, None);
    METRISK_FIELD(GB_KeyOn, Entered, Count);
    METRISK_FIELD(GB_FARisk, Result, Risk);
    METRISK_FIELD(GB_FRRisk, Result, Risk);
    METRISK_FIELD(GB_FARiskUnits, Result, Text);
    METRISK_FIELD(GB_FRRiskUnits, Result, Text);
    METRISK_FIELD(GB_EqAccRat, Result, Ratio);
    METRISK_FIELD(GB_IncludeEqAccRat, Entered, None);
    METRISK_FIELD(GB_EqAccRatValid, Result, None);
}

template <class Visit>
constexpr void eachProcessErrors(Visit&& visit) {
    using Group = ProcessErrors;
    METRISK_FIELD(IncludeUncertainty, Entered, None);
    METRISK_FIELD(ProcessUncertainty, Entered, Nominal);
    METRISK_FIELD(ProcessUncertainty_fmt, Picture, Text);
    METRISK_FIELD(Process_DegFreedom, Derived, Count);
    METRISK_FIELD(Total_DegFreedom, Derived, Count);
    METRISK_FIELD(IncludeMTEBias, Entered, None);
    METRISK_FIELD(ErrorSourceName, Entered, Text);
    METRISK_FIELD(ErrTableText, Entered, Text);
    METRISK_FIELD(ErrTableDisplay, Derived, Text);
    METRISK_FIELD(CorrelationMatrix, Entered, Ratio);
}

template <class Visit>
constexpr void eachSampleStatistics(Visit&& visit) {
    using Group = SampleStatistics;
    METRISK_FIELD(Stat_SampleSize, Entered, Count);
    METRISK_FIELD(Stat_SampleMean, Settled, None);
    METRISK_FIELD(Stat_SampleStdDev, Settled, MeasuringTolerance);
    METRISK_FIELD(Stat_SampleFmt, Picture, Text);
    METRISK_FIELD(Stat_Value5, Entered, Fraction);
    METRISK_FIELD(Stat_Value6, Settled, MeasuringTolerance);
    METRISK_FIELD(Stat_tStatistic, Settled, Ratio);
    METRISK_FIELD(Stat_Value8, Settled, Nominal);
    METRISK_FIELD(Stat_Include, Entered, None);
    METRISK_FIELD(Stat_Sample, Entered, None);
    METRISK_FIELD(Stat_SampleInclude, Entered, None);
    METRISK_FIELD(Stat_Flag1, Entered, None);
    METRISK_FIELD(Stat_Flag2, Entered, None);
}

template <class Visit>
constexpr void eachObservedPct(Visit&& visit) {
    using Group = ObservedPct;
    METRISK_FIELD(Obs_PctInTol, Entered, Percent);
    METRISK_FIELD(Obs_PctInTol_fmt, Picture, Text);
    METRISK_FIELD(Obs_TruePct, Entered, Percent);
    METRISK_FIELD(Obs_TruePct_fmt, Picture, Text);
    METRISK_FIELD(Obs_Flag1, Kept, None);
    METRISK_FIELD(Obs_Flag2, Kept, None);
    METRISK_FIELD(Obs_Value1, Kept, None);
    METRISK_FIELD(Obs_Value2, Kept, None);
    METRISK_FIELD(RelWorksheetTarget, Kept, Text);
    METRISK_FIELD(Obs_Manufacturer, Entered, Text);
    METRISK_FIELD(Obs_ModelNumber, Entered, Text);
    METRISK_FIELD(Obs_Description, Entered, Text);
    METRISK_FIELD(Obs_ParameterName, Entered, Text);
    METRISK_FIELD(Obs_AOP, Entered, Fraction);
    METRISK_FIELD(Obs_Offset, Entered, Nominal);
    METRISK_FIELD(Obs_Units, Entered, Text);
    METRISK_FIELD(Obs_ObservingUnitOption, Entered, Count);
}

template <class Visit>
constexpr void eachBiasAnalysis(Visit&& visit) {
    using Group = BiasAnalysis;
    METRISK_FIELD(SMPC_Sigma, Result, Nominal);
    METRISK_FIELD(SMPC_InTolProb, Result, Fraction);
    METRISK_FIELD(SMPC_Bias, Result, Nominal);
    METRISK_FIELD(SMPC_Limits, Result, Nominal);
    METRISK_FIELD(SMPC_Tolerance, Result, Nominal);
    METRISK_FIELD(SMPC_PctInTol, Result, Percent);
    METRISK_FIELD(SMPC_TrueOffset, Result, Nominal);
    METRISK_FIELD(SMPC_Computed, Result, None);
    METRISK_FIELD(SMPC_SUUncertainty, Result, Nominal);
    METRISK_FIELD(SMPC_MTEUncertainty, Result, Nominal);
    METRISK_FIELD(SMPC_CoverageFactor, Option, Ratio);
    METRISK_FIELD(SMPC_CoverageFactor_fmt, Option, Text);
    METRISK_FIELD(SMPC_Reserved, Option, None);
    METRISK_FIELD(SMPC_Confidence, Option, Fraction);
    METRISK_FIELD(SMPC_Confidence_fmt, Option, Text);
    METRISK_FIELD(SMPC_UseCoverageFactor, Option, None);
}

template <class Visit>
constexpr void eachReliability(Visit&& visit) {
    using Group = Reliability;
    METRISK_FIELD(Rel_Theta, Entered, None);
    METRISK_FIELD(Rel_Model, Entered, Text);
    METRISK_FIELD(Rel_ModelIndex, Entered, Count);
    METRISK_FIELD(Rel_Interval, Entered, None);
    METRISK_FIELD(Rel_Interval_fmt, Picture, Text);
    METRISK_FIELD(Rel_IntervalUnits, Entered, Text);
    METRISK_FIELD(Rel_BOP, Entered, Fraction);
    METRISK_FIELD(Rel_BOP_fmt, Picture, Text);
    METRISK_FIELD(Rel_AOP, Entered, Fraction);
    METRISK_FIELD(Rel_AOP_fmt, Picture, Text);
    METRISK_FIELD(Rel_EOP, Entered, Fraction);
    METRISK_FIELD(Rel_EOP_fmt, Picture, Text);
    METRISK_FIELD(Rel_UserPct, Entered, Percent);
    METRISK_FIELD(Rel_UserTime, Entered, None);
    METRISK_FIELD(Rel_UserPct_fmt, Picture, Text);
    METRISK_FIELD(Rel_UserTimeUnits, Entered, Text);
    METRISK_FIELD(Rel_BiasOption, Entered, Text);
}

template <class Visit>
constexpr void eachReportFields(Visit&& visit) {
    using Group = ReportFields;
    METRISK_FIELD(Delimiter, Option, Text);
    METRISK_FIELD(IncludeOrganization, Option, None);
    METRISK_FIELD(Organization, Option, Text);
    METRISK_FIELD(IncludeDepartment, Option, None);
    METRISK_FIELD(Department, Option, Text);
    METRISK_FIELD(ApprovingDepartment, Option, Text);
    METRISK_FIELD(IncludeApprovingDepartment, Option, None);
    METRISK_FIELD(Submitter, Option, Text);
    METRISK_FIELD(IncludeSubmitter, Option, None);
    METRISK_FIELD(IncludeApprover, Option, None);
    METRISK_FIELD(Approver, Option, Text);
    METRISK_FIELD(IncludeFileName, Option, None);
    METRISK_FIELD(IncludeRemarks, Option, None);
    METRISK_FIELD(IncludeDate, Option, None);
    METRISK_FIELD(IncludeTime, Option, None);
    METRISK_FIELD(Remarks, Option, Text);
}

template <class Visit>
constexpr void eachPlotOptions(Visit&& visit) {
    using Group = PlotOptions;
    METRISK_FIELD(SUPlot_ShowTolerances, Option, None);
    METRISK_FIELD(MTEPlot_ShowOffsets, Option, None);
    METRISK_FIELD(ErrorPlot_Flag, Option, None);
    METRISK_FIELD(MTEPlot_IncludeUncertainty, Option, None);
    METRISK_FIELD(ErrorPlot_Param, Option, Text);
    METRISK_FIELD(ErrorPlot_Units, Option, Text);
    METRISK_FIELD(ErrorPlot_UnitName, Option, Text);
    METRISK_FIELD(ErrorPlot_UnitsFactor, Option, Ratio);
    METRISK_FIELD(MTEPlot_Title, Option, Text);
    METRISK_FIELD(SUPlot_Zoom, Option, Ratio);
    METRISK_FIELD(MTEPlot_Zoom, Option, Ratio);
    METRISK_FIELD(ErrorPlot_Zoom, Option, Ratio);
    METRISK_FIELD(SUPlot_UseMTETols, Option, None);
    METRISK_FIELD(MTEPlot_UseSUTols, Option, None);
}

template <class Visit>
constexpr void eachSnapshot(Visit&& visit) {
    using Group = Snapshot;
    METRISK_FIELD(Last_Mode, Result, Nominal);
    METRISK_FIELD(Last_UpperLimit, Result, Nominal);
    METRISK_FIELD(Last_LowerLimit, Result, Nominal);
    METRISK_FIELD(Last_PctInTol, Result, Percent);
    METRISK_FIELD(Last_PhysicalLimit, Result, Nominal);
    METRISK_FIELD(Last_MTEMode, Result, Nominal);
    METRISK_FIELD(Last_MTEUpperLimit, Result, Nominal);
    METRISK_FIELD(Last_MTELowerLimit, Result, Nominal);
    METRISK_FIELD(Last_MTEPctInTol, Result, Percent);
    METRISK_FIELD(Last_MTESigma, Result, Nominal);
    METRISK_FIELD(Last_IncludeUncertainty, Result, None);
    METRISK_FIELD(Last_MTEDegFreedom, Result, Count);
    METRISK_FIELD(Last_MTEStdUncertainty, Result, Nominal);
    METRISK_FIELD(Last_OptTwoSided, Result, None);
    METRISK_FIELD(Last_OptSingleUpper, Result, None);
    METRISK_FIELD(Last_OptSingleLower, Result, None);
    METRISK_FIELD(Last_PhysLimitRequired, Result, None);
    METRISK_FIELD(Last_IncludeGuardbands, Result, None);
    METRISK_FIELD(Last_GBUpper, Result, Ratio);
    METRISK_FIELD(Last_GBLower, Result, Ratio);
    METRISK_FIELD(Last_Base1, Result, Count);
    METRISK_FIELD(Last_Base2, Result, Count);
    METRISK_FIELD(Last_Base3, Result, Count);
    METRISK_FIELD(Last_Base4, Result, Count);
}

template <class Visit>
constexpr void eachSessionState(Visit&& visit) {
    using Group = SessionState;
    METRISK_FIELD(AnalysisFileName, Session, Text);
    METRISK_FIELD(LastAnalysisName, Session, Text);
    METRISK_FIELD(FileChanged, Session, None);
    METRISK_FIELD(FileReadOnly, Session, None);
    METRISK_FIELD(ComputeNeeded, Session, None);
    METRISK_FIELD(ComputeScope, Session, Text);
    METRISK_FIELD(AbortFlag, Session, None);
    METRISK_FIELD(SearchAbort, Session, None);
    METRISK_FIELD(Computing, Session, None);
    METRISK_FIELD(EntryBoxChanged, Session, None);
    METRISK_FIELD(RisksNeedCompute, Session, None);
    METRISK_FIELD(RisksComputed, Session, None);
    METRISK_FIELD(ResultsStale, Session, None);
    METRISK_FIELD(SilentFault, Session, Text);
    METRISK_FIELD(ComputeRequested, Session, None);
    METRISK_FIELD(NothingChanged, Session, None);
    METRISK_FIELD(GuardbandsUnchanged, Session, None);
    METRISK_FIELD(BaselineUnchanged, Session, None);
    METRISK_FIELD(BaselineComputed, Session, None);
    METRISK_FIELD(LimitsReformed, Session, None);
    METRISK_FIELD(LoadInProgress, Session, None);
    METRISK_FIELD(ObservedWorksheetOpen, Session, None);
    METRISK_FIELD(UncertaintyWorksheetOpen, Session, None);
    METRISK_FIELD(GB_ScreenOpen, Session, None);
    METRISK_FIELD(GB_RatioRequest, Session, None);
    METRISK_FIELD(GB_MainStale, Session, None);
    METRISK_FIELD(GB_RisksStale, Session, None);
    METRISK_FIELD(ObservedIgnoresGuardbands, Session, None);
    METRISK_FIELD(MTE_KUsed, Session, Ratio);
    METRISK_FIELD(OffsetFromUncertainty, Session, None);
    METRISK_FIELD(SymmetryChanged, Session, None);
    METRISK_FIELD(FirstDisplay, Session, None);
    METRISK_FIELD(Rel_ActiveSlot, Session, Count);
    METRISK_FIELD(OffsetsInNominalUnits, Session, None);
    METRISK_FIELD(Ack100Pct, Session, None);
    METRISK_FIELD(AckPhysLimitLow, Session, None);
    METRISK_FIELD(AckPhysLimitHigh, Session, None);
    METRISK_FIELD(DirectCompute, Session, None);
    METRISK_FIELD(DirectComputeChanged, Session, None);
}

#undef METRISK_FIELD

/// Calls visit(field, pointer to member) for every field, groups in the record's own order: the table belongs
/// to no record, so that two can be walked side by side. A member is a double, int, bool, Flag, text, or an
/// array of these.
template <class Visit>
constexpr void eachField(Visit&& visit) {
    eachIdentification(visit);
    eachSubjectParameter(visit);
    eachMeasuringParameter(visit);
    eachRiskResults(visit);
    eachBaseline(visit);
    eachGuardbands(visit);
    eachProcessErrors(visit);
    eachSampleStatistics(visit);
    eachObservedPct(visit);
    eachBiasAnalysis(visit);
    eachReliability(visit);
    eachReportFields(visit);
    eachPlotOptions(visit);
    eachSnapshot(visit);
    eachSessionState(visit);
}

/// Calls visit(name, member) for every field of the record.
template <class Record, class Visitor>
void visitFields(Record& record, Visitor&& visit) {
    eachField([&](const Field& field, auto member) { visit(field.name, record.*member); });
}

/// Calls visit(element) for the elements of an array member, and for any other member with itself.
template <class Member, class Visitor>
void eachElement(Member& member, Visitor&& visit) {
    if constexpr (
        requires { Member::first; } || requires { std::tuple_size<std::remove_const_t<Member>>::value; }) {
        for (auto& element : member) eachElement(element, visit);
    } else {
        visit(member);
    }
}

/// Calls visit(name, element) for the elements of an array member, named "X[1][2]" as they are counted;
/// for any other member visit(name, member) itself.
template <class Member, class Visitor>
void visitElements(const std::string& name, Member& member, Visitor&& visit) {
    constexpr bool countsFrom1 = requires {
        Member::first;
    };
    constexpr bool countsFrom0 = requires {
        std::tuple_size<std::remove_const_t<Member>>::value;
    };
    if constexpr (countsFrom1 || countsFrom0) {
        int i = countsFrom1 ? 1 : 0;
        for (auto& element : member) visitElements(name + "[" + std::to_string(i++) + "]", element, visit);
    } else {
        visit(name, member);
    }
}

} // namespace metrisk

// Every field of the analysis record by its name.
#pragma once

#include "record/Analysis.h"

#include <array>
#include <string>
#include <string_view>
#include <type_traits>

namespace metrisk {
#define METRISK_FIELD(name) visit(std::string_view(#name), record.name)
template <class Record, class Visitor>
void visitIdentification(Record& record, Visitor& visit) {
    METRISK_FIELD(SU_Manufacturer);
    METRISK_FIELD(SU_ModelNumber);
    METRISK_FIELD(SU_Description);
    METRISK_FIELD(SU_ParameterName);
    METRISK_FIELD(SU_Qualifier1);
    METRISK_FIELD(SU_Qualifier2);
    METRISK_FIELD(MTE_Manufacturer);
    METRISK_FIELD(MTE_ModelNumber);
    METRISK_FIELD(MTE_Description);
    METRISK_FIELD(MTE_ParameterName);
    METRISK_FIELD(MTE_Qualifier1);
    METRISK_FIELD(MTE_Qualifier2);
}

template <class Record, class Visitor>
void visitSubjectParameter(Record& record, Visitor& visit) {
    METRISK_FIELD(SU_Mode);
    METRISK_FIELD(SU_Mode_fmt);
    METRISK_FIELD(SU_UpperLimit);
    METRISK_FIELD(SU_LowerLimit);
    METRISK_FIELD(SU_UpperOffset);
    METRISK_FIELD(SU_UpperOffset_fmt);
    METRISK_FIELD(SU_LowerOffset);
    METRISK_FIELD(SU_LowerOffset_fmt);
    METRISK_FIELD(SU_UpperFixed);
    METRISK_FIELD(SU_UpperFixed_fmt);
    METRISK_FIELD(SU_UpperPctReading);
    METRISK_FIELD(SU_UpperPctReading_fmt);
    METRISK_FIELD(SU_LowerFixed);
    METRISK_FIELD(SU_LowerFixed_fmt);
    METRISK_FIELD(SU_LowerPctReading);
    METRISK_FIELD(SU_LowerPctReading_fmt);
    METRISK_FIELD(SU_PctInTol);
    METRISK_FIELD(SU_PctInTol_fmt);
    METRISK_FIELD(PhysicalLimit);
    METRISK_FIELD(PhysicalLimit_fmt);
    METRISK_FIELD(PhysLimitRequired);
    METRISK_FIELD(PhysicalLimitEntered);
    METRISK_FIELD(OptTwoSided);
    METRISK_FIELD(OptSingleUpper);
    METRISK_FIELD(OptSingleLower);
    METRISK_FIELD(SymmetricTolerances);
    METRISK_FIELD(ShowLimits);
    METRISK_FIELD(SU_SigDigits);
    METRISK_FIELD(SU_TolDecimalShift);
    METRISK_FIELD(NominalUnits);
    METRISK_FIELD(MeasurementArea);
    METRISK_FIELD(SU_ToleranceUnits);
    METRISK_FIELD(SU_TolUnitsFactor);
    METRISK_FIELD(SU_ModeUnchanged);
    METRISK_FIELD(SU_Sigma);
    METRISK_FIELD(SU_Distribution);
    METRISK_FIELD(SU_CaseCode);
    METRISK_FIELD(SU_LogSigma);
    METRISK_FIELD(SU_LogOmega);
    METRISK_FIELD(SU_ExpExponent);
    METRISK_FIELD(SU_ExpRate);
    METRISK_FIELD(PhysLimitBelow);
    METRISK_FIELD(PhysLimitAbove);
    METRISK_FIELD(ZTailLow);
    METRISK_FIELD(ZTailHigh);
    METRISK_FIELD(ZTwoSided);
    METRISK_FIELD(LimitRatioNear);
    METRISK_FIELD(LimitRatioFar);
    METRISK_FIELD(SubjectFitValid);
}

template <class Record, class Visitor>
void visitMeasuringParameter(Record& record, Visitor& visit) {
    METRISK_FIELD(MTE_Mode);
    METRISK_FIELD(MTE_UpperLimit);
    METRISK_FIELD(MTE_LowerLimit);
    METRISK_FIELD(MTE_Offset);
    METRISK_FIELD(MTE_Offset_fmt);
    METRISK_FIELD(MTE_FixedOffset);
    METRISK_FIELD(MTE_FixedOffset_fmt);
    METRISK_FIELD(MTE_PctReading);
    METRISK_FIELD(MTE_PctReading_fmt);
    METRISK_FIELD(MTE_PctInTol);
    METRISK_FIELD(MTE_PctInTol_fmt);
    METRISK_FIELD(MTE_ParameterUnits);
    METRISK_FIELD(MTE_ToleranceUnits);
    METRISK_FIELD(MTE_TolUnitsFactor);
    METRISK_FIELD(MTE_Sigma);
    METRISK_FIELD(MTE_EntryByUncertainty);
    METRISK_FIELD(MTE_kFactor);
    METRISK_FIELD(MTE_DegFreedom);
    METRISK_FIELD(MTE_StdUncertainty);
    METRISK_FIELD(MTE_StdUncertainty_fmt);
    METRISK_FIELD(MTE_BiasFromWorksheet);
    METRISK_FIELD(OffsetWorksheetFlag);
}

template <class Record, class Visitor>
void visitRiskResults(Record& record, Visitor& visit) {
    METRISK_FIELD(FalseAcceptRisk);
    METRISK_FIELD(FalseAcceptUnits);
    METRISK_FIELD(FalseAccept_fmt);
    METRISK_FIELD(FalseRejectRisk);
    METRISK_FIELD(FalseRejectUnits);
    METRISK_FIELD(FalseReject_fmt);
    METRISK_FIELD(EqAccRat);
    METRISK_FIELD(EqAccRatDen);
    METRISK_FIELD(FalseAcceptOption);
    METRISK_FIELD(UserOption);
    METRISK_FIELD(EqRatioOnFalseAccept);
    METRISK_FIELD(ComputeEqRatio);
    METRISK_FIELD(BeepWhenFinished);
}

template <class Record, class Visitor>
void visitBaseline(Record& record, Visitor& visit) {
    METRISK_FIELD(Base_AccRatNum);
    METRISK_FIELD(Base_AccRatDen);
    METRISK_FIELD(Base_MTEPctInTol);
    METRISK_FIELD(Base_SUPctInTol);
    METRISK_FIELD(Base_EqRatioTarget);
    METRISK_FIELD(Base_FalseAccept);
    METRISK_FIELD(Base_AcceptUnits);
    METRISK_FIELD(Base_Accept_fmt);
    METRISK_FIELD(Base_FalseReject);
    METRISK_FIELD(Base_RejectUnits);
    METRISK_FIELD(Base_Reject_fmt);
}

template <class Record, class Visitor>
void visitGuardbands(Record& record, Visitor& visit) {
    METRISK_FIELD(IncludeGuardbands);
    METRISK_FIELD(GuardbandsChanged);
    METRISK_FIELD(GB_UpperMult);
    METRISK_FIELD(GB_LowerMult);
    METRISK_FIELD(GB_UpperMult_fmt);
    METRISK_FIELD(GB_LowerMult_fmt);
    METRISK_FIELD(GB_UpperK);
    METRISK_FIELD(GB_LowerK);
    METRISK_FIELD(GB_UpperK_fmt);
    METRISK_FIELD(GB_LowerK_fmt);
    METRISK_FIELD(GB_UpperKEntered);
    METRISK_FIELD(GB_LowerKEntered);
    METRISK_FIELD(GB_SymmetricK);
    METRISK_FIELD(GB_SymmetricMult);
    METRISK_FIELD(GB_AsymmetricMult);
    METRISK_FIELD(GB_ShowLimits);
    METRISK_FIELD(GB_KeyOn);
    METRISK_FIELD(GB_FARisk);
    METRISK_FIELD(GB_FRRisk);
    METRISK_FIELD(GB_FARiskUnits);
    METRISK_FIELD(GB_FRRiskUnits);
    METRISK_FIELD(GB_EqAccRat);
    METRISK_FIELD(GB_IncludeEqAccRat);
    METRISK_FIELD(GB_EqAccRatValid);
}

template <class Record, class Visitor>
void visitProcessErrors(Record& record, Visitor& visit) {
    METRISK_FIELD(IncludeUncertainty);
    METRISK_FIELD(ProcessUncertainty);
    METRISK_FIELD(ProcessUncertainty_fmt);
    METRISK_FIELD(Process_DegFreedom);
    METRISK_FIELD(Total_DegFreedom);
    METRISK_FIELD(IncludeMTEBias);
    METRISK_FIELD(ErrorSourceName);
    METRISK_FIELD(ErrTableText);
    METRISK_FIELD(ErrTableDisplay);
    METRISK_FIELD(CorrelationMatrix);
}

template <class Record, class Visitor>
void visitSampleStatistics(Record& record, Visitor& visit) {
    METRISK_FIELD(Stat_SampleSize);
    METRISK_FIELD(Stat_SampleMean);
    METRISK_FIELD(Stat_SampleStdDev);
    METRISK_FIELD(Stat_SampleFmt);
    METRISK_FIELD(Stat_Value5);
    METRISK_FIELD(Stat_Value6);
    METRISK_FIELD(Stat_tStatistic);
    METRISK_FIELD(Stat_Value8);
    METRISK_FIELD(Stat_Include);
    METRISK_FIELD(Stat_Sample);
    METRISK_FIELD(Stat_SampleInclude);
    METRISK_FIELD(Stat_Flag1);
    METRISK_FIELD(Stat_Flag2);
}

template <class Record, class Visitor>
void visitObservedPct(Record& record, Visitor& visit) {
    METRISK_FIELD(Obs_PctInTol);
    METRISK_FIELD(Obs_PctInTol_fmt);
    METRISK_FIELD(Obs_TruePct);
    METRISK_FIELD(Obs_TruePct_fmt);
    METRISK_FIELD(Obs_Flag1);
    METRISK_FIELD(Obs_Flag2);
    METRISK_FIELD(Obs_Value1);
    METRISK_FIELD(Obs_Value2);
    METRISK_FIELD(RelWorksheetTarget);
    METRISK_FIELD(Obs_Manufacturer);
    METRISK_FIELD(Obs_ModelNumber);
    METRISK_FIELD(Obs_Description);
    METRISK_FIELD(Obs_ParameterName);
    METRISK_FIELD(Obs_AOP);
    METRISK_FIELD(Obs_Offset);
    METRISK_FIELD(Obs_Units);
    METRISK_FIELD(Obs_ObservingUnitOption);
}

template <class Record, class Visitor>
void visitBiasAnalysis(Record& record, Visitor& visit) {
    METRISK_FIELD(SMPC_Sigma);
    METRISK_FIELD(SMPC_InTolProb);
    METRISK_FIELD(SMPC_Bias);
    METRISK_FIELD(SMPC_Limits);
    METRISK_FIELD(SMPC_Tolerance);
    METRISK_FIELD(SMPC_PctInTol);
    METRISK_FIELD(SMPC_TrueOffset);
    METRISK_FIELD(SMPC_Computed);
    METRISK_FIELD(SMPC_SUUncertainty);
    METRISK_FIELD(SMPC_MTEUncertainty);
    METRISK_FIELD(SMPC_CoverageFactor);
    METRISK_FIELD(SMPC_CoverageFactor_fmt);
    METRISK_FIELD(SMPC_Reserved);
    METRISK_FIELD(SMPC_Confidence);
    METRISK_FIELD(SMPC_Confidence_fmt);
    METRISK_FIELD(SMPC_UseCoverageFactor);
}

template <class Record, class Visitor>
void visitReliability(Record& record, Visitor& visit) {
    METRISK_FIELD(Rel_Theta);
    METRISK_FIELD(Rel_Model);
    METRISK_FIELD(Rel_ModelIndex);
    METRISK_FIELD(Rel_Interval);
    METRISK_FIELD(Rel_Interval_fmt);
    METRISK_FIELD(Rel_IntervalUnits);
    METRISK_FIELD(Rel_BOP);
    METRISK_FIELD(Rel_BOP_fmt);
    METRISK_FIELD(Rel_AOP);
    METRISK_FIELD(Rel_AOP_fmt);
    METRISK_FIELD(Rel_EOP);
    METRISK_FIELD(Rel_EOP_fmt);
    METRISK_FIELD(Rel_UserPct);
    METRISK_FIELD(Rel_UserTime);
    METRISK_FIELD(Rel_UserPct_fmt);
    METRISK_FIELD(Rel_UserTimeUnits);
    METRISK_FIELD(Rel_BiasOption);
}

template <class Record, class Visitor>
void visitReportFields(Record& record, Visitor& visit) {
    METRISK_FIELD(Delimiter);
    METRISK_FIELD(IncludeOrganization);
    METRISK_FIELD(Organization);
    METRISK_FIELD(IncludeDepartment);
    METRISK_FIELD(Department);
    METRISK_FIELD(ApprovingDepartment);
    METRISK_FIELD(IncludeApprovingDepartment);
    METRISK_FIELD(Submitter);
    METRISK_FIELD(IncludeSubmitter);
    METRISK_FIELD(IncludeApprover);
    METRISK_FIELD(Approver);
    METRISK_FIELD(IncludeFileName);
    METRISK_FIELD(IncludeRemarks);
    METRISK_FIELD(IncludeDate);
    METRISK_FIELD(IncludeTime);
    METRISK_FIELD(Remarks);
}

template <class Record, class Visitor>
void visitPlotOptions(Record& record, Visitor& visit) {
    METRISK_FIELD(SUPlot_ShowTolerances);
    METRISK_FIELD(MTEPlot_ShowOffsets);
    METRISK_FIELD(ErrorPlot_Flag);
    METRISK_FIELD(MTEPlot_IncludeUncertainty);
    METRISK_FIELD(ErrorPlot_Param);
    METRISK_FIELD(ErrorPlot_Units);
    METRISK_FIELD(ErrorPlot_UnitName);
    METRISK_FIELD(ErrorPlot_UnitsFactor);
    METRISK_FIELD(MTEPlot_Title);
    METRISK_FIELD(SUPlot_Zoom);
    METRISK_FIELD(MTEPlot_Zoom);
    METRISK_FIELD(ErrorPlot_Zoom);
    METRISK_FIELD(SUPlot_UseMTETols);
    METRISK_FIELD(MTEPlot_UseSUTols);
}

template <class Record, class Visitor>
void visitSnapshot(Record& record, Visitor& visit) {
    METRISK_FIELD(Last_Mode);
    METRISK_FIELD(Last_UpperLimit);
    METRISK_FIELD(Last_LowerLimit);
    METRISK_FIELD(Last_PctInTol);
    METRISK_FIELD(Last_PhysicalLimit);
    METRISK_FIELD(Last_MTEMode);
    METRISK_FIELD(Last_MTEUpperLimit);
    METRISK_FIELD(Last_MTELowerLimit);
    METRISK_FIELD(Last_MTEPctInTol);
    METRISK_FIELD(Last_MTESigma);
    METRISK_FIELD(Last_IncludeUncertainty);
    METRISK_FIELD(Last_MTEDegFreedom);
    METRISK_FIELD(Last_MTEStdUncertainty);
    METRISK_FIELD(Last_OptTwoSided);
    METRISK_FIELD(Last_OptSingleUpper);
    METRISK_FIELD(Last_OptSingleLower);
    METRISK_FIELD(Last_PhysLimitRequired);
    METRISK_FIELD(Last_IncludeGuardbands);
    METRISK_FIELD(Last_GBUpper);
    METRISK_FIELD(Last_GBLower);
    METRISK_FIELD(Last_Base1);
    METRISK_FIELD(Last_Base2);
    METRISK_FIELD(Last_Base3);
    METRISK_FIELD(Last_Base4);
}

template <class Record, class Visitor>
void visitSessionState(Record& record, Visitor& visit) {
    METRISK_FIELD(AnalysisFileName);
    METRISK_FIELD(LastAnalysisName);
    METRISK_FIELD(FileChanged);
    METRISK_FIELD(FileReadOnly);
    METRISK_FIELD(ComputeNeeded);
    METRISK_FIELD(ComputeScope);
    METRISK_FIELD(AbortFlag);
    METRISK_FIELD(SearchAbort);
    METRISK_FIELD(Computing);
    METRISK_FIELD(EntryBoxChanged);
    METRISK_FIELD(RisksNeedCompute);
    METRISK_FIELD(RisksComputed);
    METRISK_FIELD(ResultsStale);
    METRISK_FIELD(SilentFault);
    METRISK_FIELD(ComputeRequested);
    METRISK_FIELD(NothingChanged);
    METRISK_FIELD(GuardbandsUnchanged);
    METRISK_FIELD(BaselineUnchanged);
    METRISK_FIELD(BaselineComputed);
    METRISK_FIELD(LimitsReformed);
    METRISK_FIELD(LoadInProgress);
    METRISK_FIELD(ObservedWorksheetOpen);
    METRISK_FIELD(UncertaintyWorksheetOpen);
    METRISK_FIELD(GB_ScreenOpen);
    METRISK_FIELD(GB_RatioRequest);
    METRISK_FIELD(GB_MainStale);
    METRISK_FIELD(GB_RisksStale);
    METRISK_FIELD(ObservedIgnoresGuardbands);
    METRISK_FIELD(MTE_KUsed);
    METRISK_FIELD(OffsetFromUncertainty);
    METRISK_FIELD(SymmetryChanged);
    METRISK_FIELD(FirstDisplay);
    METRISK_FIELD(Rel_ActiveSlot);
    METRISK_FIELD(OffsetsInNominalUnits);
    METRISK_FIELD(Ack100Pct);
    METRISK_FIELD(AckPhysLimitLow);
    METRISK_FIELD(AckPhysLimitHigh);
    METRISK_FIELD(DirectCompute);
    METRISK_FIELD(DirectComputeChanged);
}

#undef METRISK_FIELD

/// Calls visit(name, member) for every field, groups in the record's own order. A member is a double,
/// int, bool, Flag, text, or an array of these.
template <class Record, class Visitor>
void visitFields(Record& record, Visitor&& visit) {
    visitIdentification(record, visit);
    visitSubjectParameter(record, visit);
    visitMeasuringParameter(record, visit);
    visitRiskResults(record, visit);
    visitBaseline(record, visit);
    visitGuardbands(record, visit);
    visitProcessErrors(record, visit);
    visitSampleStatistics(record, visit);
    visitObservedPct(record, visit);
    visitBiasAnalysis(record, visit);
    visitReliability(record, visit);
    visitReportFields(record, visit);
    visitPlotOptions(record, visit);
    visitSnapshot(record, visit);
    visitSessionState(record, visit);
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

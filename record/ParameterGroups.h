// Record groups of what the user enters about the two parameters: identification, subject parameter,
// measuring parameter, guardbands and the process uncertainty table.
//
// Percentages are in percent (0 to 100), limits and offsets in nominal units. A field X_fmt is the
// picture with which X is shown. Default member initialisers are the values of a new analysis.
#pragma once

#include "base/Flag.h"
#include "base/OneBased.h"

#include <string>

namespace metrisk {

struct Identification {
    std::string SU_Manufacturer;
    std::string SU_ModelNumber;
    std::string SU_Description;
    std::string SU_ParameterName;
    std::string SU_Qualifier1;
    std::string SU_Qualifier2;
    std::string MTE_Manufacturer;
    std::string MTE_ModelNumber;
    std::string MTE_Description;
    std::string MTE_ParameterName;
    std::string MTE_Qualifier1;
    std::string MTE_Qualifier2;
};

struct SubjectParameter {
    double SU_Mode = 0;
    std::string SU_Mode_fmt = "#,##0.0000";
    double SU_UpperLimit = 0;  // SU_Mode + SU_UpperOffset
    double SU_LowerLimit = 0;  // SU_Mode - SU_LowerOffset
    double SU_UpperOffset = 0; // never negative
    std::string SU_UpperOffset_fmt = "#,##0.0000";
    double SU_LowerOffset = 0; // never negative
    std::string SU_LowerOffset_fmt = "#,##0.0000";
    double SU_UpperFixed = 0; // fixed part of the upper offset
    std::string SU_UpperFixed_fmt = "#,##0.0000";
    double SU_UpperPctReading = 0; // percent-of-reading part of the upper offset
    std::string SU_UpperPctReading_fmt = "##0";
    double SU_LowerFixed = 0;
    std::string SU_LowerFixed_fmt = "#,##0.0000";
    double SU_LowerPctReading = 0;
    std::string SU_LowerPctReading_fmt = "##0";
    double SU_PctInTol = 0;
    std::string SU_PctInTol_fmt = "##0.0000";
    double PhysicalLimit = 0; // a value that the parameter cannot pass
    std::string PhysicalLimit_fmt = "#,##0.0000";
    Flag PhysLimitRequired; // meaningful on single-sided tolerances only
    Flag PhysicalLimitEntered;
    Flag OptTwoSided = true; // exactly one of these three is true
    Flag OptSingleUpper;
    Flag OptSingleLower;
    Flag SymmetricTolerances;
    Flag ShowLimits;            // true shows limits in nominal units, false offsets in tolerance units
    int SU_SigDigits = 0;       // decimal shift of the measuring parameter's tolerance units
    int SU_TolDecimalShift = 0; // decimal shift of the subject parameter's tolerance units
    std::string NominalUnits;   // kept by a new analysis
    std::string MeasurementArea;
    std::string SU_ToleranceUnits;
    double SU_TolUnitsFactor = 1.0; // tolerance units per nominal unit
    Flag SU_ModeUnchanged = true;

    // Fitted by FitSubjectParameter.
    double SU_Sigma = 0;
    std::string SU_Distribution; // "Normal", "LogNormal", "Exponential" or "Uniform"
    int SU_CaseCode = 0;         // 1 to 9
    double SU_LogSigma = 0;      // shape s of the LogNormal
    double SU_LogOmega = 0;      // exp(s^2)
    double SU_ExpExponent = 0;   // -ln p or -ln(1 - p)
    double SU_ExpRate = 0;       // exponent / (limit - mode), signed, per nominal unit
    Flag PhysLimitBelow;         // side of the distribution on which the physical limit stands
    Flag PhysLimitAbove;
    double ZTailLow = 0;       // InvNorm((1 - p)/2)
    double ZTailHigh = 0;      // InvNorm(1 - (1 - p)/2)
    double ZTwoSided = 0;      // InvNorm((p + 1)/2)
    double LimitRatioNear = 0; // (near limit - physical limit)/(mode - physical limit)
    double LimitRatioFar = 0;
    Flag SubjectFitValid;
};

struct MeasuringParameter {
    double MTE_Mode = 0; // a copy of SU_Mode
    double MTE_UpperLimit = 0;
    double MTE_LowerLimit = 0;
    double MTE_Offset = 0; // tolerance limit, nominal units
    std::string MTE_Offset_fmt = "#,##0.0000";
    double MTE_FixedOffset = 0;
    std::string MTE_FixedOffset_fmt = "#,##0.0000";
    double MTE_PctReading = 0;
    std::string MTE_PctReading_fmt = "##0";
    double MTE_PctInTol = 0; // % in-tolerance or, entered by uncertainty, the confidence level
    std::string MTE_PctInTol_fmt = "##0.0000";
    std::string MTE_ParameterUnits;
    std::string MTE_ToleranceUnits;
    double MTE_TolUnitsFactor = 1.0;
    double MTE_Sigma = 0;
    Flag MTE_EntryByUncertainty;
    double MTE_kFactor = 0;
    double MTE_DegFreedom = 0; // 0 means infinite
    double MTE_StdUncertainty = 0;
    std::string MTE_StdUncertainty_fmt = "#,##0.0000";
    Flag MTE_BiasFromWorksheet;
    Flag OffsetWorksheetFlag; // fixed or percent parts came from the tolerance offset worksheet
};

/// Upper test limit = SU_Mode + GB_UpperMult x SU_UpperOffset, the lower one likewise.
struct Guardbands {
    Flag IncludeGuardbands;
    Flag GuardbandsChanged;
    double GB_UpperMult = 1.0;
    double GB_LowerMult = 1.0;
    std::string GB_UpperMult_fmt = "#,###";
    std::string GB_LowerMult_fmt = "#,###";
    double GB_UpperK = 0;
    double GB_LowerK = 0;
    std::string GB_UpperK_fmt = "#,##0.0000";
    std::string GB_LowerK_fmt = "#,##0.0000";
    Flag GB_UpperKEntered;
    Flag GB_LowerKEntered;
    Flag GB_SymmetricK;
    Flag GB_SymmetricMult;
    Flag GB_AsymmetricMult = true;
    Flag GB_ShowLimits;
    int GB_KeyOn = 0; // 0 false accept, 1 false reject, 2 equalize risks
    double GB_FARisk = 0;
    double GB_FRRisk = 0;
    std::string GB_FARiskUnits = "%";
    std::string GB_FRRiskUnits = "%";
    double GB_EqAccRat = 0;
    Flag GB_IncludeEqAccRat;
    Flag GB_EqAccRatValid;
};

/// Rows of the process errors table: 0 MTE Bias (taken from the measuring parameter, never stored),
/// 1 MTE Random to 8 SU Resolution. Columns: limit, % confidence, standard uncertainty, included
/// ("True"/"False"), name, degrees of freedom; all as text, so that what the user typed survives.
struct ProcessErrors {
    Flag IncludeUncertainty;
    double ProcessUncertainty = 0; // nominal units, MTE bias excluded
    std::string ProcessUncertainty_fmt = "#,##0.0000";
    double Process_DegFreedom = 0; // 0 means infinite
    double Total_DegFreedom = 0;   // with MTE bias; 0 means infinite
    Flag IncludeMTEBias = true;
    OneBased<std::string, 8> ErrorSourceName;
    OneBased<OneBased<std::string, 6>, 8> ErrTableText;    // rows 1 to 8
    OneBased<OneBased<std::string, 6>, 9> ErrTableDisplay; // rows 0 to 8
    OneBased<OneBased<double, 10>, 10> CorrelationMatrix;  // index = row + 2, only i < j is used
};

} // namespace metrisk

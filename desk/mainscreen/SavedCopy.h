// What change detection looks at: model numbers and descriptions are not among it.
#pragma once

#include "record/KeptFields.h"

namespace metrisk {

class SavedCopy {
  public:
    explicit SavedCopy(const Analysis& record) : fields_(record), uncertainty_(record.MTE_StdUncertainty) {}

    /// The standard uncertainty, being derived, is compared to rounding.
    bool differs(const Analysis& record) const;

  private:
    using Fields =
        KeptFields<&Analysis::SU_Manufacturer, &Analysis::SU_ParameterName, &Analysis::SU_Qualifier1,
                   &Analysis::SU_Qualifier2, &Analysis::NominalUnits, &Analysis::SU_ToleranceUnits,
                   &Analysis::MTE_Manufacturer, &Analysis::MTE_ParameterName, &Analysis::MTE_Qualifier1,
                   &Analysis::MTE_Qualifier2, &Analysis::MTE_ParameterUnits, &Analysis::MTE_ToleranceUnits,
                   &Analysis::SU_Mode, &Analysis::SU_UpperLimit, &Analysis::SU_LowerLimit,
                   &Analysis::SU_PctInTol, &Analysis::PhysicalLimit, &Analysis::MTE_Mode,
                   &Analysis::MTE_UpperLimit, &Analysis::MTE_LowerLimit, &Analysis::MTE_PctInTol,
                   &Analysis::ProcessUncertainty, &Analysis::GB_UpperMult, &Analysis::GB_LowerMult,
                   &Analysis::IncludeUncertainty, &Analysis::IncludeGuardbands, &Analysis::IncludeMTEBias,
                   &Analysis::SymmetricTolerances>;

    Fields fields_;
    double uncertainty_;
};

} // namespace metrisk

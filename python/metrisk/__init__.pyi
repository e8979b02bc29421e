# Made by python/tools/stub.py from the table of entries.
import os
from collections.abc import Iterable, Iterator, Mapping
from typing import Any, Literal

import numpy as np
import numpy.typing as npt

__version__: str
__all__: list[str]

_Numbers = npt.ArrayLike | None
_Texts = str | npt.ArrayLike | None
_Template = str | bytes | os.PathLike[str] | Analysis | None
_Path = str | bytes | os.PathLike[str] | os.PathLike[bytes]
_Guardbands = Literal["use", "ignore", "equalize"] | None

class MetriskError(ValueError):
    index: tuple[int, ...]
    title: str
    text: str

class Result(Mapping[str, npt.NDArray[Any]]):
    status: npt.NDArray[np.uint8]
    def __getitem__(self, name: str) -> npt.NDArray[Any]: ...
    def __iter__(self) -> Iterator[str]: ...
    def __len__(self) -> int: ...
    def __getattr__(self, name: str) -> npt.NDArray[Any]: ...
    def message(self, index: int | tuple[int, ...] = ...) -> str: ...
    def messages(self) -> dict[Any, str]: ...
    def to_dict(self) -> dict[str, npt.NDArray[Any]]: ...

def entry_columns() -> list[dict[str, str]]: ...
def figure_columns() -> list[dict[str, Any]]: ...
def risks(
    *,
    want: str | Iterator[str] | list[str] | tuple[str, ...] = ...,
    template: _Template = ...,
    threads: int = ...,
    errors: Literal["nan", "raise"] = ...,
    counts: Literal["estimate", "lower", "median", "observed"] = ...,
    sided: _Texts = ...,
    nominal: _Numbers = ...,
    tol: _Numbers = ...,
    tol_upper: _Numbers = ...,
    tol_lower: _Numbers = ...,
    tol_pct: _Numbers = ...,
    upper: _Numbers = ...,
    lower: _Numbers = ...,
    phys: _Numbers = ...,
    su_pct: _Numbers = ...,
    passed: _Numbers = ...,
    tested: _Numbers = ...,
    mte_tol: _Numbers = ...,
    mte_tol_pct: _Numbers = ...,
    mte_pct: _Numbers = ...,
    mte_u: _Numbers = ...,
    mte_expanded: _Numbers = ...,
    mte_k: _Numbers = ...,
    mte_conf: _Numbers = ...,
    mte_dof: _Numbers = ...,
    tur: _Numbers = ...,
    mte_ratio: _Numbers = ...,
    process_u: _Numbers = ...,
    gb: _Numbers = ...,
    gb_upper: _Numbers = ...,
    gb_lower: _Numbers = ...,
    gb_k: _Numbers = ...,
    gb_k_upper: _Numbers = ...,
    gb_k_lower: _Numbers = ...,
    accept_upper: _Numbers = ...,
    accept_lower: _Numbers = ...,
    convention: _Texts = ...,
    base_ratio: _Numbers = ...,
    base_mte_pct: _Numbers = ...,
    base_su_pct: _Numbers = ...,
    eq_on: _Texts = ...,
    reading: _Numbers = ...,
    rule: _Texts = ...,
) -> Result: ...
def ratio(
    *,
    want: str | Iterator[str] | list[str] | tuple[str, ...] = ...,
    template: _Template = ...,
    threads: int = ...,
    errors: Literal["nan", "raise"] = ...,
    counts: Literal["estimate", "lower", "median", "observed"] = ...,
    sided: _Texts = ...,
    nominal: _Numbers = ...,
    tol: _Numbers = ...,
    tol_upper: _Numbers = ...,
    tol_lower: _Numbers = ...,
    tol_pct: _Numbers = ...,
    upper: _Numbers = ...,
    lower: _Numbers = ...,
    phys: _Numbers = ...,
    su_pct: _Numbers = ...,
    passed: _Numbers = ...,
    tested: _Numbers = ...,
    mte_tol: _Numbers = ...,
    mte_tol_pct: _Numbers = ...,
    mte_pct: _Numbers = ...,
    mte_u: _Numbers = ...,
    mte_expanded: _Numbers = ...,
    mte_k: _Numbers = ...,
    mte_conf: _Numbers = ...,
    mte_dof: _Numbers = ...,
    tur: _Numbers = ...,
    mte_ratio: _Numbers = ...,
    process_u: _Numbers = ...,
    gb: _Numbers = ...,
    gb_upper: _Numbers = ...,
    gb_lower: _Numbers = ...,
    gb_k: _Numbers = ...,
    gb_k_upper: _Numbers = ...,
    gb_k_lower: _Numbers = ...,
    accept_upper: _Numbers = ...,
    accept_lower: _Numbers = ...,
    convention: _Texts = ...,
    base_ratio: _Numbers = ...,
    base_mte_pct: _Numbers = ...,
    base_su_pct: _Numbers = ...,
    eq_on: _Texts = ...,
    reading: _Numbers = ...,
    rule: _Texts = ...,
) -> Result: ...
def exact(
    *,
    want: str | Iterator[str] | list[str] | tuple[str, ...] = ...,
    template: _Template = ...,
    threads: int = ...,
    errors: Literal["nan", "raise"] = ...,
    counts: Literal["estimate", "lower", "median", "observed"] = ...,
    sided: _Texts = ...,
    nominal: _Numbers = ...,
    tol: _Numbers = ...,
    tol_upper: _Numbers = ...,
    tol_lower: _Numbers = ...,
    tol_pct: _Numbers = ...,
    upper: _Numbers = ...,
    lower: _Numbers = ...,
    phys: _Numbers = ...,
    su_pct: _Numbers = ...,
    passed: _Numbers = ...,
    tested: _Numbers = ...,
    mte_tol: _Numbers = ...,
    mte_tol_pct: _Numbers = ...,
    mte_pct: _Numbers = ...,
    mte_u: _Numbers = ...,
    mte_expanded: _Numbers = ...,
    mte_k: _Numbers = ...,
    mte_conf: _Numbers = ...,
    mte_dof: _Numbers = ...,
    tur: _Numbers = ...,
    mte_ratio: _Numbers = ...,
    process_u: _Numbers = ...,
    gb: _Numbers = ...,
    gb_upper: _Numbers = ...,
    gb_lower: _Numbers = ...,
    gb_k: _Numbers = ...,
    gb_k_upper: _Numbers = ...,
    gb_k_lower: _Numbers = ...,
    accept_upper: _Numbers = ...,
    accept_lower: _Numbers = ...,
    convention: _Texts = ...,
    base_ratio: _Numbers = ...,
    base_mte_pct: _Numbers = ...,
    base_su_pct: _Numbers = ...,
    eq_on: _Texts = ...,
    reading: _Numbers = ...,
    rule: _Texts = ...,
) -> Result: ...
def worst(
    *,
    want: str | Iterator[str] | list[str] | tuple[str, ...] = ...,
    template: _Template = ...,
    threads: int = ...,
    errors: Literal["nan", "raise"] = ...,
    counts: Literal["estimate", "lower", "median", "observed"] = ...,
    sided: _Texts = ...,
    nominal: _Numbers = ...,
    tol: _Numbers = ...,
    tol_upper: _Numbers = ...,
    tol_lower: _Numbers = ...,
    tol_pct: _Numbers = ...,
    upper: _Numbers = ...,
    lower: _Numbers = ...,
    phys: _Numbers = ...,
    su_pct: _Numbers = ...,
    passed: _Numbers = ...,
    tested: _Numbers = ...,
    mte_tol: _Numbers = ...,
    mte_tol_pct: _Numbers = ...,
    mte_pct: _Numbers = ...,
    mte_u: _Numbers = ...,
    mte_expanded: _Numbers = ...,
    mte_k: _Numbers = ...,
    mte_conf: _Numbers = ...,
    mte_dof: _Numbers = ...,
    tur: _Numbers = ...,
    mte_ratio: _Numbers = ...,
    process_u: _Numbers = ...,
    gb: _Numbers = ...,
    gb_upper: _Numbers = ...,
    gb_lower: _Numbers = ...,
    gb_k: _Numbers = ...,
    gb_k_upper: _Numbers = ...,
    gb_k_lower: _Numbers = ...,
    accept_upper: _Numbers = ...,
    accept_lower: _Numbers = ...,
    convention: _Texts = ...,
    base_ratio: _Numbers = ...,
    base_mte_pct: _Numbers = ...,
    base_su_pct: _Numbers = ...,
    eq_on: _Texts = ...,
    reading: _Numbers = ...,
    rule: _Texts = ...,
) -> Result: ...
def decide(
    *,
    rule: _Texts = ...,
    want: str | Iterator[str] | list[str] | tuple[str, ...] = ...,
    template: _Template = ...,
    threads: int = ...,
    errors: Literal["nan", "raise"] = ...,
    counts: Literal["estimate", "lower", "median", "observed"] = ...,
    sided: _Texts = ...,
    nominal: _Numbers = ...,
    tol: _Numbers = ...,
    tol_upper: _Numbers = ...,
    tol_lower: _Numbers = ...,
    tol_pct: _Numbers = ...,
    upper: _Numbers = ...,
    lower: _Numbers = ...,
    phys: _Numbers = ...,
    su_pct: _Numbers = ...,
    passed: _Numbers = ...,
    tested: _Numbers = ...,
    mte_tol: _Numbers = ...,
    mte_tol_pct: _Numbers = ...,
    mte_pct: _Numbers = ...,
    mte_u: _Numbers = ...,
    mte_expanded: _Numbers = ...,
    mte_k: _Numbers = ...,
    mte_conf: _Numbers = ...,
    mte_dof: _Numbers = ...,
    tur: _Numbers = ...,
    mte_ratio: _Numbers = ...,
    process_u: _Numbers = ...,
    gb: _Numbers = ...,
    gb_upper: _Numbers = ...,
    gb_lower: _Numbers = ...,
    gb_k: _Numbers = ...,
    gb_k_upper: _Numbers = ...,
    gb_k_lower: _Numbers = ...,
    accept_upper: _Numbers = ...,
    accept_lower: _Numbers = ...,
    convention: _Texts = ...,
    base_ratio: _Numbers = ...,
    base_mte_pct: _Numbers = ...,
    base_su_pct: _Numbers = ...,
    eq_on: _Texts = ...,
    reading: _Numbers = ...,
) -> Result: ...
def guardband(
    *,
    fa: float | None = ...,
    fr: float | None = ...,
    equal: bool = ...,
    k: bool = ...,
    want: str | Iterator[str] | list[str] | tuple[str, ...] = ...,
    template: _Template = ...,
    threads: int = ...,
    errors: Literal["nan", "raise"] = ...,
    counts: Literal["estimate", "lower", "median", "observed"] = ...,
    sided: _Texts = ...,
    nominal: _Numbers = ...,
    tol: _Numbers = ...,
    tol_upper: _Numbers = ...,
    tol_lower: _Numbers = ...,
    tol_pct: _Numbers = ...,
    upper: _Numbers = ...,
    lower: _Numbers = ...,
    phys: _Numbers = ...,
    su_pct: _Numbers = ...,
    passed: _Numbers = ...,
    tested: _Numbers = ...,
    mte_tol: _Numbers = ...,
    mte_tol_pct: _Numbers = ...,
    mte_pct: _Numbers = ...,
    mte_u: _Numbers = ...,
    mte_expanded: _Numbers = ...,
    mte_k: _Numbers = ...,
    mte_conf: _Numbers = ...,
    mte_dof: _Numbers = ...,
    tur: _Numbers = ...,
    mte_ratio: _Numbers = ...,
    process_u: _Numbers = ...,
    gb: _Numbers = ...,
    gb_upper: _Numbers = ...,
    gb_lower: _Numbers = ...,
    gb_k: _Numbers = ...,
    gb_k_upper: _Numbers = ...,
    gb_k_lower: _Numbers = ...,
    accept_upper: _Numbers = ...,
    accept_lower: _Numbers = ...,
    convention: _Texts = ...,
    base_ratio: _Numbers = ...,
    base_mte_pct: _Numbers = ...,
    base_su_pct: _Numbers = ...,
    eq_on: _Texts = ...,
    reading: _Numbers = ...,
    rule: _Texts = ...,
) -> Result: ...
def observed(
    *,
    true: _Numbers = ...,
    observed: _Numbers = ...,
    guardbands: _Guardbands = ...,
    template: _Template = ...,
    errors: Literal["nan", "raise"] = ...,
    sided: _Texts = ...,
    nominal: _Numbers = ...,
    tol: _Numbers = ...,
    tol_upper: _Numbers = ...,
    tol_lower: _Numbers = ...,
    tol_pct: _Numbers = ...,
    upper: _Numbers = ...,
    lower: _Numbers = ...,
    phys: _Numbers = ...,
    su_pct: _Numbers = ...,
    passed: _Numbers = ...,
    tested: _Numbers = ...,
    mte_tol: _Numbers = ...,
    mte_tol_pct: _Numbers = ...,
    mte_pct: _Numbers = ...,
    mte_u: _Numbers = ...,
    mte_expanded: _Numbers = ...,
    mte_k: _Numbers = ...,
    mte_conf: _Numbers = ...,
    mte_dof: _Numbers = ...,
    tur: _Numbers = ...,
    mte_ratio: _Numbers = ...,
    process_u: _Numbers = ...,
    gb: _Numbers = ...,
    gb_upper: _Numbers = ...,
    gb_lower: _Numbers = ...,
    gb_k: _Numbers = ...,
    gb_k_upper: _Numbers = ...,
    gb_k_lower: _Numbers = ...,
    accept_upper: _Numbers = ...,
    accept_lower: _Numbers = ...,
    convention: _Texts = ...,
    base_ratio: _Numbers = ...,
    base_mte_pct: _Numbers = ...,
    base_su_pct: _Numbers = ...,
    eq_on: _Texts = ...,
) -> Result: ...
def baseline(
    ratio: npt.ArrayLike, mte_pct: npt.ArrayLike = ..., su_pct: npt.ArrayLike = ..., convention: str = ...
) -> tuple[npt.NDArray[np.float64], npt.NDArray[np.float64]]: ...
def reliability(model: int, interval: float, a: float, b: float, c: float = ...) -> dict[str, float]: ...
def solve_reliability(model: int, interval: float, bop: float, aop: float, eop: float) -> dict[str, Any]: ...
def reliability_models() -> dict[int, tuple[str, str]]: ...
class FieldArray:
    def __getitem__(self, index: Any) -> Any: ...
    def __setitem__(self, index: int | tuple[int, ...], value: Any) -> None: ...
    def __len__(self) -> int: ...
    def __iter__(self) -> Iterator[Any]: ...
    def __reversed__(self) -> Iterator[Any]: ...
    def tolist(self) -> list[Any]: ...

class _Load:
    def __call__(self, path: _Path) -> Analysis: ...

class _FromDict:
    def __call__(self, fields: Mapping[str, Any]) -> Analysis: ...

class Analysis:
    load: _Load
    from_dict: _FromDict
    def __init__(self) -> None: ...
    def to_dict(self) -> dict[str, Any]: ...
    def to_bytes(self) -> bytes: ...
    def save(self, path: _Path, force: bool = ...) -> str: ...
    def set(self, fields: Mapping[str, Any] | None = ..., /, **named: Any) -> Analysis: ...
    def compute(self, *, k: float | str = ...) -> dict[str, Any]: ...
    def observed(
        self, *, true: float | str | None = ..., observed: float | str | None = ..., guardbands: _Guardbands = ...
    ) -> dict[str, Any]: ...
    def report(
        self,
        path: _Path,
        sections: str | Iterable[str] = ...,
        *,
        reading: float | str | None = ...,
        rule: str = ...,
        prior: bool = ...,
        k: float | str = ...,
        font: str = ...,
        organization: str | None = ...,
        paper: Literal["a4", "letter"] = ...,
        force: bool = ...,
    ) -> str: ...
    @property
    def messages(self) -> list[tuple[str, str, str]]: ...
    def copy(self) -> Analysis: ...
    def __getitem__(self, name: str) -> Any: ...
    def __setitem__(self, name: str, value: Any) -> None: ...
    def entries(
        self,
        *,
        counts: Literal["estimate", "lower", "median", "observed"] = ...,
        area: float | str | None = ...,
        unit: float | str | None = ...,
        sided: float | str | None = ...,
        nominal: float | str | None = ...,
        tol: float | str | None = ...,
        tol_upper: float | str | None = ...,
        tol_lower: float | str | None = ...,
        tol_pct: float | str | None = ...,
        upper: float | str | None = ...,
        lower: float | str | None = ...,
        phys: float | str | None = ...,
        su_pct: float | str | None = ...,
        passed: float | str | None = ...,
        tested: float | str | None = ...,
        mte_tol: float | str | None = ...,
        mte_tol_pct: float | str | None = ...,
        mte_pct: float | str | None = ...,
        mte_u: float | str | None = ...,
        mte_expanded: float | str | None = ...,
        mte_k: float | str | None = ...,
        mte_conf: float | str | None = ...,
        mte_dof: float | str | None = ...,
        tur: float | str | None = ...,
        mte_ratio: float | str | None = ...,
        process_u: float | str | None = ...,
        gb: float | str | None = ...,
        gb_upper: float | str | None = ...,
        gb_lower: float | str | None = ...,
        gb_k: float | str | None = ...,
        gb_k_upper: float | str | None = ...,
        gb_k_lower: float | str | None = ...,
        accept_upper: float | str | None = ...,
        accept_lower: float | str | None = ...,
        convention: float | str | None = ...,
        base_ratio: float | str | None = ...,
        base_mte_pct: float | str | None = ...,
        base_su_pct: float | str | None = ...,
        eq_on: float | str | None = ...,
    ) -> Analysis: ...
    SU_Manufacturer: str
    SU_ModelNumber: str
    SU_Description: str
    SU_ParameterName: str
    SU_Qualifier1: str
    SU_Qualifier2: str
    MTE_Manufacturer: str
    MTE_ModelNumber: str
    MTE_Description: str
    MTE_ParameterName: str
    MTE_Qualifier1: str
    MTE_Qualifier2: str
    SU_Mode: float
    SU_Mode_fmt: str
    SU_UpperLimit: float
    SU_LowerLimit: float
    SU_UpperOffset: float
    SU_UpperOffset_fmt: str
    SU_LowerOffset: float
    SU_LowerOffset_fmt: str
    SU_UpperFixed: float
    SU_UpperFixed_fmt: str
    SU_UpperPctReading: float
    SU_UpperPctReading_fmt: str
    SU_LowerFixed: float
    SU_LowerFixed_fmt: str
    SU_LowerPctReading: float
    SU_LowerPctReading_fmt: str
    SU_PctInTol: float
    SU_PctInTol_fmt: str
    PhysicalLimit: float
    PhysicalLimit_fmt: str
    PhysLimitRequired: bool
    PhysicalLimitEntered: bool
    OptTwoSided: bool
    OptSingleUpper: bool
    OptSingleLower: bool
    SymmetricTolerances: bool
    ShowLimits: bool
    SU_SigDigits: int
    SU_TolDecimalShift: int
    NominalUnits: str
    MeasurementArea: str
    SU_ToleranceUnits: str
    SU_TolUnitsFactor: float
    SU_ModeUnchanged: bool
    SU_Sigma: float
    SU_Distribution: str
    SU_CaseCode: int
    SU_LogSigma: float
    SU_LogOmega: float
    SU_ExpExponent: float
    SU_ExpRate: float
    PhysLimitBelow: bool
    PhysLimitAbove: bool
    ZTailLow: float
    ZTailHigh: float
    ZTwoSided: float
    LimitRatioNear: float
    LimitRatioFar: float
    SubjectFitValid: bool
    MTE_Mode: float
    MTE_UpperLimit: float
    MTE_LowerLimit: float
    MTE_Offset: float
    MTE_Offset_fmt: str
    MTE_FixedOffset: float
    MTE_FixedOffset_fmt: str
    MTE_PctReading: float
    MTE_PctReading_fmt: str
    MTE_PctInTol: float
    MTE_PctInTol_fmt: str
    MTE_ParameterUnits: str
    MTE_ToleranceUnits: str
    MTE_TolUnitsFactor: float
    MTE_Sigma: float
    MTE_EntryByUncertainty: bool
    MTE_kFactor: float
    MTE_DegFreedom: float
    MTE_StdUncertainty: float
    MTE_StdUncertainty_fmt: str
    MTE_BiasFromWorksheet: bool
    OffsetWorksheetFlag: bool
    FalseAcceptRisk: float
    FalseAcceptUnits: str
    FalseAccept_fmt: str
    FalseRejectRisk: float
    FalseRejectUnits: str
    FalseReject_fmt: str
    EqAccRat: float
    EqAccRatDen: str
    FalseAcceptOption: int
    UserOption: str
    EqRatioOnFalseAccept: bool
    ComputeEqRatio: bool
    BeepWhenFinished: bool
    Base_AccRatNum: float
    Base_AccRatDen: float
    Base_MTEPctInTol: float
    Base_SUPctInTol: float
    Base_EqRatioTarget: float
    Base_FalseAccept: float
    Base_AcceptUnits: str
    Base_Accept_fmt: str
    Base_FalseReject: float
    Base_RejectUnits: str
    Base_Reject_fmt: str
    IncludeGuardbands: bool
    GuardbandsChanged: bool
    GB_UpperMult: float
    GB_LowerMult: float
    GB_UpperMult_fmt: str
    GB_LowerMult_fmt: str
    GB_UpperK: float
    GB_LowerK: float
    GB_UpperK_fmt: str
    GB_LowerK_fmt: str
    GB_UpperKEntered: bool
    GB_LowerKEntered: bool
    GB_SymmetricK: bool
    GB_SymmetricMult: bool
    GB_AsymmetricMult: bool
    GB_ShowLimits: bool
    GB_KeyOn: int
    GB_FARisk: float
    GB_FRRisk: float
    GB_FARiskUnits: str
    GB_FRRiskUnits: str
    GB_EqAccRat: float
    GB_IncludeEqAccRat: bool
    GB_EqAccRatValid: bool
    IncludeUncertainty: bool
    ProcessUncertainty: float
    ProcessUncertainty_fmt: str
    Process_DegFreedom: float
    Total_DegFreedom: float
    IncludeMTEBias: bool
    ErrorSourceName: FieldArray
    ErrTableText: FieldArray
    ErrTableDisplay: FieldArray
    CorrelationMatrix: FieldArray
    Stat_SampleSize: FieldArray
    Stat_SampleMean: FieldArray
    Stat_SampleStdDev: FieldArray
    Stat_SampleFmt: FieldArray
    Stat_Value5: FieldArray
    Stat_Value6: FieldArray
    Stat_tStatistic: FieldArray
    Stat_Value8: FieldArray
    Stat_Include: FieldArray
    Stat_Sample: FieldArray
    Stat_SampleInclude: FieldArray
    Stat_Flag1: FieldArray
    Stat_Flag2: FieldArray
    Obs_PctInTol: float
    Obs_PctInTol_fmt: str
    Obs_TruePct: float
    Obs_TruePct_fmt: str
    Obs_Flag1: bool
    Obs_Flag2: bool
    Obs_Value1: float
    Obs_Value2: float
    RelWorksheetTarget: str
    Obs_Manufacturer: str
    Obs_ModelNumber: str
    Obs_Description: str
    Obs_ParameterName: str
    Obs_AOP: float
    Obs_Offset: float
    Obs_Units: str
    Obs_ObservingUnitOption: int
    SMPC_Sigma: FieldArray
    SMPC_InTolProb: FieldArray
    SMPC_Bias: FieldArray
    SMPC_Limits: FieldArray
    SMPC_Tolerance: FieldArray
    SMPC_PctInTol: FieldArray
    SMPC_TrueOffset: float
    SMPC_Computed: bool
    SMPC_SUUncertainty: float
    SMPC_MTEUncertainty: float
    SMPC_CoverageFactor: float
    SMPC_CoverageFactor_fmt: str
    SMPC_Reserved: float
    SMPC_Confidence: float
    SMPC_Confidence_fmt: str
    SMPC_UseCoverageFactor: bool
    Rel_Theta: FieldArray
    Rel_Model: FieldArray
    Rel_ModelIndex: FieldArray
    Rel_Interval: FieldArray
    Rel_Interval_fmt: FieldArray
    Rel_IntervalUnits: FieldArray
    Rel_BOP: FieldArray
    Rel_BOP_fmt: FieldArray
    Rel_AOP: FieldArray
    Rel_AOP_fmt: FieldArray
    Rel_EOP: FieldArray
    Rel_EOP_fmt: FieldArray
    Rel_UserPct: FieldArray
    Rel_UserTime: FieldArray
    Rel_UserPct_fmt: FieldArray
    Rel_UserTimeUnits: FieldArray
    Rel_BiasOption: FieldArray
    Delimiter: str
    IncludeOrganization: bool
    Organization: str
    IncludeDepartment: bool
    Department: str
    ApprovingDepartment: str
    IncludeApprovingDepartment: bool
    Submitter: str
    IncludeSubmitter: bool
    IncludeApprover: bool
    Approver: str
    IncludeFileName: bool
    IncludeRemarks: bool
    IncludeDate: bool
    IncludeTime: bool
    Remarks: str
    SUPlot_ShowTolerances: bool
    MTEPlot_ShowOffsets: bool
    ErrorPlot_Flag: bool
    MTEPlot_IncludeUncertainty: bool
    ErrorPlot_Param: str
    ErrorPlot_Units: str
    ErrorPlot_UnitName: str
    ErrorPlot_UnitsFactor: float
    MTEPlot_Title: str
    SUPlot_Zoom: float
    MTEPlot_Zoom: float
    ErrorPlot_Zoom: float
    SUPlot_UseMTETols: bool
    MTEPlot_UseSUTols: bool
    Last_Mode: float
    Last_UpperLimit: float
    Last_LowerLimit: float
    Last_PctInTol: float
    Last_PhysicalLimit: float
    Last_MTEMode: float
    Last_MTEUpperLimit: float
    Last_MTELowerLimit: float
    Last_MTEPctInTol: float
    Last_MTESigma: float
    Last_IncludeUncertainty: bool
    Last_MTEDegFreedom: float
    Last_MTEStdUncertainty: float
    Last_OptTwoSided: bool
    Last_OptSingleUpper: bool
    Last_OptSingleLower: bool
    Last_PhysLimitRequired: bool
    Last_IncludeGuardbands: bool
    Last_GBUpper: float
    Last_GBLower: float
    Last_Base1: int
    Last_Base2: int
    Last_Base3: int
    Last_Base4: int
    AnalysisFileName: str
    LastAnalysisName: str
    FileChanged: bool
    FileReadOnly: bool
    ComputeNeeded: bool
    ComputeScope: str
    AbortFlag: bool
    SearchAbort: bool
    Computing: bool
    EntryBoxChanged: bool
    RisksNeedCompute: bool
    RisksComputed: bool
    ResultsStale: bool
    SilentFault: str
    ComputeRequested: bool
    NothingChanged: bool
    GuardbandsUnchanged: bool
    BaselineUnchanged: bool
    BaselineComputed: bool
    LimitsReformed: bool
    LoadInProgress: bool
    ObservedWorksheetOpen: bool
    UncertaintyWorksheetOpen: bool
    GB_ScreenOpen: bool
    GB_RatioRequest: bool
    GB_MainStale: bool
    GB_RisksStale: bool
    ObservedIgnoresGuardbands: bool
    MTE_KUsed: bool
    OffsetFromUncertainty: bool
    SymmetryChanged: bool
    FirstDisplay: bool
    Rel_ActiveSlot: int
    OffsetsInNominalUnits: bool
    Ack100Pct: bool
    AckPhysLimitLow: bool
    AckPhysLimitHigh: bool
    DirectCompute: bool
    DirectComputeChanged: bool

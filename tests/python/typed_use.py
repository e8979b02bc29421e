"""Checked by mypy alone: how a typed program uses the package."""

import numpy as np

import metrisk

result: metrisk.Result = metrisk.risks(
    nominal=10.0, tol=[0.5, 0.4], su_pct=95, mte_u=np.array([0.1, 0.2]), sided="two", want=("risks", "tur")
)
accept: float = float(result["FalseAccept"][0])
guarded = metrisk.guardband(fa=0.02, nominal=10, tol=0.5, su_pct=95, mte_u=0.1)
first, second = metrisk.baseline(4)
b: float = metrisk.solve_reliability(3, 12, 0.99, 0.95, 0.9)["b"]
analysis = metrisk.Analysis.load("dmm.mrk").entries(tol="0.5 mV").set(SU_Description="DMM")
analysis.SU_PctInTol = 95
reliability: float = analysis.Rel_BOP[1]
figures: dict[str, object] = analysis.compute()
shares = metrisk.observed(true=[90, 95], template=analysis)
try:
    metrisk.risks(su_pct=200, errors="raise")
except metrisk.MetriskError as fault:
    index: tuple[int, ...] = fault.index

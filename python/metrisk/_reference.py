"""Figures that need no test point: the reference case, and reliability over time."""

from __future__ import annotations

import numpy as _np

from . import _metrisk
from ._arrays import _numbers


def _check_model(model) -> None:
    if isinstance(model, bool) or not isinstance(model, int):
        raise TypeError("model: its number in reliability_models()")


def _producer(convention: str) -> bool:
    if convention not in ("consumer", "producer"):
        raise ValueError('convention: "consumer" or "producer"')
    return convention == "producer"


def baseline(ratio, mte_pct=85.0, su_pct=72.0, convention="consumer"):
    """False accept and false reject risk of the reference case, as arrays of fractions.

    ``ratio`` is that of the tolerances, the percentages are percent.
    """
    producer = _producer(convention)
    ratios, measuring, subject = _np.broadcast_arrays(
        _numbers("ratio", ratio), _numbers("mte_pct", mte_pct), _numbers("su_pct", su_pct)
    )
    accept, reject = _np.empty(ratios.shape), _np.empty(ratios.shape)
    for place in _np.ndindex(ratios.shape):
        accept[place], reject[place] = _metrisk.baseline(ratios[place], measuring[place], subject[place], producer)
    return accept, reject


def reliability(model: int, interval: float, a: float, b: float, c: float = 0.0) -> dict:
    """Reliability at the beginning of a period, in the mean over it, and at its end: ``bop``, ``aop``, ``eop``.

    ``reliability_models()`` lists the models; the interval is in the unit of time of the coefficients.
    """
    _check_model(model)
    return dict(zip(("bop", "aop", "eop"), _metrisk.reliability(model, interval, a, b, c)))


def solve_reliability(model: int, interval: float, bop: float, aop: float, eop: float) -> dict:
    """The coefficients ``a``, ``b``, ``c`` with which a model has these reliabilities, fractions.

    ``questionable`` tells that the form of the model may not suit them.
    """
    _check_model(model)
    a, b, c, sound = _metrisk.solve_reliability(model, interval, bop, aop, eop)
    return {"a": a, "b": b, "c": c, "questionable": not sound}


def reliability_models() -> dict[int, tuple[str, str]]:
    """Names and equations of the models, by their numbers."""
    return {number: (name, equation) for number, name, equation in _metrisk.reliability_models()}

"""True and observed % in-tolerance over arrays."""

from __future__ import annotations

import numpy as _np

from ._arrays import _STATUS, Result, _arrays_of, _numbers, _template_bytes
from ._errors import MetriskError
from ._objects import Analysis

_FIGURES = ("True", "Observed", "GB_UpperMult", "GB_LowerMult")
_ANY_PCT = 95.0  # what is fitted first: the shares do not depend on it
_SECOND = ("Exact", "Bound", "AgreeingDigits")


def observed(*, true=None, observed=None, guardbands=None, template=None, errors="nan", **columns) -> Result:
    """Observed from true % in-tolerance, or true from observed, as ``Analysis.observed`` converts them.

    ``true`` or ``observed`` are percent, one of them, and ``columns`` are the entries of ``risks``; all follow
    NumPy's broadcasting. The figures ``True`` and ``Observed`` are fractions; ``Exact`` is that of the two which
    was computed by the second integration, with its ``Bound``. A refused element has no figures, unless
    ``errors`` is "raise". An element costs about what a file does.
    """
    if (true is None) == (observed is None):
        raise ValueError("one of true and observed is wanted")
    if errors not in ("nan", "raise"):
        raise ValueError('errors: "nan" or "raise"')
    known = "true" if observed is None else "observed"
    for name in ("reading", "rule"):
        if name in columns:
            raise TypeError(f"no entry {name} of an analysis")
    shares = _numbers(known, true if observed is None else observed)
    arrays, texts = _arrays_of(columns)
    base = Analysis()
    if template is not None:
        base = base._of_bytes(_template_bytes(template))
    shape = _np.broadcast_shapes(shares.shape, *(array.shape for array in arrays.values()))
    figures = {name: _np.full(shape, _np.nan) for name in (*_FIGURES, *_SECOND)}
    status = _np.zeros(shape, dtype=_np.uint8)
    messages = {}
    spread = {name: _np.broadcast_to(array, shape) for name, array in {**arrays, known: shares}.items()}
    for flat, place in enumerate(_np.ndindex(shape)):
        entries = {}
        for name, array in spread.items():
            value = array[place]
            if name in texts:
                entries[name] = texts[name][value] if value >= 0 else None
            else:
                entries[name] = None if _np.isnan(value) else float(value)
        share = entries.pop(known)
        try:
            if share is None:
                raise MetriskError((), f"no {known} % in-tolerance")
            if not base.SU_PctInTol and not {"su_pct", "passed", "tested"} & entries.keys():
                entries["su_pct"] = share if 0 < share < 100 else _ANY_PCT
            found = base.copy().entries(**entries).observed(**{known: share}, guardbands=guardbands)
        except MetriskError as fault:
            text = f"{fault.title}: {fault.text}" if fault.title else fault.text
            if errors == "raise":
                raise MetriskError(place, text) from None
            status[place] = _STATUS.index("refused")
            messages[flat] = text
            continue
        for name in _FIGURES:
            figures[name][place] = found[name]
        second = found["Verified"]["Observed" if known == "true" else "True"]
        if second:
            digits = found["AgreeingDigits"]
            figures["Exact"][place], figures["Bound"][place] = second["value"], second["bound"]
            figures["AgreeingDigits"][place] = digits
    return Result(figures, status, messages)

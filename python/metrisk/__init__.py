"""Measurement decision risk over arrays of test points.

Every function takes the entries of a test as keyword arguments, each a number, a text where the entry is one, or
an array of them; arrays follow NumPy's broadcasting. ``nan`` and masked elements name nothing, as an argument
that is left out. One consistent unit is the caller's matter: no unit is ever guessed. Risks are fractions,
percentages are percent. ``entry_columns()`` lists the entries, ``figure_columns()`` the figures.

``Analysis`` is one analysis as an object, with every field of its file.

The figures of an element are those that ``metrisk-cli rows`` gives for it as a row, to the bit, whatever the
other elements, their order or the number of threads.
"""

from __future__ import annotations

from . import _metrisk

if not _metrisk.in_main_interpreter():
    raise ImportError("metrisk runs in the main interpreter alone")

from ._arrays import Result, decide, entry_columns, exact, figure_columns, guardband, ratio, risks, worst
from ._errors import MetriskError
from ._reference import baseline, reliability, reliability_models, solve_reliability

__version__ = _metrisk.version
__all__ = [
    "Analysis",
    "FieldArray",
    "MetriskError",
    "Result",
    "baseline",
    "decide",
    "entry_columns",
    "exact",
    "figure_columns",
    "guardband",
    "observed",
    "ratio",
    "reliability",
    "reliability_models",
    "risks",
    "solve_reliability",
    "worst",
]


def __getattr__(name: str):
    """Objects draw reports: what that takes is loaded where one is asked for."""
    if name in ("Analysis", "FieldArray"):
        from . import _objects

        return getattr(_objects, name)
    if name == "observed":
        from ._observed import observed

        return observed
    raise AttributeError(f"module 'metrisk' has no attribute '{name}'")


def __dir__():
    return sorted({*globals(), *__all__})

"""Figures of arrays of test points."""

from __future__ import annotations

import os
from collections.abc import Iterator, Mapping

import numpy as _np

from . import _metrisk
from ._errors import MetriskError

_ENTRIES = {each["name"]: each for each in _metrisk.entry_columns() if each["name"] not in ("area", "unit")}
_FIELDS = {each["field"]: name for name, each in _ENTRIES.items() if each["field"]}
_FIGURES = {each["name"]: each for each in _metrisk.figure_columns()}
_TEXTS = {name for name, each in _ENTRIES.items() if each["kind"] in ("text", "word")}
_STATUS = ("ok", "note", "refused", "bad")

# Of each kind an element may name one form.
_FORMS = (
    ({"tol", "tol_upper", "tol_lower", "tol_pct"}, {"upper", "lower"}),
    ({"su_pct"}, {"passed", "tested"}),
    ({"mte_tol", "mte_tol_pct"}, {"mte_u"}, {"mte_expanded"}, {"tur"}, {"mte_ratio"}),
    ({"gb", "gb_upper", "gb_lower"}, {"gb_k", "gb_k_upper", "gb_k_lower"}, {"accept_upper", "accept_lower"}),
)


class Result(Mapping):
    """Figures by their names, as a mapping and as attributes; each an array of the shape of the arguments.

    ``status`` is 0 for ok, 1 where something is told beside the figures (``message``), 2 where the entries were
    refused, 3 where they could not be read. Without a figure there is ``nan``, ``None`` for texts and ``False``
    for flags.
    """

    def __init__(self, figures: dict, status, messages: dict) -> None:
        self._figures = figures
        self._messages = messages
        self.status = status

    def __getitem__(self, name: str):
        return self._figures[name]

    def __iter__(self) -> Iterator[str]:
        return iter(self._figures)

    def __len__(self) -> int:
        return len(self._figures)

    def __getattr__(self, name: str):
        if name.startswith("_") or name not in self._figures:
            raise AttributeError(name)
        return self._figures[name]

    def __dir__(self):
        return [*super().__dir__(), *self._figures]

    def __repr__(self) -> str:
        return f"<metrisk.Result of shape {self.status.shape}: {', '.join(self._figures)}>"

    def message(self, index=()) -> str:
        """What is told of that element; empty if nothing is."""
        shape = self.status.shape
        indices = (index if isinstance(index, tuple) else (index,)) or (0,) * len(shape)
        if len(indices) != len(shape):
            raise IndexError(f"{len(shape)} indices are wanted")
        place = 0
        for i, length in zip(indices, shape):
            if not -length <= i < length:
                raise IndexError(f"no element {index}")
            place = place * length + i % length
        return self._messages.get(int(place), "")

    def messages(self) -> dict:
        """The messages of all elements that are not ok, by their indices."""
        shape = self.status.shape
        return {
            tuple(int(i) for i in _np.unravel_index(place, shape)) if len(shape) != 1 else place: text
            for place, text in self._messages.items()
        }

    def to_dict(self) -> dict:
        """Figures and status as a plain dictionary of arrays."""
        return {**self._figures, "status": self.status}


def entry_columns() -> list[dict]:
    """The entries that can be named, in the order in which they are put in."""
    return [dict(each) for each in _ENTRIES.values()]


def figure_columns() -> list[dict]:
    """The figures that can be wanted, by the words of ``want``."""
    return [dict(each) for each in _FIGURES.values()]


def _numbers(name: str, value) -> _np.ndarray:
    if isinstance(value, _np.ma.MaskedArray):
        data, mask = value.data, _np.ma.getmaskarray(value)
    else:
        data, mask = _np.asarray(value), None
    kind = data.dtype.kind
    if kind not in "fiu":
        raise TypeError(f"{name}: numbers are wanted, not {data.dtype}")
    numbers = data.astype(_np.float64)
    if kind in "iu":
        large = _np.abs(numbers) >= 2.0**53  # from there on a whole number may have no double of its own
        if large.any():
            exact = [int(x) == int(y) for x, y in zip(data[large].ravel(), numbers[large].ravel())]
            if not all(exact):
                raise ValueError(f"{name}: a whole number above 2^53 has no exact double")
    elif data.dtype.itemsize > 8 and not _np.array_equal(numbers.astype(data.dtype), data, equal_nan=True):
        raise TypeError(f"{name}: {data.dtype} holds more than a double")
    if mask is not None:
        numbers = _np.where(mask, _np.nan, numbers)
    return numbers


def _codes(name: str, value) -> tuple[_np.ndarray, list[str]]:
    if isinstance(value, _np.ma.MaskedArray):
        value = _np.where(_np.ma.getmaskarray(value), None, value.data)
    data = _np.asarray(value, dtype=object)
    codes = _np.empty(data.shape, dtype=_np.int32)
    texts: dict[str, int] = {}
    for place, text in _np.ndenumerate(data):
        if text is None or text is _np.ma.masked or (isinstance(text, float) and text != text):
            codes[place] = -1
        elif isinstance(text, str):
            codes[place] = texts.setdefault(text, len(texts))
        else:
            raise TypeError(f"{name}: texts are wanted, not {type(text).__name__}")
    return codes, list(texts)


def _arrays_of(columns: dict) -> tuple[dict, dict]:
    """Entries by their names, or by those of their fields; and the texts of those that are codes."""
    arrays: dict = {}
    texts: dict = {}
    for given, value in columns.items():
        name = _FIELDS.get(given, given)
        if name not in _ENTRIES:
            raise TypeError(f"no entry {given}")
        if value is None:
            continue
        if name in arrays:
            raise ValueError(f"{name} given twice, as {given}")
        if name in _TEXTS:
            arrays[name], texts[name] = _codes(given, value)
        else:
            arrays[name] = _numbers(given, value)
    _check_forms(arrays)
    return arrays, texts


def _check_forms(arrays: dict) -> None:
    whole = {name for name, array in arrays.items() if array.size and not _absent(array).any()}
    for forms in _FORMS:
        named = [sorted(whole & form) for form in forms if whole & form]
        if len(named) > 1:
            raise ValueError(f"{named[0][0]} and {named[1][0]} both given")


def _absent(array: _np.ndarray) -> _np.ndarray:
    return array < 0 if array.dtype == _np.int32 else _np.isnan(array)


def _template_bytes(template) -> bytes | None:
    if template is None:
        return None
    if isinstance(template, bytes):
        return template
    if hasattr(template, "to_bytes"):  # an analysis as an object
        return template.to_bytes()
    with open(os.fspath(template), "rb") as file:
        return file.read()


def risks(*, want=("risks", "tur"), template=None, threads=0, errors="nan", counts="estimate", **columns) -> Result:
    """Risks and other figures of test points.

    Each keyword of ``columns`` is an entry (``entry_columns()``), by its name or that of its field: lengths in one unit of the caller's choice,
    percentages in percent, ``sided``, ``convention``, ``eq_on`` and ``rule`` as texts. ``want`` names the words of
    figures, as in ``want=("risks", "exact")`` or ``"risks,guardband:fa=2%"``. ``template`` is an analysis file
    that fills what is not named, by its path, its bytes or as an ``Analysis``; else a new analysis does. ``threads`` of 0 are as many
    as there are cores. ``counts`` says what ``passed`` of ``tested`` stands for.

    Raises TypeError and ValueError for arguments that cannot be, before anything is computed. Elements that are
    refused have no figures, unless ``errors`` is "raise": then MetriskError tells the first of them.

    False accept and false reject risk: the joint probabilities of a subject parameter and its measurement by
    100-point Gauss-Legendre integration over the tolerance; ``exact`` is by adaptive integration with a bound.
    """
    if errors not in ("nan", "raise"):
        raise ValueError('errors: "nan" or "raise"')
    if isinstance(threads, bool) or not isinstance(threads, int) or not 0 <= threads < 2**31:
        raise ValueError("threads: a whole number, 0 for as many as there are cores")
    wanted = want if isinstance(want, str) else ",".join(want)
    arrays, texts = _arrays_of(columns)
    shape = _np.broadcast_shapes(*(array.shape for array in arrays.values()))
    size = 1
    for length in shape:
        size *= length
    entries = []
    for name, array in arrays.items():
        if array.size != 1 or size == 0:
            array = _np.broadcast_to(array, shape)
        flat = _np.ascontiguousarray(array).reshape(-1)
        entries.append((name, flat, texts[name]) if name in texts else (name, flat))
    answer = _metrisk.compute(entries, size, wanted, counts, _template_bytes(template), threads)

    status = answer["status"].reshape(shape)
    figures = {}
    for name, values in answer["figures"].items():
        kind = _FIGURES[name]["kind"]
        if kind == "flag":
            values = values == 1
        elif kind == "text":
            words = _np.array([*_FIGURES[name]["texts"], None], dtype=object)
            values = words[_np.where(_np.isnan(values), len(words) - 1, values).astype(int)]
        figures[name] = _np.asarray(values).reshape(shape)
    result = Result(figures, status, answer["messages"])
    if errors == "raise":
        failed = _np.flatnonzero(answer["status"] >= _STATUS.index("refused"))
        if failed.size:
            index = tuple(int(i) for i in _np.unravel_index(failed[0], shape)) if shape else ()
            raise MetriskError(index, answer["messages"][int(failed[0])])
    return result


def _with_word(word: str, columns: dict) -> Result:
    want = columns.pop("want", ("risks", "tur"))
    words = want.split(",") if isinstance(want, str) else list(want)
    for each in words:
        if each.strip().partition(":")[0] == word.partition(":")[0] and each.strip() != word:
            raise ValueError(f"{each.strip()} is wanted beside {word}")
    return risks(want=words if word in words else [*words, word], **columns)


def ratio(**columns) -> Result:
    """``risks`` with the equivalent accuracy ratio, ``EqAccRat``."""
    return _with_word("ratio", columns)


def exact(**columns) -> Result:
    """``risks`` with those of the second integration and their bounds."""
    return _with_word("exact", columns)


def worst(**columns) -> Result:
    """``risks`` with the largest joint false accept risk over an unknown % in-tolerance, ``WorstFalseAccept``."""
    return _with_word("worst", columns)


def decide(*, rule="simple", **columns) -> Result:
    """``risks`` with the verdict on ``reading`` by a decision rule, as in ``rule="guard=1"``."""
    return _with_word("decide", {**columns, "rule": rule})


def guardband(*, fa=None, fr=None, equal=False, k=False, **columns) -> Result:
    """``risks`` with the symmetric guardband for a target: one of ``fa`` and ``fr``, fractions, or ``equal`` risks.

    With ``k`` the solution is a k-factor.
    """
    if (fa is not None) + (fr is not None) + bool(equal) != 1:
        raise ValueError("one of fa, fr and equal is wanted")
    for risk in (fa, fr):
        if risk is not None and not 0 < risk < 1:
            raise ValueError("a target is a fraction between 0 and 1")
    target = "equal" if equal else f"fa={fa * 100!r}%" if fa is not None else f"fr={fr * 100!r}%"
    return _with_word(f"guardband:{target}{':k' if k else ''}", columns)

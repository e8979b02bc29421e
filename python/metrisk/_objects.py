"""Analyses as objects: the fields of the record as attributes."""

from __future__ import annotations

import json
import os
from collections.abc import Iterator, Mapping

from . import _analysis
from ._errors import MetriskError

_FIELDS = {each["name"]: each for each in _analysis.field_columns()}
_SECTIONS = tuple(_analysis.report_sections())


def _text(name: str, value) -> str:
    """As a cell of a table has it, with all digits of a number."""
    if isinstance(value, str):
        return value
    if hasattr(value, "item") and getattr(value, "ndim", 0) == 0:
        value = value.item()  # of NumPy
    if isinstance(value, bool):
        return "true" if value else "false"
    if isinstance(value, (int, float)):
        return repr(value)
    raise TypeError(f"{name}: a number, a text or a flag is wanted, not {type(value).__name__}")


class FieldArray:
    """An array field of an analysis, or a row of one; counted from where the record counts, mostly from 1."""

    __slots__ = ("_analysis", "_name", "_ranges")

    def __init__(self, analysis: Analysis, name: str, ranges) -> None:
        self._analysis = analysis
        self._name = name
        self._ranges = ranges

    def _place(self, index) -> tuple[str, list]:
        indices = index if isinstance(index, tuple) else (index,)
        if len(indices) > len(self._ranges):
            raise IndexError(f"{self._name} has {len(self._ranges)} dimensions")
        name = self._name
        for i, (first, last) in zip(indices, self._ranges):
            if isinstance(i, bool) or not hasattr(i, "__index__"):
                raise TypeError(f"{name}: an index is a whole number")
            if not first <= i.__index__() <= last:
                raise IndexError(f"{name}[{i}]: counted from {first} to {last}")
            name += f"[{i.__index__()}]"
        return name, self._ranges[len(indices) :]

    def __getitem__(self, index):
        name, rest = self._place(index)
        return FieldArray(self._analysis, name, rest) if rest else self._analysis._record.field(name)

    def __setitem__(self, index, value) -> None:
        name, _ = self._place(index)
        self._analysis.set({name: value})

    def __len__(self) -> int:
        first, last = self._ranges[0]
        return last - first + 1

    def __iter__(self) -> Iterator:
        first, last = self._ranges[0]
        return (self[i] for i in range(first, last + 1))

    def __reversed__(self) -> Iterator:
        return reversed(list(self))

    def __eq__(self, other) -> bool:
        if isinstance(other, FieldArray):
            other = other.tolist()
        return self.tolist() == other

    def __repr__(self) -> str:
        return f"<{self._name}: {self.tolist()}>"

    def tolist(self) -> list:
        return [each.tolist() if isinstance(each, FieldArray) else each for each in self]


class _IntoNew:
    """A method that, asked of the class, works on a new object."""

    def __init__(self, function) -> None:
        self._function = function
        self.__doc__ = function.__doc__

    def __get__(self, thing, owner):
        return self._function.__get__(owner() if thing is None else thing)


class Analysis:
    """One analysis: entries, options and results, as a file of it holds them.

    Every field of the record is an attribute and an item under its own name (``a.SU_Mode``,
    ``a["Rel_BOP[1]"]``); flags are bool, arrays count from 1. Setting one is what ``metrisk-cli set`` does: it is
    refused where a file could not hold it, and what follows from it follows. ``MetriskError`` tells why something
    was refused; the analysis is then as it was. Two are equal whose files would be. Threads that share one take
    turns, act by act. No settings of a user are read.
    """

    __slots__ = ("_record",)
    __hash__ = None  # it changes

    def __init__(self) -> None:
        object.__setattr__(self, "_record", _analysis.Record())

    @_IntoNew
    def load(self, path) -> Analysis:
        """The analysis of a file of any version, in place of this one: ``Analysis.load(path)`` gives a new object.

        Raises OSError where the file cannot be opened and MetriskError where it is no analysis.
        """
        name = _full(path)
        with open(name, "rb"):
            pass
        if not self._record.load(os.fsencode(name)):
            raise self._refusal()
        return self

    @_IntoNew
    def from_dict(self, fields: Mapping) -> Analysis:
        """The analysis that ``to_dict`` has written; fields that are not named are those of a new one.

        Results and what is derived are formed as a file of it would be read.
        """
        if not self._record.take_json(json.dumps(fields)):
            raise self._refusal()
        return self

    def _of_bytes(self, content: bytes) -> Analysis:
        if not self._record.load_text(content):
            raise self._refusal()
        return self

    def to_dict(self) -> dict:
        """Every field by its name, as ``metrisk-cli show --json`` prints it; arrays are lists."""
        return json.loads(self._record.json())

    def to_bytes(self) -> bytes:
        """The content of its file, as ``save`` writes it."""
        return self._record.bytes()

    def save(self, path, force: bool = False) -> str:
        """Writes the file as a whole, under the name of an analysis file, which is returned.

        Raises FileExistsError where there is one already and ``force`` does not replace it, and OSError.
        """
        name = os.fsdecode(_analysis.file_name(os.fsencode(_full(path))))
        _write(name, self.to_bytes(), force)
        return name

    def set(self, fields: Mapping | None = None, /, **named) -> Analysis:
        """Sets fields by their names, as in ``set({"Rel_BOP[1]": 0.9}, SU_Mode=10)``: all of them or none.

        A list sets a whole array.
        """
        self._put({}, {**(fields or {}), **named})
        return self

    def entries(self, *, counts: str = "estimate", **entries) -> Analysis:
        """Puts entries of a test in, as in ``entries(nominal=10, tol="0.5 mV", su_pct="19/20")``: all or none.

        The names are those of ``entry_columns()`` with ``area`` and ``unit``; a text may bear its unit, and a
        number is in nominal units. ``counts`` says what passed of tested items stands for.
        """
        self._put({name: value for name, value in entries.items() if value is not None}, {}, counts)
        return self

    def compute(self, *, k: float | str = "") -> dict:
        """Computes risks and ratio, which the fields then hold; all figures as ``metrisk-cli compute`` gives them.

        Risks are fractions there; ``Verified`` holds those of the second integration with their bounds. ``k`` is
        the coverage factor of the expanded uncertainty, or a percentage as a text.
        """
        figures = self._record.compute(str(k))
        if figures is None:
            raise self._refusal()
        return json.loads(figures)

    def observed(self, *, true=None, observed=None, guardbands: str | None = None) -> dict:
        """Observed from true % in-tolerance, or true from observed, both in percent; the analysis stays.

        ``guardbands`` is "use", "ignore" or, with a true one, "equalize"; otherwise as the analysis says.
        """
        if (true is None) == (observed is None):
            raise ValueError("one of true and observed is wanted")
        if guardbands not in (None, "use", "ignore", "equalize"):
            raise ValueError('guardbands: "use", "ignore" or "equalize"')
        if guardbands == "equalize" and true is None:
            raise ValueError("guardbands are equalized for a true % in-tolerance")
        texts = ["" if each is None else _text("percentage", each) or " " for each in (true, observed)]
        figures = self._record.observed(*texts, guardbands or "")
        if figures is None:
            raise self._refusal()
        return json.loads(figures)

    def report(
        self, path, sections=("risk",), *, reading=None, rule="simple", prior=False, k="", font="Arial",
        organization=None, paper="a4", force=False,
    ) -> str:  # fmt: skip
        """Writes a report as PDF, Rich Text (.doc) or HTML (.htm), by the end of the name, which is returned.

        ``sections`` are any of "risk", "plots", "uncertainty", "error" and, with a ``reading`` that a ``rule``
        judges, "decision". The analysis stays as it is.
        """
        chosen = [sections] if isinstance(sections, str) else list(sections)
        for section in chosen:
            if section not in _SECTIONS:
                raise ValueError(f"sections: any of {', '.join(_SECTIONS)}")
        if ("decision" in chosen) != (reading is not None):
            raise ValueError("the section decision and a reading go together")
        if paper not in ("a4", "letter"):
            raise ValueError('paper: "a4" or "letter"')
        name = _full(path)
        if not name.lower().endswith((".pdf", ".doc", ".htm")):
            raise ValueError("a report ends in .pdf, .doc or .htm")
        measured = None if reading is None else _text("reading", reading)
        letter = paper == "letter"
        content = self._record.report(os.fsencode(name), chosen, measured, rule, bool(prior), str(k), font, organization, letter)
        if content is None:
            raise self._refusal()
        _write(name, content, force)
        return name

    @property
    def messages(self) -> list[tuple[str, str, str]]:
        """What the last act told: title, text and the answer that was given."""
        return self._record.messages()

    def copy(self) -> Analysis:
        twin = Analysis()
        object.__setattr__(twin, "_record", _analysis.Record(self._record))
        return twin

    __copy__ = copy

    def __deepcopy__(self, memo) -> Analysis:
        return self.copy()

    def __reduce__(self):
        return _restored, (self._record.json(),)

    def __eq__(self, other) -> bool:
        if not isinstance(other, Analysis):
            return NotImplemented
        return self._record.same(other._record)

    def __getitem__(self, name: str):
        field, bracket, _ = name.partition("[")
        if field not in _FIELDS:
            raise KeyError(name)
        ranges = _FIELDS[field]["ranges"]
        return FieldArray(self, field, ranges) if ranges and not bracket else self._record.field(name)

    def __setitem__(self, name: str, value) -> None:
        if name.partition("[")[0] not in _FIELDS:
            raise KeyError(name)
        self.set({name: value})

    def __getattr__(self, name: str):
        if name not in _FIELDS:
            raise AttributeError(name)
        return self[name]

    def __setattr__(self, name: str, value) -> None:
        if name not in _FIELDS:
            raise AttributeError(f"{name} is no field")
        if _FIELDS[name]["not_settable"]:
            raise AttributeError(_FIELDS[name]["not_settable"])
        self.set({name: value})

    def __dir__(self):
        return [*super().__dir__(), *_FIELDS]

    def __repr__(self) -> str:
        names = [self.SU_ModelNumber or self.SU_Description, self.SU_ParameterName]
        told = ", ".join(name for name in names if name)
        return f"<metrisk.Analysis{': ' if told else ''}{told}, nominal {self.SU_Mode:.15g} {self.NominalUnits}>"

    def _put(self, entries: dict, fields: dict, counts: str = "estimate") -> None:
        named = [(name, _text(name, value)) for name, value in entries.items()]
        elements = [each for name, value in fields.items() for each in _elements(name, value)]
        wrong, done = self._record.put(named, elements, counts)
        if wrong:
            raise ValueError(wrong)
        if not done:
            raise self._refusal()

    def _refusal(self) -> MetriskError:
        """Of what was told, that which refused: the last."""
        told = self.messages
        title, text, _ = told[-1] if told else ("", "refused", "")
        return MetriskError((), f"{title}: {text}" if title else text)


def _elements(name: str, value) -> list[tuple[str, str]]:
    """The elements of a field with their texts; of an array all that the value has."""
    if isinstance(value, FieldArray) or hasattr(value, "tolist"):
        value = value.tolist()
    if not isinstance(value, (list, tuple)):
        return [(name, _text(name, value))]
    field, bracket, _ = name.partition("[")
    ranges = _FIELDS[field]["ranges"] if field in _FIELDS else []
    depth = name.count("[") if bracket else 0
    if depth >= len(ranges):
        raise TypeError(f"{name} takes one value")
    first, last = ranges[depth]
    if len(value) != last - first + 1:
        raise ValueError(f"{name} is an array of {last - first + 1}")
    return [each for i, item in enumerate(value, first) for each in _elements(f"{name}[{i}]", item)]


def _restored(text: str) -> Analysis:
    made = Analysis()
    if not made._record.restore(text):
        raise made._refusal()
    return made


def _full(path) -> str:
    return os.path.abspath(os.fsdecode(os.fspath(path)))


def _write(name: str, content: bytes, force: bool) -> None:
    error = _analysis.write(os.fsencode(name), content, bool(force))
    if error:
        raise OSError(error, os.strerror(error), name)

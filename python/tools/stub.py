"""Writes the typed stub of the package: its keyword arguments are the entries, by their own table."""

import sys

from metrisk import _analysis, _metrisk

COUNTS = 'Literal["estimate", "lower", "median", "observed"]'
OF_ANALYSIS = [each for each in _metrisk.entry_columns() if each["name"] not in ("reading", "rule")]
ENTRIES = [each for each in _metrisk.entry_columns() if each["name"] not in ("area", "unit")]

HEAD = '''\
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
'''

TAIL = '''\
def baseline(
    ratio: npt.ArrayLike, mte_pct: npt.ArrayLike = ..., su_pct: npt.ArrayLike = ..., convention: str = ...
) -> tuple[npt.NDArray[np.float64], npt.NDArray[np.float64]]: ...
def reliability(model: int, interval: float, a: float, b: float, c: float = ...) -> dict[str, float]: ...
def solve_reliability(model: int, interval: float, bop: float, aop: float, eop: float) -> dict[str, Any]: ...
def reliability_models() -> dict[int, tuple[str, str]]: ...
'''


ANALYSIS = '''\
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
'''
KINDS = {"text": "str", "flag": "bool", "whole": "int", "number": "float"}


def analysis() -> str:
    lines = ["    def entries(", "        self,", "        *,", f"        counts: {COUNTS} = ...,"]
    lines += [f"        {each['name']}: float | str | None = ...," for each in OF_ANALYSIS]
    lines.append("    ) -> Analysis: ...")
    for each in _analysis.field_columns():
        lines.append(f"    {each['name']}: {'FieldArray' if each['ranges'] else KINDS[each['kind']]}")
    return ANALYSIS + "\n".join(lines) + "\n"


def kind_of(entry: dict) -> str:
    return "_Texts" if entry["kind"] in ("text", "word") else "_Numbers"


def function(name: str, own: list[str], without: tuple[str, ...] = ()) -> str:
    lines = [f"def {name}(", "    *,", *(f"    {each}," for each in own)]
    lines += [
        "    want: str | Iterator[str] | list[str] | tuple[str, ...] = ...,",
        "    template: _Template = ...,",
        "    threads: int = ...,",
        '    errors: Literal["nan", "raise"] = ...,',
        f"    counts: {COUNTS} = ...,",
    ]
    for each in ENTRIES:
        if each["name"] not in without:
            lines.append(f"    {each['name']}: {kind_of(each)} = ...,")
    return "\n".join([*lines, ") -> Result: ..."]) + "\n"


def observed() -> str:
    lines = ["def observed(", "    *,", "    true: _Numbers = ...,", "    observed: _Numbers = ...,"]
    lines += ["    guardbands: _Guardbands = ...,", "    template: _Template = ...,"]
    lines.append('    errors: Literal["nan", "raise"] = ...,')
    lines += [f"    {each['name']}: {kind_of(each)} = ...," for each in ENTRIES if each in OF_ANALYSIS]
    return "\n".join([*lines, ") -> Result: ..."]) + "\n"


def stub() -> str:
    targets = ["fa: float | None = ...", "fr: float | None = ...", "equal: bool = ...", "k: bool = ..."]
    return (
        HEAD
        + function("risks", [])
        + function("ratio", [])
        + function("exact", [])
        + function("worst", [])
        + function("decide", ["rule: _Texts = ..."], ("rule",))
        + function("guardband", targets)
        + observed()
        + TAIL
        + analysis()
    )


if __name__ == "__main__":
    sys.stdout.write(stub())

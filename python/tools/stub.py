"""Writes the typed stub of the package: its keyword arguments are the entries, by their own table."""

import sys

from metrisk import _metrisk

ENTRIES = [each for each in _metrisk.entry_columns() if each["name"] not in ("area", "unit")]

HEAD = '''\
# Made by python/tools/stub.py from the table of entries.
import os
from collections.abc import Iterator, Mapping
from typing import Any, Literal

import numpy as np
import numpy.typing as npt

__version__: str
__all__: list[str]

_Numbers = npt.ArrayLike | None
_Texts = str | npt.ArrayLike | None
_Template = str | bytes | os.PathLike[str] | None

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


def function(name: str, own: list[str], without: tuple[str, ...] = ()) -> str:
    lines = [f"def {name}(", "    *,", *(f"    {each}," for each in own)]
    lines += [
        "    want: str | Iterator[str] | list[str] | tuple[str, ...] = ...,",
        "    template: _Template = ...,",
        "    threads: int = ...,",
        '    errors: Literal["nan", "raise"] = ...,',
        '    counts: Literal["estimate", "lower", "median", "observed"] = ...,',
    ]
    for each in ENTRIES:
        if each["name"] not in without:
            kind = "_Texts" if each["kind"] in ("text", "word") else "_Numbers"
            lines.append(f"    {each['name']}: {kind} = ...,")
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
        + TAIL
    )


if __name__ == "__main__":
    sys.stdout.write(stub())

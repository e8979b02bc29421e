#!/usr/bin/env python3
"""What Python and SQL cost beside the points themselves: bench/doors.py [COUNT]

Each time is the fastest of five, all in one run beside its floor; ratios are of one thread to one thread.
"""

import os
import sqlite3
import subprocess
import sys
import time

BUILD = os.environ.get("BUILD", "build/release")
sys.path.insert(0, os.path.join(BUILD, "python"))

import numpy as np  # noqa: E402

import metrisk  # noqa: E402

COUNT = int(sys.argv[1]) if len(sys.argv) > 1 else 1_000_000


def floor(want, count):
    ran = subprocess.run([os.path.join(BUILD, "bench", "points_core"), str(count), want], capture_output=True, check=True)
    return float(ran.stdout)


def fastest(work, count):
    best = float("inf")
    for _ in range(5):
        start = time.perf_counter()
        work()
        best = min(best, time.perf_counter() - start)
    return best / count * 1e9


def numpy(want, threads):
    steps = np.arange(COUNT) / COUNT
    entries = {"nominal": 10.0, "tol": 0.5, "su_pct": 80 + 19 * steps, "mte_u": 0.02 + 0.2 * steps}
    return fastest(lambda: metrisk.risks(want=want, threads=threads, **entries), COUNT)


def sqlite(figure, count):
    database = sqlite3.connect(":memory:")
    database.enable_load_extension(True)
    database.load_extension(os.path.join(BUILD, "sql", "metrisk"))
    database.execute("create table points(nominal real, tol real, su_pct real, mte_u real)")
    rows = ((10.0, 0.5, 80 + 19 * i / count, 0.02 + 0.2 * i / count) for i in range(count))
    database.executemany("insert into points values (?,?,?,?)", rows)
    query = f"select sum({figure}(nominal, tol, su_pct, mte_u)) from points"
    return fastest(lambda: database.execute(query).fetchone(), count)


def main():
    print(f"{'':32}{'ns a point':>12}{'ratio':>8}")
    for want in ("risks,tur", "risks,tur,ratio"):
        core = floor(want, COUNT)
        print(f"{'floor: ' + want:32}{core:12.0f}{1:8.2f}")
        for threads in (1, 2):
            spent = numpy(want, threads)
            print(f"{f'NumPy, {threads} threads':32}{spent:12.0f}{spent / core:8.2f}")
    count = COUNT // 5
    for figure, want in (("metrisk_fa", "risks"), ("metrisk_fr", "risks"), ("metrisk_tur", "tur")):
        core, spent = floor(want, count), sqlite(figure, count)
        print(f"{f'SQLite, {figure}; floor {want}':32}{spent:12.0f}{spent / core:8.2f}")


if __name__ == "__main__":
    main()

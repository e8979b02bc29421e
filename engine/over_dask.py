"""Partitions of a table by one worker of Dask and by two, held to a plain run bit for bit; and the recipe of docs/engines.md
while one of the two is killed."""

import os
import subprocess
import sys
import time

import dask.dataframe
import numpy as np
import pandas as pd
from distributed import Client, LocalCluster, wait

import metrisk

ROWS = int(os.environ.get("METRISK_ROWS", "200000")) * 2
FIGURES = ("FalseAccept", "FalseReject", "TUR", "AccuracyRatio")
MORE = ("ExactFalseAccept", "ExactFalseReject")


def computed(part):
    return part.assign(**metrisk.risks(nominal=part.nominal, tol=part.tol, su_pct=part.su_pct, mte_u=part.mte_u,
                                       want="risks,tur,exact", threads=1))


def written(path):
    random = np.random.default_rng(11)
    pd.DataFrame({
        "nominal": np.round(random.uniform(1, 10, ROWS), 4),
        "tol": np.round(random.uniform(0.1, 1, ROWS), 4),
        "su_pct": np.round(random.uniform(50, 103, ROWS), 2),
        "mte_u": np.round(random.uniform(0.01, 0.3, ROWS), 4),
    }).to_csv(path, index=False)


def plain(path):
    ran = subprocess.run([os.environ["METRISK_CLI"], "rows", "-q", "--want", "risks,tur,exact", "--ok-if-answered", path,
                          "-o", "plain.csv"], check=False)
    assert ran.returncode == 0
    # The default of pandas reads a number to its last digit but one.
    return pd.read_csv("plain.csv", float_precision="round_trip")


def bits(column):
    numbers = np.array(column, dtype=float)
    numbers[np.isnan(numbers)] = np.nan  # one of its kind
    return numbers.view(np.int64)


class Workers:
    """Processes of one thread each, in the order in which they were started."""

    def __init__(self, address):
        self.address, self.processes = address, []

    def start(self, client, count):
        while len(self.processes) < count:
            command = [sys.executable, "-m", "distributed.cli.dask_worker", self.address, "--nthreads", "1", "--no-nanny",
                       "--no-dashboard", "--local-directory", os.getcwd()]
            with open(f"worker{len(self.processes)}.log", "wb") as log:
                self.processes.append(subprocess.Popen(command, stdout=log, stderr=log))
        client.wait_for_workers(count, timeout=60)
        client.run(lambda: __import__("metrisk").risks(nominal=1, tol=1, su_pct=90, mte_u=0.1))  # both are awake

    def end(self):
        for each in self.processes:
            each.kill()
            each.wait()


def risks_of(path, run):
    """By names of its own, so that nothing of another run is taken for its results."""
    points = dask.dataframe.read_csv(path, blocksize="500kB", float_precision="round_trip")
    return points.map_partitions(computed, token=f"run-{run}")


def recipe():
    page = open(os.path.join(os.environ["METRISK_SOURCE"], "docs", "engines.md"), encoding="utf-8").read()
    block = page[page.index("`dask`"):].split("```python\n")[1].split("```")[0]
    names = {"__name__": "__main__", "metrisk": metrisk, "dask": dask}
    exec(block, names)
    return names["risks"]


def seconds(client, table, workers):
    begun = time.monotonic()
    risks = client.persist(table, workers=workers)
    wait(risks)
    spent = time.monotonic() - begun
    return spent, risks.compute()


def held(what, risks, expected, figures):
    assert len(risks) == len(expected), what
    for name in figures:
        wrong = int(np.count_nonzero(bits(risks[name]) != bits(expected[name])))
        if wrong:
            sys.exit(f"  {what}: {wrong} of {len(expected)} figures {name} are not those of the plain run")
    print(f"  {what}: {len(figures)} figures of {len(expected)} rows are those of the plain run in every bit")


def main():
    written("points.csv")
    expected = plain("points.csv")
    if not (expected.status == "refused").any() or not (expected.status == "ok").any():
        sys.exit("  the table holds no rows of both kinds")
    with LocalCluster(n_workers=0, host="127.0.0.1", dashboard_address=None) as cluster, Client(cluster) as client:
        workers = Workers(cluster.scheduler_address)
        try:
            workers.start(client, 2)
            addresses = client.run(os.getpid)
            # In turns, so that what else the machine does slows both.
            times = {1: [], 2: []}
            for run in range(5):
                for count, spent in times.items():
                    table = risks_of("points.csv", f"{count}-{run}")
                    needed, risks = seconds(client, table, list(addresses)[:count])
                    spent.append(needed)
                    if run == 0:
                        held(f"{table.npartitions} partitions by {count}", risks, expected, FIGURES + MORE)
            print(f"  two workers over one: {min(times[1]) / min(times[2]):.2f} "
                  f"({min(times[1]):.2f} s, {min(times[2]):.2f} s, the best of five)")
            victim = workers.processes[1]
            address = next(each for each, pid in addresses.items() if pid == victim.pid)
            future = client.compute(recipe())
            while not client.processing().get(address) and not future.done():
                time.sleep(0.01)
            if future.done():
                sys.exit("  all was computed before a worker could be killed")
            victim.kill()
            victim.wait()
            risks = future.result(timeout=300)
            held("with one of two workers killed while it had work, the recipe", risks, expected, FIGURES)
        finally:
            workers.end()


if __name__ == "__main__":
    main()

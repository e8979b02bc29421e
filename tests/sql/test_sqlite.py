"""The SQLite extension against rows, bit for bit, and what it refuses."""

import csv
import io
import json
import os
import random
import sqlite3
import struct
import subprocess
import unittest

CLI = os.environ["METRISK_CLI"]


def bits(value):
    return struct.pack("<d", value) if isinstance(value, float) else value


class Extension(unittest.TestCase):
    def setUp(self):
        self.database = sqlite3.connect(":memory:")
        self.database.enable_load_extension(True)
        self.database.load_extension(os.environ["METRISK_SQLITE"])

    def tearDown(self):
        self.database.close()

    def one(self, sql, *values):
        return self.database.execute("select " + sql, values).fetchone()[0]

    def test_figures_equal_those_of_rows(self):
        draw = random.Random(4)
        table = [
            (round(draw.uniform(1, 9), 3), round(draw.uniform(0.1, 1), 3), round(draw.uniform(50, 99), 1),
             round(draw.uniform(0.01, 0.4), 3), draw.choice(["two", "upper", "lower"]))
            for _ in range(60)
        ]
        header = ("nominal", "tol", "su_pct", "mte_u", "sided")
        text = ",".join(header) + "\n" + "".join(",".join(map(str, row)) + "\n" for row in table)
        ran = subprocess.run([CLI, "rows", "-q", "--want", "risks,tur,ratio,exact,worst,fit", "-"],
                             input=text.encode(), capture_output=True, check=False)
        expected = list(csv.DictReader(io.StringIO(ran.stdout.decode())))
        self.database.execute("create table points(nominal, tol, su_pct, mte_u, sided)")
        self.database.executemany("insert into points values (?,?,?,?,?)", table)
        named = ", ".join(f"'{name}', {name}" for name in header)
        for figure in ("FalseAccept", "FalseReject", "TUR", "EqAccRat", "ExactFalseAccept", "WorstFalseAccept",
                       "SU_Distribution", "EqAccRatAttained"):
            found = self.database.execute(f"select metrisk_risk('{figure}', {named}) from points").fetchall()
            for (value,), row in zip(found, expected):
                cell = row[figure]
                if isinstance(value, float):
                    self.assertEqual(bits(value), bits(float(cell)), figure)
                else:
                    self.assertEqual(value, {"true": 1, "false": 0, "": None}.get(cell, cell), figure)
        objects = self.database.execute(f"select metrisk_risks({named}) from points").fetchall()
        for (found,), row in zip(objects, expected):
            found = json.loads(found)
            self.assertEqual(bits(found["FalseAccept"]), bits(float(row["FalseAccept"])))
            self.assertEqual(found["status"], row["status"])

    def test_short_functions(self):
        entries = (10, 0.5, 95, 0.1)
        whole = "'nominal', ?, 'tol', ?, 'su_pct', ?, 'mte_u', ?"
        for short, figure in (("metrisk_fa", "FalseAccept"), ("metrisk_fr", "FalseReject"), ("metrisk_tur", "TUR")):
            self.assertEqual(self.one(f"{short}(?, ?, ?, ?)", *entries),
                             self.one(f"metrisk_risk('{figure}', {whole})", *entries))
        multiplier = self.one("metrisk_guardband(?, ?, ?, ?, 0.01)", *entries)
        guarded = self.one(f"metrisk_risk('FalseAccept', {whole}, 'gb', ?)", *entries, multiplier)
        self.assertAlmostEqual(guarded, 0.01, 7)
        self.assertAlmostEqual(self.one("metrisk_conformance(10.4, 9.5, 10.5, 0.1)"), 0.8413447460685, 12)
        self.assertEqual(self.one("metrisk_fa(10, 0.5, NULL, 0.1)"), None)
        self.assertEqual(self.one("metrisk_risk('FalseAccept', 'nominal', '10 V', 'tol', '500 mV', 'su_pct', 95, "
                                  "'mte_u', '100 mV')"), self.one("metrisk_fa(10, 0.5, 95, 0.1)"))
        self.assertRegex(self.one("metrisk_version()"), r"^\d+\.\d+$")

    def test_refusals_are_null_and_bad_calls_errors(self):
        self.assertIsNone(self.one("metrisk_risk('FalseAccept', 'nominal', 10, 'tol', 0.5, 'su_pct', 120, 'mte_u', 1)"))
        self.assertIn("%", self.one(
            "metrisk_message('FalseAccept', 'nominal', 10, 'tol', 0.5, 'su_pct', 120, 'mte_u', 1)"))
        for call in ("metrisk_risk('FalseAccept', 'tolx', 1)", "metrisk_risk('FalseAccept', 'tol')",
                     "metrisk_risk('Nothing')", "metrisk_risk()", "metrisk_risk(1)", "metrisk_risk('GB_Upper')",
                     "metrisk_risk('FalseAccept', 'tol', 'wide')", "metrisk_risk('FalseAccept', 'tol', x'00')",
                     "metrisk_risk('FalseAccept', 'tol', 1, 'tol', 2)", "metrisk_fa('x', 1, 2, 3)",
                     "metrisk_fa(9007199254740993, 1, 95, 0.1)", "metrisk_guardband(10, 0.5, 95, 0.1, 2)",
                     "metrisk_conformance(1, 2, 0, 1)", "metrisk_risk('FalseAccept', 'su_pct', 1e999)"):
            with self.subTest(call), self.assertRaises(sqlite3.OperationalError):
                self.one(call)

    def test_block_of_the_readme_runs_as_it_stands(self):
        readme = os.path.join(os.path.dirname(__file__), "..", "..", "README.md")
        with open(readme, encoding="utf-8") as file:
            block = file.read().split("```sql\n")[1].split("```")[0]
        rows = [row for each in block.strip().split(";\n") for row in self.database.execute(each.rstrip(";"))]
        self.assertEqual(len(rows), 5)
        self.assertFalse([row for row in rows if None in row])
        # The shell of the engine prints the same.
        script = f".load {os.environ['METRISK_SQLITE'].removesuffix('.so')}\n.mode json\n{block}"
        ran = subprocess.run(["sqlite3"], input=script.encode(), capture_output=True, check=True)
        shown = [tuple(row.values()) for part in ran.stdout.decode().split("]\n") if part for row in json.loads(part + "]")]
        self.assertEqual(shown, rows)

    def test_usable_in_an_index(self):
        self.database.execute("create table p(tol, fa as (metrisk_fa(10, tol, 95, 0.1)))")
        self.database.execute("create index by_risk on p(metrisk_fa(10, tol, 95, 0.1))")
        self.database.executemany("insert into p(tol) values (?)", [(0.5,), (0.2,)])
        self.assertEqual(self.database.execute("select tol from p order by fa").fetchall(), [(0.5,), (0.2,)])


if __name__ == "__main__":
    unittest.main()

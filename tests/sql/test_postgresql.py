"""The PostgreSQL extension against rows, bit for bit, on a server of its own that this starts and ends.

METRISK_CLI is the command; the extension is installed. Run as the user of the server: its programs refuse root.
"""

import csv
import glob
import io
import json
import os
import random
import subprocess
import tempfile
import unittest

CLI = os.environ["METRISK_CLI"]
PROGRAMS = sorted(glob.glob("/usr/lib/postgresql/*/bin"))[-1]
HEADER = ("nominal", "tol", "su_pct", "mte_u", "sided")
FIGURES = ("FalseAccept", "FalseReject", "TUR", "EqAccRat", "ExactFalseAccept", "WorstFalseAccept")


class Extension(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.data = os.path.join(cls.folder.name, "data")
        cls.program("initdb", "-D", cls.data, "-A", "trust", "-E", "UTF8", "--locale=C.UTF-8", "-N")
        options = f"-k {cls.folder.name} -c listen_addresses='' -c fsync=off"
        cls.program("pg_ctl", "-D", cls.data, "-o", options, "-l", os.path.join(cls.folder.name, "log"), "-w", "start")
        cls.sql("CREATE EXTENSION metrisk")

    @classmethod
    def tearDownClass(cls):
        cls.program("pg_ctl", "-D", cls.data, "-m", "fast", "stop")
        cls.folder.cleanup()

    @classmethod
    def program(cls, name, *arguments):
        command = [os.path.join(PROGRAMS, name), *arguments]
        subprocess.run(command, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.STDOUT)

    @classmethod
    def ask(cls, sql):
        command = [os.path.join(PROGRAMS, "psql"), "-X", "-q", "-h", cls.folder.name, "-d", "postgres", "--csv"]
        return subprocess.run([*command, "-v", "ON_ERROR_STOP=1"], input=sql, capture_output=True, text=True, check=False)

    @classmethod
    def sql(cls, sql):
        ran = cls.ask("SET extra_float_digits = 3;" + sql)
        if ran.returncode:
            raise RuntimeError(ran.stderr)
        return list(csv.DictReader(io.StringIO(ran.stdout)))

    def one(self, expression):
        return self.sql(f"SELECT {expression} AS it")[0]["it"]

    def test_figures_equal_those_of_rows(self):
        draw = random.Random(4)
        table = [
            (round(draw.uniform(1, 9), 3), round(draw.uniform(0.1, 1), 3), round(draw.uniform(50, 99), 1),
             round(draw.uniform(0.01, 0.4), 3), draw.choice(["two", "upper", "lower"]))
            for _ in range(200)
        ]  # fmt: skip
        text = ",".join(HEADER) + "\n" + "".join(",".join(map(str, row)) + "\n" for row in table)
        ran = subprocess.run([CLI, "rows", "-q", "--want", "risks,tur,ratio,exact,worst,fit", "-"],
                             input=text.encode(), capture_output=True, check=False)  # fmt: skip
        expected = list(csv.DictReader(io.StringIO(ran.stdout.decode())))
        values = ",".join(f"({i},{r[0]},{r[1]},{r[2]},{r[3]},'{r[4]}')" for i, r in enumerate(table))
        self.sql(
            "CREATE TABLE points(id int, nominal float8, tol numeric, su_pct float8, mte_u float8, sided text);"
            f"INSERT INTO points VALUES {values}"
        )
        named = ", ".join(f"'{name}', {name}" for name in HEADER)
        columns = ", ".join(f"metrisk_risk('{figure}', {named}) AS \"{figure}\"" for figure in FIGURES)
        found = self.sql(
            f"SELECT {columns}, metrisk_risk_text('SU_Distribution', {named}) AS \"SU_Distribution\","
            f" metrisk_risks({named}) AS risks, metrisk_message('EqAccRat', {named}) AS message,"
            " metrisk_fa(nominal, tol, su_pct, mte_u) AS fa FROM points ORDER BY id"
        )
        two_sided = 0
        for given, row, answer in zip(table, expected, found):
            for figure in FIGURES:
                self.assertEqual([float(x) for x in (answer[figure],) if x], [float(x) for x in (row[figure],) if x])
            self.assertEqual(answer["SU_Distribution"], row["SU_Distribution"])
            self.assertEqual(json.loads(answer["risks"])["status"], row["status"])
            if given[4] == "two":
                two_sided += 1
                self.assertEqual(float(answer["fa"]), float(row["FalseAccept"]))
        self.assertGreater(two_sided, 40)

    def test_what_is_null_and_what_is_an_error(self):
        good = "'nominal', 10, 'tol', 0.5, 'su_pct', 95, 'mte_u', 0.1"
        self.assertEqual(self.one("metrisk_fa(10, NULL, 95, 0.1) IS NULL"), "t")
        self.assertEqual(self.one(f"metrisk_risk('FalseAccept', {good}, 'gb', NULL) = metrisk_fa(10, 0.5, 95, 0.1)"), "t")
        self.assertEqual(self.one("metrisk_risk('FalseAccept', 'nominal', 10) IS NULL"), "t")
        self.assertNotEqual(self.one("metrisk_message('FalseAccept', 'nominal', 10)"), "")
        with_units = good.replace("0.5", "'500 mV'") + ", 'unit', 'V'"
        self.assertEqual(self.one(f"metrisk_risk('FalseAccept', {with_units}) = metrisk_fa(10, 0.5, 95, 0.1)"), "t")
        for wrong, said in (
            ("metrisk_risk('nothing', 'tol', 1)", "no figure nothing"),
            ("metrisk_risk('FalseAccept', 'tolx', 1)", "metrisk_risk: no column tolx"),
            ("metrisk_risk('FalseAccept', 'tol')", "an entry without a value"),
            ("metrisk_risk('FalseAccept', 'tol', 'much')", "no number"),
            ("metrisk_risk('FalseAccept', 'tol', 9007199254740993)", "2^53"),
            ("metrisk_risk('FalseAccept', 'tol', '\\x00'::bytea)", "a blob"),
            ("metrisk_risk('FalseAccept', VARIADIC ARRAY['tol', '1'])", "an array of entries"),
            (f"metrisk_risk('SU_Distribution', {good})", "metrisk_risk_text"),
            ("metrisk_guardband(10, 0.5, 95, 0.1, 2)", "a fraction between 0 and 1"),
        ):
            ran = self.ask(f"SELECT {wrong}")
            self.assertNotEqual(ran.returncode, 0, wrong)
            self.assertIn(said, ran.stderr, wrong)
        self.assertEqual(self.one("1"), "1")  # the server lives

    def test_serves_indexes_workers_and_interrupts(self):
        self.sql(
            "CREATE TABLE many AS SELECT i AS id, 10.0::float8 AS nominal, 0.5::float8 AS tol, 95.0::float8 AS su_pct,"
            " 0.01 + i * 1e-7 AS mte_u FROM generate_series(1, 200000) i; ANALYZE many"
        )
        total = "SELECT sum(metrisk_fa(nominal, tol, su_pct, mte_u)::numeric) AS it FROM many"
        workers = "SET max_parallel_workers_per_gather = {}; SET parallel_setup_cost = 0; SET min_parallel_table_scan_size = 0;"
        plan = self.sql(workers.format(2) + "EXPLAIN " + total)
        self.assertIn("Workers Planned", json.dumps(plan))
        self.assertEqual(self.sql(workers.format(2) + total), self.sql(workers.format(0) + total))
        self.sql("CREATE INDEX of_risk ON many (metrisk_fa(nominal, tol, su_pct, mte_u))")
        ran = self.ask(
            "SET statement_timeout = 200;"
            "SELECT sum(metrisk_guardband(a.nominal, a.tol, a.su_pct, b.mte_u, 0.001)) FROM many AS a, many AS b"
        )
        self.assertIn("statement timeout", ran.stderr)


if __name__ == "__main__":
    unittest.main()

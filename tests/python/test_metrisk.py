"""The Python package against rows, bit for bit, and what it refuses."""

import csv
import io
import os
import pickle
import subprocess
import sys
import threading
import unittest

import numpy as np

import metrisk

CLI = os.environ["METRISK_CLI"]
SOURCE = os.environ["METRISK_SOURCE"]
STUB = os.path.join(SOURCE, "python")


def rows(header, lines, want, *options):
    table = ",".join(header) + "\n" + "".join(",".join(line) + "\n" for line in lines)
    ran = subprocess.run(
        [CLI, "rows", "--want", want, "-q", *options, "-"], input=table.encode(), capture_output=True, check=False
    )
    return list(csv.DictReader(io.StringIO(ran.stdout.decode())))


class Figures(unittest.TestCase):
    def test_equal_those_of_rows_in_every_bit(self):
        random = np.random.default_rng(5)
        n = 300
        columns = {
            "nominal": np.round(random.uniform(-20, 20, n), 3),
            "tol_upper": np.round(random.uniform(0.01, 1, n), 4),
            "tol_lower": np.round(random.uniform(0.01, 1, n), 4),
            "su_pct": np.round(random.uniform(40, 100.5, n), 2),
            "mte_expanded": np.round(random.uniform(0.001, 0.6, n), 5),
            "mte_k": np.where(random.random(n) < 0.5, 2.0, np.nan),
            "mte_dof": np.where(random.random(n) < 0.3, np.inf, np.round(random.uniform(1, 30, n))),
            "process_u": np.where(random.random(n) < 0.3, 0.05, np.nan),
            "gb": np.where(random.random(n) < 0.3, 0.9, np.nan),
            "sided": random.choice(["two", "upper", "lower"], n),
            "convention": random.choice(["consumer", "producer"], n),
            "reading": np.round(random.uniform(-20, 20, n), 3),
        }
        want = "risks,tur,ratio,exact,baseline,fit,entries,guardband:fa=2%,worst,uncertainty,decide:guard=1"
        shown = lambda x: x if isinstance(x, str) else "" if np.isnan(x) else repr(float(x))  # noqa: E731
        lines = [[shown(value[i]) for value in columns.values()] for i in range(n)]
        expected = rows(list(columns), lines, want)
        for threads in (1, 4):
            result = metrisk.risks(want=want, threads=threads, **columns)
            for i, row in enumerate(expected):
                self.assertEqual(("ok", "note", "refused", "bad")[result.status[i]], row["status"], row)
                self.assertEqual(result.message(i), row["message"].replace(" | ", " | "))
                for name, values in result.items():
                    value, cell = values[i], row[name]
                    if isinstance(value, (str, type(None))):
                        self.assertEqual(value or "", cell, name)
                    elif values.dtype == bool:
                        self.assertEqual(value, cell == "true", name)
                    else:
                        self.assertEqual(value.tobytes(), np.float64(cell or "nan").tobytes(), (i, name, cell))
        self.assertGreater(np.count_nonzero(result.status < 2), n // 4)
        self.assertGreater(np.count_nonzero(result.status == 2), 5)

    def test_do_not_depend_on_how_arrays_lie(self):
        u = np.linspace(0.02, 0.3, 24)
        entries = dict(nominal=10, tol=0.5, su_pct=95)
        plain = metrisk.risks(mte_u=u, **entries).FalseAccept
        large = np.zeros((4, 6, 3))
        large[:, :, 1] = u.reshape(4, 6)
        for name, array in {
            "strided": large[:, :, 1],
            "byte-swapped": u.reshape(4, 6).astype(">f8"),
            "read-only": np.broadcast_to(u.reshape(4, 6), (4, 6)),
            "list": u.reshape(4, 6).tolist(),
            "column-major": np.asfortranarray(u.reshape(4, 6)),
        }.items():
            np.testing.assert_array_equal(metrisk.risks(mte_u=array, **entries).FalseAccept.ravel(), plain, name)
        grid = metrisk.risks(mte_u=u[:5], **{**entries, "su_pct": np.array([[90], [95]])})
        self.assertEqual(grid.FalseAccept.shape, (2, 5))
        np.testing.assert_array_equal(grid.FalseAccept[1], plain[:5])
        self.assertEqual(metrisk.risks(mte_u=0.1, **entries).FalseAccept.shape, ())
        self.assertEqual(metrisk.risks(mte_u=np.empty((0, 3)), **entries).FalseAccept.shape, (0, 3))
        masked = metrisk.risks(mte_u=np.ma.array([0.1, 0.2], mask=[False, True]), **entries)
        self.assertEqual(list(masked.status), [0, 2])

    def test_of_a_template(self):
        path = os.path.join(SOURCE, "examples", "multimeter-dc-volts.mrk")
        expected = rows(["su_pct"], [["95"], ["80"]], "risks", "--template", path)
        with open(path, "rb") as file:
            content = file.read()
        for template in (path, content):
            result = metrisk.risks(template=template, su_pct=[95, 80], want="risks")
            self.assertEqual([repr(float(x)) for x in result.FalseAccept], [row["FalseAccept"] for row in expected])

    def test_of_other_functions(self):
        entries = dict(nominal=10, tol=0.5, su_pct=95, mte_u=0.1)
        self.assertEqual(metrisk.ratio(**entries).EqAccRatAttained.dtype, bool)
        self.assertAlmostEqual(float(metrisk.guardband(fa=0.01, **entries).GB_FalseAccept), 0.01, 7)
        self.assertEqual(metrisk.guardband(equal=True, k=True, **entries).GB_Status[()], "solved")
        self.assertEqual(metrisk.decide(reading=10.45, rule="guard=1", **entries).Verdict[()], "fail")
        self.assertLess(float(metrisk.exact(**entries).ExactFalseAcceptBound), 1e-12)
        self.assertGreater(float(metrisk.worst(**entries).WorstFalseAccept), float(metrisk.risks(**entries).FalseAcceptProducer))
        accept, reject = metrisk.baseline([4, 10])
        self.assertEqual(accept.shape, (2,))
        self.assertAlmostEqual(100 * accept[0], 4.1048, 4)
        self.assertAlmostEqual(100 * reject[0], 3.7542, 4)
        solved = metrisk.solve_reliability(3, 12, 0.99, 0.95, 0.9)
        period = metrisk.reliability(3, 12, solved["a"], solved["b"], solved["c"])
        for name, wanted in dict(bop=0.99, aop=0.95, eop=0.9).items():
            self.assertAlmostEqual(period[name], wanted, 6)


class Arguments(unittest.TestCase):
    good = dict(nominal=10, tol=0.5, su_pct=95, mte_u=0.1)

    def test_that_cannot_be_are_refused_before_anything_is_computed(self):
        cases = [
            (TypeError, dict(tolx=1)),
            (TypeError, dict(unit="V")),
            (TypeError, dict(mte_u=1j)),
            (TypeError, dict(mte_u=[0.1, "x"])),
            (TypeError, dict(mte_u=np.array([0.1, None]))),
            (TypeError, dict(mte_u=True)),
            (TypeError, dict(mte_u=np.longdouble("0.1"))),
            (TypeError, dict(sided=1)),
            (ValueError, dict(nominal=2**53 + 1)),
            (ValueError, dict(tur=4)),
            (ValueError, dict(su_pct=[1, 2], mte_u=[1, 2, 3])),
            (ValueError, dict(want="wonders")),
            (ValueError, dict(errors="ignore")),
            (ValueError, dict(threads=-1)),
            (ValueError, dict(counts="guess")),
            (ValueError, dict(template=b"no analysis")),
            (OSError, dict(template="/no/such/file.mrk")),
        ]
        for kind, changed in cases:
            with self.subTest(changed), self.assertRaises(kind):
                metrisk.risks(**{**self.good, **changed})
        for call in (
            lambda: metrisk.guardband(**self.good),
            lambda: metrisk.guardband(fa=2, **self.good),
            lambda: metrisk.baseline(0),
            lambda: metrisk.baseline(4, convention="both"),
            lambda: metrisk.guardband(fa=0.01, want="guardband:fa=2%", **self.good),
            lambda: metrisk.reliability(99, 1, 1, 1),
            lambda: metrisk.reliability(3, 12, 99, 0.01, 1.2),
            lambda: metrisk.reliability(3, float("inf"), 1, 0.01, 1.2),
            lambda: metrisk.solve_reliability(3, 12, 2, 3, 4),
        ):
            with self.assertRaises(ValueError):
                call()

    def test_masked_texts_name_nothing(self):
        sided = np.ma.array(["upper", "two"], mask=[True, False])
        result = metrisk.risks(sided=sided, **self.good)
        self.assertEqual(result.FalseAccept[0], result.FalseAccept[1])

    def test_elements_that_are_refused_have_no_figures(self):
        result = metrisk.risks(**{**self.good, "su_pct": [[95, 0], [120, np.nan]]}, want="risks,fit")
        self.assertEqual(result.status.tolist(), [[0, 2], [2, 2]])
        self.assertTrue(np.isnan(result.FalseAccept[1, 0]))
        self.assertIsNone(result.SU_Distribution[1, 0])
        self.assertIn((1, 0), result.messages())
        self.assertIn("%", result.message((1, 0)))
        with self.assertRaises(metrisk.MetriskError) as raised:
            metrisk.risks(**{**self.good, "su_pct": [95, 120]}, errors="raise")
        self.assertEqual(raised.exception.index, (1,))
        self.assertTrue(raised.exception.title)

    def test_whole_numbers_up_to_2_to_the_53_are_exact(self):
        self.assertEqual(metrisk.risks(nominal=np.int64(2**53), tol=1e15, su_pct=95, mte_u=1e14, want="entries").SU_Mode, 2.0**53)

    def test_results_are_mappings(self):
        result = metrisk.risks(**self.good)
        self.assertEqual(dict(result).keys() | {"status"}, result.to_dict().keys())
        self.assertRaises(AttributeError, lambda: result.nothing)
        pickle.dumps(result.to_dict())


class Running(unittest.TestCase):
    def test_is_interrupted_soon(self):
        code = (
            "import metrisk, numpy as np, _thread, threading, time\n"
            "threading.Timer(0.3, _thread.interrupt_main).start()\n"
            "start = time.monotonic()\n"
            "try:\n"
            "    metrisk.worst(nominal=10, tol=0.5, su_pct=95, mte_u=np.linspace(0.01, 0.4, 3_000_000))\n"
            "except KeyboardInterrupt:\n"
            "    print('interrupted')\n"
        )
        ran = subprocess.run([sys.executable, "-c", code], capture_output=True, text=True, timeout=60, check=False)
        self.assertEqual(ran.stdout, "interrupted\n", ran.stderr)

    def test_from_threads_and_children(self):
        u = np.linspace(0.02, 0.3, 5000)
        expected = metrisk.risks(**{**Arguments.good, "mte_u": u}).FalseAccept
        found = []
        threads = [
            threading.Thread(target=lambda: found.append(metrisk.risks(**{**Arguments.good, "mte_u": u}).FalseAccept))
            for _ in range(4)
        ]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(len(found), 4)
        for each in found:
            np.testing.assert_array_equal(each, expected)
        child = os.fork()
        if child == 0:
            same = np.array_equal(metrisk.risks(**{**Arguments.good, "mte_u": u}).FalseAccept, expected)
            os._exit(0 if same else 1)
        self.assertEqual(os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]), 0)

    def test_checks_itself(self):
        ran = subprocess.run([sys.executable, "-m", "metrisk", "--selfcheck"], capture_output=True, text=True, check=False)
        self.assertEqual(ran.returncode, 0, ran.stdout)
        self.assertIn(", 0 DIFF", ran.stdout)

    def test_stub_is_that_of_the_entries(self):
        ran = subprocess.run([sys.executable, os.path.join(STUB, "tools", "stub.py")], capture_output=True, text=True, check=True)
        with open(os.path.join(STUB, "metrisk", "__init__.pyi"), encoding="utf-8") as file:
            self.assertEqual(file.read(), ran.stdout, "run python/tools/stub.py")


class Readme(unittest.TestCase):
    def test_blocks_run_as_they_stand(self):
        with open(os.path.join(SOURCE, "README.md"), encoding="utf-8") as file:
            blocks = [each.split("```")[0] for each in file.read().split("```python\n")[1:]]
        self.assertEqual(len(blocks), 2)
        for block in blocks:
            ran = subprocess.run([sys.executable, "-c", block], capture_output=True, text=True, check=False, cwd=SOURCE)
            self.assertEqual(ran.returncode, 0, ran.stderr)
            self.assertEqual(len(ran.stdout.splitlines()), 2)


class Types(unittest.TestCase):
    def test_of_a_program_that_uses_the_package(self):
        checker = [sys.executable, "-m", "mypy", "--strict", "--cache-dir", os.devnull]
        environment = {**os.environ, "MYPYPATH": os.environ["PYTHONPATH"]}
        use = os.path.join(SOURCE, "tests", "python", "typed_use.py")
        ran = subprocess.run([*checker, use], capture_output=True, text=True, env=environment, check=False)
        self.assertEqual(ran.returncode, 0, ran.stdout + ran.stderr)


if __name__ == "__main__":
    unittest.main()

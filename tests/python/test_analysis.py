"""Analyses as objects against the command line, and what they refuse."""

import copy
import glob
import json
import os
import pickle
import subprocess
import tempfile
import threading
import unittest

import numpy as np

import metrisk

CLI = os.environ["METRISK_CLI"]
SOURCE = os.environ["METRISK_SOURCE"]
EXAMPLES = sorted(glob.glob(os.path.join(SOURCE, "examples", "*.mrk")))
ENTRIES = {"nominal": 10, "tol": 0.5, "su_pct": 95, "mte_u": 0.1}
FRAME = ("file", "status", "messages")


def command(*arguments):
    # With none of the user's settings, as the objects are.
    ran = subprocess.run([CLI, *arguments, "--settings", os.devnull], capture_output=True, check=True)
    return ran.stdout


def told(*arguments):
    return {name: value for name, value in json.loads(command(*arguments)).items() if name not in FRAME}


class Files(unittest.TestCase):
    def test_are_what_the_commands_make_of_them(self):
        self.assertTrue(EXAMPLES)
        with tempfile.TemporaryDirectory() as folder:
            for path in EXAMPLES:
                a = metrisk.Analysis.load(path)
                kept = a.copy()
                self.assertEqual(a.to_dict(), told("show", "--json", path))
                self.assertEqual(a.observed(true=90), told("observed", "--true", "90", "--json", path))
                self.assertEqual(a, kept)
                self.assertEqual(a.compute(), told("compute", "--json", path))
                for twin in (copy.deepcopy(a), pickle.loads(pickle.dumps(a))):
                    self.assertEqual((twin, twin.FalseAcceptRisk, twin.SU_Sigma), (a, a.FalseAcceptRisk, a.SU_Sigma))
                self.assertEqual(metrisk.Analysis.from_dict(a.to_dict()), a)
                a = metrisk.Analysis.load(path).set(SU_Description="Ä", MTE_PctInTol=91)
                ours, theirs = os.path.join(folder, "ours.mrk"), os.path.join(folder, "theirs.mrk")
                self.assertEqual(a.save(ours[:-4].encode(), force=True), ours)
                command("set", path, "SU_Description=Ä", "MTE_PctInTol=91", "-o", theirs, "--force")
                self.assertEqual(read(ours), read(theirs))
                self.assertRaises(FileExistsError, a.save, ours)

    def test_become_reports(self):
        a = metrisk.Analysis.load(EXAMPLES[0])
        kept = a.copy()
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "r.doc")
            self.assertEqual(a.report(path, ("risk", "plots"), organization="Ours"), path)
            sections = ("--sections", "risk,plots", "--organization", "Ours")
            expected = command("report", EXAMPLES[0], *sections, "--format", "doc", "-o", "-")
            self.assertEqual(without_times(read(path)), without_times(expected))
            self.assertRaises(FileExistsError, a.report, path)
            a.report(os.path.join(folder, "d.pdf"), "decision", reading=20.01, rule="guard=1", paper="letter")
            self.assertTrue(read(os.path.join(folder, "d.pdf")).startswith(b"%PDF"))
            self.assertEqual(a, kept)


def read(path):
    with open(path, "rb") as file:
        return file.read()


def without_times(content):
    return [line for line in content.split(b"\n") if b":" not in line]


class Entries(unittest.TestCase):
    def test_are_those_of_rows(self):
        a = metrisk.Analysis().entries(**ENTRIES)
        figures = metrisk.risks(want="risks,exact", **ENTRIES)
        self.assertEqual(a.compute()["FalseAccept"], figures.FalseAccept)
        np.testing.assert_allclose(a.compute()["Verified"]["FalseReject"]["value"], figures.ExactFalseReject, 1e-12)
        u = [0.05, 0.2]
        of_template = metrisk.risks(template=a, mte_u=u).FalseAccept
        np.testing.assert_array_equal(of_template, metrisk.risks(**{**ENTRIES, "mte_u": u}).FalseAccept)

    def test_of_arrays_of_shares(self):
        entries = {**ENTRIES, "su_pct": None, "mte_u": [[0.1], [0.2]]}
        counted = metrisk.observed(true=90, passed=19, tested=20, **{**ENTRIES, "su_pct": None})
        self.assertEqual(counted.message(), "")
        shares = np.array([80, 95, np.nan, 100.5])
        result = metrisk.observed(true=shares, **entries)
        self.assertEqual(result.status.tolist(), [[0, 0, 2, 2]] * 2)
        a = metrisk.Analysis().entries(**{**ENTRIES, "mte_u": 0.2})
        self.assertEqual(result["Observed"][1, 1], a.observed(true=95)["Observed"])
        self.assertIn("from 0 to 100", result.message((0, 3)))
        back = metrisk.observed(observed=100 * result["Observed"][:, :2], **entries)
        np.testing.assert_allclose(back["True"], [[0.8, 0.95]] * 2, rtol=1e-6)
        self.assertRaises(metrisk.MetriskError, metrisk.observed, true=shares, errors="raise", **entries)

    def test_fields_are_attributes_and_items(self):
        a = metrisk.Analysis().entries(**ENTRIES)
        a.SU_PctInTol, a["SU_ModelNumber"], a.GB_KeyOn = 90, "M-1", 1
        self.assertEqual((a.SU_PctInTol, a["SU_ModelNumber"], a.GB_KeyOn, a.OptTwoSided), (90.0, "M-1", 1, True))
        a.Rel_BOP = [0.5, 0.25]
        a.Rel_BOP[1] = np.float64(0.75)
        self.assertEqual((a.Rel_BOP, a["Rel_BOP[1]"], len(a.Rel_BOP)), ([0.5, 0.75], 0.75, 2))
        self.assertEqual(list(reversed(a.Rel_BOP)), [0.75, 0.5])
        self.assertEqual(a.CorrelationMatrix[1, 2], a.CorrelationMatrix[1][2])
        self.assertIn("SU_Mode", dir(a))

    def test_of_threads_take_turns(self):
        wanted = [metrisk.Analysis().entries(**{**ENTRIES, "su_pct": pct}).compute()["FalseAccept"] for pct in (80, 95)]
        shared = metrisk.Analysis().entries(**ENTRIES)
        figures = []

        def work(act):
            for _ in range(300):
                act()

        acts = (
            lambda: shared.entries(su_pct=80),
            lambda: shared.entries(su_pct=95),
            lambda: figures.append(shared.compute()["FalseAccept"]),
            lambda: (shared.to_dict(), shared == metrisk.Analysis(), shared.SU_Mode),
        )
        threads = [threading.Thread(target=work, args=(act,)) for act in acts]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(len(figures), 300)
        self.assertLessEqual(set(figures), set(wanted))

    def test_that_cannot_be_leave_the_analysis_as_it_was(self):
        a = metrisk.Analysis().entries(**ENTRIES)
        kept = a.copy()
        for error, act in (
            (AttributeError, lambda: setattr(a, "SU_Sigma", 1)),
            (AttributeError, lambda: setattr(a, "nothing", 1)),
            (AttributeError, lambda: a.nothing),
            (KeyError, lambda: a["nothing"]),
            (ValueError, lambda: a.set(SU_PctInTol=90, nothing=1)),
            (metrisk.MetriskError, lambda: a.set(SU_PctInTol=90, SU_Description='"')),
            (metrisk.MetriskError, lambda: a.set(SU_Mode=float("nan"))),
            (TypeError, lambda: a.set(SU_Mode=[1])),
            (TypeError, lambda: a.set(SU_Mode=1j)),
            (ValueError, lambda: a.set(Rel_BOP=[1])),
            (IndexError, lambda: a.CorrelationMatrix[0, 1]),
            (IndexError, lambda: a["CorrelationMatrix[0][1]"]),
            (ValueError, lambda: a.entries(reading=1)),
            (ValueError, lambda: a.entries(nothing=1)),
            (metrisk.MetriskError, lambda: a.entries(tol=1, upper=12)),
            (metrisk.MetriskError, lambda: a.from_dict({"nothing": 1})),
            (metrisk.MetriskError, lambda: a.load(os.path.join(SOURCE, "README.md"))),
            (FileNotFoundError, lambda: metrisk.Analysis.load("nothing.mrk")),
            (metrisk.MetriskError, lambda: metrisk.Analysis().compute()),
            (ValueError, lambda: a.compute(k="much")),
            *((metrisk.MetriskError, lambda x=x: a.observed(true=x)) for x in ("9o", "93,5", "", True, np.nan, np.inf)),
            (ValueError, lambda: a.report("r.pdf", "decision")),
            (ValueError, lambda: a.report("r.txt")),
        ):
            self.assertRaises(error, act)
            self.assertEqual(a, kept)
        fault = pickle.loads(pickle.dumps(metrisk.MetriskError((3,), "Title: text")))
        self.assertEqual((fault.index, fault.title, fault.text), ((3,), "Title", "text"))


if __name__ == "__main__":
    unittest.main()

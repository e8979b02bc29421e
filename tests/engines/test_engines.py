"""Parts of a table through programs that split it: joined, they are the plain run, byte for byte."""

import os
import random
import shutil
import subprocess
import tempfile
import unittest

from points import HEADER, table

CLI = os.environ["METRISK_CLI"]
ROWS = [CLI, "rows", "--lines", "--no-header", "--header", HEADER, "-q", "--threads", "1", "-"]


class Splitting(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.data = table(20_000)
        cls.path = os.path.join(cls.folder.name, "points.csv")
        with open(cls.path, "wb") as file:
            file.write(cls.data)
        # Rows that were refused make the status 1, which is an answer.
        ran = subprocess.run(ROWS, input=cls.data, capture_output=True, check=False)
        assert ran.returncode == 1, ran.stderr
        assert subprocess.run(ROWS + ["--ok-if-answered"], input=cls.data, capture_output=True, check=True).stdout == ran.stdout
        cls.plain = ran.stdout

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def shell(self, command):
        ran = subprocess.run(["bash", "-euo", "pipefail", "-c", command], capture_output=True, check=True, cwd=self.folder.name,
                             env={**os.environ, "CLI": CLI, "HEADER": HEADER})
        return ran.stdout

    def test_by_xargs_over_files(self):
        self.shell("split -l 1700 -d points.csv part.")
        self.shell("ls part.* | xargs -P 4 -I{} \"$CLI\" rows --lines --no-header --header \"$HEADER\" -q --ok-if-answered {} -o {}.out")
        self.assertEqual(self.shell("cat part.*.out"), self.plain)

    @unittest.skipUnless(shutil.which("parallel"), "GNU parallel is not here")
    def test_by_parallel_over_blocks(self):
        joined = self.shell("parallel --pipe --block 100k -k -j 4 "
                            "'\"$CLI\" rows --lines --no-header --header \"$HEADER\" -q --ok-if-answered -' < points.csv")
        self.assertEqual(joined, self.plain)

    @unittest.skipUnless(shutil.which("parallel"), "GNU parallel is not here")
    def test_block_of_the_readme_runs_as_it_stands(self):
        readme = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..", "README.md")
        with open(readme, encoding="utf-8") as file:
            block = next(each for each in file.read().split("```sh\n")[1:] if "parallel" in each).split("```")[0]
        with tempfile.TemporaryDirectory() as folder:
            with open(os.path.join(folder, "points.csv"), "wb") as file:
                file.write(HEADER.encode() + b"\n" + self.data)
            ran = subprocess.run(["bash", "-c", block], capture_output=True, check=False, cwd=folder,
                                 env={**os.environ, "PATH": os.path.dirname(CLI) + ":" + os.environ["PATH"]})
        self.assertEqual(ran.stdout, self.plain)
        self.assertEqual(ran.returncode, 0, ran.stderr)

    def test_of_any_size_in_any_order(self):
        lines = self.data.splitlines(keepends=True)
        answers = self.plain.splitlines(keepends=True)
        self.assertEqual(len(lines), len(answers))
        draw = random.Random(3)
        for _ in range(8):
            first = draw.randrange(len(lines))
            last = first + draw.choice([0, 1, 7, 4096, 5000])
            ran = subprocess.run(ROWS, input=b"".join(lines[first:last]), capture_output=True, check=False)
            self.assertEqual(ran.stdout, b"".join(answers[first:last]))
            again = subprocess.run(ROWS, input=b"".join(lines[first:last] * 2), capture_output=True, check=False)
            self.assertEqual(again.stdout, ran.stdout * 2)

    def test_rows_that_cannot_be_read_are_an_answer_to_who_asks_for_that(self):
        data = self.data[: self.data.index(b"\n") + 1] + b"1,x,0.5,95,0.1,\n"
        for options, status in (([], 1), (["--ok-if-answered"], 0)):
            ran = subprocess.run(ROWS + options, input=data, capture_output=True, check=False)
            self.assertEqual(ran.returncode, status)
            self.assertIn(b",bad,", ran.stdout)

    def test_a_reader_that_leaves_is_told_to_nobody(self):
        ran = subprocess.run(["bash", "-c", "set -o pipefail; \"$CLI\" rows -q --no-header --header \"$HEADER\" points.csv | head -n 1; echo ${PIPESTATUS[0]}"],
                             capture_output=True, check=False, cwd=self.folder.name,
                             env={**os.environ, "CLI": CLI, "HEADER": HEADER})
        self.assertEqual(ran.stdout.splitlines()[-1], b"141")
        self.assertEqual(ran.stderr, b"")


if __name__ == "__main__":
    unittest.main()

"""The example in Python, run as it stands. Without pandas and matplotlib it ends with 77: skipped."""

import csv
import os
import struct
import subprocess
import sys
import tempfile
import unittest
from importlib.util import find_spec

SOURCE = os.environ["METRISK_SOURCE"]
EXAMPLE = os.path.join(SOURCE, "examples", "python", "histogram.py")
POINTS = os.path.join(SOURCE, "examples", "python", "multimeter.csv")


def table(path):
    with open(path, newline="", encoding="utf-8") as file:
        return list(csv.DictReader(file))


class Example(unittest.TestCase):
    def test_writes_the_figures_of_rows_and_draws_them(self):
        from matplotlib.image import imread

        with tempfile.TemporaryDirectory() as folder:
            plain, risks, picture = (os.path.join(folder, name) for name in ("plain.csv", "risks.csv", "risks.png"))
            subprocess.run([os.environ["METRISK_CLI"], "rows", "-q", POINTS, "-o", plain], check=True)
            ran = subprocess.run([sys.executable, EXAMPLE, POINTS, risks, picture], check=True, capture_output=True,
                                 text=True, env={**os.environ, "MPLBACKEND": "Agg"})
            expected, found = table(plain), table(risks)
            self.assertEqual(len(found), len(expected))
            for row, plain_row in zip(found, expected):
                for name in ("FalseAccept", "FalseReject", "TUR", "AccuracyRatio"):
                    self.assertEqual(struct.pack("d", float(row[name])), struct.pack("d", float(plain_row[name])), name)
            above = sum(float(row["FalseAccept"]) > 0.02 for row in expected)
            self.assertIn(f"\n{above} with a false accept risk above 2%", ran.stdout)
            drawn = imread(picture)
        bars = (abs(drawn[:, :, :3] - (0x2F / 255, 0x6F / 255, 0xA8 / 255)) < 0.01).all(axis=2)
        self.assertGreater(bars.mean(), 0.05)


if __name__ == "__main__":
    missing = [name for name in ("pandas", "matplotlib") if not find_spec(name)]
    if missing:
        print("not run: no", " and no ".join(missing), "here")
        sys.exit(77)
    unittest.main()

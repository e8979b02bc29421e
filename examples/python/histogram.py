#!/usr/bin/env python3
"""Risks of a table of test points, and their histogram: histogram.py [POINTS.csv [RISKS.csv [PICTURE.png]]]

The columns of the table are those of `metrisk-cli rows --columns`, its lengths all in one unit; any other column stays
as it is. Editors that know cells run it cell by cell.
"""

# %% The table
import sys
from pathlib import Path

import matplotlib.pyplot as plt
import numpy as np
import pandas as pd

import metrisk

here = Path(__file__).parent
given, written, picture = (sys.argv[1:] + [None] * 3)[:3]
# Without it pandas reads numbers to their last digit but one.
points = pd.read_csv(given or here / "multimeter.csv", float_precision="round_trip")

# %% What names an entry is computed
names = {each["name"] for each in metrisk.entry_columns()}
result = metrisk.risks(want=("risks", "tur"), **{name: points[name] for name in points if name in names})
risks = points.assign(**result, message=[result.message(row) for row in range(len(points))])

# %% What it comes to
limit = 0.02
computed = risks[result.status < 2]
worst = computed.loc[computed.FalseAccept.idxmax()]
print(f"{len(computed)} of {len(risks)} test points computed")
print(f"{(computed.FalseAccept > limit).sum()} with a false accept risk above {limit:.0%}, the greatest {worst.FalseAccept:.2%}:")
print(worst.to_string())

# %% The histogram
figure, axes = plt.subplots(figsize=(7, 4), layout="constrained")
axes.hist(100 * computed.FalseAccept, bins=np.arange(0, 100 * computed.FalseAccept.max() + 0.25, 0.25), color="#2f6fa8")
axes.axvline(100 * limit, color="#a8442f", linestyle="--", label=f"limit of {limit:.0%}")
axes.set(xlabel="False accept risk, %", ylabel="Test points", title=f"{len(computed)} test points")
axes.legend()

# %% Both into files
if written:
    risks.to_csv(written, index=False)
if picture:
    figure.savefig(picture, dpi=120)
else:
    plt.show()

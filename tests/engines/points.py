"""A table of test points with cells of many kinds, the same each time: points.py COUNT"""

import random
import sys

HEADER = "id,nominal[V],tol[mV],su_pct,mte_u[mV],note"


def table(count):
    draw = random.Random(9)
    lines = []
    for i in range(count):
        su_pct = draw.choice([draw.uniform(50, 99), draw.uniform(50, 99), 120])
        note = draw.choice(["", "plain", '"a ""quoted"" word"', "ü", ""])
        lines.append(f"{i},{draw.uniform(1, 10):.4f},{draw.uniform(0.1, 1):.4f},{su_pct:.2f},{draw.uniform(0.01, 0.3):.4f},{note}\n")
    return "".join(lines).encode()


if __name__ == "__main__":
    sys.stdout.buffer.write(HEADER.encode() + b"\n" + table(int(sys.argv[1])))

"""``python3 -m metrisk --selfcheck``: this installation against published figures."""

import sys

from . import __version__, _metrisk


def main() -> int:
    if sys.argv[1:] != ["--selfcheck"]:
        print(f"metrisk {__version__}\nusage: python3 -m metrisk --selfcheck", file=sys.stderr)
        return 2
    rows = _metrisk.self_check()
    for row in rows:
        if row["verdict"] == "DIFF":
            print(f"{row['name']} {row['figure']}: printed {row['printed']}, computed {row['computed']}")
    count = {verdict: sum(row["verdict"] == verdict for row in rows) for verdict in ("PASS", "NOTE", "DIFF")}
    print(", ".join(f"{number} {verdict}" for verdict, number in count.items()))
    return 1 if count["DIFF"] else 0


if __name__ == "__main__":
    sys.exit(main())

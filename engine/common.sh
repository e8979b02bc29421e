# What checks share; sourced by each of them.
set -euo pipefail
. "$METRISK_SOURCE/cmake/packages.sh"

skip() {
  echo "  not run: $*"
  exit 77
}
# Debian packages, those that are missing.
need() {
  install_packages "$@" || skip "packages are missing"
}
# same FILE: that it is the plain run.
same() {
  cmp "$1" "$PLAIN"
  echo "  the $(($(wc -l <"$PLAIN") - 1)) rows of $1 are those of the plain run in every byte"
}
# block TEXT: the first block of shell commands of docs/engines.md with that text in it, so that what is told is what is run.
block() {
  awk -v text="$1" '/^```sh$/ { inside = 1; body = ""; next }
    /^```$/ { if (inside && index(body, text)) { printf "%s", body; exit } inside = 0 }
    inside { body = body $0 "\n" }' "$METRISK_SOURCE/docs/engines.md"
}

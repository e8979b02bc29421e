# Shared by ./run and ./test: installs missing Debian packages and builds a preset.

build_packages=(g++ cmake ninja-build ccache pkg-config libcli11-dev nlohmann-json3-dev libcairo2-dev libpango1.0-dev
  libsqlitecpp-dev libsqlite3-dev mdbtools-dev libglib2.0-dev fonts-dejavu-core)
window_packages=(qt6-base-dev qt6-svg-dev libgl1-mesa-dev)
test_packages=(clang clang-format libclang-rt-14-dev libgtest-dev libboost-math-dev libbenchmark-dev
  desktop-file-utils appstream shared-mime-info dpkg-dev file man-db poppler-utils
  python3-dev python3-numpy pybind11-dev mypy parallel sqlite3)

# Installs those of the named packages that are missing, with apt, as root or through sudo.
install_packages() {
  local package missing=()
  for package in "$@"; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local as_root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Missing packages: ${missing[*]}; install them as root with apt." >&2; return 1; }
    as_root=(sudo)
  fi
  command -v apt-get >/dev/null || { echo "Missing packages: ${missing[*]}; apt is not here to install them." >&2; return 1; }
  echo "Installing ${missing[*]}" >&2
  local quiet=(env DEBIAN_FRONTEND=noninteractive apt-get -qq -o Dpkg::Use-Pty=0)
  { "${as_root[@]}" "${quiet[@]}" update && "${as_root[@]}" "${quiet[@]}" install -y --no-install-recommends "${missing[@]}"; } >&2 ||
    { echo "apt could not install: ${missing[*]}" >&2; return 1; }
}

# build PRESET TARGET...: configures once, then builds what has changed. A preset is configured again when
# that has failed before or the presets have changed.
build() {
  [ "build/$1/build.ninja" -nt CMakePresets.json ] || cmake --preset "$1" >/dev/null
  cmake --build --preset "$1" --target "${@:2}" -- --quiet
}

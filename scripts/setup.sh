# Shared by ./run and ./test: installs what is missing, configures and builds.
# Sourced, not run.

VANTREL_ROOT="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
BUILD_DIR="${VANTREL_BUILD_DIR:-$VANTREL_ROOT/build}"

VANTREL_PACKAGES=(
  # build
  cmake g++ ninja-build pkg-config qt6-base-dev qt6-charts-dev libqt6opengl6-dev libxkbcommon-dev
  libsqlite3-dev libxlsxwriter-dev mdbtools-dev
  # tests and tools
  sqlite3 xvfb poppler-utils fonts-crosextra-carlito mdbtools python3-openpyxl
)

say() { printf '==> %s\n' "$*"; }

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif command -v sudo >/dev/null 2>&1; then
    sudo "$@"
  else
    echo "Packages are missing and this user is not root and has no sudo: install them as root:" >&2
    echo "  apt-get install --no-install-recommends ${missing[*]}" >&2
    exit 1
  fi
}

install_missing_packages() {
  missing=()
  for p in "${VANTREL_PACKAGES[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
      missing+=("$p")
    fi
  done
  if [ ${#missing[@]} -gt 0 ]; then
    say "Installing ${missing[*]}"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get update -q
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
  fi
}

configure_and_build() {
  if [ ! -f "$BUILD_DIR/build.ninja" ]; then
    say "Configuring in $BUILD_DIR"
    cmake -S "$VANTREL_ROOT" -B "$BUILD_DIR" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
  fi
  say "Building"
  cmake --build "$BUILD_DIR"
}

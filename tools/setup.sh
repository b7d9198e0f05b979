# Shared by ./run and ./test: which packages the project stands on, and how it is built. Sourced.

BUILD_PACKAGES=(
  g++ cmake ninja-build ccache mold pkg-config
  qt6-base-dev libgl-dev
  libsqlite3-dev mdbtools-dev libglib2.0-dev
  libharfbuzz-dev libfribidi-dev
  libcurl4-openssl-dev libseccomp-dev zlib1g-dev libpugixml-dev libgmime-3.0-dev
  cmark-gfm
  fonts-urw-base35 fonts-noto-core fonts-dejavu-core fonts-dejavu-extra fonts-droid-fallback
)
RUN_PACKAGES=(libqt6svg6 breeze-icon-theme xdg-utils)
TEST_PACKAGES=(libgtest-dev python3 python3-aiosmtpd openssl git clang-format qpdf poppler-utils sqlite3
  xvfb openbox xdotool x11-apps at-spi2-core dbus-daemon dbus-x11 python3-gi gir1.2-atspi-2.0)
BENCH_PACKAGES=(python3-aiosmtpd libhpdf-dev ledger)

# Another clone, or a build folder of another name, finds what this one compiled.
export CCACHE_NOHASHDIR=true

# install_packages NAME...: installs those that are missing; quiet when there are none.
install_packages() {
  local missing=() name
  for name in "$@"; do
    dpkg-query -W -f '${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  local asRoot=()
  if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || { echo "Please install: ${missing[*]}" >&2; return 1; }
    asRoot=(sudo)
  fi
  echo "Installing: ${missing[*]}"
  "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  "${asRoot[@]}" env DEBIAN_FRONTEND=noninteractive \
    apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
}

# build_preset NAME: configures once and builds.
build_preset() {
  [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >/dev/null
  cmake --build --preset "$1"
}

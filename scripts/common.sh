# What ./run and ./test share; sourced by both from the top of the tree. Each step is silent when all is well
# and shows its log when it is not.

set -euo pipefail
export LC_ALL=C.UTF-8
mkdir -p build/logs

# quietly NAME COMMAND...: runs the command into build/logs/NAME.log and shows the log if it fails.
quietly() {
  local name=$1
  shift
  if ! "$@" >"build/logs/$name.log" 2>&1; then
    printf '%s failed; the end of build/logs/%s.log:\n' "$name" "$name" >&2
    tail -n 60 "build/logs/$name.log" >&2
    return 1
  fi
}

as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

# Installs those packages of scripts/packages.txt that are missing.
install_packages() {
  local wanted missing
  wanted=$(grep -v '^#' scripts/packages.txt)
  missing=$(for package in $wanted; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
  done)
  [ -z "$missing" ] && return 0
  echo "Installing" $missing
  quietly apt-update as_root env DEBIAN_FRONTEND=noninteractive apt-get update
  quietly apt-install as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing
}

# build PRESET [TARGET...]: configures and builds one preset.
build() {
  local preset=$1
  shift
  [ -f "build/$preset/build.ninja" ] || quietly "configure-$preset" cmake --preset "$preset"
  quietly "build-$preset" cmake --build --preset "$preset" ${1:+--target "$@"}
}

# A Wine prefix of the project's own, made once.
prepare_wine() {
  export WINEPREFIX="$PWD/build/windows/wineprefix" WINEARCH=win64 WINEDEBUG=-all
  export WINEDLLOVERRIDES='mscoree,mshtml='
  mkdir -p "$WINEPREFIX"
  [ -f "$WINEPREFIX/ready" ] && return 0
  quietly wine-prefix xvfb-run -a /usr/lib/wine/wine64 wineboot --init
  touch "$WINEPREFIX/ready"
}

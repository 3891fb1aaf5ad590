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
  echo "Installing" $missing >&2
  quietly apt-update as_root env DEBIAN_FRONTEND=noninteractive apt-get update
  quietly apt-install as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing
}

# build PRESET [TARGET...]: configures and builds one preset. A folder that other presets made begins afresh.
build() {
  local preset=$1 made_by=build/$1/made-by-presets.json
  shift
  if ! cmp -s CMakePresets.json "$made_by"; then
    quietly "configure-$preset" cmake --fresh --preset "$preset"
    cp CMakePresets.json "$made_by"
  fi
  quietly "build-$preset" cmake --build --preset "$preset" ${1:+--target "$@"}
}

# at_exit COMMAND: runs it when the script ends, the last one first.
exit_commands=()
at_exit() { exit_commands=("$1" "${exit_commands[@]}"); }
run_exit_commands() {
  local command
  for command in "${exit_commands[@]}"; do eval "$command"; done
}
trap run_exit_commands EXIT

# A display of the script's own, for Windows programs that show something.
start_display() {
  local number="build/logs/display-number.$$"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$number" >build/logs/display.log 2>&1 &
  at_exit "kill $! 2>/dev/null || true; rm -f '$PWD/$number'"
  for _ in $(seq 100); do
    [ -s "$number" ] && break
    sleep 0.1
  done
  if [ ! -s "$number" ]; then
    echo 'Xvfb did not start; see build/logs/display.log' >&2
    return 1
  fi
  export DISPLAY=":$(cat "$number")"
}

# A Wine prefix of the project's own, made once, and a display for what runs in it.
prepare_wine() {
  export WINEPREFIX="$PWD/build/windows/wineprefix" WINEARCH=win64 WINEDEBUG=-all
  export WINEDLLOVERRIDES='mscoree,mshtml='
  mkdir -p "$WINEPREFIX"
  start_display
  # Wine's server outlives the programs that it serves for a moment; it must not lose its display under them.
  at_exit 'timeout 20 /usr/lib/wine/wineserver -w || true'
  [ -f "$WINEPREFIX/ready" ] && return 0
  quietly wine-prefix scripts/wine wineboot --init
  # Wine draws the frames of windows itself: there is no window manager on this display, and waiting for one
  # would take two seconds for each window that closes.
  quietly wine-frames scripts/wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
  touch "$WINEPREFIX/ready"
}

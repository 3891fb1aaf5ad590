# What ./run and ./test share; sourced by both from the top of the tree. A step says on one line of standard error what
# it does, how far it is and how long it took: rewritten in place on a terminal, written once elsewhere. Steps shorter
# than a second say nothing, and one that fails shows the end of its log.

set -euo pipefail
export LC_ALL=C.UTF-8
mkdir -p build/logs

# report TEXT COUNT...: writes TEXT, what the command COUNT prints, and the seconds, until it is stopped.
report() {
  local text=$1 began=$SECONDS
  shift
  sleep 1
  [ -t 2 ] || printf '%s ... ' "$text" >&2
  : >build/logs/step-shown
  local width
  while [ -t 2 ]; do
    width=$(tput cols 2>/dev/null || echo 80)
    # A line that wraps could not be rewritten.
    printf '\r\033[K%.*s' "$((width - 1))" "$text: $("$@")$((SECONDS - began)) s" >&2
    sleep 0.5
  done
}

# step TEXT COUNT COMMAND...: runs the command in this shell, while `report` says how far it is. COUNT is a command in
# one word that prints such as "3 of 97, ", and again at the end.
step() {
  local text=$1 count=$2 began=$SECONDS reporter status=0
  shift 2
  rm -f build/logs/step-shown
  report "$text" $count &
  reporter=$!
  "$@" || status=$?
  kill "$reporter" 2>/dev/null || true
  wait "$reporter" 2>/dev/null || true
  if [ -e build/logs/step-shown ]; then
    [ -t 2 ] && printf '\r\033[K%s: ' "$text" >&2
    printf '%s%s s\n' "$($count)" "$((SECONDS - began))" >&2
  fi
  return $status
}

# Begins a line for a message from within a step.
fresh_line() {
  if [ -t 2 ]; then
    printf '\r\033[K' >&2
  elif [ -e build/logs/step-shown ]; then
    echo >&2
  fi
}

# quietly NAME COMMAND...: runs the command into build/logs/NAME.log and shows the log if it fails.
quietly() {
  local name=$1
  shift
  if ! "$@" >"build/logs/$name.log" 2>&1 </dev/null; then
    fresh_line
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
  local wanted missing count
  wanted=$(grep -v '^#' scripts/packages.txt)
  missing=$(for package in $wanted; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || echo "$package"
  done)
  [ -z "$missing" ] && return 0
  count=$(wc -w <<<"$missing")
  echo "Needed, and missing here: $count Debian packages, to be installed as root:" $missing >&2
  if [ "$(id -u)" != 0 ]; then
    if ! command -v sudo >/dev/null; then
      echo 'There is no sudo here: run this as root, or have these packages installed.' >&2
      return 1
    fi
    sudo -v
  fi
  step 'Reading the lists of packages' : \
    quietly apt-update as_root env DEBIAN_FRONTEND=noninteractive apt-get update
  step "Installing $count packages and what they need" count_of_packages quietly apt-install \
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing
}

# How many packages are set up, of those that apt said it would install.
count_of_packages() {
  local log=build/logs/apt-install.log total
  total=$(sed -n 's/.* \([0-9]*\) newly installed.*/\1/p' "$log" 2>/dev/null)
  [ -z "$total" ] || printf '%s of %s, ' "$(grep -c '^Setting up' "$log")" "$total"
}

# How far a build is: the last count that Ninja wrote.
count_of_build() {
  local last
  last=$(grep -o '^\[[0-9]*/[0-9]*\]' "build/logs/build-$1.log" 2>/dev/null | tail -n 1 | tr -d '[]')
  [ -z "$last" ] || printf '%s of %s, ' "${last%/*}" "${last#*/}"
}

# build PRESET [TARGET...]: configures and builds one preset. A folder that other presets or another toolchain made
# begins afresh: CMake keeps the compiler that it found first.
build() {
  local preset=$1 made_by=build/$1/made-by toolchain=
  shift
  [ "$preset" != windows ] || toolchain=cmake/mingw-w64.cmake
  if ! cat CMakePresets.json $toolchain | cmp -s - "$made_by"; then
    step "Configuring the $preset build" : quietly "configure-$preset" cmake --fresh --preset "$preset"
    cat CMakePresets.json $toolchain >"$made_by"
  fi
  rm -f "build/logs/build-$preset.log"
  step "Compiling the $preset build" "count_of_build $preset" \
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
  local number="build/logs/display-number.$$" log="build/logs/display.$$.log"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$number" >"$log" 2>&1 &
  at_exit "kill $! 2>/dev/null || true; rm -f '$PWD/$number' '$PWD/$log'"
  for _ in $(seq 100); do
    [ -s "$number" ] && break
    sleep 0.1
  done
  if [ ! -s "$number" ]; then
    echo 'Xvfb did not start:' >&2
    cat "$log" >&2
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
  step 'Making a Wine prefix' : quietly wine-prefix scripts/wine wineboot --init
  # Wine draws the frames of windows itself: there is no window manager on this display, and waiting for one
  # would take two seconds for each window that closes.
  step 'Setting Wine up' : quietly wine-frames scripts/wine reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d N /f
  # Debian's Wine does not find its own fonts when it is started without its wrapper script.
  cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
  # It stores the settings as it ends.
  timeout 60 /usr/lib/wine/wineserver -w
  touch "$WINEPREFIX/ready"
}

# set_scale PIXELS: how many pixels to an inch the screen has for programs in the copy of that name.
set_scale() (
  export WINEPREFIX=$WINEPREFIX-$1
  quietly wine-scale scripts/wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f
  timeout 60 /usr/lib/wine/wineserver -w
)

# copy_prefix NAME: makes the copy of the Wine prefix that scripts/own_desktop NAME uses, unless the copy exists. The copies
# share the files of the system, which no program changes.
copy_prefix() {
  local copy=$WINEPREFIX-$1
  [ "$copy/ready" -nt "$WINEPREFIX/ready" ] && return 0
  rm -rf "$copy"
  mkdir -p "$copy/drive_c"
  cp -al "$WINEPREFIX/drive_c/windows" "$copy/drive_c"
  cp -an "$WINEPREFIX/." "$copy"
  touch "$copy/ready"
}

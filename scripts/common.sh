# Shared by ./run, ./test and .ci/run: the packages, the build, a display of our own.
# Sourced; the caller has set -euo pipefail and stands in the project's folder.

PACKAGES=(
  g++ cmake ninja-build ccache pkg-config ca-certificates
  qt6-base-dev libqt6svg6 libzip-dev libcurl4-openssl-dev libgtest-dev
  fonts-dejavu-core fonts-liberation
  wamerican-large wbritish-large
  git xvfb xauth openbox imagemagick x11-utils xdotool procps python3 poppler-utils
)

say() { printf '%s\n' "$*" >&2; }

# Installs what is missing of the packages named, with apt, as root or through sudo.
ensure_packages() {
  local missing=() package
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  local as=()
  if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
      say "These packages are missing and neither root nor sudo is here to install them:"
      say "  ${missing[*]}"
      say "Please install them as root:  apt-get install ${missing[*]}"
      exit 1
    fi
    as=(sudo)
  fi
  say "Installing: ${missing[*]}"
  local apt=("${as[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -o DPkg::Lock::Timeout=600 -qq)
  quietly "${apt[@]}" update
  quietly "${apt[@]}" install -y --no-install-recommends "${missing[@]}"
}

# Runs a command and keeps what it prints to itself, unless it fails: then all of it is shown.
quietly() {
  local log status=0
  log=$(mktemp)
  "$@" >"$log" 2>&1 || status=$?
  [ $status -eq 0 ] || cat "$log" >&2
  rm -f "$log"
  return $status
}

# The same with one line of progress on a terminal: the last line that begins with a bracket or a number.
with_progress() {
  local what=$1 log status=0
  shift
  say "$what"
  [ -t 2 ] || { quietly "$@"; return; }
  log=$(mktemp)
  "$@" > >(tee "$log" | awk '/^ *[[0-9]/ { printf "\r\033[K%s", substr($0, 1, 76); fflush() }' >&2) 2>&1 || status=$?
  printf '\r\033[K' >&2
  [ $status -eq 0 ] || cat "$log" >&2
  rm -f "$log"
  return $status
}

# Configures and builds a preset; further arguments are targets, all of them when there is none.
build() {
  local preset=$1
  shift
  export CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
  quietly cmake --preset "$preset" -Wno-dev
  with_progress "Building ($preset)" cmake --build --preset "$preset" --parallel "${JOBS:-2}" ${1:+--target "$@"}
}

# Runs the tests of a build folder; further arguments are ctest's.
run_tests() {
  local folder=$1
  shift
  with_progress "Testing ($folder)" ctest --test-dir "$folder" --output-on-failure --parallel "${JOBS:-2}" "$@"
  say "$(ctest --test-dir "$folder" --show-only "$@" | sed -n 's/^Total Tests: //p') test programs passed"
}

# Runs a command on a virtual display with a window manager; DISPLAY is set for it.
with_display() {
  local runtime
  runtime=$(mktemp -d)
  # Nothing of the desktop that this may be called from: not its display, and no program that runs there already.
  export XDG_RUNTIME_DIR=$runtime QT_QPA_PLATFORM=xcb
  unset WAYLAND_DISPLAY
  # It takes a free number and tells it, so that two that start together don't share one. Without "-noreset" it starts
  # anew when the first that asks whether it is there has gone, and turns others away.
  Xvfb -displayfd 3 -screen 0 1440x900x24 -nolisten tcp -noreset 3>"$runtime/display" >/dev/null 2>&1 &
  local server=$! tries=0
  until [ -s "$runtime/display" ]; do
    tries=$((tries + 1))
    [ $tries -lt 600 ] && kill -0 "$server" 2>/dev/null || { say "The virtual display did not start."; exit 1; }
    sleep 0.1
  done
  DISPLAY=":$(cat "$runtime/display")"
  export DISPLAY
  local manager=$server
  if [ "${WINDOW_MANAGER:-yes}" = yes ]; then
    openbox >/dev/null 2>&1 &
    manager=$! tries=0
    # A window that is mapped before the manager runs gets no keys.
    until xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; do
      tries=$((tries + 1))
      [ $tries -lt 600 ] || { say "The window manager did not start."; kill "$server"; exit 1; }
      sleep 0.05
    done
  fi
  local status=0
  "$@" || status=$?
  kill "$manager" 2>/dev/null || true
  kill "$server" 2>/dev/null || true
  wait "$manager" "$server" 2>/dev/null || true
  rm -rf "$runtime"
  return $status
}

# Starts a program on a project, on a display that is there, and ends it when its picture is taken: when the main window
# is up, with a title that has the words given, and two pictures in a row are the same. Prints the picture's path.
photograph() {
  local program=$1 project=$2 picture=$3 title=${4:-Quillane 4 by } last='' now box tries=0 log=${3%.png}.log
  "$program" "$project" >/dev/null 2>"$log" &
  program=$!
  while [ $tries -lt 300 ]; do
    tries=$((tries + 1))
    sleep 0.2
    if ! kill -0 $program 2>/dev/null; then
      say "The program ended; what it said:"
      cat "$log" >&2
      return 1
    fi
    if timeout 5 xdotool search --onlyvisible --name "$title" >/dev/null 2>&1; then
      timeout 20 import -silent -window root "$picture" || continue
      now=$(identify -format '%#' "$picture")
      [ "$now" = "$last" ] && break
      last=$now
    elif box=$(timeout 5 xdotool search --onlyvisible --name '^Quillane$' 2>/dev/null | tail -n 1) && [ -n "$box" ]; then
      # The box of a first start.
      timeout 5 xdotool windowactivate --sync "$box" key Return 2>/dev/null || true
    fi
  done
  [ -n "$last" ] || timeout 20 import -silent -window root "$picture" || true
  kill $program 2>/dev/null || true
  wait $program 2>/dev/null || true
  [ -n "$last" ] || { say "The main window did not appear; what was shown instead: $picture"; return 1; }
  echo "$picture"
}

#!/usr/bin/env bash
# screen-test.sh BUILD_DIR: runs BUILD_DIR's program on a virtual X screen under a window
# manager, drives it with the mouse and keys as a user would, and checks what really shows:
# the screen's pixels (tests/screen/ScreenProbe.cpp) and the program's windows. Each step prints
# "ok: ..." or "FAIL: ..."; screenshots are kept in $SCREEN_SHOTS (default
# BUILD_DIR/screen-test-shots). SCREEN_PROBE names another probe than the build's.
set -uo pipefail
[ $# -eq 1 ] || { echo "usage: $0 BUILD_DIR" >&2; exit 2; }
build=$(cd "$1" && pwd)
data=$(cd "$(dirname "$0")/../tests/data/screen" && pwd)
probe=${SCREEN_PROBE:-$build/tests/screen/screen_probe}
shots=${SCREEN_SHOTS:-$build/screen-test-shots}
W=1280 H=800
for f in "$build/src/app/vellumry" "$probe"; do
  [ -x "$f" ] || { echo "FAIL: $f is missing"; echo "0 passed, 1 failed"; exit 1; }
done

tmp=$(mktemp -d /tmp/vellumry-screen.XXXXXX)
xvfb="" wm="" pid=""
cleanup() {
  for p in $pid $wm $xvfb; do kill "$p" 2>/dev/null; done
  wait 2>/dev/null
  rm -rf "$tmp"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

# A private home, and a copy of the program: a settings file beside the build's executable
# would be read and written otherwise.
export HOME=$tmp/home XDG_CONFIG_HOME=$tmp/home/.config XDG_CACHE_HOME=$tmp/home/.cache
export XDG_DATA_HOME=$tmp/home/.local/share XDG_RUNTIME_DIR=$tmp/run QT_QPA_PLATFORM=xcb
mkdir -m 700 "$XDG_RUNTIME_DIR"
mkdir -p "$HOME" "$tmp/bin" "$tmp/pics"
cp "$build/src/app/vellumry" "$tmp/bin/"
for f in ui help tomeview; do ln -s "$build/src/app/$f" "$tmp/bin/$f"; done
cp "$data"/* "$tmp/pics/"
rm -rf "$shots" && mkdir -p "$shots"

# poll SECONDS COMMAND...: runs COMMAND every tenth of a second until it succeeds.
poll() {
  local end=$((SECONDS + $1)); shift
  until "$@"; do
    [ $SECONDS -lt "$end" ] || return 1
    sleep 0.1
  done
}

for n in $(seq 90 140); do
  [ -e "/tmp/.X$n-lock" ] || [ -e "/tmp/.X11-unix/X$n" ] && continue
  # -noreset: else the server resets as its last client leaves, refusing the next one meanwhile.
  Xvfb ":$n" -screen 0 ${W}x${H}x24 -nolisten tcp -noreset >"$tmp/xvfb.log" 2>&1 &
  xvfb=$!
  export DISPLAY=:$n
  poll 5 xdpyinfo >/dev/null 2>&1 && break
  kill $xvfb 2>/dev/null; wait $xvfb 2>/dev/null; xvfb=""  # taken meanwhile: the next one
done
[ -n "$xvfb" ] || { echo "FAIL: no X display could be started"; exit 1; }
openbox --sm-disable >"$tmp/openbox.log" 2>&1 &
wm=$!
poll 10 sh -c 'xprop -root _NET_SUPPORTING_WM_CHECK | grep -q "window id"' ||
  { echo "FAIL: the window manager didn't start:"; cat "$tmp/openbox.log"; exit 1; }

passed=0 failed=0
ok() { echo "ok: $1"; passed=$((passed + 1)); }
fail() { echo "FAIL: $1"; failed=$((failed + 1)); }
shot() { "$probe" --save "$shots/$1.png"; }

# near "#RRGGBB" R G B: the colour lies within a small tolerance of R G B.
near() {
  local c=$((16#${1#\#})) tol=16
  local r=$((c >> 16)) g=$((c >> 8 & 255)) b=$((c & 255))
  ((r - $2 <= tol && $2 - r <= tol && g - $3 <= tol && $3 - g <= tol && b - $4 <= tol && $4 - b <= tol))
}
# middle_is R G B: five points around the middle of the screen show that colour.
last_seen=""
middle_is() {
  local c
  last_seen=$("$probe" $((W / 2)) $((H / 2)) $((W / 2 - 60)) $((H / 2 - 40)) $((W / 2 + 60)) \
    $((H / 2 + 40)) $((W / 2 - 60)) $((H / 2 + 40)) $((W / 2 + 60)) $((H / 2 - 40)) | xargs)
  [ -n "$last_seen" ] || return 1
  for c in $last_seen; do near "$c" "$@" || return 1; done
}

# The program's mapped windows, one a line: id x y width height.
windows() {
  local id
  for id in $(xdotool search --pid "$pid" 2>/dev/null); do
    xwininfo -id "$id" 2>/dev/null | awk -v id="$id" '
      /Absolute upper-left X/ {x = $NF} /Absolute upper-left Y/ {y = $NF}
      /^  Width:/ {w = $NF} /^  Height:/ {h = $NF} /Map State: IsViewable/ {m = 1}
      END {if (m) printf "0x%x %d %d %d %d\n", id, x, y, w, h}'
  done
}
covers_screen() { windows | awk -v W=$W -v H=$H '$2 <= 0 && $3 <= 0 && $2 + $4 >= W && $3 + $5 >= H {f = 1} END {exit !f}'; }
partly_on_screen() {
  windows | awk -v W=$W -v H=$H '{
    inside = $2 >= 0 && $3 >= 0 && $2 + $4 <= W && $3 + $5 <= H
    outside = $2 >= W || $3 >= H || $2 + $4 <= 0 || $3 + $5 <= 0
    if (!inside && !outside) printf "window %s at %d,%d size %dx%d;\n", $1, $2, $3, $4, $5 }'
}
# Running, and not merely waiting to be reaped.
alive() { local s; s=$(ps -o stat= -p "$pid") && [[ $s != Z* ]]; }
gone() { ! alive; }

# Every start of the program counts for f: its main window must show within a few seconds.
starts=0 missed=0 misses=""
start() {
  "$tmp/bin/vellumry" "$tmp/pics" >>"$tmp/program.log" 2>&1 &
  pid=$!
  starts=$((starts + 1))
  poll 5 covers_screen && return 0
  missed=$((missed + 1)) misses+=" start $starts showed only: $(windows | xargs);"
  shot "f-start$starts"
  return 1
}
stop() {
  [ -n "$pid" ] || return 0
  kill "$pid" 2>/dev/null
  wait "$pid" 2>/dev/null
  pid=""
}
# Starts until the main window shows, twice at most: a lost start is f's fault, not the step's.
launch() { start || { note_offenders; stop; start; }; }
offenders=""
note_offenders() { offenders=$( (echo "$offenders"; partly_on_screen) | sort -u); }

# The GIF window's play buttons stand at the top right of the viewer, over its grey (0x404040).
buttons_seen=""
play_buttons() { buttons_seen=$("$probe" 1148 5 1265 5 | xargs); ! near "${buttons_seen%% *}" 64 64 64; }

# The grid and its side panel. Cells are 195 px squares from x 55, y 10 on this screen, the
# third (the PNG) clear of the panel; the file list is the panel's, rows from y 5.
grid_loaded() { near "$("$probe" 542 107)" 40 160 60; }
row_height=0 row_top=0
# Clicks the first entry of the file list and finds its highlight, a run of coloured pixels
# down the list's right part: a person sees the rows.
measure_rows() {
  xdotool mousemove 230 12 click 1
  sleep 0.3
  local points=() y n=0 c v r g b hi lo
  for y in $(seq 2 60); do points+=(230 "$y"); done
  y=2
  for c in $("$probe" "${points[@]}"); do
    v=$((16#${c#\#})) && r=$((v >> 16)) g=$((v >> 8 & 255)) b=$((v & 255))
    hi=$((r > g ? r : g)) lo=$((r < g ? r : g))
    if (((b > hi ? b : hi) - (b < lo ? b : lo) > 60)); then
      ((n++ == 0)) && row_top=$y
    elif ((n)); then
      break
    fi
    y=$((y + 1))
  done
  row_height=$n
  ((n >= 6))
}
open_entry() {  # double clicks entry N (from 0) of the file list
  xdotool mousemove 100 $((row_top + row_height * $1 + row_height / 2)) click --repeat 2 --delay 80 1
}

# --- one run: the viewer, the windows on screen, Esc after the viewer ------------------------
if ! launch; then
  note_offenders
  for step in a c e; do fail "$step. not tried: the main window never showed"; done
elif ! poll 4 grid_loaded || ! measure_rows; then
  shot grid
  note_offenders
  for step in a c e; do fail "$step. not tried: no grid or file list (row highlight ${row_height} px)"; done
else
  shot grid
  note_offenders
  open_entry 1
  if ! poll 3 middle_is 200 40 40; then
    fail "a. the JPEG opened from the file list: the middle of the screen shows $last_seen, not #C82828"
  elif play_buttons; then
    fail "a. the JPEG opened from the file list has a GIF's play buttons ($buttons_seen) over it"
  else
    ok "a. the JPEG opened from the file list shows its colour"
  fi
  shot a-photo
  note_offenders
  xdotool key Escape
  poll 2 grid_loaded
  open_entry 0
  # Both frames in turn: the GIF plays.
  poll 3 middle_is 40 60 200 && poll 3 middle_is 80 100 230 && gif_seen="" || gif_seen=$last_seen
  play_buttons && gif_buttons=yes || gif_buttons=no
  shot c-gif
  note_offenders
  xdotool key Right
  if ! poll 3 middle_is 200 40 40; then
    fail "c. Right from the GIF to the JPEG: the middle of the screen shows $last_seen, not #C82828"
  elif [ -n "$gif_seen" ]; then
    fail "c. the GIF in the viewer: the middle of the screen shows $gif_seen, not its two blues in turn"
  elif [ "$gif_buttons" = no ]; then
    fail "c. the GIF in the viewer has no play buttons at the top right ($buttons_seen)"
  elif play_buttons; then
    fail "c. the JPEG after the GIF still has the play buttons ($buttons_seen) over it"
  else
    ok "c. the GIF plays in the viewer, and Right steps on to the JPEG, which shows"
  fi
  shot c-photo
  xdotool key Escape
  poll 2 grid_loaded && grid_back=yes || grid_back=no
  shot e-grid
  xdotool key Escape
  if poll 3 gone; then
    ok "e. Esc closes the viewer and a second Esc ends the program"
  else
    fail "e. the program still runs after Esc in the viewer (grid back: $grid_back) and Esc on the grid; windows: $(windows | xargs)"
  fi
fi
stop

# --- a popup menu closed with Esc -------------------------------------------------------------
popup_at_pointer() { windows | awk '$2 == 900 && $3 == 600 {f = 1} END {exit !f}'; }
if ! launch || ! poll 4 grid_loaded; then
  fail "b. not tried: no main window or grid: $(windows | xargs)"
else
  note_offenders
  xdotool mousemove 900 600 click 3
  poll 2 popup_at_pointer && popup=1 || popup=0
  shot b-popup
  xdotool key Escape
  sleep 0.5
  if [ "$popup" = 0 ]; then
    fail "b. a right click on the grid showed no popup menu: $(windows | xargs)"
  elif ! alive; then
    fail "b. Esc on the popup menu ended the program"
  elif popup_at_pointer; then
    fail "b. the popup menu is still open after Esc"
  elif ! covers_screen; then
    fail "b. after Esc on the popup menu no window covers the screen: $(windows | xargs)"
  else
    ok "b. Esc closes the popup menu and the program goes on"
  fi
fi
stop

# --- the help box in the viewer, then a double click --------------------------------------------
box_up() { windows | awk -v W=$W '$4 < W / 2 {f = 1} END {exit !f}'; }
if ! launch || ! poll 4 grid_loaded || ! measure_rows; then
  fail "g. not tried: no main window or grid: $(windows | xargs)"
else
  open_entry 1
  poll 3 middle_is 200 40 40
  xdotool key F1
  poll 2 box_up && box=yes || box=no
  xdotool key Return
  sleep 0.3
  xdotool mousemove $((W / 2)) $((H / 2)) click --repeat 2 --delay 80 1
  poll 2 grid_loaded && grid_back=yes || grid_back=no
  shot g-grid
  note_offenders
  open_entry 1
  if [ "$box" = no ]; then
    fail "g. F1 in the viewer showed no help box: $(windows | xargs)"
  elif [ "$grid_back" = no ]; then
    fail "g. after the help box a double click didn't bring the grid back in front"
  elif ! poll 3 middle_is 200 40 40; then
    fail "g. the viewer didn't open again after the help box: the middle shows $last_seen"
  else
    ok "g. after the help box a double click closes the viewer, and the next opens it again"
  fi
fi
stop

if [ -z "$offenders" ]; then
  ok "d. every window of the program lies wholly on or wholly off the screen"
else
  fail "d. partly on the screen: ${offenders//$'\n'/ }"
fi

# --- ten starts more --------------------------------------------------------------------------
for _ in $(seq 1 10); do
  start
  stop
  [ $missed -ge 3 ] && break  # enough to tell, and keeps the run short
done
if [ -z "$misses" ]; then
  ok "f. each of $starts starts showed the main window"
else
  fail "f. the main window failed to show:$misses"
fi

echo "$passed passed, $failed failed"
[ $failed = 0 ]
